// Attacks the ways of bytes to text and back: whatever comes in has to come out again.
#include "OdCharMapper.h"

#include <gtest/gtest.h>

#include <random>

#include "OdaCommon.h"

namespace
{

std::string utf8Of(std::wstring_view text)
{
    return odStringToUtf8(text);
}

TEST(Utf8, ReadsOnlyWhatIsUtf8AndKeepsTheRest)
{
    const std::pair<std::string_view, std::wstring_view> kCases[] = {
        {"\xC3\xA9", L"\u00E9"},
        {"\xF0\x9F\x98\x80", L"\U0001F600"},
        {"\x80", L"\xDC80"},                               // no lead
        {"\xC3", L"\xDCC3"},                               // cut short
        {"\xC3\x28", L"\xDCC3("},                          // no second byte
        {"\xE2\x82", L"\xDCE2\xDC82"},                     // cut short
        {"\xC0\xAF", L"\xDCC0\xDCAF"},                     // longer than need be
        {"\xE0\x80\xAF", L"\xDCE0\xDC80\xDCAF"},           // longer than need be
        {"\xED\xA0\x80", L"\xDCED\xDCA0\xDC80"},           // a surrogate
        {"\xF4\x90\x80\x80", L"\xDCF4\xDC90\xDC80\xDC80"}, // beyond the last character
        {"\xF8\x88\x80\x80\x80", L"\xDCF8\xDC88\xDC80\xDC80\xDC80"},
        {"\xFF"
         "a\xC3\xA9\xFE",
         L"\xDCFF"
         L"a\u00E9\xDCFE"},
        {std::string_view("a\0b", 3), std::wstring_view(L"a\0b", 3)},
    };
    for (const auto& [bytes, expected] : kCases)
    {
        EXPECT_EQ(odUtf8ToString(bytes).view(), expected);
        EXPECT_EQ(utf8Of(expected), bytes);
        std::wstring appended = L"<";
        odAppendWide(appended, bytes);
        EXPECT_EQ(appended.substr(1), expected);
    }
}

TEST(Utf8, AnyBytesComeBackAsTheyWere)
{
    std::mt19937 random(7);
    const unsigned char kLikely[] = {0x00, 0x41, 0x7F, 0x80, 0xBF, 0xC2, 0xDC, 0xE0,
                                     0xED, 0xA0, 0xB2, 0xEF, 0xF0, 0xF4, 0xFF};
    for (int round = 0; round < 50000; ++round)
    {
        std::string bytes(random() % 12, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % 2 ? kLikely[random() % std::size(kLikely)] : random());
        const OdString text = odUtf8ToString(bytes);
        ASSERT_EQ(odStringToUtf8(text), bytes);
        for (OdCodePageId id : {CP_ASCII, CP_ANSI_1252, CP_DOS437, CP_ANSI_1258, CP_ANSI_874})
        {
            std::string back;
            OdCharMapper::unicodeToCodepage(OdCharMapper::codepageToUnicode(bytes, id).view(), id, back);
            ASSERT_EQ(back, bytes) << "code page " << id;
            if (id == CP_ASCII || id == CP_ANSI_874)
                continue; // bytes that are none of theirs may make UTF-8
            std::string utf8;
            OdCharMapper::codepageToUtf8(bytes, id, utf8);
            back.clear();
            OdCharMapper::utf8ToCodepage(utf8, id, back);
            ASSERT_EQ(back, bytes) << "code page " << id << " by UTF-8";
        }
    }
}

TEST(Utf8, SurrogatesAreJoinedOrWrittenAlone)
{
    const OdChar kPair[] = {0xD83D, 0xDE00, 0};
    EXPECT_EQ(utf8Of(kPair), "\xF0\x9F\x98\x80");
    const OdChar kAlone[] = {0xD83D, L'x', 0xDE00, 0};
    EXPECT_EQ(utf8Of(kAlone), "\xED\xA0\xBDx\xED\xB8\x80");
    const OdChar kNone[] = {static_cast<OdChar>(0x110000), static_cast<OdChar>(-1), 0};
    EXPECT_EQ(utf8Of(kNone), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(CodePages, KnowTheCharactersOfEachSet)
{
    const struct
    {
        const OdChar* name;
        std::string_view bytes;
        std::wstring_view text;
    } kCases[] = {
        {L"ANSI_1252", "\x80\xE9", L"\u20AC\u00E9"},
        {L"ansi_1251", "\xC6\xE6", L"\u0416\u0436"},
        {L"ANSI_1250", "\xB3", L"\u0142"},
        {L"ANSI_1253", "\xD3", L"\u03A3"},
        {L"ANSI_1254", "\xFE", L"\u015F"},
        {L"ANSI_1255", "\xE0", L"\u05D0"},
        {L"ANSI_1256", "\xC8", L"\u0628"},
        {L"ANSI_1257", "\xF0", L"\u0161"},
        {L"ANSI_1258", "\xEA\xEC", L"\u00EA\u0301"}, // a letter and an accent stay two
        {L"ANSI_874", "\xA1", L"\u0E01"},
        {L"ANSI_932", "\x83\x5C\xB1", L"\u30BD\uFF71"}, // the second byte is a backslash
        {L"ANSI_936", "\xD6\xD0", L"\u4E2D"},
        {L"ANSI_949", "\xB0\xA1", L"\uAC00"},
        {L"ANSI_950", "\xA4\xA4", L"\u4E2D"},
        {L"dos437", "\x82\xE1", L"\u00E9\u00DF"},
        {L"dos850", "\x9B", L"\u00F8"},
        {L"dos866", "\x80", L"\u0410"},
    };
    for (const auto& row : kCases)
    {
        OdCodePageId id = CP_UNDEFINED;
        ASSERT_EQ(OdCharMapper::getCodepageByDesc(row.name, id), eOk);
        OdString name;
        EXPECT_EQ(OdCharMapper::getCodepageDesc(id, name), eOk);
        EXPECT_EQ(name.iCompare(row.name), 0);
        EXPECT_EQ(OdCharMapper::codepageToUnicode(row.bytes, id).view(), row.text) << utf8Of(row.name);
        std::string bytes;
        OdCharMapper::unicodeToCodepage(row.text, id, bytes);
        EXPECT_EQ(bytes, row.bytes) << utf8Of(row.name);
    }
    OdCodePageId id = CP_ANSI_1252;
    EXPECT_EQ(OdCharMapper::getCodepageByDesc(L"ANSI_9999", id), eInvalidInput);
    EXPECT_EQ(id, CP_ANSI_1252);
}

TEST(CodePages, EveryCharacterOfEverySetComesBack)
{
    for (int number = CP_ASCII; number < CP_CNT; ++number)
    {
        const OdCodePageId id = static_cast<OdCodePageId>(number);
        for (OdChar character = 0; character < 0x10000; ++character)
        {
            if (!OdCharMapper::hasCharacter(character, id) || (character >= 0xD800 && character < 0xE000))
                continue;
            std::string bytes;
            OdCharMapper::unicodeToCodepage({&character, 1}, id, bytes);
            const OdString back = OdCharMapper::codepageToUnicode(bytes, id);
            ASSERT_TRUE(back == OdString(character, 1))
                << "code page " << number << ", U+" << std::hex << static_cast<int>(character);
        }
    }
}

TEST(CodePages, BytesOfPairsThatAreCutShortAreKept)
{
    for (OdCodePageId id : {CP_ANSI_932, CP_ANSI_936, CP_ANSI_949, CP_ANSI_950})
    {
        EXPECT_TRUE(OdCharMapper::isLeadByte(0xB0, id) || id == CP_ANSI_932);
        for (const std::string_view bytes : {"a\xB0\xA1\x95", "\xFF\xFF", "\x81\x20z"})
        {
            std::string back;
            OdCharMapper::unicodeToCodepage(OdCharMapper::codepageToUnicode(bytes, id).view(), id, back);
            EXPECT_EQ(back, bytes) << "code page " << id;
        }
    }
}

TEST(Escapes, AreDecodedOnlyWhereTheyHaveTheirExactForm)
{
    const std::pair<std::string_view, std::string_view> kCases[] = {
        {"\\U+00E9", "\xC3\xA9"},
        {"a\\u+00e9b", "a\xC3\xA9"
                       "b"},
        {"\\U+D83D\\U+DE00", "\xF0\x9F\x98\x80"},
        {"\\U+D83D", "\\U+D83D"},
        {"\\U+DE00\\U+D83D", "\\U+DE00\\U+D83D"},
        {"\\U+D83D\\U+00E9", "\\U+D83D\xC3\xA9"},
        {"\\U+D83D\\U+D83D\\U+DE00", "\\U+D83D\xF0\x9F\x98\x80"},
        {"\\U+000A", "\\U+000A"}, // a line feed would break the line
        {"\\U+0041", "\\U+0041"},
        {"\\U+00E", "\\U+00E"},
        {"\\U+00EG", "\\U+00EG"},
        {"\\U+", "\\U+"},
        {"\\\\U+00E9", "\\\xC3\xA9"},
        {"\\M+1835C", "\xE3\x82\xBD"},
        {"\\M+6835C", "\\M+6835C"},
        {"\\M+1FFFF", "\\M+1FFFF"},
        {"\\M+1835", "\\M+1835"},
        {"\\", "\\"},
        {"", ""},
    };
    for (const auto& [text, expected] : kCases)
    {
        std::string decoded;
        OdCharMapper::decodeEscapes(text, decoded);
        EXPECT_EQ(decoded, expected) << text;
        EXPECT_EQ(odStringToUtf8(OdCharMapper::decodeEscapes(OdString(std::string(text).c_str()))), expected);
        EXPECT_TRUE(text == expected || OdCharMapper::hasEscapes(text)) << text;
    }
}

TEST(Escapes, WhatIsWrittenWithThemIsReadBack)
{
    std::string encoded;
    OdCharMapper::encodeEscapes(L"A\u00E9\U0001F600\xDCFF", encoded);
    EXPECT_EQ(encoded, "A\\U+00E9\\U+D83D\\U+DE00\xFF");
    for (OdChar character = 0x80; character < 0x110000; character += 7)
    {
        if (character >= 0xD800 && character < 0xE000)
            continue;
        encoded.clear();
        OdCharMapper::encodeEscapes({&character, 1}, encoded);
        std::string decoded;
        OdCharMapper::decodeEscapes(encoded, decoded);
        ASSERT_EQ(decoded, utf8Of({&character, 1})) << std::hex << static_cast<int>(character);
    }
}

} // namespace
