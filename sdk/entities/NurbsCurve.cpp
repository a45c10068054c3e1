// Implements the evaluation of rational B-spline curves.
#include "entities/NurbsCurve.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace nurbs
{

namespace
{

/// A control point times its weight, and the weight.
struct Weighted
{
    double x, y, z, w;
};

Weighted mix(const Weighted& a, const Weighted& b, double part)
{
    const double rest = 1.0 - part;
    return {a.x * rest + b.x * part, a.y * rest + b.y * part, a.z * rest + b.z * part, a.w * rest + b.w * part};
}

Weighted weighted(const Curve& curve, std::size_t index)
{
    const double w = curve.weights.empty() ? 1.0 : curve.weights[index];
    const OdGePoint3d& point = curve.points[index];
    return {point.x * w, point.y * w, point.z * w, w};
}

/// The span of knots that holds the parameter; its first knot is below its last.
std::size_t findSpan(const Curve& curve, double parameter)
{
    const auto first = curve.knots.begin() + curve.degree;
    const auto last = curve.knots.begin() + static_cast<std::ptrdiff_t>(curve.points.size());
    if (parameter >= *last)
        parameter = std::nextafter(*last, *first);
    const auto above = std::upper_bound(first, last, parameter);
    return static_cast<std::size_t>(above - curve.knots.begin()) - 1;
}

} // namespace

bool Curve::isValid() const
{
    if (degree < 1 || degree > kGreatestDegree || points.size() <= static_cast<std::size_t>(degree))
        return false;
    if (knots.size() != points.size() + static_cast<std::size_t>(degree) + 1)
        return false;
    if (!weights.empty() && weights.size() != points.size())
        return false;
    const bool positive = std::all_of(weights.begin(), weights.end(), [](double w) { return w > 0.0 && w < 1e100; });
    const bool finite = std::all_of(knots.begin(), knots.end(), [](double knot) { return std::isfinite(knot); });
    return positive && finite && std::is_sorted(knots.begin(), knots.end()) && firstParameter() < lastParameter();
}

OdGePoint3d Curve::at(double parameter) const
{
    const std::size_t span = findSpan(*this, parameter);
    const std::size_t order = static_cast<std::size_t>(degree);
    std::array<Weighted, kGreatestDegree + 1> layer;
    for (std::size_t i = 0; i <= order; ++i)
        layer[i] = weighted(*this, span - order + i);
    for (std::size_t round = 1; round <= order; ++round)
    {
        for (std::size_t i = order; i >= round; --i)
        {
            const double low = knots[span - order + i];
            const double high = knots[span + 1 + i - round];
            layer[i] = mix(layer[i - 1], layer[i], high > low ? (parameter - low) / (high - low) : 0.0);
        }
    }
    const Weighted& result = layer[order];
    return OdGePoint3d(result.x / result.w, result.y / result.w, result.z / result.w);
}

std::vector<OdGePoint3d> sample(const Curve& curve)
{
    const int steps = 8 * curve.degree;
    std::vector<OdGePoint3d> samples;
    for (std::size_t i = static_cast<std::size_t>(curve.degree); i < curve.points.size(); ++i)
    {
        const double low = curve.knots[i];
        const double high = curve.knots[i + 1];
        for (int step = 0; step < steps && low < high; ++step)
            samples.push_back(curve.at(low + (high - low) * step / steps));
    }
    samples.push_back(curve.at(curve.lastParameter()));
    return samples;
}

} // namespace nurbs
