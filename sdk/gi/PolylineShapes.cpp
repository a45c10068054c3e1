// Implements the shape of flat polylines.
#include "gi/PolylineShapes.h"

#include <algorithm>
#include <cmath>

#include "Ge/GePoint2d.h"

namespace gi
{

namespace
{

using Vertex = OdGiPolyline::Vertex;

constexpr double kPi = 3.14159265358979323846;
constexpr double kLongestMitre = 4.0; ///< in half widths

/// A segment with a bulge as an arc in the plane.
struct Arc
{
    OdGePoint2d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0; ///< negative when the arc runs clockwise

    OdGePoint2d at(double angle, double distance) const
    {
        return {center.x + distance * std::cos(angle), center.y + distance * std::sin(angle)};
    }
};

Arc arcOf(const Vertex& from, const Vertex& to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    // The centre lies on the chord's perpendicular bisector, this part of the chord's length to its left.
    const double offset = (1.0 - from.bulge * from.bulge) / (4.0 * from.bulge);
    Arc arc;
    arc.center = OdGePoint2d(from.x + dx * 0.5 - dy * offset, from.y + dy * 0.5 + dx * offset);
    arc.radius = std::hypot(dx, dy) * (1.0 + from.bulge * from.bulge) / (4.0 * std::fabs(from.bulge));
    arc.startAngle = std::atan2(from.y - arc.center.y, from.x - arc.center.x);
    arc.sweep = 4.0 * std::atan(from.bulge);
    return arc;
}

bool isBent(const Vertex& from, const Vertex& to)
{
    return from.bulge != 0.0 && (from.x != to.x || from.y != to.y);
}

bool isWide(const Vertex& from)
{
    return from.startWidth > 0.0 || from.endWidth > 0.0;
}

/// Where a segment runs at its start or its end, as a unit vector; the zero vector for one without length.
OdGeVector2d directionAt(const Vertex& from, const Vertex& to, bool atEnd)
{
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length > 0.0))
        return {0.0, 0.0};
    const OdGeVector2d chord((to.x - from.x) / length, (to.y - from.y) / length);
    if (from.bulge == 0.0)
        return chord;
    const double turn = 2.0 * std::atan(from.bulge) * (atEnd ? 1.0 : -1.0);
    return {chord.x * std::cos(turn) - chord.y * std::sin(turn), chord.x * std::sin(turn) + chord.y * std::cos(turn)};
}

/// The two points where a strip ends, left and right of its direction.
struct End
{
    OdGePoint2d left;
    OdGePoint2d right;
};

End squareEnd(const OdGePoint2d& at, const OdGeVector2d& direction, double width)
{
    const OdGeVector2d across(-direction.y * width / 2, direction.x * width / 2);
    return {at + across, at - across};
}

/// How strips meet at a vertex.
struct Corner
{
    OdGeVector2d in;  ///< where the segment before comes from
    OdGeVector2d out; ///< where the segment behind goes
    double width = 0.0;
    bool isMitred = false;
    End mitre;
};

Corner cornerOf(const Vertex& before, const Vertex& at, const Vertex& behind)
{
    Corner corner;
    corner.in = directionAt(before, at, true);
    corner.out = directionAt(at, behind, false);
    corner.width = std::min(before.endWidth, at.startWidth);
    const bool straight = before.bulge == 0.0 && at.bulge == 0.0;
    const double cosine = corner.in.x * corner.out.x + corner.in.y * corner.out.y;
    // The half angle's tangent moves the outer edges' meeting point along the strip.
    const double lengthening = std::sqrt(std::max((1.0 - cosine) / (1.0 + cosine), 0.0));
    if (!straight || before.endWidth != at.startWidth || !(std::hypot(1.0, lengthening) <= kLongestMitre))
        return corner;
    const double side = corner.in.x * corner.out.y - corner.in.y * corner.out.x;
    const double shift = lengthening * corner.width / 2 * (side >= 0.0 ? 1.0 : -1.0);
    const End square = squareEnd({at.x, at.y}, corner.in, corner.width);
    corner.isMitred = true;
    corner.mitre.left = square.left - corner.in * shift;
    corner.mitre.right = square.right + corner.in * shift;
    return corner;
}

