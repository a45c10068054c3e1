// The outline of a stamp's box: the line that the border follows and the background fills.
#pragma once

#include "Ge/GeDoubleArray.h"
#include "Ge/GePoint2dArray.h"
#include "annotations/AnnotationProperties.h"

namespace Annotation
{

/** An Outline is a closed line around the origin: one point for each vertex, and beside it the bulge of the segment
    that starts there (the tangent of a quarter of the arc's angle, positive counter-clockwise, 0 for a straight one).
 */
struct Outline
{
    OdGePoint2dArray points;
    OdGeDoubleArray bulges;
};

/** The greatest number of corners that a shape may have. */
inline constexpr OdInt32 kMostCorners = 1024;

/** The number of corners of the polygon that a shape stands for; 0 for rectangle and ellipse. */
OdInt32 PolygonCorners(OdInt32 iBorderShape);

/** The outline of a record, whose width and height are above 0 and whose shape has at most kMostCorners. */
Outline MakeOutline(const AnnotationProperties& properties);

/** The rectangle without rounded corners. */
bool IsPlainRectangle(const AnnotationProperties& properties);

/** The points of the outline with each arc replaced by chords that stray from it by at most a thousandth of its radius.
 */
OdGePoint2dArray FlattenOutline(const Outline& outline);

} // namespace Annotation
