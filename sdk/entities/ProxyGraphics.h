// The picture that an entity of an unknown class brings along, as binary groups (310) of its common part:
//
//   picture = int32 size of all, int32 number of pieces, piece...
//   piece   = int32 size with this head, int32 kind, data
//   kind 1  = extents: six doubles, least corner and greatest corner
//   kind 29 = coordinates that follow are mapped by a matrix: sixteen doubles, row by row
//   kind 31 = end of the innermost kind 29
//
// All numbers are little-endian.
#pragma once

#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"
#include "db/Groups.h"

namespace proxygraphics
{

/// The box that the picture says it fills; no box when there is no picture or it does not say.
OdGeExtents3d boxOf(const oddb::Groups& groups);

/// A copy of the groups in which the picture, if there is one, is mapped by the matrix.
oddb::Groups transformed(const oddb::Groups& groups, const OdGeMatrix3d& xform);

} // namespace proxygraphics
