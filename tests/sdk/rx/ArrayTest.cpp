// Attacks the list type: sharing, elements of itself as arguments, copies that fail half-way.
#include "OdArray.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "OdString.h"
#include "StringArray.h"
#include "support/ErrorCode.h"

namespace
{

using Strings = OdStringArray;

Strings letters()
{
    return {L"a", L"b", L"c", L"d"};
}

OdString joined(const Strings& strings)
{
    OdString text;
    for (const OdString& string : strings)
        text += string;
    return text;
}

TEST(Array, ChangingACopyLeavesTheOriginal)
{
    const struct
    {
        const char* what;
        void (*change)(Strings&);
        const OdChar* expected;
    } kChanges[] = {
        {"append", [](Strings& s) { s.append(L"e"); }, L"abcde"},
        {"append own element", [](Strings& s) { s.append(s.getPtr()[0]); }, L"abcda"},
        {"append itself", [](Strings& s) { s.append(s); }, L"abcdabcd"},
        {"insert own element", [](Strings& s) { s.insertAt(1, s.getPtr()[3]); }, L"adbcd"},
        {"insert at end", [](Strings& s) { s.insertAt(4, L"e"); }, L"abcde"},
        {"set own element", [](Strings& s) { s.setAt(0, s.getPtr()[2]); }, L"cbcd"},
        {"fill with own element", [](Strings& s) { s.setAll(s.getPtr()[1]); }, L"bbbb"},
        {"grow with own element", [](Strings& s) { s.resize(6, s.getPtr()[1]); }, L"abcdbb"},
        {"shrink", [](Strings& s) { s.setLogicalLength(2); }, L"ab"},
        {"give memory back", [](Strings& s) { s.setPhysicalLength(3); }, L"abc"},
        {"remove at", [](Strings& s) { s.removeAt(1); }, L"acd"},
        {"remove own element", [](Strings& s) { s.remove(s.getPtr()[2]); }, L"abd"},
        {"remove part", [](Strings& s) { s.removeSubArray(1, 2); }, L"ad"},
        {"remove last", [](Strings& s) { s.removeLast(); }, L"abc"},
        {"erase in place", [](Strings& s) { s.erase(s.begin() + 1, s.end()); }, L"a"},
        {"insert a range",
         [](Strings& s)
         {
             const Strings o{L"x", L"y"};
             s.insert(s.begin() + 1, o.begin(), o.end());
         },
         L"axybcd"},
        {"insert by iterator", [](Strings& s) { s.insert(s.begin(), L"z"); }, L"zabcd"},
        {"reverse", [](Strings& s) { s.reverse(); }, L"dcba"},
        {"swap", [](Strings& s) { s.swap(0u, 3u); }, L"dbca"},
        {"element", [](Strings& s) { s[2] = L"x"; }, L"abxd"},
        {"last", [](Strings& s) { s.last() += L"!"; }, L"abcd!"},
        {"loop",
         [](Strings& s)
         {
             for (OdString& e : s)
                 e.makeUpper();
         },
         L"ABCD"},
        {"clear", [](Strings& s) { s.clear(); }, L""},
    };
    for (const auto& row : kChanges)
    {
        const Strings original = letters();
        Strings copy(original);
        row.change(copy);
        EXPECT_TRUE(joined(copy) == row.expected) << row.what;
        EXPECT_TRUE(joined(original) == L"abcd") << row.what;
        Strings owned = letters();
        row.change(owned);
        EXPECT_TRUE(owned == copy) << row.what << ", not shared";
    }
}

TEST(Array, ReadingThroughConstDoesNotCopy)
{
    const Strings original = letters();
    const Strings copies[] = {original};
    const Strings& copy = copies[0];
    EXPECT_EQ(copy.asArrayPtr(), original.asArrayPtr());
    EXPECT_TRUE(copy.contains(L"c") && !copy.contains(L"a", 1) && copy.getAt(3) == L"d");
    EXPECT_EQ(copy.asArrayPtr(), original.asArrayPtr());
}

TEST(Array, IndexesThatNameNothingAreRefused)
{
    const struct
    {
        const char* what;
        void (*work)(Strings&);
    } kWorks[] = {
        {"read", [](Strings& s) { static_cast<void>(s.getAt(4)); }},
        {"write", [](Strings& s) { s[4] = L"x"; }},
        {"negative", [](Strings& s) { s[static_cast<unsigned>(-1)] = L"x"; }},
        {"set", [](Strings& s) { s.setAt(4, L"x"); }},
        {"insert", [](Strings& s) { s.insertAt(5, L"x"); }},
        {"remove", [](Strings& s) { s.removeAt(4); }},
        {"remove part", [](Strings& s) { s.removeSubArray(2, 4); }},
        {"remove backwards", [](Strings& s) { s.removeSubArray(2, 1); }},
        {"swap", [](Strings& s) { s.swap(0u, 4u); }},
        {"last of none",
         [](Strings& s)
         {
             Strings none;
             s[0] = none.last();
         }},
        {"remove of none", [](Strings&) { Strings().removeLast(); }},
    };
    for (const auto& row : kWorks)
    {
        Strings strings = letters();
        EXPECT_EQ(support::codeOf([&] { row.work(strings); }), eInvalidIndex) << row.what;
        EXPECT_TRUE(joined(strings) == L"abcd") << row.what;
    }
    OdIntArray numbers;
    EXPECT_EQ(support::codeOf([&] { numbers.reserve(0xFFFFFFFFu); }), sizeof(void*) == 8 ? eOk : eOutOfMemory);
}

struct Fragile
{
    static inline int alive = 0;
    static inline int copiesLeft = 1000000;

