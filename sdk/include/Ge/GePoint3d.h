// Places in space.
#pragma once

#include "Ge/GePoint2d.h"
#include "Ge/GeVector3d.h"
#include "OdArray.h"

/** An OdGePoint3d is a place in space. It is a plain value. */
class OdGePoint3d
{
public:
    static const OdGePoint3d kOrigin;

    constexpr OdGePoint3d() = default;
    constexpr OdGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    constexpr OdGePoint3d(const OdGePoint2d& point, double zz) : x(point.x), y(point.y), z(zz) {}

    OdGePoint3d& set(double xx, double yy, double zz) { return *this = OdGePoint3d(xx, yy, zz); }
    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : z; }
    double& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : z; }
    constexpr OdGeVector3d asVector() const { return {x, y, z}; }
    constexpr OdGePoint2d convert2d() const { return {x, y}; }

    constexpr OdGePoint3d operator+(const OdGeVector3d& vector) const
    {
        return {x + vector.x, y + vector.y, z + vector.z};
    }
    constexpr OdGePoint3d operator-(const OdGeVector3d& vector) const
    {
        return {x - vector.x, y - vector.y, z - vector.z};
    }
    constexpr OdGeVector3d operator-(const OdGePoint3d& other) const { return {x - other.x, y - other.y, z - other.z}; }
    constexpr OdGePoint3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    constexpr OdGePoint3d operator/(double divisor) const { return {x / divisor, y / divisor, z / divisor}; }
    OdGePoint3d& operator+=(const OdGeVector3d& vector) { return *this = *this + vector; }
    OdGePoint3d& operator-=(const OdGeVector3d& vector) { return *this = *this - vector; }
    OdGePoint3d& operator*=(double factor) { return *this = *this * factor; }
    OdGePoint3d& transformBy(const OdGeMatrix3d& xform);
    OdGePoint3d& rotateBy(double angle, const OdGeVector3d& axis, const OdGePoint3d& center = kOrigin);

    double distanceTo(const OdGePoint3d& other) const { return (*this - other).length(); }
    double distanceSqrdTo(const OdGePoint3d& other) const { return (*this - other).lengthSqrd(); }
    bool isEqualTo(const OdGePoint3d& other, const OdGeTol& tol = OdGeContext::gTol) const
    {
        return distanceTo(other) <= tol.equalPoint();
    }
    bool operator==(const OdGePoint3d& other) const { return isEqualTo(other); }
    bool operator!=(const OdGePoint3d& other) const { return !isEqualTo(other); }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline OdGePoint3d OdGeVector3d::asPoint() const
{
    return {x, y, z};
}

using OdGePoint3dArray = OdArray<OdGePoint3d, OdMemoryAllocator<OdGePoint3d>>;
using OdGeVector3dArray = OdArray<OdGeVector3d, OdMemoryAllocator<OdGeVector3d>>;
