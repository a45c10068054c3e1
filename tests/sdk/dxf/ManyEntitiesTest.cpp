// Many entities are written on several threads at once, and the file must not show it.
#include "Drawings.h"

#include "DbBlockTableRecord.h"
#include "DbEntity.h"
#include "DbObjectIterator.h"
#include "support/DrawingText.h"

#include <array>

#include <gtest/gtest.h>

namespace
{

using support::groups;

constexpr int kCount = 9000;
constexpr int kFew = 1500; // as many are written on one thread

// Texts that need coding, attributes, vertices, many layers, extended data that many share and some have alone.
std::string entity(int number)
{
    const std::string layer = "|8 LAYER" + std::to_string(number % 150);
    const std::string place = "|10 " + std::to_string(number) + ".5|20 0.0|30 0.0";
    switch (number % 4)
    {
    case 0:
        return groups("0 TEXT" + layer + place + "|40 2.5|1 W\xE4nde ^ \\U+03A9 " + std::to_string(number));
    case 1:
        return groups("0 LINE" + layer + place + "|11 0.1|21 1e-7|31 0.0|1001 ACAD|1000 shared" +
                      (number % 7 == 0 ? std::to_string(number) : ""));
    case 2:
        return groups("0 INSERT" + layer + "|66 1|2 PART" + place + "|0 ATTRIB" + layer + place +
                      "|40 1.0|1 value|2 TAG|70 0|0 SEQEND" + layer);
    default:
        return groups("0 POLYLINE" + layer + "|66 1" + place + "|0 VERTEX" + layer + place + "|0 SEQEND" + layer);
    }
}

std::string manyEntities()
{
    const std::string block = groups("0 BLOCK|8 0|2 PART|70 2|10 0.0|20 0.0|30 0.0|3 PART|0 ENDBLK|8 0");
    std::string entities;
    for (int i = 0; i < kCount; ++i)
        entities += entity(i);
    return support::headerSection("AC1009") + support::section("BLOCKS", block) +
           support::section("ENTITIES", entities) + support::endOfFile();
}

void eraseOutside(OdDbDatabase& database, int first, int last)
{
    const OdDbBlockTableRecordPtr space = database.getModelSpaceId().safeOpenObject();
    int number = 0;
    for (OdDbObjectIteratorPtr it = space->newIterator(); !it->done(); it->step(), ++number)
        if (number < first || number >= last)
            it->entity(OdDb::kForWrite)->erase();
    ASSERT_EQ(number, kCount);
}

std::string entitiesOf(const std::string& file, dxf::FileForm form)
{
    const std::string separator = form == dxf::FileForm::Ascii ? "\n" : std::string(1, '\0');
    const std::string begin = "ENTITIES" + separator;
    const std::string end = "ENDSEC" + separator;
    const std::size_t at = file.find(begin, file.find("ENDBLK")) + begin.size();
    const std::size_t behind = file.find(end, at); // its code, 0, stands in front
    return file.substr(at, behind - at - (form == dxf::FileForm::Ascii ? 4 : 2));
}

TEST(ManyEntities, AreWrittenAsFewAre)
{
    struct Case
    {
        OdDb::DwgVersion version;
        dxf::FileForm form;
    };
    const std::array cases{Case{OdDb::vAC15, dxf::FileForm::Ascii}, Case{OdDb::vAC32, dxf::FileForm::Binary}};
    const std::string drawing = manyEntities();
    for (const auto& [version, form] : cases)
    {
        const std::string together = entitiesOf(savedText(*openText(drawing), version, form), form);
        std::string inPieces;
        for (int first = 0; first < kCount; first += kFew)
        {
            const OdDbDatabasePtr database = openText(drawing);
            eraseOutside(*database, first, first + kFew);
            inPieces += entitiesOf(savedText(*database, version, form), form);
        }
        EXPECT_GT(together.size(), std::size_t{1} << 20);
        EXPECT_TRUE(together == inPieces) << version;
    }
}

} // namespace
