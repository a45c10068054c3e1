// Outlines that cut off what is drawn.
#pragma once

#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint2d.h"

/** An outline in a plane, from which what is drawn is cut off on both sides of the plane. It is a plain value. */
struct OdGiClipBoundary
{
    OdGePoint2dArray m_Points;    ///< in clip space: two opposite corners of a rectangle, or the corners of a polygon
    OdGeMatrix3d m_xToClipSpace;  ///< from the coordinates in use to clip space, whose x and y axes lie in the plane
    bool m_bDrawBoundary = false; ///< the outline itself is to be seen
};
