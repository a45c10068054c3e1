// Rational B-spline curves: evaluation by repeated interpolation between control points (de Boor).
#pragma once

#include <vector>

#include "Ge/GePoint3d.h"

namespace nurbs
{

/// Greatest degree that is evaluated; every drawing program stays below it.
constexpr int kGreatestDegree = 25;

struct Curve
{
    int degree = 0;
    std::vector<double> knots;       ///< do not fall; control points + degree + 1 of them
    std::vector<OdGePoint3d> points; ///< control points
    std::vector<double> weights;     ///< one per control point, or empty when all are 1

    /// True when the figures fit together and are finite.
    bool isValid() const;
    double firstParameter() const { return knots[static_cast<std::size_t>(degree)]; }
    double lastParameter() const { return knots[points.size()]; }

    /// The point at a parameter between the first and the last one of a valid curve.
    OdGePoint3d at(double parameter) const;
};

/// Points on a valid curve from its first to its last, close enough together to stand for it: each span between
/// different knots gives eight per degree.
std::vector<OdGePoint3d> sample(const Curve& curve);

} // namespace nurbs
