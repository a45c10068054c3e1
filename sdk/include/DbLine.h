// Straight lines.
#pragma once

#include "DbCurve.h"

/** A LINE: the straight line between two points of the world, extruded along the normal when it has a thickness. */
class OdDbLine : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDbLine);

    OdGePoint3d startPoint() const;
    void setStartPoint(const OdGePoint3d& point);
    OdGePoint3d endPoint() const;
    void setEndPoint(const OdGePoint3d& point);
    double thickness() const;
    void setThickness(double thickness);
    /** The direction of extrusion; it is normalised. Throws OdError(eInvalidInput) for the zero vector. */
    void setNormal(const OdGeVector3d& normal);

    bool isClosed() const override;
    OdResult getStartPoint(OdGePoint3d& point) const override;
    OdResult getEndPoint(OdGePoint3d& point) const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbLinePtr = OdSmartPtr<OdDbLine>;
