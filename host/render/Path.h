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

    /// Calls visit(from, to) for each line; curves are lines that are nowhere farther from them than deviation.
    template<class Visit>
    void visitLines(double deviation, Visit visit) const;

private:
    void add(Step step, const OdGePoint2d& point)
    {
        m_steps.push_back(step);
        m_points.push_back(point);
    }

    std::vector<Step> m_steps;
    std::vector<OdGePoint2d> m_points;
};

/// Part of a curve, t from 0 to 1, that begins at start and has these three further points.
OdGePoint2d pointOnCurve(const OdGePoint2d& start, const OdGePoint2d* controls, double t);
/// How many lines of even steps stand for it.
int stepsOfCurve(const OdGePoint2d& start, const OdGePoint2d* controls, double deviation);

template<class Visit>
void Path::visitLines(double deviation, Visit visit) const
{
    const OdGePoint2d* point = m_points.data();
    OdGePoint2d first;
    OdGePoint2d last;
    for (const Step step : m_steps)
    {
        const OdGePoint2d start = last;
        switch (step)
        {
        case Step::kMove:
            first = last = *point++;
            break;
        case Step::kLine:
            last = *point++;
            visit(start, last);
            break;
        case Step::kCurve:
            for (int i = 1, steps = stepsOfCurve(start, point, deviation); i <= steps; ++i)
            {
                const OdGePoint2d next = pointOnCurve(start, point, static_cast<double>(i) / steps);
                visit(last, next);
                last = next;
            }
            point += 3;
            break;
        case Step::kClose:
            visit(last, first);
            last = first;
            break;
        }
    }
}

} // namespace render
