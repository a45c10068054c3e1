// Colours of pictures.
#pragma once

#include <optional>
#include <string_view>

#include "OdPlatform.h"

namespace render
{

/// Each part from 0 to 255; alpha 0 is invisible.
struct Color
{
    OdUInt8 red = 0;
    OdUInt8 green = 0;
    OdUInt8 blue = 0;
    OdUInt8 alpha = 255;

    bool operator==(const Color&) const = default;
    bool isOpaque() const { return alpha == 255; }
    /// True for colours that black is seen on better than white.
    bool isLight() const { return 299 * red + 587 * green + 114 * blue > 127500; }
};

/// A colour by its name ("white", "none") or as "#RRGGBB" or "#RRGGBBAA"; none for any other text.
std::optional<Color> parseColor(std::string_view text);

/// The names that parseColor knows, with commas between.
const char* colorNames();

} // namespace render
