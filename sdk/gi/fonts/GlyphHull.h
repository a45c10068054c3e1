// The convex area around a glyph, from which the exact extents of turned and slanted texts follow.
#pragma once

#include <vector>

#include "Ge/GeExtents2d.h"

struct hb_font_t;

namespace fonts
{

/// The corners in counter-clockwise order, as parts of unitsPerHeight; empty when there is nothing to see.
std::vector<OdGePoint2d> hullOfOutline(hb_font_t* font, OdUInt32 glyph, double unitsPerHeight);
std::vector<OdGePoint2d> hullOfBox(const OdGeExtents2d& box);

} // namespace fonts
