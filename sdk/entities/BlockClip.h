// The outlines that block references are cut to.
#pragma once

#include <optional>

#include "DbBlockReference.h"
#include "Gi/GiClipBoundary.h"

namespace drawing
{

/// The outline, from the coordinates of the reference's block; none when all of the block is seen. A filter keeps it:
///
///   extension dictionary of the reference: "ACAD_FILTER" -> dictionary: "SPATIAL" -> SPATIAL_FILTER
///   filter = 70 count { 10 20 point } 210 normal 11 origin 71 shown 72 [40] 73 [41] planes in front and behind
///            40 x 12  from the world, as it was, to the block      40 x 12  from the world to the outline's plane
///
/// Planes in front and behind are not looked at.
std::optional<OdGiClipBoundary> clipOf(const OdDbBlockReference& reference);

} // namespace drawing
