// The named selection sets of each open drawing.
#pragma once

#include "DbSSet.h"
#include "OdString.h"

class OdDbDatabase;

namespace hostcommands
{

// Where what is picked before a command lies; an empty name means this one. It always exists.
extern const OdChar* const kPickFirst;

// The set stored under a name, which is compared without regard to case; null when there is none. It is the caller's
// own: changing it changes nothing that is stored.
OdDbSelectionSetPtr findSelectionSet(const OdDbDatabase& database, const OdString& name);

// Stores what a set holds in place of what the name stood for, and tells the plug-in's listeners what has come and
// gone.
void storeSelectionSet(OdDbDatabase& database, const OdString& name, const OdDbSelectionSet& set);

// What was selected last; never null. Selecting nothing leaves it as it is.
OdDbSelectionSetPtr previousSelection(const OdDbDatabase& database);
void rememberSelection(const OdDbDatabase& database, const OdDbSelectionSet& set);

// Whether the set of that name is to be shown so that it stands out.
bool isHighlighted(const OdDbDatabase& database, const OdString& name);
void setHighlighted(const OdDbDatabase& database, const OdString& name, bool isHighlighted);

// Forgets all sets of a drawing that is about to be closed.
void forgetSelectionSets(const OdDbDatabase& database);

} // namespace hostcommands
