// Keeps spatial indexes up to date.
#include "select/DrawingIndex.h"

#include <algorithm>

#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbDimStyleTableRecord.h"
#include "DbDimension.h"
#include "DbSpatialFilter.h"
#include "DbTextStyleTableRecord.h"
#include "db/DatabaseImpl.h"

namespace picking
{

namespace
{

constexpr const char* kAttachment = "select.index";
constexpr std::size_t kMostIndexes = 4; // spaces and planes that users go back and forth between

bool isStyle(const OdDbObject& object)
{
    return object.isKindOf(OdDbTextStyleTableRecord::desc()) || object.isKindOf(OdDbDimStyleTableRecord::desc());
}

/// What may lie in the extension dictionary of a reference and clip it.
bool isOfReference(const OdDbObject& object)
{
    return object.isKindOf(OdDbFilter::desc()) || object.isKindOf(OdDbDictionary::desc());
}

/// How points look, which nobody tells of when it changes.
PointLooks pointLooksOf(const OdDbDatabase& database)
{
    const OdResBufPtr mode = database.getSysVar(L"PDMODE");
    const OdResBufPtr size = database.getSysVar(L"PDSIZE");
    return {mode.isNull() ? OdInt16(0) : mode->getInt16(), size.isNull() ? 0.0 : size->getDouble()};
}

/// The blocks that dimensions are drawn by are not drawn through references.
bool isOfDimension(const OdDbBlockTableRecord& block)
{
    return block.getName().left(2).iCompare(L"*D") == 0;
}

} // namespace

DrawingIndex& DrawingIndex::of(OdDbDatabase& database)
{
    auto& index =
        oddb::databaseImpl(static_cast<OdDbStub*>(database.getBlockTableId()))->attachment<DrawingIndex>(kAttachment);
    if (!index.m_isAttached)
        database.addReactor(&index);
    index.m_isAttached = true;
    return index;
}

SpatialIndex& DrawingIndex::find(const ViewedSpace& space)
{
    if (const PointLooks looks = pointLooksOf(*space.block.database()); !(looks == std::exchange(m_pointLooks, looks)))
        m_indexes.clear();
    noteReferencesToChangedBlocks();
    OdDbStub* const block = space.block;
    const auto isAskedFor = [&](const std::unique_ptr<SpatialIndex>& index)
    { return &index->block() == block && index->plane() == space.plane; };
    auto found = std::find_if(m_indexes.begin(), m_indexes.end(), isAskedFor);
    if (found == m_indexes.end())
    {
        if (m_indexes.size() == kMostIndexes)
            m_indexes.pop_back();
        found = m_indexes.insert(m_indexes.end(), std::make_unique<SpatialIndex>(*block, space.plane));
    }
    std::rotate(m_indexes.begin(), found, found + 1);
    m_indexes.front()->bringUpToDate();
    return *m_indexes.front();
}

void DrawingIndex::note(const OdDbObject& object)
{
    if (m_indexes.empty())
        return;
    if (object.isKindOf(OdDbEntity::desc()) || isOfReference(object))
        noteOwned(object);
    else if (object.isKindOf(OdDbBlockTableRecord::desc()))
        noteBlock(static_cast<const OdDbBlockTableRecord&>(object));
    else if (isStyle(object))
        m_indexes.clear();
}

// Spaces change with every new entity, and nothing draws them as a block.
void DrawingIndex::noteBlock(const OdDbBlockTableRecord& block)
{
    if (!block.isLayout())
        m_changedBlocks.insert(static_cast<OdDbStub*>(block.objectId()));
}

bool DrawingIndex::noteIn(OdDbStub* owner, OdDbStub& entity)
{
    bool isIndexed = false;
    for (const std::unique_ptr<SpatialIndex>& index : m_indexes)
    {
        if (&index->block() != owner)
            continue;
        index->noteChange(entity);
        isIndexed = true;
    }
    return isIndexed;
}

// A vertex changes its polyline, a clip the reference three dictionaries above it. Owners that a damaged drawing has in
// a ring end somewhere.
void DrawingIndex::noteOwned(const OdDbObject& changed)
{
    constexpr int kMostOwners = 8;
    OdDbObjectPtr object = &changed;
    for (int i = 0; i < kMostOwners && !object.isNull(); ++i)
    {
        const OdDbObjectId owner = object->ownerId();
        OdRxClass* const ownerClass = owner.objectClass();
        if (ownerClass == nullptr || noteIn(owner, *static_cast<OdDbStub*>(object->objectId())))
            return;
        if (ownerClass->isDerivedFrom(OdDbBlockTableRecord::desc()))
        {
            m_changedBlocks.insert(owner);
            return;
        }
        object = owner.openObject(OdDb::kForNotify, true);
    }
}

// What is drawn by a changed block, through references in other blocks too, may lie elsewhere now.
void DrawingIndex::noteReferencesToChangedBlocks()
{
    if (m_changedBlocks.empty())
        return;
    std::vector<OdDbStub*> reached(m_changedBlocks.begin(), m_changedBlocks.end());
    for (std::size_t i = 0; i < reached.size(); ++i)
        noteReferencesTo(*reached[i], reached);
    m_changedBlocks.clear();
}

void DrawingIndex::noteReferencesTo(OdDbStub& blockStub, std::vector<OdDbStub*>& reached)
{
    const OdDbBlockTableRecordPtr block =
        OdDbBlockTableRecord::cast(OdDbObjectId(&blockStub).openObject(OdDb::kForRead, true));
    if (block.isNull())
        return;
    if (isOfDimension(*block))
        for (const std::unique_ptr<SpatialIndex>& index : m_indexes)
            index->noteChangeOfClass(*OdDbDimension::desc());
    OdDbObjectIdArray references;
    block->getBlockReferenceIds(references);
    const OdDbObjectIdArray& all = references;
    for (const OdDbObjectId& id : all)
    {
        const OdDbObjectPtr reference = id.openObject(OdDb::kForRead, true);
        if (reference.isNull())
            continue;
        OdDbStub* const owner = reference->ownerId();
        if (owner != nullptr && !noteIn(owner, *static_cast<OdDbStub*>(id)) && m_changedBlocks.insert(owner).second)
            reached.push_back(owner);
    }
}

} // namespace picking
