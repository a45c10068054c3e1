// Opens labels and asks other commands for ids.
#include "labels/Labels.h"

#include "ModuleErrors.h"

CBSystemLabelPtr OpenLabel(const OdDbObjectId& id, bool bAllowDeleted)
{
    return CBSystemLabel::cast(id.openObject(OdDb::kForRead, bAllowDeleted).get());
}

CBSystemLabelPtr RequireLabel(const OdDbObjectId& id, bool bAllowDeleted)
{
    return CBSystemLabelPtr(id.openObject(OdDb::kForRead, bAllowDeleted));
}

OdDbObjectId CallForId(CCommandCall& call, const OdChar* pszCommand, const OdResBufPtr& pParameters)
{
    return call.CallForId(CommandGroup::kLabel, pszCommand, pParameters);
}

OdDbObjectIdArray CallForIds(CCommandCall& call, const OdChar* pszCommand, const OdResBufPtr& pParameters)
{
    return call.CallForIds(CommandGroup::kLabel, pszCommand, pParameters);
}

OdDbDictionaryPtr CallForDictionary(CCommandCall& call)
{
    const OdDbObjectId id = CallForId(call, L"BSYSTEMLABELGETDICTIONARYID", OdResBufPtr());
    if (!id.isValid())
        return OdDbDictionaryPtr();
    OdDbDictionaryPtr pDictionary = OdDbDictionary::cast(id.openObject().get());
    if (!pDictionary)
        throw OdError_InvalidValue(eNullObjectPointer, L"pDictionary", call.FunctionName());
    return pDictionary;
}

OdDbSelectionSetPtr CallForSelectionSet(CCommandCall& call, const OdString& strSelectionSetName)
{
    const OdResBufPtr pName = CadCommands::SetParameterOdString(L"SELECTIONSETNAME", strSelectionSetName);
    OdDbSelectionSetPtr pSelectionSet;
    CadCommands::ResBufGetDbSelectionSet(
        call.Call(CommandGroup::kSelectionSet, L"SELECTIONSETGET", pName, L"SELECTIONSET"), pSelectionSet);
    return pSelectionSet;
}
