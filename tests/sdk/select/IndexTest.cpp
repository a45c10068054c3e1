// The spatial index against testing every entity, while the drawing changes in all the ways a drawing can change.
#include <functional>
#include <random>

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbCircle.h"
#include "DbLine.h"
#include "DbPoint.h"
#include "DbText.h"
#include "DbTextStyleTable.h"
#include "DbTextStyleTableRecord.h"
#include "DbViewport.h"
#include "Ge/GeMatrix3d.h"
#include "SelectTest.h"
#include "select/HitTester.h"
#include "support/DrawingFiles.h"

namespace
{

using namespace selecttest;
using Visual = OdDbVisualSelection;

// Tests every entity that the active viewport may show.
std::string testEveryEntity(OdDbDatabase& database, const OdGePoint3d& first, const OdGePoint3d& second, bool isWindow)
{
    using namespace picking;
    const ViewedSpace space = viewedThrough(database.activeViewportId());
    const Shape shape = Shape::rectangle(space.plane.at(first), space.plane.at(second));
    LayerStates layers;
    OdStaticRxObject<HitTester> tester(isWindow ? Question::kLiesIn : Question::kTouches, shape, space.plane, layers);
    OdDbObjectIdArray hit;
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(space.block.safeOpenObject());
    for (OdDbObjectIteratorPtr walk = block->newIterator(); !walk->done(); walk->step())
    {
        const OdDbEntityPtr entity = walk->entity();
        const OdDbViewportPtr viewport = OdDbViewport::cast(entity);
        const bool isSheet = !viewport.isNull() && viewport->number() == 1;
        if (entity->visibility() != OdDb::kVisible || isSheet)
            continue;
        const Answer& answer = tester.test(*entity);
        if (isWindow ? answer.isDrawn && !answer.reachesOut : answer.touches)
            hit.append(walk->objectId());
    }
    return handlesOf(hit);
}

class Index : public testing::Test
{
protected:
    Index()
        : m_drawing({{"INSERT A1 0|100 AcDbBlockReference|2 OUTER|10 50|20 50",
                      "INSERT A2 0|66 1|100 AcDbBlockReference|2 PART|10 20|20 80",
                      "ATTRIB A3 0|100 AcDbText|10 30|20 80|40 3|1 AB|100 AcDbAttribute|2 TAG|70 0", "SEQEND A4 0",
                      "POLYLINE A5 0|66 1|100 AcDb2dPolyline|10 0|20 0|30 0|70 0",
                      "VERTEX A6 0|100 AcDbVertex|100 AcDb2dVertex|10 5|20 5",
                      "VERTEX A7 0|100 AcDbVertex|100 AcDb2dVertex|10 15|20 5", "SEQEND A8 0",
                      "TEXT A9 0|100 AcDbText|10 60|20 20|40 4|1 WIDE|7 STANDARD|100 AcDbText"},
                     {{"PART", {"LINE E1 0|100 AcDbLine|10 0|20 0|11 5|21 5"}},
                      {"OUTER", {"INSERT E2 0|100 AcDbBlockReference|2 PART|10 10|20 0"}}}})
    {
        check("as read");
    }

    OdDbDatabase& database() { return m_drawing.database(); }
    OdDbObjectId id(const char* handle) const { return m_drawing.id(handle); }

    template<class Entity>
    OdSmartPtr<Entity> open(const char* handle) const
    {
        return Entity::cast(id(handle).safeOpenObject(OdDb::kForWrite));
    }

    OdDbBlockTableRecordPtr openBlock(const OdDbObjectId& block)
    {
        return OdDbBlockTableRecord::cast(block.safeOpenObject(OdDb::kForWrite));
    }

    void move(const char* handle, double x, double y)
    {
        open<OdDbEntity>(handle)->transformBy(OdGeMatrix3d::translation(OdGeVector3d(x, y, 0)));
    }
    OdDbObjectId addLine(double x, double y)
    {
        const OdDbLinePtr line = OdDbLine::createObject();
        line->setDatabaseDefaults(&database());
        line->setStartPoint(at(x, y));
        line->setEndPoint(at(x + 3, y + 2));
        return openBlock(database().getModelSpaceId())->appendOdDbEntity(line);
    }

    // Compares windows and crossings all over the drawing with testing every entity.
    void check(const std::string& when)
    {
        for (int i = 0; i < 12; ++i)
        {
            const OdGePoint3d first = at(place(), place());
            const OdGePoint3d second = at(first.x + place() / 2, first.y + place() / 2);
            for (const bool isWindow : {true, false})
            {
                EXPECT_EQ(m_drawing.select(isWindow ? Visual::kWindow : Visual::kCrossing, {first, second}),
                          testEveryEntity(database(), first, second, isWindow))
                    << when << (isWindow ? ": window " : ": crossing ") << first.x << ',' << first.y << ' ' << second.x
                    << ',' << second.y;
            }
        }
    }

