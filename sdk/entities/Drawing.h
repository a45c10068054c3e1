// Steps that the drawing of several kinds of entities shares.
#pragma once

#include <vector>

#include "DbObjectId.h"
#include "Gi/GiPolyline.h"
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

using BulgeVertex = OdGiPolyline::Vertex;

/// Draws a flat polyline; its vertices are in the coordinates of the frame's plane.
void drawBulgePolyline(OdGiWorldDraw& worldDraw, std::vector<BulgeVertex> vertices, bool closed,
                       const ocs::Frame& frame, double elevation, bool plinegen = false);

/// Draws the entities of a block definition with the transforms in force. Definitions that are being drawn already end
/// the recursion, and so do references nested deeper than kDeepestNesting. Attribute definitions are left out
/// unless they are constant.
void drawBlock(OdGiWorldDraw& worldDraw, OdDbObjectId blockId);

constexpr int kDeepestNesting = 100;

} // namespace drawing
