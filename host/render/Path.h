// Lines and curves on a page, in pixels from its upper left corner.
#pragma once

#include <vector>

#include "Ge/GeExtents2d.h"

namespace render
{

enum class Step : unsigned char
{
    kMove,  ///< one point
    kLine,  ///< one point
    kCurve, ///< three points: two controls and the end
    kClose  ///< none
};

class Path
{
public:
    void clear();
    bool empty() const { return m_steps.empty(); }

    void moveTo(const OdGePoint2d& point) { add(Step::kMove, point); }
    void lineTo(const OdGePoint2d& point) { add(Step::kLine, point); }
    void curveTo(const OdGePoint2d& first, const OdGePoint2d& second, const OdGePoint2d& end);
    void close() { m_steps.push_back(Step::kClose); }
    void append(const Path& other);

    const std::vector<Step>& steps() const { return m_steps; }
    const std::vector<OdGePoint2d>& points() const { return m_points; }
    const OdGePoint2d& lastPoint() const { return m_points.back(); }

    /// The box around all points, those that steer curves included.
    OdGeExtents2d bounds() const;

    /// The lines and curves one by one, each as a path of its own.
    std::vector<Path> segments() const;

    /// The rows of points that the path runs through, curves as lines that are nowhere farther from them than
    /// deviation.
    std::vector<std::vector<OdGePoint2d>> flattened(double deviation) const;

private:
    void add(Step step, const OdGePoint2d& point)
    {
        m_steps.push_back(step);
        m_points.push_back(point);
    }

    std::vector<Step> m_steps;
    std::vector<OdGePoint2d> m_points;
};

} // namespace render
