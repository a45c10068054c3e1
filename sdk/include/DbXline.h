// Construction lines without end.
#pragma once

#include "DbCurve.h"

/** An XLINE: the line through a point in a direction, endless on both sides. It takes no part in extents. */
class OdDbXline : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDbXline);

    OdGePoint3d basePoint() const;
    void setBasePoint(const OdGePoint3d& point);
    OdGeVector3d unitDir() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for the zero vector. */
    void setUnitDir(const OdGeVector3d& direction);

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbXlinePtr = OdSmartPtr<OdDbXline>;

/** A RAY: as OdDbXline, endless in its direction only. */
class OdDbRay : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRay);

    OdGePoint3d basePoint() const;
    void setBasePoint(const OdGePoint3d& point);
    OdGeVector3d unitDir() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for the zero vector. */
    void setUnitDir(const OdGeVector3d& direction);

    OdResult getStartPoint(OdGePoint3d& point) const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbRayPtr = OdSmartPtr<OdDbRay>;
