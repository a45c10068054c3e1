// The symbol tables.
#include "Tables.h"

#include "Reading.h"

#include "DbBlockTableRecord.h"
#include "db/ObjectCore.h"
#include "db/SymbolTableCore.h"

namespace dxf
{

using oddb::SymbolTable;

const oddb::SymbolTableKind* findTableKind(std::string_view name)
{
    for (const SymbolTable table : kTablesInOrder)
        if (oddb::symbolTableKind(table).dxfName == name)
            return &oddb::symbolTableKind(table);
    return nullptr;
}

bool isBlock(const OdDbStub* stub)
{
    return stub != nullptr && stub->object != nullptr && stub->object->isKindOf(OdDbBlockTableRecord::desc());
}

OdDbStub* findOrMakeTable(Reading& reading, SymbolTable table, std::uint64_t handle)
{
    OdDbStub*& place = tableOf(reading.database, table);
    if (place == nullptr)
        place =
            reading.objects.create(oddb::symbolTableKind(table).tableClass, handle, nullptr, reading.scanner.place());
    return place;
}

OdDbStub* makeRecord(Reading& reading, SymbolTable table, std::string_view name, std::uint64_t handle)
{
    const oddb::SymbolTableKind& kind = oddb::symbolTableKind(table);
    OdDbStub* const owner = findOrMakeTable(reading, table);
    OdDbStub* const record = reading.objects.create(kind.recordClass, handle, owner, reading.scanner.place());
    oddb::GroupsBuilder groups;
    groups.text(2, name);
    if (const oddb::DxfClass* const cls = oddb::findDxfClass(kind.dxfName))
        reading.records.completeMarkers(groups, *cls);
    oddb::ObjectCore::putGroups(*record->object, groups.finish());
    oddb::SymbolTableCore::append(*owner, record);
    return record;
}

void makeSpaces(Reading& reading)
{
    struct Space
    {
        std::string_view name;
        OdDbStub*& place;
    };
    for (const Space& space :
         {Space{"*Model_Space", reading.database.modelSpace}, Space{"*Paper_Space", reading.database.paperSpace}})
    {
        if (space.place == nullptr)
            space.place = oddb::findSymbol(reading.database.database, SymbolTable::Block, space.name);
        if (space.place == nullptr)
            space.place = makeBlock(reading, space.name);
    }
}

} // namespace dxf
