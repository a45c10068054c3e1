// Which settings name records.
#include "HeaderNames.h"

#include "CaseNames.h"
#include "HeaderVariables.h"

namespace oddb
{

namespace
{

struct NamingVariable
{
    const char* name;
    SymbolTable table;
};

constexpr NamingVariable kVariables[] = {
    {"CLAYER", SymbolTable::Layer},       {"CELTYPE", SymbolTable::Linetype},  {"DIMLTYPE", SymbolTable::Linetype},
    {"DIMLTEX1", SymbolTable::Linetype},  {"DIMLTEX2", SymbolTable::Linetype}, {"TEXTSTYLE", SymbolTable::TextStyle},
    {"DIMTXSTY", SymbolTable::TextStyle}, {"DIMSTYLE", SymbolTable::DimStyle}, {"DIMBLK", SymbolTable::Block},
    {"DIMBLK1", SymbolTable::Block},      {"DIMBLK2", SymbolTable::Block},     {"DIMLDRBLK", SymbolTable::Block},
    {"UCSNAME", SymbolTable::Ucs},        {"UCSBASE", SymbolTable::Ucs},       {"UCSORTHOREF", SymbolTable::Ucs},
    {"PUCSNAME", SymbolTable::Ucs},       {"PUCSBASE", SymbolTable::Ucs},      {"PUCSORTHOREF", SymbolTable::Ucs},
};

} // namespace

void renameInHeader(DatabaseImpl& database, SymbolTable table, std::string_view oldName, std::string_view newName)
{
    HeaderVariables& variables = HeaderVariables::of(database);
    for (const NamingVariable& variable : kVariables)
    {
        if (variable.table != table)
            continue;
        const Groups values = variables.find(variable.name);
        if (values.empty())
            continue;
        const GroupView value = *values.begin();
        if (value.type() != GroupType::Text || value.text().empty() || !isSameName(value.text(), oldName))
            continue;
        GroupsBuilder changed;
        variables.change(database, variable.name, changed.text(value.code(), newName).build());
    }
}

} // namespace oddb
