// Lines cut into the dashes, gaps and dots of a linetype.
#pragma once

#include <vector>

#include "render/Path.h"

namespace render
{

/// Lengths in pixels: dashes positive, gaps negative, dots zero.
struct LinePattern
{
    std::vector<double> lengths;
    double total = 0.0;

    /// False for a pattern too fine to be seen, whose lines are drawn whole.
    bool isVisible() const { return total >= 2.5; }
};

/// Adds the dashes of one line. An open line begins and ends with a dash, as long at both ends; one that is too short
/// for a whole pattern is drawn whole. A dot becomes a line without length.
void addDashes(const std::vector<OdGePoint2d>& line, bool isClosed, const LinePattern& pattern, Path& dashes);

} // namespace render
