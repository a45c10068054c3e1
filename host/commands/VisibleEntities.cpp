// What the current layout shows.
#include "commands/VisibleEntities.h"

#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbObjectIterator.h"
#include "DbShownEntities.h"

namespace hostcommands
{

namespace
{

OdDbBlockTableRecordPtr currentSpace(OdDbDatabase& database)
{
    return OdDbBlockTableRecord::cast(database.getActiveLayoutBTRId().safeOpenObject());
}

bool isShown(const OdDbEntityPtr& entity, OdDbShownEntities& seen)
{
    return !entity.isNull() && seen.isShown(*entity);
}

} // namespace

OdDbObjectIdArray visibleEntities(OdDbDatabase& database)
{
    OdDbObjectIdArray shown;
    OdDbShownEntities seen;
    for (OdDbObjectIteratorPtr walk = currentSpace(database)->newIterator(); !walk->done(); walk->step())
        if (isShown(walk->entity(), seen))
            shown.append(walk->objectId());
    return shown;
}

OdDbObjectId lastVisibleEntity(OdDbDatabase& database)
{
    OdDbShownEntities seen;
    for (OdDbObjectIteratorPtr walk = currentSpace(database)->newIterator(false); !walk->done(); walk->step(false))
        if (isShown(walk->entity(), seen))
            return walk->objectId();
    return OdDbObjectId::kNull;
}

} // namespace hostcommands
