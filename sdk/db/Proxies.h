// Proxies: the objects that stand for those of classes that nobody has registered.
#pragma once

#include <string_view>

#include "DatabaseImpl.h"
#include "DbObject.h"

namespace oddb
{

/// A new proxy, not resident, for an object that files have under this name.
OdDbObjectPtr makeProxy(DatabaseImpl& database, std::string_view dxfName, bool isEntity);

/// The name that files have for the object of a proxy; empty for all other objects.
std::string_view proxyDxfName(const OdDbObject& object);

/// Names the object that a proxy stands for; an empty name changes nothing.
void nameProxy(OdDbObject& proxy, std::string_view dxfName);

/// Puts a proxy with these groups in the place of an object that cannot read them. Owner, reactors and XData stay.
/// Nobody may hold the object open.
void replaceByProxy(DatabaseImpl& database, OdDbStub& stub, const Groups& groups);

} // namespace oddb
