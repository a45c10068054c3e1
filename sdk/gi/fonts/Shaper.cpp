// Implements the placing of glyphs. Most texts are of characters that stand side by side as they come; texts with
// others are cut into pieces of one direction, font and script, which HarfBuzz sets.
#include "gi/fonts/Shaper.h"

#include <fribidi.h>
#include <hb.h>

#include <algorithm>
#include <memory>

namespace fonts
{

namespace
{

struct Range
{
    wchar_t first;
    wchar_t last;
};

// Characters that are not simply put side by side.
constexpr Range kJoiningRanges[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489},   {0x0590, 0x109F},   {0x1100, 0x11FF},   {0x135D, 0x135F},   {0x1700, 0x18AF},
    {0x1900, 0x1CFF}, {0x1DC0, 0x1DFF},   {0x200B, 0x200F},   {0x202A, 0x202E},   {0x2060, 0x206F},   {0x20D0, 0x20FF},
    {0x302A, 0x302F}, {0x3099, 0x309A},   {0xA800, 0xABFF},   {0xFB1D, 0xFDFF},   {0xFE00, 0xFE0F},   {0xFE20, 0xFE2F},
    {0xFE70, 0xFEFF}, {0x10A00, 0x11FFF}, {0x1E800, 0x1EFFF}, {0x1F3FB, 0x1F3FF}, {0xE0000, 0xE0FFF},
};

bool joins(wchar_t character)
{
    return character >= kJoiningRanges[0].first &&
           std::any_of(std::begin(kJoiningRanges), std::end(kJoiningRanges),
                       [character](const Range& range) { return character >= range.first && character <= range.last; });
}

/// Characters that are set together.
struct Piece
{
    std::size_t first = 0;
    std::size_t count = 0;
    FriBidiLevel level = 0; ///< odd: from right to left
    const Typeface* typeface = nullptr;
    hb_script_t script = HB_SCRIPT_COMMON;
};

std::vector<FriBidiLevel> levelsOf(std::wstring_view text)
{
    static_assert(sizeof(FriBidiChar) == sizeof(wchar_t));
    const auto* characters = reinterpret_cast<const FriBidiChar*>(text.data());
    const auto length = static_cast<FriBidiStrIndex>(text.size());
    std::vector<FriBidiCharType> types(text.size());
    std::vector<FriBidiBracketType> brackets(text.size());
    std::vector<FriBidiLevel> levels(text.size());
    fribidi_get_bidi_types(characters, length, types.data());
    fribidi_get_bracket_types(characters, length, types.data(), brackets.data());
    FriBidiParType base = FRIBIDI_PAR_ON;
    if (!fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), length, &base, levels.data()))
        std::fill(levels.begin(), levels.end(), FriBidiLevel(0));
    return levels;
}

bool hasOwnScript(hb_script_t script)
{
    return script != HB_SCRIPT_COMMON && script != HB_SCRIPT_INHERITED && script != HB_SCRIPT_UNKNOWN;
}

/// Cuts where direction, font or script changes; signs without a script or a glyph of their own stay with what they
/// follow.
std::vector<Piece> cut(const Font& font, std::wstring_view text)
{
    hb_unicode_funcs_t* unicode = hb_unicode_funcs_get_default();
    const std::vector<FriBidiLevel> levels = levelsOf(text);
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const hb_script_t script = hb_unicode_script(unicode, static_cast<hb_codepoint_t>(text[i]));
        const bool follows = script == HB_SCRIPT_INHERITED || isControl(text[i]);
        const Typeface* typeface = follows && !pieces.empty() ? pieces.back().typeface : font.find(text[i]).typeface;
        Piece* last = pieces.empty() ? nullptr : &pieces.back();
        const bool sameScript =
            last && (!hasOwnScript(script) || !hasOwnScript(last->script) || script == last->script);
        if (last && sameScript && last->level == levels[i] && last->typeface == typeface)
        {
            ++last->count;
            last->script = hasOwnScript(last->script) ? last->script : script;
        }
        else
            pieces.push_back({i, 1, levels[i], typeface, script});
    }
    return pieces;
}

