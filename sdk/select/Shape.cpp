// Tells what lies in a shape and what touches it.
#include "select/Shape.h"

#include <algorithm>
#include <cmath>

namespace picking
{

namespace
{

/// Whether a ray from the point to the right crosses the edge; each end of an edge counts once.
bool crossesRay(const OdGePoint2d& point, const OdGePoint2d& start, const OdGePoint2d& end)
{
    if ((start.y > point.y) == (end.y > point.y))
        return false;
    return point.x < start.x + (end.x - start.x) * (point.y - start.y) / (end.y - start.y);
}

double greatestCoordinate(const OdGeExtents2d& box)
{
    return std::max({std::fabs(box.minPoint().x), std::fabs(box.minPoint().y), std::fabs(box.maxPoint().x),
                     std::fabs(box.maxPoint().y)});
}

} // namespace

bool isWithin(std::span<const OdGePoint2d> corners, const OdGePoint2d& point)
{
    bool isInside = false;
    for (std::size_t i = 0; i < corners.size(); ++i)
        if (crossesRay(point, corners[i], corners[(i + 1) % corners.size()]))
            isInside = !isInside;
    return isInside;
}

Shape::Shape(const std::vector<std::vector<OdGePoint2d>>& borders, bool isClosed)
{
    for (const std::vector<OdGePoint2d>& corners : borders)
    {
        for (const OdGePoint2d& corner : corners)
            m_box.addPoint(corner);
        for (std::size_t i = 1; i < corners.size(); ++i)
            m_edges.push_back({corners[i - 1], corners[i]});
        if (isClosed)
            m_edges.push_back({corners.back(), corners.front()});
    }
    // Coordinates far from the origin carry rounding of this size.
    constexpr double kRounding = 1e-12;
    m_tolerance = kRounding * greatestCoordinate(m_box);
}

Shape Shape::rectangle(const OdGePoint2d& first, const OdGePoint2d& second)
{
    Shape shape({{first, {second.x, first.y}, second, {first.x, second.y}}}, true);
    shape.m_isRectangle = true;
    return shape;
}

Shape Shape::polygon(std::vector<OdGePoint2d> corners)
{
    return area({std::move(corners)});
}

Shape Shape::area(const std::vector<std::vector<OdGePoint2d>>& outlines)
{
    return Shape(outlines, true);
}

Shape Shape::fence(std::vector<OdGePoint2d> corners)
{
    Shape shape({std::move(corners)}, false);
    shape.m_isFence = true;
    return shape;
}

bool Shape::isInBox(const OdGePoint2d& point) const
{
    return point.x >= m_box.minPoint().x - m_tolerance && point.x <= m_box.maxPoint().x + m_tolerance &&
           point.y >= m_box.minPoint().y - m_tolerance && point.y <= m_box.maxPoint().y + m_tolerance;
}

bool Shape::holds(const OdGePoint2d& point) const
{
    if (m_isFence || !isInBox(point))
        return false;
    if (m_isRectangle)
        return true;
    bool isInside = false;
    for (const Segment& edge : m_edges)
    {
        if (distanceBetween(point, edge) <= m_tolerance)
            return true;
        if (crossesRay(point, edge.start, edge.end))
            isInside = !isInside;
    }
    return isInside;
}

// Between the places where a curve meets the border it is either inside or outside.
template<class Curve>
bool Shape::holdsPieces(const Curve& curve, std::vector<double> parameters) const
{
    std::sort(parameters.begin(), parameters.end());
    if (!holds(curve.at(parameters.front())) || !holds(curve.at(parameters.back())))
        return false;
    for (std::size_t i = 1; i < parameters.size(); ++i)
        if (!holds(curve.at((parameters[i - 1] + parameters[i]) / 2.0)))
            return false;
    return true;
}

bool Shape::holds(const Segment& segment) const
{
    if (!holds(segment.start) || !holds(segment.end))
        return false;
    if (m_isRectangle)
        return true;
    std::vector<double> parameters = {0.0, 1.0};
    for (const Segment& edge : m_edges)
        addMeetings(segment, edge, m_tolerance, parameters);
    return holdsPieces(segment, std::move(parameters));
}

bool Shape::holds(const EllipticArc& arc) const
{
    if (const std::optional<Segment> flat = flattened(arc))
        return holds(*flat);
    if (m_isRectangle)
    {
        const std::vector<double> extremes = extremesOf(arc);
        return std::all_of(extremes.begin(), extremes.end(), [&](double t) { return holds(arc.at(t)); });
    }
    std::vector<double> parameters = {arc.start, arc.start + arc.sweep / 2.0, arc.start + arc.sweep};
    for (const Segment& edge : m_edges)
        addMeetings(arc, edge, m_tolerance, parameters);
    return holdsPieces(arc, std::move(parameters));
}

template<class Curve>
std::vector<Run> Shape::runsBetween(const Curve& curve, std::vector<double> parameters) const
{
    std::sort(parameters.begin(), parameters.end());
    std::vector<Run> runs;
    for (std::size_t i = 1; i < parameters.size(); ++i)
    {
        const Run run{parameters[i - 1], parameters[i]};
        if (run.from == run.to || !holds(curve.at((run.from + run.to) / 2.0)))
            continue;
        if (!runs.empty() && runs.back().to == run.from)
            runs.back().to = run.to;
        else
            runs.push_back(run);
    }
    return runs;
}

std::vector<Run> Shape::runsOf(const Segment& segment) const
{
    std::vector<double> parameters = {0.0, 1.0};
    for (const Segment& edge : m_edges)
        addMeetings(segment, edge, m_tolerance, parameters);
    return runsBetween(segment, std::move(parameters));
}

// A circle that is seen from its side is cut into pieces of a size that nobody sees.
std::vector<Run> Shape::runsOf(const EllipticArc& arc) const
{
    constexpr int kPieces = 256;
    const bool isFlat = flattened(arc).has_value();
    std::vector<double> parameters = {arc.start, arc.start + arc.sweep};
    for (int i = 1; isFlat && i < kPieces; ++i)
        parameters.push_back(arc.start + arc.sweep * i / kPieces);
    for (const Segment& edge : m_edges)
        if (!isFlat)
            addMeetings(arc, edge, m_tolerance, parameters);
    return runsBetween(arc, std::move(parameters));
}

bool Shape::holds(const OdGeExtents2d& box) const
{
    return m_isRectangle && isInBox(box.minPoint()) && isInBox(box.maxPoint());
}

bool Shape::touches(const Segment& segment) const
{
    if (holds(segment.start))
        return true;
    return std::any_of(m_edges.begin(), m_edges.end(),
                       [&](const Segment& edge) { return distanceBetween(edge, segment) <= m_tolerance; });
}

bool Shape::touches(const EllipticArc& arc) const
{
    if (const std::optional<Segment> flat = flattened(arc))
        return touches(*flat);
    if (holds(arc.at(arc.start)))
        return true;
    std::vector<double> meetings;
    for (const Segment& edge : m_edges)
    {
        addMeetings(arc, edge, m_tolerance, meetings);
        if (!meetings.empty())
            return true;
    }
    return false;
}

bool Shape::touchesArea(std::span<const OdGePoint2d> corners) const
{
    for (std::size_t i = 0; i < corners.size(); ++i)
        if (touches(Segment{corners[i], corners[(i + 1) % corners.size()]}))
            return true;
    return isWithin(corners, m_edges.front().start);
}

} // namespace picking
