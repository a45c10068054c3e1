// Entities that are made alike share their groups: each has to stay what it is whatever is done to the others.
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbHatch.h"
#include "DbMText.h"
#include "DbPolyline.h"
#include "EntityTest.h"

namespace
{

using namespace entitytest;

class MadeAlikeTest : public EntityTest
{
protected:
    static constexpr int kCount = 400;

    MadeAlikeTest()
    {
        database = OdDbDatabase::createObject();
        database->initialize();
    }

    template<class Entity, class Draw>
    std::vector<OdDbObjectId> draw(const OdDbDatabasePtr& drawing, Draw drawOne)
    {
        const OdDbBlockTableRecordPtr space = drawing->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
        std::vector<OdDbObjectId> ids;
        for (int i = 0; i < kCount; ++i)
        {
            const OdSmartPtr<Entity> entity = Entity::createObject();
            ids.push_back(space->appendOdDbEntity(entity));
            drawOne(*entity, i);
        }
        return ids;
    }

    static oddb::Groups groupsOf(const OdDbObjectId& id)
    {
        return oddb::ObjectCore::groups(*static_cast<OdDbStub*>(id)->object);
    }

    OdDbDatabasePtr database;
};

// Shape i % 3; every fifth has another width.
void drawShape(OdDbPolyline& polyline, int number)
{
    polyline.setClosed(true);
    polyline.setConstantWidth(number % 5 == 0 ? 2.0 : 1.0);
    for (int i = 0; i < 3 + number % 3; ++i)
        polyline.addVertexAt(static_cast<unsigned>(i), OdGePoint2d(i, i * i), number % 2 == 0 ? 0.5 : 0.0, -1.0, -1.0);
}

TEST_F(MadeAlikeTest, EachIsWhatItIsByItself)
{
    const std::vector<OdDbObjectId> ids = draw<OdDbPolyline>(database, drawShape);
    for (int i = 0; i < kCount; ++i)
    {
        const OdDbPolylinePtr alone = OdDbPolyline::createObject();
        drawShape(*alone, i);
        EXPECT_EQ(groupsOf(ids[static_cast<std::size_t>(i)]), oddb::ObjectCore::groups(*alone)) << i;
    }
}

TEST_F(MadeAlikeTest, WhatIsDoneToOneIsDoneToNoOther)
{
    OdGePoint2dArray corners;
    for (const double x : {0.0, 4.0, 2.0})
        corners.append(OdGePoint2d(x, x * x));
    const std::vector<OdDbObjectId> ids = draw<OdDbHatch>(database,
                                                          [&](OdDbHatch& hatch, int)
                                                          {
                                                              hatch.setPattern(OdDbHatch::kPreDefined, L"SOLID");
                                                              hatch.appendLoop(OdDbHatch::kExternal, corners, {});
                                                          });
    const oddb::Groups before = groupsOf(ids[0]);
    database->startUndoRecord();
    OdDbHatchPtr(ids[300].safeOpenObject(OdDb::kForWrite))->removeLoopAt(0);
    OdDbHatchPtr(ids[301].safeOpenObject(OdDb::kForWrite))->appendLoop(OdDbHatch::kExternal, corners, {});
    OdDbHatchPtr(ids[302].safeOpenObject(OdDb::kForWrite))->erase(true);
    for (const OdDbObjectId& id : ids)
        EXPECT_EQ(groupsOf(id) == before, id != ids[300] && id != ids[301]);
    const OdDbHatchPtr second = ids[301].safeOpenObject(OdDb::kForWrite);
    second->removeLoopAt(0);
    EXPECT_EQ(groupsOf(ids[301]), before) << "of two equal loops one is left";
    second->downgradeOpen();
    database->undo();
    for (const OdDbObjectId& id : ids)
        EXPECT_EQ(groupsOf(id), before);
}

// Edits are kept by hashes of addresses: a few that crowd in one place may be forgotten again.
TEST_F(MadeAlikeTest, ThoseOfManyKindsShareThoughTheKindsTakeTurns)
{
    constexpr std::size_t kKinds = kCount / 3;
    const std::vector<OdDbObjectId> ids =
        draw<OdDbMText>(database, [](OdDbMText& text, int number) { text.setTextHeight(1.0 / (2 + number % kKinds)); });
    std::size_t alone = 0;
    for (std::size_t i = kKinds; i < 2 * kKinds; ++i)
        alone += groupsOf(ids[i]).data() != groupsOf(ids[i + kKinds]).data() ? 1 : 0;
    EXPECT_LE(alone, 12u);
}

TEST_F(MadeAlikeTest, DrawingsShareNothing)
{
    const OdDbDatabasePtr other = OdDbDatabase::createObject();
    other->initialize();
    const auto write = [](OdDbMText& text, int number)
    {
        text.setLayer(text.database()->getLayerZeroId());
        text.setContents(number % 2 == 0 ? L"even" : L"odd");
    };
    const std::vector<OdDbObjectId> first = draw<OdDbMText>(database, write);
    const std::vector<OdDbObjectId> second = draw<OdDbMText>(other, write);
    for (std::size_t i = 0; i < first.size(); ++i)
        for (const std::size_t j : {i, (i + 2) % first.size()})
            EXPECT_NE(groupsOf(first[i]).data(), groupsOf(second[j]).data());
    database.release();
    EXPECT_EQ(OdDbMTextPtr(second[377].safeOpenObject())->contents(), L"odd");
    EXPECT_EQ(OdDbMTextPtr(second[377].safeOpenObject())->layerId(), other->getLayerZeroId());
}

} // namespace
