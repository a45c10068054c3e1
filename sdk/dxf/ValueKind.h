// Which kind of value follows a group code. A DXF file is a row of groups, each a code and a value; the code alone says
// whether the value is a text, a number or bytes, and how wide the number is in the binary form.
#pragma once

#include <array>
#include <cstdint>

namespace dxf
{

/// The kind of value that a group code announces. The widths are those of the binary form.
enum class ValueKind : std::uint8_t
{
    Text,    ///< a line, or bytes up to a zero
    Handle,  ///< hexadecimal digits, stored as text in both forms
    Real,    ///< 8 bytes
    Int16,   ///< 2 bytes
    Int32,   ///< 4 bytes
    Int64,   ///< 8 bytes
    Bool,    ///< 1 byte
    Bytes,   ///< hexadecimal digits; in the binary form a length byte and as many bytes
    Comment, ///< code 999
};

constexpr int kLowestCode = -8;
constexpr int kHighestCode = 2039;

/// True when the code may head a group: kLowestCode..kHighestCode.
constexpr bool isGroupCode(int code)
{
    return code >= kLowestCode && code <= kHighestCode;
}

/// The kinds from kLowestCode on.
extern const std::array<ValueKind, kHighestCode - kLowestCode + 1> kValueKinds;

/// Says which kind of value the code announces. Codes outside of kLowestCode..kHighestCode are texts.
inline ValueKind valueKind(int code)
{
    return isGroupCode(code) ? kValueKinds[static_cast<std::size_t>(code - kLowestCode)] : ValueKind::Text;
}

/// True for the kinds whose value is a whole number.
constexpr bool isInteger(ValueKind kind)
{
    return kind >= ValueKind::Int16 && kind <= ValueKind::Bool;
}

} // namespace dxf
