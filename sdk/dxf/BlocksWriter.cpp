// BLOCKS and ENTITIES as they are written: the entities of the model and of the paper layout shown last stand in
// ENTITIES, all others in their block.
#include "EntitiesWriter.h"
#include "Tables.h"
#include "Writing.h"

#include "db/BlockCore.h"
#include "db/SymbolTableCore.h"

namespace dxf
{
namespace
{

using Records = std::vector<const OdDbStub*>;

void addEntities(Records& records, const OdDbStub& block)
{
    for (const OdDbStub* const entity : oddb::BlockCore::contents(block).entities)
        if (!entity->isErased())
            records.push_back(entity);
}

bool standsInEntities(const Writing& writing, const OdDbStub& block)
{
    return &block == writing.database.modelSpace || &block == writing.database.paperSpace;
}

void addBlock(Records& records, const Writing& writing, const OdDbStub& block)
{
    records.push_back(oddb::BlockCore::contents(block).begin);
    if (!standsInEntities(writing, block))
        addEntities(records, block);
    records.push_back(oddb::BlockCore::contents(block).end);
}

} // namespace

void writeBlocksSection(Writing& writing)
{
    Records records;
    const OdDbStub* const table = tableOf(writing.database, oddb::SymbolTable::Block);
    for (const OdDbStub* const block : oddb::SymbolTableCore::records(*table).all())
        if (!block->isErased())
            addBlock(records, writing, *block);
    writeEntities(writing, records);
}

void writeEntitiesSection(Writing& writing)
{
    Records records;
    for (const OdDbStub* const space : {writing.database.modelSpace, writing.database.paperSpace})
        if (space != nullptr && !space->isErased())
            addEntities(records, *space);
    writeEntities(writing, records);
}

} // namespace dxf
