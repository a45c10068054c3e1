// Places in the plane.
#pragma once

#include "Ge/GeVector2d.h"
#include "OdArray.h"

/** An OdGePoint2d is a place in the plane. It is a plain value. */
class OdGePoint2d
{
public:
    static const OdGePoint2d kOrigin;

    constexpr OdGePoint2d() = default;
    constexpr OdGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    OdGePoint2d& set(double xx, double yy) { return *this = OdGePoint2d(xx, yy); }
    double operator[](unsigned int i) const { return i == 0 ? x : y; }
    double& operator[](unsigned int i) { return i == 0 ? x : y; }
    constexpr OdGeVector2d asVector() const { return {x, y}; }

    constexpr OdGePoint2d operator+(const OdGeVector2d& vector) const { return {x + vector.x, y + vector.y}; }
    constexpr OdGePoint2d operator-(const OdGeVector2d& vector) const { return {x - vector.x, y - vector.y}; }
    constexpr OdGeVector2d operator-(const OdGePoint2d& other) const { return {x - other.x, y - other.y}; }
    constexpr OdGePoint2d operator*(double factor) const { return {x * factor, y * factor}; }
    constexpr OdGePoint2d operator/(double divisor) const { return {x / divisor, y / divisor}; }
    OdGePoint2d& operator+=(const OdGeVector2d& vector) { return *this = *this + vector; }
    OdGePoint2d& operator-=(const OdGeVector2d& vector) { return *this = *this - vector; }
    OdGePoint2d& operator*=(double factor) { return *this = *this * factor; }
    OdGePoint2d& transformBy(const OdGeMatrix2d& xform);
    OdGePoint2d& rotateBy(double angle, const OdGePoint2d& center = kOrigin);

    double distanceTo(const OdGePoint2d& other) const { return (*this - other).length(); }
    double distanceSqrdTo(const OdGePoint2d& other) const { return (*this - other).lengthSqrd(); }
    bool isEqualTo(const OdGePoint2d& other, const OdGeTol& tol = OdGeContext::gTol) const
    {
        return distanceTo(other) <= tol.equalPoint();
    }
    bool operator==(const OdGePoint2d& other) const { return isEqualTo(other); }
    bool operator!=(const OdGePoint2d& other) const { return !isEqualTo(other); }

    double x = 0.0;
    double y = 0.0;
};

inline OdGePoint2d OdGeVector2d::asPoint() const
{
    return {x, y};
}

using OdGePoint2dArray = OdArray<OdGePoint2d, OdMemoryAllocator<OdGePoint2d>>;
