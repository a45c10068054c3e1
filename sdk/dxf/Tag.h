// One group of a DXF file as the scanner delivers it.
#pragma once

#include "ValueKind.h"

#include <cstdint>
#include <string_view>

namespace dxf
{

/// A group: its code and its value. The text points into the file and is not decoded; it is the value itself for texts,
/// handles and bytes of an ASCII file, and empty for the numbers of a binary one.
struct Tag
{
    int code = 0;
    ValueKind kind = ValueKind::Text;
    std::string_view text;
    double real = 0.0;        ///< for ValueKind::Real
    std::int64_t integer = 0; ///< for whole numbers and truth values

    /// True for the group (0, name).
    bool opens(std::string_view name) const;
    /// True for a text group of this code and value; blanks around the value do not count.
    bool is(int groupCode, std::string_view value) const;
};

/// A place to come back to.
struct ScanPosition
{
    std::uint64_t offset = 0;
    std::uint64_t line = 1;
};

} // namespace dxf
