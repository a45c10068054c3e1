// Rows of groups against a plain list of groups.
#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "db/Groups.h"
#include "db/Stub.h"

namespace
{

using namespace oddb;

struct Plain
{
    int code;
    GroupType type;
    std::string text;
    std::int64_t number = 0; ///< of a real its bits
    OdDbStub* stub = nullptr;
};

OdDbStub theStubs[8];

double strangeDouble(std::mt19937& random)
{
    constexpr double kLeast = std::numeric_limits<double>::denorm_min(),
                     kNone = std::numeric_limits<double>::infinity();
    static const double kStrange[] = {0.0, -0.0, 1.5, 1e300, -1e-300, 0.1, -1.0, 3e38, 4.5e38, 1e-45, kLeast, kNone};
    if (random() % 2)
        return kStrange[random() % std::size(kStrange)];
    return std::bit_cast<double>(std::uint64_t(random()) << 32 | random());
}

std::int64_t strangeInteger(std::mt19937& random)
{
    const int bits = static_cast<int>(random() % 64);
    const auto magnitude = static_cast<std::int64_t>((std::uint64_t(random()) << 32 | random()) >> bits);
    return random() % 2 ? magnitude : -magnitude - 1;
}

std::string strangeText(std::mt19937& random)
{
    // Lengths around the borders of the length's own bytes; bytes of any value.
    static const std::size_t kLengths[] = {0, 1, 5, 127, 128, 129, 300, 16383, 16384};
    std::string text(kLengths[random() % std::size(kLengths)], ' ');
    for (char& character : text)
        character = static_cast<char>(random());
    return text;
}

Plain randomGroup(std::mt19937& random)
{
    const int code = static_cast<int>(random() % 2048) - 8;
    switch (random() % 6)
    {
    case 0:
        return {code, GroupType::Text, strangeText(random)};
    case 1:
        return {code, GroupType::Real, {}, std::bit_cast<std::int64_t>(strangeDouble(random))};
    case 2:
        return {code, GroupType::Integer, {}, strangeInteger(random)};
    case 3:
        return {code, GroupType::Boolean, {}, std::int64_t(random() % 2)};
    case 4:
        return {code, GroupType::Id, {}, 0, random() % 4 ? &theStubs[random() % 8] : nullptr};
    default:
        return {code, GroupType::Binary, strangeText(random)};
    }
}

void append(GroupsBuilder& builder, const Plain& plain)
{
    if (plain.type == GroupType::Text)
        builder.text(plain.code, plain.text);
    else if (plain.type == GroupType::Real)
        builder.real(plain.code, std::bit_cast<double>(plain.number));
    else if (plain.type == GroupType::Integer)
        builder.integer(plain.code, plain.number);
    else if (plain.type == GroupType::Boolean)
        builder.boolean(plain.code, plain.number != 0);
    else if (plain.type == GroupType::Binary)
        builder.binary(plain.code, plain.text);
    else
        builder.id(plain.code, plain.stub);
}

void expectSame(const GroupView& group, const Plain& plain)
{
    ASSERT_EQ(group.code(), plain.code);
    ASSERT_EQ(group.type(), plain.type);
    ASSERT_EQ(plain.type == GroupType::Binary ? group.binary() : group.text(), plain.text);
    // Reals to the bit, also what is no number and the two zeros.
    ASSERT_EQ(plain.type == GroupType::Real ? std::bit_cast<std::int64_t>(group.real()) : group.integer(),
              plain.number);
    ASSERT_EQ(group.stub(), plain.stub);
}

TEST(Groups, GiveBackWhatWasAppended)
{
    std::mt19937 random(1);
    GroupsBuilder kept;
    for (int round = 0; round < 400; ++round)
    {
        GroupsBuilder fresh;
        GroupsBuilder& builder = round % 2 == 0 ? kept : fresh;
        std::vector<Plain> plain;
        for (std::size_t i = 0, count = random() % 40; i < count; ++i)
            append(builder, plain.emplace_back(randomGroup(random)));
        const Groups groups = builder.finish();
        ASSERT_EQ(groups.count(), plain.size());
        std::size_t i = 0;
        for (const GroupView& group : groups)
            expectSame(group, plain[i++]);
    }
}

TEST(Groups, EqualWhenTheirGroupsAre)
{
    std::mt19937 random(2);
    GroupsBuilder first, second;
    for (int round = 0; round < 200; ++round)
    {
        for (std::size_t i = 0, count = 1 + random() % 10; i < count; ++i)
        {
            const Plain plain = randomGroup(random);
            append(first, plain);
            append(second, plain);
        }
        const Groups same = first.build();
        EXPECT_EQ(same, second.build());
        EXPECT_EQ(same.hash(), second.build().hash());
        second.boolean(290, true);
        EXPECT_FALSE(same == second.finish());
        first.clear();
    }
    EXPECT_EQ(Groups(), Groups());
    EXPECT_FALSE(Groups() == first.boolean(290, true).build());
}

TEST(Groups, SplicingReplacesItemsAndLeavesTheOriginal)
{
    std::mt19937 random(3);
    GroupsBuilder builder;
    for (int round = 0; round < 300; ++round)
    {
        std::vector<Plain> plain;
        for (std::size_t i = 0, count = 1 + random() % 12; i < count; ++i)
            append(builder, plain.emplace_back(randomGroup(random)));
        const Groups original = builder.finish();
        const std::size_t first = random() % (plain.size() + 1);
        const std::size_t last = first + random() % (plain.size() - first + 1);
        const Plain inserted = randomGroup(random);
        append(builder, inserted);
        auto at = [&](std::size_t index) { return std::next(original.begin(), static_cast<std::ptrdiff_t>(index)); };
        const Groups edited = original.spliced(*at(first), *at(last), builder);
        builder.clear();
        ASSERT_EQ(original.count(), plain.size());
        plain.erase(plain.begin() + static_cast<std::ptrdiff_t>(first),
                    plain.begin() + static_cast<std::ptrdiff_t>(last));
        plain.insert(plain.begin() + static_cast<std::ptrdiff_t>(first), inserted);
        ASSERT_EQ(edited.count(), plain.size());
        std::size_t i = 0;
        for (const GroupView& group : edited)
            expectSame(group, plain[i++]);
    }
}

Groups sample()
{
    GroupsBuilder builder;
    builder.integer(70, 1).text(100, "AcDbEntity").text(8, "0");
    builder.text(102, "{FOO").integer(62, 99).text(100, "AcDbLine").real(10, 99).text(102, "}").integer(62, 3);
    builder.text(100, "AcDbText").integer(73, 1).text(100, "AcDbLine").point(10, 1, 2, 3).point(10, 4, 5, 6);
    builder.text(100, "AcDbText").integer(73, 2).text(101, "Embedded Object").integer(73, 3);
    return builder.finish();
}

TEST(Groups, LookUpMindsPartsAndPassesOverApplicationData)
{
    const Groups groups = sample();
    const Atom line("AcDbLine"), text("AcDbText"), entity("AcDbEntity");
    EXPECT_EQ(groups.find(entity, 62)->integer(), 3);
    EXPECT_EQ(groups.find(line, 10)->real(), 1);
    EXPECT_EQ(groups.find(line, 10, 1)->real(), 4);
    EXPECT_FALSE(groups.find(line, 10, 2));
    EXPECT_EQ(groups.find(text, 73)->integer(), 1);
    EXPECT_EQ(groups.find(text, 73, 1)->integer(), 2); // the same marker begins two parts
    EXPECT_FALSE(groups.find(text, 73, 2));            // what is embedded is another object's
    EXPECT_EQ(groups.find(Atom("Embedded Object"), 73)->integer(), 3);
    EXPECT_EQ(groups.find(Atom(), 70)->integer(), 1);
    EXPECT_FALSE(groups.find(Atom(), 8));
    EXPECT_FALSE(groups.find(Atom("AcDbNowhere"), 10));
    EXPECT_FALSE(Groups().find(line, 10));
    EXPECT_EQ(groups.findAny(62)->integer(), 3);
}

TEST(Groups, TranslationTouchesNothingElse)
{
    GroupsBuilder builder;
    builder.text(1, "a").id(330, &theStubs[0]).id(340, nullptr).id(360, &theStubs[1]).real(40, 2.5);
    const Groups groups = builder.finish();
    auto same = [](int, OdDbStub* stub, GroupType) { return stub; };
    EXPECT_EQ(groups.translated(same).data(), groups.data());
    const Groups changed =
        groups.translated([](int code, OdDbStub*, GroupType) { return code == 330 ? &theStubs[5] : nullptr; });
    EXPECT_EQ(changed.findAny(330)->stub(), &theStubs[5]);
    EXPECT_EQ(changed.findAny(360)->stub(), nullptr);
    EXPECT_EQ(groups.findAny(330)->stub(), &theStubs[0]);
    EXPECT_EQ(changed.findAny(40)->real(), 2.5);
}

TEST(Groups, MarkersBeyondTheAtomTableStillBeginParts)
{
    const std::string longMarker(200, 'M'); // longer than any atom of a file
    GroupsBuilder builder;
    builder.text(100, longMarker).integer(90, 7).text(100, "").integer(90, 8);
    const Groups groups = builder.finish();
    EXPECT_FALSE(groups.find(Atom(), 90));
    EXPECT_EQ(groups.find(Atom(std::string_view(longMarker)), 90)->integer(), 7);
}

} // namespace
