// Breaks the contents of a multi-line text into lines and pieces of one look, and gives each its place.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Ge/GeExtents2d.h"
#include "entities/MTextLook.h"

namespace mtext
{

/// Columns side by side, which lines fill one after the other.
struct Columns
{
    int count = 1;
    double gutter = 0.0;
    std::vector<double> heights; ///< of the columns, 0 for as many lines as come; the last one counts for those behind
    bool isReversed = false;     ///< the first column is the rightmost one

    double heightOf(int column) const;
};

/// What the whole text is set in.
struct Style
{
    OdGiTextStyle text; ///< font, width factor and slant; its size counts for nothing
    double height = 1.0;
    double width = 0.0; ///< where lines are broken, 0 for nowhere
    double spacingFactor = 1.0;
    bool exactSpacing = false;              ///< high characters do not move lines apart
    Columns columns;                        ///< each as wide as width
    Alignment alignment = Alignment::kLeft; ///< of paragraphs that have none of their own
};

/// Characters of one look within a line. The place is the start of their base line, x from the left edge and y upward
/// from the top edge of the text.
struct Run
{
    std::wstring characters;
    double x = 0.0;
    double y = 0.0;
    double width = 0.0; ///< of all its characters
    Look look;
};

/// The line between the parts of a fraction.
struct Bar
{
    OdGePoint2d start;
    OdGePoint2d end;
    Look look;
};

struct Layout
{
    std::vector<OdGiTextStyle> fonts; ///< of which looks name one
    std::vector<Run> runs;
    std::vector<Bar> bars;
    std::size_t lines = 0;
    double frame = 0.0;  ///< the width that lines are aligned in
    double width = 0.0;  ///< of the widest line
    double height = 0.0; ///< from the top of the first line to the lowest point of the last, in the highest column
};

/// Lays out contents; takes time in proportion to their length.
Layout layOut(std::wstring_view contents, const Style& style);

/// The style to draw a run of the layout in.
OdGiTextStyle styleOf(const Layout& layout, const Look& look);

/// What is seen of a layout, from its left and top edge; invalid when there is nothing to see.
OdGeExtents2d inkOf(const Layout& layout);

} // namespace mtext
