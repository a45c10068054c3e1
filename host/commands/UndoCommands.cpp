// The commands UNDO and REDO.
#include "commands/CommandTable.h"

namespace hostcommands
{

void undo(CommandRun& run)
{
    refuseInTransaction(run, L"UNDO");
    const bool isThere = run.database.hasUndo();
    if (isThere)
        run.database.undo();
    run.results.add(L"DONE", isThere);
}

void redo(CommandRun& run)
{
    refuseInTransaction(run, L"REDO");
    const bool isThere = run.database.hasRedo();
    if (isThere)
        run.database.redo();
    run.results.add(L"DONE", isThere);
}

} // namespace hostcommands
