// The lines that a hatch is filled with, as its groups hold them behind their number (78):
//
//   pattern = 78 count, line...
//   line    = 53 angle  43 44 base point  45 46 offset to the next line  79 count, 49 dash...
//
// Angles are in degrees, all lengths as they are drawn; dashes are positive, gaps negative, dots zero.
#pragma once

#include <functional>
#include <vector>

#include "Ge/GeVector2d.h"
#include "db/Groups.h"
#include "entities/HatchArea.h"

namespace hatchpattern
{

/// A family of lines side by side.
struct Lines
{
    double angle = 0.0; ///< radians
    OdGePoint2d base;
    OdGeVector2d offset;
    std::vector<double> dashes; ///< none for lines without gaps
};

std::vector<Lines> readPattern(const oddb::Groups& groups, oddb::Atom marker);

/// Receives the two ends of each dash; a dot has one place for both.
using Draw = std::function<void(const OdGePoint2d&, const OdGePoint2d&)>;

/// Draws the lines that lie in a part of the area. Returns false, with nothing or not all drawn, for lines that are so
/// many that nobody can tell them apart: those that are nearer than finest, or more than a few hundred thousand.
bool drawLines(const Lines& lines, const hatcharea::Part& part, double finest, const Draw& draw);

} // namespace hatchpattern
