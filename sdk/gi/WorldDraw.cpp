// Implements nested drawing and the reduction of shapes to simpler ones.
#include "gi/WorldDraw.h"

#include <cmath>

#include "Gi/GiTextStyle.h"
#include "gi/TextPlane.h"
#include "gi/fonts/Shaper.h"

namespace gi
{

namespace
{

constexpr double kFullTurn = 6.28318530717958647692;

} // namespace

Geometry::Geometry(WorldDraw& worldDraw) : m_worldDraw(worldDraw), m_transforms(1, OdGeMatrix3d::kIdentity) {}

void Geometry::pushModelTransform(const OdGeMatrix3d& xform)
{
    m_transforms.push_back(m_transforms.back() * xform);
}

void Geometry::popModelTransform()
{
    if (m_transforms.size() > 1)
        m_transforms.pop_back();
}

void Geometry::circle(const OdGePoint3d& center, double radius, const OdGeVector3d& normal)
{
    circularArc(center, radius, normal, normal.perpVector().normal(), kFullTurn, kOdGiArcSimple);
}

void Geometry::circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                           const OdGeVector3d& startVector, double sweepAngle, OdGiArcType)
{
    const OdGeVector3d major = startVector * radius;
    ellipArc(center, major, normal.normal().crossProduct(startVector) * radius, 0.0, sweepAngle);
}

void Geometry::polygon(OdInt32 numPoints, const OdGePoint3d* points)
{
    polyline(numPoints, points);
    if (numPoints > 2)
    {
        const OdGePoint3d closing[2] = {points[numPoints - 1], points[0]};
        polyline(2, closing);
    }
}

void Geometry::text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                    const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle)
{
    const OdGiShapedText shaped = odgiShapeText(textStyle ? *textStyle : OdGiTextStyle(), message, length, raw);
    if (!shaped.ink.isValidExtents())
        return;
    const TextPlane plane(position, normal, direction, shaped.fonts.front().slant);
    const OdGePoint2d& low = shaped.ink.minPoint();
    const OdGePoint2d& high = shaped.ink.maxPoint();
    const OdGePoint3d corners[4] = {plane.at(low.x, low.y), plane.at(high.x, low.y), plane.at(high.x, high.y),
                                    plane.at(low.x, high.y)};
    polygon(4, corners);
}

void Geometry::text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                    double height, double width, double oblique, const OdString& message)
{
    OdGiTextStyle style;
    style.setTextSize(height);
    style.setXScale(width);
    style.setObliquingAngle(oblique);
    text(position, normal, direction, message.c_str(), message.getLength(), true, &style);
}

void Geometry::xline(const OdGePoint3d&, const OdGePoint3d&) {}

void Geometry::ray(const OdGePoint3d&, const OdGePoint3d&) {}

void Geometry::draw(const OdGiDrawable* drawable)
{
    const std::size_t depth = m_transforms.size();
    Traits& traits = m_worldDraw.traits();
    const TraitValues outer = traits.values();
    traits.setValues(TraitValues());
    if (m_worldDraw.wantsTraits())
        setTraitsOf(*drawable, outer);
    ++m_nesting;
    drawable->worldDraw(&m_worldDraw);
    --m_nesting;
    traits.setValues(outer);
    m_transforms.resize(depth, OdGeMatrix3d::kIdentity);
}

void Geometry::setTraitsOf(const OdGiDrawable& drawable, const TraitValues& outer)
{
    Traits& traits = m_worldDraw.traits();
    drawable.setAttributes(&traits);
    if (m_nesting == 0)
        return;
    TraitValues inherited = traits.values();
    inheritFromBlock(inherited, outer);
    traits.setValues(inherited);
}

} // namespace gi
