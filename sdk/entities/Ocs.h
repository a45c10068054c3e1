// The coordinate system of a flat entity: its z axis is the entity's normal, its x axis follows from the normal alone,
// by the rule that all drawing files use, and its origin is the world's.
#pragma once

#include <cmath>

#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"

namespace ocs
{

struct Frame
{
    OdGeVector3d x{1.0, 0.0, 0.0};
    OdGeVector3d y{0.0, 1.0, 0.0};
    OdGeVector3d z{0.0, 0.0, 1.0};

    OdGeVector3d toWorld(const OdGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    OdGePoint3d toWorld(const OdGePoint3d& p) const
    {
        return OdGePoint3d(x.x * p.x + y.x * p.y + z.x * p.z, x.y * p.x + y.y * p.y + z.y * p.z,
                           x.z * p.x + y.z * p.y + z.z * p.z);
    }
    OdGeVector3d fromWorld(const OdGeVector3d& v) const
    {
        return OdGeVector3d(x.dotProduct(v), y.dotProduct(v), z.dotProduct(v));
    }
    OdGePoint3d fromWorld(const OdGePoint3d& p) const
    {
        const OdGeVector3d local = fromWorld(OdGeVector3d(p.x, p.y, p.z));
        return OdGePoint3d(local.x, local.y, local.z);
    }
    /// The direction in the plane at this angle from the x axis, in world coordinates.
    OdGeVector3d direction(double angle) const { return x * std::cos(angle) + y * std::sin(angle); }
    /// The angle from the x axis of a world direction's part in the plane.
    double angleOf(const OdGeVector3d& direction) const
    {
        return std::atan2(y.dotProduct(direction), x.dotProduct(direction));
    }
};

/// How far a curve runs from start counter-clockwise to end, in radians, in (0, 2 pi]: equal angles, and those that
/// differ by no more than the rounding of a file, are a full turn.
double sweepOf(double start, double end);

/// The frame of a normal. A normal that is zero or not finite counts as the world's z axis.
Frame frameOf(const OdGeVector3d& normal);

} // namespace ocs
