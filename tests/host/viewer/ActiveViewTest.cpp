// Attacks the active view: views that are turned, tilted or damaged, extents that are flat or beyond all numbers,
// sheets.
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "DbViewport.h"
#include "DbViewportTable.h"
#include "DbViewportTableRecord.h"
#include "commands/Viewer.h"
#include "support/DrawingFiles.h"
#include "support/DrawingText.h"
#include "support/DxfRecords.h"
#include "support/ErrorCode.h"
#include "support/SdkProgram.h"
#include "support/TemporaryFolder.h"

namespace
{

using hostcommands::ActiveView;
using support::codeOf;
using support::group;
using support::groups;

class ActiveViewTest : public testing::Test
{
protected:
    ActiveViewTest() : m_database(OdDbDatabase::createObject()) { m_database->initialize(); }

    static OdDbViewportTableRecordPtr recordOf(OdDbDatabase& database, OdDb::OpenMode mode = OdDb::kForRead)
    {
        return OdDbViewportTableRecord::cast(database.activeViewportId().safeOpenObject(mode));
    }

    static OdDbViewportTableRecordPtr modelRecordOf(OdDbDatabase& database)
    {
        const OdDbViewportTablePtr table = OdDbViewportTable::cast(database.getViewportTableId().safeOpenObject());
        return OdDbViewportTableRecord::cast(table->getActiveViewportId().safeOpenObject());
    }

    struct Setting
    {
        OdGePoint2d center{0, 0};
        double height = 10;
        double proportion = 2;
        OdGePoint3d target{0, 0, 0};
        OdGeVector3d direction{0, 0, 1};
        double twist = 0;
    };

    void set(const Setting& setting)
    {
        const OdDbViewportTableRecordPtr record = recordOf(*m_database, OdDb::kForWrite);
        record->setCenterPoint(setting.center);
        record->setHeight(setting.height);
        record->setWidth(setting.height * setting.proportion);
        record->setTarget(setting.target);
        record->setViewDirection(setting.direction);
        record->setViewTwist(setting.twist);
    }

    std::string shown() { return text(ActiveView(*m_database).extents()); }

    static std::string text(const OdGeExtents3d& extents)
    {
        std::string all;
        for (const OdGePoint3d& point : {extents.minPoint(), extents.maxPoint()})
            for (const double coordinate : {point.x, point.y, point.z})
                all += std::to_string(coordinate == 0.0 ? 0.0 : std::round(coordinate * 1e6) / 1e6).substr(0, 8) + " ";
        return all;
    }