    Fragile() { ++alive; }
    Fragile(const Fragile& source) : number(source.number)
    {
        if (copiesLeft-- <= 0)
            throw 7;
        ++alive;
    }
    Fragile& operator=(const Fragile&) = default;
    ~Fragile() { --alive; }

    int number = 0;
};

TEST(Array, AFailingCopyLeaksNothingAndLosesNothing)
{
    {
        OdArray<Fragile> original;
        original.resize(10);
        for (unsigned i = 0; i < 10; ++i)
            original[i].number = static_cast<int>(i);
        for (int copies = 0; copies < 12; ++copies)
        {
            OdArray<Fragile> copy(original);
            Fragile::copiesLeft = copies;
            EXPECT_THROW(copy.push_back(original.getAt(3)), int);
            Fragile::copiesLeft = 1000000;
            ASSERT_EQ(copy.size(), 10u);
            EXPECT_EQ(copy.getAt(9).number, 9);
        }
    }
    EXPECT_EQ(Fragile::alive, 0);
}

TEST(Array, RandomWorkAgreesWithTheStandardList)
{
    std::mt19937 random(99);
    std::vector<Strings> arrays(6);
    std::vector<std::vector<OdString>> models(6);
    for (int step = 0; step < 100000; ++step)
    {
        const std::size_t target = random() % arrays.size();
        const std::size_t source = random() % arrays.size();
        const unsigned size = arrays[target].size();
        const unsigned at = size ? static_cast<unsigned>(random() % size) : 0;
        const OdString value(static_cast<OdChar>(L'a' + random() % 26), 3);
        switch (random() % 7)
        {
        case 0:
            arrays[target] = arrays[source];
            models[target] = models[source];
            break;
        case 1:
            arrays[target].insertAt(at, value);
            models[target].insert(models[target].begin() + at, value);
            break;
        case 2:
            arrays[target].push_back(value);
            models[target].push_back(value);
            break;
        case 3:
            if (size)
            {
                arrays[target].removeAt(at);
                models[target].erase(models[target].begin() + at);
            }
            break;
        case 4:
            if (size)
            {
                arrays[target][at] = value;
                models[target][at] = value;
            }
            break;
        case 5:
            arrays[target].resize(at);
            models[target].resize(at);
            break;
        default:
            std::sort(arrays[target].begin(), arrays[target].end());
            std::sort(models[target].begin(), models[target].end());
        }
        const Strings& result = arrays[target];
        ASSERT_TRUE(std::equal(result.begin(), result.end(), models[target].begin(), models[target].end())) << step;
    }
}

} // namespace
