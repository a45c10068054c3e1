// Draws the picture that an entity of an unknown class brings along: what its own program drew. ProxyGraphics.h says
// how it is kept. Points are three doubles; texts end with a null character and are filled up to four bytes.
//
//    2 circle: centre radius normal              14 colour: index      22 colour: as OdCmEntityColor keeps it
//    4 arc: centre radius normal start sweep     20 fill: int32        12, 13 line without end, ray: two points
//    6 polyline, 7 polygon: int32 count, points  23 line weight: int32
//   32 polyline: the same and its normal         24 linetype scale
//   10, 36 text: start normal direction height width oblique, 8-bit or 16-bit characters
//   11, 38 the same in a font: start normal direction, characters, int32 their number, int32 raw, height width oblique
//          tracking, then int32: backward, upside down, vertical, underlined, overlined, bold, italic, character set,
//          pitch; then the names of the typeface, of its file and of the big font's file
//   29, 30 a matrix of 4 x 4 doubles for what follows, until 31
//
// Other kinds are passed over.
#pragma once

#include "Gi/GiWorldDraw.h"
#include "db/Groups.h"

namespace proxygraphics
{

/// Draws what can be read of the picture. Returns false when that is nothing.
bool draw(const oddb::Groups& groups, OdGiWorldDraw& worldDraw);

} // namespace proxygraphics
