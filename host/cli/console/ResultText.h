// Results of commands as people read them.
#pragma once

#include <string>

#include "ResBuf.h"

namespace cli
{

// A line for each named value: objects by their handles, texts as they are, what has no short form as JSON. Empty for a
// chain without values. Of long lists the beginning is shown and the number of the rest.
std::string describeResult(const OdResBuf* chain);

} // namespace cli