    OdDbDatabasePtr m_database;
};

TEST_F(ActiveViewTest, ShowsExtentsWithAMargin)
{
    const double quarter = OdaPI2;
    const struct
    {
        const char* what;
        Setting setting;
        OdGeExtents3d extents, shown;
    } rows[] = {
        {"as wide as the view", {}, {{0, 0, 0}, {20, 10, 5}}, {{-1, -0.5, 0}, {21, 10.5, 0}}},
        {"wider than the view", {}, {{0, 0, 0}, {40, 10, 5}}, {{-2, -6, 0}, {42, 16, 0}}},
        {"higher than the view", {}, {{0, 0, 0}, {20, 20, 5}}, {{-12, -1, 0}, {32, 21, 0}}},
        {"a line across", {}, {{0, 7, 0}, {20, 7, 0}}, {{-1, 1.5, 0}, {21, 12.5, 0}}},
        {"a line upwards", {}, {{3, 0, 0}, {3, 10, 0}}, {{-8, -0.5, 0}, {14, 10.5, 0}}},
        {"a point", {}, {{3, 4, 5}, {3, 4, 5}}, {{-7, -1, 0}, {13, 9, 0}}},
        {"a line towards the eye", {}, {{3, 4, 5}, {3, 4, 9}}, {{-7, -1, 0}, {13, 9, 0}}},
        {"another target", {{5, 5}, 10, 2, {100, 0, 9}}, {{0, 0, 0}, {20, 10, 5}}, {{-1, -0.5, 9}, {21, 10.5, 9}}},
        {"from below", {{5, 5}, 10, 2, {}, {0, 0, -2}}, {{0, 0, 0}, {20, 10, 5}}, {{-1, -0.5, 0}, {21, 10.5, 0}}},
        {"from the front", {{5, 5}, 10, 2, {}, {0, -1, 0}}, {{0, 0, 0}, {20, 99, 10}}, {{-1, 0, -0.5}, {21, 0, 10.5}}},
        {"from the right", {{5, 5}, 10, 2, {}, {3, 0, 0}}, {{0, 0, 0}, {99, 20, 10}}, {{0, -1, -0.5}, {0, 21, 10.5}}},
        {"turned by a quarter",
         {{}, 10, 2, {}, {0, 0, 1}, quarter},
         {{0, 0, 0}, {10, 20, 0}},
         {{-0.5, -1, 0}, {10.5, 21, 0}}},
        {"turned around a target",
         {{}, 10, 2, {5, 5, 0}, {0, 0, 1}, -quarter},
         {{0, 0, 0}, {10, 20, 0}},
         {{-0.5, -1, 0}, {10.5, 21, 0}}},
    };
    for (const auto& row : rows)
    {
        set(row.setting);
        ActiveView(*m_database).zoomTo(row.extents);
        EXPECT_EQ(shown(), text(row.shown)) << row.what;
        const OdDbViewportTableRecordPtr record = recordOf(*m_database);
        EXPECT_NEAR(record->width() / record->height(), row.setting.proportion, 1e-12) << row.what;
    }
}

// The corners as the eye sees them, by axes that are worked out here.
TEST_F(ActiveViewTest, ShowsExtentsFromAnyDirection)
{
    std::mt19937 random(5);
    const auto number = [&](double least, double greatest)
    { return std::uniform_real_distribution<double>(least, greatest)(random); };
    for (int i = 0; i < 2000; ++i)
    {
        Setting setting{{number(-9, 9), number(-9, 9)},
                        number(1, 100),
                        number(0.2, 5),
                        {number(-9, 9), number(-9, 9), number(-9, 9)},
                        {number(-1, 1), number(-1, 1), number(-1, 1)},
                        number(-7, 7)};
        if (std::hypot(setting.direction.x, setting.direction.y) < 0.1 * setting.direction.length())
            continue;
        const OdGeVector3d towardsEye = setting.direction.normal();
        const OdGeVector3d acrossZ = OdGeVector3d::kZAxis.crossProduct(towardsEye).normal();
        const OdGeVector3d upZ = towardsEye.crossProduct(acrossZ);
        const OdGeVector3d right = acrossZ * std::cos(setting.twist) - upZ * std::sin(setting.twist);
        const OdGeVector3d up = acrossZ * std::sin(setting.twist) + upZ * std::cos(setting.twist);
        const OdGePoint3d low{number(-99, 99), number(-99, 99), number(-99, 99)};
        const OdGePoint3d high = low + OdGeVector3d(number(0, 50), number(0, 50), number(0, 50));

        set(setting);
        ActiveView(*m_database).zoomTo(OdGeExtents3d(low, high));
        const OdDbViewportTableRecordPtr record = recordOf(*m_database);
        const double halfWidth = record->width() / 2, halfHeight = record->height() / 2;
        double closest = 0;
        for (int corner = 0; corner < 8; ++corner)
        {
            const OdGeVector3d from =
                OdGePoint3d(corner & 1 ? low.x : high.x, corner & 2 ? low.y : high.y, corner & 4 ? low.z : high.z) -
                setting.target;
            const double x = std::abs(right.dotProduct(from) - record->centerPoint().x) / halfWidth;
            const double y = std::abs(up.dotProduct(from) - record->centerPoint().y) / halfHeight;
            closest = std::max({closest, x, y});
        }
        ASSERT_NEAR(closest, 1 / 1.1, 1e-9) << i;

        const double height = record->height();
        ActiveView(*m_database).dollyTo(high);
        const OdGeVector3d from = high - setting.target;
        ASSERT_NEAR(recordOf(*m_database)->centerPoint().x, right.dotProduct(from), 1e-9);
        ASSERT_NEAR(recordOf(*m_database)->centerPoint().y, up.dotProduct(from), 1e-9);
        ASSERT_EQ(recordOf(*m_database)->height(), height);
    }
}

TEST_F(ActiveViewTest, WhatLiesBeyondAllNumbersIsRefused)
{
    set({});
    const std::string before = shown();
    const double most = std::numeric_limits<double>::max();
    const auto expectRefusal = [&](auto work)
    {
        EXPECT_EQ(codeOf([&] { work(ActiveView(*m_database)); }), eInvalidInput);
        EXPECT_EQ(shown(), before);
    };
    const OdGeExtents3d endless[] = {
        {{-most, 0, 0}, {most, 1, 0}}, {{0, -most, 0}, {1, most, 0}}, {{0, 0, 0}, {INFINITY, 1, 0}}};
    for (const OdGeExtents3d& extents : endless)
        expectRefusal([&](ActiveView view) { view.zoomTo(extents); });
    for (const OdGePoint3d& point : {OdGePoint3d(NAN, 0, 0), OdGePoint3d(0, -INFINITY, 0)})
        expectRefusal([&](ActiveView view) { view.dollyTo(point); });
    ActiveView(*m_database).zoomTo({{1e-200, 0, 0}, {2e-200, 0, 0}});
    EXPECT_GT(recordOf(*m_database)->height(), 0);
}

TEST_F(ActiveViewTest, AViewThatStaysLeavesWhatCanBeRedone)
{
    set({});
    m_database->clearUndo();
    m_database->startUndoRecord();
    recordOf(*m_database, OdDb::kForWrite)->setHeight(77);
    m_database->undo();
    m_database->disableUndoRecording(true);
    const OdGeExtents3d present = ActiveView(*m_database).extents();
    ActiveView(*m_database).dollyTo(present.center());
    EXPECT_TRUE(m_database->hasRedo());
    ActiveView(*m_database).dollyTo(present.maxPoint());
    EXPECT_FALSE(m_database->hasUndo());
    m_database->disableUndoRecording(false);
}

// ---- Drawings -------------------------------------------------------------------------------------------------------

class ViewOfDrawing : public ActiveViewTest
{
protected:
    // A drawing that shows its sheet, with that viewport on it.
    OdDbDatabasePtr readSheet(const std::string& viewport)
    {
        std::string text = support::drawing("AC1032");
        const std::string code = support::group(9, "$DWGCODEPAGE");
        text.insert(text.find(code), support::group(9, "$TILEMODE") + support::group(70, "0"));
        const std::string line = support::group(0, "LINE") + support::group(5, "5B");
        text.insert(text.find(line), viewport);
        return read(text);
    }
    OdDbDatabasePtr read(const std::string& text)
    {
        support::writeWholeFile(m_folder.path("drawing.dxf"), text);
        return support::readDrawing(m_folder.path("drawing.dxf"));
    }
    static std::string viewport(int number, double x, double y, double width, double height, double viewHeight,
                                const char* further = "")
    {
        const auto real = [](int code, double value) { return group(code, std::to_string(value)); };
        return groups("0 VIEWPORT|5 70|330 1B|100 AcDbEntity|67 1|8 0|100 AcDbViewport|30 0") + real(10, x) +
               real(20, y) + real(40, width) + real(41, height) + group(68, "1") + group(69, std::to_string(number)) +
               real(12, x) + real(22, y) + (*further ? groups(further) : groups("16 0|26 0|36 1")) +
               real(45, viewHeight);
    }

