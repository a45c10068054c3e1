// What the current layout shows.
#pragma once

#include "DbObjectId.h"

class OdDbDatabase;

namespace hostcommands
{

// The entities of which anything is seen, in drawing order: those that selecting by shapes finds too.
OdDbObjectIdArray visibleEntities(OdDbDatabase& database);

// The last of them; the null id when nothing is shown.
OdDbObjectId lastVisibleEntity(OdDbDatabase& database);

} // namespace hostcommands
