// The host's commands, one row for each, and a line of help for every command there is.
#include "commands/CommandTable.h"

namespace hostcommands
{

namespace
{

#define HOST_GROUP L"Quend.Zol.Cad.Host"
#define SELECTION_SET_GROUP L"Quend.Zol.Cad.SelectionSet"
#define SELECTION_GROUP L"Quend.Zol.Cad.Selection"
#define VIEWER_GROUP L"Quend.Zol.Cad.Viewer"
#define TEXT_PARSER_GROUP L"Quend.Zol.Cad.TextParser"

// clang-format off
const CommandRow kCommands[] = {
    {HOST_GROUP, L"SAVE", kLeavesNoUndoRecord | kGivesResult, save,
     "Save the drawing: FILE, VERSION (R2000 to R2018), FORMAT (ascii, binary)"},
    {HOST_GROUP, L"UNDO", kLeavesNoUndoRecord | kGivesResult, undo,
     "Take back what the last command changed"},
    {HOST_GROUP, L"REDO", kLeavesNoUndoRecord | kGivesResult, redo,
     "Do again what UNDO has taken back"},
    {HOST_GROUP, L"ENTITIES", kLeavesNoUndoRecord | kGivesResult, findEntities,
     "Find entities of the current layout by TYPE, LAYER and TEXT"},
    {HOST_GROUP, L"SELECT", kGivesResult, selectObjects,
     "Select objects by pointing and in other ways, until an empty answer"},
    {HOST_GROUP, L"ERASE", kInTransaction, erase,
     "Erase the objects of OBJECTIDARRAY"},
    {HOST_GROUP, L"COPY", kGivesResult | kInTransaction, copy,
     "Copy the objects of OBJECTIDARRAY and move the copies by VECTOR"},
    {HOST_GROUP, L"WBLOCK", kLeavesNoUndoRecord, writeBlock,
     "Write the objects of OBJECTIDARRAY into a new drawing, FILE"},
    {HOST_GROUP, L"VIEWERGETVIEW", kLeavesNoUndoRecord | kGivesResult, getView,
     "Give the EXTENTS of what the active view of the current layout shows"},
    {SELECTION_SET_GROUP, L"SELECTIONSETGET", kGivesResult, getSelectionSet,
     "Give the selection set that is stored under SELECTIONSETNAME"},
    {SELECTION_SET_GROUP, L"SELECTIONSETUPDATE", kGivesResult, updateSelectionSet,
     "Store SELECTIONSET under SELECTIONSETNAME"},
    {SELECTION_SET_GROUP, L"SELECTIONSETCLEAR", kNoFlags, clearSelectionSet,
     "Empty the selection set that is stored under SELECTIONSETNAME"},
    {SELECTION_SET_GROUP, L"SELECTIONSETMERGE", kGivesResult, mergeSelectionSets,
     "Add what OPTIONS and FILTEROBJECT admit of SOURCE to DESTINATION, or take it out"},
    {SELECTION_GROUP, L"SELECTIONSELECTVISUAL", kGivesResult, selectVisual,
     "Select by a shape: SELECTFUNCTION 0 point, 1 box, 2 window, 3 crossing, 4 fence, 5 and 6 polygons"},
    {SELECTION_GROUP, L"SELECTIONSELECTALLVISIBLEENTITIES", kGivesResult, selectAllVisibleEntities,
     "Select what the current layout shows, and store it under SELECTIONSETNAME"},
    {SELECTION_GROUP, L"SELECTIONSELECTLASTVISIBLEENTITY", kGivesResult, selectLastVisibleEntity,
     "Select what was drawn last of what the current layout shows"},
    {SELECTION_GROUP, L"SELECTIONSELECTPREVIOUS", kGivesResult, selectPrevious,
     "Select what was selected before"},
    {SELECTION_GROUP, L"SELECTIONSELECTBYHANDLE", kGivesResult, selectByHandle,
     "Select objects whose handles the user types"},
    {SELECTION_GROUP, L"SELECTIONSELECTBYJSON", kGivesResult, selectByJson,
     "Select by types, layers, texts, blocks and a window, which the user gives as JSON"},
    {TEXT_PARSER_GROUP, L"TEXTPARSERSORT", kGivesResult, sortTexts,
     "Read the texts of OBJECTIDARRAY in reading order, with marks for those in frames"},
    {VIEWER_GROUP, L"VIEWERGETEXTENTS", kLeavesNoUndoRecord | kGivesResult, getExtents,
     "Give the EXTENTS around what OBJECTIDARRAY shows"},
    {VIEWER_GROUP, L"ZOOMEXTENTS", kLeavesNoUndoRecord, zoomExtents,
     "Show EXTENTS in the active view of the current layout"},
    {VIEWER_GROUP, L"DOLLY", kLeavesNoUndoRecord, dolly,
     "Move the centre of the active view of the current layout to POINT"},
};

struct HelpRow
{
    const OdChar* name;
    const char* help;
};

// The plug-in's commands, which carry no help of their own.
const HelpRow kPluginHelp[] = {
    {L"BSYSTEMLABELCREATE", "Create a label over the entities of OBJECTIDARRAY, named by their texts"},
    {L"BSYSTEMLABELCREATEFROMSELECTION", "Create a label over the selection set SELECTIONSETNAME"},
    {L"BSYSTEMLABELDELETE", "Delete labels: those of OBJECTIDARRAY, or as the user chooses"},
    {L"BSYSTEMLABELDOLLY", "Pan the view to labels: those of OBJECTIDARRAY, or as the user chooses"},
    {L"BSYSTEMLABELGETALLIDS", "List all labels"},
    {L"BSYSTEMLABELGETALLNAMES", "List the names of labels as JSON"},
    {L"BSYSTEMLABELGETDICTIONARYID", "Give the dictionary that holds the labels, made when missing"},
    {L"BSYSTEMLABELGETIDFROMGUID", "Find a label by GUID"},
    {L"BSYSTEMLABELGETIDFROMHANDLE", "Find a label by HANDLE"},
    {L"BSYSTEMLABELGETIDFROMNAME", "Find a label by NAME"},
    {L"BSYSTEMLABELGETSELECTEDIDS", "List the labels in the selection set SELECTIONSETNAME"},
    {L"BSYSTEMLABELTOJSON", "Give labels as JSON: those of OBJECTIDARRAY, or as the user chooses"},
    {L"CREATEANNOTATIONFROMJSON", "Draw the stamps that JSON describes"},
    {L"MODIFYANNOTATIONFROMJSON", "Draw stamps anew, as JSON describes them"},
    {L"DELETEANNOTATIONFROMJSON", "Delete the stamps whose handles are in JSON"},
    {L"BSYSTEMLABELZOOM", "Zoom the view to labels: those of OBJECTIDARRAY, or as the user chooses"},
    {L"DEFINEDRAWINGBORDER", "Set the corners of the drawing border from JSON, or by two points"},
    {L"DEFINEDRAWINGBORDERCOLUMNLINES", "Set columns and lines of the drawing border from JSON"},
    {L"DRAWINGBORDERGETALLIDS", "List all drawing borders"},
    {L"DRAWINGBORDERGETDICTIONARYID", "Give the dictionary that holds the drawing borders, made when missing"},
    {L"GETDRAWINGBORDER", "Give the drawing border as JSON"},
    {L"TRANSACTIONSTART", "Open a transaction, inside those that are open"},
    {L"TRANSACTIONEND", "End the innermost transaction and keep its changes"},
    {L"TRANSACTIONABORT", "End the innermost transaction and take its changes back"},
    {L"REGISTERCUSTOMAPPLICATION", "Register NAME as an application whose extended data entities may carry"},
};
// clang-format on

} // namespace

std::span<const CommandRow> commandTable()
{
    return kCommands;
}

const char* helpOf(const OdString& commandName)
{
    for (const CommandRow& row : kCommands)
        if (commandName.iCompare(row.name) == 0)
            return row.help;
    for (const HelpRow& row : kPluginHelp)
        if (commandName.iCompare(row.name) == 0)
            return row.help;
    return nullptr;
}

} // namespace hostcommands
