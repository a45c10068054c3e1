// Registers what the module brings, and keeps the store of arbitrary data.
#include "module/registration/ModuleCad.h"

#include <sstream>

#include "Ed/EdCommandStack.h"
#include "OdError.h"
#include "RxSysRegistry.h"
#include "framework/CloseWatcher.h"
#include "module/ground/DictionaryEntry.h"
#include "module/ground/Messages.h"
#include "module/ground/ModuleName.h"
#include "module/registration/ClassTable.h"

ODRX_DEFINE_DYNAMIC_MODULE(CModuleCad, kModuleName)

OdRxModule* CreateModuleCad(const OdString& strModuleName)
{
    return OdRxWin32Module<CModuleCad>::createModule(nullptr, strModuleName);
}

// ---- Registration
// ----------------------------------------------------------------------------------------------------

void CModuleCad::initApp()
{
    RegisterMessages();
    RegisterClasses();
    const OdEdCommandStackPtr pStack = odedRegCmds();
    std::apply([&](auto&... commands) { (pStack->addCommand(&commands), ...); }, m_commands);
    m_pReactor = CCommandReactor::createObject();
}

void CModuleCad::uninitApp()
{
    m_pReactor.release();
    m_pArbitraryData.release();
    const OdEdCommandStackPtr pStack = odedRegCmds();
    std::apply([&](auto&... commands) { (pStack->removeCmd(&commands), ...); }, m_commands);
    StopWatchingForClosing();
    DeleteClasses();
    UnregisterMessages();
}

// ---- Arbitrary data
// --------------------------------------------------------------------------------------------------

// The dictionary under a key, created when it is missing.
static OdRxDictionaryPtr FindOrCreateDictionary(OdRxDictionary& parent, const OdString& strKey)
{
    const OdRxObjectPtr pFound = parent.getAt(strKey);
    if (!pFound)
    {
        OdRxDictionaryPtr pCreated = odrxCreateSyncRxDictionary();
        parent.putAt(strKey, pCreated.get());
        return pCreated;
    }
    OdRxDictionaryPtr pDictionary = OdRxDictionary::cast(pFound.get());
    if (!pDictionary)
        throw OdError_NotThatKindOfClass(pFound->isA(), OdRxDictionary::desc());
    return pDictionary;
}

OdRxDictionaryPtr CModuleCad::GetArbitraryDataRootDictionary()
{
    if (!m_pArbitraryData)
        m_pArbitraryData = FindOrCreateDictionary(*odrxSysRegistry(), kArbitraryDataPath);
    return m_pArbitraryData;
}

OdRxDictionaryPtr CModuleCad::GetArbitraryDataDictionary(const void* pOwner)
{
    if (!pOwner)
        return OdRxDictionaryPtr();
    return FindOrCreateDictionary(*GetArbitraryDataRootDictionary(), ArbitraryDataKey(pOwner));
}

void CModuleCad::RemoveArbitraryDataDictionary(const void* pOwner)
{
    if (pOwner)
        GetArbitraryDataRootDictionary()->remove(ArbitraryDataKey(pOwner));
}

// What has no name, or no owner, is passed over before a dictionary is made for it.

void CModuleCad::setArbitraryData(const OdString& strKey, OdRxObject* pObject)
{
    if (!strKey.isEmpty())
        PutOrRemove(*GetArbitraryDataRootDictionary(), strKey, pObject);
}

OdRxObjectPtr CModuleCad::arbitraryData(const OdString& strKey)
{
    return strKey.isEmpty() ? OdRxObjectPtr() : GetArbitraryDataRootDictionary()->getAt(strKey);
}

void CModuleCad::setArbitraryData(const void* pOwner, const OdString& strKey, OdRxObject* pObject)
{
    if (pOwner && !strKey.isEmpty())
        PutOrRemove(*GetArbitraryDataDictionary(pOwner), strKey, pObject);
}

OdRxObjectPtr CModuleCad::arbitraryData(const void* pOwner, const OdString& strKey)
{
    const bool bHasName = pOwner && !strKey.isEmpty();
    return bHasName ? GetArbitraryDataDictionary(pOwner)->getAt(strKey) : OdRxObjectPtr();
}

OdString CModuleCad::ArbitraryDataKey(const void* pOwner)
{
    std::wostringstream stream;
    stream << pOwner;
    return OdString(stream.str());
}
