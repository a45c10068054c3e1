// The commands UNDO and REDO.
#include "commands/CommandTable.h"

namespace hostcommands
{

static void step(CommandRun& run, const OdChar* command, bool isThere, void (OdDbDatabase::*go)())
{
    refuseInTransaction(run, command);
    if (isThere)
        (run.database.*go)();
    run.results.add(L"DONE", isThere);
}

void undo(CommandRun& run)
{
    step(run, L"UNDO", run.database.hasUndo(), &OdDbDatabase::undo);
}

void redo(CommandRun& run)
{
    step(run, L"REDO", run.database.hasRedo(), &OdDbDatabase::redo);
}

} // namespace hostcommands
