// Text on its way between bytes and the SDK. A line of bytes becomes UTF-16 units, each in a wchar_t of its own, which
// is what JSON documents are parsed from; the units of a JSON string become an OdString of whole characters.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "OdString.h"

namespace session
{

// The UTF-16 units of a line, with a null unit behind them. Its memory serves one line after the other.
class LineUnits
{
public:
    // Turns UTF-8 into units. Returns the number of bytes that were well-formed: less than the size of bytes where they
    // are not UTF-8 any more.
    std::size_t decode(std::string_view utf8);

    // Without the null unit. They may be changed.
    std::span<wchar_t> units() { return {m_units.get(), m_size}; }
    std::wstring_view text() const { return {m_units.get(), m_size}; }

    std::size_t capacity() const { return m_capacity; }
    // Gives the memory back; there are no units then.
    void release() { *this = LineUnits(); }

private:
    void makeRoom(std::size_t size);

    std::unique_ptr<wchar_t[]> m_units;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};

// True when there may be escapes \u in these bytes.
bool hasEscapedUnits(std::string_view bytes);

// The position of the first escape that stands for half a character, std::wstring_view::npos without one. The JSON
// parser takes such a half for a fault of its caller.
std::size_t findLoneSurrogateEscape(std::wstring_view units);

// The text of UTF-16 units: two halves of a character become one character.
OdString joinSurrogates(const wchar_t* units, std::size_t length);

} // namespace session
