// What curves answer unless their class knows better.
#include "DbCurve.h"

bool OdDbCurve::isClosed() const
{
    return false;
}

OdResult OdDbCurve::getStartPoint(OdGePoint3d&) const
{
    return eInvalidExtents;
}

OdResult OdDbCurve::getEndPoint(OdGePoint3d&) const
{
    return eInvalidExtents;
}
