// The commands that can be run.
#pragma once

#include <vector>

#include "Ed/EdCommand.h"

namespace cli
{

// All of them, by group.
std::vector<OdEdCommandPtr> allCommands();

} // namespace cli
