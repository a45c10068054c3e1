// Implements the lines of hatches. Outlines are turned so that the lines run along the x axis; each side of an outline
// then gives the lines that it crosses the places where they enter or leave the area.
#include "entities/HatchPattern.h"

#include <algorithm>
#include <cmath>

#include "OdaDefs.h"

namespace hatchpattern
{

namespace
{

using oddb::GroupView;

constexpr double kMostLines = 50000.0;
constexpr std::size_t kMostCrossings = 2000000;
constexpr std::size_t kMostDashes = 300000;

void takeGroup(std::vector<Lines>& pattern, const GroupView& group)
{
    if (group.code() == 53)
        pattern.emplace_back().angle = OdaToRadian(group.real());
    if (pattern.empty())
        return;
    Lines& lines = pattern.back();
    switch (group.code())
    {
    case 43:
        lines.base.x = group.real();
        break;
    case 44:
        lines.base.y = group.real();
        break;
    case 45:
        lines.offset.x = group.real();
        break;
    case 46:
        lines.offset.y = group.real();
        break;
    case 49:
        lines.dashes.push_back(group.real());
        break;
    default:
        break;
    }
}

class Filler
{
public:
    Filler(const Lines& lines, double finest, const Draw& draw)
        : m_lines(lines), m_draw(draw), m_along(std::cos(lines.angle), std::sin(lines.angle)),
          m_across(-m_along.y, m_along.x), m_step(lines.offset.dotProduct(m_across)),
          m_shift(lines.offset.dotProduct(m_along)), m_finest(finest)
    {
        for (const double dash : lines.dashes)
            m_period += std::fabs(dash);
    }

    bool fill(const hatcharea::Part& part);

private:
    /// A place along a line and across the lines, the latter in lines from the one through the base point.
    OdGePoint2d turned(const OdGePoint2d& point) const
    {
        const OdGeVector2d from = point - m_lines.base;
        return {from.dotProduct(m_along), from.dotProduct(m_across) / m_step};
    }
    OdGePoint2d place(double along, double line) const
    {
        return m_lines.base + m_along * along + m_across * (line * m_step);
    }

    bool cross(const OdGePoint2d& from, const OdGePoint2d& to);
    bool drawLine(std::size_t index);
    bool drawBetween(double from, double to, double line);
    bool drawDash(double from, double to, double line);

    const Lines& m_lines;
    const Draw& m_draw;
    OdGeVector2d m_along;
    OdGeVector2d m_across;
    double m_step;
    double m_shift;
    double m_finest;
    double m_period = 0.0;
    double m_firstLine = 0.0;
    std::vector<std::vector<double>> m_crossings; ///< by line
    std::size_t m_crossingCount = 0;
    std::size_t m_dashes = 0;
};

bool Filler::fill(const hatcharea::Part& part)
{
    if (!std::isfinite(m_step) || !std::isfinite(m_shift) || !(std::fabs(m_step) > m_finest) || m_step == 0.0)
        return false;
    double lowest = 1e300;
    double highest = -1e300;
    for (const hatcharea::Outline& outline : part)
    {
        for (const OdGePoint2d& point : outline)
        {
            const double line = turned(point).y;
            lowest = std::min(lowest, line);
            highest = std::max(highest, line);
        }
    }
    m_firstLine = std::ceil(lowest);
    const double count = std::floor(highest) - m_firstLine + 1.0;
    if (!(count >= 1.0))
        return true;
    if (!(count <= kMostLines))
        return false;
    m_crossings.resize(static_cast<std::size_t>(count));
    for (const hatcharea::Outline& outline : part)
    {
        for (std::size_t i = 0; i < outline.size(); ++i)
        {
            if (!cross(turned(outline[i]), turned(outline[(i + 1) % outline.size()])))
                return false;
        }
    }
    for (std::size_t i = 0; i < m_crossings.size(); ++i)
    {
        if (!drawLine(i))
            return false;
    }
    return true;
}

/// Notes where a side crosses lines; a side belongs to its lower end but not to its upper one.
bool Filler::cross(const OdGePoint2d& from, const OdGePoint2d& to)
{
    const OdGePoint2d& low = from.y <= to.y ? from : to;
    const OdGePoint2d& high = from.y <= to.y ? to : from;
    const double first = std::max(std::ceil(low.y), m_firstLine);
    for (double line = first; line < high.y; line += 1.0)
    {
        const auto index = static_cast<std::size_t>(line - m_firstLine);
        if (index >= m_crossings.size())
            break;
        m_crossings[index].push_back(low.x + (high.x - low.x) * ((line - low.y) / (high.y - low.y)));
        if (++m_crossingCount > kMostCrossings)
            return false;
    }
    return true;
}

bool Filler::drawLine(std::size_t index)
{
    std::vector<double>& places = m_crossings[index];
    std::sort(places.begin(), places.end());
    for (std::size_t i = 0; i + 1 < places.size(); i += 2)
    {
        if (places[i + 1] > places[i] &&
            !drawBetween(places[i], places[i + 1], m_firstLine + static_cast<double>(index)))
            return false;
    }
    return true;
}

bool Filler::drawDash(double from, double to, double line)
{
    m_draw(place(from, line), place(to, line));
    return ++m_dashes <= kMostDashes;
}

bool Filler::drawBetween(double from, double to, double line)
{
    if (!(m_period > 0.0))
        return drawDash(from, to, line);
    if (m_period <= m_finest)
        return false;
    const double start = m_shift * line;
    double at = start + std::floor((from - start) / m_period) * m_period;
    for (std::size_t i = 0; at <= to; i = (i + 1) % m_lines.dashes.size())
    {
        const double dash = m_lines.dashes[i];
        const double end = at + std::fabs(dash);
        if (dash >= 0.0 && end >= from && !drawDash(std::max(at, from), std::min(end, to), line))
            return false;
        at = end;
    }
    return true;
}

} // namespace

std::vector<Lines> readPattern(const oddb::Groups& groups, oddb::Atom marker)
{
    std::vector<Lines> pattern;
    bool inside = false;
    bool counted = false;
    for (const GroupView& group : groups)
    {
        if (group.beginsSection())
            inside = group.code() == 100 && group.atom() == marker;
        counted = inside && (counted || group.code() == 78) && group.code() != 98 && group.code() != 47;
        if (counted)
            takeGroup(pattern, group);
    }
    return pattern;
}

bool drawLines(const Lines& lines, const hatcharea::Part& part, double finest, const Draw& draw)
{
    return Filler(lines, finest, draw).fill(part);
}

} // namespace hatchpattern
