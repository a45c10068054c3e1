// Files before R13 have no subclass markers: the groups of an object stand there in any order. Here they are sorted
// into the parts that the class has today.
#pragma once

#include "SymbolFinder.h"
#include "db/DxfClassTable.h"
#include "db/Groups.h"

namespace dxf
{

/// Sorts the groups into the subclasses of the class, each behind its marker; within a part they keep their order, but
/// the coordinates of a point come to stand together. Names of table records become references.
void insertMarkers(oddb::GroupsBuilder& groups, const oddb::DxfClass& cls, SymbolFinder& symbols);

} // namespace dxf
