// Filled triangles and quadrilaterals.
#pragma once

#include "DbEntity.h"

/** A SOLID: a filled area with three or four corners in one plane; its third and fourth corner lie crosswise. */
class OdDbSolid : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbSolid);

    /** Corner 0 to 3 in world coordinates. Both throw OdError(eInvalidIndex), and change nothing, for another index. */
    void getPointAt(int index, OdGePoint3d& point) const;
    void setPointAt(int index, const OdGePoint3d& point);
    double thickness() const;
    void setThickness(double thickness);
    /** The corners keep their places in the plane. Throws OdError(eInvalidInput) for the zero vector. */
    void setNormal(const OdGeVector3d& normal);

    bool isPlanar() const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbSolidPtr = OdSmartPtr<OdDbSolid>;
