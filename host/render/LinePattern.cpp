// Implements the cutting of lines into dashes.
#include "render/LinePattern.h"

#include <algorithm>
#include <cmath>

namespace render
{

namespace
{

double lengthOf(const std::vector<OdGePoint2d>& line)
{
    double length = 0.0;
    for (std::size_t i = 1; i < line.size(); ++i)
        length += line[i - 1].distanceTo(line[i]);
    return length;
}

void addWhole(const std::vector<OdGePoint2d>& line, Path& dashes)
{
    for (std::size_t i = 0; i < line.size(); ++i)
        i == 0 ? dashes.moveTo(line[i]) : dashes.lineTo(line[i]);
}

/// Walks along a line.
class Walker
{
public:
    explicit Walker(const std::vector<OdGePoint2d>& line) : m_line(line), m_rest(restOfPiece()) {}

    bool isAtEnd() const { return m_piece + 1 >= m_line.size(); }

    OdGePoint2d place() const
    {
        if (isAtEnd())
            return m_line.back();
        const OdGePoint2d& from = m_line[m_piece];
        const OdGePoint2d& to = m_line[m_piece + 1];
        const double length = from.distanceTo(to);
        return length > 0.0 ? to - (to - from) * (m_rest / length) : to;
    }

    /// Goes on by a length, and adds lines to what is passed when there is a path.
    void go(double length, Path* path)
    {
        while (!isAtEnd() && length >= m_rest)
        {
            length -= m_rest;
            ++m_piece;
            if (path)
                path->lineTo(m_line[m_piece]);
            m_rest = restOfPiece();
        }
        m_rest -= length;
        if (path && !isAtEnd() && length > 0.0)
            path->lineTo(place());
    }

private:
    double restOfPiece() const { return isAtEnd() ? 0.0 : m_line[m_piece].distanceTo(m_line[m_piece + 1]); }

    const std::vector<OdGePoint2d>& m_line;
    std::size_t m_piece = 0;
    double m_rest;
};

/// An open line begins and ends with a dash. Both are as long, at least half a dash, and take what the repeats leave.
struct Ends
{
    double repeats = 0.0; ///< of the pattern; none for a line that is too short for one
    double dash = 0.0;    ///< length of the first dash and of the last
};

Ends endsOf(const LinePattern& pattern, double length)
{
    Ends ends;
    ends.repeats = std::floor(length / pattern.total + 1e-9);
    ends.dash = std::max((length - ends.repeats * pattern.total + pattern.lengths.front()) / 2.0, 0.0);
    return ends;
}

} // namespace

void addDashes(const std::vector<OdGePoint2d>& line, bool isClosed, const LinePattern& pattern, Path& dashes)
{
    constexpr double kMostRepeats = 100000.0;
    const double length = lengthOf(line);
    const bool hasEnds = !isClosed && pattern.lengths.front() > 0.0;
    const Ends ends = hasEnds ? endsOf(pattern, length) : Ends{1.0, pattern.lengths.front()};
    if (ends.repeats < 1.0 || !(length / pattern.total < kMostRepeats))
        return addWhole(line, dashes);
    Walker walker(line);
    double repeats = ends.repeats;
    double step = ends.dash;
    for (std::size_t i = 0; !walker.isAtEnd();)
    {
        const bool isGap = pattern.lengths[i] < 0.0;
        if (!isGap)
            dashes.moveTo(walker.place());
        if (!isGap && step <= 0.0)
            dashes.lineTo(walker.place());
        walker.go(std::fabs(step), isGap ? nullptr : &dashes);
        i = (i + 1) % pattern.lengths.size();
        repeats -= i == 0 ? 1.0 : 0.0;
        const bool isLast = hasEnds && i == 0 && repeats < 0.5;
        step = isLast ? 2.0 * length : pattern.lengths[i];
    }
}

} // namespace render
