// Smooth curves through given points.
#pragma once

#include <optional>
#include <vector>

#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"

namespace fitcurve
{

/// Points on the cubic spline through the points, which has continuous curvature. Where no tangent is given at an end,
/// the curve is straight there. Fewer than three points are returned as they are.
std::vector<OdGePoint3d> sampleThrough(const std::vector<OdGePoint3d>& points,
                                       const std::optional<OdGeVector3d>& startTangent = std::nullopt,
                                       const std::optional<OdGeVector3d>& endTangent = std::nullopt);

} // namespace fitcurve
