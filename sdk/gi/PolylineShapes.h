// The shape of flat polylines: lines, arcs, and the strips that segments with a width fill.
#pragma once

#include "Gi/GiPolyline.h"
#include "gi/WorldDraw.h"

namespace gi
{

/// Draws segments without width as lines and arcs, those with a width as filled polygons. Straight strips of equal
/// width are mitred where they meet; other corners are filled by a triangle. For extents, wide arcs come as the exact
/// arcs at their edges.
void drawPolyline(Geometry& geometry, WorldDraw& worldDraw, const OdGiPolyline& polyline);

} // namespace gi
