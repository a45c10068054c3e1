// Implements fonts and the keeping of all that were asked for.
#include "gi/fonts/Font.h"

#include <algorithm>

namespace fonts
{

namespace
{

/// What shows a character that few fonts have, better than the same character of a font of other looks.
struct Likeness
{
    wchar_t character;
    wchar_t shown;
};

constexpr Likeness kLikenesses[] = {
    {0x2205, 0x2300}, // diameter sign
    {0x2205, 0x00D8}, {0x2300, 0x2205}, {0x2300, 0x00D8}, {0x00A0, L' '},
    {0x2011, L'-'},   {0x2212, L'-'},   {0x2126, 0x03A9}, {0x212B, 0x00C5},
};

} // namespace

std::shared_ptr<const Typeface> typefaceOf(const FontFile& file)
{
    static auto* const typefaces = new std::map<std::pair<std::string, int>, std::shared_ptr<const Typeface>>;
    std::shared_ptr<const Typeface>& typeface = (*typefaces)[{file.path, file.face}];
    if (!typeface)
        typeface = std::make_shared<const Typeface>(file);
    return typeface;
}

std::shared_ptr<const Typeface> typefaceOf(const OdGiGlyphFont& font)
{
    return typefaceOf(*font.file);
}

Font::Font(FontRequest request)
    : m_request(std::move(request)), m_typeface(typefaceOf(findFont(m_request))),
      m_widthPart(widthPartFor(m_request.family, m_typeface->file().family, 1.0 / m_typeface->emSize()))
{
}

Font::Font(std::unique_ptr<Typeface> typeface)
    : m_typeface(std::move(typeface)), m_substitutes(std::vector<Substitute>())
{
}

const Font& Font::of(const OdGiTextStyle& style)
{
    static auto* const known = new std::map<FontRequest, std::unique_ptr<Font>>;
    if (!style.m_font)
    {
        FontRequest request = requestFor(odStringToUtf8(style.m_fileName), odStringToUtf8(style.m_typeface),
                                         style.m_bold, style.m_italic);
        std::unique_ptr<Font>& font = (*known)[request];
        if (!font)
            font = std::make_unique<Font>(std::move(request));
        style.m_font = font.get();
    }
    return *style.m_font;
}

FoundGlyph Font::found(const Typeface& typeface, OdUInt32 glyph) const
{
    return {&typeface, glyph, &typeface.measuresOf(glyph), &typeface == m_typeface.get() ? m_widthPart : 1.0};
}

FoundGlyph Font::find(wchar_t character) const
{
    const auto index = static_cast<std::size_t>(static_cast<std::uint32_t>(character));
    if (index < m_common.size())
    {
        FoundGlyph& common = m_common[index];
        if (!common.typeface)
            common = search(character);
        return common;
    }
    const auto known = m_others.find(character);
    return known != m_others.end() ? known->second : m_others.emplace(character, search(character)).first->second;
}

double Font::descent() const
{
    double depth = 0.0;
    for (const wchar_t character : {L'g', L'p', L'q', L'y'})
    {
        const OdGeExtents2d& ink = find(character).measures->ink;
        depth = ink.isValidExtents() ? std::max(depth, -ink.minPoint().y) : depth;
    }
    return depth;
}

FoundGlyph Font::search(wchar_t character) const
{
    if (const OdUInt32 glyph = m_typeface->glyphOf(character))
        return found(*m_typeface, glyph);
    for (const Likeness& row : kLikenesses)
    {
        if (row.character != character)
            continue;
        if (const OdUInt32 glyph = m_typeface->glyphOf(row.shown))
            return found(*m_typeface, glyph);
    }
    return searchSubstitutes(character);
}

FoundGlyph Font::searchSubstitutes(wchar_t character) const
{
    if (!m_substitutes)
        m_substitutes = findSubstitutes(m_request);
    for (const Substitute& substitute : *m_substitutes)
    {
        if (!substitute.coverage.has(character))
            continue;
        const Typeface& typeface = *typefaceOf(substitute.file);
        if (const OdUInt32 glyph = typeface.glyphOf(character))
            return found(typeface, glyph);
    }
    return found(*m_typeface, 0);
}

} // namespace fonts
