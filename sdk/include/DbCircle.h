// Circles.
#pragma once

#include "DbCurve.h"

/** A CIRCLE in the plane through its centre that the normal stands on. */
class OdDbCircle : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDbCircle);

    /** The centre in world coordinates. */
    OdGePoint3d center() const;
    void setCenter(const OdGePoint3d& center);
    double radius() const;
    /** Throws OdError(eInvalidInput) for a radius that is negative or not finite. */
    void setRadius(double radius);
    double thickness() const;
    void setThickness(double thickness);
    /** The centre stays where it is. Throws OdError(eInvalidInput) for the zero vector. */
    void setNormal(const OdGeVector3d& normal);

    bool isPlanar() const override;
    bool isClosed() const override;
    OdResult getStartPoint(OdGePoint3d& point) const override;
    OdResult getEndPoint(OdGePoint3d& point) const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbCirclePtr = OdSmartPtr<OdDbCircle>;
