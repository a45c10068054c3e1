// The members that every class of the SDK declares and defines, so that its objects know their class at run time.
#pragma once

#include "SmartPtr.h"

class OdRxClass;
class OdRxObject;
class OdString;

/** Called when a drawing of the file version saveVersion is written: may change the application that is named for the
    class in it. */
using AppNameChangeFuncPtr = void (*)(const OdRxClass* aClass, OdString& applicationName, int saveVersion);

/** Makes one object; the reference is the caller's. */
using OdPseudoConstructorType = OdSmartPtr<OdRxObject> (*)();

/** Declares, in the public part of a class:
    - cast(object): the object as this class (or the protocol extension of this class that it has), null otherwise;
    - desc(): the record of the class, null while the class is not registered;
    - isA(): the record of the object's class;
    - createObject(): a new object. Throws OdError when the class is not registered (text: "OdDb", the name of the class
      and "is not loaded"; code eClassNotRegistered) and OdError (eNotApplicable) when it is abstract;
    - rxInit(): registers the class. Throws OdError (eClassAlreadyRegistered); nothing is changed then. The parent class
      has to be registered before: OdError (eClassNotRegistered);
    - rxUninit(): withdraws it. Throws OdError (eClassNotRegistered). */
#define ODRX_DECLARE_MEMBERS(ClassName)                                                                                \
    static OdSmartPtr<ClassName> cast(const OdRxObject* object)                                                        \
    {                                                                                                                  \
        return OdSmartPtr<ClassName>(static_cast<ClassName*>(odrxQuery(object, g_pDesc)), kOdRxObjAttach);             \
    }                                                                                                                  \
    static OdRxClass* g_pDesc;                                                                                         \
    static OdRxClass* desc()                                                                                           \
    {                                                                                                                  \
        return g_pDesc;                                                                                                \
    }                                                                                                                  \
    [[maybe_unused]] static OdSmartPtr<ClassName> createObject();                                                      \
    [[maybe_unused]] static OdSmartPtr<OdRxObject> pseudoConstructor();                                                \
    [[maybe_unused]] static void rxInit();                                                                             \
    [[maybe_unused]] static void rxInit(AppNameChangeFuncPtr changeAppName);                                           \
    [[maybe_unused]] static void rxUninit();                                                                           \
    OdRxClass* isA() const override

/** How a class makes its objects; the last argument of the defining macros. */
#define EMPTY_CONSTR(ClassName) OdSmartPtr<OdRxObject>()
#define RXIMPL_CONSTR(ClassName) OdRxObjectImpl<ClassName>::createObject()
#define DBOBJECT_CONSTR RXIMPL_CONSTR

/** Defines the members of a class with all that its record holds. dwgVersion and maintVersion: the file version that
    brought the class; proxyFlags: what may be done to its objects where the class is unknown; dxfName: null for a class
    that is not written under a name of its own; appName: the application that has to be loaded for the class. */
#define ODRX_DEFINE_MEMBERS_EX(ClassName, ParentClass, DOCREATE, dwgVersion, maintVersion, proxyFlags, className,      \
                               dxfName, appName)                                                                       \
    OdRxClass* ClassName::g_pDesc = nullptr;                                                                           \
    OdRxClass* ClassName::isA() const                                                                                  \
    {                                                                                                                  \
        return g_pDesc;                                                                                                \
    }                                                                                                                  \
    OdSmartPtr<OdRxObject> ClassName::pseudoConstructor()                                                              \
    {                                                                                                                  \
        return DOCREATE(ClassName);                                                                                    \
    }                                                                                                                  \
    OdSmartPtr<ClassName> ClassName::createObject()                                                                    \
    {                                                                                                                  \
        OdSmartPtr<OdRxObject> object = odrxCreateByClass(g_pDesc, L"OdDb" L## #ClassName);                            \
        return OdSmartPtr<ClassName>(static_cast<ClassName*>(object.detach()), kOdRxObjAttach);                        \
    }                                                                                                                  \
    void ClassName::rxInit(AppNameChangeFuncPtr changeAppName)                                                         \
    {                                                                                                                  \
        odrxRegisterClass(g_pDesc, className, ParentClass::desc(), &ClassName::pseudoConstructor, dwgVersion,          \
                          maintVersion, proxyFlags, dxfName, appName, changeAppName);                                  \
    }                                                                                                                  \
    void ClassName::rxInit()                                                                                           \
    {                                                                                                                  \
        rxInit(nullptr);                                                                                               \
    }                                                                                                                  \
    void ClassName::rxUninit()                                                                                         \
    {                                                                                                                  \
        odrxUnregisterClass(g_pDesc);                                                                                  \
    }

/** Defines the members of a class whose objects are not written to drawings. */
#define ODRX_CONS_DEFINE_MEMBERS(ClassName, ParentClass, DOCREATE)                                                     \
    ODRX_DEFINE_MEMBERS_EX(ClassName, ParentClass, DOCREATE, 0, 0, 0, L## #ClassName, nullptr, nullptr)

/** Defines the members of an abstract class. */
#define ODRX_NO_CONS_DEFINE_MEMBERS(ClassName, ParentClass)                                                            \
    ODRX_CONS_DEFINE_MEMBERS(ClassName, ParentClass, EMPTY_CONSTR)

/** As the two above, registered under a name that differs from that of the class in the program. */
#define ODRX_CONS_DEFINE_MEMBERS_ALTNAME(ClassName, ParentClass, className, DOCREATE)                                  \
    ODRX_DEFINE_MEMBERS_EX(ClassName, ParentClass, DOCREATE, 0, 0, 0, className, nullptr, nullptr)
#define ODRX_NO_CONS_DEFINE_MEMBERS_ALTNAME(ClassName, ParentClass, className)                                         \
    ODRX_CONS_DEFINE_MEMBERS_ALTNAME(ClassName, ParentClass, className, EMPTY_CONSTR)

/** Defines the members of a class whose objects are written to drawings under dxfName. */
#define ODRX_DXF_DEFINE_MEMBERS(ClassName, ParentClass, DOCREATE, dwgVersion, maintVersion, proxyFlags, dxfName,       \
                                appName)                                                                               \
    ODRX_DEFINE_MEMBERS_EX(ClassName, ParentClass, DOCREATE, dwgVersion, maintVersion, proxyFlags, L## #ClassName,     \
                           dxfName, appName)

/** What the macros above are made of; not called otherwise. */
OdRxObject* odrxQuery(const OdRxObject* object, const OdRxClass* aClass);
OdSmartPtr<OdRxObject> odrxCreateByClass(OdRxClass* aClass, const wchar_t* shownName);
void odrxRegisterClass(OdRxClass*& record, const wchar_t* className, OdRxClass* parent,
                       OdPseudoConstructorType constructor, int dwgVersion, int maintVersion, int proxyFlags,
                       const wchar_t* dxfName, const wchar_t* appName, AppNameChangeFuncPtr changeAppName);
void odrxUnregisterClass(OdRxClass*& record);
