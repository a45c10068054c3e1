// The short ways to write rows of group tables, under the name that the tables of entities use.
#pragma once

#include "db/TableRows.h"

namespace entityrows
{

using namespace oddb::tablerows;
using oddb::DxfClass;
using oddb::DxfKind;
using oddb::DxfRow;
using oddb::DxfSubclass;
using oddb::SymbolTable;

} // namespace entityrows
