// Vectors, points and scales: what is more than a line.
#include <algorithm>
#include <cmath>

#include "Ge/GeMatrix2d.h"
#include "Ge/GeMatrix3d.h"
#include "OdError.h"
#include "OdaDefs.h"

namespace
{

// Brings an angle into 0 up to a full turn; rounding must not give the full turn itself.
double intoTurn(double angle)
{
    const double inTurn = angle < 0.0 ? angle + Oda2PI : angle;
    return inTurn >= Oda2PI ? 0.0 : inTurn;
}

} // namespace

OdGeVector2d OdGeVector2d::normal(const OdGeTol& tol) const
{
    const double size = length();
    return size <= tol.equalVector() ? *this : *this / size;
}

double OdGeVector2d::angle() const
{
    return intoTurn(std::atan2(y, x));
}

double OdGeVector2d::angleTo(const OdGeVector2d& other) const
{
    return std::fabs(std::atan2(crossProduct(other), dotProduct(other)));
}

double OdGeVector2d::angleToCCW(const OdGeVector2d& other) const
{
    return intoTurn(std::atan2(crossProduct(other), dotProduct(other)));
}

OdGeVector2d& OdGeVector2d::rotateBy(double angle)
{
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    return set(x * cosine - y * sine, x * sine + y * cosine);
}

OdGeVector2d& OdGeVector2d::transformBy(const OdGeMatrix2d& xform)
{
    return *this = xform * *this;
}

OdGePoint2d& OdGePoint2d::transformBy(const OdGeMatrix2d& xform)
{
    return *this = xform * *this;
}

OdGePoint2d& OdGePoint2d::rotateBy(double angle, const OdGePoint2d& center)
{
    OdGeVector2d arm = *this - center;
    return *this = center + arm.rotateBy(angle);
}

OdGeVector3d OdGeVector3d::normal(const OdGeTol& tol) const
{
    const double size = length();
    return size <= tol.equalVector() ? *this : *this / size;
}

OdGeVector3d& OdGeVector3d::setLength(double length)
{
    const double present = this->length();
    return present > 0.0 ? *this *= length / present : *this;
}

// A normal this near to the z axis takes the y axis as the helper, so that small errors do not turn the plane.
OdGeVector3d OdGeVector3d::perpVector() const
{
    constexpr double kNear = 1.0 / 64.0;
    const OdGeVector3d unit = normal(OdGeTol(0.0));
    const bool isNearZ = std::fabs(unit.x) < kNear && std::fabs(unit.y) < kNear;
    const OdGeVector3d axis = (isNearZ ? kYAxis : kZAxis).crossProduct(unit);
    return axis.normal(OdGeTol(0.0));
}

double OdGeVector3d::angleTo(const OdGeVector3d& other) const
{
    return std::atan2(crossProduct(other).length(), dotProduct(other));
}

double OdGeVector3d::angleTo(const OdGeVector3d& other, const OdGeVector3d& refVector) const
{
    const double angle = angleTo(other);
    return crossProduct(other).dotProduct(refVector) < 0.0 ? intoTurn(Oda2PI - angle) : angle;
}

OdGeVector3d& OdGeVector3d::rotateBy(double angle, const OdGeVector3d& axis)
{
    return transformBy(OdGeMatrix3d::rotation(angle, axis));
}

OdGeVector3d& OdGeVector3d::transformBy(const OdGeMatrix3d& xform)
{
    return *this = xform * *this;
}

OdGeVector3d& OdGeVector3d::mirror(const OdGeVector3d& planeNormal)
{
    const OdGeVector3d unit = planeNormal.normal();
    return *this -= unit * (2.0 * dotProduct(unit));
}

bool OdGeVector3d::isParallelTo(const OdGeVector3d& other, const OdGeTol& tol) const
{
    const OdGeVector3d first = normal(tol);
    const OdGeVector3d second = other.normal(tol);
    return !isZeroLength(tol) && !other.isZeroLength(tol) &&
           (first.isEqualTo(second, tol) || first.isEqualTo(-second, tol));
}

bool OdGeVector3d::isCodirectionalTo(const OdGeVector3d& other, const OdGeTol& tol) const
{
    return isParallelTo(other, tol) && dotProduct(other) > 0.0;
}

bool OdGeVector3d::isPerpendicularTo(const OdGeVector3d& other, const OdGeTol& tol) const
{
    return !isZeroLength(tol) && !other.isZeroLength(tol) &&
           std::fabs(normal(tol).dotProduct(other.normal(tol))) <= tol.equalVector();
}

OdGePoint3d& OdGePoint3d::transformBy(const OdGeMatrix3d& xform)
{
    return *this = xform * *this;
}

OdGePoint3d& OdGePoint3d::rotateBy(double angle, const OdGeVector3d& axis, const OdGePoint3d& center)
{
    return transformBy(OdGeMatrix3d::rotation(angle, axis, center));
}

OdGeScale3d OdGeScale3d::inverse() const
{
    if (sx == 0.0 || sy == 0.0 || sz == 0.0)
        odThrow(eNonInvertibleMatrix);
    return {1.0 / sx, 1.0 / sy, 1.0 / sz};
}

bool OdGeScale3d::isProportional(const OdGeTol& tol) const
{
    const double size = std::fabs(sx);
    return OdEqual(size, std::fabs(sy), tol.equalVector()) && OdEqual(size, std::fabs(sz), tol.equalVector());
}

bool OdGeScale3d::isEqualTo(const OdGeScale3d& other, const OdGeTol& tol) const
{
    return OdEqual(sx, other.sx, tol.equalVector()) && OdEqual(sy, other.sy, tol.equalVector()) &&
           OdEqual(sz, other.sz, tol.equalVector());
}
