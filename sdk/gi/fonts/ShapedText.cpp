// Implements the setting of lines in a style: codes, size and slant, bars, and what is covered.
#include <algorithm>
#include <cmath>

#include "gi/TextCodes.h"
#include "gi/fonts/Shaper.h"

namespace fonts
{

namespace
{

constexpr double kItalicSlant = 0.21; ///< of fonts that have no slanted cut
constexpr double kSteepest = 85.0 * 3.14159265358979323846 / 180.0;
constexpr double kBarHeight = 0.06; ///< all in text heights
constexpr double kUnderline = -0.25;
constexpr double kOverline = 1.2;
constexpr double kStrike = 0.47;
constexpr double kVerticalStep = 1.5;

enum Bar : unsigned char
{
    kUnder = 1,
    kOver = 2,
    kThrough = 4
};

struct BarPlace
{
    Bar bar;
    double height;
};

constexpr BarPlace kBarPlaces[] = {{kUnder, kUnderline}, {kOver, kOverline}, {kThrough, kStrike}};

/// The characters of a message, and the bars at each of them where there are any.
struct Decoded
{
    std::wstring text;
    std::vector<unsigned char> bars;

    unsigned char barsAt(std::size_t character) const { return character < bars.size() ? bars[character] : 0; }
};

unsigned char barsOf(const OdGiTextStyle& style)
{
    return static_cast<unsigned char>((style.isUnderlined() ? kUnder : 0) | (style.isOverlined() ? kOver : 0) |
                                      (style.isStriked() ? kThrough : 0));
}

unsigned char barOf(textcodes::CodeKind kind)
{
    switch (kind)
    {
    case textcodes::CodeKind::kUnderline:
        return kUnder;
    case textcodes::CodeKind::kOverline:
        return kOver;
    case textcodes::CodeKind::kStrike:
        return kThrough;
    default:
        return 0;
    }
}

bool mayHaveCodes(std::wstring_view message)
{
    return message.find_first_of(L"%\\") != std::wstring_view::npos;
}

Decoded decode(std::wstring_view message, unsigned char bars, bool raw)
{
    Decoded decoded;
    if (raw || !mayHaveCodes(message))
    {
        decoded.text = message;
        if (bars)
            decoded.bars.assign(message.size(), bars);
        return decoded;
    }
    decoded.text.reserve(message.size());
    while (!message.empty())
    {
        const textcodes::Visible next = textcodes::readVisible(message);
        bars ^= barOf(next.kind);
        if (next.kind == textcodes::CodeKind::kCharacter)
        {
            decoded.bars.resize(decoded.text.size());
            decoded.text.push_back(next.character);
            decoded.bars.push_back(bars);
        }
        message.remove_prefix(next.length);
    }
    return decoded;
}

/// Collects the bars of glyphs that follow each other as one.
class BarBuilder
{
public:
    BarBuilder(OdGiShapedText& shaped, double size, double widthScale)
        : m_shaped(shaped), m_size(size), m_widthScale(widthScale)
    {
    }

    void add(const PlacedGlyph& glyph, unsigned char bars)
    {
        for (std::size_t i = 0; i < std::size(kBarPlaces); ++i)
        {
            if ((bars & kBarPlaces[i].bar) == 0)
                m_open[i] = -1;
            else if (m_open[i] < 0)
                open(i, glyph);
            else
            {
                OdGiTextBar& bar = m_shaped.bars[static_cast<std::size_t>(m_open[i])];
                bar.addPoint({(glyph.x + glyph.advance) * m_widthScale, bar.minPoint().y});
            }
        }
    }

private:
    void open(std::size_t i, const PlacedGlyph& glyph)
    {
        const double low = (kBarPlaces[i].height - kBarHeight / 2) * m_size;
        m_open[i] = static_cast<int>(m_shaped.bars.size());
        m_shaped.bars.emplace_back(OdGePoint2d(glyph.x * m_widthScale, low),
                                   OdGePoint2d((glyph.x + glyph.advance) * m_widthScale, low + kBarHeight * m_size));
    }

