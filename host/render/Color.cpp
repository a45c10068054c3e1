// Implements the reading of colours.
#include "render/Color.h"

#include <algorithm>
#include <charconv>

namespace render
{

namespace
{

struct NamedColor
{
    std::string_view name;
    Color color;
};

constexpr NamedColor kNames[] = {
    {"white", {255, 255, 255, 255}}, {"black", {0, 0, 0, 255}},           {"none", {255, 255, 255, 0}},
    {"grey", {128, 128, 128, 255}},  {"lightgrey", {211, 211, 211, 255}}, {"darkgrey", {64, 64, 64, 255}},
    {"ivory", {255, 255, 240, 255}}, {"navy", {0, 0, 64, 255}},
};

std::optional<OdUInt32> parseHex(std::string_view digits)
{
    OdUInt32 value = 0;
    const char* end = digits.data() + digits.size();
    const std::from_chars_result result = std::from_chars(digits.data(), end, value, 16);
    return result.ec == std::errc() && result.ptr == end ? std::optional(value) : std::nullopt;
}

} // namespace

std::optional<Color> parseColor(std::string_view text)
{
    const auto* named =
        std::find_if(std::begin(kNames), std::end(kNames), [text](const NamedColor& row) { return row.name == text; });
    if (named != std::end(kNames))
        return named->color;
    if (text.empty() || text.front() != '#' || (text.size() != 7 && text.size() != 9))
        return std::nullopt;
    std::optional<OdUInt32> value = parseHex(text.substr(1));
    if (!value)
        return std::nullopt;
    if (text.size() == 7)
        value = *value << 8 | 0xFF;
    return Color{static_cast<OdUInt8>(*value >> 24), static_cast<OdUInt8>(*value >> 16),
                 static_cast<OdUInt8>(*value >> 8), static_cast<OdUInt8>(*value)};
}

const char* colorNames()
{
    return "white, black, none, grey, lightgrey, darkgrey, ivory, navy";
}

} // namespace render
