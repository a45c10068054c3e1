// What the text parser finds in a drawing.
#include "commands/textparser/FoundTexts.h"

#include <algorithm>
#include <cmath>

#include "OdaDefs.h"

namespace textparser
{

namespace
{

// Character widths are estimates, and letters seldom fill their box, so a text may touch its frame.
constexpr double kMargin = 0.9;

double reachOf(double along, double across, Frame::Outline outline)
{
    return outline == Frame::kParallelogram ? std::abs(along) + std::abs(across) : std::hypot(along, across);
}

double crossProduct(const OdGeVector2d& first, const OdGeVector2d& second)
{
    return first.x * second.y - first.y * second.x;
}

} // namespace

double Box::halfWidth() const
{
    return std::abs(along.x) + std::abs(across.x);
}

double Box::halfHeight() const
{
    return std::abs(along.y) + std::abs(across.y);
}

double Frame::area() const
{
    const double parallelogram = 4.0 * std::abs(crossProduct(along, across));
    if (outline == kParallelogram)
        return parallelogram;
    if (outline == kEllipse)
        return parallelogram * OdaPI4;
    const double corners = (4.0 - OdaPI) * (across.x * across.x + across.y * across.y);
    return parallelogram - corners;
}

double Frame::halfWidth() const
{
    return outline == kStadium ? std::abs(along.x) + std::abs(across.x) : reachOf(along.x, across.x, outline);
}

double Frame::halfHeight() const
{
    return outline == kStadium ? std::abs(along.y) + std::abs(across.y) : reachOf(along.y, across.y, outline);
}

bool Frame::holds(const OdGePoint2d& point) const
{
    // The point in the frame's own axes: the outline passes through ±1 on each.
    const double area = crossProduct(along, across);
    if (area == 0.0)
        return false;
    const OdGeVector2d offset(point.x - center.x, point.y - center.y);
    const double a = crossProduct(offset, across) / area;
    const double b = crossProduct(along, offset) / area;
    if (outline == kParallelogram)
        return std::abs(a) <= 1.0 && std::abs(b) <= 1.0;
    if (outline == kEllipse)
        return a * a + b * b <= 1.0;
    const double radius = std::hypot(across.x, across.y) / std::hypot(along.x, along.y); // in units of along
    const double beyondLine = std::max(0.0, std::abs(a) - (1.0 - radius)) / radius;
    return beyondLine * beyondLine + b * b <= 1.0;
}

bool Frame::holds(const Box& box) const
{
    const OdGePoint2d& c = box.center;
    const OdGeVector2d u(box.along.x * kMargin, box.along.y * kMargin);
    const OdGeVector2d v(box.across.x * kMargin, box.across.y * kMargin);
    // The middles of the box's sides: a circle drawn closely around a text cuts the corners of its box.
    return holds(OdGePoint2d(c.x - u.x, c.y - u.y)) && holds(OdGePoint2d(c.x + u.x, c.y + u.y)) &&
           holds(OdGePoint2d(c.x - v.x, c.y - v.y)) && holds(OdGePoint2d(c.x + v.x, c.y + v.y));
}

} // namespace textparser
