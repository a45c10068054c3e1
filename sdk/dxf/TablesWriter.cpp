// TABLES as they are written; TablesSection.cpp draws them.
#include "Tables.h"
#include "Writing.h"

#include "db/ObjectCore.h"
#include "db/SymbolTableCore.h"

namespace dxf
{
namespace
{

std::int64_t countRecords(const OdDbStub& table)
{
    std::int64_t count = 0;
    for (const OdDbStub* const record : oddb::SymbolTableCore::records(table).all())
        count += !record->isErased();
    return count;
}

// The table's own groups with the number of records as it is now.
oddb::Groups groupsWithCount(const OdDbStub& table, const oddb::SymbolTableKind& kind)
{
    constexpr int kCountCode = 70;
    oddb::GroupsBuilder groups;
    bool hasCount = false;
    for (const oddb::GroupView& group : oddb::ObjectCore::groups(*table.object))
    {
        if (group.code() == 2 && group.type() == oddb::GroupType::Text && group.is(kind.dxfName))
            continue; // stands in front of the handle
        if (group.code() == kCountCode && !hasCount)
            groups.integer(kCountCode, countRecords(table));
        else
            groups.append(group);
        hasCount = hasCount || group.code() == kCountCode;
    }
    if (!hasCount)
        groups.integer(kCountCode, countRecords(table));
    return groups.finish();
}

void writeTable(Writing& writing, const oddb::SymbolTableKind& kind)
{
    const OdDbStub* const table = tableOf(writing.database, kind.table);
    if (table == nullptr)
        return;
    writing.objects.printTableHead(*table, kind.dxfName);
    writing.groups.groups(groupsWithCount(*table, kind));
    writing.objects.printXData(*table->object);
    for (const OdDbStub* const record : oddb::SymbolTableCore::records(*table).all())
        if (!record->isErased())
            writing.objects.printAs(*record, kind.dxfName);
    writing.groups.text(0, "ENDTAB");
}

} // namespace

void writeTablesSection(Writing& writing)
{
    for (const oddb::SymbolTable table : kTablesInOrder)
        writeTable(writing, oddb::symbolTableKind(table));
}

} // namespace dxf
