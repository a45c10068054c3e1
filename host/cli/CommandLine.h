// The command line of `zolcad`: its subcommands, and what they return to whoever started the program.
#pragma once

namespace cli
{

enum ExitCode
{
    kSuccess = 0,
    kFailure = 1, // a request was answered with an error, or something could not be done
    kWrongUsage = 2,
    kUnreadableDrawing = 3
};

int runCommandLine(int argc, char** argv);

} // namespace cli
