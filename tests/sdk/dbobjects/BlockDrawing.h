// What tests of blocks, copies and listeners share: lines, blocks and references to put into a drawing.
#pragma once

#include <utility>
#include <vector>

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbIdMapping.h"
#include "DbLine.h"
#include "ObjectsTest.h"

namespace objectstest
{

using Ids = std::vector<OdDbObjectId>;

class BlockDrawing : public ObjectsTest
{
protected:
    static OdDbBlockTableRecordPtr block(const OdDbObjectId& id, OdDb::OpenMode mode = OdDb::kForRead)
    {
        return open<OdDbBlockTableRecord>(id, mode);
    }
    OdDbBlockTableRecordPtr space(OdDb::OpenMode mode = OdDb::kForWrite) const
    {
        return block(database->getModelSpaceId(), mode);
    }
    OdDbObjectId makeBlock(const OdString& name) const
    {
        const OdDbBlockTableRecordPtr made = OdDbBlockTableRecord::createObject();
        made->setName(name);
        return open<OdDbBlockTable>(database->getBlockTableId(), OdDb::kForWrite)->add(made);
    }
    /// A line from the origin, in the model or in another block.
    OdDbObjectId addLine(const OdDbObjectId& owner, const OdGePoint3d& end = OdGePoint3d(3, 4, 0)) const
    {
        const OdDbLinePtr line = OdDbLine::createObject();
        const OdDbObjectId id = block(owner, OdDb::kForWrite)->appendOdDbEntity(line);
        line->setEndPoint(end);
        return id;
    }
    OdDbObjectId addLine() const { return addLine(database->getModelSpaceId()); }
    OdDbObjectId addReference(const OdDbObjectId& owner, const OdDbObjectId& drawn) const
    {
        const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
        const OdDbObjectId id = block(owner, OdDb::kForWrite)->appendOdDbEntity(reference);
        reference->setBlockTableRecord(drawn);
        return id;
    }
    OdDbIdMappingPtr copyWithin(const OdDbObjectIdArray& ids) const
    {
        OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
        database->deepCloneObjects(ids, OdDbObjectId(), *mapping);
        return mapping;
    }

    static Ids entitiesOf(const OdDbObjectId& id, bool skipErased = true)
    {
        Ids found;
        for (auto it = block(id)->newIterator(true, skipErased); !it->done(); it->step(true, skipErased))
            found.push_back(it->objectId());
        return found;
    }
    static OdDbObjectId find(const OdDbObjectId& tableId, const OdString& name)
    {
        return open<OdDbSymbolTable>(tableId)->getAt(name);
    }
};

} // namespace objectstest
