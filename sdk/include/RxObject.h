// The root of all classes of the SDK: counted references and a class that is known while the program runs.
#pragma once

#include "OdPlatform.h"
#include "OdResult.h"
#include "OdString.h"
#include "RxDefs.h"
#include "SmartPtr.h"

class OdRxClass;
class OdRxObject;

namespace OdRx
{
/** The outcome of comparing two objects. */
enum Ordering : int
{
    kLessThan = -1,
    kEqual = 0,
    kGreaterThan = 1,
    kNotOrderable = 2
};
} // namespace OdRx

using OdRxObjectPtr = OdSmartPtr<OdRxObject>;

/** An OdRxObject is an object that lives as long as somebody holds a reference to it and whose class can be asked for
    and compared while the program runs. Counting references is safe between threads but for classes that say otherwise;
    what else is, each class says.

    New objects are made by the createObject of their class, which gives a smart pointer that holds the only reference.
 */
class ODRX_ABSTRACT OdRxObject
{
public:
    OdRxObject() = default;
    virtual ~OdRxObject() = default;
    OdRxObject(const OdRxObject&) = delete;
    OdRxObject& operator=(const OdRxObject&) = delete;

    /** The object as this class, null for a null pointer. */
    static OdRxObjectPtr cast(const OdRxObject* object);
    /** The record of the class, null while it is not registered. */
    static OdRxClass* desc() { return g_pDesc; }
    static void rxInit();
    static void rxUninit();
    /** Never returns an object: the class is abstract. Throws OdError (eNotApplicable). */
    static OdRxObjectPtr createObject();

    /** Adds, gives back a reference; the object ends with its last one. */
    virtual void addRef() = 0;
    virtual void release() = 0;
    /** How many references there are. */
    virtual long numRefs() const { return 1; }

    /** The record of the object's class, null while it is not registered. */
    virtual OdRxClass* isA() const;

    /** The object itself when its class is or derives from the given class, else the protocol extension that its class
       or the nearest base class has for it. The reference returned is the caller's; null when there is neither. */
    virtual OdRxObject* queryX(const OdRxClass* protocolClass) const;

    /** As queryX, but throws OdError_NotThatKindOfClass where queryX returns null. */
    OdRxObject* x(const OdRxClass* protocolClass) const;

    /** True when the object's class is or derives from the given class. */
    bool isKindOf(const OdRxClass* aClass) const;

    /** A new object with the same content. Returns null unless the class can make copies. */
    virtual OdRxObjectPtr clone() const;
    /** Takes over the content of another object. Throws OdError (eNotApplicable) unless the class can do it, and
        OdError_NotThatKindOfClass for an object that does not fit; nothing is changed then. */
    virtual void copyFrom(const OdRxObject* source);

    virtual OdRx::Ordering comparedTo(const OdRxObject* other) const;
    virtual bool isEqualTo(const OdRxObject* other) const;

    static OdRxClass* g_pDesc;
};

#include "RxClass.h"
