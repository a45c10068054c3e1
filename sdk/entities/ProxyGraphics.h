// The picture that an entity of an unknown class brings along, as binary groups (310) of its common part:
//
//   picture = int32 size of all, int32 number of pieces, piece...
//   piece   = int32 size with this head, int32 kind, data
//   kind 1  = extents: six doubles, least corner and greatest corner
//
// All numbers are little-endian.
#pragma once

#include "Ge/GeExtents3d.h"
#include "db/Groups.h"

namespace proxygraphics
{

/// The box that the picture says it fills; no box when there is no picture or it does not say.
OdGeExtents3d boxOf(const oddb::Groups& groups);

} // namespace proxygraphics
