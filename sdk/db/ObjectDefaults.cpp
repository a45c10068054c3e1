// What objects answer that have no shape and no class id.
#include "DbObject.h"

OdResult OdDbObject::getGeomExtents(OdGeExtents3d&) const
{
    return eInvalidExtents;
}

OdUInt32 OdDbObject::subSetAttributes(OdGiDrawableTraits*) const
{
    return kDrawableNone;
}

bool OdDbObject::subWorldDraw(OdGiWorldDraw*) const
{
    return true;
}

OdResult OdDbObject::getClassID(void* classId) const
{
    return subGetClassID(classId);
}

OdResult OdDbObject::subGetClassID(void*) const
{
    return eNotApplicable;
}
