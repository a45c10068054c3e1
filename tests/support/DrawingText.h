// Small drawings as text, for tests of reading: whole ones to damage, and pieces to put together.
#pragma once

#include <string>
#include <string_view>

namespace support
{

/// One group: " 10\n1.5\n".
inline std::string group(int code, std::string_view value)
{
    return std::to_string(code) + '\n' + std::string(value) + '\n';
}

/// Several, with literal values: "0 LINE|5 50".
std::string groups(std::string_view text);

inline std::string section(std::string_view name, std::string_view content)
{
    return group(0, "SECTION") + group(2, name) + std::string(content) + group(0, "ENDSEC");
}

inline std::string headerSection(std::string_view version, std::string_view codePage = "ANSI_1252")
{
    return section("HEADER", group(9, "$ACADVER") + group(1, version) + group(9, "$DWGCODEPAGE") + group(3, codePage));
}

inline std::string endOfFile()
{
    return group(0, "EOF");
}

/// A line on layer 0, as files before R13 have it; the handle may be empty.
std::string oldLine(std::string_view handle, double x, double y);

/// A drawing of R12 with a layer, a block with a line, a reference to it with an attribute, a polyline and a text.
std::string oldDrawing();

/// A drawing of R2000 or later with two layouts and entities of several kinds, dictionaries, extended data, reactors,
/// an extension dictionary, a class nobody knows, a section nobody knows.
std::string drawing(std::string_view version);

} // namespace support
