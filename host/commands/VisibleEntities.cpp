// The command SELECTIONSELECTALLVISIBLEENTITIES.
#include <unordered_map>

#include "DbBlockTableRecord.h"
#include "DbEntity.h"
#include "DbLayerTableRecord.h"
#include "DbObjectIterator.h"
#include "commands/CommandTable.h"
#include "commands/SelectionSets.h"

namespace hostcommands
{

namespace
{

// Tells whether layers are shown; each is looked at once.
class LayerVisibility
{
public:
    bool shows(const OdDbObjectId& layer)
    {
        const auto [entry, isNew] = m_shown.try_emplace(static_cast<OdDbStub*>(layer), true);
        if (isNew)
        {
            const OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::cast(layer.openObject());
            entry->second = record.isNull() || (!record->isOff() && !record->isFrozen());
        }
        return entry->second;
    }

private:
    std::unordered_map<OdDbStub*, bool> m_shown;
};

OdDbSelectionSetPtr selectVisible(OdDbDatabase& database)
{
    const OdDbSelectionSetPtr set = OdDbSelectionSet::createObject(&database);
    const OdDbBlockTableRecordPtr space = OdDbBlockTableRecord::cast(database.getActiveLayoutBTRId().safeOpenObject());
    LayerVisibility layers;
    for (OdDbObjectIteratorPtr entities = space->newIterator(); !entities->done(); entities->step())
    {
        const OdDbEntityPtr entity = entities->entity();
        if (!entity.isNull() && entity->visibility() == OdDb::kVisible && layers.shows(entity->layerId()))
            set->append(entities->objectId());
    }
    return set;
}

} // namespace

void selectAllVisibleEntities(CommandRun& run)
{
    const OdDbSelectionSetPtr set = selectVisible(run.database);
    if (run.parameters.has(L"SELECTIONSETNAME"))
        storeSelectionSet(run.database, run.parameters.name(L"SELECTIONSETNAME"), set);
    run.results.add(L"SELECTIONSET", set);
}

} // namespace hostcommands
