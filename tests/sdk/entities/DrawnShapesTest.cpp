// What entities draw beside plain curves: widths, figures, arrows, areas that hide, columns and backgrounds of texts.
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbDimStyleTable.h"
#include "DbDimStyleTableRecord.h"
#include "DbLeader.h"
#include "DbLine.h"
#include "DbPoint.h"
#include "DbSpatialFilter.h"
#include "EntityTest.h"
#include "entities/FitCurve.h"
#include "support/ShapeRecorder.h"

namespace
{

using namespace entitytest;
using namespace support;

constexpr double kPi = 3.14159265358979323846;

double filledArea(const std::vector<DrawnShape>& shapes)
{
    double area = 0.0;
    for (const DrawnShape& shape : shapes)
        area += shape.kind == ShapeKind::kArea && shape.isFilled ? areaOf(shape.points()) : 0.0;
    return area;
}

TEST_F(EntityTest, WidePolylinesFillTheirWidthAndNoMore)
{
    const std::tuple<const char*, const char*, double, double> rows[] = {
        {"a line", "90 2|70 0|43 2|10 0|20 0|10 10|20 0", 20, 1e-9},
        {"a closed square, mitred", "90 4|70 1|43 2|10 0|20 0|10 10|20 0|10 10|20 10|10 0|20 10", 80, 1e-9},
        {"a taper", "90 2|70 0|10 0|20 0|40 4|41 0|10 10|20 0", 20, 1e-9},
        {"a ring of two half circles", "90 2|70 1|43 2|10 -10|20 0|42 1|10 10|20 0|42 1", 40 * kPi, 0.5},
        {"a corner too sharp for a mitre", "90 3|70 0|43 2|10 0|20 0|10 100|20 0|10 0|20 1", 400.02, 3},
        {"widths that change at the corner", "90 3|70 0|10 0|20 0|40 2|41 2|10 10|20 0|40 4|41 4|10 10|20 10|40 0|41 0",
         61, 1e-9},
    };
    for (const auto& [what, groups, area, tolerance] : rows)
    {
        const std::vector<DrawnShape> shapes =
            drawnBy(*entityFrom("LWPOLYLINE", std::string("100 AcDbPolyline|") + groups));
        EXPECT_NEAR(filledArea(shapes), area, tolerance) << what;
        EXPECT_EQ(countOf(shapes, ShapeKind::kLine), 0u) << what;
    }
    // However sharp a corner is, it does not reach far beyond its vertex.
    const Box box = boxOf(*entityFrom("LWPOLYLINE", "90 3|70 0|43 2|10 0|20 0|10 100|20 0|10 0|20 0.001"));
    EXPECT_LT(box.x1, 100 + 4 * 1.0 + 1e-9);
}

TEST_F(EntityTest, FilledCornersAreOneAreaFromEverySide)
{
    // Solids keep their third and fourth corner crosswise.
    const std::vector<DrawnShape> solid =
        drawnBy(*entityFrom("SOLID", "10 0|20 0|30 0|11 10|21 0|31 0|12 0|22 5|32 0|13 10|23 5|33 0"));
    EXPECT_NEAR(filledArea(solid), 50, 1e-9);
    const std::vector<DrawnShape> face =
        drawnBy(*entityFrom("3DFACE", "10 0|20 0|30 0|11 10|21 0|31 0|12 10|22 5|32 0|13 0|23 5|33 0|70 2"));
    EXPECT_EQ(countOf(face, ShapeKind::kLine), 3u) << "one edge is hidden";
}

TEST_F(EntityTest, WipeoutsHideWithTheBackground)
{
    const std::vector<DrawnShape> shapes =
        drawnBy(*entityFrom("WIPEOUT", "90 0|10 0|20 0|30 0|11 10|21 0|31 0|12 0|22 10|32 0|13 1|23 1|70 7|280 1|71 "
                                       "2|91 4|14 -0.5|24 -0.5|14 0.5|24 -0.5|14 0.5|24 0.5|14 -0.5|24 -0.5"));
    ASSERT_EQ(shapes.size(), 1u);
    EXPECT_TRUE(shapes[0].isFilled);
    EXPECT_TRUE(shapes[0].color.isNone());
    EXPECT_NEAR(areaOf(shapes[0].points()), 50, 1e-9);
}

TEST_F(EntityTest, PicturesThatAreNotThereShowTheirOutline)
{
    const std::vector<DrawnShape> shapes =
        drawnBy(*entityFrom("IMAGE", "90 0|10 0|20 0|30 0|11 1|21 0|31 0|12 0|22 1|32 0|13 8|23 4|70 7|280 0"));
    ASSERT_EQ(shapes.size(), 1u);
    EXPECT_FALSE(shapes[0].isFilled);
    EXPECT_NEAR(areaOf(shapes[0].points()), 32, 1e-9);
}

class SettingsTest : public EntityTest
{
protected:
    SettingsTest() { database->initialize(); }

