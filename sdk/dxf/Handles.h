// Handles as a DXF file spells them: hexadecimal digits without a prefix.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dxf
{

/// Reads a handle; blanks around the digits are passed over. Returns false, and leaves the handle alone, when the text
/// is empty, holds anything else than hexadecimal digits or is wider than 64 bits.
bool parseHandle(std::string_view text, std::uint64_t& handle);

/// Writes the handle's digits (at most 16) to the buffer and returns the end of what was written.
char* printHandle(std::uint64_t handle, char* buffer);

std::string handleText(std::uint64_t handle);

/// Returns the value of a hexadecimal digit, or -1 for any other character.
int hexDigit(char character);

} // namespace dxf
