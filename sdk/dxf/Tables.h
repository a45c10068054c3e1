// Symbol tables as the reader and the writer of files see them.
#pragma once

#include "db/DatabaseImpl.h"
#include "db/RecordTables.h"
#include "db/SymbolNames.h"

#include <string_view>

namespace dxf
{

struct Reading;

/// All symbol tables in the order in which files have them.
constexpr oddb::SymbolTable kTablesInOrder[] = {
    oddb::SymbolTable::Viewport,  oddb::SymbolTable::Linetype, oddb::SymbolTable::Layer,
    oddb::SymbolTable::TextStyle, oddb::SymbolTable::View,     oddb::SymbolTable::Ucs,
    oddb::SymbolTable::RegApp,    oddb::SymbolTable::DimStyle, oddb::SymbolTable::Block,
};

/// Returns the kind of table that files have under this name, null when there is none such.
const oddb::SymbolTableKind* findTableKind(std::string_view name);

/// The stub of a table of the drawing, null when it has none.
inline OdDbStub*& tableOf(oddb::DatabaseImpl& database, oddb::SymbolTable table)
{
    return database.tables[static_cast<std::size_t>(table)];
}

/// True when the stub's object is a block table record.
bool isBlock(const OdDbStub* stub);

/// Returns the table, made when there is none yet; the handle counts when it is made.
OdDbStub* findOrMakeTable(Reading& reading, oddb::SymbolTable table, std::uint64_t handle = 0);

/// Makes a record that has nothing but a name and adds it to its table.
OdDbStub* makeRecord(Reading& reading, oddb::SymbolTable table, std::string_view name, std::uint64_t handle = 0);

/// Makes a block without entities.
inline OdDbStub* makeBlock(Reading& reading, std::string_view name)
{
    return makeRecord(reading, oddb::SymbolTable::Block, name);
}

/// Sees to it that there are blocks for the entities of model and paper.
void makeSpaces(Reading& reading);

} // namespace dxf
