// The commands that can be run.
#include "cli/CommandList.h"

#include "Ed/EdCommandStack.h"
#include "RxIterator.h"

namespace cli
{

std::vector<OdEdCommandPtr> allCommands()
{
    std::vector<OdEdCommandPtr> commands;
    for (OdRxIteratorPtr walk = odedRegCmds()->newIterator(); !walk->done(); walk->next())
        commands.push_back(OdEdCommand::cast(walk->object()));
    return commands;
}

} // namespace cli