    support::TemporaryFolder m_folder;
};

TEST_F(ViewOfDrawing, TheSheetIsWhatTheSheetsViewportShows)
{
    // Target, direction and twist of the sheet's viewport, and the center in their plane after zooming to a box around
    // (20, 10).
    const std::pair<const char*, OdGePoint2d> rows[] = {
        {"16 0|26 0|36 1", {20, 10}},
        {"17 5|27 -3|37 2|16 0|26 0|36 1", {15, 13}},
        {"17 5|27 0|37 0|16 0|26 0|36 1|51 90", {-10, 15}},
        {"17 0|27 0|37 0|16 0|26 -1|36 0", {20, 0}},
        {"17 nan|27 0|37 0|16 0|26 0|36 1|51 nan", {20, 10}},
    };
    for (const auto& [looks, center] : rows)
        for (const OdDb::SaveType type : {OdDb::kDxf, OdDb::kDxb})
        {
            const OdDbDatabasePtr database = readSheet(viewport(1, 210, 148, 400, 200, 200, looks));
            EXPECT_EQ(text(ActiveView(*database).extents()), text({{10, 48, 0}, {410, 248, 0}})) << looks;
            const double modelHeight = modelRecordOf(*database)->height();
            ActiveView(*database).zoomTo({{0, 0, 0}, {40, 20, 0}});
            EXPECT_EQ(text(ActiveView(*database).extents()), text({{-2, -1, 0}, {42, 21, 0}})) << looks;
            const OdDbDatabasePtr again = support::savedAndRead(*database, type);
            EXPECT_EQ(text(ActiveView(*again).extents()), text({{-2, -1, 0}, {42, 21, 0}})) << looks;
            const OdDbViewportPtr sheet = OdDbViewport::cast(again->activeViewportId().safeOpenObject());
            EXPECT_EQ(sheet->number(), 1);
            EXPECT_NEAR(sheet->centerPoint().x, 20, 1e-9);
            EXPECT_NEAR(sheet->centerPoint().y, 10, 1e-9);
            EXPECT_NEAR(sheet->width(), 44, 1e-9);
            EXPECT_NEAR(sheet->height(), 22, 1e-9);
            EXPECT_NEAR(sheet->viewHeight(), 22, 1e-9);
            EXPECT_NEAR(sheet->viewCenter().x, center.x, 1e-9) << looks;
            EXPECT_NEAR(sheet->viewCenter().y, center.y, 1e-9) << looks;
            EXPECT_EQ(modelRecordOf(*again)->height(), modelHeight) << "the model's view is another one";
        }
}

TEST_F(ViewOfDrawing, ASheetThatWasNeverShownHasNoView)
{
    for (const std::string& other : {std::string(), viewport(2, 210, 148, 400, 200, 200)})
    {
        const OdDbDatabasePtr database = readSheet(other);
        EXPECT_EQ(codeOf([&] { ActiveView view(*database); }), eNotApplicable);
    }
}

TEST_F(ViewOfDrawing, DamagedViewsAreShownAllTheSame)
{
    for (const char* value : {"0.0", "-5.0", "1e999", "nan"})
    {
        std::string text = support::drawing("AC1032");
        const std::string height = support::group(40, "297.0") + support::group(41, "1.5");
        text.replace(text.find(height), height.size(), support::group(40, value) + support::group(41, value));
        const OdDbDatabasePtr database = read(text);
        ActiveView(*database).zoomTo({{0, 0, 0}, {10, 10, 0}});
        const OdGeExtents3d shown = ActiveView(*database).extents();
        EXPECT_TRUE(shown.contains(OdGeExtents3d({0, 0, 0}, {10, 10, 0})))
            << value << " " << ActiveViewTest::text(shown);
        EXPECT_TRUE(std::isfinite(shown.diagonal().length())) << value;
    }
}

} // namespace
