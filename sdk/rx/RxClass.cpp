// Keeps the record of all classes.
#include "RxClass.h"

#include "OdError.h"
#include "RxDictionary.h"
#include "RxSysRegistry.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdRxClass, OdRxObject)

namespace
{

int g_numExtensions = 0;

} // namespace

/** Makes and ends records, which nobody else can. */
class OdRxClassRegistry
{
public:
    static OdRxClass* make(const OdString& className, OdRxClass* parent)
    {
        OdRxClass* made = new OdRxClass;
        made->m_name = className;
        made->m_parent = parent;
        if (parent)
        {
            made->m_ancestors = parent->m_ancestors;
            ++parent->m_children;
        }
        made->m_depth = made->m_ancestors.size();
        made->m_ancestors.push_back(made);
        return made;
    }
    static void describe(OdRxClass& made, OdPseudoConstructorType constructor, int dwgVersion, int maintVersion,
                         int proxyFlags, const OdString& dxfName, const OdString& appName,
                         AppNameChangeFuncPtr changeAppName)
    {
        made.m_constructor = constructor;
        made.m_dwgVersion = dwgVersion;
        made.m_maintVersion = maintVersion;
        made.m_proxyFlags = static_cast<OdUInt32>(proxyFlags);
        made.m_dxfName = dxfName;
        made.m_appName = appName;
        made.m_changeAppName = changeAppName;
    }
    static void detach(OdRxClass& ended)
    {
        if (ended.m_parent)
            --ended.m_parent->m_children;
    }
};

OdRxClass::~OdRxClass()
{
    g_numExtensions -= static_cast<int>(m_extensions.size());
}

void OdRxClass::addRef()
{
    m_references.fetch_add(1, std::memory_order_relaxed);
}

