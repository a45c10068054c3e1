// Recognises rectangles, circles and ovals in polylines and lines.
#include "commands/textparser/ClosedShapes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace textparser
{

namespace
{

constexpr double kTolerance = 1e-4;         // relative to the size of a shape
constexpr double kGrid = 1e-6;              // ends of lines that fall into one cell of this size meet
constexpr double kGreatestCoordinate = 1e9; // cells farther out have no number

OdGeVector2d between(const OdGePoint2d& from, const OdGePoint2d& to)
{
    return OdGeVector2d(to.x - from.x, to.y - from.y);
}

OdGeVector2d half(const OdGeVector2d& vector)
{
    return OdGeVector2d(vector.x / 2.0, vector.y / 2.0);
}

double lengthOf(const OdGeVector2d& vector)
{
    return std::hypot(vector.x, vector.y);
}

OdGePoint2d middleOf(const OdGePoint2d& first, const OdGePoint2d& second)
{
    return OdGePoint2d((first.x + second.x) / 2.0, (first.y + second.y) / 2.0);
}

bool areSame(const OdGePoint2d& first, const OdGePoint2d& second, double size)
{
    return lengthOf(between(first, second)) <= kTolerance * size;
}

bool isStraight(double bulge)
{
    return std::abs(bulge) <= kTolerance;
}

bool isHalfCircle(double bulge)
{
    return std::abs(std::abs(bulge) - 1.0) <= kTolerance * 10.0;
}

// Four points in turn at right angles.
bool areCornersOfRectangle(const OdGePoint2d& a, const OdGePoint2d& b, const OdGePoint2d& c, const OdGePoint2d& d)
{
    const OdGeVector2d first = between(a, b);
    const OdGeVector2d second = between(b, c);
    const double size = std::max(lengthOf(first), lengthOf(second));
    const double smaller = std::min(lengthOf(first), lengthOf(second));
    if (!(smaller > kTolerance * size) || !std::isfinite(size))
        return false;
    const double cosine = (first.x * second.x + first.y * second.y) / (lengthOf(first) * lengthOf(second));
    return std::abs(cosine) <= kTolerance * 10.0 && areSame(middleOf(a, c), middleOf(b, d), smaller);
}

Frame rectangleOf(const OdGePoint2d& a, const OdGePoint2d& b, const OdGePoint2d& c)
{
    Frame frame;
    frame.kind = FrameKind::kRectangle;
    frame.outline = Frame::kParallelogram;
    frame.center = middleOf(a, c);
    frame.along = half(between(a, b));
    frame.across = half(between(b, c));
    return frame;
}

std::optional<Frame> recognizeCircle(const std::vector<OutlineVertex>& vertices)
{
    const OdGeVector2d radius = half(between(vertices[0].point, vertices[1].point));
    if (!isHalfCircle(vertices[0].bulge) || !isHalfCircle(vertices[1].bulge) ||
        vertices[0].bulge * vertices[1].bulge < 0.0 || lengthOf(radius) == 0.0)
        return std::nullopt;
    Frame frame;
    frame.kind = FrameKind::kCircle;
    frame.outline = Frame::kEllipse;
    frame.center = middleOf(vertices[0].point, vertices[1].point);
    frame.along = radius;
    frame.across = OdGeVector2d(-radius.y, radius.x);
    return frame;
}

// Lines from a to b and from c to d, half circles from b to c and from d to a.
std::optional<Frame> recognizeStadium(const OutlineVertex& a, const OutlineVertex& b, const OutlineVertex& c,
                                      const OutlineVertex& d)
{
    if (!isStraight(a.bulge) || !isStraight(c.bulge) || !isHalfCircle(b.bulge) || !isHalfCircle(d.bulge))
        return std::nullopt;
    const OdGeVector2d line = half(between(a.point, b.point));
    const OdGeVector2d across = half(between(b.point, c.point));
    const double turn = line.x * across.y - line.y * across.x;
    const bool bulgesOutward = turn * b.bulge > 0.0 && turn * d.bulge > 0.0;
    if (!bulgesOutward || !areCornersOfRectangle(a.point, b.point, c.point, d.point))
        return std::nullopt;
    const double stretch = 1.0 + lengthOf(across) / lengthOf(line);
    Frame frame;
    frame.kind = FrameKind::kOval;
    frame.outline = Frame::kStadium;
    frame.center = middleOf(a.point, c.point);
    frame.along = OdGeVector2d(line.x * stretch, line.y * stretch);
    frame.across = across;
    return frame;
}

std::optional<Frame> recognizeFourVertices(const std::vector<OutlineVertex>& v)
{
    const auto straight = [](const OutlineVertex& vertex) { return isStraight(vertex.bulge); };
    if (std::all_of(v.begin(), v.end(), straight))
    {
        if (!areCornersOfRectangle(v[0].point, v[1].point, v[2].point, v[3].point))
            return std::nullopt;
        return rectangleOf(v[0].point, v[1].point, v[2].point);
    }
    if (const std::optional<Frame> stadium = recognizeStadium(v[0], v[1], v[2], v[3]))
        return stadium;
    return recognizeStadium(v[1], v[2], v[3], v[0]);
}

bool hasCell(const OdGePoint2d& point)
{
    return std::abs(point.x) < kGreatestCoordinate && std::abs(point.y) < kGreatestCoordinate;
}

struct Cell
{
    std::int64_t x = 0;
    std::int64_t y = 0;

    bool operator==(const Cell&) const = default;
};

struct CellHash
{
    std::size_t operator()(const Cell& cell) const
    {
        const auto mixed = std::uint64_t(cell.x) * 0x9E3779B97F4A7C15u ^ std::uint64_t(cell.y) * 0xC2B2AE3D27D4EB4Fu;
        return std::size_t(mixed ^ mixed >> 29);
    }
};

Cell cellOf(const OdGePoint2d& point)
{
    return {std::llround(point.x / kGrid), std::llround(point.y / kGrid)};
}

// The lines that end in one place.
struct Corner
{
    std::size_t lines[2] = {};
    std::size_t count = 0;
};

} // namespace

std::optional<Frame> recognizeOutline(std::vector<OutlineVertex> vertices)
{
    if (vertices.size() > kMostVertices)
        return std::nullopt;
    if (vertices.size() > 2)
    {
        const double size = lengthOf(between(vertices[0].point, vertices[1].point));
        if (areSame(vertices.front().point, vertices.back().point, size))
            vertices.pop_back();
    }
    if (vertices.size() == 2)
        return recognizeCircle(vertices);
    if (vertices.size() == 4)
        return recognizeFourVertices(vertices);
    return std::nullopt;
}

// Follows lines from corner to corner.
class RectangleWalk
{
public:
    explicit RectangleWalk(const std::vector<LineRectangles::Segment>& segments)
        : m_segments(segments), m_used(segments.size(), false)
    {
        m_corners.reserve(segments.size() * 2);
        for (std::size_t line = 0; line < segments.size(); ++line)
            for (const OdGePoint2d& point : segments[line].points)
                addToCorner(point, line);
    }

    void walkFrom(std::size_t line, std::vector<Frame>& frames)
    {
        if (m_used[line])
            return;
        std::size_t path[4] = {line};
        OdGePoint2d points[5] = {m_segments[line].points[0], m_segments[line].points[1]};
        for (int step = 1; step < 4; ++step)
        {
            const Corner& corner = m_corners[cellOf(points[step])];
            if (corner.count != 2)
                return;
            path[step] = corner.lines[0] == path[step - 1] ? corner.lines[1] : corner.lines[0];
            points[step + 1] = otherEnd(path[step], points[step]);
        }
        const bool isClosed = cellOf(points[4]) == cellOf(points[0]) && m_corners[cellOf(points[0])].count == 2;
        if (!isClosed || !areCornersOfRectangle(points[0], points[1], points[2], points[3]))
            return;
        for (const std::size_t side : path)
            m_used[side] = true;
        frames.push_back(rectangleOf(points[0], points[1], points[2]));
    }

private:
    void addToCorner(const OdGePoint2d& point, std::size_t line)
    {
        Corner& corner = m_corners[cellOf(point)];
        if (corner.count < 2)
            corner.lines[corner.count] = line;
        ++corner.count;
    }

    const OdGePoint2d& otherEnd(std::size_t line, const OdGePoint2d& end) const
    {
        const LineRectangles::Segment& segment = m_segments[line];
        return cellOf(segment.points[0]) == cellOf(end) ? segment.points[1] : segment.points[0];
    }

    const std::vector<LineRectangles::Segment>& m_segments;
    std::vector<bool> m_used;
    std::unordered_map<Cell, Corner, CellHash> m_corners;
};

void LineRectangles::add(const OdGePoint2d& start, const OdGePoint2d& end)
{
    if (hasCell(start) && hasCell(end))
        m_segments.push_back({{start, end}});
}

void LineRectangles::close(std::vector<Frame>& frames)
{
    if (m_segments.size() >= 4)
    {
        RectangleWalk walk(m_segments);
        for (std::size_t line = 0; line < m_segments.size(); ++line)
            walk.walkFrom(line, frames);
    }
    m_segments.clear();
}

} // namespace textparser
