// Texts cross the border between files and the database without loss.
#include "dxf/TextCoding.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

namespace
{

using dxf::TextDecoder;
using dxf::TextEncoder;

std::string decoded(std::string_view raw, OdCodePageId page = CP_UNDEFINED)
{
    return std::string(TextDecoder(page).decode(raw));
}

std::string encoded(std::string_view utf8, OdCodePageId page = CP_UNDEFINED)
{
    return std::string(TextEncoder(page).encode(utf8));
}

struct CodingCase
{
    const char* raw;  // in the file
    const char* utf8; // in the database
    OdCodePageId page = CP_UNDEFINED;
    const char* written = nullptr; // when it differs from raw
};

const CodingCase kCases[] = {
    {"plain", "plain"},
    {"", ""},
    {"\\U+00B0", "\u00B0", CP_UNDEFINED, "\u00B0"},
    {"a\\U+D83D\\U+DE00b", "a\U0001F600b", CP_UNDEFINED, "a\U0001F600b"},
    {"\\U+D83D alone", "\\U+D83D alone"},
    {"\\U+DE00\\U+D83D", "\\U+DE00\\U+D83D"},
    {"\\U+000A", "\\U+000A"},
    {"\\U+005CU+0041", "\\U+005CU+0041"},
    {"a^Jb^Mc", "a\nb\rc"},
    {"a^ Jb", "a^Jb"},
    {"a^  Jb", "a^ Jb"},
    {"x^ 2 ^ ", "x^ 2 ^ "},
    {"^", "^"},
    {"^^J", "^\n"},
    {"\xC3\x28 \xFF", "\xC3\x28 \xFF"}, // no UTF-8
    {"\xE9t\xE9", "\u00E9t\u00E9", CP_ANSI_1252},
    {"\xC6\xE5\xEB\xF2", "\u0416\u0435\u043B\u0442", CP_ANSI_1251},
    {"\\U+D83D\\U+DE00", "\U0001F600", CP_ANSI_1252},
    {"\x83\x5C\x83\x5CU+0041", "\u30BD\u30BDU+0041", CP_ANSI_932}, // the second byte is a backslash
};

TEST(TextCoding, DecodesAndEncodes)
{
    for (const CodingCase& coding : kCases)
    {
        EXPECT_EQ(decoded(coding.raw, coding.page), coding.utf8) << coding.raw;
        EXPECT_EQ(encoded(coding.utf8, coding.page), coding.written ? coding.written : coding.raw) << coding.raw;
    }
}

// Any text of the database comes back from a file, and any bytes of a file come back into it.
TEST(TextCoding, LosesNothing)
{
    std::mt19937 random(3);
    const char kAlphabet[] = "^^ JMU+\\0Da\n\r\x80\xE9\x81\xC3\xA9";
    for (const OdCodePageId page : {CP_UNDEFINED, CP_ANSI_1252, CP_ANSI_1251})
        for (int i = 0; i < 100000; ++i)
        {
            std::string text;
            for (unsigned length = random() % 10; length > 0; --length)
                text += kAlphabet[random() % (sizeof kAlphabet - 1)];
            const std::string raw = encoded(decoded(text, page), page);
            EXPECT_EQ(decoded(raw, page), decoded(text, page)) << testing::PrintToString(text);
            EXPECT_EQ(raw.find_first_of("\n\r"), std::string::npos);
            if (text.find_first_of("\n\r") == std::string::npos)
            {
                EXPECT_EQ(raw, text) << testing::PrintToString(text);
            }
        }
}

} // namespace
