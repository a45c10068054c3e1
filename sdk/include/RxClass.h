// The record of a class: its name, its parent, how its objects are made and stored, and what was added to it.
#pragma once

#include <atomic>
#include <vector>

#include "DwgVersion.h"
#include "RxObject.h"

class OdRxDictionary;
class OdRxOverrule;

/** An OdRxClass describes one registered class. It is made by newOdRxClass (or by rxInit of the class) and lives until
    deleteOdRxClass. Reading it is safe between threads, registering and adding extensions is not. */
class OdRxClass : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdRxClass);

    /** The name of the class, as "OdDbLine". */
    const OdString& name() const { return m_name; }
    /** The name of its objects in drawings, as "LINE"; empty when there is none. */
    const OdString& dxfName() const { return m_dxfName; }
    /** The application that the class belongs to. */
    const OdString& appName() const { return m_appName; }
    /** As appName, after the callback given at registration had its say for a file version. */
    OdString appName(OdDb::DwgVersion saveVersion) const;
    /** The file version that brought the class, and its maintenance release when asked for. */
    OdDb::DwgVersion getClassVersion(OdDb::MaintReleaseVer* maintenance = nullptr) const;
    OdUInt32 proxyFlags() const { return m_proxyFlags; }
    /** Null for OdRxObject. */
    OdRxClass* myParent() const { return m_parent; }

    /** True when this class is the given one or derives from it. Takes the same time at any depth; false for null. */
    bool isDerivedFrom(const OdRxClass* other) const
    {
        return other && other->m_depth < m_ancestors.size() && m_ancestors[other->m_depth] == other;
    }

    /** A new object of the class. Returns null when the class is abstract. */
    OdRxObjectPtr create() const;
    OdPseudoConstructorType constructor() const { return m_constructor; }
    void setConstructor(OdPseudoConstructorType constructor) { m_constructor = constructor; }

    /** Adds a protocol extension for protocolClass, which objects of this class and of classes derived from it then
       have (unless a class nearer to theirs has one of its own). Returns the one that was there before, null when there
       was none. Throws OdError (eNullPtr). */
    OdRxObjectPtr addX(OdRxClass* protocolClass, OdRxObject* extension);
    /** The protocol extension of this class, or else of the nearest base class; null when there is none. */
    OdRxObjectPtr getX(const OdRxClass* protocolClass) const;
    /** Removes the extension that was added to this very class. Returns it, null when there is none. */
    OdRxObjectPtr delX(OdRxClass* protocolClass);

    void addRef() override;
    void release() override;
    long numRefs() const override;

    /** How many classes derive from this one directly and are registered. */
    int numChildren() const { return m_children; }

private:
    friend class OdRxObject;
    friend class OdRxClassRegistry;
    friend class OdRxOverrule;
    friend class OdRxOverruleInternals;
    struct Extension
    {
        const OdRxClass* protocolClass;
        OdRxObjectPtr object;
    };

    OdRxClass() = default;
    ~OdRxClass() override;
    const OdRxObject* findExtension(const OdRxClass* protocolClass) const;

    OdString m_name;
    OdString m_dxfName;
    OdString m_appName;
    OdRxClass* m_parent = nullptr;
    std::vector<const OdRxClass*> m_ancestors; ///< from OdRxObject down to this class itself
    std::size_t m_depth = 0;
    OdPseudoConstructorType m_constructor = nullptr;
    AppNameChangeFuncPtr m_changeAppName = nullptr;
    std::vector<Extension> m_extensions;
    OdUInt32 m_proxyFlags = 0;
    int m_dwgVersion = 0;
    int m_maintVersion = 0;
    int m_children = 0;
    std::atomic<int> m_references{1};
    std::vector<OdRxOverrule*> m_overrules; ///< in the order in which they are asked
};
using OdRxClassPtr = OdSmartPtr<OdRxClass>;

inline bool OdRxObject::isKindOf(const OdRxClass* aClass) const
{
    const OdRxClass* own = isA();
    return own && own->isDerivedFrom(aClass);
}

/** Registers a class. Without parent its parent is OdRxObject. Throws OdError: eClassAlreadyRegistered for a name that
   is taken (without regard to case), eEmptyName; nothing is changed then. */
OdRxClass* newOdRxClass(const OdString& className, OdRxClass* parent, OdPseudoConstructorType constructor = nullptr,
                        int dwgVersion = 0, int maintVersion = 0, int proxyFlags = 0,
                        const OdString& dxfName = OdString(), const OdString& appName = OdString(),
                        AppNameChangeFuncPtr changeAppName = nullptr);

/** Withdraws a class; the record must not be used any more. Throws OdError: eNullPtr, and eInvalidContext while classes
    that derive from it are registered; nothing is changed then. */
void deleteOdRxClass(OdRxClass* aClass);

/** All registered classes by name. */
OdRxDictionary* odrxClassDictionary();

/** The class of that name (without regard to case), null when it is not registered. */
OdRxClass* odrxGetClass(const OdString& className);

/** A new object of the class of that name. Throws OdError: eClassNotRegistered for a class that is not registered
   (text: the name and "is not loaded"), eNotApplicable for an abstract class. */
OdRxObjectPtr odrxSafeCreateObject(const OdString& className);

/** The class whose objects have that name in drawings (without regard to case), null when there is none. */
OdRxClass* odrxGetClassByDxfName(const OdString& dxfName);

/** A new object of that class; as odrxCreateObject, null when the class is not registered or abstract. */
OdRxObjectPtr odrxCreateObject(const OdString& className);
