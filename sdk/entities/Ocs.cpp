// Implements the rule for the x axis of a flat entity.
#include "entities/Ocs.h"

#include "OdaDefs.h"

namespace ocs
{

namespace
{

/// Normals whose x and y are both below this count as nearly parallel to the world's z axis.
constexpr double kNearZ = 1.0 / 64.0;

} // namespace

double sweepOf(double start, double end)
{
    constexpr double kRounding = 1e-10;
    const double sweep = std::fmod(end - start, Oda2PI);
    return sweep > kRounding ? sweep : sweep < -kRounding ? sweep + Oda2PI : Oda2PI;
}

Frame frameOf(const OdGeVector3d& normal)
{
    const double length = std::sqrt(normal.x * normal.x + normal.y * normal.y + normal.z * normal.z);
    if (!std::isfinite(length) || length < 1e-12)
        return {};
    if (normal.x == 0.0 && normal.y == 0.0 && normal.z > 0.0)
        return {};
    Frame frame;
    frame.z = normal * (1.0 / length);
    const bool nearZ = std::fabs(frame.z.x) < kNearZ && std::fabs(frame.z.y) < kNearZ;
    const OdGeVector3d reference = nearZ ? OdGeVector3d(0.0, 1.0, 0.0) : OdGeVector3d(0.0, 0.0, 1.0);
    const OdGeVector3d x = reference.crossProduct(frame.z);
    frame.x = x * (1.0 / std::sqrt(x.dotProduct(x)));
    frame.y = frame.z.crossProduct(frame.x);
    return frame;
}

} // namespace ocs
