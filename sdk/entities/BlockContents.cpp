// Looks into block table records.
#include "entities/BlockContents.h"

#include "DbBlockTableRecord.h"

namespace drawing
{

OdGePoint3d basePointOf(OdDbObjectId blockId)
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(blockId.openObject());
    return block.isNull() ? OdGePoint3d() : block->origin();
}

bool visitBlock(OdDbObjectId blockId, const std::function<bool(const OdDbEntity&)>& visit)
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(blockId.openObject());
    if (block.isNull())
        return false;
    for (const OdDbObjectIteratorPtr at = block->newIterator(); !at->done(); at->step())
    {
        const OdDbEntityPtr entity = at->entity();
        if (!entity.isNull() && !visit(*entity))
            break;
    }
    return true;
}

} // namespace drawing
