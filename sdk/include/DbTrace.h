// Thick straight lines.
#pragma once

#include "DbEntity.h"

/** A TRACE: a filled area with four corners in one plane, stored as those of OdDbSolid. */
class OdDbTrace : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbTrace);

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

using OdDbTracePtr = OdSmartPtr<OdDbTrace>;
