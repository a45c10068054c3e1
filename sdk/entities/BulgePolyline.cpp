// Draws polylines of straight lines and arcs, with and without widths.
#include <algorithm>
#include <cmath>

#include "entities/Drawing.h"

namespace drawing
{

namespace
{

/// A segment with a bulge as an arc in the plane.
struct Arc
{
    OdGePoint3d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0; ///< negative when the arc runs clockwise
};

Arc arcOf(const BulgeVertex& from, const BulgeVertex& to, double elevation)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    // The centre lies on the chord's perpendicular bisector, this part of the chord's length to its left.
    const double offset = (1.0 - from.bulge * from.bulge) / (4.0 * from.bulge);
    Arc arc;
    arc.center = OdGePoint3d(from.x + dx * 0.5 - dy * offset, from.y + dy * 0.5 + dx * offset, elevation);
    arc.radius = std::hypot(dx, dy) * (1.0 + from.bulge * from.bulge) / (4.0 * std::fabs(from.bulge));
    arc.startAngle = std::atan2(from.y - arc.center.y, from.x - arc.center.x);
    arc.sweep = 4.0 * std::atan(from.bulge);
    return arc;
}

class Painter
{
public:
    Painter(OdGiWorldDraw& worldDraw, const ocs::Frame& frame, double elevation)
        : m_geometry(worldDraw.geometry()), m_frame(frame), m_elevation(elevation)
    {
    }

    void drawSegment(const BulgeVertex& from, const BulgeVertex& to) const
    {
        const bool wide = from.startWidth > 0.0 || from.endWidth > 0.0;
        const bool bent = from.bulge != 0.0 && (from.x != to.x || from.y != to.y);
        if (!std::isfinite(from.bulge))
            return;
        if (bent)
            wide ? drawWideArc(from, to) : drawArc(arcOf(from, to, m_elevation), 0.0);
        else
            wide ? drawStrip(from, to) : drawLine(at(from.x, from.y), at(to.x, to.y));
    }

    void drawDot(const BulgeVertex& vertex) const
    {
        const OdGePoint3d point = at(vertex.x, vertex.y);
        m_geometry.polyline(1, &point, &m_frame.z);
    }

private:
    OdGePoint3d at(double x, double y) const { return m_frame.toWorld(OdGePoint3d(x, y, m_elevation)); }

    void drawLine(const OdGePoint3d& from, const OdGePoint3d& to) const
    {
        const OdGePoint3d points[2] = {from, to};
        m_geometry.polyline(2, points, &m_frame.z);
    }

    void drawArc(const Arc& arc, double widening) const
    {
        const double radius = std::max(arc.radius + widening, 0.0);
        const double start = arc.sweep < 0.0 ? arc.startAngle + arc.sweep : arc.startAngle;
        m_geometry.circularArc(m_frame.toWorld(arc.center), radius, m_frame.z, m_frame.direction(start),
                               std::fabs(arc.sweep), kOdGiArcSimple);
    }

    void drawStrip(const BulgeVertex& from, const BulgeVertex& to) const
    {
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        if (length == 0.0)
            return drawLine(at(from.x, from.y), at(to.x, to.y));
        const double nx = (from.y - to.y) / length * 0.5;
        const double ny = (to.x - from.x) / length * 0.5;
        const double a = from.startWidth;
        const double b = from.endWidth;
        const OdGePoint3d corners[5] = {at(from.x + nx * a, from.y + ny * a), at(to.x + nx * b, to.y + ny * b),
                                        at(to.x - nx * b, to.y - ny * b), at(from.x - nx * a, from.y - ny * a),
                                        at(from.x + nx * a, from.y + ny * a)};
        m_geometry.polyline(5, corners, &m_frame.z);
    }

    void drawWideArc(const BulgeVertex& from, const BulgeVertex& to) const
    {
        const Arc arc = arcOf(from, to, m_elevation);
        drawCap(arc, arc.startAngle, from.startWidth);
        drawCap(arc, arc.startAngle + arc.sweep, from.endWidth);
        for (const double side : {0.5, -0.5})
        {
            if (from.startWidth == from.endWidth)
                drawArc(arc, from.startWidth * side);
            else
                drawTaper(arc, from, side);
        }
    }

    OdGePoint3d onRay(const Arc& arc, double angle, double radius) const
    {
        return at(arc.center.x + radius * std::cos(angle), arc.center.y + radius * std::sin(angle));
    }

    void drawCap(const Arc& arc, double angle, double width) const
    {
        drawLine(onRay(arc, angle, std::max(arc.radius - width * 0.5, 0.0)),
                 onRay(arc, angle, arc.radius + width * 0.5));
    }

    /// One side of a strip whose width changes along an arc.
    void drawTaper(const Arc& arc, const BulgeVertex& from, double side) const
    {
        constexpr int kSteps = 64;
        OdGePoint3d points[kSteps + 1];
        for (int i = 0; i <= kSteps; ++i)
        {
            const double part = static_cast<double>(i) / kSteps;
            const double width = from.startWidth + (from.endWidth - from.startWidth) * part;
            points[i] = onRay(arc, arc.startAngle + arc.sweep * part, std::max(arc.radius + width * side, 0.0));
        }
        m_geometry.polyline(kSteps + 1, points, &m_frame.z);
    }

    OdGiGeometry& m_geometry;
    const ocs::Frame& m_frame;
    double m_elevation;
};

} // namespace

void drawBulgePolyline(OdGiWorldDraw& worldDraw, std::span<const BulgeVertex> vertices, bool closed,
                       const ocs::Frame& frame, double elevation)
{
    const Painter painter(worldDraw, frame, elevation);
    if (vertices.size() == 1)
        return painter.drawDot(vertices.front());
    for (std::size_t i = 0; i + 1 < vertices.size(); ++i)
        painter.drawSegment(vertices[i], vertices[i + 1]);
    if (closed && vertices.size() > 1)
        painter.drawSegment(vertices.back(), vertices.front());
}

} // namespace drawing
