// Rectangles, stretched polygons and ellipses.
//
//      rectangle         polygon of n corners                     rounded corner
//                                                                        |
//   3-------------2    Its inscribed circle passes through the           | b   T = tangent length
//   |      0      |    corners of a square of the box's height;          |
//   0-------------1    then x is stretched to the box's width.           + . . . end of the arc
//                      +4: a diamond whose edges touch the             .'|
//                      corners of the box.                     ------+'--+  corner, angle t between the edges
//                                                                 a  <-T->
#include "annotations/AnnotationOutline.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "Ge/GeVector2d.h"
#include "OdaDefs.h"

namespace Annotation
{

namespace
{

constexpr double kLeastRadius = 1e-8;
constexpr double kLeastLength = 1e-12; // in parts of the box, below which two vertices are one
constexpr double kSqrt2 = std::numbers::sqrt2;
constexpr int kEllipseVertices = 50;

bool IsRounded(const AnnotationProperties& properties)
{
    return properties.cornerRadius > kLeastRadius;
}

// ---- Corners
// ---------------------------------------------------------------------------------------------------------

OdGePoint2dArray RectangleCorners(double fWidth, double fHeight)
{
    OdGePoint2dArray corners;
    corners.append(OdGePoint2d(-fWidth / 2.0, -fHeight / 2.0));
    corners.append(OdGePoint2d(fWidth / 2.0, -fHeight / 2.0));
    corners.append(OdGePoint2d(fWidth / 2.0, fHeight / 2.0));
    corners.append(OdGePoint2d(-fWidth / 2.0, fHeight / 2.0));
    return corners;
}

OdGePoint2dArray EllipsePoints(double fWidth, double fHeight)
{
    OdGePoint2dArray points;
    for (int i = 0; i < kEllipseVertices; ++i)
    {
        const double fAngle = Oda2PI / kEllipseVertices * i;
        points.append(OdGePoint2d(fWidth / kSqrt2 * std::cos(fAngle), fHeight / kSqrt2 * std::sin(fAngle)));
    }
    return points;
}

OdGePoint2dArray PolygonPoints(OdInt32 iShape, double fWidth, double fHeight)
{
    const OdInt32 iCorners = PolygonCorners(iShape);
    const double fRadius = fHeight / kSqrt2 / std::cos(OdaPI / iCorners);
    const double fStep = Oda2PI / iShape;
    const double fFirst = iShape < 0 ? fStep / 2.0 : 0.0;
    OdGePoint2dArray points;
    for (OdInt32 i = 0; i < iCorners; ++i)
    {
        const double fAngle = fFirst + i * fStep;
        points.append(OdGePoint2d(-fRadius * std::sin(fAngle) * (fWidth / fHeight), fRadius * std::cos(fAngle)));
    }
    return points;
}

OdGePoint2dArray Corners(const AnnotationProperties& properties)
{
    if (PolygonCorners(properties.borderShape) > 0)
        return PolygonPoints(properties.borderShape, properties.width, properties.height);
    return RectangleCorners(properties.width, properties.height);
}

// ---- Rounding
// --------------------------------------------------------------------------------------------------------

/// The arc that takes the place of a corner.
struct CornerArc
{
    OdGePoint2d start;
    OdGePoint2d end;
    double fBulge;
};

CornerArc RoundCorner(const OdGePoint2d& before, const OdGePoint2d& corner, const OdGePoint2d& after, double fRadius)
{
    const OdGeVector2d in = corner - before;
    const OdGeVector2d out = after - corner;
    const double fTurn = std::atan2(in.crossProduct(out), in.dotProduct(out)); // pi less the angle between the edges
    // The arc turns as much as the corner, and its radius times the tangent of half of that reaches from the corner to
    // where it touches the edges.
    const double fWanted = fRadius * std::tan(std::fabs(fTurn) / 2.0);
    const double fTangent = std::min({fWanted, in.length() / 2.0, out.length() / 2.0});
    return {corner - in * (fTangent / in.length()), corner + out * (fTangent / out.length()), std::tan(fTurn / 4.0)};
}

/// Adds a vertex; one that lies where the last straight segment starts takes its place.
void AddVertex(Outline& outline, const OdGePoint2d& point, double fBulge, double fTolerance)
{
    if (!outline.points.isEmpty() && outline.bulges.last() == 0.0 &&
        outline.points.last().distanceTo(point) <= fTolerance)
        outline.bulges.last() = fBulge;
    else
    {
        outline.points.append(point);
        outline.bulges.append(fBulge);
    }
}

Outline RoundCorners(const OdGePoint2dArray& corners, double fRadius, double fTolerance)
{
    Outline outline;
    const auto uiCount = corners.size();
    for (unsigned i = 0; i < uiCount; ++i)
    {
        const CornerArc arc =
            RoundCorner(corners[(i + uiCount - 1) % uiCount], corners[i], corners[(i + 1) % uiCount], fRadius);
        AddVertex(outline, arc.start, arc.fBulge, fTolerance);
        AddVertex(outline, arc.end, 0.0, fTolerance);
    }
    // The last arc may end where the first one starts.
    if (outline.bulges.last() == 0.0 && outline.points.last().distanceTo(outline.points.first()) <= fTolerance)
    {
        outline.points.removeLast();
        outline.bulges.removeLast();
    }
    return outline;
}

Outline WithoutArcs(const OdGePoint2dArray& points)
{
    Outline outline;
    outline.points = points;
    outline.bulges.resize(points.size(), 0.0);
    return outline;
}

// ---- Flattening
// ------------------------------------------------------------------------------------------------------

void AppendArc(OdGePoint2dArray& points, const OdGePoint2d& start, const OdGePoint2d& end, double fBulge)
{
    constexpr double kStep = 0.0894; // a chord over this angle strays by a thousandth of the radius
    const double fAngle = 4.0 * std::atan(fBulge);
    const OdGeVector2d chord = end - start;
    const OdGePoint2d middle = start + chord * 0.5;
    // From the middle of the chord to the centre, to the left of the chord for an arc that turns left.
    const OdGePoint2d centre = middle + chord.perpVector() * ((1.0 - fBulge * fBulge) / (4.0 * fBulge));
    const OdGeVector2d ray = start - centre;
    const int iSteps = static_cast<int>(std::ceil(std::fabs(fAngle) / kStep));
    for (int i = 1; i < iSteps; ++i)
        points.append(centre + OdGeVector2d(ray).rotateBy(fAngle * i / iSteps));
}

} // namespace

OdInt32 PolygonCorners(OdInt32 iBorderShape)
{
    constexpr OdInt32 kLeastCorners = 3;
    if (iBorderShape == eBorderRectangle || iBorderShape == eBorderEllipse)
        return 0;
    const auto iCorners = std::llabs(static_cast<long long>(iBorderShape));
    return iCorners < kLeastCorners ? 0 : static_cast<OdInt32>(std::min<long long>(iCorners, INT32_MAX));
}

Outline MakeOutline(const AnnotationProperties& properties)
{
    if (properties.borderShape == eBorderEllipse)
        return WithoutArcs(EllipsePoints(properties.width, properties.height));
    const OdGePoint2dArray corners = Corners(properties);
    if (!IsRounded(properties))
        return WithoutArcs(corners);
    return RoundCorners(corners, properties.cornerRadius, kLeastLength * (properties.width + properties.height));
}

bool IsPlainRectangle(const AnnotationProperties& properties)
{
    return properties.borderShape != eBorderEllipse && PolygonCorners(properties.borderShape) == 0 &&
           !IsRounded(properties);
}

OdGePoint2dArray FlattenOutline(const Outline& outline)
{
    OdGePoint2dArray points;
    for (unsigned i = 0; i < outline.points.size(); ++i)
    {
        points.append(outline.points[i]);
        if (outline.bulges[i] != 0.0)
            AppendArc(points, outline.points[i], outline.points[(i + 1) % outline.points.size()], outline.bulges[i]);
    }
    return points;
}

} // namespace Annotation
