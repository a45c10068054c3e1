// Moving, turning, mirroring and scaling in space.
#pragma once

#include "Ge/GePoint3d.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeVector3d.h"

class OdGePlane;

/** An OdGeMatrix3d maps places of space to places of space; lines stay lines. It is a plain value; a new one leaves
    everything as it is. A product maps by its right factor first. */
class OdGeMatrix3d
{
public:
    static const OdGeMatrix3d kIdentity;

    constexpr OdGeMatrix3d() = default;

    static OdGeMatrix3d translation(const OdGeVector3d& vector);
    /** Turns about an axis through center, counter-clockwise seen against it. Throws OdError (eInvalidInput) for an
       axis of no length. */
    static OdGeMatrix3d rotation(double angle, const OdGeVector3d& axis, const OdGePoint3d& center = OdGePoint3d());
    static OdGeMatrix3d scaling(double factor, const OdGePoint3d& center = OdGePoint3d());
    static OdGeMatrix3d scaling(const OdGeScale3d& scale, const OdGePoint3d& center = OdGePoint3d());
    /** Mirrors in a plane, in a point, in the line through a point with a direction. Throws OdError (eInvalidInput) for
       a direction of no length. */
    static OdGeMatrix3d mirroring(const OdGePlane& plane);
    static OdGeMatrix3d mirroring(const OdGePoint3d& point);
    static OdGeMatrix3d mirroring(const OdGePoint3d& point, const OdGeVector3d& direction);
    /** Maps one coordinate system to another. Throws OdError (eNonInvertibleMatrix) when the axes to map from lie in a
        plane. */
    static OdGeMatrix3d alignCoordSys(const OdGePoint3d& fromOrigin, const OdGeVector3d& fromXAxis,
                                      const OdGeVector3d& fromYAxis, const OdGeVector3d& fromZAxis,
                                      const OdGePoint3d& toOrigin, const OdGeVector3d& toXAxis,
                                      const OdGeVector3d& toYAxis, const OdGeVector3d& toZAxis);
    /** From the coordinates of the plane with that normal to world coordinates, and back. The x axis of the plane is
       the one that drawings use: the world's y axis times the normal when the normal is within 1/64 of the world's z
       axis in x and in y, else the world's z axis times the normal. Throws OdError (eInvalidInput) for a normal of no
       length. */
    static OdGeMatrix3d planeToWorld(const OdGeVector3d& normal);
    static OdGeMatrix3d planeToWorld(const OdGePlane& plane);
    static OdGeMatrix3d worldToPlane(const OdGeVector3d& normal);
    static OdGeMatrix3d worldToPlane(const OdGePlane& plane);

    OdGeMatrix3d& setToIdentity() { return *this = OdGeMatrix3d(); }
    OdGeMatrix3d& setToTranslation(const OdGeVector3d& vector) { return *this = translation(vector); }
    OdGeMatrix3d& setToRotation(double angle, const OdGeVector3d& axis, const OdGePoint3d& center = OdGePoint3d())
    {
        return *this = rotation(angle, axis, center);
    }
    OdGeMatrix3d& setToScaling(double factor, const OdGePoint3d& center = OdGePoint3d())
    {
        return *this = scaling(factor, center);
    }
    OdGeMatrix3d& setToScaling(const OdGeScale3d& scale, const OdGePoint3d& center = OdGePoint3d())
    {
        return *this = scaling(scale, center);
    }
    OdGeMatrix3d& setToMirroring(const OdGePlane& plane) { return *this = mirroring(plane); }
    OdGeMatrix3d& setToPlaneToWorld(const OdGeVector3d& normal) { return *this = planeToWorld(normal); }
    OdGeMatrix3d& setToWorldToPlane(const OdGeVector3d& normal) { return *this = worldToPlane(normal); }
    OdGeMatrix3d& setCoordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis,
                                 const OdGeVector3d& zAxis);
    void getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis, OdGeVector3d& zAxis) const;
    OdGePoint3d getCsOrigin() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
    OdGeVector3d getCsXAxis() const { return {entry[0][0], entry[1][0], entry[2][0]}; }
    OdGeVector3d getCsYAxis() const { return {entry[0][1], entry[1][1], entry[2][1]}; }
    OdGeVector3d getCsZAxis() const { return {entry[0][2], entry[1][2], entry[2][2]}; }
    OdGeVector3d translation() const { return getCsOrigin().asVector(); }
    OdGeMatrix3d& setTranslation(const OdGeVector3d& vector);

    OdGeMatrix3d operator*(const OdGeMatrix3d& right) const;
    OdGeMatrix3d& operator*=(const OdGeMatrix3d& right) { return *this = *this * right; }
    OdGeMatrix3d& preMultBy(const OdGeMatrix3d& left) { return *this = left * *this; }
    OdGeMatrix3d& postMultBy(const OdGeMatrix3d& right) { return *this = *this * right; }
    OdGePoint3d operator*(const OdGePoint3d& point) const
    {
        return (*this * point.asVector()).asPoint() + translation();
    }
    /** A vector is not moved. */
    OdGeVector3d operator*(const OdGeVector3d& vector) const
    {
        return {entry[0][0] * vector.x + entry[0][1] * vector.y + entry[0][2] * vector.z,
                entry[1][0] * vector.x + entry[1][1] * vector.y + entry[1][2] * vector.z,
                entry[2][0] * vector.x + entry[2][1] * vector.y + entry[2][2] * vector.z};
    }

    /** How the matrix changes volumes; negative when it mirrors. */
    double det() const;
    bool isSingular(const OdGeTol& tol = OdGeContext::gTol) const;
    /** The matrix that maps back. Throws OdError (eNonInvertibleMatrix) for one that flattens space; it is judged by
       the shape of the axes, so small drawings are not taken for flat ones. */
    OdGeMatrix3d inverse() const;
    OdGeMatrix3d& invert() { return *this = inverse(); }
    OdGeMatrix3d transpose() const;
    /** The factor by which the longest of the axes is scaled. */
    double scale() const;
    /** True when the axes stay at right angles to each other and are scaled alike. */
    bool isUniScaledOrtho(const OdGeTol& tol = OdGeContext::gTol) const;
    bool isPerspective(const OdGeTol& tol = OdGeContext::gTol) const;
    bool isFinite() const;

    bool isEqualTo(const OdGeMatrix3d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    bool operator==(const OdGeMatrix3d& other) const { return isEqualTo(other); }
    bool operator!=(const OdGeMatrix3d& other) const { return !isEqualTo(other); }

    const double* operator[](int row) const { return entry[row]; }
    double* operator[](int row) { return entry[row]; }
    double operator()(int row, int column) const { return entry[row][column]; }

    double entry[4][4] = {{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};
};
