// The table of the label commands and their frame.
#include "labels/LabelCommands.h"

#include <iterator>

#include "labels/LabelCreation.h"
#include "labels/LabelDeletion.h"
#include "labels/LabelQueries.h"
#include "labels/LabelViews.h"

namespace
{

constexpr FrameCheckRow kChecks[] = {
    kContextIsDrawingContext,
    {EFrameCheck::HasFunctionIO, eNullPtr, L"pIO"},
    {EFrameCheck::IsOurFunctionIO, eNullPtr, L"pFunctionIO"},
    {EFrameCheck::HasDatabase, eNoDatabase, L"pDb"},
};

constexpr OdUInt32 kQuery = eCommandFlagResult | eCommandFlagNoUndo;
constexpr OdUInt32 kCreation = eCommandFlagResult | eCommandFlagTransaction;

constexpr CommandRow Row(const OdChar* pszClass, const OdChar* pszName, OdUInt32 uiFlags)
{
    return {pszClass, CommandGroup::kLabel, pszName, uiFlags};
}

constexpr LabelCommandRow kCommands[] = {
    {Row(L"CCommandBSystemLabelCreate", L"BSYSTEMLABELCREATE", kCreation), eParameterObjectIdArray | eParameterObjectId,
     &CreateLabel},
    {Row(L"CCommandBSystemLabelCreateFromSelection", L"BSYSTEMLABELCREATEFROMSELECTION", kCreation | eCommandFlagHost1),
     eParameterSelectionSetName, &CreateLabelFromSelection},
    {Row(L"CCommandBSystemLabelDelete", L"BSYSTEMLABELDELETE", eCommandFlagTransaction), eParameterObjectIdArray,
     &DeleteLabels},
    {Row(L"CCommandBSystemLabelDolly", L"BSYSTEMLABELDOLLY", eCommandFlagNoUndo), eParameterObjectIdArray,
     &DollyToLabels},
    {Row(L"CCommandBSystemLabelGetAllIds", L"BSYSTEMLABELGETALLIDS", kQuery), eParameterAllowDeleted, &GetAllIds},
    {Row(L"CCommandBSystemLabelGetAllNames", L"BSYSTEMLABELGETALLNAMES", kQuery),
     eParameterObjectIdArray | eParameterAllowDeleted, &GetAllNames},
    {Row(L"CCommandBSystemLabelGetDictionaryId", L"BSYSTEMLABELGETDICTIONARYID", kQuery), eParameterNone,
     &GetDictionaryId},
    {Row(L"CCommandBSystemLabelGetIdFromGuid", L"BSYSTEMLABELGETIDFROMGUID", kQuery),
     eParameterGuid | eParameterAllowDeleted, &GetIdFromGuid},
    {Row(L"CCommandBSystemLabelGetIdFromHandle", L"BSYSTEMLABELGETIDFROMHANDLE", kQuery),
     eParameterHandle | eParameterAllowDeleted, &GetIdFromHandle},
    {Row(L"CCommandBSystemLabelGetIdFromName", L"BSYSTEMLABELGETIDFROMNAME", kQuery),
     eParameterName | eParameterAllowDeleted, &GetIdFromName},
    {Row(L"CCommandBSystemLabelGetSelectedIds", L"BSYSTEMLABELGETSELECTEDIDS", eCommandFlagResult),
     eParameterSelectionSetName | eParameterAllowDeleted, &GetSelectedIds},
    {Row(L"CCommandBSystemLabelToJson", L"BSYSTEMLABELTOJSON", kQuery),
     eParameterObjectIdArray | eParameterAllowDeleted, &ToJson},
    {Row(L"CCommandBSystemLabelZoom", L"BSYSTEMLABELZOOM", eCommandFlagNoUndo), eParameterObjectIdArray, &ZoomToLabels},
};
static_assert(std::size(kCommands) == eLabelCommandCount);

} // namespace

const LabelCommandRow& LabelCommand(ELabelCommand eCommand)
{
    return kCommands[eCommand];
}

CLabelCommand::CLabelCommand(const LabelCommandRow& row) : CCommand(row.command, kChecks), m_row(row) {}

void CLabelCommand::Work(CCommandCall& call)
{
    m_row.work(call, ReadLabelParameters(call, m_row.uiParameters));
}
