// Attacks the text type: sharing, texts that are parts of themselves, positions out of range.
#include "OdString.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <thread>
#include <vector>

#include "OdAnsiString.h"
#include "OdaCommon.h"
#include "support/ErrorCode.h"

namespace
{

constexpr int kFar = std::numeric_limits<int>::max();

TEST(String, ChangingACopyLeavesTheOriginal)
{
    const OdString original(L"  Label One  ");
    const struct
    {
        const char* what;
        void (*change)(OdString&);
        const OdChar* expected;
    } kChanges[] = {
        {"upper", [](OdString& s) { s.makeUpper(); }, L"  LABEL ONE  "},
        {"lower", [](OdString& s) { s.makeLower(); }, L"  label one  "},
        {"reverse", [](OdString& s) { s.makeReverse(); }, L"  enO lebaL  "},
        {"trim left", [](OdString& s) { s.trimLeft(); }, L"Label One  "},
        {"trim right", [](OdString& s) { s.trimRight(L" e"); }, L"  Label On"},
        {"trim one character", [](OdString& s) { s.trimLeft(L' ').trimRight(L' '); }, L"Label One"},
        {"append", [](OdString& s) { s += L"x"; }, L"  Label One  x"},
        {"append itself", [](OdString& s) { s += s; }, L"  Label One    Label One  "},
        {"append part of itself", [](OdString& s) { s += s.c_str() + 8; }, L"  Label One  One  "},
        {"set", [](OdString& s) { s.setAt(2, L'l'); }, L"  label One  "},
        {"insert itself", [](OdString& s) { s.insert(2, s.c_str()); }, L"    Label One  Label One  "},
        {"insert far", [](OdString& s) { s.insert(kFar, L'!'); }, L"  Label One  !"},
        {"delete", [](OdString& s) { s.deleteChars(2, 6); }, L"  One  "},
        {"delete far", [](OdString& s) { s.deleteChars(2, kFar); }, L"  "},
        {"delete nothing", [](OdString& s) { s.deleteChars(-1, 5); }, L"  Label One  "},
        {"remove", [](OdString& s) { s.remove(L'e'); }, L"  Labl On  "},
        {"replace characters", [](OdString& s) { s.replace(L' ', L'_'); }, L"__Label_One__"},
        {"replace longer", [](OdString& s) { s.replace(L"e", L"eee"); }, L"  Labeeel Oneee  "},
        {"replace by itself", [](OdString& s) { s.replace(L"Label", s.c_str()); }, L"    Label One   One  "},
        {"replace empty", [](OdString& s) { s.replace(L"", L"x"); }, L"  Label One  "},
        {"truncate", [](OdString& s) { s.truncate(4); }, L"  La"},
        {"truncate far", [](OdString& s) { s.truncate(-4); }, L""},
        {"buffer", [](OdString& s) { s.getBufferSetLength(3)[0] = L'#'; }, L"# L"},
        {"format itself", [](OdString& s) { s.format(L"[%ls|%d]", s.c_str(), 7); }, L"[  Label One  |7]"},
        {"empty", [](OdString& s) { s.empty(); }, L""},
        {"assign part of itself", [](OdString& s) { s = s.c_str() + 8; }, L"One  "},
    };
    for (const auto& row : kChanges)
    {
        OdString copy(original);
        row.change(copy);
        EXPECT_TRUE(copy == row.expected) << row.what;
        EXPECT_EQ(std::wcslen(copy.c_str()), static_cast<std::size_t>(copy.getLength())) << row.what;
        EXPECT_TRUE(original == L"  Label One  ") << row.what;

        OdString owned(original.c_str());
        row.change(owned);
        EXPECT_TRUE(owned == copy) << row.what << ", not shared";
    }
}

TEST(String, PositionsOutOfRangeAreBroughtIntoRange)
{
    const OdString text(L"abcabc");
    EXPECT_TRUE(text.mid(-5, 2) == L"ab");
    EXPECT_TRUE(text.mid(4, kFar) == L"bc");
    EXPECT_TRUE(text.mid(kFar, kFar).isEmpty());
    EXPECT_TRUE(text.left(-1).isEmpty());
    EXPECT_TRUE(text.right(kFar) == text);
    EXPECT_EQ(text.find(L'a', kFar), -1);
    EXPECT_EQ(text.find(L'a', -3), 0);
    EXPECT_EQ(text.find(L"", 6), 6);
    EXPECT_EQ(text.find(static_cast<const OdChar*>(nullptr)), 0);
    EXPECT_EQ(text.reverseFind(L'a', 2), 0);
    EXPECT_EQ(text.reverseFind(L'a', -1), -1);
    EXPECT_EQ(text.findOneOf(L"cb"), 1);
    EXPECT_EQ(text.findLastOneOf(L"xb"), 4);
    EXPECT_TRUE(text.spanExcluding(L"c") == L"ab");
    EXPECT_TRUE(text.spanIncluding(L"ab") == L"ab");
    EXPECT_TRUE(text.spanIncluding(L"").isEmpty());
    EXPECT_TRUE(text.spanExcluding(L"") == text);
    EXPECT_EQ(support::codeOf([&] { text.getAt(6); }), eInvalidIndex);
    EXPECT_EQ(support::codeOf([&] { text.getAt(-1); }), eInvalidIndex);
    EXPECT_EQ(text[6], L'\0');
    EXPECT_EQ(OdString(text).insert(3, L'\0'), 7) << "a null character is one, too";
}

TEST(String, NullPointersAreTheEmptyText)
{
    const OdChar* const wide = nullptr;
    const char* const narrow = nullptr;
    EXPECT_TRUE(OdString(wide).isEmpty());
    EXPECT_TRUE(OdString(narrow).isEmpty());
    EXPECT_TRUE(OdString(wide, 7).isEmpty());
    EXPECT_TRUE(OdString(L"abc", -1).isEmpty());
    EXPECT_TRUE(OdString(L'a', -1).isEmpty());
    OdString text(L"x");
    text += wide;
    text.trimLeft(wide).trimRight(wide);
    EXPECT_TRUE(text + wide == L"x");
    EXPECT_EQ(OdString().compare(wide), 0);
    EXPECT_TRUE(OdString::kEmpty == wide);
}

TEST(String, ComparesWithoutCaseAsTheSameForEveryUser)
{
    const struct
    {
        const OdChar* first;
        const OdChar* second;
        int expected;
    } kPairs[] = {
        {L"Label", L"lABEL", 0},
        {L"\u00C9t\u00E9", L"\u00E9T\u00C9", 0},
        {L"\u0416", L"\u0436", 0},
        {L"\u03A3", L"\u03C2", 0}, // both small sigmas are the capital's
        {L"\u212A", L"k", 0},      // the sign for kelvin
        {L"I", L"\u0131", -1},     // no language takes part
        {L"\u0130", L"i", 1},
        {L"a", L"ab", -1},
        {L"ab", L"B", -1},
        {L"_", L"a", -1},
        {L"Stra\u00DFe", L"STRASSE", 1},
    };
    for (const auto& pair : kPairs)
    {
        const OdString first(pair.first);
        const OdString second(pair.second);
        const auto sign = [](int value) { return (value > 0) - (value < 0); };
        EXPECT_EQ(sign(first.iCompare(second)), pair.expected)
            << odStringToUtf8(first) << " " << odStringToUtf8(second);
        EXPECT_EQ(sign(second.iCompare(first)), -pair.expected) << odStringToUtf8(first);
        EXPECT_EQ(odEqualsNoCase(first, second), pair.expected == 0);
    }
}

TEST(String, FoldingIsStableAndKeepsOneCharacterOne)
{
    for (OdChar character = 0; character < 0x30000; ++character)
    {
        const OdChar folded = odCaseFold(character);
        ASSERT_EQ(odCaseFold(folded), folded) << std::hex << static_cast<int>(character);
        ASSERT_TRUE(character >= 0x80 || odToUpper(odToLower(character)) == odToUpper(character));
    }
}

TEST(String, FormatsTextsOfAnyLength)
{
    const OdString big(L'\u00E9', 100000);
    OdString text;
    EXPECT_EQ(text.format(L"<%ls>%d", big.c_str(), -5).getLength(), 100004);
    EXPECT_EQ(text.right(4).compare(L"é>-5"), 0);
    EXPECT_TRUE(text.format(L"%s", "plain") == L"plain");
    EXPECT_TRUE(text.format(L"%ls%ls, \"%ls\"", L"a%ls", L"", L"\u00E9") == L"a%ls, \"\u00E9\"");
    EXPECT_TRUE(text.format(L"%ls is %3ls%%", L"it", L"9") == L"it is   9%");
    EXPECT_TRUE(text.format(L"<%ls>", static_cast<const OdChar*>(nullptr)) == L"<(null)>");
    text = L"kept";
    EXPECT_EQ(support::codeOf([&] { text.format(L"%lc", static_cast<wint_t>(0x7FFFFFFF)); }), eOk);
    text = L"kept";
    EXPECT_EQ(support::codeOf([&] { text.format(L"%s", "\xFF\xFF"); }), eInvalidInput);
    EXPECT_TRUE(text == L"kept");
}

TEST(String, RandomWorkAgreesWithTheStandardText)
{
    std::mt19937 random(20240607);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    std::vector<OdString> texts(8);
    std::vector<std::wstring> models(8);
    for (int step = 0; step < 200000; ++step)
    {
        const std::size_t target = random() % texts.size();
        const std::size_t source = random() % texts.size();
        const int from = below(20);
        const int count = below(20);
        const std::size_t at = std::min<std::size_t>(static_cast<std::size_t>(from), models[source].size());
        switch (below(6))
        {
        case 0:
            texts[target] = texts[source];
            models[target] = models[source];
            break;
        case 1:
            texts[target] += texts[source];
            models[target] += models[source];
            break;
        case 2:
            texts[target] += static_cast<OdChar>(L'a' + from);
            models[target] += static_cast<OdChar>(L'a' + from);
            break;
        case 3:
            texts[target] = texts[source].mid(from, count);
            models[target] = models[source].substr(at, static_cast<std::size_t>(count));
            break;
        case 4:
            if (models[target].size() > 500)
            {
                texts[target].truncate(from);
                models[target].resize(static_cast<std::size_t>(from));
            }
            break;
        default:
            texts[target].deleteChars(from, count);
            if (static_cast<std::size_t>(from) < models[target].size())
                models[target].erase(static_cast<std::size_t>(from), static_cast<std::size_t>(count));
        }
        ASSERT_EQ(texts[target].view(), std::wstring_view(models[target])) << "step " << step;
    }
}

TEST(String, ThreadsMayShareOneText)
{
    const OdString shared(L"shared by all");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(
            [shared]
            {
                for (int round = 0; round < 20000; ++round)
                {
                    OdString copy(shared);
                    copy += L"x";
                    ASSERT_EQ(copy.getLength(), shared.getLength() + 1);
                }
            });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(shared == L"shared by all");
}

TEST(AnsiString, JoinsTextsOfDifferentCharacterSets)
{
    OdAnsiString text(OdString(L"\u00E9"), CP_ANSI_1252);
    EXPECT_EQ(text.bytes(), "\xE9");
    text += OdAnsiString(OdString(L"\u0436\u00FC"), CP_UTF_8);
    EXPECT_EQ(text.bytes(), "\xE9\\U+0436\xFC");
    EXPECT_TRUE(OdString(text) == L"\u00E9\\U+0436\u00FC");
}

} // namespace
