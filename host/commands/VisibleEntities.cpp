// What the current layout shows.
#include "commands/VisibleEntities.h"

#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbObjectIterator.h"
#include "DbViewport.h"
#include "commands/Layers.h"

namespace hostcommands
{

namespace
{

OdDbBlockTableRecordPtr currentSpace(OdDbDatabase& database)
{
    return OdDbBlockTableRecord::cast(database.getActiveLayoutBTRId().safeOpenObject());
}

bool isSheet(const OdDbEntity& entity)
{
    const OdDbViewportPtr viewport = OdDbViewport::cast(&entity);
    return !viewport.isNull() && viewport->number() == 1;
}

bool isShown(const OdDbEntityPtr& entity, Layers& layers)
{
    return !entity.isNull() && entity->visibility() == OdDb::kVisible && layers.of(entity->layerId()).isShown &&
           !isSheet(*entity);
}

} // namespace

OdDbObjectIdArray visibleEntities(OdDbDatabase& database)
{
    OdDbObjectIdArray shown;
    Layers layers;
    for (OdDbObjectIteratorPtr walk = currentSpace(database)->newIterator(); !walk->done(); walk->step())
        if (isShown(walk->entity(), layers))
            shown.append(walk->objectId());
    return shown;
}

OdDbObjectId lastVisibleEntity(OdDbDatabase& database)
{
    Layers layers;
    for (OdDbObjectIteratorPtr walk = currentSpace(database)->newIterator(false); !walk->done(); walk->step(false))
        if (isShown(walk->entity(), layers))
            return walk->objectId();
    return OdDbObjectId::kNull;
}

} // namespace hostcommands