void OdRxClass::release()
{
    if (m_references.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

long OdRxClass::numRefs() const
{
    return m_references.load(std::memory_order_relaxed);
}

OdDb::DwgVersion OdRxClass::getClassVersion(OdDb::MaintReleaseVer* maintenance) const
{
    if (maintenance)
        *maintenance = static_cast<OdDb::MaintReleaseVer>(m_maintVersion);
    return static_cast<OdDb::DwgVersion>(m_dwgVersion);
}

OdString OdRxClass::appName(OdDb::DwgVersion saveVersion) const
{
    OdString name = m_appName;
    if (m_changeAppName)
        m_changeAppName(this, name, saveVersion);
    return name;
}

OdRxObjectPtr OdRxClass::create() const
{
    return m_constructor ? m_constructor() : OdRxObjectPtr();
}

OdRxObjectPtr OdRxClass::addX(OdRxClass* protocolClass, OdRxObject* extension)
{
    if (!protocolClass || !extension)
        odThrow(eNullPtr);
    OdRxObjectPtr previous = delX(protocolClass);
    m_extensions.push_back({protocolClass, OdRxObjectPtr(extension)});
    ++g_numExtensions;
    return previous;
}

OdRxObjectPtr OdRxClass::getX(const OdRxClass* protocolClass) const
{
    return OdRxObjectPtr(findExtension(protocolClass));
}

OdRxObjectPtr OdRxClass::delX(OdRxClass* protocolClass)
{
    for (auto it = m_extensions.begin(); it != m_extensions.end(); ++it)
        if (it->protocolClass == protocolClass)
        {
            OdRxObjectPtr removed = it->object;
            m_extensions.erase(it);
            --g_numExtensions;
            return removed;
        }
    return {};
}

const OdRxObject* OdRxClass::findExtension(const OdRxClass* protocolClass) const
{
    if (g_numExtensions == 0)
        return nullptr;
    for (const OdRxClass* level = this; level; level = level->m_parent)
        for (const Extension& extension : level->m_extensions)
            if (extension.protocolClass == protocolClass)
                return extension.object.get();
    return nullptr;
}

OdRxDictionary* odrxClassDictionary()
{
    static OdRxDictionary* const dictionary = odrxCreateSyncRxDictionary(false).detach();
    return dictionary;
}

OdRxClass* newOdRxClass(const OdString& className, OdRxClass* parent, OdPseudoConstructorType constructor,
                        int dwgVersion, int maintVersion, int proxyFlags, const OdString& dxfName,
                        const OdString& appName, AppNameChangeFuncPtr changeAppName)
{
    if (className.isEmpty())
        odThrow(eEmptyName);
    if (odrxClassDictionary()->has(className))
        throw OdError(eClassAlreadyRegistered, className + L" is registered already");
    OdRxClass* made = OdRxClassRegistry::make(className, parent ? parent : OdRxObject::desc());
    OdRxClassRegistry::describe(*made, constructor, dwgVersion, maintVersion, proxyFlags, dxfName, appName,
                                changeAppName);
    odrxClassDictionary()->putAt(className, made);
    made->release();
    return made;
}

void deleteOdRxClass(OdRxClass* aClass)
{
    if (!aClass)
        odThrow(eNullPtr);
    if (aClass->numChildren())
        throw OdError(eInvalidContext, L"Classes that derive from " + aClass->name() + L" are still registered");
    OdRxClassRegistry::detach(*aClass);
    odrxClassDictionary()->remove(aClass->name());
}

OdRxClass* odrxGetClass(const OdString& className)
{
    // The dictionary keeps the class; all that it holds are classes.
    return static_cast<OdRxClass*>(odrxClassDictionary()->getAt(className).get());
}

OdRxClass* odrxGetClassByDxfName(const OdString& dxfName)
{
    if (dxfName.isEmpty())
        return nullptr;
    for (OdRxDictionaryIteratorPtr it = odrxClassDictionary()->newIterator(); !it->done(); it->next())
    {
        OdRxClass* candidate = static_cast<OdRxClass*>(it->object().get());
        if (candidate->dxfName().iCompare(dxfName) == 0)
            return candidate;
    }
    return nullptr;
}

namespace
{

[[noreturn]] void throwNotLoaded(const OdString& shownName)
{
    throw OdError(eClassNotRegistered, shownName + L"is not loaded");
}

OdRxObjectPtr createChecked(const OdRxClass& aClass)
{
    OdRxObjectPtr made = aClass.create();
    if (made.isNull())
        throw OdError(eNotApplicable, aClass.name() + L" is abstract");
    return made;
}

} // namespace

OdRxObjectPtr odrxSafeCreateObject(const OdString& className)
{
    const OdRxClass* found = odrxGetClass(className);
    if (!found)
        throwNotLoaded(className);
    return createChecked(*found);
}

OdRxObjectPtr odrxCreateObject(const OdString& className)
{
    const OdRxClass* found = odrxGetClass(className);
    return found ? found->create() : OdRxObjectPtr();
}

OdRxObjectPtr odrxCreateByClass(OdRxClass* aClass, const wchar_t* shownName)
{
    if (!aClass)
        throwNotLoaded(shownName);
    return createChecked(*aClass);
}

void odrxRegisterClass(OdRxClass*& record, const wchar_t* className, OdRxClass* parent,
                       OdPseudoConstructorType constructor, int dwgVersion, int maintVersion, int proxyFlags,
                       const wchar_t* dxfName, const wchar_t* appName, AppNameChangeFuncPtr changeAppName)
{
    if (record)
        throw OdError(eClassAlreadyRegistered, OdString(className) + L" is registered already");
    if (!parent)
        throw OdError(eClassNotRegistered, OdString(L"The parent class of ") + className + L" is not registered");
    record = newOdRxClass(className, parent, constructor, dwgVersion, maintVersion, proxyFlags, dxfName, appName,
                          changeAppName);
}

void odrxUnregisterClass(OdRxClass*& record)
{
    if (!record)
        odThrow(eClassNotRegistered);
    deleteOdRxClass(record);
    record = nullptr;
}
