// Text on its way between bytes and the SDK. A line of bytes becomes UTF-16 units, each in a wchar_t of its own, which
// is what JSON documents are parsed from; the units of a JSON string become an OdString of whole characters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "OdString.h"

namespace session
{

// Turns UTF-8 into UTF-16 units with a null unit behind them. Returns the number of bytes that were well-formed: less
// than the size of bytes where they are not UTF-8 any more.
std::size_t decodeUtf8(std::string_view bytes, std::vector<wchar_t>& units);

// True when there may be escapes \u in these bytes.
bool hasEscapedUnits(std::string_view bytes);

// The position of the first escape that stands for half a character, std::wstring_view::npos without one. The JSON
// parser takes such a half for a fault of its caller.
std::size_t findLoneSurrogateEscape(const std::vector<wchar_t>& units);

// The text of UTF-16 units: two halves of a character become one character.
OdString joinSurrogates(const wchar_t* units, std::size_t length);

} // namespace session
