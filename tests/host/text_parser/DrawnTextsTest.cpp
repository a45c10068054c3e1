// The texts of a drawing as entities hold them: with codes, turned, in blocks, in blocks within blocks, in dimensions.
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbCircle.h"
#include "DbDatabase.h"
#include "DbDimension.h"
#include "DbEllipse.h"
#include "DbLine.h"
#include "DbMText.h"
#include "DbPolyline.h"
#include "DbText.h"
#include "commands/textparser/AssignFrames.h"
#include "commands/textparser/ComposeText.h"
#include "commands/textparser/PlaceTexts.h"
#include "support/SdkProgram.h"

namespace
{

class DrawnTexts : public testing::Test
{
protected:
    DrawnTexts() : m_database(OdDbDatabase::createObject()) { m_database->initialize(); }

    std::string read(const OdDbObjectIdArray& ids) const
    {
        textparser::FoundTexts found = textparser::placeTexts(ids);
        textparser::assignFrames(found);
        return odStringToUtf8(textparser::composeText(found.texts));
    }

    OdDbObjectId model() const { return m_database->getModelSpaceId(); }

    OdDbObjectId add(OdDbObjectId block, OdDbEntity* entity)
    {
        const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::cast(block.safeOpenObject(OdDb::kForWrite));
        return record->appendOdDbEntity(entity);
    }

    OdDbObjectId addText(OdDbObjectId block, const OdChar* characters, double x, double y, double degrees = 0.0)
    {
        const OdDbTextPtr text = OdDbText::createObject();
        text->setTextString(characters);
        text->setHeight(2.5);
        text->setPosition(OdGePoint3d(x, y, 0.0));
        text->setRotation(OdaToRadian(degrees));
        return add(block, text);
    }

    OdDbObjectId addMText(OdDbObjectId block, const OdChar* contents, double x, double y)
    {
        const OdDbMTextPtr text = OdDbMText::createObject();
        text->setContents(contents);
        text->setTextHeight(2.5);
        text->setLocation(OdGePoint3d(x, y, 0.0));
        return add(block, text);
    }

    OdDbObjectId addCircle(OdDbObjectId block, double x, double y, double radius)
    {
        const OdDbCirclePtr circle = OdDbCircle::createObject();
        circle->setCenter(OdGePoint3d(x, y, 0.0));
        circle->setRadius(radius);
        return add(block, circle);
    }

    OdDbObjectId addRectangle(OdDbObjectId block, double x, double y, double width, double height, double degrees = 0.0)
    {
        const OdDbPolylinePtr polyline = OdDbPolyline::createObject();
        const double corners[4][2] = {{0, 0}, {width, 0}, {width, height}, {0, height}};
        const double c = std::cos(OdaToRadian(degrees));
        const double s = std::sin(OdaToRadian(degrees));
        for (unsigned i = 0; i < 4; ++i)
            polyline->addVertexAt(
                i, OdGePoint2d(x + corners[i][0] * c - corners[i][1] * s, y + corners[i][0] * s + corners[i][1] * c));
        polyline->setClosed(true);
        return add(block, polyline);
    }

    OdDbObjectId addBlock(const OdChar* name)
    {
        const OdDbBlockTablePtr table =
            OdDbBlockTable::cast(m_database->getBlockTableId().safeOpenObject(OdDb::kForWrite));
        const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
        record->setName(name);
        return table->add(record);
    }

    OdDbObjectId addReference(OdDbObjectId block, OdDbObjectId definition, double x, double y, double scale = 1.0,
                              double degrees = 0.0)
    {
        const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
        reference->setBlockTableRecord(definition);
        reference->setPosition(OdGePoint3d(x, y, 0.0));
        reference->setScaleFactors(OdGeScale3d(scale, scale, scale));
        reference->setRotation(OdaToRadian(degrees));
        return add(block, reference);
    }

    OdDbObjectId addAttribute(OdDbObjectId reference, const OdChar* characters, double x, double y)
    {
        const OdDbBlockReferencePtr opened = OdDbBlockReference::cast(reference.safeOpenObject(OdDb::kForWrite));
        const OdDbAttributePtr attribute = OdDbAttribute::createObject();
        attribute->setTag(L"TAG");
        attribute->setTextString(characters);
        attribute->setHeight(2.5);
        attribute->setPosition(OdGePoint3d(x, y, 0.0));
        return opened->appendAttribute(attribute);
    }

