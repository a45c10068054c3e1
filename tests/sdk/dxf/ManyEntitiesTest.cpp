// Many entities are read and written on several threads at once, and neither drawing nor file must show it.
#include "Drawings.h"

#include "DbBlockTableRecord.h"
#include "DbEntity.h"
#include "DbObjectIterator.h"
#include "support/DrawingText.h"

#include <algorithm>
#include <array>
#include <random>
#include <vector>

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

// What other threads read, and what they have to leave to the one that has the database.
std::string newerEntity(int number)
{
    const auto head = [number](const std::string& name, int part = 0)
    { return "0 " + name + "|5 " + OdDbHandle(OdUInt64(0x1000 + number * 4 + part)).text(); };
    const std::string layer = number % 11 == 0 ? "|8 UNKNOWN" + std::to_string(number % 5) : "|8 0";
    const std::string entity = "|330 1F|100 AcDbEntity" + layer;
    const std::string place = "|10 " + std::to_string(number) + ".5|20 0.0|30 0.0";
    switch (number % 13)
    {
    case 0:
        return groups(head("TEXT") + entity + "|100 AcDbText" + place + "|40 2.5|1 0|100 AcDbText|73 0");
    case 1:
        return groups(head("CIRCLE") + "|102 {ACAD_REACTORS|330 1F|102 }" + entity + "|100 AcDbCircle" + place +
                      "|40 1.5");
    case 2:
        return groups(head("INSERT") + entity + "|100 AcDbBlockReference|66 1|2 PART" + place + "|" +
                      head("ATTRIB", 1) + "|100 AcDbEntity|8 0|100 AcDbText" + place +
                      "|40 1.0|1 \\U+0416|100 AcDbAttribute|2 TAG|70 0|" + head("SEQEND", 2) + "|100 AcDbEntity|8 0");
    case 3:
        return groups(head("POLYLINE") + entity + "|100 AcDb2dPolyline|66 1" + place + "|" + head("VERTEX", 1) +
                      "|100 AcDbEntity|8 0|100 AcDbVertex|100 AcDb2dVertex" + place + "|" + head("SEQEND", 2) +
                      "|100 AcDbEntity|8 0");
    case 4:
        return groups(head("LINE") + entity + "|100 AcDbLine" + place + "|11 0.1|21 1e-7|31 0.0|1001 " +
                      (number % 3 == 0 ? "ACAD" : "STRANGER") + "|1000 shared|1070 0");
    case 5:
        return groups(head("NOVELTY") + entity + "|100 AcDbNovelty" + place + "|330 " + std::to_string(1000 + number) +
                      "|101 Embedded Object|1 0|102 {OTHER|70 0|102 }");
    case 6:
        return groups(head("POINT") + "|330 1B|100 AcDbEntity|67 1|8 0|100 AcDbPoint" + place +
                      (number % 7 == 0 ? "|39 thick" : ""));
    default:
        return groups(head("LINE") + entity + "|100 AcDbLine" + place + "|11 0.1|21 " + std::to_string(number) +
                      ".25|31 0.0");
    }
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1)
        lines.push_back(text.substr(at, text.find('\n', at) - at));
    return lines;
}

// Lines that end in carriage returns cannot be told apart without reading all that is before, so one thread does it.
std::string joined(const std::vector<std::string>& lines, char end)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + end;
    return text;
}

void damage(std::vector<std::string>& lines, std::mt19937& random)
{
    const std::size_t at = random() % lines.size();
    switch (random() % 5)
    {
    case 0:
        lines[at] = "0";
        return;
    case 1:
        lines[at] = "LINE";
        return;
    case 2:
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
        return;
    case 3:
        lines[at] = "?" + lines[at];
        return;
    default:
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), {"  0", "LINE"});
    }
}

std::string outcomeOf(const std::string& drawing)
{
    OdDbDatabasePtr database;
    const std::string error = errorOf([&] { database = openText(drawing); });
    return error.empty() ? reportOf(*database) + savedText(*database, OdDb::vAC32) : error;
}

TEST(ManyEntities, AreReadAsByOneThread)
{
    std::string good = support::drawing("AC1032");
    std::string many;
    for (int i = 0; i < kCount / 2; ++i)
        many += newerEntity(i);
    good.insert(good.find(groups("0 ENDSEC|0 SECTION|2 OBJECTS")), many);
    for (unsigned int seed = 0; seed < 9; ++seed)
    {
        std::mt19937 random(seed);
        std::vector<std::string> lines = linesOf(good);
        for (unsigned int left = seed * seed; left > 0; --left)
            damage(lines, random);
        const std::string byMany = outcomeOf(joined(lines, '\n'));
        const std::string byOne = outcomeOf(joined(lines, '\r'));
        EXPECT_GT(byOne.size(), std::size_t{1} << 19);
        EXPECT_TRUE(byMany == byOne) << "with seed " << seed;
    }
}

} // namespace
