// Steps that the drawing of several kinds of entities shares.
#pragma once

#include <span>

#include "DbObjectId.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Ocs.h"

namespace drawing
{

/// Sets the extrusion of what is drawn next; most entities have none.
inline void setThickness(OdGiWorldDraw& worldDraw, double thickness)
{
    if (thickness != 0.0)
        worldDraw.subEntityTraits().setThickness(thickness);
}

/// One vertex of a flat polyline in the coordinates of its plane; bulge and widths are those of the segment that
/// starts here.
struct BulgeVertex
{
    double x = 0.0;
    double y = 0.0;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
};

/// Draws straight segments as lines, bulges as arcs, and segments with a width as the outline of the filled strip. The
/// strips of neighbouring segments are not mitred.
void drawBulgePolyline(OdGiWorldDraw& worldDraw, std::span<const BulgeVertex> vertices, bool closed,
                       const ocs::Frame& frame, double elevation);

/// Draws the entities of a block definition with the transforms in force. Definitions that are being drawn already end
/// the recursion, and so do references nested deeper than kDeepestNesting. Attribute definitions are left out
/// unless they are constant.
void drawBlock(OdGiWorldDraw& worldDraw, OdDbObjectId blockId);

constexpr int kDeepestNesting = 100;

} // namespace drawing