    OdGiShapedText& m_shaped;
    double m_size;
    double m_widthScale;
    int m_open[std::size(kBarPlaces)] = {-1, -1, -1};
};

double slantOf(const OdGiTextStyle& style, const Font& font)
{
    const double angle = std::clamp(style.obliquingAngle(), -kSteepest, kSteepest);
    return (std::isfinite(angle) ? std::tan(angle) : 0.0) + (font.needsSlant() ? kItalicSlant : 0.0);
}

OdUInt32 fontIndex(OdGiShapedText& shaped, const FoundGlyph& found, const OdGiTextStyle& style, double slant)
{
    const Typeface& typeface = *found.typeface;
    const auto isUsed = [&typeface](const OdGiGlyphFont& font) { return font.file == &typeface.file(); };
    const auto known = std::find_if(shaped.fonts.begin(), shaped.fonts.end(), isUsed);
    if (known != shaped.fonts.end())
        return static_cast<OdUInt32>(known - shaped.fonts.begin());
    shaped.fonts.push_back(
        {&typeface.file(), typeface.emSize() * style.textSize(), style.xScale() * found.widthPart, slant});
    return static_cast<OdUInt32>(shaped.fonts.size() - 1);
}

/// Puts the glyphs of a line one below the other, each in the middle above the others.
void standUpright(std::vector<PlacedGlyph>& placed)
{
    double y = 0.0;
    for (PlacedGlyph& glyph : placed)
    {
        glyph.x = -glyph.advance / 2;
        glyph.y = y - 1.0;
        y -= kVerticalStep;
    }
}

void addInk(OdGeExtents2d& box, const PlacedGlyph& glyph, double size, double widthScale)
{
    const OdGeExtents2d& ink = glyph.found.measures->ink;
    if (!ink.isValidExtents())
        return;
    const double part = glyph.found.widthPart;
    box.addPoint({(glyph.x + ink.minPoint().x * part) * widthScale, (glyph.y + ink.minPoint().y) * size});
    box.addPoint({(glyph.x + ink.maxPoint().x * part) * widthScale, (glyph.y + ink.maxPoint().y) * size});
}

} // namespace

OdGiShapedText shape(const OdGiTextStyle& style, std::wstring_view message, bool raw)
{
    const Font& font = Font::of(style);
    Decoded decoded = decode(message, barsOf(style), raw);
    std::vector<PlacedGlyph> placed = placeGlyphs(font, decoded.text, style.trackingPercent());
    const double size = style.textSize();
    const double widthScale = size * style.xScale();
    const double slant = slantOf(style, font);
    OdGiShapedText shaped;
    for (const PlacedGlyph& glyph : placed)
        shaped.width += glyph.advance * widthScale;
    if (style.isVertical())
        standUpright(placed);
    BarBuilder bars(shaped, size, widthScale);
    shaped.glyphs.reserve(placed.size());
    for (const PlacedGlyph& glyph : placed)
    {
        const OdUInt32 index = fontIndex(shaped, glyph.found, style, slant);
        shaped.glyphs.push_back({index, glyph.found.glyph, glyph.character, glyph.x * widthScale, glyph.y * size});
        addInk(shaped.ink, glyph, size, widthScale);
        bars.add(glyph, decoded.barsAt(glyph.character));
    }
    for (const OdGiTextBar& bar : shaped.bars)
        shaped.ink.addExt(bar);
    shaped.text = std::move(decoded.text);
    return shaped;
}

OdGiTextInk inkOf(const OdGiTextStyle& style, std::wstring_view message, bool raw)
{
    const Font& font = Font::of(style);
    OdGiTextInk ink{{}, slantOf(style, font)};
    if (style.isVertical() || barsOf(style) || (!raw && mayHaveCodes(message)) || isJoining(font, message))
    {
        ink.box = shape(style, message, raw).ink;
        return ink;
    }
    const double size = style.textSize();
    visitSimple(font, message, style.trackingPercent(),
                [&](const PlacedGlyph& glyph) { addInk(ink.box, glyph, size, size * style.xScale()); });
    return ink;
}

} // namespace fonts

namespace
{

std::wstring_view viewOf(const OdChar* message, OdInt32 length)
{
    return {message, static_cast<std::size_t>(std::max<OdInt32>(length, 0))};
}

} // namespace

OdGiShapedText odgiShapeText(const OdGiTextStyle& style, const OdChar* message, OdInt32 length, bool raw)
{
    return fonts::shape(style, viewOf(message, length), raw);
}

OdGiTextInk odgiTextInk(const OdGiTextStyle& style, const OdChar* message, OdInt32 length, bool raw)
{
    return fonts::inkOf(style, viewOf(message, length), raw);
}
