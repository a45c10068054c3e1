// The names that files give to the versions of the format.
#pragma once

#include "DwgVersion.h"

#include <string_view>

namespace dxf
{

/// Returns the version behind $ACADVER; OdDb::kDHL_Unknown for a name that is none.
OdDb::DwgVersion versionOf(std::string_view name);

/// Returns the name of a version that is written: R2000 and later.
std::string_view versionName(OdDb::DwgVersion version);

/// Returns the version in which a drawing is written when this one is asked for: older ones than R2000 become the
/// newest.
OdDb::DwgVersion writtenVersion(OdDb::DwgVersion version);

/// True when texts are UTF-8, false when they are in a code page.
constexpr bool isUtf8Version(OdDb::DwgVersion version)
{
    return version >= OdDb::vAC21;
}

} // namespace dxf
