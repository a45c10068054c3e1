// The table records that a drawing has before its entities are read.
#pragma once

#include "db/DatabaseImpl.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace dxf
{

/// What readers on other threads may know of a database: it stays as it was when it was made, whatever is added to the
/// tables and to the handles meanwhile.
class KnownRecords
{
public:
    explicit KnownRecords(oddb::DatabaseImpl& database);

    /// The record that the table finds under the name, when it is spelt exactly so; null for any other.
    OdDbStub* find(oddb::SymbolTable table, std::string_view name) const;
    /// The record with this handle; null for any other object.
    OdDbStub* find(std::uint64_t handle) const;

private:
    struct Hash : std::hash<std::string_view>
    {
        using is_transparent = void;
    };
    using Names = std::unordered_map<std::string, OdDbStub*, Hash, std::equal_to<>>;

    std::array<Names, oddb::kSymbolTableCount> m_names;
    std::unordered_map<std::uint64_t, OdDbStub*> m_handles;
};

} // namespace dxf
