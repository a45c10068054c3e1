// Implements the box around curves: exact for lines, circles, ellipses and their arcs under any affine transform.
#include "gi/ExtentsCollector.h"

#include <array>
#include <cmath>

#include "gi/TextPlane.h"
#include "gi/fonts/Shaper.h"

namespace gi
{

namespace
{

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;

bool isFinite(const OdGePoint3d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

/// How far angle lies behind start, in [0, 2 pi).
double turnFrom(double start, double angle)
{
    const double turn = std::fmod(angle - start, kTwoPi);
    return turn < 0.0 ? turn + kTwoPi : turn;
}

/// A curve center + cos(t) major + sin(t) minor in world coordinates.
struct EllipticCurve
{
    OdGePoint3d center;
    OdGeVector3d major;
    OdGeVector3d minor;

    OdGePoint3d at(double t) const { return center + major * std::cos(t) + minor * std::sin(t); }
};

/// Where the curve may reach farthest along each axis: two opposite parameters per axis.
std::array<double, 6> extremeParameters(const EllipticCurve& curve)
{
    const double x = std::atan2(curve.minor.x, curve.major.x);
    const double y = std::atan2(curve.minor.y, curve.major.y);
    const double z = std::atan2(curve.minor.z, curve.major.z);
    return {x, x + kPi, y, y + kPi, z, z + kPi};
}

/// True when each of the two directions runs along one of the world's axes, so that a box in their plane is one there.
bool runAlongAxes(const OdGeVector3d& first, const OdGeVector3d& second)
{
    constexpr double kSmall = 1e-12;
    const auto isAlongAxis = [](const OdGeVector3d& v)
    {
        const double least = kSmall * v.length();
        return (std::fabs(v.x) > least) + (std::fabs(v.y) > least) + (std::fabs(v.z) > least) <= 1;
    };
    return isAlongAxis(first) && isAlongAxis(second);
}

/// The box around the part of space that a clip leaves: endless along an axis that its plane stands upright on.
OdGeExtents3d roomOf(const OdGiClipBoundary& boundary, const OdGeMatrix3d& toWorld)
{
    constexpr double kFar = 1e15;
    OdGeExtents2d outline;
    outline.addPoints(boundary.m_Points);
    OdGeMatrix3d fromClipSpace = boundary.m_xToClipSpace;
    if (!outline.isValidExtents() || fromClipSpace.isSingular())
        return OdGeExtents3d(OdGePoint3d(-kFar, -kFar, -kFar), OdGePoint3d(kFar, kFar, kFar));
    fromClipSpace = toWorld * fromClipSpace.invert();
    const OdGePoint2d& low = outline.minPoint();
    const OdGePoint2d& high = outline.maxPoint();
    std::vector<OdGePoint2d> corners(boundary.m_Points.begin(), boundary.m_Points.end());
    if (corners.size() < 3)
        corners = {low, {high.x, low.y}, high, {low.x, high.y}};
    const OdGeVector3d through = fromClipSpace * OdGeVector3d(0.0, 0.0, kFar);
    OdGeExtents3d room;
    for (const OdGePoint2d& corner : corners)
    {
        const OdGePoint3d world = fromClipSpace * OdGePoint3d(corner.x, corner.y, 0.0);
        room.addPoint(world + through);
        room.addPoint(world - through);
    }
    return room;
}

/// What two boxes have in common; no box when they have nothing.
OdGeExtents3d commonPart(const OdGeExtents3d& first, const OdGeExtents3d& second)
{
    if (!first.isValidExtents())
        return {};
    OdGePoint3d low;
    OdGePoint3d high;
    for (unsigned int i = 0; i < 3; ++i)
    {
        low[i] = std::max(first.minPoint()[i], second.minPoint()[i]);
        high[i] = std::min(first.maxPoint()[i], second.maxPoint()[i]);
        if (low[i] > high[i])
            return {};
    }
    return OdGeExtents3d(low, high);
}

} // namespace

void ExtentsGeometry::addPoint(const OdGePoint3d& world)
{
    if (isFinite(world))
        m_extents.addPoint(world);
}

void ExtentsGeometry::addExtruded(const OdGeExtents3d& box, const OdGeVector3d& normal)
{
    if (!box.isValidExtents())
        return;
    m_extents.addExt(box);
    const double thickness = worldDraw().traits().thickness();
    if (thickness == 0.0)
        return;
    const OdGeVector3d height = toWorld() * (normal * thickness);
    addPoint(box.minPoint() + height);
    addPoint(box.maxPoint() + height);
}

void ExtentsGeometry::circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                                  const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType)
{
    if (arcType == kOdGiArcSector)
        addPoint(toWorld() * center);
    const OdGeExtents3d before = m_extents;
    m_extents = OdGeExtents3d();
    Geometry::circularArc(center, radius, normal, startVector, sweepAngle, arcType);
    const OdGeExtents3d arc = m_extents;
    m_extents = before;
    addExtruded(arc, normal);
}

void ExtentsGeometry::ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                               double startAngle, double endAngle)
{
    const EllipticCurve curve{toWorld() * center, toWorld() * majorAxis, toWorld() * minorAxis};
    const double first = std::min(startAngle, endAngle);
    const double sweep = std::fabs(endAngle - startAngle);
    if (!std::isfinite(first) || !std::isfinite(sweep))
        return;
    addPoint(curve.at(startAngle));
    addPoint(curve.at(endAngle));
    for (const double parameter : extremeParameters(curve))
    {
        if (turnFrom(first, parameter) <= sweep)
            addPoint(curve.at(parameter));
    }
}

