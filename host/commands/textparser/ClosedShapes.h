// Recognises rectangles, circles and ovals in polylines and lines.
#pragma once

#include <optional>
#include <vector>

#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "commands/textparser/FoundTexts.h"

namespace textparser
{

// The vertices of a shape that can be recognised, with one that repeats the first.
constexpr unsigned kMostVertices = 5;

// One vertex of a polyline in the polyline's own plane, with the bulge of the segment that begins there.
struct OutlineVertex
{
    OdGePoint2d point;
    double bulge = 0.0;
};

// The frame that a closed polyline draws, in its own plane: four lines at right angles are a rectangle, two half
// circles a circle, two lines and two half circles in turn an oval. The last vertex may repeat the first one.
std::optional<Frame> recognizeOutline(std::vector<OutlineVertex> vertices);

// Joins single lines to rectangles where exactly two of them meet in each of four corners.
class LineRectangles
{
public:
    void add(const OdGePoint2d& start, const OdGePoint2d& end);

    // Appends the rectangles to frames and forgets all lines.
    void close(std::vector<Frame>& frames);

private:
    struct Segment
    {
        OdGePoint2d points[2];
    };

    std::vector<Segment> m_segments;

    friend class RectangleWalk;
};

} // namespace textparser
