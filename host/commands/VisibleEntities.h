// What the current layout shows.
#pragma once

#include "DbObjectId.h"

class OdDbDatabase;

namespace hostcommands
{

// The entities that are not invisible and lie on layers that are shown, in drawing order. The viewport that stands for
// the sheet itself is none of them.
OdDbObjectIdArray visibleEntities(OdDbDatabase& database);

// The last of them; the null id when nothing is shown.
OdDbObjectId lastVisibleEntity(OdDbDatabase& database);

} // namespace hostcommands
