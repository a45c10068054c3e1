// Moving, turning, mirroring and scaling in the plane.
#pragma once

#include "Ge/GePoint2d.h"

/** An OdGeMatrix2d maps places of the plane to places of the plane; lines stay lines. It is a plain value; a new one
    leaves everything as it is. A product maps by its right factor first. */
class OdGeMatrix2d
{
public:
    static const OdGeMatrix2d kIdentity;

    constexpr OdGeMatrix2d() = default;

    static OdGeMatrix2d translation(const OdGeVector2d& vector);
    static OdGeMatrix2d rotation(double angle, const OdGePoint2d& center = OdGePoint2d());
    static OdGeMatrix2d scaling(double factor, const OdGePoint2d& center = OdGePoint2d());
    /** Mirrors in a point, in the line through a point with a direction. Throws OdError (eInvalidInput) for a direction
       of no length. */
    static OdGeMatrix2d mirroring(const OdGePoint2d& point);
    static OdGeMatrix2d mirroring(const OdGePoint2d& point, const OdGeVector2d& direction);

    OdGeMatrix2d& setToIdentity() { return *this = OdGeMatrix2d(); }
    OdGeMatrix2d& setToTranslation(const OdGeVector2d& vector) { return *this = translation(vector); }
    OdGeMatrix2d& setToRotation(double angle, const OdGePoint2d& center = OdGePoint2d())
    {
        return *this = rotation(angle, center);
    }
    OdGeMatrix2d& setToScaling(double factor, const OdGePoint2d& center = OdGePoint2d())
    {
        return *this = scaling(factor, center);
    }
    OdGeMatrix2d& setCoordSystem(const OdGePoint2d& origin, const OdGeVector2d& xAxis, const OdGeVector2d& yAxis);
    void getCoordSystem(OdGePoint2d& origin, OdGeVector2d& xAxis, OdGeVector2d& yAxis) const;

    OdGeMatrix2d operator*(const OdGeMatrix2d& right) const;
    OdGeMatrix2d& operator*=(const OdGeMatrix2d& right) { return *this = *this * right; }
    OdGeMatrix2d& preMultBy(const OdGeMatrix2d& left) { return *this = left * *this; }
    OdGeMatrix2d& postMultBy(const OdGeMatrix2d& right) { return *this = *this * right; }
    OdGePoint2d operator*(const OdGePoint2d& point) const;
    OdGeVector2d operator*(const OdGeVector2d& vector) const;

    double det() const;
    bool isSingular(const OdGeTol& tol = OdGeContext::gTol) const;
    /** The matrix that maps back. Throws OdError (eNonInvertibleMatrix) for one that flattens the plane. */
    OdGeMatrix2d inverse() const;
    OdGeMatrix2d& invert() { return *this = inverse(); }
    OdGeVector2d translation() const { return {entry[0][2], entry[1][2]}; }

    bool isEqualTo(const OdGeMatrix2d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    bool operator==(const OdGeMatrix2d& other) const { return isEqualTo(other); }

    const double* operator[](int row) const { return entry[row]; }
    double* operator[](int row) { return entry[row]; }
    double operator()(int row, int column) const { return entry[row][column]; }

    double entry[3][3] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
};
