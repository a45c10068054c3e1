// Fonts: which one a name means, what lines of text become in it, and what happens to characters that fonts lack.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

#include "Gi/GiShapedText.h"
#include "gi/fonts/Shaper.h"

namespace
{

using fonts::FontRequest;

TEST(FontNames, MeanTheFontThatDrawingsKnowByThem)
{
    const struct
    {
        const char *file, *typeface;
        bool bold;
        FontRequest meant;
    } rows[] = {
        {"txt", "", false, {"osifont", "", false, false}},
        {"", "", false, {"osifont", "", false, false}},
        {"simplex.shx", "", false, {"osifont", "", false, false}},
        {"C:\\fonts\\ROMANC.SHX", "", false, {"Liberation Serif", "", false, false}},
        {"/fonts/monotxt.shx", "", false, {"Liberation Mono", "", false, false}},
        {"italicc", "", false, {"Liberation Serif", "", false, true}},
        {"nobodyknows.shx", "", false, {"osifont", "", false, false}},
        {"ARIALBD.TTF", "", false, {"Arial", "", true, false}},
        {"arial.ttf", "", true, {"Arial", "", true, false}},
        {"timesbi.ttf", "", false, {"Times New Roman", "", true, true}},
        {"isocpeur.ttf", "", false, {"osifont", "", false, false}},
        {"Own Font.ttf", "", false, {"own font", "own font.ttf", false, false}},
        {"", "ISOCPEUR", false, {"osifont", "", false, false}},
        {"simplex.shx", "Courier New", true, {"Courier New", "", true, false}},
        {"", "@Batang", false, {"Batang", "", false, false}},
        {".ttf", "", false, {"", ".ttf", false, false}},
        {"a.b.c", "", false, {"osifont", "", false, false}},
    };
    for (const auto& row : rows)
    {
        const FontRequest meant = fonts::requestFor(row.file, row.typeface, row.bold, false);
        EXPECT_EQ(meant.family, row.meant.family) << row.file << "," << row.typeface;
        EXPECT_EQ(meant.file, row.meant.file) << row.file;
        EXPECT_EQ(meant.bold, row.meant.bold) << row.file;
        EXPECT_EQ(meant.italic, row.meant.italic) << row.file;
    }
}

OdGiShapedText shape(const OdGiTextStyle& style, std::wstring_view text, bool raw = true)
{
    return fonts::shape(style, text, raw);
}

OdGiTextStyle typeface(const wchar_t* name)
{
    OdGiTextStyle style;
    style.setFont(name, false, false);
    return style;
}

/// Advances of the usual font over the height of its capitals, whether that font is installed or one of equal advances.
TEST(ShapedText, HasTheWidthsOfTheUsualFont)
{
    const OdGiTextStyle arial = typeface(L"Arial");
    const double capital = 1466.0; // of 2048 units to the em
    EXPECT_NEAR(shape(arial, L"HHH").width, 3 * 1479 / capital, 0.005);
    EXPECT_NEAR(shape(arial, L"DIMENSION").width, 11606 / capital, 0.02);
    EXPECT_NEAR(shape(arial, L"iii").width, 3 * 455 / capital, 0.005);
    EXPECT_NEAR(shape(arial, L"H").ink.maxPoint().y, 1.0, 1e-9);
    EXPECT_NEAR(shape(arial, L"x\u00D8").ink.minPoint().y, -0.03, 0.02);
    EXPECT_LT(shape(arial, L"gjpqy").ink.minPoint().y, -0.25);
}

TEST(ShapedText, FollowsItsStyle)
{
    OdGiTextStyle style = typeface(L"Arial");
    const double width = shape(style, L"Width").width;
    style.setTextSize(2.5);
    style.setXScale(0.8);
    EXPECT_NEAR(shape(style, L"Width").width, width * 2, 1e-9);
    style.setTrackingPercent(1.5);
    EXPECT_NEAR(shape(style, L"Width").width, width * 3, 1e-9);
    style.setFont(L"Arial", false, true);
    EXPECT_EQ(shape(style, L"x").fonts.front().slant, 0.0) << "an italic font needs no slant";
    style.setObliquingAngle(std::atan(0.5));
    EXPECT_NEAR(shape(style, L"x").fonts.front().slant, 0.5, 1e-9);
    EXPECT_NE(shape(style, L"x").fonts.front().file->path, shape(typeface(L"Arial"), L"x").fonts.front().file->path);
}

TEST(ShapedText, ReadsPercentCodesUnlessToldThatTheTextIsRaw)
{
    const OdGiTextStyle style = typeface(L"Arial");
    EXPECT_EQ(shape(style, L"%%c5%%d", false).text, L"\u22055\u00B0");
    EXPECT_EQ(shape(style, L"%%c5%%d", true).text, L"%%c5%%d");
    const OdGiShapedText lined = shape(style, L"a%%ubc%%ud%%oe", false);
    ASSERT_EQ(lined.bars.size(), 2u);
    EXPECT_EQ(lined.text, L"abcde");
    EXPECT_NEAR(lined.bars[0].minPoint().x, shape(style, L"a").width, 1e-9);
    EXPECT_NEAR(lined.bars[0].maxPoint().x, shape(style, L"abc").width, 1e-9);
    EXPECT_NEAR(lined.bars[1].maxPoint().x, lined.width, 1e-9);
}

TEST(ShapedText, TakesCharactersThatTheFontLacksFromOthers)
{
    const OdGiTextStyle style = typeface(L"Liberation Sans");
    const OdGiShapedText diameter = shape(style, L"\u2205H");
    EXPECT_EQ(diameter.fonts.size(), 1u) << "a letter of the same font stands for the sign";
    EXPECT_NE(diameter.glyphs.front().index, 0u);
    const OdGiShapedText nobody = shape(style, L"\U0010FFFD");
    ASSERT_EQ(nobody.glyphs.size(), 1u);
    EXPECT_EQ(nobody.glyphs.front().index, 0u) << "the sign of a missing character";
}

TEST(ShapedText, RunsFromRightToLeftWhereTheScriptDoes)
{
    const OdGiTextStyle style = typeface(L"Liberation Sans");
    const std::wstring_view text = L"ab \u05D0\u05D1\u05D2 12";
    const OdGiShapedText shaped = shape(style, text);
    ASSERT_EQ(shaped.glyphs.size(), text.size());
    std::wstring seen;
    for (const OdGiGlyph& glyph : shaped.glyphs)
        seen.push_back(shaped.text[glyph.character]);
    EXPECT_EQ(seen, L"ab 12 \u05D2\u05D1\u05D0");
    for (std::size_t i = 1; i < shaped.glyphs.size(); ++i)
        EXPECT_GT(shaped.glyphs[i].x, shaped.glyphs[i - 1].x);
}

TEST(ShapedText, PutsAccentsOverTheirLetters)
{
    const OdGiTextStyle style = typeface(L"Liberation Sans");
    EXPECT_NEAR(shape(style, L"e\u0301x").width, shape(style, L"\u00E9x").width, 1e-9);
}

TEST(ShapedText, IsTheSameForPiecesAndTheWholeOfPlainText)
{
    EXPECT_NEAR(shape(typeface(L"Times New Roman"), L"HHH").width, 3 * 1479 / 1356.0, 0.01);
    const OdGiTextStyle style = typeface(L"Arial");
    EXPECT_NEAR(shape(style, L"AVAT").width + shape(style, L"o. f").width, shape(style, L"AVATo. f").width, 1e-9)
        << "characters of drawings are not moved towards each other";
}

TEST(ShapedText, HasWidthsWithoutAnyFont)
{
    const fonts::Font none(std::make_unique<fonts::Typeface>(fonts::FontFile()));
    EXPECT_FALSE(none.typeface().hasOutlines());
    double width = 0.0;
    for (const fonts::PlacedGlyph& glyph : fonts::placeGlyphs(none, L"He\u0301\u4E2D\u05D0 g\t\x01", 1.0))
    {
        width += glyph.advance;
        EXPECT_TRUE(std::isfinite(glyph.advance));
    }
    EXPECT_GT(width, 5.0);
    EXPECT_GT(none.descent(), 0.2);
    const fonts::Font unreadable(
        std::make_unique<fonts::Typeface>(fonts::FontFile{"/nowhere/at/all.ttf", "", 0, false, false}));
    EXPECT_FALSE(unreadable.typeface().hasOutlines());
}

TEST(ShapedText, SurvivesAnyCharacters)
{
    unsigned int seed = 3;
    const auto random = [&seed](unsigned int below) { return (seed = seed * 1664525u + 1013904223u) / 65536u % below; };
    constexpr wchar_t kFirsts[] = {0x0,    0x80,   0x300,  0x590,  0x600,   0x900,   0x1100,  0x2000,
                                   0x3040, 0xD800, 0xE000, 0xFB00, 0x1F300, 0xE0000, 0x10FF00};
    for (int round = 0; round < 3000; ++round)
    {
        std::wstring text;
        for (unsigned int left = random(20); left > 0; --left)
            text.push_back(static_cast<wchar_t>(kFirsts[random(std::size(kFirsts))] + random(128)));
        text += static_cast<wchar_t>(random(2) ? 0x7FFFFFFF : -5);
        const OdGiShapedText shaped = shape(typeface(L"Arial"), text, random(2) == 0);
        EXPECT_TRUE(std::isfinite(shaped.width));
        for (const OdGiGlyph& glyph : shaped.glyphs)
            EXPECT_LT(glyph.character, shaped.text.size());
    }
}

TEST(ShapedText, LiesWhereTheShortWaySays)
{
    for (const std::wstring_view text : {L"", L" ", L"Plain, gjy", L"two\twords", L"%%uline%%u", L"\u05D0\u05D1 a",
                                         L"e\u0301", L"\U0010FFFD", L"\x7F", L"\\U+2205"})
    {
        for (const bool raw : {true, false})
        {
            for (const bool isVertical : {false, true})
            {
                OdGiTextStyle style = typeface(L"Arial");
                style.setTextSize(2.5);
                style.setXScale(0.8);
                style.setTrackingPercent(1.2);
                style.setObliquingAngle(0.3);
                style.setVertical(isVertical);
                style.setUnderlined(raw && isVertical);
                const auto length = static_cast<OdInt32>(text.size());
                const OdGiShapedText shaped = odgiShapeText(style, text.data(), length, raw);
                const OdGiTextInk ink = odgiTextInk(style, text.data(), length, raw);
                ASSERT_EQ(ink.box.isValidExtents(), shaped.ink.isValidExtents()) << odStringToUtf8(OdString(text));
                if (!ink.box.isValidExtents())
                    continue;
                EXPECT_EQ(ink.slant, shaped.fonts.front().slant);
                EXPECT_EQ(ink.box.minPoint(), shaped.ink.minPoint()) << odStringToUtf8(OdString(text));
                EXPECT_EQ(ink.box.maxPoint(), shaped.ink.maxPoint()) << odStringToUtf8(OdString(text));
            }
        }
    }
}

TEST(ShapedText, TakesTimeInProportionToItsLength)
{
    for (const std::wstring_view piece : {L"word ", L"\u05D0\u05D1 a ", L"e\u0301", L"\U0010FFFD"})
    {
        std::wstring text;
        while (text.size() < 300000)
            text += piece;
        const auto start = std::chrono::steady_clock::now();
        shape(typeface(L"Arial"), text);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        EXPECT_LT(taken.count(), 5.0);
    }
}

} // namespace
