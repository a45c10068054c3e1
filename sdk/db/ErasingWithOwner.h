// What is owned goes with its owner and comes back with it: entities with their block, vertices with their polyline.
#pragma once

#include <span>

#include "OdResult.h"

class OdDbStub;

namespace oddb
{

/// Erases the objects, or brings those back that were erased so; what was erased by itself stays erased. Returns
/// eWasOpenForWrite, with nothing changed, when one of them is open for write, and what a class says that refuses.
OdResult eraseWithOwner(std::span<OdDbStub* const> owned, bool erasing);

} // namespace oddb
