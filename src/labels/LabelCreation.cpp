// Makes labels of entities: who is eligible, what the label says, the label itself.
#include "labels/LabelCreation.h"

#include <algorithm>
#include <iterator>

#include "ModuleErrors.h"
#include "RxSystemServices.h"
#include "ZolExtendedData.h"
#include "labels/Labels.h"
#include "module/ground/Messages.h"

// What the text parser puts around texts in frames. The closing forms are not uniform, and these are their spellings.
// Those that hold the opening form come before it, or their slash would stay behind.
static constexpr const OdChar* kMarkers[] = {L"<inRect>", L"</inRect>", L"/<inCir>", L"<inCir>", L"/<inOv>", L"<inOv>"};

namespace
{

// Made once, as every label asks for them.
const struct
{
    OdString strParser = CommandGroup::kTextParser;
    OdString strSort = L"TEXTPARSERSORT";
    OdString strIds = L"OBJECTIDARRAY";
    OdString strText = L"TEXT";
    OdString strId = L"OBJECTID";
} kNames;

} // namespace

static constexpr OdChar kInMarkers = L'<'; // is in each of them

static bool IsEligible(const OdDbObjectId& id)
{
    if (!id.isValid())
        return false;
    const CZolExtendedDataPtr pData = CZolExtendedData::Get(id, false, false);
    return !pData || !pData->IsCustomLabel();
}

static OdDbObjectIdArray FindEligible(const LabelParameters& parameters)
{
    OdDbObjectIdArray candidates = parameters.ids;
    if (parameters.idObject.isValid())
        candidates.append(parameters.idObject);
    const OdDbObjectId* const pBegin = candidates.getPtr();
    const OdDbObjectId* const pEnd = pBegin + candidates.size();
    const OdDbObjectId* const pRefused = std::find_if_not(pBegin, pEnd, &IsEligible);
    if (pRefused == pEnd)
        return candidates;
    OdDbObjectIdArray eligible;
    eligible.reserve(candidates.size());
    eligible.append(pBegin, pRefused);
    std::copy_if(pRefused + 1, pEnd, std::back_inserter(eligible), &IsEligible);
    return eligible;
}

static OdString ReadText(CCommandCall& call, const OdDbObjectIdArray& ids)
{
    const OdResBufPtr pIds = CadCommands::SetParameterObjectIdArray(kNames.strIds, ids);
    OdString strText;
    CadCommands::ResBufGetOdString(call.Call(kNames.strParser, kNames.strSort, pIds, kNames.strText), strText);
    if (strText.find(kInMarkers) >= 0)
        for (const OdChar* pszMarker : kMarkers)
            strText.replace(pszMarker, L"");
    return strText;
}

static OdDbObjectId MakeLabel(CCommandCall& call, const OdDbObjectIdArray& ids)
{
    const OdString strText = ReadText(call, ids);
    const CBSystemLabelPtr pLabel = CBSystemLabel::createObject();
    const OdDbObjectId id = pLabel->Initialize(call.Database(), strText, ids, OdString());
    pLabel->downgradeOpen();
    return id;
}

void CreateLabel(CCommandCall& call, const LabelParameters& parameters)
{
    const OdDbObjectIdArray ids = FindEligible(parameters);
    call.m_pResult =
        CadCommands::SetParameterObjectId(kNames.strId, ids.isEmpty() ? OdDbObjectId() : MakeLabel(call, ids));
}

void CreateLabelFromSelection(CCommandCall& call, const LabelParameters& parameters)
{
    OdString strName = parameters.strSelectionSetName;
    if (strName.isEmpty())
        strName = call.AskString(odSystemServices()->formatMessage(eMessageSelectionSetName));
    const OdDbSelectionSetPtr pSelectionSet = CallForSelectionSet(call, strName);
    if (!pSelectionSet)
        throw OdError_InvalidValue(eNullObjectPointer, L"pSelectionSet", call.FunctionName());
    const OdResBufPtr pIds = CadCommands::SetParameterObjectIdArray(L"OBJECTIDARRAY", pSelectionSet->objectIdArray());
    call.m_pResult = CadCommands::SetParameterObjectId(L"OBJECTID", CallForId(call, L"BSYSTEMLABELCREATE", pIds));
}
