// Attacks symbol tables: names that clash, records that come and go, names that are given away and taken back.
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbLine.h"
#include "DbLinetypeTableRecord.h"
#include "DbRegAppTable.h"
#include "DbRegAppTableRecord.h"
#include "DbTextStyleTableRecord.h"
#include "DbUCSTableRecord.h"
#include "DbViewport.h"
#include "DbViewportTable.h"
#include "DbViewportTableRecord.h"
#include "ObjectsTest.h"

namespace
{

using namespace objectstest;

class SymbolTableTest : public ObjectsTest
{
protected:
    OdDbLayerTablePtr layers(OdDb::OpenMode mode = OdDb::kForRead) const
    {
        return open<OdDbLayerTable>(database->getLayerTableId(), mode);
    }
    OdDbObjectId addLayer(const OdString& name) const
    {
        const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
        layer->setName(name);
        return layers(OdDb::kForWrite)->add(layer);
    }
    OdDbLayerTableRecordPtr layer(const OdDbObjectId& id) const
    {
        return open<OdDbLayerTableRecord>(id, OdDb::kForWrite);
    }
};

TEST_F(SymbolTableTest, RefusesNamesThatClash)
{
    const OdDbObjectId walls = addLayer(L"W\u00E4nde");
    const OdDbObjectId other = addLayer(L"Other");
    EXPECT_EQ(codeOf([&] { addLayer(L"W\u00C4NDE"); }), eDuplicateRecordName);
    EXPECT_EQ(codeOf([&] { addLayer(L"0"); }), eDuplicateRecordName);
    EXPECT_EQ(codeOf([&] { addLayer(L""); }), eInvalidSymbolTableName);
    EXPECT_EQ(codeOf([&] { layer(other)->setName(L"w\u00E4nde"); }), eDuplicateRecordName);
    EXPECT_EQ(codeOf([&] { layer(other)->setName(L""); }), eInvalidSymbolTableName);
    EXPECT_TRUE(layer(other)->getName() == L"Other");
    layer(walls)->setName(L"W\u00C4NDE");
    EXPECT_TRUE(layer(walls)->getName() == L"W\u00C4NDE");
    EXPECT_EQ(layers()->getAt(L"w\u00E4nde"), walls);
}

TEST_F(SymbolTableTest, RefusesWhatIsNoRecordOfItsKind)
{
    const OdDbRegAppTableRecordPtr wrong = OdDbRegAppTableRecord::createObject();
    wrong->setName(L"WRONG");
    EXPECT_EQ(codeOf([&] { layers(OdDb::kForWrite)->add(wrong); }), eNotThatKindOfClass);
    EXPECT_EQ(codeOf([&] { layers(OdDb::kForWrite)->add(nullptr); }), eNullObjectPointer);
    EXPECT_EQ(codeOf([&] { layers(OdDb::kForWrite)->add(OdDbLayerTableRecord::createObject()); }),
              eInvalidSymbolTableName);
    EXPECT_EQ(codeOf([&] { layers()->add(OdDbLayerTableRecord::createObject()); }), eNotOpenForWrite);
    const OdDbLayerTableRecordPtr zero = layer(layers()->getAt(L"0"));
    EXPECT_EQ(codeOf([&] { layers(OdDb::kForWrite)->add(zero); }), eAlreadyInDb);
    EXPECT_FALSE(wrong->isDBRO());
}

TEST_F(SymbolTableTest, FollowsNamesThroughErasingAndUndo)
{
    OdDbObjectId first;
    recorded([&] { first = addLayer(L"Name"); });
    recorded([&] { layer(first)->erase(); });
    EXPECT_FALSE(layers()->has(OdString(L"name")));
    EXPECT_EQ(layers()->getAt(L"name", true), first);

    OdDbObjectId second;
    recorded([&] { second = addLayer(L"NAME"); });
    EXPECT_EQ(layers()->getAt(L"name", true), second);
    EXPECT_EQ(layer(first)->erase(false), eDuplicateRecordName) << "its name belongs to another one by now";
    EXPECT_TRUE(first.isErased());

    recorded([&] { layer(second)->setName(L"Else"); });
    recorded([&] { EXPECT_EQ(layer(first)->erase(false), eOk); });
    database->undo();
    database->undo();
    EXPECT_EQ(layers()->getAt(L"name"), second);
    database->undo();
    EXPECT_EQ(layers()->getAt(L"name", true), first);
    database->undo();
    EXPECT_EQ(layers()->getAt(L"name"), first);
    database->undo();
    EXPECT_TRUE(layers()->getAt(L"name", true).isNull()) << "a record whose making was undone was never there";
    for (int i = 0; i < 4; ++i)
        database->redo();
    EXPECT_EQ(layers()->getAt(L"else"), second);
    EXPECT_FALSE(layers()->has(OdString(L"name")));
}

TEST_F(SymbolTableTest, KeepsWhatEveryDrawingNeeds)
{
    struct Needed
    {
        OdDbObjectId table;
        const OdChar* name;
    };
    const Needed kNeeded[] = {
        {database->getLayerTableId(), L"0"},
        {database->getLinetypeTableId(), L"bylayer"},
        {database->getLinetypeTableId(), L"ByBlock"},
        {database->getLinetypeTableId(), L"CONTINUOUS"},
        {database->getRegAppTableId(), L"ACAD"},
        {database->getBlockTableId(), L"*MODEL_SPACE"},
        {database->getTextStyleTableId(), L"STANDARD"},
        {database->getBlockTableId(), L"*Paper_Space"},
    };
    for (const Needed& needed : kNeeded)
    {
        const OdDbObjectId id = open<OdDbSymbolTable>(needed.table)->getAt(needed.name);
        ASSERT_FALSE(id.isNull()) << odStringToUtf8(needed.name);
        EXPECT_EQ(open(id, OdDb::kForWrite)->erase(), eCannotBeErasedByCaller);
        EXPECT_EQ(open(needed.table, OdDb::kForWrite)->erase(), eCannotBeErasedByCaller);
        EXPECT_FALSE(id.isErased());
    }
}

TEST_F(SymbolTableTest, GoesOverItsRecordsBothWays)
{
    const OdDbObjectId a = addLayer(L"a"), b = addLayer(L"b"), c = addLayer(L"c");
    layer(b)->erase();
    std::vector<OdDbObjectId> forward, backward;
    for (auto it = layers()->newIterator(); !it->done(); it->step())
        forward.push_back(it->getRecordId());
    for (auto it = layers()->newIterator(false, false); !it->done(); it->step(false, false))
        backward.push_back(it->getRecordId());
    const OdDbObjectId zero = layers()->getAt(L"0");
    EXPECT_EQ(forward, (std::vector<OdDbObjectId>{zero, a, c}));
    EXPECT_EQ(backward, (std::vector<OdDbObjectId>{c, b, a, zero}));
    const OdDbSymbolTableIteratorPtr iterator = layers()->newIterator();
    EXPECT_TRUE(iterator->seek(c));
    EXPECT_FALSE(iterator->seek(database->getLayerTableId()));
    EXPECT_EQ(iterator->getRecordId(), c);
    iterator->step();
    EXPECT_TRUE(iterator->done());
    EXPECT_TRUE(iterator->getRecord().isNull());
    iterator->step(false);
    EXPECT_TRUE(iterator->done());
}

TEST_F(SymbolTableTest, RenamesAHundredThousandRecords)
{
    constexpr int kCount = 100000;
    std::vector<OdDbObjectId> ids;
    OdString name;
    for (int i = 0; i < kCount; ++i)
        ids.push_back(addLayer(name.format(L"layer %d", i)));
    recorded(
        [&]
        {
            for (int i = 0; i < kCount; ++i)
                layer(ids[static_cast<std::size_t>(i)])->setName(name.format(L"renamed %d", i));
        });
    EXPECT_EQ(layers()->getAt(L"RENAMED 99999"), ids.back());
    EXPECT_TRUE(layers()->getAt(L"layer 5").isNull());
    database->undo();
    EXPECT_EQ(layers()->getAt(L"LAYER 5"), ids[5]);
    EXPECT_TRUE(layers()->getAt(L"renamed 5").isNull());
}

TEST_F(SymbolTableTest, LetsViewportsShareANameAndNumbersAnonymousBlocks)
{
    const OdDbViewportTablePtr viewports = open<OdDbViewportTable>(database->getViewportTableId(), OdDb::kForWrite);
    const OdDbObjectId first = viewports->getAt(L"*Active");
    const OdDbViewportTableRecordPtr second = OdDbViewportTableRecord::createObject();
    second->setName(L"*ACTIVE");
    viewports->add(second);
    EXPECT_EQ(viewports->getAt(L"*active"), first);

    const OdDbBlockTablePtr blocks = open<OdDbBlockTable>(database->getBlockTableId(), OdDb::kForWrite);
    for (const OdChar* expected : {L"*U1", L"*U3", L"*U4"})
    {
        const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
        block->setName(L"*U");
        blocks->add(block);
        EXPECT_TRUE(block->getName() == expected) << odStringToUtf8(block->getName());
        EXPECT_TRUE(block->isAnonymous());
        if (block->getName() != L"*U1")
            continue;
        const OdDbBlockTableRecordPtr taken = OdDbBlockTableRecord::createObject();
        taken->setName(L"*u2");
        blocks->add(taken);
    }
}

// ---- Records --------------------------------------------------------------------------------------------------------

TEST_F(SymbolTableTest, KeepsTheStatesOfALayerApart)
{
    const OdDbObjectId id = addLayer(L"Layer");
    OdDbLayerTableRecordPtr tested = layer(id);
    tested->setIsOff(true);
    tested->setColorIndex(3);
    tested->setIsFrozen(true);
    tested->setIsLocked(true);
    tested->setIsFrozen(false);
    tested->setIsPlottable(false);
    EXPECT_TRUE(tested->isOff() && tested->isLocked() && !tested->isFrozen() && !tested->isPlottable());
    EXPECT_EQ(tested->colorIndex(), 3);

    OdCmColor color;
    color.setRGB(10, 20, 30);
    color.setNames(L"Midnight", L"Book");
    tested->setColor(color);
    EXPECT_TRUE(tested->isOff());
    EXPECT_TRUE(tested->color() == color);
    tested->setColorIndex(7);
    EXPECT_TRUE(tested->color().isByACI());
    tested->setIsOff(false);
    EXPECT_EQ(tested->colorIndex(), 7);

    for (const int index : {0, 256, 300})
        EXPECT_EQ(codeOf([&] { tested->setColorIndex(static_cast<OdUInt16>(index)); }), eInvalidInput);
    EXPECT_EQ(codeOf([&] { tested->setLinetypeObjectId(database->getLayerTableId()); }), eInvalidInput);
    EXPECT_EQ(codeOf([&] { tested->setLinetypeObjectId(OdDbObjectId()); }), eInvalidInput);
    tested = nullptr;
    EXPECT_EQ(codeOf([&] { open<OdDbLayerTableRecord>(id)->setIsOff(true); }), eNotOpenForWrite);
}

TEST_F(SymbolTableTest, RefusesNumbersWithoutMeaning)
{
    const OdDbTextStyleTableRecordPtr style = OdDbTextStyleTableRecord::createObject();
    const OdDbUCSTableRecordPtr ucs = OdDbUCSTableRecord::createObject();
    const OdDbViewportTableRecordPtr view = OdDbViewportTableRecord::createObject();
    const OdDbViewportPtr sheet = OdDbViewport::createObject();
    const OdDbLinetypeTableRecordPtr linetype = OdDbLinetypeTableRecord::createObject();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::function<void()> kRefused[] = {
        [&] { style->setTextSize(-1.0); },
        [&] { style->setXScale(0.0); },
        [&] { style->setObliquingAngle(1.6); },
        [&] { style->setPriorSize(nan); },
        [&] { ucs->setAxes(OdGeVector3d(1, 0, 0), OdGeVector3d(1, 1, 0)); },
        [&] { ucs->setAxes(OdGeVector3d(0, 0, 0), OdGeVector3d(1, 1, 0)); },
        [&] { view->setHeight(0.0); },
        [&] { view->setWidth(nan); },
        [&] { view->setWidth(-1.0); },
        [&] { sheet->setViewHeight(std::numeric_limits<double>::infinity()); },
        [&] { sheet->setViewCenter(OdGePoint2d(nan, 0)); },
        [&] { view->setViewDirection(OdGeVector3d(0, 0, 0)); },
        [&] {
            linetype->setDashes({1.0, nan});
        },
    };
    for (const std::function<void()>& refused : kRefused)
        EXPECT_EQ(codeOf(refused), eInvalidInput) << &refused - kRefused;
    linetype->setDashes({1.0, -0.5, 0.0});
    linetype->setDashes({2.0, -0.25});
    EXPECT_EQ(linetype->numDashes(), 2);
    EXPECT_EQ(linetype->patternLength(), 2.25);
    EXPECT_EQ(linetype->dashLengthAt(1), -0.25);
    EXPECT_EQ(codeOf([&] { linetype->dashLengthAt(2); }), eInvalidIndex);
    EXPECT_EQ(codeOf([&] { linetype->dashLengthAt(-1); }), eInvalidIndex);
    view->setHeight(10.0);
    view->setWidth(25.0);
    EXPECT_EQ(view->width(), 25.0);
    EXPECT_TRUE(view->viewDirection() == OdGeVector3d::kZAxis);
}

} // namespace