    void set(const wchar_t* name, const OdResBufPtr& value) { database->setSysVar(name, value); }
    template<class T>
    OdSmartPtr<T> inModel()
    {
        OdSmartPtr<T> made = T::createObject();
        OdDbBlockTableRecordPtr model = database->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
        model->appendOdDbEntity(made);
        return made;
    }

    OdDbDatabasePtr database = OdDbDatabase::createObject();
};

TEST_F(SettingsTest, PointsLookAsTheDrawingSays)
{
    const OdDbPointPtr point = inModel<OdDbPoint>();
    point->setPosition(OdGePoint3d(5, 5, 0));
    const std::tuple<OdInt16, std::size_t, std::size_t, std::size_t> rows[] = {
        {0, 1, 0, 0},  {1, 0, 0, 0},  {2, 2, 0, 0},  {3, 2, 0, 0},   {4, 1, 0, 0},
        {32, 1, 1, 0}, {33, 0, 1, 0}, {66, 2, 0, 1}, {100, 1, 1, 1}, {999, 0, 1, 1}};
    set(L"PDSIZE", OdResBuf::newRb(40, 4.0));
    for (const auto& [mode, lines, arcs, areas] : rows)
    {
        set(L"PDMODE", OdResBuf::newRb(70, mode));
        const std::vector<DrawnShape> shapes = drawnBy(*point);
        EXPECT_EQ(countOf(shapes, ShapeKind::kLine), lines) << mode;
        EXPECT_EQ(countOf(shapes, ShapeKind::kArc), arcs) << mode;
        EXPECT_EQ(countOf(shapes, ShapeKind::kArea), areas) << mode;
        expectBox(OdGeExtents3d(OdGePoint3d(5, 5, 0), OdGePoint3d(5, 5, 0)), boxOf(*point), 1e-12, "the point alone");
    }
}

TEST_F(SettingsTest, LeadersHaveTheArrowOfTheirStyle)
{
    OdDbDimStyleTablePtr styles = database->getDimStyleTableId().safeOpenObject(OdDb::kForWrite);
    OdDbDimStyleTableRecordPtr style = styles->getAt(L"Standard").safeOpenObject(OdDb::kForWrite);
    style->setDimasz(3.0);
    style->setDimscale(2.0);
    style.release();
    const OdDbLeaderPtr leader = inModel<OdDbLeader>();
    leader->appendVertex(OdGePoint3d(0, 0, 0));
    leader->appendVertex(OdGePoint3d(20, 0, 0));
    std::vector<DrawnShape> shapes = drawnBy(*leader);
    ASSERT_EQ(countOf(shapes, ShapeKind::kArea), 1u);
    EXPECT_NEAR(filledArea(shapes), 6.0 * 2.0 / 2.0, 1e-9);
    EXPECT_NEAR(shapes.back().points().front().x, 6.0, 1e-9) << "the line begins behind the arrow";

    // Too short for an arrow.
    leader->setVertexAt(1, OdGePoint3d(11, 0, 0));
    EXPECT_EQ(countOf(drawnBy(*leader), ShapeKind::kArea), 0u);

    // A size of its own, of 1 instead of 3.
    const OdResBufPtr chain = OdResBuf::newRb(1001, OdString(L"ACAD"));
    for (const OdResBufPtr& element :
         {OdResBuf::newRb(1000, OdString(L"DSTYLE")), OdResBuf::newRb(1002, OdString(L"{")),
          OdResBuf::newRb(1070, OdInt16(41)), OdResBuf::newRb(1040, 1.0), OdResBuf::newRb(1002, OdString(L"}"))})
        chain->last()->setNext(element);
    leader->setXData(chain);
    EXPECT_NEAR(filledArea(drawnBy(*leader)), 2.0 * 2.0 / 3.0 / 2.0, 1e-9);
}

TEST_F(EntityTest, CurvesThroughPointsPassThemSmoothly)
{
    const std::vector<OdGePoint3d> points{{0, 0, 0}, {10, 10, 0}, {20, -5, 3}, {20, -5, 3}, {40, 0, 0}};
    const std::vector<OdGePoint3d> curve = fitcurve::sampleThrough(points);
    for (const OdGePoint3d& point : points)
    {
        EXPECT_TRUE(std::any_of(curve.begin(), curve.end(),
                                [&point](const OdGePoint3d& sample) { return (sample - point).length() < 1e-9; }));
    }
    for (std::size_t i = 2; i < curve.size(); ++i)
    {
        const OdGeVector3d before = (curve[i - 1] - curve[i - 2]).normal();
        const OdGeVector3d behind = (curve[i] - curve[i - 1]).normal();
        EXPECT_GT(before.dotProduct(behind), 0.8) << "a kink at " << i;
    }
    const std::vector<OdGePoint3d> bent =
        fitcurve::sampleThrough({{0, 0, 0}, {10, 0, 0}}, OdGeVector3d(0, 1, 0), OdGeVector3d(0, -1, 0));
    EXPECT_GT(bent[bent.size() / 2].y, 1.0) << "tangents bend even a line";
}

TEST_F(EntityTest, TextsFillTheirColumnsOneAfterTheOther)
{
    const std::string text = "100 AcDbMText|10 0|20 100|30 0|40 1|41 50|71 1|72 1|1 a\\Pb\\Pc\\Pd\\Pe|73 1|44 1";
    const std::string columns = "|101 Embedded Object|70 1|10 1|20 0|30 0|40 50|41 3|71 ";
    // Columns, and the line at the bottom of each.
    const std::tuple<const char*, std::string, const wchar_t*> rows[] = {
        {"none", "0|72 2|44 10|45 5", L"e"},
        {"static of two lines each", "1|72 3|44 10|45 5|73 1|74 0", L"bde"},
        {"dynamic of one line and the rest", "2|72 2|44 10|45 5|73 0|74 0|46 1|46 0", L"ae"},
        {"from right to left", "1|72 3|44 10|45 5|73 1|74 1", L"bde"},
        {"no width", "1|72 2|44 0|45 5|73 1", L"e"},
    };
    for (const auto& [what, groups, lastOfColumns] : rows)
    {
        const std::vector<DrawnShape> shapes = drawnBy(*entityFrom("MTEXT", text + columns + groups));
        ASSERT_EQ(shapes.size(), 5u) << what;
        std::wstring last;
        for (std::size_t i = 0; i < shapes.size(); ++i)
        {
            if (i + 1 == shapes.size() || std::fabs(shapes[i + 1].points()[0].x - shapes[i].points()[0].x) > 5)
                last += shapes[i].text;
        }
        EXPECT_EQ(last, lastOfColumns) << what;
    }
    const std::vector<DrawnShape> broken = drawnBy(*entityFrom(
        "MTEXT", "10 0|20 0|30 0|40 1|41 50|71 1|72 1|1 a\\Nb" + columns + "2|72 2|44 10|45 5|73 0|74 0|46 0"));
    EXPECT_NEAR(broken[1].points()[0].x - broken[0].points()[0].x, 15, 1e-9) << "a break between columns";
}

TEST_F(EntityTest, TextsPaintTheirBackgroundFirst)
{
    const std::string text = "100 AcDbMText|10 0|20 0|30 0|40 2|41 20|71 1|72 1|1 H|73 1|44 1|45 1.5|90 ";
    const std::tuple<const char*, std::size_t, bool> rows[] = {
        {"0", 0, false}, {"1|63 3", 1, true}, {"3", 1, true}, {"16", 1, false}, {"17|63 3|421 255", 2, true}};
    for (const auto& [groups, areas, isFilled] : rows)
    {
        const std::vector<DrawnShape> shapes = drawnBy(*entityFrom("MTEXT", text + groups));
        ASSERT_EQ(countOf(shapes, ShapeKind::kArea), areas) << groups;
        EXPECT_EQ(shapes.back().kind, ShapeKind::kText) << groups;
        if (areas > 0)
        {
            EXPECT_EQ(shapes.front().isFilled, isFilled) << groups;
            EXPECT_NEAR(areaOf(shapes.front().points()), (20 + 2) * (2 + 2), 1e-9) << groups;
        }
    }
}

TEST_F(EntityTest, StacksStandBesideTheLineAsTheyAreAligned)
{
    const auto baseLines = [](const char* contents)
    {
        std::vector<double> lines;
        for (const DrawnShape& shape : drawnBy(*entityFrom(
                 "MTEXT", std::string("100 AcDbMText|10 0|20 0|30 0|40 1|41 0|71 7|72 1|73 1|44 1|1 ") + contents)))
            lines.push_back(shape.points()[0].y);
        return lines;
    };
    const std::vector<double> middle = baseLines("\\A1;H\\H0.7x;\\S+1^-1;");
    ASSERT_EQ(middle.size(), 3u);
    EXPECT_NEAR((middle[1] + 0.7 + middle[2]) / 2, middle[0] + 0.5, 1e-9) << "as far above the middle as below";
    const std::vector<double> bottom = baseLines("\\A0;H\\H0.7x;\\S1/2;");
    ASSERT_EQ(bottom.size(), 4u) << "with the line of the fraction";
    EXPECT_NEAR(bottom[2], bottom[0], 1e-9);
    const std::vector<double> top = baseLines("\\A2;H\\H0.7x;\\S1#2;");
    EXPECT_NEAR(top[1] + 0.7, top[0] + 1.0, 1e-9);
}

TEST_F(SettingsTest, BlockReferencesAreCutToTheirFilter)
{
    OdDbBlockTablePtr table = database->getBlockTableId().safeOpenObject(OdDb::kForWrite);
    OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName(L"B");
    table->add(block);
    OdDbLinePtr line = OdDbLine::createObject();
    line->setEndPoint(OdGePoint3d(100, 100, 0));
    block->appendOdDbEntity(line);
    line.release();
    const OdDbBlockReferencePtr reference = inModel<OdDbBlockReference>();
    reference->setBlockTableRecord(block->objectId());
    reference->setPosition(OdGePoint3d(1000, 0, 0));
    block.release();
    table.release();
    // The outline is set while the block stands at (1000, 0): 10 to 60 of the block.
    const OdDbSpatialFilterPtr filter = OdDbSpatialFilter::createObject();
    filter->setDefinition({{1010, 10}, {1060, 60}}, OdGeVector3d::kZAxis, 0.0);
    OdDbIndexFilterManager::addFilter(reference, filter);
    const Box cut = boxOf(*reference);
    EXPECT_NEAR(cut.x0, 1010, 1e-9);
    EXPECT_NEAR(cut.x1, 1060, 1e-9);
    EXPECT_NEAR(cut.y1, 60, 1e-9);
    reference->setPosition(OdGePoint3d(2000, 0, 0));
    EXPECT_NEAR(boxOf(*reference).x0, 2010, 1e-9) << "the outline moves with the reference";
    const std::vector<DrawnShape> shapes = drawnBy(*reference);
    ASSERT_EQ(shapes.size(), 3u);
    EXPECT_EQ(shapes[0].kind, ShapeKind::kClip);
    EXPECT_NEAR(shapes[0].points()[0].x, 2010, 1e-9);
    EXPECT_EQ(shapes[2].kind, ShapeKind::kClipEnd);
}

} // namespace
