// Sets lines of text: finds the glyph of each character and its place, also in scripts whose characters change with
// their neighbours or run from right to left.
#pragma once

#include <string_view>

#include "Gi/GiShapedText.h"
#include "gi/fonts/Font.h"

namespace fonts
{

/// A glyph in the order in which it is seen, in text heights from the start of the line.
struct PlacedGlyph
{
    FoundGlyph found;
    OdUInt32 character = 0;
    double x = 0.0;
    double y = 0.0;
    double advance = 0.0;
};

/// The glyphs of a line. tracking widens the distance from glyph to glyph.
std::vector<PlacedGlyph> placeGlyphs(const Font& font, std::wstring_view text, double tracking);

/// The width of a line, in text heights.
double widthOf(const Font& font, std::wstring_view text, double tracking);

/// A line in the style's font.
OdGiShapedText shape(const OdGiTextStyle& style, std::wstring_view message, bool raw);

} // namespace fonts
