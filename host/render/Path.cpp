// Implements paths.
#include "render/Path.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace render
{

OdGePoint2d pointOnCurve(const OdGePoint2d& start, const OdGePoint2d* controls, double t)
{
    const double u = 1.0 - t;
    const double a = u * u * u;
    const double b = 3 * u * u * t;
    const double c = 3 * u * t * t;
    const double d = t * t * t;
    return {a * start.x + b * controls[0].x + c * controls[1].x + d * controls[2].x,
            a * start.y + b * controls[0].y + c * controls[1].y + d * controls[2].y};
}

int stepsOfCurve(const OdGePoint2d& start, const OdGePoint2d* controls, double deviation)
{
    const double reach =
        start.distanceTo(controls[0]) + controls[0].distanceTo(controls[1]) + controls[1].distanceTo(controls[2]);
    const double steps = std::ceil(std::sqrt(reach / std::max(deviation, 1e-6)) / 2);
    return static_cast<int>(std::min(std::max(steps, 1.0), 512.0));
}

void Path::clear()
{
    m_steps.clear();
    m_points.clear();
}

void Path::curveTo(const OdGePoint2d& first, const OdGePoint2d& second, const OdGePoint2d& end)
{
    m_steps.push_back(Step::kCurve);
    m_points.insert(m_points.end(), {first, second, end});
}

void Path::append(const Path& other)
{
    m_steps.insert(m_steps.end(), other.m_steps.begin(), other.m_steps.end());
    m_points.insert(m_points.end(), other.m_points.begin(), other.m_points.end());
}

OdGeExtents2d Path::bounds() const
{
    constexpr double kFar = std::numeric_limits<double>::infinity();
    OdGePoint2d low(kFar, kFar);
    OdGePoint2d high(-kFar, -kFar);
    // What is no number is passed over.
    for (const OdGePoint2d& point : m_points)
    {
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    return low.x <= high.x && low.y <= high.y ? OdGeExtents2d(low, high) : OdGeExtents2d();
}

std::vector<Path> Path::segments() const
{
    std::vector<Path> segments;
    const OdGePoint2d* point = m_points.data();
    OdGePoint2d last;
    for (const Step step : m_steps)
    {
        if (step == Step::kLine || step == Step::kCurve)
        {
            Path& segment = segments.emplace_back();
            segment.moveTo(last);
            step == Step::kLine ? segment.lineTo(point[0]) : segment.curveTo(point[0], point[1], point[2]);
        }
        point += step == Step::kCurve ? 3 : step == Step::kClose ? 0 : 1;
        last = step == Step::kClose ? last : point[-1];
    }
    return segments;
}

std::vector<std::vector<OdGePoint2d>> Path::flattened(double deviation) const
{
    std::vector<std::vector<OdGePoint2d>> rows;
    const OdGePoint2d* point = m_points.data();
    for (const Step step : m_steps)
    {
        if (step == Step::kMove || rows.empty())
            rows.emplace_back();
        if (step == Step::kCurve)
        {
            const OdGePoint2d start = rows.back().back();
            for (int i = 1, steps = stepsOfCurve(start, point, deviation); i <= steps; ++i)
                rows.back().push_back(pointOnCurve(start, point, static_cast<double>(i) / steps));
            point += 3;
        }
        else if (step == Step::kClose)
            rows.back().push_back(rows.back().front());
        else
            rows.back().push_back(*point++);
    }
    return rows;
}

} // namespace render
