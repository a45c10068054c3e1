// Puts entities into blocks.
//
//   POLYLINE VERTEX... SEQEND       vertices belong to the polyline in front of them
//   INSERT ATTRIB... SEQEND         attributes belong to the block reference in front of them
#include "BlockContents.h"

#include "Tables.h"

#include <string_view>

#include "DbEntity.h"
#include "db/BlockCore.h"
#include "db/ObjectCore.h"
#include "entities/Subentities.h"

namespace dxf
{
namespace
{

constexpr int kPaperSpaceCode = 67;

OdDbEntity& entityOf(OdDbStub* stub)
{
    return static_cast<OdDbEntity&>(*stub->object);
}

bool hasSubentities(OdDbStub* stub)
{
    const oddb::SubentityList* const list = entityOf(stub).subentities();
    return list != nullptr && !list->elements().empty();
}

bool mayOwnSubentities(std::string_view name)
{
    return name == "POLYLINE" || name == "INSERT";
}

bool isSubentity(std::string_view name)
{
    return name == "VERTEX" || name == "ATTRIB" || name == "SEQEND";
}

} // namespace

void BlockContents::readInto(OdDbStub* block)
{
    m_reading.records.read(m_reading.record);
    m_place = m_reading.record.place;
    place(m_reading.record, block);
}

void BlockContents::readIntoItsBlock()
{
    m_reading.records.read(m_reading.record);
    placeIntoItsBlock(m_reading.record);
}

void BlockContents::placeIntoItsBlock(Record& record)
{
    m_place = record.place;
    place(record, isSubentity(record.name) && m_parent != nullptr ? nullptr : blockOf(record));
}

OdDbStub* BlockContents::blockOf(const Record& record)
{
    if (record.hasOwner && isBlock(record.owner))
        return record.owner;
    if (record.hasOwner)
        noteFault("the owner of the entity is no block; it goes into the model or paper space");
    const oddb::DatabaseImpl& database = m_reading.database;
    return record.integer(kPaperSpaceCode) != 0 ? database.paperSpace : database.modelSpace;
}

void BlockContents::place(Record& record, OdDbStub* block)
{
    if (isSubentity(record.name) && m_parent != nullptr)
        return placeUnderParent(record);
    end();
    if (std::string_view(record.name) == "SEQEND")
        return noteFault("a SEQEND that ends nothing is passed over");
    OdDbStub* const entity = m_reading.objects.loadEntity(record, block);
    if (isSubentity(record.name))
        noteFault("a " + record.name + " without an entity in front of it is kept by itself");
    correctOwner(*entity, block);
    oddb::BlockCore::contents(*block).entities.push_back(entity);
    if (mayOwnSubentities(record.name))
        m_parent = entity;
}

void BlockContents::correctOwner(OdDbStub& entity, OdDbStub* block)
{
    if (oddb::ObjectCore::owner(*entity.object) == block)
        return;
    noteFault("the entity names another owner than the block it stands in");
    oddb::ObjectCore::putOwner(*entity.object, block);
}

void BlockContents::placeUnderParent(Record& record)
{
    const bool isEnd = record.name == "SEQEND";
    OdDbStub* const element = m_reading.objects.loadEntity(record, m_parent);
    oddb::SubentityList& list = entityOf(m_parent).makeSubentities();
    if (!isEnd)
        return list.append(element);
    list.putSequenceEnd(element);
    m_parent = nullptr;
}

void BlockContents::end()
{
    if (m_parent != nullptr && hasSubentities(m_parent))
        noteFault("a SEQEND is missing in front of this record");
    m_parent = nullptr;
}

} // namespace dxf
