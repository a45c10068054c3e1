// zolcad commands: every command of the plug-in and the host, by group.
#include <algorithm>
#include <cstdio>
#include <string>

#include "cli/CommandLine.h"
#include "cli/CommandList.h"
#include "cli/Doors.h"
#include "commands/HostCommand.h"

namespace cli
{

namespace
{

std::size_t longestName(const std::vector<OdEdCommandPtr>& commands)
{
    std::size_t longest = 0;
    for (const OdEdCommandPtr& command : commands)
        longest = std::max(longest, static_cast<std::size_t>(command->globalName().getLength()));
    return longest;
}

void printCommand(const OdEdCommand& command, std::size_t nameWidth)
{
    const char* const help = hostcommands::helpOf(command.globalName());
    std::printf("  %-*s  0x%08X  %s\n", static_cast<int>(nameWidth), odStringToUtf8(command.globalName()).c_str(),
                command.flags(), help == nullptr ? "" : help);
}

} // namespace

int listCommands()
{
    const session::HostServices services(session::Plugin::kLoaded);
    const std::vector<OdEdCommandPtr> commands = allCommands();
    const std::size_t nameWidth = longestName(commands);
    OdString group;
    for (const OdEdCommandPtr& command : commands)
    {
        if (command->groupName() != group)
        {
            std::printf("%s%s\n", group.isEmpty() ? "" : "\n", odStringToUtf8(command->groupName()).c_str());
            group = command->groupName();
        }
        printCommand(*command, nameWidth);
    }
    std::printf(
        "\nFlags: 0x20000000 runs in a transaction, 0x10000000 gives a result, 0x01000000 leaves no undo record,\n"
        "0x04000000 and 0x08000000 are for the host alone.\n");
    return kSuccess;
}

} // namespace cli
