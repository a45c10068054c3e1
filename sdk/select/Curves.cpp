// Where straight pieces and pieces of ellipses meet.
#include "select/Curves.h"

#include <algorithm>
#include <cmath>

namespace picking
{

namespace
{

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;
constexpr double kAngleTolerance = 1e-12;

double cross(const OdGeVector2d& first, const OdGeVector2d& second)
{
    return first.x * second.y - first.y * second.x;
}

double clamped(double value)
{
    return std::clamp(value, 0.0, 1.0);
}

/// The parameter of the point of the segment that is nearest.
double nearestOn(const Segment& segment, const OdGePoint2d& point)
{
    const OdGeVector2d along = segment.end - segment.start;
    const double squared = along.lengthSqrd();
    return squared > 0.0 ? clamped((point - segment.start).dotProduct(along) / squared) : 0.0;
}

/// How far t lies behind start, in [0, 2 pi).
double turnFrom(double start, double t)
{
    const double turn = std::fmod(t - start, kTwoPi);
    return turn < 0.0 ? turn + kTwoPi : turn;
}

/// The parameter on the arc that stands for the angle, if any.
std::optional<double> onArc(const EllipticArc& arc, double angle)
{
    const double turn = turnFrom(arc.start, angle);
    if (turn <= arc.sweep + kAngleTolerance)
        return arc.start + std::min(turn, arc.sweep);
    if (turn >= kTwoPi - kAngleTolerance)
        return arc.start;
    return std::nullopt;
}

/// Where the straight line from first to second is at the distance 1 from the origin: none, or two places that may be
/// the same. A line that misses it by no more than slack touches it.
std::vector<double> crossUnitCircle(const OdGeVector2d& first, const OdGeVector2d& second, double slack)
{
    const OdGeVector2d along = second - first;
    const double a = along.lengthSqrd();
    if (a == 0.0)
        return {};
    const double b = first.dotProduct(along) / a;
    const double nearest = std::sqrt(std::max(0.0, first.lengthSqrd() - b * b * a));
    if (nearest > 1.0 + slack)
        return {};
    const double half = std::sqrt(std::max(0.0, (1.0 - nearest) * (1.0 + nearest) / a));
    return {-b - half, -b + half};
}

} // namespace

OdGePoint2d EllipticArc::at(double t) const
{
    return center + major * std::cos(t) + minor * std::sin(t);
}

bool EllipticArc::has(double t) const
{
    return onArc(*this, t).has_value();
}

std::optional<Segment> flattened(const EllipticArc& arc)
{
    const double size = std::max(arc.major.length(), arc.minor.length());
    constexpr double kFlat = 1e-12;
    if (std::fabs(cross(arc.major, arc.minor)) > kFlat * size * size)
        return std::nullopt;
    if (size == 0.0)
        return Segment{arc.center, arc.center};
    const OdGeVector2d along = (arc.major.length() >= arc.minor.length() ? arc.major : arc.minor) / size;
    const double wide = arc.major.dotProduct(along);
    const double high = arc.minor.dotProduct(along);
    const auto reach = [&](double t) { return wide * std::cos(t) + high * std::sin(t); };
    double least = std::min(reach(arc.start), reach(arc.start + arc.sweep));
    double greatest = std::max(reach(arc.start), reach(arc.start + arc.sweep));
    const double peak = std::atan2(high, wide);
    for (const double t : {peak, peak + kPi})
    {
        if (!arc.has(t))
            continue;
        least = std::min(least, reach(t));
        greatest = std::max(greatest, reach(t));
    }
    return Segment{arc.center + along * least, arc.center + along * greatest};
}

std::vector<double> extremesOf(const EllipticArc& arc)
{
    const double x = std::atan2(arc.minor.x, arc.major.x);
    const double y = std::atan2(arc.minor.y, arc.major.y);
    std::vector<double> extremes = {arc.start, arc.start + arc.sweep};
    for (const double t : {x, x + kPi, y, y + kPi})
        if (const std::optional<double> on = onArc(arc, t))
            extremes.push_back(*on);
    return extremes;
}

double distanceBetween(const OdGePoint2d& point, const Segment& segment)
{
    return point.distanceTo(segment.at(nearestOn(segment, point)));
}

double distanceBetween(const Segment& first, const Segment& second)
{
    const OdGeVector2d along = first.end - first.start;
    const OdGeVector2d other = second.end - second.start;
    const double turned = cross(along, other);
    if (turned != 0.0)
    {
        const OdGeVector2d between = second.start - first.start;
        const double onFirst = cross(between, other) / turned;
        const double onSecond = cross(between, along) / turned;
        if (onFirst >= 0.0 && onFirst <= 1.0 && onSecond >= 0.0 && onSecond <= 1.0)
            return 0.0;
    }
    return std::min({distanceBetween(first.start, second), distanceBetween(first.end, second),
                     distanceBetween(second.start, first), distanceBetween(second.end, first)});
}

double distanceBetween(const OdGePoint2d& point, const EllipticArc& arc)
{
    constexpr int kPieces = 64;
    const auto distanceAt = [&](double t) { return point.distanceTo(arc.at(t)); };
    double best = arc.start;
    const double step = arc.sweep / kPieces;
    for (int i = 1; i <= kPieces; ++i)
        if (const double t = arc.start + step * i; distanceAt(t) < distanceAt(best))
            best = t;
    // The distance falls to one side only between the neighbours of the best piece: narrow them down.
    double low = std::max(arc.start, best - step);
    double high = std::min(arc.start + arc.sweep, best + step);
    for (int i = 0; i < 60; ++i)
    {
        const double third = (high - low) / 3.0;
        (distanceAt(low + third) < distanceAt(high - third) ? high : low) +=
            (distanceAt(low + third) < distanceAt(high - third) ? -third : third);
    }
    return distanceAt((low + high) / 2.0);
}

void addMeetings(const Segment& curve, const Segment& edge, double tolerance, std::vector<double>& parameters)
{
    if (distanceBetween(curve, edge) > tolerance)
        return;
    const OdGeVector2d along = curve.end - curve.start;
    const OdGeVector2d other = edge.end - edge.start;
    if (const double turned = cross(along, other); turned != 0.0)
    {
        const double parameter = cross(edge.start - curve.start, other) / turned;
        if (parameter >= 0.0 && parameter <= 1.0)
            parameters.push_back(parameter);
    }
    for (const OdGePoint2d& end : {edge.start, edge.end})
        if (const double parameter = nearestOn(curve, end); end.distanceTo(curve.at(parameter)) <= tolerance)
            parameters.push_back(parameter);
}

void addMeetings(const EllipticArc& curve, const Segment& edge, double tolerance, std::vector<double>& parameters)
{
    // What angles give of a curve is rounded in the measure of its coordinates, large ones of a small edge included.
    constexpr double kRounding = 4e-15;
    const double reach = tolerance + kRounding * (std::fabs(curve.center.x) + std::fabs(curve.center.y) +
                                                  curve.major.length() + curve.minor.length());
    const double area = cross(curve.major, curve.minor);
    // In the coordinates of the two axes the ellipse is the circle of radius 1 about the origin.
    const auto inAxes = [&](const OdGePoint2d& point)
    {
        const OdGeVector2d from = point - curve.center;
        return OdGeVector2d(cross(from, curve.minor) / area, cross(curve.major, from) / area);
    };
    const OdGeVector2d first = inAxes(edge.start);
    const OdGeVector2d second = inAxes(edge.end);
    const double slack = reach / std::min(curve.major.length(), curve.minor.length());
    for (const double place : crossUnitCircle(first, second, slack))
    {
        const OdGeVector2d near = first + (second - first) * clamped(place);
        const double angle = std::atan2(near.y, near.x);
        const std::optional<double> on = onArc(curve, angle);
        if (on && distanceBetween(curve.at(*on), edge) <= reach)
            parameters.push_back(*on);
    }
    for (const double t : {curve.start, curve.start + curve.sweep})
        if (distanceBetween(curve.at(t), edge) <= reach)
            parameters.push_back(t);
}

} // namespace picking
