// What one object costs in memory. Drawings have millions of them: whoever makes one of these larger has to know.
#include "DbBlockReference.h"
#include "DbDictionary.h"
#include "DbLine.h"
#include "DbPolyline.h"
#include "EntityTest.h"
#include "db/DictionaryEntries.h"
#include "db/Groups.h"
#include "db/ObjectExtras.h"
#include "db/Stub.h"

namespace
{

using namespace entitytest;

constexpr std::tuple<const char*, std::size_t, std::size_t> kFootprints[] = {
    {"the place behind an id, of every object", sizeof(OdDbStub), 32},
    {"an object", sizeof(OdDbObject), 48},
    {"a line", sizeof(OdDbLine), 48},
    {"a polyline", sizeof(OdDbPolyline), 48},
    {"a block reference, with its attributes", sizeof(OdDbBlockReference), 56},
    {"a dictionary, with its entries", sizeof(OdDbDictionary), 56},
    {"what marked objects have besides", sizeof(oddb::ObjectExtras), 64},
    {"the listeners of one object", sizeof(oddb::ReactorSet), 24},
    {"the extended data of one object", sizeof(oddb::XDataList), 24},
    {"the head of a row of groups", sizeof(oddb::GroupsData), 8},
    {"an entry of a dictionary", sizeof(oddb::DictionaryEntry), 48},
};

TEST(Footprint, OfObjectsDoesNotGrowUnnoticed)
{
    for (const auto& [what, size, most] : kFootprints)
        EXPECT_LE(size, most) << what;
}

// Markers and zeros take two bytes, whole numbers that fit four.
TEST_F(EntityTest, TheGroupsOfALineTakeLessThanItsTextInAFile)
{
    const OdDbEntityPtr line = entityFrom("LINE", "100 AcDbLine|10 1|20 2|30 0|11 30|21 40.5|31 0");
    EXPECT_LE(oddb::ObjectCore::groups(*line).byteSize(), 44u);
}

} // namespace
