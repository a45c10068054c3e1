// Finds labels by what callers know of them.
#include "labels/LabelQueries.h"

#include "ModuleErrors.h"
#include "framework/Json.h"
#include "labels/LabelChoice.h"
#include "labels/Labels.h"

static OdResBufPtr AllowDeleted(const LabelParameters& parameters)
{
    return CadCommands::SetParameterBool(L"ALLOWDELETED", parameters.bAllowDeleted);
}

static void ReturnId(CCommandCall& call, const OdDbObjectId& id)
{
    call.m_pResult = CadCommands::SetParameterObjectId(L"OBJECTID", id);
}

static void ReturnIds(CCommandCall& call, const OdDbObjectIdArray& ids)
{
    call.m_pResult = CadCommands::SetParameterObjectIdArray(L"OBJECTIDARRAY", ids);
}

static void ReturnIdOfLabel(CCommandCall& call, const OdDbObjectId& id, const LabelParameters& parameters)
{
    ReturnId(call, OpenLabel(id, parameters.bAllowDeleted) ? id : OdDbObjectId());
}

// ---- The dictionary
// --------------------------------------------------------------------------------------------------

void GetDictionaryId(CCommandCall& call, const LabelParameters&)
{
    const OdDbDictionaryPtr pDictionary = CBSystemLabel::GetDictionary(call.Database());
    if (!pDictionary)
        throw OdError_InvalidValue(eNullObjectPointer, L"pDictionary", call.FunctionName());
    ReturnId(call, pDictionary->objectId());
}

void GetAllIds(CCommandCall& call, const LabelParameters& parameters)
{
    OdDbObjectIdArray ids;
    if (const OdDbDictionaryPtr pDictionary = CallForDictionary(call))
    {
        OdDbDictionaryIteratorPtr pEntries = pDictionary->newIterator(OdRx::kDictSorted);
        for (pEntries->start(!parameters.bAllowDeleted); !pEntries->done(); pEntries->next())
            if (OpenLabel(pEntries->objectId(), parameters.bAllowDeleted))
                ids.append(pEntries->objectId());
    }
    ReturnIds(call, ids);
}

// ---- Single labels
// ---------------------------------------------------------------------------------------------------

void GetIdFromGuid(CCommandCall& call, const LabelParameters& parameters)
{
    OdDbObjectId id;
    if (const OdDbDictionaryPtr pDictionary = CallForDictionary(call))
    {
        OdResult eStatus = eOk;
        id = pDictionary->getAt(parameters.strGuid, &eStatus);
    }
    ReturnIdOfLabel(call, id, parameters);
}

void GetIdFromHandle(CCommandCall& call, const LabelParameters& parameters)
{
    ReturnIdOfLabel(call, call.Database()->getOdDbObjectId(OdDbHandle(parameters.strHandle), false), parameters);
}

void GetIdFromName(CCommandCall& call, const LabelParameters& parameters)
{
    for (const OdDbObjectId& id : CallForIds(call, L"BSYSTEMLABELGETALLIDS", AllowDeleted(parameters)))
    {
        const CBSystemLabelPtr pLabel = OpenLabel(id, parameters.bAllowDeleted);
        if (pLabel && pLabel->GetLabel().iCompare(parameters.strName) == 0)
            return ReturnId(call, id);
    }
    ReturnId(call, OdDbObjectId());
}

// ---- Lists
// -----------------------------------------------------------------------------------------------------------

void GetSelectedIds(CCommandCall& call, const LabelParameters& parameters)
{
    const OdDbSelectionSetPtr pSelectionSet = CallForSelectionSet(call, parameters.strSelectionSetName);
    if (!pSelectionSet)
        throw OdError_InvalidValue(eNullObjectPointer, L"pDbSelectionSet", call.FunctionName());
    OdDbObjectIdArray ids;
    for (const OdDbObjectId& id : pSelectionSet->objectIdArray())
        if (OpenLabel(id, parameters.bAllowDeleted))
            ids.append(id);
    ReturnIds(call, ids);
}

// The JSON array that append(array, label, allocator) makes of the labels; ids that cannot be opened are left out.
template<class Append>
static void ReturnJsonOfLabels(CCommandCall& call, const OdDbObjectIdArray& ids, bool bAllowDeleted, Append append)
{
    JsonDocument document(rapidjson::kArrayType);
    for (const OdDbObjectId& id : ids)
        if (const CBSystemLabelPtr pLabel = RequireLabel(id, bAllowDeleted))
            append(document, *pLabel, document.GetAllocator());
    call.m_pResult = CadCommands::SetParameterOdString(L"JSON", WriteJson(document));
}

void GetAllNames(CCommandCall& call, const LabelParameters& parameters)
{
    const bool bGiven = parameters.uiGiven & eParameterObjectIdArray;
    const OdDbObjectIdArray ids =
        bGiven ? parameters.ids : CallForIds(call, L"BSYSTEMLABELGETALLIDS", AllowDeleted(parameters));
    ReturnJsonOfLabels(call, ids, parameters.bAllowDeleted,
                       [](JsonDocument& document, const CBSystemLabel& label, JsonAllocator& allocator)
                       { document.PushBack(JsonOfText(label.GetLabel(), allocator), allocator); });
}

void ToJson(CCommandCall& call, const LabelParameters& parameters)
{
    ReturnJsonOfLabels(call, GivenOrChosenLabels(call, parameters), parameters.bAllowDeleted,
                       [](JsonDocument& document, const CBSystemLabel& label, JsonAllocator& allocator)
                       {
                           JsonValue object;
                           label.JsonOutFields(object, allocator);
                           document.PushBack(object, allocator);
                       });
}
