// Names of table records. Every record keeps its name in the first group 2 of its data.
#include "SymbolNames.h"

#include "DatabaseImpl.h"
#include "ObjectCore.h"

namespace oddb
{

OdDbStub* findSymbol(const OdDbDatabase& database, SymbolTable table, std::string_view utf8Name)
{
    const SymbolIndex* index = database.impl().symbols[static_cast<std::size_t>(table)];
    return index ? index->findName(utf8Name) : nullptr;
}

std::string_view symbolName(const OdDbStub* record)
{
    if (!record || !record->object)
        return {};
    const std::optional<GroupView> name = GroupSpan(ObjectCore::groupsData(*record->object)).findAny(2);
    return name ? name->text() : std::string_view();
}

} // namespace oddb
