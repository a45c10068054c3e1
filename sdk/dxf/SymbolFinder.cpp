// A small cache of names, one slot for each hash.
#include "SymbolFinder.h"

#include <functional>

namespace dxf
{

OdDbStub* SymbolFinder::look(oddb::SymbolTable table, std::string_view name) const
{
    if (m_records != nullptr)
        return m_records->find(table, name);
    OdDbStub* const record = oddb::findSymbol(m_database, table, name);
    return record != nullptr && oddb::symbolName(record) == name ? record : nullptr;
}

OdDbStub* SymbolFinder::find(oddb::SymbolTable table, std::string_view name)
{
    const std::size_t hash = std::hash<std::string_view>()(name) + static_cast<std::size_t>(table);
    Known& known = m_known[hash % kSlots];
    if (known.record != nullptr && known.table == table && known.name == name)
        return known.record;
    OdDbStub* const record = look(table, name);
    if (record == nullptr)
        return nullptr;
    known.table = table;
    known.name = name;
    known.record = record;
    return record;
}

} // namespace dxf
