// Breaks the contents of a multi-line text into lines and pieces of one look, and gives each its place.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mtext
{

/// What the whole text is set in.
struct Style
{
    double height = 1.0;
    double width = 0.0; ///< where lines are broken, 0 for nowhere
    double spacingFactor = 1.0;
    bool exactSpacing = false; ///< high characters do not move lines apart
    double widthFactor = 1.0;
    double oblique = 0.0; ///< radians
};

/// Characters of one look within a line. The place is the start of their base line, x from the left edge and y upward
/// from the top edge of the text.
struct Run
{
    std::wstring characters;
    double x = 0.0;
    double y = 0.0;
    double height = 0.0;
    double widthFactor = 1.0;
    double oblique = 0.0;
    double width = 0.0; ///< of all its characters
};

/// One line: its runs, and the part of the width that its visible characters take.
struct LineOfRuns
{
    std::vector<Run> runs;
    double width = 0.0;
    double height = 0.0; ///< of its highest characters
};

struct Layout
{
    std::vector<LineOfRuns> lines;
    double width = 0.0;  ///< of the widest line
    double height = 0.0; ///< from the top of the first line to the base line of the last
};

/// Lays out contents; takes time in proportion to their length.
Layout layOut(std::wstring_view contents, const Style& style);

} // namespace mtext
