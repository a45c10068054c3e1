// The area that a hatch fills: its loops as rows of points, and which of them count in the hatch's style.
#pragma once

#include <vector>

#include "Ge/GePoint2d.h"
#include "entities/HatchLoops.h"

namespace hatcharea
{

using Outline = std::vector<OdGePoint2d>;

/// What lies within an odd number of the outlines of a part is filled.
using Part = std::vector<Outline>;

/// The loops in the coordinates of the hatch's plane, with at least three points each. Curves are nowhere farther from
/// their lines than deviation, or cut into enough lines for any view when it is 0.
std::vector<Outline> outlinesOf(const std::vector<hatchloops::Loop>& loops, double deviation);

/// The parts of the area in a style: all outlines together in the normal style; in the outer style the outermost ones
/// with those directly within them; the outermost ones alone, each by itself, where what lies within is ignored.
std::vector<Part> partsOf(std::vector<Outline> outlines, int style);

} // namespace hatcharea
