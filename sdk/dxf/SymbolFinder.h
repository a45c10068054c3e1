// Finds table records by name for the reader of a drawing, which asks for the same few names over and over.
#pragma once

#include "KnownRecords.h"
#include "db/DatabaseImpl.h"

#include <array>
#include <string>
#include <string_view>

namespace dxf
{

/// A cache in front of the indexes of the symbol tables, or of what is known of them. It holds good as long as no
/// record is renamed or erased.
class SymbolFinder
{
public:
    explicit SymbolFinder(const OdDbDatabase& database) : m_database(database) {}
    SymbolFinder(const OdDbDatabase& database, const KnownRecords& records) : m_database(database), m_records(&records)
    {
    }

    /// Returns the record of the table that is spelt exactly so, null when there is none.
    OdDbStub* find(oddb::SymbolTable table, std::string_view name);

private:
    struct Known
    {
        oddb::SymbolTable table = oddb::SymbolTable::None;
        std::string name;
        OdDbStub* record = nullptr;
    };
    static constexpr std::size_t kSlots = 256;

    OdDbStub* look(oddb::SymbolTable table, std::string_view name) const;

    const OdDbDatabase& m_database;
    const KnownRecords* m_records = nullptr; // instead of the database, for threads that must not look into it
    std::array<Known, kSlots> m_known;
};

} // namespace dxf