class Painter
{
public:
    Painter(Geometry& geometry, WorldDraw& worldDraw, const OdGiPolyline& polyline)
        : m_geometry(geometry), m_worldDraw(worldDraw), m_polyline(polyline)
    {
    }

    void draw()
    {
        for (std::size_t i = 0; i < m_polyline.numSegments(); ++i)
            drawSegment(i);
    }

private:
    OdGePoint3d at(const OdGePoint2d& point) const { return m_polyline.at(point.x, point.y); }

    void drawSegment(std::size_t index)
    {
        const Vertex& from = m_polyline.vertices[index];
        const Vertex& to = m_polyline.segmentEnd(index);
        if (!std::isfinite(from.bulge))
            return;
        if (isWide(from))
        {
            drawStrip(index, from, to);
            drawJoint(index, from);
        }
        else if (isBent(from, to))
            drawArc(arcOf(from, to), 0.0);
        else
            drawLine({from.x, from.y}, {to.x, to.y});
    }

    void drawLine(const OdGePoint2d& from, const OdGePoint2d& to)
    {
        const OdGePoint3d points[2] = {at(from), at(to)};
        m_geometry.polyline(2, points, &m_polyline.normal);
    }

    void drawArc(const Arc& arc, double widening)
    {
        const double radius = std::max(arc.radius + widening, 0.0);
        const double start = arc.sweep < 0.0 ? arc.startAngle + arc.sweep : arc.startAngle;
        const OdGeVector3d direction = m_polyline.xAxis * std::cos(start) + m_polyline.yAxis * std::sin(start);
        m_geometry.circularArc(at(arc.center), radius, m_polyline.normal, direction, std::fabs(arc.sweep),
                               kOdGiArcSimple);
    }

    void fill(const std::vector<OdGePoint2d>& outline)
    {
        m_points.clear();
        for (const OdGePoint2d& point : outline)
            m_points.push_back(at(point));
        OdGiSubEntityTraitsToData& traits = m_worldDraw.traits();
        const OdGiFillType before = traits.fillType();
        if (before != kOdGiFillAlways)
            traits.setFillType(kOdGiFillAlways);
        m_geometry.polygon(static_cast<OdInt32>(m_points.size()), m_points.data());
        if (before != kOdGiFillAlways)
            traits.setFillType(before);
    }

    const Vertex* segmentBefore(std::size_t index) const
    {
        if (index > 0)
            return &m_polyline.vertices[index - 1];
        return m_polyline.isClosed && m_polyline.vertices.size() > 2 ? &m_polyline.vertices.back() : nullptr;
    }

    const Vertex* segmentBehind(std::size_t index) const
    {
        if (index + 1 < m_polyline.numSegments())
            return &m_polyline.vertices[index + 1];
        return m_polyline.isClosed && m_polyline.vertices.size() > 2 ? &m_polyline.vertices.front() : nullptr;
    }

    /// The end of a strip at a vertex: mitred with the segment that it meets there, or square.
    End endOf(const Vertex* before, const Vertex& vertex, const Vertex* behind, const Vertex& segment, bool atEnd) const
    {
        const double width = atEnd ? segment.endWidth : segment.startWidth;
        if (before && behind && isWide(*before) && isWide(vertex))
        {
            const Corner corner = cornerOf(*before, vertex, *behind);
            if (corner.isMitred)
                return corner.mitre;
        }
        const Vertex& from = atEnd ? *before : vertex;
        const Vertex& to = atEnd ? vertex : *behind;
        return squareEnd({vertex.x, vertex.y}, directionAt(from, to, atEnd), width);
    }

    const Vertex& endOfSegment(const Vertex& segment) const
    {
        return m_polyline.segmentEnd(static_cast<std::size_t>(&segment - m_polyline.vertices.data()));
    }

