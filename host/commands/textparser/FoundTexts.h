// What the text parser finds in a drawing: texts with the boxes that they fill, closed shapes drawn around them, and
// the blocks that both lie in. All coordinates are those of the layout's plane, seen from above.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Ge/GePoint2d.h"
#include "Ge/GeVector2d.h"
#include "OdString.h"

namespace textparser
{

// A box that may be turned: its corners are center ± along ± across.
struct Box
{
    OdGePoint2d center;
    OdGeVector2d along;
    OdGeVector2d across;

    double halfWidth() const;
    double halfHeight() const;
    double left() const { return center.x - halfWidth(); }
    double bottom() const { return center.y - halfHeight(); }
    double top() const { return center.y + halfHeight(); }
};

enum class FrameKind : std::uint8_t
{
    kNone,
    kRectangle,
    kCircle,
    kOval
};

// A text as a reader sees it, in one line: single blanks between its words, none at its ends.
struct FoundText
{
    OdString characters;
    Box box;
    FrameKind frame = FrameKind::kNone;
};

// A closed shape around center. Its outline passes through center ± along and center ± across.
struct Frame
{
    enum Outline : std::uint8_t
    {
        kParallelogram,
        kEllipse,
        kStadium // two straight lines, joined at the ends of along by half circles
    };

    FrameKind kind = FrameKind::kNone;
    Outline outline = kParallelogram;
    OdGePoint2d center;
    OdGeVector2d along;
    OdGeVector2d across;

    double area() const;
    double halfWidth() const;
    double halfHeight() const;
    // True when the box, without a small margin, lies within the outline.
    bool holds(const Box& box) const;
    // False when no box whose center lies in the given one can be held.
    bool mayHoldCentersIn(const Box& centers) const;

private:
    // Distances from the center along the frame's own axes, where the outline passes through 1 on each.
    struct Distances
    {
        double along = 0.0;
        double across = 0.0;
    };
    Distances measure(const OdGeVector2d& offset) const;
    bool isFlat() const;
    bool encloses(const Distances& distances) const;
    bool holds(const OdGePoint2d& point) const;
};

// The given entities, or the content of one block reference. The texts of a scope, with those of the scopes inside it,
// stand one behind the other.
struct Scope
{
    std::size_t firstText = 0;
    std::size_t endText = 0;
    std::vector<Frame> frames;
};

struct FoundTexts
{
    std::vector<FoundText> texts;
    std::vector<Scope> scopes; // those that have both texts and frames
};

} // namespace textparser
