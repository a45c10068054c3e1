// All entity classes in one table: their names in files, their runtime classes, the parts of their data, and what a new
// object of the class holds.
#pragma once

#include "db/DxfClassTable.h"

class OdRxClass;

namespace entityclasses
{

/// Enters all entity classes into the runtime's class dictionary and into the table of files' classes.
void registerClasses();
void unregisterClasses();

/// The class among those that share a name in files (INSERT, POLYLINE, VERTEX, DIMENSION) that the groups belong to: by
/// their subclass markers, or by their flags when they have none. For other names the one class; null when
/// there is none.
const oddb::DxfClass* classFor(std::string_view dxfName, const oddb::Groups& groups);

/// The class of the tables for a runtime class: its own or that of its nearest base.
const oddb::DxfClass* classOf(const OdRxClass* runtimeClass);

/// What an object of the class begins with: all markers and the groups without which a file is not accepted.
oddb::Groups initialGroups(const oddb::DxfClass& dxfClass);
/// The same for a runtime class; empty for one without tables.
oddb::Groups initialGroupsOf(const OdRxClass* runtimeClass);

} // namespace entityclasses
