// Scaling by a factor for each axis.
#pragma once

#include "Ge/GeTol.h"
#include "OdPlatform.h"

class OdGeMatrix3d;
class OdGeVector3d;

/** An OdGeScale3d holds the factors that x, y and z are multiplied by. It is a plain value; a new one leaves everything
    as it is. */
class OdGeScale3d
{
public:
    static const OdGeScale3d kIdentity;

    constexpr OdGeScale3d() = default;
    constexpr explicit OdGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    constexpr OdGeScale3d(double xFactor, double yFactor, double zFactor) : sx(xFactor), sy(yFactor), sz(zFactor) {}

    OdGeScale3d& set(double xFactor, double yFactor, double zFactor)
    {
        return *this = OdGeScale3d(xFactor, yFactor, zFactor);
    }
    double operator[](unsigned int i) const { return i == 0 ? sx : i == 1 ? sy : sz; }
    double& operator[](unsigned int i) { return i == 0 ? sx : i == 1 ? sy : sz; }

    constexpr OdGeScale3d operator*(const OdGeScale3d& other) const
    {
        return {sx * other.sx, sy * other.sy, sz * other.sz};
    }
    constexpr OdGeScale3d operator*(double factor) const { return {sx * factor, sy * factor, sz * factor}; }
    /** Throws OdError (eNonInvertibleMatrix) when a factor is 0. */
    OdGeScale3d inverse() const;

    /** True when all factors have the same size. */
    bool isProportional(const OdGeTol& tol = OdGeContext::gTol) const;
    bool isEqualTo(const OdGeScale3d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    bool operator==(const OdGeScale3d& other) const { return isEqualTo(other); }
    bool operator!=(const OdGeScale3d& other) const { return !isEqualTo(other); }

    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;
};
