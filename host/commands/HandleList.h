// Reads handles that a user typed.
#pragma once

#include "DbObjectId.h"
#include "OdString.h"

class OdDbDatabase;

namespace hostcommands
{

// The object of a handle in hexadecimal digits. Throws OdError(eInvalidInput), which names the handle, for one that is
// malformed or names neither an entity nor an entry of a dictionary, or an erased one.
OdDbObjectId objectOfHandle(OdDbDatabase& database, const OdString& handle);

// The objects of handles with blanks, commas or semicolons in between. Throws as objectOfHandle.
OdDbObjectIdArray objectsOfHandles(OdDbDatabase& database, const OdString& list);

} // namespace hostcommands
