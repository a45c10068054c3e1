// Directions and distances in space.
#pragma once

#include <cmath>

#include "Ge/GeTol.h"
#include "Ge/GeVector2d.h"
#include "OdPlatform.h"

class OdGeMatrix3d;
class OdGePoint3d;

/** An OdGeVector3d is a direction with a length in space. It is a plain value. */
class OdGeVector3d
{
public:
    static const OdGeVector3d kIdentity;
    static const OdGeVector3d kXAxis;
    static const OdGeVector3d kYAxis;
    static const OdGeVector3d kZAxis;

    constexpr OdGeVector3d() = default;
    constexpr OdGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    constexpr OdGeVector3d(const OdGeVector2d& vector, double zz) : x(vector.x), y(vector.y), z(zz) {}

    OdGeVector3d& set(double xx, double yy, double zz) { return *this = OdGeVector3d(xx, yy, zz); }
    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : z; }
    double& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : z; }
    OdGePoint3d asPoint() const;
    constexpr OdGeVector2d convert2d() const { return {x, y}; }

    constexpr OdGeVector3d operator-() const { return {-x, -y, -z}; }
    constexpr OdGeVector3d operator+(const OdGeVector3d& other) const
    {
        return {x + other.x, y + other.y, z + other.z};
    }
    constexpr OdGeVector3d operator-(const OdGeVector3d& other) const
    {
        return {x - other.x, y - other.y, z - other.z};
    }
    constexpr OdGeVector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    constexpr OdGeVector3d operator/(double divisor) const { return {x / divisor, y / divisor, z / divisor}; }
    OdGeVector3d& operator+=(const OdGeVector3d& other) { return *this = *this + other; }
    OdGeVector3d& operator-=(const OdGeVector3d& other) { return *this = *this - other; }
    OdGeVector3d& operator*=(double factor) { return *this = *this * factor; }
    OdGeVector3d& operator/=(double divisor) { return *this = *this / divisor; }
    OdGeVector3d& negate() { return *this = -*this; }

    double length() const { return std::hypot(x, y, z); }
    constexpr double lengthSqrd() const { return x * x + y * y + z * z; }
    /** Throws nothing; a vector of no length stays as it is. */
    OdGeVector3d& setLength(double length);
    constexpr double dotProduct(const OdGeVector3d& other) const { return x * other.x + y * other.y + z * other.z; }
    constexpr OdGeVector3d crossProduct(const OdGeVector3d& other) const
    {
        return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
    }

    /** The vector of length 1 in this direction; a vector of (nearly) no length stays as it is. */
    OdGeVector3d normal(const OdGeTol& tol = OdGeContext::gTol) const;
    OdGeVector3d& normalize(const OdGeTol& tol = OdGeContext::gTol) { return *this = normal(tol); }
    /** Some vector of length 1 at a right angle to this one: the x axis of the plane that this vector is the normal of
       (see OdGeMatrix3d::planeToWorld). */
    OdGeVector3d perpVector() const;

    /** The angle between the vectors, from 0 to pi. */
    double angleTo(const OdGeVector3d& other) const;
    /** The angle to turn counter-clockwise, seen against refVector, from this vector to the other: from 0 up to 2 pi.
     */
    double angleTo(const OdGeVector3d& other, const OdGeVector3d& refVector) const;
    OdGeVector3d& rotateBy(double angle, const OdGeVector3d& axis);
    OdGeVector3d& transformBy(const OdGeMatrix3d& xform);
    OdGeVector3d& mirror(const OdGeVector3d& planeNormal);

    bool isZeroLength(const OdGeTol& tol = OdGeContext::gTol) const { return length() <= tol.equalVector(); }
    bool isUnitLength(const OdGeTol& tol = OdGeContext::gTol) const
    {
        return std::fabs(length() - 1.0) <= tol.equalVector();
    }
    /** Vectors of no length are parallel and perpendicular to none. */
    bool isParallelTo(const OdGeVector3d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    bool isCodirectionalTo(const OdGeVector3d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    bool isPerpendicularTo(const OdGeVector3d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    bool isEqualTo(const OdGeVector3d& other, const OdGeTol& tol = OdGeContext::gTol) const
    {
        return (*this - other).length() <= tol.equalVector();
    }
    bool operator==(const OdGeVector3d& other) const { return isEqualTo(other); }
    bool operator!=(const OdGeVector3d& other) const { return !isEqualTo(other); }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

constexpr OdGeVector3d operator*(double factor, const OdGeVector3d& vector)
{
    return vector * factor;
}
