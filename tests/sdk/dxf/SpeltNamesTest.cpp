// Names that a file spells in another way than the records they name: written back as they were, and followed when the
// records are renamed or copied into another drawing.
#include "Drawings.h"

#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbEntity.h"
#include "DbSymbolTable.h"
#include "support/DrawingText.h"

#include <gtest/gtest.h>

namespace
{

using support::endOfFile;
using support::group;
using support::groups;
using support::headerSection;
using support::section;

class SpeltNames : public testing::Test
{
protected:
    // A layer "Wände", a block "Part", and entities that name both in capitals; one is of a class that nobody knows.
    SpeltNames()
    {
        const std::string common = groups("100 AcDbEntity|8 W\\U+00C4NDE");
        database = openText(
            headerSection("AC1032") +
            section("TABLES", groups("0 TABLE|2 LAYER|70 1|0 LAYER|100 AcDbSymbolTableRecord|100 "
                                     "AcDbLayerTableRecord|2 W\\U+00E4nde|70 0|0 ENDTAB")) +
            section("BLOCKS", groups("0 BLOCK|8 0|2 Part|0 ENDBLK")) +
            section("ENTITIES", groups("0 INSERT|5 A1") + common +
                                    groups("100 AcDbBlockReference|2 PART|10 0.0|20 0.0|30 0.0|0 FANTASY|5 A2") +
                                    common + groups("100 AcDbFantasy|8 W\\U+00C4NDE")) +
            endOfFile());
    }

    OdDbEntityPtr entity(OdUInt64 handle) const
    {
        return OdDbEntity::cast(database->getOdDbObjectId(handle).safeOpenObject());
    }
    static OdDbObjectId find(const OdDbObjectId& table, const OdString& name)
    {
        return OdDbSymbolTablePtr(table.safeOpenObject())->getAt(name);
    }
    static void rename(const OdDbObjectId& record, const OdString& name)
    {
        OdDbSymbolTableRecordPtr(record.safeOpenObject(OdDb::kForWrite))->setName(name);
    }
    static std::size_t count(const std::string& text, std::string_view what)
    {
        std::size_t found = 0;
        for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
            ++found;
        return found;
    }

    OdDbDatabasePtr database;
};

TEST_F(SpeltNames, AreWrittenBackAndFollowRecordsThatAreRenamed)
{
    const OdDbObjectId layer = find(database->getLayerTableId(), L"w\u00e4nde");
    const OdDbObjectId block = find(database->getBlockTableId(), L"part");
    ASSERT_FALSE(layer.isNull() || block.isNull());
    const std::string before = savedText(*database, OdDb::vAC32);
    EXPECT_EQ(count(before, "W\u00c4NDE"), 3u);
    EXPECT_EQ(count(before, "\nPART\n"), 1u);
    database->startUndoRecord();
    rename(layer, L"Walls");
    rename(block, L"Piece");
    OdDbObjectIdArray references;
    OdDbBlockTableRecordPtr(block.safeOpenObject())->getBlockReferenceIds(references);
    EXPECT_EQ(references.size(), 1u);
    for (const OdUInt64 handle : {0xA1, 0xA2})
    {
        EXPECT_EQ(entity(handle)->layerId(), layer);
        EXPECT_EQ(entity(handle)->layer(), OdString(L"Walls"));
    }
    EXPECT_EQ(OdDbBlockReferencePtr(entity(0xA1))->blockTableRecord(), block);
    const std::string renamed = savedText(*database, OdDb::vAC32);
    EXPECT_EQ(count(renamed, "W\u00c4NDE"), 1u) << "what the unknown class has in its own groups is no layer";
    database->undo();
    EXPECT_EQ(savedText(*database, OdDb::vAC32), before);
    EXPECT_EQ(entity(0xA2)->layerId(), layer);
}

TEST_F(SpeltNames, AreFollowedIntoAnotherDrawing)
{
    const OdDbDatabasePtr made =
        database->wblock({entity(0xA1)->objectId(), entity(0xA2)->objectId()}, OdGePoint3d::kOrigin);
    const OdDbObjectId layer = find(made->getLayerTableId(), L"W\u00e4nde");
    ASSERT_FALSE(layer.isNull());
    EXPECT_FALSE(find(made->getBlockTableId(), L"Part").isNull());
    const std::string saved = savedText(*made, OdDb::vAC32);
    EXPECT_EQ(count(saved, "W\u00e4nde"), 3u) << "the layer and the two that are on it";
    EXPECT_EQ(reportOf(*openText(saved)), "");
}

} // namespace