    void drawStrip(std::size_t index, const Vertex& from, const Vertex& to)
    {
        if (from.x == to.x && from.y == to.y)
            return drawLine({from.x, from.y}, {to.x, to.y});
        const Vertex* behind = segmentBehind(index);
        const End start = endOf(segmentBefore(index), from, &to, from, false);
        const End end = endOf(&from, to, behind ? &endOfSegment(*behind) : nullptr, from, true);
        if (!isBent(from, to))
            return fill({start.left, start.right, end.right, end.left});
        if (m_worldDraw.regenType() == kOdGiForExtents)
            return drawArcEdges(from, to);
        fillArc(from, to);
    }

    /// The edges of a wide arc as they are, where only its reach is of interest.
    void drawArcEdges(const Vertex& from, const Vertex& to)
    {
        const Arc arc = arcOf(from, to);
        for (const double side : {0.5, -0.5})
        {
            if (from.startWidth == from.endWidth)
                drawArc(arc, from.startWidth * side);
        }
        if (from.startWidth != from.endWidth)
            fillArc(from, to);
    }

    void fillArc(const Vertex& from, const Vertex& to)
    {
        const Arc arc = arcOf(from, to);
        const int steps = stepsOf(arc, std::max(from.startWidth, from.endWidth));
        std::vector<OdGePoint2d> outline(2 * static_cast<std::size_t>(steps) + 2);
        for (int i = 0; i <= steps; ++i)
        {
            const double part = static_cast<double>(i) / steps;
            const double half = (from.startWidth + (from.endWidth - from.startWidth) * part) / 2;
            const double angle = arc.startAngle + arc.sweep * part;
            outline[static_cast<std::size_t>(i)] = arc.at(angle, arc.radius + half);
            outline[outline.size() - 1 - static_cast<std::size_t>(i)] = arc.at(angle, std::max(arc.radius - half, 0.0));
        }
        // All strips run around in the same direction, so that they can be filled together.
        if (arc.sweep < 0.0)
            std::reverse(outline.begin(), outline.end());
        fill(outline);
    }

    int stepsOf(const Arc& arc, double width) const
    {
        constexpr double kCoarsest = kPi / 32.0;
        const double radius = arc.radius + width / 2;
        const double deviation = m_worldDraw.deviation();
        double step = kCoarsest;
        if (deviation > 0.0 && deviation < radius)
            step = std::clamp(2.0 * std::acos(1.0 - deviation / radius), kPi / 512.0, kPi / 8.0);
        return std::max(static_cast<int>(std::ceil(std::fabs(arc.sweep) / step)), 1);
    }

    /// Fills the wedge that is open outside of a corner that is not mitred.
    void drawJoint(std::size_t index, const Vertex& vertex)
    {
        const Vertex* before = segmentBefore(index);
        if (!before || !isWide(*before))
            return;
        const Corner corner = cornerOf(*before, vertex, m_polyline.segmentEnd(index));
        const double side = corner.in.x * corner.out.y - corner.in.y * corner.out.x;
        if (corner.isMitred || std::fabs(side) < 1e-6)
            return;
        const OdGePoint2d center(vertex.x, vertex.y);
        const End in = squareEnd(center, corner.in, before->endWidth);
        const End out = squareEnd(center, corner.out, vertex.startWidth);
        if (side > 0.0)
            fill({center, in.right, out.right});
        else
            fill({center, out.left, in.left});
    }

    Geometry& m_geometry;
    WorldDraw& m_worldDraw;
    const OdGiPolyline& m_polyline;
    std::vector<OdGePoint3d> m_points;
};

} // namespace

void drawPolyline(Geometry& geometry, WorldDraw& worldDraw, const OdGiPolyline& polyline)
{
    if (polyline.vertices.size() == 1)
    {
        const OdGePoint3d dot = polyline.at(polyline.vertices.front().x, polyline.vertices.front().y);
        return geometry.polyline(1, &dot, &polyline.normal);
    }
    Painter(geometry, worldDraw, polyline).draw();
}

} // namespace gi
