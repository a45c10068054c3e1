// Settings of a drawing that name table records have to follow when these get other names.
#pragma once

#include <string_view>

#include "DatabaseImpl.h"

namespace oddb
{

/// Changes the settings that name the record of the table by its old name. A change that is recorded.
void renameInHeader(DatabaseImpl& database, SymbolTable table, std::string_view oldName, std::string_view newName);

} // namespace oddb
