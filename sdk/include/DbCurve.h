// Entities that are one continuous line: straight, bent or composed.
#pragma once

#include "DbEntity.h"

/** The base of lines, arcs, circles, ellipses, splines and polylines. */
class OdDbCurve : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbCurve);

    /** True when the curve ends where it starts. */
    virtual bool isClosed() const;

    /** The ends in world coordinates. Return eInvalidExtents, and leave point as it was, for a curve without ends or
        one whose data describes no shape. */
    virtual OdResult getStartPoint(OdGePoint3d& point) const;
    virtual OdResult getEndPoint(OdGePoint3d& point) const;
};

using OdDbCurvePtr = OdSmartPtr<OdDbCurve>;