void ExtentsGeometry::polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal)
{
    if (!normal)
    {
        for (OdInt32 i = 0; i < numPoints; ++i)
            addPoint(toWorld() * points[i]);
        return;
    }
    OdGeExtents3d box;
    for (OdInt32 i = 0; i < numPoints; ++i)
    {
        const OdGePoint3d world = toWorld() * points[i];
        if (isFinite(world))
            box.addPoint(world);
    }
    addExtruded(box, *normal);
}

void ExtentsGeometry::polygon(OdInt32 numPoints, const OdGePoint3d* points)
{
    polyline(numPoints, points, m_plineNormal);
}

void ExtentsGeometry::pline(const OdGiPolyline& polyline)
{
    m_plineNormal = &polyline.normal;
    Geometry::pline(polyline);
    m_plineNormal = nullptr;
}

void ExtentsGeometry::pushClipBoundary(const OdGiClipBoundary& boundary)
{
    m_clips.push_back({m_extents, roomOf(boundary, toWorld())});
    m_extents = OdGeExtents3d();
}

void ExtentsGeometry::popClipBoundary()
{
    if (m_clips.empty())
        return;
    const OdGeExtents3d inside = m_extents;
    const Clip clip = m_clips.back();
    m_clips.pop_back();
    m_extents = clip.before;
    m_extents.addExt(commonPart(inside, clip.room));
}

void ExtentsGeometry::text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                           const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle)
{
    const OdGiTextStyle usual;
    const OdGiTextStyle& style = textStyle ? *textStyle : usual;
    const OdGiShapedText shaped = odgiShapeText(style, message, length, raw);
    if (!shaped.ink.isValidExtents())
        return;
    const auto addBox = [this](const TextPlane& plane, const OdGeExtents2d& box)
    {
        for (const double x : {box.minPoint().x, box.maxPoint().x})
        {
            for (const double y : {box.minPoint().y, box.maxPoint().y})
                addPoint(toWorld() * plane.at(x, y));
        }
    };
    const TextPlane plane(position, normal, direction, shaped.fonts.front().slant);
    if (runAlongAxes(toWorld() * plane.along(), toWorld() * plane.up()))
        return addBox(plane, shaped.ink);
    for (const OdGiTextBar& bar : shaped.bars)
        addBox(plane, bar);
    std::vector<std::shared_ptr<const fonts::Typeface>> typefaces;
    for (const OdGiGlyphFont& font : shaped.fonts)
        typefaces.push_back(fonts::typefaceOf(font));
    const double height = style.textSize();
    for (const OdGiGlyph& glyph : shaped.glyphs)
    {
        const double width = height * shaped.fonts[glyph.font].widthPart;
        for (const OdGePoint2d& corner : typefaces[glyph.font]->hullOf(glyph.index))
            addPoint(toWorld() * plane.at(glyph.x + corner.x * width, glyph.y + corner.y * height));
    }
}

} // namespace gi
