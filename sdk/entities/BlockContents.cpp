// Looks into block table records.
#include "entities/BlockContents.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "db/ObjectCore.h"

namespace drawing
{

namespace
{

/// A place among what is drawn: entities come in the order of handles, their own or those that the table gives them.
struct Place
{
    OdUInt64 handle = 0;
    OdDbObjectId entity;
};

/// The handles that a block's table of the draw order gives to entities:
///
///   table = 100 "AcDbSortentsTable"  330 block  { 331 entity  5 handle }
std::unordered_map<OdDbStub*, OdUInt64> drawOrderOf(const OdDbBlockTableRecord& block)
{
    std::unordered_map<OdDbStub*, OdUInt64> order;
    const OdDbDictionaryPtr extension = OdDbDictionary::cast(block.extensionDictionary().openObject());
    const OdDbObjectPtr table = extension.isNull() ? OdDbObjectPtr() : extension->getAt(L"ACAD_SORTENTS").openObject();
    if (table.isNull())
        return order;
    OdDbStub* entity = nullptr;
    for (const oddb::GroupView& group : oddb::ObjectCore::groups(*table))
    {
        if (group.code() == 331)
            entity = group.stub();
        else if (group.code() == 5 && entity)
            order[std::exchange(entity, nullptr)] = OdDbHandle(odUtf8ToString(group.text()));
    }
    return order;
}

std::vector<Place> placesOf(const OdDbBlockTableRecord& block, const std::unordered_map<OdDbStub*, OdUInt64>& order)
{
    std::vector<Place> places;
    for (const OdDbObjectIteratorPtr at = block.newIterator(); !at->done(); at->step())
    {
        const OdDbObjectId id = at->objectId();
        const auto moved = order.find(id);
        places.push_back({moved != order.end() ? moved->second : OdUInt64(id.getHandle()), id});
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const Place& first, const Place& second) { return first.handle < second.handle; });
    return places;
}

} // namespace

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

bool visitBlockAsDrawn(OdDbObjectId blockId, const std::function<bool(const OdDbEntity&)>& visit)
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(blockId.openObject());
    if (block.isNull())
        return false;
    const std::unordered_map<OdDbStub*, OdUInt64> order = drawOrderOf(*block);
    if (order.empty())
        return visitBlock(blockId, visit);
    for (const Place& place : placesOf(*block, order))
    {
        const OdDbEntityPtr entity = OdDbEntity::cast(place.entity.openObject());
        if (!entity.isNull() && !visit(*entity))
            break;
    }
    return true;
}

} // namespace drawing
