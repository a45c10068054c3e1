// Sets lines of text: finds the glyph of each character and its place, also in scripts whose characters change with
// their neighbours or run from right to left.
#pragma once

#include <string_view>

#include "Gi/GiShapedText.h"
#include "gi/fonts/Font.h"

namespace fonts
{

constexpr int kTabSpaces = 4;

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

/// True when glyphs do not simply stand side by side, one for each character.
bool isJoining(const Font& font, std::wstring_view text);

/// Of control characters there is no glyph.
bool isControl(wchar_t character);

/// Calls visit(glyph) for the glyphs of characters that simply stand side by side.
template<class Visit>
void visitSimple(const Font& font, std::wstring_view text, double tracking, Visit visit)
{
    double x = 0.0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool tab = text[i] == L'\t';
        if (isControl(text[i]) && !tab)
            continue;
        const FoundGlyph found = font.find(tab ? L' ' : text[i]);
        const double advance = found.advance() * (tab ? kTabSpaces : 1) * tracking;
        visit(PlacedGlyph{found, static_cast<OdUInt32>(i), x, 0.0, advance});
        x += advance;
    }
}

/// A line in the style's font.
OdGiShapedText shape(const OdGiTextStyle& style, std::wstring_view message, bool raw);
/// Where that line is.
OdGiTextInk inkOf(const OdGiTextStyle& style, std::wstring_view message, bool raw);

} // namespace fonts
