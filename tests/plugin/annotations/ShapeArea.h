// Areas of the outlines of stamps by two ways that share nothing: from vertices and bulges, and from what a shape is.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "Ge/GeDoubleArray.h"
#include "Ge/GePoint2dArray.h"

namespace shapearea
{

constexpr double kPi = 3.14159265358979323846;

/// Of a closed polyline, positive when it runs counter-clockwise: the polygon of its vertices and the segments of
/// circles beside its sides.
inline double ofVertices(const OdGePoint2dArray& points, const OdGeDoubleArray& bulges)
{
    double area = 0.0;
    for (unsigned i = 0; i < points.size(); ++i)
    {
        const OdGePoint2d& a = points[i];
        const OdGePoint2d& b = points[(i + 1) % points.size()];
        area += (a.x * b.y - b.x * a.y) / 2.0;
        if (bulges[i] == 0.0)
            continue;
        const double angle = 4.0 * std::atan(bulges[i]);
        const double radius = a.distanceTo(b) / 2.0 / std::sin(std::fabs(angle) / 2.0);
        area += radius * radius / 2.0 * (angle - std::sin(angle));
    }
    return area;
}

/// What rounding takes from a corner: the kite of the two tangents less the sector of the arc. angle is that between
/// the edges, a and b are their lengths.
inline double lostAtCorner(double angle, double a, double b, double radius)
{
    const double tangent = std::min({radius / std::tan(angle / 2.0), a / 2.0, b / 2.0});
    const double fitted = tangent * std::tan(angle / 2.0);
    return tangent * fitted - fitted * fitted * (kPi - angle) / 2.0;
}

inline double ofRectangle(double width, double height, double radius)
{
    return width * height - (radius > 1e-8 ? 4.0 * lostAtCorner(kPi / 2.0, width, height, radius) : 0.0);
}

inline double ofEllipse(double width, double height)
{
    return 50 / 2.0 * std::sin(2.0 * kPi / 50) * (width / std::sqrt(2.0)) * (height / std::sqrt(2.0));
}

/// A regular polygon around a circle of radius height / sqrt 2, stretched by width / height. Its edges follow from the
/// slopes of the tangents to that circle.
inline double ofPolygon(int corners, bool edgeOnTop, double width, double height, double radius)
{
    const double inner = height / std::sqrt(2.0);
    const double edge = 2.0 * inner * std::tan(kPi / corners);
    const double stretch = width / height;
    double area = corners * edge * inner / 2.0 * stretch;
    if (radius <= 1e-8)
        return area;
    struct Edge
    {
        double x, y, length;
    };
    std::vector<Edge> edges;
    for (int i = 0; i < corners; ++i)
    {
        const double normal = kPi / 2.0 + (edgeOnTop ? 0.0 : kPi / corners) + 2.0 * kPi * i / corners;
        const double x = -std::sin(normal) * edge * stretch, y = std::cos(normal) * edge;
        edges.push_back({x, y, std::sqrt(x * x + y * y)});
    }
    for (int i = 0; i < corners; ++i)
    {
        const Edge& a = edges[static_cast<std::size_t>(i)];
        const Edge& b = edges[static_cast<std::size_t>((i + 1) % corners)];
        const double turn = std::asin(std::clamp((a.x * b.y - a.y * b.x) / (a.length * b.length), -1.0, 1.0));
        const bool sharp = a.x * b.x + a.y * b.y < 0.0;
        area -= lostAtCorner(sharp ? turn : kPi - turn, a.length, b.length, radius);
    }
    return area;
}

/// Of a stamp's outline: negative for shapes that run clockwise.
inline double ofShape(int shape, double width, double height, double radius)
{
    if (shape == 256)
        return ofEllipse(width, height);
    if (shape == -4 || std::abs(shape) < 3)
        return ofRectangle(width, height, radius);
    const double area = ofPolygon(std::abs(shape), shape < 0, width, height, radius);
    return shape < 0 ? -area : area;
}

} // namespace shapearea
