// What the number of a group says of its value, inside the database: the type of the value, and for references what
// they mean for ownership.
#pragma once

#include <cstdint>
#include <optional>

#include "DwgVersion.h"

namespace oddb
{

enum class GroupValue : std::uint8_t
{
    None, ///< no group has this number
    Text,
    Point, ///< the first coordinate of a point
    Real,
    Int16,
    Int32,
    Int64,
    Boolean,
    Handle,
    Binary
};

/// The type of the value. The second and third coordinates of a point are reals.
GroupValue groupValue(int code);

/// What a reference of this code means; none for the codes whose handle is a bare number (320..329) and for codes that
/// are no reference.
std::optional<OdDb::ReferenceType> referenceType(int code);

} // namespace oddb