    OdDbDatabasePtr m_database;
};

TEST_F(DrawnTexts, LoseTheirCodes)
{
    const std::pair<OdDbObjectId, const char*> cases[] = {
        {addText(model(), L"E12", 0, 0), "E12"},
        {addText(model(), L"%%c12%%d%%p0.1", 0, 0), "\u220512\u00B0\u00B10.1"},
        {addText(model(), L"%%uunder%%u line", 0, 0), "under line"},
        {addText(model(), L"{no} \\P code", 0, 0), "{no} \\P code"},
        {addText(model(), L"  two   blanks ", 0, 0), "two blanks"},
        {addText(model(), L"   ", 0, 0), ""},
        {addMText(model(), L"{\\fArial|b1;\\H2x;E}\\C1;12", 0, 0), "E12"},
        {addMText(model(), L"first\\Psecond\\~line", 0, 0), "first second line"},
        {addMText(model(), L"\\{braces\\} and \\\\", 0, 0), "{braces} and \\"},
        {addMText(model(), L"H7\\S1/2;", 0, 0), "H71/2"},
        {addCircle(model(), 0, 0, 5), ""},
        {OdDbObjectId::kNull, ""},
        {m_database->getLayerTableId(), ""},
    };
    for (const auto& [id, expected] : cases)
        EXPECT_EQ(read({id}), expected);
}

TEST_F(DrawnTexts, ComeOnceEach)
{
    const OdDbObjectId text = addText(model(), L"a", 0, 0);
    const OdDbObjectId reference = addReference(model(), addBlock(L"EMPTY"), 0, -10);
    const OdDbObjectId attribute = addAttribute(reference, L"b", 0, -10);
    EXPECT_EQ(read({text, text, attribute, reference, text, attribute}), "a b");
    EXPECT_EQ(read({attribute}), "b");
}

TEST_F(DrawnTexts, OfErasedEntitiesAreGone)
{
    const OdDbObjectId text = addText(model(), L"a", 0, 0);
    OdDbText::cast(text.safeOpenObject(OdDb::kForWrite))->erase();
    EXPECT_EQ(read({text}), "");
}

TEST_F(DrawnTexts, ThatAreTurnedLieInTurnedFrames)
{
    for (const double degrees : {0.0, 30.0, 45.0, 90.0, 135.0, 180.0, 270.0})
    {
        const double c = std::cos(OdaToRadian(degrees));
        const double s = std::sin(OdaToRadian(degrees));
        const OdDbObjectId text = addText(model(), L"E12345678", 100, 100, degrees);
        const OdDbObjectId frame = addRectangle(model(), 100 - c + s, 100 - s - c, 30, 4.5, degrees);
        EXPECT_EQ(read({text, frame}), "<inRect>E12345678</inRect>") << degrees;
        const OdDbObjectId across = addRectangle(model(), 100 - c + s, 100 - s - c, 4.5, 30, degrees);
        EXPECT_EQ(read({text, across}), "E12345678") << degrees;
    }
}

TEST_F(DrawnTexts, OfBlocksStandWhereTheyAreDrawn)
{
    const OdDbObjectId block = addBlock(L"BALLOON");
    addText(block, L"P3", -2, -1);
    addCircle(block, 0, 0, 5);
    const OdDbObjectId upper = addReference(model(), block, 0, 100, 2.0, 90.0);
    const OdDbObjectId lower = addReference(model(), block, 0, -100);
    const OdDbObjectId between = addText(model(), L"between", 0, 0);
    EXPECT_EQ(read({lower, between, upper}), "<inCir>P3/<inCir> between <inCir>P3/<inCir>");
}

TEST_F(DrawnTexts, LieInFramesOfTheirOwnBlockOrOfTheGivenEntities)
{
    const OdDbObjectId block = addBlock(L"FRAME");
    addRectangle(block, -50, -50, 100, 100);
    const OdDbObjectId inside = addBlock(L"INSIDE");
    addText(inside, L"in", 0, 0);
    addReference(block, inside, 1, 1);
    const OdDbObjectId reference = addReference(model(), block, 0, 0);
    addAttribute(reference, L"att", 0, 20);
    const OdDbObjectId beside = addText(model(), L"beside", 0, -20);
    EXPECT_EQ(read({reference, beside}), "<inRect>att</inRect> <inRect>in</inRect> beside");
    const OdDbObjectId around = addCircle(model(), 0, 0, 60);
    EXPECT_EQ(read({reference, beside, around}), "<inRect>att</inRect> <inRect>in</inRect> <inCir>beside/<inCir>");
}

TEST_F(DrawnTexts, OfAStretchedCircleLieInAnOval)
{
    const OdDbObjectId block = addBlock(L"STRETCHED");
    addText(block, L"x", -0.5, -0.5);
    addCircle(block, 0, 0, 4);
    const OdDbObjectId reference = addReference(model(), block, 0, 0);
    OdDbBlockReference::cast(reference.safeOpenObject(OdDb::kForWrite))->setScaleFactors(OdGeScale3d(3, 1, 1));
    EXPECT_EQ(read({reference}), "<inOv>x/<inOv>");
}

TEST_F(DrawnTexts, OfBlocksThatHoldThemselvesEnd)
{
    const OdDbObjectId first = addBlock(L"FIRST");
    const OdDbObjectId second = addBlock(L"SECOND");
    addText(first, L"first", 0, 0);
    addText(second, L"second", 0, 0);
    addReference(first, second, 0, -10);
    addReference(second, first, 0, -10);
    addReference(first, first, 5, 5);
    EXPECT_EQ(read({addReference(model(), first, 0, 0)}), "first second");
    EXPECT_EQ(read({addReference(model(), second, 0, 0)}), "second first");
}

TEST_F(DrawnTexts, OfBlocksThatMultiplyAreRefusedInTime)
{
    OdDbObjectId block = addBlock(L"LEVEL0");
    addText(block, L"x", 0, 0);
    for (int level = 1; level < 30; ++level)
    {
        OdString name;
        const OdDbObjectId next = addBlock(name.format(L"LEVEL%d", level).c_str());
        for (int i = 0; i < 4; ++i)
            addReference(next, block, i, i);
        block = next;
    }
    EXPECT_THROW(read({addReference(model(), block, 0, 0)}), OdError);
}

TEST_F(DrawnTexts, OfGridsStandInRowsAndColumns)
{
    const OdDbObjectId block = addBlock(L"CELL");
    addText(block, L"c", 0, 0);
    const OdDbMInsertBlockPtr grid = OdDbMInsertBlock::createObject();
    grid->setBlockTableRecord(block);
    grid->setColumns(3);
    grid->setRows(2);
    grid->setColumnSpacing(10);
    grid->setRowSpacing(10);
    const OdDbObjectId id = add(model(), grid);
    EXPECT_EQ(read({addText(model(), L"right", 40, 10), id, addText(model(), L"below", 40, 0)}),
              "c c c right c c c below");
}

TEST_F(DrawnTexts, OfDimensionsAreWhatTheyShow)
{
    const OdDbRotatedDimensionPtr measured = OdDbRotatedDimension::createObject();
    measured->setDimensionText(L"{\\H0.7x;E\\S1/2;}7");
    measured->setTextPosition(OdGePoint3d(0, 0, 0));
    EXPECT_EQ(read({add(model(), measured)}), "E1/27");

    const OdDbObjectId block = addBlock(L"*D1");
    addMText(block, L"\\A1;42 H7", 0, 0);
    addRectangle(block, -5, -10, 60, 20);
    const OdDbRotatedDimensionPtr drawn = OdDbRotatedDimension::createObject();
    drawn->setDimensionText(L"not shown");
    const OdDbObjectId id = add(model(), drawn);
    drawn->setDimBlockId(block);
    EXPECT_EQ(read({id}), "<inRect>42 H7</inRect>");
}

TEST_F(DrawnTexts, LieInEllipsesAndRectanglesOfLines)
{
    const OdDbObjectId text = addText(model(), L"E1", 0, 0);
    const OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
    ellipse->set(OdGePoint3d(2, 1, 0), OdGeVector3d::kZAxis, OdGeVector3d(20, 0, 0), 0.4);
    const OdDbObjectId oval = add(model(), ellipse);
    EXPECT_EQ(read({text, oval}), "<inOv>E1/<inOv>");
    const double corners[4][2] = {{-2, -2}, {10, -2}, {10, 5}, {-2, 5}};
    OdDbObjectIdArray all = {text, oval};
    for (int i = 0; i < 4; ++i)
    {
        const OdDbLinePtr line = OdDbLine::createObject();
        line->setStartPoint(OdGePoint3d(corners[i][0], corners[i][1], 0));
        line->setEndPoint(OdGePoint3d(corners[(i + 1) % 4][0], corners[(i + 1) % 4][1], 0));
        all.append(add(model(), line));
    }
    EXPECT_EQ(read(all), "<inRect>E1</inRect>");
}

} // namespace
