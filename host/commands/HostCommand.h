// A command that the host brings. All share one frame: it finds the drawing, the parameters and the place for results,
// opens a transaction for those that change the drawing, and hands what the command found to its caller.
#pragma once

#include "DbDatabase.h"
#include "DbUserIO.h"
#include "commands/Parameters.h"
#include "commands/Results.h"

namespace hostcommands
{

// Bits of a command's flags that callers look at.
enum CommandFlags : OdUInt32
{
    kNoFlags = 0,
    kLeavesNoUndoRecord = 0x01000000,
    kGivesResult = 0x10000000,
    kInTransaction = 0x20000000
};

// What a command has before it while it runs.
struct CommandRun
{
    OdDbDatabase& database;
    Parameters parameters;
    OdDbUserIO* user; // whom to ask; null when there is nobody
    Results results;

    // Throws OdError(eNullPtr) when there is nobody to ask.
    OdDbUserIO& requireUser() const;
};

struct CommandRow
{
    const OdChar* group;
    const OdChar* name;
    OdUInt32 flags;
    void (*run)(CommandRun& run); // throws OdError; what it changed is then taken back
    const char* help;             // one line
};

// Puts the host's commands on the command stack, and takes them off again. The SDK must be initialised.
void registerHostCommands();
void unregisterHostCommands();

// The line of help for a command of the host or of the plug-in; null for one that is not known.
const char* helpOf(const OdString& commandName);

} // namespace hostcommands
