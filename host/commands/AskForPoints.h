// Asks a user for the points of the shape that is selected with.
#pragma once

#include <vector>

#include "DbSSet.h"
#include "DbUserIO.h"

namespace hostcommands
{

// One point, two corners, or as many as the user gives before an empty answer. Returns none when the user gives too few
// for the mode. What is no point is complained of and asked again. Throws OdEdCancel.
std::vector<OdGePoint3d> askForPoints(OdDbUserIO& user, OdDbVisualSelection::Mode mode);

} // namespace hostcommands
