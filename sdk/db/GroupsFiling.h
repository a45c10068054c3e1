// Rows of groups through filers: each group by its own type, so that any filer can carry them.
#pragma once

#include "DbFiler.h"
#include "Groups.h"

namespace oddb
{

struct DxfClass;

/// DWG-style: for each group its code (16 bits), its type (8 bits) and its value; the code kNoGroup ends the row.
void writeGroups(OdDbDwgFiler& filer, const Groups& groups);
/// Throws what the filer throws, and OdError eDwgObjectImproperlyRead for what is no row of groups.
Groups readGroups(OdDbDwgFiler& filer);

/// DXF: the groups as they are.
void writeGroups(OdDbDxfFiler& filer, const Groups& groups);
/// Reads all groups that are left of an object of this class, extended data not counted. Without a class all points
/// come with three coordinates.
Groups readGroups(OdDbDxfFiler& filer, const DxfClass* cls = nullptr);
/// Reads from the group that the filer stands at, 102 "{NAME", to the closing one.
Groups readApplicationData(OdDbDxfFiler& filer);

} // namespace oddb
