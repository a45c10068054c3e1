// The contents of multi-line texts: what a reader sees of them, how they are laid out, and contents made to break both.
#include <chrono>

#include "DbMText.h"
#include "EntityTest.h"
#include "entities/MTextLayout.h"
#include "entities/MTextParser.h"

namespace
{

using namespace entitytest;

const std::pair<const wchar_t*, const wchar_t*> kPlain[] = {
    {L"", L""},
    {L"plain", L"plain"},
    {L"one\\Ptwo", L"one\ntwo"},
    {L"column\\Ncolumn", L"column\ncolumn"},
    {L"above\\Xbelow", L"above\nbelow"},
    {L"hard\\~space", L"hard\u00A0space"},
    {L"\\\\ \\{ \\}", L"\\ { }"},
    {L"{\\fArial|b0|i1|c0|p34;text} after", L"text after"},
    {L"{\\Ftxt.shx;text}", L"text"},
    {L"\\H2.5;a\\H.7x;b\\H3x;c", L"abc"},
    {L"\\W0.8;a\\Q15;b\\T1.2;c\\A1;d\\C1;e\\c255;f", L"abcdef"},
    {L"\\Lunder\\l \\Oover\\o \\Kstrike\\k", L"under over strike"},
    {L"\\pi-3,l3,t3;item", L"item"},
    {L"1\\S1/2;", L"11/2"},
    {L"\\S+0.1^ -0.2;mm", L"+0.1^-0.2mm"},
    {L"\\S1#4;", L"1/4"},
    {L"\\Sa\\/b/c;", L"a/b/c"},
    {L"\\U+00E9\\U+0416", L"\u00E9\u0416"},
    {L"\\U+D83D\\U+DE00", L"\U0001F600"},
    {L"%%c10 %%d %%p0.1 %%% %%065", L"\u2205"
                                    L"10 \u00B0 \u00B10.1 % A"},
    {L"%%uline%%u", L"line"},
    {L"a^Ib^Jc^ d^Me", L"a\tb\nc^de"},
    // What does not follow the rules is text.
    {L"\\", L"\\"},
    {L"end\\", L"end\\"},
    {L"\\H;x", L"\\H;x"},
    {L"\\Hx;", L"\\Hx;"},
    {L"\\C", L"\\C"},
    {L"\\Z\\9", L"\\Z\\9"},
    {L"\\U+12G4", L"\\U+12G4"},
    {L"\\U+", L"\\U+"},
    {L"\\M+6ABCD", L"\\M+6ABCD"},
    {L"}}}{{{", L""},
    {L"{{a}b", L"ab"},
    {L"^", L"^"},
    {L"^Q", L"^Q"},
    {L"^M^M^M", L""},
    {L"%%", L"%%"},
    {L"%%x", L"%%x"},
    {L"%%000", L"%%000"},
    // What is not closed reaches to the end.
    {L"\\fArial", L""},
    {L"\\pi1,", L""},
    {L"\\S1/2", L"1/2"},
    {L"\\S", L""},
    {L"\\S;", L""},
    {L"\\S1\\", L"1\\"},
    {L"\\H2.5 x", L" x"},
    {L"\\U+D83Dx", L"\uFFFDx"},
    {L"\\U+DE00\\U+D83D", L"\uFFFD\uFFFD"},
};

TEST(MTextContents, ShowTheirPlainText)
{
    for (const auto& [contents, plain] : kPlain)
        EXPECT_EQ(mtext::plainText(contents), plain) << odStringToUtf8(contents);
}

TEST(MTextContents, OfRandomPiecesNeverBreakTheReaderOrTheLayout)
{
    constexpr const wchar_t* kPieces[] = {L"\\",   L"{",     L"}",   L";",    L"\\H",   L"\\S",    L"\\f",
                                          L"\\p",  L"^",     L"/",   L"#",    L"%%",    L"\\U+",   L"D83D",
                                          L"DE00", L"\\M+1", L"1",   L"-",    L".",     L"x",      L" ",
                                          L"^M",   L"\\P",   L"\\A", L"\\T0", L"\\W-1", L"\\H1e9", L"999999999999",
                                          L"\\~"};
    unsigned int seed = 7;
    const auto random = [&seed](unsigned int below) { return (seed = seed * 1664525u + 1013904223u) / 65536u % below; };
    for (int round = 0; round < 20000; ++round)
    {
        std::wstring contents;
        for (unsigned int left = random(24); left > 0; --left)
            contents += kPieces[random(std::size(kPieces))];
        mtext::Style style;
        style.width = random(2) ? 5.0 : 0.0;
        const mtext::Layout layout = mtext::layOut(contents, style);
        EXPECT_TRUE(std::isfinite(layout.width) && std::isfinite(layout.height)) << odStringToUtf8(contents.c_str());
        EXPECT_LE(mtext::plainText(contents).size(), contents.size()) << odStringToUtf8(contents.c_str());
    }
}

TEST(MTextContents, AreReadInTimeThatGrowsWithTheirLength)
{
    const std::wstring pieces[] = {L"\\H", L"{", L"\\S1^", L"^M", L"\\U+D83D", L"%%", L"\\f", L"\\H1x", L"word ", L"x"};
    for (const std::wstring& piece : pieces)
    {
        std::wstring contents;
        while (contents.size() < 1000000)
            contents += piece;
        const auto start = std::chrono::steady_clock::now();
        mtext::plainText(contents);
        mtext::Style style;
        style.width = 50.0;
        mtext::layOut(contents, style);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        EXPECT_LT(taken.count(), 5.0) << odStringToUtf8(piece.c_str());
    }
}

TEST(MTextLayout, BreaksLinesAtSpacesWhereTheWidthEnds)
{
    const double word = shapedText(L"HHHH").width;
    const double space = shapedText(L" ").width;
    const std::tuple<const wchar_t*, double, std::size_t, double> rows[] = {
        {L"HHHH HHHH HHHH", 0.0, 1, 3 * word + 2 * space},
        {L"HHHH HHHH HHHH", 2 * word + space, 2, 2 * word + space},
        {L"HHHH HHHH HHHH", 2 * word + space - 0.01, 3, word},
        {L"HHHH HHHH HHHH", 0.1, 3, word},            // a word that is too wide has a line of its own
        {L"                    HHHH", word, 2, word}, // spaces at its start do
        {L"HHHH   ", 0.1, 1, word},                   // spaces at the end of a line take no room
        {L"HHHH\\PHHHH", 0.0, 2, word},
        {L"HHHH\\P", 0.0, 2, word},
        {L"\\P\\P", 0.0, 3, 0.0},
        {L"{\\H2x;HHHH}HHHH", 0.0, 1, 3 * word},
        {L"{\\W0.5;HHHH}", 0.0, 1, 0.5 * word},
        {L"{\\T2;HHHH}", 0.0, 1, 2 * word},
    };
    for (const auto& [contents, width, lines, widest] : rows)
    {
        mtext::Style style;
        style.width = width;
        const mtext::Layout layout = mtext::layOut(contents, style);
        EXPECT_EQ(layout.lines, lines) << odStringToUtf8(contents) << " in " << width;
        EXPECT_NEAR(layout.width, widest, 1e-9) << odStringToUtf8(contents) << " in " << width;
    }
}

TEST(MTextLayout, SpacesLinesByTheirHighestCharactersUnlessToldExactly)
{
    mtext::Style style;
    style.height = 2.0;
    const double step = 5.0 / 3.0 * 2.0;
    EXPECT_NEAR(mtext::layOut(L"H\\PH", style).height, 2.0 + step, 1e-12);
    EXPECT_NEAR(mtext::layOut(L"H\\P\\H4;H", style).height, 2.0 + 2 * step, 1e-12);
    style.exactSpacing = true;
    EXPECT_NEAR(mtext::layOut(L"H\\P\\H4;H", style).height, 2.0 + step, 1e-12);
    style.spacingFactor = 0.5;
    EXPECT_NEAR(mtext::layOut(L"H\\PH", style).height, 2.0 + step / 2, 1e-12);
}

TEST_F(EntityTest, MTextHangsOnItsAttachmentPoint)
{
    const OdGiShapedText line = shapedText(L"HHH");
    const double w = line.width * 2;
    for (int attachment = 1; attachment <= 9; ++attachment)
    {
        const double left = 10 - w * ((attachment - 1) % 3) * 0.5;
        const int row = (attachment - 1) / 3;
        const double top = 20.0 + row;
        const std::string groups =
            "100 AcDbMText|10 10|20 20|30 0|40 2|41 0|71 " + std::to_string(attachment) + "|72 1|1 HHH";
        expectBoxOf(*entityFrom("MTEXT", groups),
                    {left + line.ink.minPoint().x * 2, top - 2, 0, left + line.ink.maxPoint().x * 2, top, 0}, 1e-9,
                    groups);
    }
}

TEST_F(EntityTest, MTextRunsAlongItsDirectionOrItsRotation)
{
    const OdGeExtents2d ink = shapedText(L"HHH").ink;
    const Box up{10, 20 + ink.minPoint().x * 2, 0, 12, 20 + ink.maxPoint().x * 2, 0};
    const Box along{10 + ink.minPoint().x * 2, 18, 0, 10 + ink.maxPoint().x * 2, 20, 0};
    const Box behind{along.x0, 20, 0, along.x1, 22, 0}; // seen from below, lines still run to the right
    const std::pair<const char*, Box> rows[] = {{"210 0|220 0|230 1", along},
                                                {"210 0|220 0|230 -1", behind},
                                                {"11 0|21 1|31 0", up},
                                                {"11 0|21 8|31 0", up},
                                                {"50 90", up}};
    for (const auto& [turn, box] : rows)
    {
        const std::string groups = "100 AcDbMText|10 10|20 20|30 0|40 2|41 0|71 1|72 1|1 HHH|" + std::string(turn);
        expectBoxOf(*entityFrom("MTEXT", groups), box, 1e-9, turn);
    }
}

TEST_F(EntityTest, LongContentsAreKeptInPartsAndComeBackWhole)
{
    for (const std::size_t length : {0u, 1u, 249u, 250u, 251u, 500u, 501u, 10000u})
    {
        std::wstring contents;
        while (contents.size() < length)
            contents += static_cast<wchar_t>(contents.size() % 7 == 3 ? 0x0416 : L'a' + contents.size() % 26);
        OdDbMTextPtr text = OdDbMText::createObject();
        text->setContents(L"a first text that is longer than nothing");
        text->setContents(OdString(contents.c_str()));
        EXPECT_EQ(text->contents(), OdString(contents.c_str())) << length;
        for (const oddb::GroupView& group : oddb::ObjectCore::groups(*text))
        {
            const bool part = group.code() == 1 || group.code() == 3;
            EXPECT_LE(part ? odUtf8ToString(group.text()).getLength() : 0, 250) << length;
        }
    }
}

} // namespace