    double place() { return std::uniform_real_distribution<double>(-10, 130)(m_dice); }
    unsigned dice(unsigned sides) { return std::uniform_int_distribution<unsigned>(0, sides - 1)(m_dice); }

    Drawing m_drawing;

private:
    std::mt19937 m_dice{7};
};

TEST_F(Index, FollowsEveryKindOfChange)
{
    const OdGePoint2dArray box = {{0, 0}, {52, 52}};
    const struct
    {
        const char* what;
        std::function<void()> change;
    } changes[] = {
        {"a new entity", [&] { addLine(100, 100); }},
        {"moved", [&] { move("A9", -50, 90); }},
        {"set", [&] { open<OdDbBlockReference>("A1")->setPosition(at(90, 10)); }},
        {"erased", [&] { open<OdDbText>("A9")->erase(); }},
        {"brought back", [&] { OdDbObjectPtr(id("A9").safeOpenObject(OdDb::kForWrite, true))->erase(false); }},
        {"an entity of a block", [&] { open<OdDbLine>("E1")->setEndPoint(at(25, -15)); }},
        {"a reference in a block", [&] { open<OdDbBlockReference>("E2")->setPosition(at(-30, 30)); }},
        {"a block's origin", [&] { openBlock(open<OdDbLine>("E1")->ownerId())->setOrigin(at(12, 12)); }},
        {"a new entity in a block",
         [&]
         {
             const OdDbCirclePtr circle = OdDbCircle::createObject();
             circle->setDatabaseDefaults(&database());
             circle->setRadius(20);
             openBlock(id("E1").safeOpenObject()->ownerId())->appendOdDbEntity(circle);
         }},
        {"an erased entity of a block", [&] { open<OdDbLine>("E1")->erase(); }},
        {"an attribute", [&] { move("A3", 40, -60); }},
        {"another block",
         [&] {
             open<OdDbBlockReference>("A1")->setBlockTableRecord(id("E1").openObject(OdDb::kForRead, true)->ownerId());
         }},
        {"a polyline", [&] { move("A5", 60, 60); }},
        {"a style",
         [&]
         {
             const OdDbTextStyleTablePtr styles =
                 OdDbTextStyleTable::cast(database().getTextStyleTableId().safeOpenObject());
             OdDbTextStyleTableRecordPtr style =
                 OdDbTextStyleTableRecord::cast(styles->getAt(L"STANDARD").safeOpenObject(OdDb::kForWrite));
             style->setXScale(4);
         }},
        {"a clip", [&] { m_drawing.clip("A1", box); }},
        {"another outline",
         [&]
         {
             const OdDbSpatialFilterPtr filter = OdDbIndexFilterManager::getFilter(
                 open<OdDbBlockReference>("A1"), OdDbSpatialFilter::desc(), OdDb::kForWrite);
             filter->setDefinition({{40, -50}, {130, 50}}, OdGeVector3d::kZAxis, 0.0);
         }},
        {"no clip any more",
         [&] { OdDbIndexFilterManager::removeFilter(open<OdDbBlockReference>("A1"), OdDbSpatialFilter::desc()); }},
        {"a layer switched off", [&] { open<OdDbEntity>("A5")->setLayer(L"OFF"); }},
    };
    int number = 0;
    for (const auto& each : changes)
    {
        database().startUndoRecord();
        each.change();
        check(each.what);
        ++number;
    }
    for (; number > 0 && database().hasUndo(); --number)
    {
        database().undo();
        check(std::string("undone: ") + changes[number - 1].what);
    }
    EXPECT_EQ(number, 0);
    while (database().hasRedo())
        database().redo();
    check("all redone");
    while (database().hasUndo())
        database().undo();
    database().startTransaction();
    for (const auto& each : changes)
        each.change();
    check("in a transaction");
    database().abortTransaction();
    check("aborted");
}

TEST_F(Index, FollowsTheSettingsOfPoints)
{
    const OdDbPointPtr point = OdDbPoint::createObject();
    openBlock(database().getModelSpaceId())->appendOdDbEntity(point);
    point->setPosition(at(100, 30));
    const std::string handle = handlesOf({point->objectId()});
    point->downgradeOpen();
    const auto selected = [&] { return m_drawing.select(Visual::kCrossing, {at(114, 20), at(118, 40)}); };
    EXPECT_EQ(selected(), "");
    database().setSysVar(L"PDMODE", OdResBuf::newRb(70, OdInt16(34)));
    database().setSysVar(L"PDSIZE", OdResBuf::newRb(40, 32.0));
    EXPECT_EQ(selected(), handle);
    database().setSysVar(L"PDSIZE", OdResBuf::newRb(40, 4.0));
    EXPECT_EQ(selected(), "");
}

// A corner of the box of a turned text may lie where none of its letters reaches.
TEST_F(Index, FindsTurnedTextsByTheCornersOfTheirBoxes)
{
    open<OdDbText>("A9")->setTextString(L"........I........");
    for (const double angle : {0.3, 1.9, 4.0})
    {
        open<OdDbText>("A9")->setRotation(angle);
        for (double x = 20; x < 100; x += 1.5)
        {
            for (double y = -20; y < 60; y += 1.5)
            {
                const OdGePoint3d second = at(x + 1.0, y + 1.0);
                ASSERT_EQ(m_drawing.select(Visual::kCrossing, {at(x, y), second}),
                          testEveryEntity(database(), at(x, y), second, false))
                    << angle << ": " << x << ',' << y;
            }
        }
    }
}

TEST_F(Index, FollowsManyChangesAtRandom)
{
    std::vector<OdDbObjectId> lines;
    const auto add = [&] { lines.push_back(addLine(place(), place())); };
    const auto change = [&](auto work)
    {
        const OdDbLinePtr line =
            lines.empty() ? OdDbLinePtr() : OdDbLine::cast(lines[dice(lines.size())].openObject(OdDb::kForWrite, true));
        if (!line.isNull())
            work(*line);
    };
    const std::function<void()> actions[] = {
        add,
        add,
        [&] { change([&](OdDbLine& line) { line.setStartPoint(at(place(), place())); }); },
        [&] { change([](OdDbLine& line) { line.erase(!line.isErased()); }); },
    };
    for (int round = 0; round < 150; ++round)
    {
        switch (dice(8))
        {
        case 0:
            if (database().hasUndo())
                database().undo();
            break;
        case 1:
            if (database().hasRedo())
                database().redo();
            break;
        case 2:
            database().startTransaction();
            for (int i = 0; i < 5; ++i)
                actions[dice(4)]();
            if (dice(2) == 0)
                check("in a transaction");
            dice(2) == 0 ? database().abortTransaction() : database().endTransaction();
            break;
        default:
            database().startUndoRecord();
            for (unsigned i = dice(6); i > 0; --i)
                actions[dice(4)]();
        }
        check("round " + std::to_string(round));
        if (testing::Test::HasFailure())
            break;
    }
}

TEST_F(Index, AgreesWithTestingEveryEntityOfRealDrawings)
{
    const std::vector<std::string> paths = support::realDrawings();
    if (paths.empty())
        GTEST_SKIP() << support::kNoRealDrawings;
    std::mt19937 dice(3);
    for (const std::string& path : paths)
    {
        const OdDbDatabasePtr drawing = support::readDrawing(path);
        OdGeExtents3d box;
        const OdDbBlockTableRecordPtr space =
            OdDbBlockTableRecord::cast(drawing->getActiveLayoutBTRId().safeOpenObject());
        for (OdDbObjectIteratorPtr walk = space->newIterator(); !walk->done(); walk->step())
            if (OdGeExtents3d one; walk->entity()->getGeomExtents(one) == eOk)
                box.addExt(one);
        if (!box.isValidExtents())
            continue;
        const auto somewhere = [&]
        {
            std::uniform_real_distribution<double> part(-0.1, 1.1);
            const OdGeVector3d diagonal = box.maxPoint() - box.minPoint();
            return box.minPoint() +
                   OdGeVector3d(diagonal.x * part(dice), diagonal.y * part(dice), diagonal.z * part(dice));
        };
        for (int i = 0; i < 6; ++i)
        {
            const OdGePoint3d corners[2] = {somewhere(), somewhere()};
            for (const bool isWindow : {true, false})
            {
                const OdDbSelectionSetPtr selected = OdDbSelectionSet::select(
                    drawing->activeViewportId(), 2, corners, isWindow ? Visual::kWindow : Visual::kCrossing);
                EXPECT_EQ(handlesOf(selected->objectIdArray()),
                          testEveryEntity(*drawing, corners[0], corners[1], isWindow))
                    << path << (isWindow ? ": window" : ": crossing");
            }
        }
    }
}

TEST_F(Index, KeepsFarAndSmallThingsApart)
{
    // Single precision has no place for this difference.
    const OdDbObjectId far = addLine(1e9, 1e9);
    const OdDbObjectId near = addLine(1e9 + 8, 1e9);
    EXPECT_EQ(m_drawing.select(Visual::kWindow, {at(1e9 - 0.1, 1e9 - 0.1), at(1e9 + 3.1, 1e9 + 2.1)}),
              handlesOf({far}));
    EXPECT_EQ(m_drawing.select(Visual::kWindow, {at(1e9 + 7.9, 1e9 - 0.1), at(1e9 + 11.1, 1e9 + 2.1)}),
              handlesOf({near}));
}

} // namespace
