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
    OdDbObjectId id;
    CadCommands::ResBufGetObjectId(call.Call(CommandGroup::kLabel, pszCommand, pParameters, L"OBJECTID"),
                                   call.Database(), id);
    return id;
}

OdDbObjectIdArray CallForIds(CCommandCall& call, const OdChar* pszCommand, const OdResBufPtr& pParameters)
{
    OdDbObjectIdArray ids;
    CadCommands::ResBufGetObjectIdArray(call.Call(CommandGroup::kLabel, pszCommand, pParameters, L"OBJECTIDARRAY"),
                                        call.Database(), ids);
    return ids;
}

OdDbDictionaryPtr CallForDictionary(CCommandCall& call)
{
    const OdDbObjectId id = CallForId(call, L"BSYSTEMLABELGETDICTIONARYID", OdResBufPtr());
    if (!id.isValid())
        return OdDbDictionaryPtr();
    const OdDbDictionaryPtr pDictionary = OdDbDictionary::cast(id.openObject().get());
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
