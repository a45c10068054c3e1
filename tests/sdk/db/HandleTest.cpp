// Handles as text, and finding stubs by handle.
#include <gtest/gtest.h>

#include <random>
#include <unordered_map>

#include "DbHandle.h"
#include "db/StubTable.h"

namespace
{

constexpr std::tuple<const char*, bool, OdUInt64> kTexts[] = {
    {"0", true, 0},
    {"2A", true, 0x2A},
    {"2a", true, 0x2A},
    {"  1F\t", true, 0x1F},
    {"FFFFFFFFFFFFFFFF", true, 0xFFFFFFFFFFFFFFFFull},
    {"00000000000000000000000000000001", true, 1}, // leading zeros are no digits of the value
    {"10000000000000000", false, 0},               // 17 significant digits
    {"1FFFFFFFFFFFFFFFF", false, 0},
    {"", false, 0},
    {"   ", false, 0},
    {"0x2A", false, 0},
    {"2A 2B", false, 0},
    {"-1", false, 0},
    {"+1", false, 0},
    {"2G", false, 0},
    {"\xD0\x96", false, 0},
    {"1\n", false, 0},
};

TEST(Handle, ReadsHexadecimalTextAndNothingElse)
{
    for (const auto& [text, isHandle, value] : kTexts)
    {
        OdDbHandle handle(OdUInt64(77));
        EXPECT_EQ(OdDbHandle::parse(text, handle), isHandle) << '"' << text << '"';
        EXPECT_EQ(OdUInt64(handle), isHandle ? value : 77) << '"' << text << '"';
        EXPECT_EQ(OdUInt64(OdDbHandle(odUtf8ToString(text))), value) << '"' << text << '"';
    }
}

TEST(Handle, WideLettersOfOtherScriptsAreNoDigits)
{
    OdDbHandle handle;
    EXPECT_FALSE(OdDbHandle::parse(std::wstring_view(L"\uFF11"), handle));  // full-width one
    EXPECT_FALSE(OdDbHandle::parse(std::wstring_view(L"\x10041"), handle)); // its low byte is an A
}

TEST(Handle, PrintsWhatItReads)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 1000; ++i)
    {
        const OdDbHandle handle(OdUInt64(random() >> random() % 64));
        OdDbHandle read;
        ASSERT_TRUE(OdDbHandle::parse(handle.text(), read));
        EXPECT_EQ(read, handle);
        EXPECT_EQ(OdDbHandle(handle.ascii()), handle);
    }
    EXPECT_EQ(OdDbHandle().text(), "0");
    EXPECT_EQ(OdDbHandle(0xabcdef).text(), "ABCDEF");
}

TEST(StubTable, FindsEveryStubWhereItWasMade)
{
    std::mt19937_64 random(11);
    oddb::StubTable table(nullptr);
    std::unordered_map<OdUInt64, OdDbStub*> made;
    for (int i = 0; i < 50000; ++i)
    {
        // Runs of neighbours, multiples of a power of two and numbers from all over.
        const OdUInt64 handle = i % 3 == 0 ? i + 1 : i % 3 == 1 ? OdUInt64(i) << 32 | 1 : random() | 1;
        OdDbStub* stub = table.findOrCreate(handle);
        const auto [place, isNew] = made.emplace(handle, stub);
        EXPECT_EQ(place->second, stub);
    }
    EXPECT_EQ(table.size(), made.size());
    for (const auto& [handle, stub] : made)
    {
        ASSERT_EQ(table.find(handle), stub);
        ASSERT_EQ(stub->handle, handle);
    }
    EXPECT_EQ(table.find(0xDEAD00000000BEEFull), nullptr);
    std::size_t visited = 0;
    table.visit([&](OdDbStub& stub) { visited += made.count(stub.handle); });
    EXPECT_EQ(visited, made.size());
}

} // namespace
