// What the user of a drawing looks through.
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbSymbolTable.h"
#include "DbViewport.h"

static OdDbObjectId findSheet(const OdDbObjectId& blockId)
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(blockId.openObject());
    if (!block)
        return {};
    for (OdDbObjectIteratorPtr entity = block->newIterator(); !entity->done(); entity->step())
        if (const OdDbViewportPtr viewport = OdDbViewport::cast(entity->entity()); viewport && viewport->number() == 1)
            return entity->objectId();
    return {};
}

static OdDbObjectId findModelViewport(const OdDbObjectId& tableId)
{
    const OdDbSymbolTablePtr table = OdDbSymbolTable::cast(tableId.openObject());
    return table ? table->getAt(L"*Active") : OdDbObjectId();
}

OdDbObjectId OdDbDatabase::activeViewportId() const
{
    if (getTILEMODE())
        return findModelViewport(getViewportTableId());
    const OdDbObjectId sheet = findSheet(getActiveLayoutBTRId());
    return sheet.isNull() ? currentLayoutId() : sheet;
}
