// Implements the area of hatches.
#include "entities/HatchArea.h"

#include <algorithm>
#include <cmath>

#include "Ge/GeExtents2d.h"

namespace hatcharea
{

namespace
{

using hatchloops::Edge;
using hatchloops::EdgeKind;
using hatchloops::Loop;

constexpr double kPi = 3.14159265358979323846;
constexpr int kOuter = 1;
constexpr int kIgnore = 2;
constexpr std::size_t kMostNested = 4000; ///< outlines whose nesting is looked at

int stepsOf(double radius, double sweep, double deviation)
{
    double step = kPi / 32.0;
    if (deviation > 0.0 && deviation < radius)
        step = std::clamp(2.0 * std::acos(1.0 - deviation / radius), kPi / 512.0, kPi / 8.0);
    const double steps = std::ceil(std::fabs(sweep) / step);
    return std::isfinite(steps) ? std::clamp(static_cast<int>(steps), 1, 4096) : 1;
}

void appendArc(Outline& outline, const drawing::BulgeVertex& from, const drawing::BulgeVertex& to, double deviation)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double offset = (1.0 - from.bulge * from.bulge) / (4.0 * from.bulge);
    const OdGePoint2d center(from.x + dx * 0.5 - dy * offset, from.y + dy * 0.5 + dx * offset);
    const double radius = center.distanceTo({from.x, from.y});
    const double start = std::atan2(from.y - center.y, from.x - center.x);
    const double sweep = 4.0 * std::atan(from.bulge);
    const int steps = stepsOf(radius, sweep, deviation);
    for (int i = 1; i < steps; ++i)
    {
        const double angle = start + sweep * i / steps;
        outline.emplace_back(center.x + radius * std::cos(angle), center.y + radius * std::sin(angle));
    }
}

Outline outlineOfPolyline(const std::vector<drawing::BulgeVertex>& vertices, double deviation)
{
    Outline outline;
    for (std::size_t i = 0; i < vertices.size(); ++i)
    {
        const drawing::BulgeVertex& from = vertices[i];
        const drawing::BulgeVertex& to = vertices[(i + 1) % vertices.size()];
        outline.emplace_back(from.x, from.y);
        if (from.bulge != 0.0 && std::isfinite(from.bulge) && (from.x != to.x || from.y != to.y))
            appendArc(outline, from, to, deviation);
    }
    return outline;
}

Outline pointsOfEllipse(const Edge& edge, const OdGeVector2d& major, const OdGeVector2d& minor, double deviation)
{
    const double start = edge.firstParameter();
    const double sweep = edge.lastParameter() - start;
    const int steps = stepsOf(major.length() + minor.length(), sweep, deviation);
    const double side = edge.counterClockwise ? 1.0 : -1.0;
    const OdGePoint2d center(edge.first.x, edge.first.y);
    Outline points;
    for (int i = 0; i <= steps; ++i)
    {
        const double angle = start + sweep * i / steps;
        points.push_back(center + major * std::cos(angle) + minor * (side * std::sin(angle)));
    }
    return points;
}

Outline pointsOfSpline(const nurbs::Curve& spline)
{
    Outline points;
    for (const OdGePoint3d& point : spline.isValid() ? nurbs::sample(spline) : spline.points)
        points.emplace_back(point.x, point.y);
    return points;
}

Outline pointsOf(const Edge& edge, double deviation)
{
    switch (edge.kind)
    {
    case EdgeKind::Arc:
        return pointsOfEllipse(edge, {edge.radius, 0.0}, {0.0, edge.radius}, deviation);
    case EdgeKind::Ellipse:
        return pointsOfEllipse(edge, {edge.second.x, edge.second.y},
                               {-edge.second.y * edge.radius, edge.second.x * edge.radius}, deviation);
    case EdgeKind::Spline:
        return pointsOfSpline(edge.spline);
    default:
        return {{edge.first.x, edge.first.y}, {edge.second.x, edge.second.y}};
    }
}

/// Puts edges one behind the other, each the way round that goes on from the one before.
Outline outlineOfEdges(const std::vector<Edge>& edges, double deviation)
{
    Outline outline;
    for (std::size_t i = 0; i < edges.size(); ++i)
    {
        Outline points = pointsOf(edges[i], deviation);
        if (points.empty())
            continue;
        if (outline.empty() && i + 1 < edges.size())
        {
            const Outline next = pointsOf(edges[i + 1], deviation);
            const auto farFromNext = [&next](const OdGePoint2d& point)
            { return next.empty() ? 0.0 : std::min(point.distanceTo(next.front()), point.distanceTo(next.back())); };
            if (farFromNext(points.front()) < farFromNext(points.back()))
                std::reverse(points.begin(), points.end());
        }
        else if (!outline.empty() &&
                 outline.back().distanceTo(points.back()) < outline.back().distanceTo(points.front()))
            std::reverse(points.begin(), points.end());
        outline.insert(outline.end(), points.begin(), points.end());
    }
    return outline;
}

bool isFinite(const Outline& outline)
{
    return std::all_of(outline.begin(), outline.end(),
                       [](const OdGePoint2d& point) { return std::isfinite(point.x) && std::isfinite(point.y); });
}

bool holds(const Outline& outline, const OdGePoint2d& point)
{
    bool inside = false;
    for (std::size_t i = 0, before = outline.size() - 1; i < outline.size(); before = i++)
    {
        const OdGePoint2d& a = outline[i];
        const OdGePoint2d& b = outline[before];
        if ((a.y > point.y) != (b.y > point.y) && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

/// For each outline, how many others it lies in.
std::vector<int> depthsOf(const std::vector<Outline>& outlines)
{
    std::vector<OdGeExtents2d> boxes(outlines.size());
    for (std::size_t i = 0; i < outlines.size(); ++i)
    {
        for (const OdGePoint2d& point : outlines[i])
            boxes[i].addPoint(point);
    }
    std::vector<int> depths(outlines.size());
    for (std::size_t i = 0; i < outlines.size(); ++i)
    {
        for (std::size_t other = 0; other < outlines.size(); ++other)
        {
            // Of two points, as one of them may lie on the other outline.
            const OdGePoint2d& first = outlines[i][0];
            const OdGePoint2d middle = outlines[i][0] + (outlines[i][outlines[i].size() / 2] - outlines[i][0]) / 2.0;
            if (other != i && boxes[other].contains(first) && holds(outlines[other], first) &&
                holds(outlines[other], middle))
                ++depths[i];
        }
    }
    return depths;
}

} // namespace

std::vector<Outline> outlinesOf(const std::vector<Loop>& loops, double deviation)
{
    std::vector<Outline> outlines;
    for (const Loop& loop : loops)
    {
        Outline outline =
            loop.isPolyline() ? outlineOfPolyline(loop.vertices, deviation) : outlineOfEdges(loop.edges, deviation);
        if (outline.size() >= 3 && isFinite(outline))
            outlines.push_back(std::move(outline));
    }
    return outlines;
}

std::vector<Part> partsOf(std::vector<Outline> outlines, int style)
{
    if (outlines.empty())
        return {};
    if ((style != kOuter && style != kIgnore) || outlines.size() == 1 || outlines.size() > kMostNested)
        return {std::move(outlines)};
    const std::vector<int> depths = depthsOf(outlines);
    std::vector<Part> parts;
    if (style == kOuter)
        parts.emplace_back();
    for (std::size_t i = 0; i < outlines.size(); ++i)
    {
        if (style == kOuter && depths[i] <= 1)
            parts.front().push_back(std::move(outlines[i]));
        else if (style == kIgnore && depths[i] == 0)
            parts.push_back({std::move(outlines[i])});
    }
    return parts;
}

} // namespace hatcharea
