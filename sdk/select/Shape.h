// The shape that a user selects with: a polygon or an open polyline in the plane of the screen. What lies on its border
// lies in it.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "Ge/GeExtents2d.h"
#include "select/Curves.h"

namespace picking
{

/// A run of a curve's parameters.
struct Run
{
    double from;
    double to;
};

class Shape
{
public:
    /// The rectangle of two opposite corners.
    static Shape rectangle(const OdGePoint2d& first, const OdGePoint2d& second);
    /// What an odd number of turns of the border separates from far away is inside.
    static Shape polygon(std::vector<OdGePoint2d> corners);
    /// The same for several borders together.
    static Shape area(const std::vector<std::vector<OdGePoint2d>>& outlines);
    static Shape fence(std::vector<OdGePoint2d> corners);

    const std::vector<Segment>& edges() const { return m_edges; }
    const OdGeExtents2d& box() const { return m_box; }
    bool isRectangle() const { return m_isRectangle; }
    bool isFence() const { return m_isFence; }

    /// True for what lies in the shape; nothing lies in a fence.
    bool holds(const OdGePoint2d& point) const;
    bool holds(const Segment& segment) const;
    bool holds(const EllipticArc& arc) const;
    bool holds(const OdGeExtents2d& box) const;

    /// The runs of parameters over which a curve lies in the shape.
    std::vector<Run> runsOf(const Segment& segment) const;
    std::vector<Run> runsOf(const EllipticArc& arc) const;

    /// True for what has a point in common with the shape.
    bool touches(const Segment& segment) const;
    bool touches(const EllipticArc& arc) const;
    /// The same for the area within a closed polyline.
    bool touchesArea(std::span<const OdGePoint2d> corners) const;

private:
    Shape(const std::vector<std::vector<OdGePoint2d>>& borders, bool isClosed);

    template<class Curve>
    std::vector<Run> runsBetween(const Curve& curve, std::vector<double> parameters) const;
    template<class Curve>
    bool holdsPieces(const Curve& curve, std::vector<double> parameters) const;
    bool isInBox(const OdGePoint2d& point) const;

    std::vector<Segment> m_edges;
    OdGeExtents2d m_box;
    double m_tolerance = 0.0;
    bool m_isRectangle = false;
    bool m_isFence = false;
};

/// True for a point within a closed polyline, by the rule of Shape::polygon; points on the border may be either.
bool isWithin(std::span<const OdGePoint2d> corners, const OdGePoint2d& point);

} // namespace picking