/// Puts pieces into the order in which they are seen: from the highest level down, neighbours of at least that level
/// change their order.
void orderAsSeen(std::vector<Piece>& pieces)
{
    FriBidiLevel highest = 0;
    for (const Piece& piece : pieces)
        highest = std::max(highest, piece.level);
    for (FriBidiLevel level = highest; level > 0; --level)
    {
        const auto isInner = [level](const Piece& piece) { return piece.level >= level; };
        auto first = std::find_if(pieces.begin(), pieces.end(), isInner);
        while (first != pieces.end())
        {
            const auto last = std::find_if_not(first, pieces.end(), isInner);
            std::reverse(first, last);
            first = std::find_if(last, pieces.end(), isInner);
        }
    }
}

using Buffer = std::unique_ptr<hb_buffer_t, decltype(&hb_buffer_destroy)>;

void shapePiece(const Piece& piece, std::wstring_view text, hb_buffer_t* buffer)
{
    static_assert(sizeof(wchar_t) == sizeof(std::uint32_t));
    constexpr hb_feature_t kFeatures[] = {
        {HB_TAG('k', 'e', 'r', 'n'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
        {HB_TAG('l', 'i', 'g', 'a'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
        {HB_TAG('c', 'l', 'i', 'g'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    };
    hb_buffer_clear_contents(buffer);
    hb_buffer_add_utf32(buffer, reinterpret_cast<const std::uint32_t*>(text.data()), static_cast<int>(text.size()),
                        static_cast<unsigned int>(piece.first), static_cast<int>(piece.count));
    hb_buffer_set_direction(buffer, piece.level % 2 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, hasOwnScript(piece.script) ? piece.script : HB_SCRIPT_COMMON);
    hb_buffer_set_language(buffer, hb_language_from_string("und", -1));
    hb_shape(piece.typeface->shapingFont(), buffer, kFeatures, std::size(kFeatures));
}

double placePiece(const Font& font, const Piece& piece, std::wstring_view text, double x, double tracking,
                  hb_buffer_t* buffer, std::vector<PlacedGlyph>& placed)
{
    shapePiece(piece, text, buffer);
    const double scale = 1.0 / piece.typeface->unitsPerHeight();
    unsigned int count = 0;
    const hb_glyph_info_t* glyphs = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* places = hb_buffer_get_glyph_positions(buffer, &count);
    for (unsigned int i = 0; i < count; ++i)
    {
        const FoundGlyph found = font.found(*piece.typeface, glyphs[i].codepoint);
        const double across = scale * found.widthPart;
        const double advance = places[i].x_advance * across * tracking;
        placed.push_back(
            {found, glyphs[i].cluster, x + places[i].x_offset * across, places[i].y_offset * scale, advance});
        x += advance;
    }
    return x;
}

void placeJoining(const Font& font, std::wstring_view text, double tracking, std::vector<PlacedGlyph>& placed)
{
    const Buffer buffer(hb_buffer_create(), &hb_buffer_destroy);
    std::vector<Piece> pieces = cut(font, text);
    orderAsSeen(pieces);
    double x = 0.0;
    for (const Piece& piece : pieces)
        x = placePiece(font, piece, text, x, tracking, buffer.get(), placed);
}

} // namespace

bool isControl(wchar_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

bool isJoining(const Font& font, std::wstring_view text)
{
    return font.typeface().hasOutlines() && std::any_of(text.begin(), text.end(), joins);
}

double widthOf(const Font& font, std::wstring_view text, double tracking)
{
    double width = 0.0;
    if (isJoining(font, text))
    {
        for (const PlacedGlyph& glyph : placeGlyphs(font, text, tracking))
            width += glyph.advance;
        return width;
    }
    for (const wchar_t character : text)
    {
        if (character == L'\t')
            width += font.find(L' ').advance() * kTabSpaces;
        else if (!isControl(character))
            width += font.find(character).advance();
    }
    return width * tracking;
}

std::vector<PlacedGlyph> placeGlyphs(const Font& font, std::wstring_view text, double tracking)
{
    std::vector<PlacedGlyph> placed;
    placed.reserve(text.size());
    if (isJoining(font, text))
        placeJoining(font, text, tracking, placed);
    else
        visitSimple(font, text, tracking, [&placed](const PlacedGlyph& glyph) { placed.push_back(glyph); });
    return placed;
}

} // namespace fonts
