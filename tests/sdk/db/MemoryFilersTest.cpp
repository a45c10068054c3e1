// Filers in memory: what goes in comes out, and nothing else is ever read.
#include <gtest/gtest.h>

#include <random>

#include "CoreDrawing.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeVector3d.h"
#include "OdError.h"
#include "db/GroupsDxfFiler.h"
#include "db/GroupsFiling.h"
#include "db/MemoryFilers.h"

namespace
{

using namespace coretest;
using oddb::Groups;
using oddb::GroupsBuilder;
using oddb::GroupsDxfFiler;
using oddb::MemoryDwgFiler;

OdDbStub theStubs[6];

using FilerPtr = OdSmartPtr<MemoryDwgFiler>;
using Write = void (*)(OdDbDwgFiler&);
using Read = bool (*)(OdDbDwgFiler&);

struct ValueCase
{
    const char* name;
    Write write;
    Read isRead;
};

const ValueCase kValues[] = {
    {"bool", [](OdDbDwgFiler& f) { f.wrBool(true); }, [](OdDbDwgFiler& f) { return f.rdBool(); }},
    {"string", [](OdDbDwgFiler& f) { f.wrString(L"\u0416 x"); },
     [](OdDbDwgFiler& f) { return f.rdString() == L"\u0416 x"; }},
    {"bytes", [](OdDbDwgFiler& f) { f.wrBytes("abc", 3); },
     [](OdDbDwgFiler& f)
     {
         char b[3];
         f.rdBytes(b, 3);
         return std::string_view(b, 3) == "abc";
     }},
    {"int8", [](OdDbDwgFiler& f) { f.wrInt8(-5); }, [](OdDbDwgFiler& f) { return f.rdInt8() == -5; }},
    {"int16", [](OdDbDwgFiler& f) { f.wrInt16(-500); }, [](OdDbDwgFiler& f) { return f.rdInt16() == -500; }},
    {"int32", [](OdDbDwgFiler& f) { f.wrInt32(1 << 30); }, [](OdDbDwgFiler& f) { return f.rdInt32() == 1 << 30; }},
    {"int64", [](OdDbDwgFiler& f) { f.wrInt64(1ll << 60); }, [](OdDbDwgFiler& f) { return f.rdInt64() == 1ll << 60; }},
    {"double", [](OdDbDwgFiler& f) { f.wrDouble(0.1); }, [](OdDbDwgFiler& f) { return f.rdDouble() == 0.1; }},
    {"handle", [](OdDbDwgFiler& f) { f.wrDbHandle(0x2A); },
     [](OdDbDwgFiler& f) { return f.rdDbHandle() == OdDbHandle(0x2A); }},
    {"soft pointer", [](OdDbDwgFiler& f) { f.wrSoftPointerId(&theStubs[0]); },
     [](OdDbDwgFiler& f) { return f.rdSoftPointerId() == OdDbObjectId(&theStubs[0]); }},
    {"hard pointer", [](OdDbDwgFiler& f) { f.wrHardPointerId(&theStubs[1]); },
     [](OdDbDwgFiler& f) { return f.rdHardPointerId() == OdDbObjectId(&theStubs[1]); }},
    {"soft owner", [](OdDbDwgFiler& f) { f.wrSoftOwnershipId(&theStubs[2]); },
     [](OdDbDwgFiler& f) { return f.rdSoftOwnershipId() == OdDbObjectId(&theStubs[2]); }},
    {"hard owner", [](OdDbDwgFiler& f) { f.wrHardOwnershipId(&theStubs[3]); },
     [](OdDbDwgFiler& f) { return f.rdHardOwnershipId() == OdDbObjectId(&theStubs[3]); }},
    {"point 2d", [](OdDbDwgFiler& f) { f.wrPoint2d(OdGePoint2d(1, 2)); },
     [](OdDbDwgFiler& f) { return f.rdPoint2d() == OdGePoint2d(1, 2); }},
    {"point 3d", [](OdDbDwgFiler& f) { f.wrPoint3d(OdGePoint3d(1, 2, 3)); },
     [](OdDbDwgFiler& f) { return f.rdPoint3d() == OdGePoint3d(1, 2, 3); }},
};
constexpr std::size_t kValueCount = std::size(kValues);

TEST(MemoryFiler, GivesBackSequencesOfAllTypes)
{
    std::mt19937 random(9);
    for (int round = 0; round < 100; ++round)
    {
        FilerPtr filer = MemoryDwgFiler::create(OdDbFiler::kCopyFiler, nullptr);
        std::vector<std::size_t> written;
        for (std::size_t i = 0, count = random() % 30; i < count; ++i)
            kValues[written.emplace_back(random() % kValueCount)].write(*filer);
        filer->beginReading(OdDbFiler::kCopyFiler, nullptr);
        for (const std::size_t index : written)
            ASSERT_TRUE(kValues[index].isRead(*filer)) << kValues[index].name;
        EXPECT_TRUE(filer->atEnd());
        EXPECT_EQ(codeOf([&] { filer->rdBool(); }), eEndOfFile);
    }
}

TEST(MemoryFiler, RefusesEveryOtherTypeAndStaysWhereItIs)
{
    for (const ValueCase& written : kValues)
        for (const ValueCase& asked : kValues)
        {
            if (&written == &asked)
                continue;
            FilerPtr filer = MemoryDwgFiler::create(OdDbFiler::kCopyFiler, nullptr);
            written.write(*filer);
            filer->beginReading(OdDbFiler::kCopyFiler, nullptr);
            EXPECT_EQ(codeOf([&] { asked.isRead(*filer); }), eDwgObjectImproperlyRead)
                << written.name << " as " << asked.name;
            EXPECT_TRUE(written.isRead(*filer)) << written.name;
        }
}

TEST(MemoryFiler, ReadsNothingBehindAnyCut)
{
    FilerPtr filer = MemoryDwgFiler::create(OdDbFiler::kFileFiler, nullptr);
    for (const ValueCase& value : kValues)
        value.write(*filer);
    const std::vector<std::uint8_t> whole(filer->bytes().begin(), filer->bytes().end());
    for (std::size_t size = 0; size < whole.size(); ++size)
    {
        const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        filer->setBytes(cut);
        std::size_t read = 0;
        const OdResult result = codeOf(
            [&]
            {
                for (const ValueCase& value : kValues)
                {
                    value.isRead(*filer);
                    ++read;
                }
            });
        EXPECT_EQ(result, eEndOfFile) << size;
        EXPECT_LT(read, kValueCount);
    }
}

TEST(MemoryFiler, SeeksWithinItsDataOnly)
{
    FilerPtr filer = MemoryDwgFiler::create(OdDbFiler::kFileFiler, nullptr);
    filer->wrInt32(1);
    const auto second = static_cast<OdInt64>(filer->tell());
    filer->wrInt32(2);
    filer->seek(second, OdDbDwgFiler::kSeekFromStart);
    EXPECT_EQ(filer->rdInt32(), 2);
    filer->seek(-second, OdDbDwgFiler::kSeekFromEnd);
    EXPECT_EQ(filer->rdInt32(), 2);
    for (const OdInt64 offset : {OdInt64(-1), second * 2 + 1, INT64_MIN, INT64_MAX})
        EXPECT_EQ(codeOf([&] { filer->seek(offset, OdDbDwgFiler::kSeekFromStart); }), eEndOfFile) << offset;
    EXPECT_EQ(codeOf([&] { filer->seek(INT64_MAX, OdDbDwgFiler::kSeekFromCurrent); }), eEndOfFile);
    EXPECT_TRUE(filer->atEnd());
}

Groups groupsOfAllTypes()
{
    GroupsBuilder builder;
    builder.text(100, "AcDbThing").text(1, "\xff invalid \xc3").real(40, 0.1).integer(90, -3).integer(160, 1ll << 40);
    builder.boolean(290, true).id(330, &theStubs[0]).id(340, &theStubs[1]).id(350, &theStubs[2]).id(360, &theStubs[3]);
    builder.name(8, &theStubs[4]).binary(310, std::string_view("\0\1\2", 3)).id(340, nullptr).point(10, 1, 2, 3);
    return builder.finish();
}

TEST(MemoryFiler, DamagedRowsOfGroupsAreRefused)
{
    FilerPtr filer = MemoryDwgFiler::create(OdDbFiler::kFileFiler, nullptr);
    oddb::writeGroups(*filer, groupsOfAllTypes());
    const std::vector<std::uint8_t> whole(filer->bytes().begin(), filer->bytes().end());
    filer->beginReading(OdDbFiler::kFileFiler, nullptr);
    EXPECT_EQ(oddb::readGroups(*filer), groupsOfAllTypes());
    EXPECT_TRUE(filer->atEnd());
    std::mt19937 random(13);
    int refused = 0;
    for (int round = 0; round < 5000; ++round)
    {
        std::vector<std::uint8_t> damaged = whole;
        for (int i = 0; i < 3; ++i)
            damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
        damaged.resize(random() % 4 ? damaged.size() : random() % damaged.size());
        filer->setBytes(damaged);
        refused += codeOf([&] { oddb::readGroups(*filer); }) != eOk;
    }
    EXPECT_GT(refused, 1000);
}

TEST(MemoryFiler, VisitsAndReplacesIdsByTheirMeaning)
{
    FilerPtr filer = MemoryDwgFiler::create(OdDbFiler::kDeepCloneFiler, nullptr);
    filer->wrSoftPointerId(&theStubs[0]);
    filer->wrString(L"between");
    filer->wrHardOwnershipId(&theStubs[3]);
    filer->wrHardPointerId(OdDbObjectId());
    filer->wrGroups(groupsOfAllTypes());
    std::vector<std::pair<OdDbStub*, OdDb::ReferenceType>> visited;
    filer->visitIds([&](OdDbStub* stub, OdDb::ReferenceType type) { visited.emplace_back(stub, type); });
    const std::vector<std::pair<OdDbStub*, OdDb::ReferenceType>> expected = {
        {&theStubs[0], OdDb::kSoftPointerRef},   {&theStubs[3], OdDb::kHardOwnershipRef},
        {&theStubs[0], OdDb::kSoftPointerRef},   {&theStubs[1], OdDb::kHardPointerRef},
        {&theStubs[2], OdDb::kSoftOwnershipRef}, {&theStubs[3], OdDb::kHardOwnershipRef},
        {&theStubs[4], OdDb::kHardPointerRef}};
    EXPECT_EQ(visited, expected);
    filer->beginReading(OdDbFiler::kIdXlateFiler, nullptr,
                        [](OdDbStub* stub, OdDb::ReferenceType) { return stub == &theStubs[0] ? &theStubs[5] : stub; });
    EXPECT_EQ(filer->rdSoftPointerId(), OdDbObjectId(&theStubs[5]));
    filer->rdString();
    EXPECT_EQ(filer->rdHardOwnershipId(), OdDbObjectId(&theStubs[3]));
    EXPECT_TRUE(filer->rdHardPointerId().isNull());
    const Groups read = filer->rdGroups();
    EXPECT_EQ(read.findAny(330)->stub(), &theStubs[5]);
    EXPECT_EQ(read.findAny(360)->stub(), &theStubs[3]);
}

TEST(GroupsFiler, RefusesOtherTypesAndStaysWhereItIs)
{
    OdSmartPtr<GroupsDxfFiler> writer = GroupsDxfFiler::create(nullptr);
    writer->wrInt16(70, 1);
    writer->wrString(1, L"text");
    writer->wrAngle(50, 3.14159265358979323846, OdDbDxfFiler::kDfltPrec);
    OdSmartPtr<GroupsDxfFiler> reader = GroupsDxfFiler::createReader(writer->finish(), nullptr);
    EXPECT_EQ(codeOf([&] { reader->rdString(); }), eInvalidContext) << "before the first group";
    EXPECT_EQ(reader->nextItem(), 70);
    EXPECT_EQ(codeOf([&] { reader->rdString(); }), eInvalidGroupCode);
    EXPECT_EQ(reader->rdInt16(), 1);
    for (const bool again : {false, true})
    {
        if (again)
            reader->pushBackItem();
        EXPECT_EQ(reader->nextItem(), 1);
        EXPECT_EQ(codeOf([&] { reader->rdInt16(); }), eInvalidGroupCode);
        EXPECT_EQ(codeOf([&] { reader->rdDouble(); }), eInvalidGroupCode);
    }
    EXPECT_EQ(reader->nextItem(), 50);
    EXPECT_DOUBLE_EQ(reader->rdDouble(), 180);
    EXPECT_EQ(codeOf([&] { reader->nextItem(); }), eEndOfFile);
}

TEST(GroupsFiler, NarrowsNumbersOnlyWhereTheyFit)
{
    GroupsBuilder builder;
    const Groups groups = builder.integer(90, 40000).integer(90, 4294967295).integer(90, -2147483649).finish();
    OdSmartPtr<GroupsDxfFiler> reader = GroupsDxfFiler::createReader(groups, nullptr);
    reader->nextItem();
    EXPECT_EQ(reader->rdUInt16(), 40000);
    EXPECT_EQ(codeOf([&] { reader->rdInt8(); }), eOutOfRange);
    reader->nextItem();
    EXPECT_EQ(reader->rdInt32(), -1); // files write the upper half either way
    EXPECT_EQ(reader->rdUInt32(), 4294967295u);
    reader->nextItem();
    EXPECT_EQ(codeOf([&] { reader->rdInt32(); }), eOutOfRange);
}

// Copies bring everything that belongs to the object, through the filers of the base class.
TEST(ObjectFiling, CopiesAreComplete)
{
    CoreDrawing drawing;
    const OdDbObjectId reactor = drawing.addLedger();
    LedgerPtr original = drawing.addLedger().safeOpenObject(OdDb::kForWrite);
    original->put(L"line");
    original->addPersistentReactor(reactor);
    original->setXData(xdataChain(L"ONE", 1, L"a"));
    const LedgerPtr copy = original->clone();
    EXPECT_FALSE(copy->isDBRO());
    EXPECT_EQ(copy->lines.size(), 1u);
    EXPECT_TRUE(copy->hasPersistentReactor(reactor));
    EXPECT_FALSE(copy->xData(L"ONE").isNull());
    EXPECT_EQ(codeOf([&] { copy->copyFrom(drawing.addRecord(1).safeOpenObject()); }), eNotThatKindOfClass);
}

} // namespace
