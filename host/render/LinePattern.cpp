// Implements the cutting of lines into dashes.
#include "render/LinePattern.h"

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

/// How much of the first dash is left out, so that both ends of the line have as much of it; negative for a line that
/// is to be drawn whole.
double startWithin(const LinePattern& pattern, double length)
{
    const double first = pattern.lengths.front();
    if (first <= 0.0)
        return 0.0;
    const double repeats = std::ceil((length - first) / pattern.total);
    return repeats < 1.0 ? -1.0 : first - (length - repeats * pattern.total + first) / 2.0;
}

} // namespace

void addDashes(const std::vector<OdGePoint2d>& line, bool isClosed, const LinePattern& pattern, Path& dashes)
{
    constexpr double kMostRepeats = 100000.0;
    const double length = lengthOf(line);
    double skipped = isClosed ? 0.0 : startWithin(pattern, length);
    if (skipped < 0.0 || !(length / pattern.total < kMostRepeats))
        return addWhole(line, dashes);
    Walker walker(line);
    for (std::size_t i = 0; !walker.isAtEnd(); i = (i + 1) % pattern.lengths.size())
    {
        const double step = std::fabs(pattern.lengths[i]) - skipped;
        skipped = 0.0;
        const bool isGap = pattern.lengths[i] < 0.0;
        if (!isGap)
            dashes.moveTo(walker.place());
        if (!isGap && step <= 0.0)
            dashes.lineTo(walker.place());
        walker.go(step, isGap ? nullptr : &dashes);
    }
}

} // namespace render
