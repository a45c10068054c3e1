// Implements the reading and drawing of the loops of hatches.
#include "entities/HatchLoops.h"

#include <cmath>

#include "OdaDefs.h"

namespace hatchloops
{

namespace
{

using oddb::GroupView;

void takeSplineGroup(nurbs::Curve& spline, const GroupView& group)
{
    switch (group.code())
    {
    case 94:
        spline.degree = static_cast<int>(group.integer());
        break;
    case 40:
        spline.knots.push_back(group.real());
        break;
    case 10:
        spline.points.emplace_back(group.real(), 0.0, 0.0);
        break;
    case 20:
        if (!spline.points.empty())
            spline.points.back().y = group.real();
        break;
    case 42:
        spline.weights.push_back(group.real());
        break;
    default:
        break;
    }
}

void takeEdgeGroup(Edge& edge, const GroupView& group)
{
    if (edge.kind == EdgeKind::Spline)
        return takeSplineGroup(edge.spline, group);
    switch (group.code())
    {
    case 10:
        edge.first.x = group.real();
        break;
    case 20:
        edge.first.y = group.real();
        break;
    case 11:
        edge.second.x = group.real();
        break;
    case 21:
        edge.second.y = group.real();
        break;
    case 40:
        edge.radius = group.real();
        break;
    case 50:
        edge.startAngle = group.real();
        break;
    case 51:
        edge.endAngle = group.real();
        break;
    case 73:
        edge.counterClockwise = group.boolean();
        break;
    default:
        break;
    }
}

void takeVertexGroup(std::vector<drawing::BulgeVertex>& vertices, const GroupView& group)
{
    if (group.code() == 10)
        vertices.push_back({group.real()});
    else if (group.code() == 20 && !vertices.empty())
        vertices.back().y = group.real();
    else if (group.code() == 42 && !vertices.empty())
        vertices.back().bulge = group.real();
}

void takeGroup(Loop& loop, const GroupView& group)
{
    if (loop.isPolyline())
        takeVertexGroup(loop.vertices, group);
    else if (group.code() == 72)
        loop.edges.emplace_back().kind = static_cast<EdgeKind>(group.integer());
    else if (!loop.edges.empty())
        takeEdgeGroup(loop.edges.back(), group);
}

/// The parameter of an ellipse at an angle from its major axis; both are in the same half of the same turn.
double parameterAt(double angle, double ratio)
{
    const double parameter = std::atan2(std::sin(angle) / ratio, std::cos(angle));
    return std::isfinite(parameter) ? parameter + std::round((angle - parameter) / Oda2PI) * Oda2PI : angle;
}

class EdgePainter
{
public:
    EdgePainter(OdGiGeometry& geometry, const ocs::Frame& frame, double elevation)
        : m_geometry(geometry), m_frame(frame), m_elevation(elevation)
    {
    }

    void draw(const Edge& edge) const
    {
        switch (edge.kind)
        {
        case EdgeKind::Line:
            return drawLine(edge);
        case EdgeKind::Arc:
            return drawEllipse(edge, m_frame.x * edge.radius, m_frame.y * edge.radius);
        case EdgeKind::Ellipse:
            return drawEllipse(edge, major(edge), m_frame.z.crossProduct(major(edge)) * edge.radius);
        case EdgeKind::Spline:
            return drawSpline(edge.spline);
        }
    }

private:
    OdGePoint3d at(const OdGePoint3d& flat) const { return m_frame.toWorld(OdGePoint3d(flat.x, flat.y, m_elevation)); }

    OdGeVector3d major(const Edge& edge) const { return m_frame.toWorld(edge.second.asVector()); }

    void drawLine(const Edge& edge) const
    {
        const OdGePoint3d points[2] = {at(edge.first), at(edge.second)};
        m_geometry.polyline(2, points);
    }

    void drawEllipse(const Edge& edge, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis) const
    {
        m_geometry.ellipArc(at(edge.first), majorAxis, edge.counterClockwise ? minorAxis : minorAxis * -1.0,
                            edge.firstParameter(), edge.lastParameter());
    }

    void drawSpline(nurbs::Curve spline) const
    {
        for (OdGePoint3d& point : spline.points)
            point = at(point);
        const std::vector<OdGePoint3d> points = spline.isValid() ? nurbs::sample(spline) : spline.points;
        m_geometry.polyline(static_cast<OdInt32>(points.size()), points.data());
    }

    OdGiGeometry& m_geometry;
    const ocs::Frame& m_frame;
    double m_elevation;
};

} // namespace

double Edge::firstParameter() const
{
    const double start = OdaToRadian(startAngle);
    return kind == EdgeKind::Ellipse ? parameterAt(start, radius) : start;
}

double Edge::lastParameter() const
{
    const double end = OdaToRadian(endAngle);
    const double first = firstParameter();
    return first + ocs::sweepOf(first, kind == EdgeKind::Ellipse ? parameterAt(end, radius) : end);
}

std::vector<Loop> readLoops(const oddb::Groups& groups, oddb::Atom marker)
{
    std::vector<Loop> loops;
    bool inside = false;
    bool counted = false;
    for (const GroupView& group : groups)
    {
        if (group.beginsSection())
            inside = group.code() == 100 && group.atom() == marker;
        counted = inside && (counted || group.code() == 91) && group.code() != 75;
        if (!counted)
            continue;
        if (group.code() == 92)
        {
            loops.emplace_back().type = static_cast<int>(group.integer());
            loops.back().begin = group.item();
        }
        else if (!loops.empty())
            takeGroup(loops.back(), group);
        if (!loops.empty())
            loops.back().end = group.next();
    }
    return loops;
}

void drawLoop(OdGiWorldDraw& worldDraw, const Loop& loop, const ocs::Frame& frame, double elevation)
{
    if (loop.isPolyline())
        return drawing::drawBulgePolyline(worldDraw, loop.vertices, true, frame, elevation);
    const EdgePainter painter(worldDraw.geometry(), frame, elevation);
    for (const Edge& edge : loop.edges)
        painter.draw(edge);
}

} // namespace hatchloops
