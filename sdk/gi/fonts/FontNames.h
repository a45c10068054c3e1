// Which font a drawing means by the name of a file or of a typeface.
#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace fonts
{

/// What installed fonts are searched for.
struct FontRequest
{
    std::string family;
    std::string file; ///< the name of a font file that goes before the family when it is installed; lower case
    bool bold = false;
    bool italic = false;

    auto operator<=>(const FontRequest&) const = default; // NOLINT(modernize-use-nullptr): there is none
};

/// The family of the technical drawing font that stands for fonts of strokes.
constexpr std::string_view kTechnicalFamily = "osifont";
/// The family that stands for outline fonts nobody knows.
constexpr std::string_view kPlainFamily = "Liberation Sans";

/// How much narrower than its own a family is set where it stands for another one of the same advance widths: letters
/// of both then have the height that is asked for, and lines the width of the font that was meant. 1 for other pairs.
double widthPartFor(std::string_view meantFamily, std::string_view family, double capHeightOfEm);

/// The font of a file name or, where it is not empty, of a typeface.
FontRequest requestFor(std::string_view fileName, std::string_view typeface, bool bold, bool italic);

} // namespace fonts
