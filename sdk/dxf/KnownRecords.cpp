// Copies the indexes of the symbol tables.
#include "KnownRecords.h"

#include "Tables.h"

#include "db/Stub.h"
#include "db/SymbolTableCore.h"

namespace dxf
{

KnownRecords::KnownRecords(oddb::DatabaseImpl& database)
{
    for (const oddb::SymbolTable kind : kTablesInOrder)
    {
        const OdDbStub* const table = tableOf(database, kind);
        if (table == nullptr)
            continue;
        Names& names = m_names[static_cast<std::size_t>(kind)];
        for (OdDbStub* const record : oddb::SymbolTableCore::records(*table).all())
        {
            m_handles.emplace(record->handle, record);
            const std::string_view name = oddb::symbolName(record);
            if (oddb::findSymbol(database.database, kind, name) == record)
                names.emplace(name, record);
        }
    }
}

OdDbStub* KnownRecords::find(oddb::SymbolTable table, std::string_view name) const
{
    const Names& names = m_names[static_cast<std::size_t>(table)];
    const auto found = names.find(name);
    return found == names.end() ? nullptr : found->second;
}

OdDbStub* KnownRecords::find(std::uint64_t handle) const
{
    const auto found = m_handles.find(handle);
    return found == m_handles.end() ? nullptr : found->second;
}

} // namespace dxf
