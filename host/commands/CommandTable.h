// The host's commands, one row for each.
#pragma once

#include <span>

#include "commands/HostCommand.h"

namespace hostcommands
{

std::span<const CommandRow> commandTable();

// What the rows run. Each is described in docs/commands.md.
// Throws OdError(eInvalidContext), which names the command, while a transaction is open.
void refuseInTransaction(const CommandRun& run, const OdChar* command);

void save(CommandRun& run);
void undo(CommandRun& run);
void redo(CommandRun& run);
void findEntities(CommandRun& run);
void selectObjects(CommandRun& run);
void erase(CommandRun& run);
void copy(CommandRun& run);
void writeBlock(CommandRun& run);
void getSelectionSet(CommandRun& run);
void updateSelectionSet(CommandRun& run);
void clearSelectionSet(CommandRun& run);
void mergeSelectionSets(CommandRun& run);
void selectVisual(CommandRun& run);
void selectAllVisibleEntities(CommandRun& run);
void selectLastVisibleEntity(CommandRun& run);
void selectPrevious(CommandRun& run);
void selectByHandle(CommandRun& run);
void selectByJson(CommandRun& run);
void sortTexts(CommandRun& run);
void getExtents(CommandRun& run);
void zoomExtents(CommandRun& run);
void dolly(CommandRun& run);
void getView(CommandRun& run);

} // namespace hostcommands
