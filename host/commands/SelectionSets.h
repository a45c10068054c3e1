// The named selection sets of each open drawing.
#pragma once

#include "DbSSet.h"
#include "OdString.h"

class OdDbDatabase;

namespace hostcommands
{

// Where what is picked before a command lies; an empty name means this one. It always exists.
extern const OdChar* const kPickFirst;

// The set stored under a name, which is compared without regard to case; null when there is none.
OdDbSelectionSetPtr findSelectionSet(OdDbDatabase& database, const OdString& name);

// Stores a set in place of what the name stood for.
void storeSelectionSet(OdDbDatabase& database, const OdString& name, const OdDbSelectionSetPtr& set);

// Forgets all sets of a drawing that is about to be closed.
void forgetSelectionSets(const OdDbDatabase& database);

} // namespace hostcommands
