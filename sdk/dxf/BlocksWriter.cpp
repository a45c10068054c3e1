// BLOCKS and ENTITIES as they are written: the entities of the model and of the paper layout shown last stand in
// ENTITIES, all others in their block.
#include "Tables.h"
#include "Writing.h"

#include "DbEntity.h"
#include "db/BlockCore.h"
#include "db/SymbolTableCore.h"
#include "entities/Subentities.h"

namespace dxf
{
namespace
{

void writeSubentities(Writing& writing, const OdDbStub& owner)
{
    const oddb::SubentityList* const list = static_cast<const OdDbEntity*>(owner.object)->subentities();
    if (list == nullptr || !list->hasElements())
        return;
    for (const OdDbStub* const element : list->elements())
        if (!element->isErased())
            writing.objects.print(*element);
    if (list->sequenceEnd() != nullptr && !list->sequenceEnd()->isErased())
        writing.objects.print(*list->sequenceEnd());
    else
        writing.groups.text(0, "SEQEND");
}

void writeEntities(Writing& writing, const OdDbStub& block)
{
    for (const OdDbStub* const entity : oddb::BlockCore::contents(block).entities)
    {
        if (entity->isErased())
            continue;
        writing.objects.print(*entity);
        writeSubentities(writing, *entity);
    }
}

bool standsInEntities(const Writing& writing, const OdDbStub& block)
{
    return &block == writing.database.modelSpace || &block == writing.database.paperSpace;
}

void writeBlock(Writing& writing, const OdDbStub& block)
{
    writing.objects.print(*oddb::BlockCore::contents(block).begin);
    if (!standsInEntities(writing, block))
        writeEntities(writing, block);
    writing.objects.print(*oddb::BlockCore::contents(block).end);
}

} // namespace

void writeBlocksSection(Writing& writing)
{
    const OdDbStub* const table = tableOf(writing.database, oddb::SymbolTable::Block);
    for (const OdDbStub* const block : oddb::SymbolTableCore::records(*table).all())
        if (!block->isErased())
            writeBlock(writing, *block);
}

void writeEntitiesSection(Writing& writing)
{
    for (const OdDbStub* const space : {writing.database.modelSpace, writing.database.paperSpace})
        if (space != nullptr && !space->isErased())
            writeEntities(writing, *space);
}

} // namespace dxf
