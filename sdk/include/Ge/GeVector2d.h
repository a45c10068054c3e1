// Directions and distances in the plane.
#pragma once

#include <cmath>

#include "Ge/GeTol.h"
#include "OdPlatform.h"

class OdGeMatrix2d;
class OdGePoint2d;

/** An OdGeVector2d is a direction with a length in the plane. It is a plain value. */
class OdGeVector2d
{
public:
    static const OdGeVector2d kIdentity;
    static const OdGeVector2d kXAxis;
    static const OdGeVector2d kYAxis;

    constexpr OdGeVector2d() = default;
    constexpr OdGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    OdGeVector2d& set(double xx, double yy) { return *this = OdGeVector2d(xx, yy); }
    double operator[](unsigned int i) const { return i == 0 ? x : y; }
    double& operator[](unsigned int i) { return i == 0 ? x : y; }
    OdGePoint2d asPoint() const;

    constexpr OdGeVector2d operator-() const { return {-x, -y}; }
    constexpr OdGeVector2d operator+(const OdGeVector2d& other) const { return {x + other.x, y + other.y}; }
    constexpr OdGeVector2d operator-(const OdGeVector2d& other) const { return {x - other.x, y - other.y}; }
    constexpr OdGeVector2d operator*(double factor) const { return {x * factor, y * factor}; }
    constexpr OdGeVector2d operator/(double divisor) const { return {x / divisor, y / divisor}; }
    OdGeVector2d& operator+=(const OdGeVector2d& other) { return *this = *this + other; }
    OdGeVector2d& operator-=(const OdGeVector2d& other) { return *this = *this - other; }
    OdGeVector2d& operator*=(double factor) { return *this = *this * factor; }
    OdGeVector2d& operator/=(double divisor) { return *this = *this / divisor; }
    OdGeVector2d& negate() { return *this = -*this; }

    double length() const { return std::hypot(x, y); }
    constexpr double lengthSqrd() const { return x * x + y * y; }
    constexpr double dotProduct(const OdGeVector2d& other) const { return x * other.x + y * other.y; }
    /** The third component of the product of the vectors in space. */
    constexpr double crossProduct(const OdGeVector2d& other) const { return x * other.y - y * other.x; }

    /** The vector of length 1 in this direction; a vector of (nearly) no length stays as it is. */
    OdGeVector2d normal(const OdGeTol& tol = OdGeContext::gTol) const;
    OdGeVector2d& normalize(const OdGeTol& tol = OdGeContext::gTol) { return *this = normal(tol); }
    /** Turned by a quarter, counter-clockwise. */
    constexpr OdGeVector2d perpVector() const { return {-y, x}; }

    /** The angle from the x axis, counter-clockwise: from 0 up to 2 pi. */
    double angle() const;
    /** The angle between the vectors, from 0 to pi. */
    double angleTo(const OdGeVector2d& other) const;
    /** The angle to turn counter-clockwise from this vector to the other: from 0 up to 2 pi. */
    double angleToCCW(const OdGeVector2d& other) const;
    OdGeVector2d& rotateBy(double angle);
    OdGeVector2d& transformBy(const OdGeMatrix2d& xform);

    bool isZeroLength(const OdGeTol& tol = OdGeContext::gTol) const { return length() <= tol.equalVector(); }
    bool isUnitLength(const OdGeTol& tol = OdGeContext::gTol) const
    {
        return std::fabs(length() - 1.0) <= tol.equalVector();
    }
    bool isEqualTo(const OdGeVector2d& other, const OdGeTol& tol = OdGeContext::gTol) const
    {
        return (*this - other).length() <= tol.equalVector();
    }
    bool operator==(const OdGeVector2d& other) const { return isEqualTo(other); }
    bool operator!=(const OdGeVector2d& other) const { return !isEqualTo(other); }

    double x = 0.0;
    double y = 0.0;
};

constexpr OdGeVector2d operator*(double factor, const OdGeVector2d& vector)
{
    return vector * factor;
}
