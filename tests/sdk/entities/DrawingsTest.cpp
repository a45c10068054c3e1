// Real drawings, found through the environment variable ZOLCAD_DRAWINGS: their entities lie where their headers say.
#include <algorithm>
#include <filesystem>

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbDimension.h"
#include "DbMText.h"
#include "DbText.h"
#include "EntityTest.h"
#include "support/DrawingFiles.h"

namespace
{

using namespace entitytest;

class RealDrawings : public EntityTest
{
protected:
    void SetUp() override
    {
        if (files.empty())
            GTEST_SKIP() << support::kNoRealDrawings;
    }

    const std::vector<std::string> files = support::realDrawings();
};

std::vector<OdDbObjectId> allEntities(OdDbDatabase& database)
{
    std::vector<OdDbObjectId> ids;
    const OdDbBlockTablePtr table = database.getBlockTableId().safeOpenObject();
    for (OdDbSymbolTableIteratorPtr at = table->newIterator(); !at->done(); at->step())
    {
        const OdDbBlockTableRecordPtr block = at->getRecordId().safeOpenObject();
        for (OdDbObjectIteratorPtr entity = block->newIterator(); !entity->done(); entity->step())
            ids.push_back(entity->objectId());
    }
    return ids;
}

TEST_F(RealDrawings, EveryEntityIsMeasuredAndMovesByTheVectorItIsGiven)
{
    const OdGeVector3d vector(1000, -2000, 0);
    for (const std::string& file : files)
    {
        OdDbDatabasePtr database = support::readDrawing(file);
        std::size_t measured = 0;

        for (const OdDbObjectId& id : allEntities(*database))
        {
            OdDbEntityPtr entity = id.safeOpenObject(OdDb::kForWrite);
            OdGeExtents3d before;
            const bool shown = entity->getGeomExtents(before) == eOk;
            measured += shown ? 1 : 0;
            const OdResult result = entity->transformBy(OdGeMatrix3d::translation(vector));
            EXPECT_TRUE(result == eOk || result == eNotImplementedYet)
                << file << " " << odStringToUtf8(id.getHandle().ascii());
            if (result != eOk || !shown)
                continue;

            const double tolerance = 1e-6 * (1 + before.diagonal().length() + before.minPoint().asVector().length());
            const OdGePoint3d low = before.minPoint() + vector;
            const OdGePoint3d high = before.maxPoint() + vector;
            expectBoxOf(*entity, {low.x, low.y, low.z, high.x, high.y, high.z}, tolerance,
                        file + " " + odStringToUtf8(entity->isA()->name()));
        }
        EXPECT_GT(measured, 0u) << file;
    }
}

/// Drawings whose headers tell their extents; those that are left out hold no or outdated ones.
constexpr std::string_view kHeadersThatTell =
    "acad_table_with_blk_ref bin_dxf_r13 bin_dxf_r14 dimension_in_block dimension_in_nested_blocks "
    "example_2000 example_2004 example_2007 example_2010 example_2013 example_2018 example_r12 example_r14 "
    "hatches_2 leader_image_2007 mtext_complex_inline_codes proxies_2013 text ts1_2018 uncommon";

bool tells(const std::string& name)
{
    return (' ' + std::string(kHeadersThatTell) + ' ').find(' ' + name + ' ') != std::string::npos;
}

TEST_F(RealDrawings, EntitiesLieWithinTheExtentsOfTheHeader)
{
    // The widths of characters come from a table, not from the drawing's fonts.
    constexpr double kExact = 1e-6;
    constexpr double kWithText = 0.02;
    for (const std::string& file : files)
    {
        if (!tells(std::filesystem::path(file).stem().string()))
            continue;
        OdDbDatabasePtr database = support::readDrawing(file);
        const OdGePoint3d low = database->getEXTMIN();
        const OdGePoint3d high = database->getEXTMAX();
        const double size = (high - low).length();
        const OdDbBlockTableRecordPtr model = database->getModelSpaceId().safeOpenObject();
        for (OdDbObjectIteratorPtr at = model->newIterator(); !at->done(); at->step())
        {
            const OdDbEntityPtr entity = at->entity();
            OdGeExtents3d box;
            if (entity->getGeomExtents(box) != eOk)
                continue;
            const bool text = entity->isKindOf(OdDbText::desc()) || entity->isKindOf(OdDbMText::desc()) ||
                              entity->isKindOf(OdDbDimension::desc()) || entity->isKindOf(OdDbBlockReference::desc());
            const double over = std::max({low.x - box.minPoint().x, low.y - box.minPoint().y, box.maxPoint().x - high.x,
                                          box.maxPoint().y - high.y});
            EXPECT_LE(over / size, text ? kWithText : kExact)
                << file << " " << odStringToUtf8(entity->isA()->name()) << " "
                << odStringToUtf8(at->objectId().getHandle().ascii());
        }
    }
}

} // namespace
