// The commands on labels: one row of a table for each, with the function that does the work.
#pragma once

#include "framework/Command.h"
#include "labels/LabelParameters.h"

/** A label command: its row in the frame's sense, the parameters it knows, and its work, which leaves its result in the
    call. */
struct LabelCommandRow
{
    CommandRow command;
    unsigned uiParameters;
    void (*work)(CCommandCall& call, const LabelParameters& parameters);
};

/** The places of the commands in the table. */
enum ELabelCommand
{
    eLabelCreate,
    eLabelCreateFromSelection,
    eLabelDelete,
    eLabelDolly,
    eLabelGetAllIds,
    eLabelGetAllNames,
    eLabelGetDictionaryId,
    eLabelGetIdFromGuid,
    eLabelGetIdFromHandle,
    eLabelGetIdFromName,
    eLabelGetSelectedIds,
    eLabelToJson,
    eLabelZoom,
    eLabelCommandCount
};

/** The row of a command. */
const LabelCommandRow& LabelCommand(ELabelCommand eCommand);

/** A CLabelCommand is a command of the group of labels. All share one frame: the context must have a function IO
   ("pIO") that is a CFunctionIO ("pFunctionIO") and a database ("pDb"). */
class CLabelCommand : public CCommand
{
public:
    explicit CLabelCommand(const LabelCommandRow& row);

protected:
    void Work(CCommandCall& call) override;

private:
    const LabelCommandRow& m_row;
};

/** The class of one command. */
template<ELabelCommand Command>
class CLabelCommandOf : public CLabelCommand
{
public:
    CLabelCommandOf() : CLabelCommand(LabelCommand(Command)) {}
};

using CCommandBSystemLabelCreate = CLabelCommandOf<eLabelCreate>;
using CCommandBSystemLabelCreateFromSelection = CLabelCommandOf<eLabelCreateFromSelection>;
using CCommandBSystemLabelDelete = CLabelCommandOf<eLabelDelete>;
using CCommandBSystemLabelDolly = CLabelCommandOf<eLabelDolly>;
using CCommandBSystemLabelGetAllIds = CLabelCommandOf<eLabelGetAllIds>;
using CCommandBSystemLabelGetAllNames = CLabelCommandOf<eLabelGetAllNames>;
using CCommandBSystemLabelGetDictionaryId = CLabelCommandOf<eLabelGetDictionaryId>;
using CCommandBSystemLabelGetIdFromGuid = CLabelCommandOf<eLabelGetIdFromGuid>;
using CCommandBSystemLabelGetIdFromHandle = CLabelCommandOf<eLabelGetIdFromHandle>;
using CCommandBSystemLabelGetIdFromName = CLabelCommandOf<eLabelGetIdFromName>;
using CCommandBSystemLabelGetSelectedIds = CLabelCommandOf<eLabelGetSelectedIds>;
using CCommandBSystemLabelToJson = CLabelCommandOf<eLabelToJson>;
using CCommandBSystemLabelZoom = CLabelCommandOf<eLabelZoom>;
