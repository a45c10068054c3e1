// How far that reaches what pictures show of a space.
#pragma once

#include "DbObjectId.h"
#include "Ge/GeExtents2d.h"

namespace render
{

/// The box around all that is seen of a model or a sheet from above; invalid when nothing is. What lies absurdly far
/// away does not count.
OdGeExtents2d boundsOf(const OdDbObjectId& blockId);

} // namespace render
