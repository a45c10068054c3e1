// The command line of `zolcad`: its subcommands, and what they return to whoever started the program.
#pragma once

#include <stdexcept>

namespace cli
{

enum ExitCode
{
    kSuccess = 0,
    kFailure = 1, // a request was answered with an error, or something could not be done
    kWrongUsage = 2,
    kUnreadableDrawing = 3
};

// Arguments that cannot be used. what() says why.
class WrongUsage : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

int runCommandLine(int argc, char** argv);

} // namespace cli
