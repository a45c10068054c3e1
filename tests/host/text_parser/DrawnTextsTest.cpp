// The texts of a drawing as entities hold them: with codes, turned, in blocks, in blocks within blocks, in dimensions.
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "DbText.h"
#include "commands/textparser/AssignFrames.h"
#include "commands/textparser/ComposeText.h"
#include "commands/textparser/PlaceTexts.h"
#include "support/DrawingFiles.h"
#include "support/DxfRecords.h"
#include "support/EntityDrawing.h"
#include "support/SdkProgram.h"

namespace
{

using Handles = std::vector<OdUInt64>;

std::string read(const OdDbObjectIdArray& ids)
{
    textparser::FoundTexts found = textparser::placeTexts(ids);
    textparser::assignFrames(found);
    return odStringToUtf8(textparser::composeText(found.texts));
}

OdDbDatabasePtr databaseOf(const support::Content& drawing)
{
    const support::TemporaryFolder folder;
    support::writeWholeFile(folder.path("drawing.dxf"), support::drawingOf(drawing));
    return support::readDrawing(folder.path("drawing.dxf"));
}

/// What is read of the entities with these handles.
std::string read(const support::Content& drawing, const Handles& handles)
{
    const OdDbDatabasePtr database = databaseOf(drawing);
    OdDbObjectIdArray ids;
    for (const OdUInt64 handle : handles)
        ids.append(database->getOdDbObjectId(OdDbHandle(handle)));
    return read(ids);
}

std::string text(const char* handle, const std::string& characters, double x, double y, double degrees = 0.0)
{
    return std::string("TEXT ") + handle + " 0|100 AcDbText|40 2.5|10 " + std::to_string(x) + "|20 " +
           std::to_string(y) + "|50 " + std::to_string(degrees) + "|1 " + characters;
}

std::string mtext(const char* handle, const std::string& contents)
{
    return std::string("MTEXT ") + handle + " 0|100 AcDbMText|10 0|20 0|40 2.5|71 1|72 1|1 " + contents;
}

std::string rectangle(const char* handle, double x, double y, double width, double height, double degrees = 0.0)
{
    const double corners[4][2] = {{0, 0}, {width, 0}, {width, height}, {0, height}};
    const double c = std::cos(OdaToRadian(degrees)), s = std::sin(OdaToRadian(degrees));
    std::string line = std::string("LWPOLYLINE ") + handle + " 0|100 AcDbPolyline|90 4|70 1";
    for (const auto& [across, up] : corners)
        line += "|10 " + std::to_string(x + across * c - up * s) + "|20 " + std::to_string(y + across * s + up * c);
    return line;
}

std::string circle(const char* handle, double radius)
{
    return std::string("CIRCLE ") + handle + " 0|100 AcDbCircle|10 0|20 0|40 " + std::to_string(radius);
}

/// A reference to a block; what follows its place is given.
std::string insert(const char* handle, const char* block, double x, double y, const std::string& further = {})
{
    return std::string("INSERT ") + handle + " 0|100 AcDbBlockReference|2 " + block + "|10 " + std::to_string(x) +
           "|20 " + std::to_string(y) + further;
}

std::string attribute(const char* handle, const char* characters, double y)
{
    return std::string("ATTRIB ") + handle + " 0|100 AcDbText|10 0|20 " + std::to_string(y) + "|40 2.5|1 " +
           characters + "|100 AcDbAttribute|2 TAG|70 0";
}

TEST(DrawnTexts, LoseTheirCodes)
{
    const std::pair<std::string, const char*> rows[] = {
        {text("A1", "E12", 0, 0), "E12"},
        {text("A1", "%%c12%%d%%p0.1", 0, 0), "\u220512\u00B0\u00B10.1"},
        {text("A1", "%%uunder%%u line", 0, 0), "under line"},
        {text("A1", "{no} \\P code", 0, 0), "{no} \\P code"},
        {text("A1", "  two   blanks ", 0, 0), "two blanks"},
        {text("A1", "   ", 0, 0), ""},
        {mtext("A1", "{\\fArial;\\H2x;E}\\C1;12"), "E12"},
        {mtext("A1", "first\\Psecond\\~line"), "first second line"},
        {mtext("A1", "\\{braces\\} and \\\\"), "{braces} and \\"},
        {mtext("A1", "H7\\S1/2;"), "H71/2"},
        {circle("A1", 5), ""},
        {"DIMENSION A1 0|100 AcDbDimension|1 {\\H0.7x;E\\S1/2;}7|11 0|21 0|70 32|100 AcDbAlignedDimension|"
         "100 AcDbRotatedDimension",
         "E1/27"},
    };
    for (const auto& [entity, expected] : rows)
        EXPECT_EQ(read({{entity}}, {0xA1}), expected) << entity;
    const OdDbDatabasePtr database = databaseOf({{text("A1", "a", 0, 0)}});
    const OdDbObjectId id = database->getOdDbObjectId(OdDbHandle(0xA1));
    EXPECT_EQ(read({OdDbObjectId(), database->getLayerTableId(), id}), "a");
    OdDbText::cast(id.safeOpenObject(OdDb::kForWrite))->erase();
    EXPECT_EQ(read({id}), "") << "erased";
}

TEST(DrawnTexts, ThatAreTurnedLieInTurnedFrames)
{
    for (const double degrees : {0.0, 30.0, 45.0, 90.0, 135.0, 180.0, 270.0})
    {
        const double c = std::cos(OdaToRadian(degrees)), s = std::sin(OdaToRadian(degrees));
        const support::Content drawing{{text("A1", "E12345678", 100, 100, degrees),
                                        rectangle("A2", 100 - c + s, 100 - s - c, 30, 4.5, degrees),
                                        rectangle("A3", 100 - c + s, 100 - s - c, 4.5, 30, degrees)}};
        EXPECT_EQ(read(drawing, {0xA1, 0xA2}), "<inRect>E12345678</inRect>") << degrees;
        EXPECT_EQ(read(drawing, {0xA1, 0xA3}), "E12345678") << degrees;
    }
}

TEST(DrawnTexts, OfBlocksStandWhereTheyAreDrawnInFramesOfTheirOwnOrOfTheGivenEntities)
{
    const std::vector<support::Block> blocks = {
        {"EMPTY", {}},
        {"BALLOON", {text("E1", "P3", -2, -1), circle("E2", 5)}},
        {"FRAME", {rectangle("E3", -50, -50, 100, 100), insert("E4", "INSIDE", 1, 1)}},
        {"INSIDE", {text("E5", "in", 0, 0)}},
        {"STRETCHED", {text("E6", "x", -0.5, -0.5), circle("E7", 4)}},
        {"FIRST", {text("E8", "first", 0, 0), insert("E9", "SECOND", 0, -10), insert("EA", "FIRST", 5, 5)}},
        {"SECOND", {text("EB", "second", 0, 0), insert("EC", "FIRST", 0, -10)}},
        {"CELL", {text("ED", "c", 0, 0)}},
        {"*D1", {mtext("EE", "\\A1;42 H7"), rectangle("EF", -5, -10, 60, 20)}},
    };
    const struct
    {
        const char* what;
        std::vector<std::string> entities;
        Handles handles;
        const char* expected;
    } rows[] = {
        {"once each",
         {text("A1", "a", 0, 0), insert("A2", "EMPTY", 0, -10, "|66 1"), attribute("A3", "b", -10), "SEQEND A4 0"},
         {0xA1, 0xA1, 0xA3, 0xA2, 0xA1, 0xA3},
         "a b"},
        {"an attribute alone",
         {insert("A2", "EMPTY", 0, -10, "|66 1"), attribute("A3", "b", -10), "SEQEND A4 0"},
         {0xA3},
         "b"},
        {"turned and scaled",
         {insert("A1", "BALLOON", 0, 100, "|41 2|42 2|43 2|50 90"), insert("A2", "BALLOON", 0, -100),
          text("A3", "between", 0, 0)},
         {0xA2, 0xA3, 0xA1},
         "<inCir>P3/<inCir> between <inCir>P3/<inCir>"},
        {"a frame in the block holds what belongs to the reference",
         {insert("A1", "FRAME", 0, 0, "|66 1"), attribute("A2", "att", 20), "SEQEND A3 0", text("A4", "beside", 0, -20),
          circle("A5", 60)},
         {0xA1, 0xA4},
         "<inRect>att</inRect> <inRect>in</inRect> beside"},
        {"one around it all holds what is in no nearer one",
         {insert("A1", "FRAME", 0, 0, "|66 1"), attribute("A2", "att", 20), "SEQEND A3 0", text("A4", "beside", 0, -20),
          circle("A5", 60)},
         {0xA1, 0xA4, 0xA5},
         "<inRect>att</inRect> <inRect>in</inRect> <inCir>beside/<inCir>"},
        {"a stretched circle is an oval", {insert("A1", "STRETCHED", 0, 0, "|41 3")}, {0xA1}, "<inOv>x/<inOv>"},
        {"a block that holds itself ends", {insert("A1", "FIRST", 0, 0)}, {0xA1}, "first second"},
        {"two that hold each other", {insert("A1", "SECOND", 0, 0)}, {0xA1}, "second first"},
        {"a grid stands in rows and columns",
         {text("A1", "right", 40, 10), insert("A2", "CELL", 0, 0, "|70 3|71 2|44 10|45 10"),
          text("A3", "below", 40, 0)},
         {0xA1, 0xA2, 0xA3},
         "c c c right c c c below"},
        {"a dimension is what its block shows",
         {"DIMENSION A1 0|100 AcDbDimension|2 *D1|1 not shown|10 0|20 0|70 32|100 AcDbAlignedDimension|"
          "100 AcDbRotatedDimension"},
         {0xA1},
         "<inRect>42 H7</inRect>"},
        {"an ellipse",
         {text("A1", "E1", 0, 0),
          "ELLIPSE A2 0|100 AcDbEllipse|10 2|20 1|30 0|11 20|21 0|31 0|40 0.4|41 0|42 6.283185307179586"},
         {0xA1, 0xA2},
         "<inOv>E1/<inOv>"},
        {"a rectangle of lines",
         {text("A1", "E1", 0, 0), "LINE A2 0|100 AcDbLine|10 -2|20 -2|11 10|21 -2",
          "LINE A3 0|100 AcDbLine|10 10|20 -2|11 10|21 5", "LINE A4 0|100 AcDbLine|10 10|20 5|11 -2|21 5",
          "LINE A5 0|100 AcDbLine|10 -2|20 5|11 -2|21 -2"},
         {0xA1, 0xA2, 0xA3, 0xA4, 0xA5},
         "<inRect>E1</inRect>"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(read({row.entities, blocks}, row.handles), row.expected) << row.what;
}

TEST(DrawnTexts, OfBlocksThatMultiplyAreRefusedInTime)
{
    support::Content drawing{{insert("A1", "LEVEL29", 0, 0)}, {{"LEVEL0", {text("1000", "x", 0, 0)}}}};
    for (int level = 1; level < 30; ++level)
    {
        support::Block& block = drawing.blocks.emplace_back();
        block.name = "LEVEL" + std::to_string(level);
        for (int i = 0; i < 4; ++i)
            block.entities.push_back(insert(std::to_string(1000 + 4 * level + i).c_str(),
                                            ("LEVEL" + std::to_string(level - 1)).c_str(), i, i));
    }
    EXPECT_THROW(read(drawing, {0xA1}), OdError);
}

} // namespace
