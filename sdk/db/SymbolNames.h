// Names of table records, in both directions: the name that a record has now, and the record that has a name.
#pragma once

#include <cstdint>
#include <string_view>

class OdDbDatabase;
class OdDbStub;

namespace oddb
{

/// The symbol tables of a drawing.
enum class SymbolTable : std::uint8_t
{
    None,
    Block,
    Layer,
    TextStyle,
    Linetype,
    View,
    Ucs,
    Viewport,
    RegApp,
    DimStyle
};
constexpr int kSymbolTableCount = 10;

/// A table's own index of its records by name. The table's object implements it and registers itself with the database.
class SymbolIndex
{
public:
    /// The record that has this name now, case ignored and erased ones passed over; null when there is none.
    virtual OdDbStub* findName(std::string_view utf8Name) const = 0;

protected:
    ~SymbolIndex() = default;
};

/// The record of the table that has this name; null when there is none.
OdDbStub* findSymbol(const OdDbDatabase& database, SymbolTable table, std::string_view utf8Name);

/// The present name of a table record in UTF-8; empty for anything that is no table record.
/// Valid until the record is changed.
std::string_view symbolName(const OdDbStub* record);

} // namespace oddb
