// The versions of drawing files by the names that people and files call them.
#pragma once

#include "DwgVersion.h"
#include "OdString.h"

namespace hostcommands
{

// The version of a name such as "R2010", "2010" or "AC1024". Throws OdError(eInvalidInput), which lists the names.
OdDb::DwgVersion versionFromName(const OdString& name);

// "R2010 (AC1024)"; "unknown" for a version that has no name.
OdString describeVersion(OdDb::DwgVersion version);

// True for versions that have no place for what the plug-in keeps in drawings.
bool isTooOldForLabels(OdDb::DwgVersion version);

// The version itself, or R2018 in place of one that is too old.
OdDb::DwgVersion versionToWrite(OdDb::DwgVersion version);

} // namespace hostcommands
