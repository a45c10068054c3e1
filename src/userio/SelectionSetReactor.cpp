// Keeps listeners in the arbitrary data of their drawing.
#include "SelectionSetReactor.h"

#include "DbDatabase.h"
#include "DynamicLinker.h"
#include "ModuleErrors.h"
#include "ModuleServices.h"
#include "RxModule.h"
#include "RxVariant.h"
#include "framework/CloseWatcher.h"
#include "module/ground/ModuleName.h"

ODRX_CONS_DEFINE_MEMBERS(CSelectionSetReactor, OdRxObject, RXIMPL_CONSTR)

const OdString CSelectionSetReactor::m_strPath(L"REACTORS_SELECTIONSET");

static void RequireDatabase(const OdDbDatabase* pDb, const OdChar* pszFunction)
{
    if (!pDb)
        throw OdError_InvalidArgument(eNoDatabase, L"pDb", pszFunction);
}

static void RequireReactor(const CSelectionSetReactor* pReactor, const OdChar* pszFunction)
{
    if (!pReactor)
        throw OdError_InvalidArgument(eNullObjectPointer, L"pReactor", pszFunction);
}

static CModuleServices& RequireModule(const OdChar* pszFunction)
{
    if (CModuleServices* pServices = CModuleServices::Find())
        return *pServices;
    if (const OdRxModulePtr pOther = odrxDynamicLinker()->lookupModule(kModuleName))
        throw OdError_NotThatKindOfClass(pOther->isA(), OdRxModule::desc());
    throw OdError_ModuleInitialization(eNullPtr, kModuleName, pszFunction);
}

void CSelectionSetReactor::OnSelectionSetChanged(const OdString&, const OdDbObjectIdArray&, const OdDbObjectIdArray&) {}

void CSelectionSetReactor::GetReactors(const OdDbDatabase* pDb, OdArray<OdRxObjectPtr>& reactors)
{
    constexpr const OdChar* pszFunction = L"CSelectionSetReactor::GetReactors";
    RequireDatabase(pDb, pszFunction);
    reactors.clear();
    if (const OdRxObjectPtr pStored = RequireModule(pszFunction).arbitraryData(pDb, m_strPath))
        reactors = OdRxVariantValue(pStored)->getRxObjectPtrArray();
}

void CSelectionSetReactor::SetReactors(const OdDbDatabase* pDb, const OdArray<OdRxObjectPtr>& reactors)
{
    constexpr const OdChar* pszFunction = L"CSelectionSetReactor::SetReactors";
    RequireDatabase(pDb, pszFunction);
    WatchForClosing(const_cast<OdDbDatabase*>(pDb));
    RequireModule(pszFunction).setArbitraryData(pDb, m_strPath, OdRxVariantValue(reactors));
}

static OdUInt32 FindReactor(const OdArray<OdRxObjectPtr>& reactors, const CSelectionSetReactor* pReactor)
{
    OdUInt32 uiIndex = 0;
    while (uiIndex < reactors.size() && reactors[uiIndex].get() != pReactor)
        ++uiIndex;
    return uiIndex;
}

void CSelectionSetReactor::AddReactor(const OdDbDatabase* pDb, CSelectionSetReactor* pReactor)
{
    constexpr const OdChar* pszFunction = L"CSelectionSetReactor::AddReactor";
    RequireDatabase(pDb, pszFunction);
    RequireReactor(pReactor, pszFunction);
    OdArray<OdRxObjectPtr> reactors;
    GetReactors(pDb, reactors);
    if (FindReactor(reactors, pReactor) < reactors.size())
        return;
    reactors.append(pReactor);
    SetReactors(pDb, reactors);
}

void CSelectionSetReactor::RemoveReactor(const OdDbDatabase* pDb, CSelectionSetReactor* pReactor)
{
    constexpr const OdChar* pszFunction = L"CSelectionSetReactor::RemoveReactor";
    RequireDatabase(pDb, pszFunction);
    RequireReactor(pReactor, pszFunction);
    OdArray<OdRxObjectPtr> reactors;
    GetReactors(pDb, reactors);
    const OdUInt32 uiIndex = FindReactor(reactors, pReactor);
    if (uiIndex == reactors.size())
        return;
    reactors.removeAt(uiIndex);
    SetReactors(pDb, reactors);
}

void CSelectionSetReactor::SelectionSetChanged(const OdDbDatabase* pDb, const OdString& name,
                                               const OdDbObjectIdArray& ids1, const OdDbObjectIdArray& ids2)
{
    RequireDatabase(pDb, L"CSelectionSetReactor::SelectionSetChanged");
    OdArray<OdRxObjectPtr> reactors;
    GetReactors(pDb, reactors);
    for (const OdRxObjectPtr& pObject : reactors)
        if (const CSelectionSetReactorPtr pReactor = CSelectionSetReactor::cast(pObject.get()))
            pReactor->OnSelectionSetChanged(name, ids1, ids2);
}
