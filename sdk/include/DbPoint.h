// Points.
#pragma once

#include "DbEntity.h"

/** A POINT: a single place in the world, extruded along the normal when it has a thickness. */
class OdDbPoint : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbPoint);

    OdGePoint3d position() const;
    void setPosition(const OdGePoint3d& point);
    double thickness() const;
    void setThickness(double thickness);
    /** Throws OdError(eInvalidInput) for the zero vector. */
    void setNormal(const OdGeVector3d& normal);
    /** The turn of the point's symbol in its plane, in radians. */
    double ecsRotation() const;
    void setEcsRotation(double rotation);

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbPointPtr = OdSmartPtr<OdDbPoint>;
