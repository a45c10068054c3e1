// Finds table records by name for the reader of a drawing, which asks for the same few names over and over.
#pragma once

#include "db/DatabaseImpl.h"

#include <array>
#include <string>
#include <string_view>

namespace dxf
{

/// A cache in front of the indexes of the symbol tables. It holds good as long as no record is renamed or erased.
class SymbolFinder
{
public:
    explicit SymbolFinder(const OdDbDatabase& database) : m_database(database) {}

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

    const OdDbDatabase& m_database;
    std::array<Known, kSlots> m_known;
};

} // namespace dxf
