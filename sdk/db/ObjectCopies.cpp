// The entry points of copying, which the classes refine.
#include "DbObject.h"

OdDbObjectPtr OdDbObject::deepClone(OdDbIdMapping& mapping, OdDbObject* ownerObject, bool isPrimary) const
{
    return subDeepClone(mapping, ownerObject, isPrimary);
}

OdDbObjectPtr OdDbObject::wblockClone(OdDbIdMapping& mapping, OdDbObject* ownerObject, bool isPrimary) const
{
    return subWblockClone(mapping, ownerObject, isPrimary);
}
