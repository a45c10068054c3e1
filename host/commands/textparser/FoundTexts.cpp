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

bool Frame::isFlat() const
{
    return crossProduct(along, across) == 0.0;
}

Frame::Distances Frame::measure(const OdGeVector2d& offset) const
{
    const double area = crossProduct(along, across);
    return {std::abs(crossProduct(offset, across) / area), std::abs(crossProduct(along, offset) / area)};
}

bool Frame::encloses(const Distances& distances) const
{
    const double a = distances.along;
    const double b = distances.across;
    if (outline == kParallelogram)
        return a <= 1.0 && b <= 1.0;
    if (outline == kEllipse)
        return a * a + b * b <= 1.0;
    const double radius = std::hypot(across.x, across.y) / std::hypot(along.x, along.y); // in units of along
    const double beyondLine = std::max(0.0, a - (1.0 - radius)) / radius;
    return beyondLine * beyondLine + b * b <= 1.0;
}

bool Frame::holds(const OdGePoint2d& point) const
{
    return encloses(measure(OdGeVector2d(point.x - center.x, point.y - center.y)));
}

bool Frame::mayHoldCentersIn(const Box& centers) const
{
    if (isFlat())
        return false;
    // Outlines are convex and hold the center of every box that they hold. The nearest point to the frame's center, in
    // its own axes, is at least as near as that of the given box.
    const Distances middle = measure(OdGeVector2d(centers.center.x - center.x, centers.center.y - center.y));
    const Distances u = measure(centers.along);
    const Distances v = measure(centers.across);
    return encloses(
        {std::max(0.0, middle.along - u.along - v.along), std::max(0.0, middle.across - u.across - v.across)});
}

bool Frame::holds(const Box& box) const
{
    if (isFlat())
        return false;
    const OdGePoint2d& c = box.center;
    const OdGeVector2d u(box.along.x * kMargin, box.along.y * kMargin);
    const OdGeVector2d v(box.across.x * kMargin, box.across.y * kMargin);
    // The middles of the box's sides: a circle drawn closely around a text cuts the corners of its box.
    return holds(OdGePoint2d(c.x - u.x, c.y - u.y)) && holds(OdGePoint2d(c.x + u.x, c.y + u.y)) &&
           holds(OdGePoint2d(c.x - v.x, c.y - v.y)) && holds(OdGePoint2d(c.x + v.x, c.y + v.y));
}

} // namespace textparser
