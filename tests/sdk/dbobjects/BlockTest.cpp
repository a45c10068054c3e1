// Attacks blocks: the order of their entities, who draws them, and blocks that draw themselves.
#include <algorithm>
#include <vector>

#include "BlockDrawing.h"
#include "Db2dPolyline.h"
#include "DbBlockBegin.h"
#include "DbLayout.h"
#include "DbVertex.h"

namespace
{

using namespace objectstest;

class BlockTest : public BlockDrawing
{
protected:
    std::vector<OdDbObjectId> referencesTo(const OdDbObjectId& id, bool directOnly = true) const
    {
        OdDbObjectIdArray found;
        EXPECT_EQ(block(id)->getBlockReferenceIds(found, directOnly), eOk);
        std::vector<OdDbObjectId> sorted(std::as_const(found).begin(), std::as_const(found).end());
        std::sort(sorted.begin(), sorted.end());
        return sorted;
    }
    static std::vector<OdDbObjectId> sorted(std::vector<OdDbObjectId> ids)
    {
        std::sort(ids.begin(), ids.end());
        return ids;
    }
};

TEST_F(BlockTest, KeepsTheDrawingOrderThroughUndo)
{
    const OdDbObjectId space = database->getModelSpaceId();
    OdDbObjectId a, b, c;
    recorded([&] { a = addLine(space); });
    recorded([&] { b = addLine(space); });
    recorded([&] { c = addLine(space); });
    recorded([&] { open(b, OdDb::kForWrite)->erase(); });
    EXPECT_EQ(entitiesOf(space), (Ids{a, c}));
    EXPECT_EQ(entitiesOf(space, false), (Ids{a, b, c}));
    database->undo();
    EXPECT_EQ(entitiesOf(space), (Ids{a, b, c}));
    database->undo();
    database->undo();
    EXPECT_EQ(entitiesOf(space, false), (Ids{a})) << "what was never made is not an erased entity";
    database->redo();
    EXPECT_EQ(entitiesOf(space), (Ids{a, b}));
    const OdDbObjectId d = addLine(space);
    EXPECT_EQ(entitiesOf(space), (Ids{a, b, d}));
}

TEST_F(BlockTest, ReachesEntitiesThatAreAddedMeanwhile)
{
    const OdDbObjectId space = database->getModelSpaceId();
    addLine(space);
    int count = 0;
    for (auto it = block(space)->newIterator(); !it->done() && count < 5; it->step(), ++count)
        addLine(space);
    EXPECT_EQ(count, 5);
}

TEST_F(BlockTest, RefusesWhatItCannotOwn)
{
    const OdDbObjectId space = database->getModelSpaceId();
    const OdDbLinePtr line = OdDbLine::createObject();
    EXPECT_EQ(codeOf([&] { block(space)->appendOdDbEntity(line); }), eNotOpenForWrite);
    EXPECT_EQ(codeOf([&] { block(space, OdDb::kForWrite)->appendOdDbEntity(nullptr); }), eNullObjectPointer);
    EXPECT_EQ(codeOf([&] { OdDbBlockTableRecord::createObject()->appendOdDbEntity(line); }), eNotInDatabase);
    block(space, OdDb::kForWrite)->appendOdDbEntity(line);
    EXPECT_EQ(codeOf([&] { block(space, OdDb::kForWrite)->appendOdDbEntity(line); }), eAlreadyInDb);
    EXPECT_EQ(entitiesOf(space).size(), 1u);
    EXPECT_EQ(block(space, OdDb::kForWrite)->erase(), eCannotBeErasedByCaller);
}

TEST_F(BlockTest, KnowsWhoDrawsIt)
{
    const OdDbObjectId space = database->getModelSpaceId();
    const OdDbObjectId drawn = makeBlock(L"drawn"), other = makeBlock(L"other");
    EXPECT_EQ(referencesTo(drawn), Ids());
    OdDbObjectId first, second;
    recorded([&] { first = addReference(space, drawn); });
    EXPECT_EQ(referencesTo(drawn), Ids{first});
    recorded([&] { second = addReference(space, drawn); });
    EXPECT_EQ(referencesTo(drawn), sorted({first, second}));
    recorded([&] { open(first, OdDb::kForWrite)->erase(); });
    EXPECT_EQ(referencesTo(drawn), Ids{second});
    recorded([&] { open<OdDbBlockReference>(second, OdDb::kForWrite)->setBlockTableRecord(other); });
    EXPECT_EQ(referencesTo(drawn), Ids());
    EXPECT_EQ(referencesTo(other), Ids{second});
    database->undo();
    EXPECT_EQ(referencesTo(drawn), Ids{second});
    EXPECT_EQ(referencesTo(other), Ids());
    database->undo();
    EXPECT_EQ(referencesTo(drawn), sorted({first, second}));
    database->undo();
    database->undo();
    EXPECT_EQ(referencesTo(drawn), Ids());
    for (int i = 0; i < 4; ++i)
        database->redo();
    EXPECT_EQ(referencesTo(drawn), Ids());
    EXPECT_EQ(referencesTo(other), Ids{second});
    open(first, OdDb::kForWrite)->erase(false);
    EXPECT_EQ(referencesTo(drawn), Ids{first});
}

TEST_F(BlockTest, AsksBeforeTheReferenceKnowsItsBlock)
{
    const OdDbObjectId drawn = makeBlock(L"drawn");
    EXPECT_EQ(referencesTo(drawn), Ids());
    const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    const OdDbObjectId id = block(database->getModelSpaceId(), OdDb::kForWrite)->appendOdDbEntity(reference);
    EXPECT_EQ(referencesTo(drawn), Ids());
    reference->setBlockTableRecord(drawn);
    EXPECT_EQ(referencesTo(drawn), Ids{id});
    database->startTransaction();
    reference->setBlockTableRecord(makeBlock(L"other"));
    EXPECT_EQ(referencesTo(drawn), Ids());
    database->abortTransaction();
    EXPECT_EQ(referencesTo(drawn), Ids{id});
}

TEST_F(BlockTest, LeavesTheReferencesOfErasedBlocksOut)
{
    const OdDbObjectId drawn = makeBlock(L"drawn"), holder = makeBlock(L"holder");
    const OdDbObjectId inside = addReference(holder, drawn);
    EXPECT_EQ(referencesTo(drawn), Ids{inside});
    EXPECT_EQ(block(holder, OdDb::kForWrite)->erase(), eOk);
    EXPECT_EQ(referencesTo(drawn), Ids());
    EXPECT_EQ(block(holder, OdDb::kForWrite)->erase(false), eOk);
    EXPECT_EQ(referencesTo(drawn), Ids{inside});
}

TEST_F(BlockTest, IsErasedWithAllThatWasInIt)
{
    const OdDbObjectId id = makeBlock(L"block"), inner = makeBlock(L"inner");
    const OdDbObjectId line = addLine(id), gone = addLine(id), nested = addReference(id, inner);
    OdDb2dPolylinePtr polyline = OdDb2dPolyline::createObject();
    const OdDbObjectId polylineId = block(id, OdDb::kForWrite)->appendOdDbEntity(polyline);
    const OdDbObjectId kept = polyline->appendVertex(OdDb2dVertex::createObject());
    const OdDbObjectId lost = polyline->appendVertex(OdDb2dVertex::createObject());
    open(lost, OdDb::kForWrite)->erase();
    open(gone, OdDb::kForWrite)->erase();
    const Ids all{id, line, nested, polylineId, kept, block(id)->getBlockBeginId(), block(id)->getBlockEndId()};
    const auto expectErased = [&](bool erased, const char* when)
    {
        for (const OdDbObjectId& each : all)
            EXPECT_EQ(each.isErased(), erased) << when;
        EXPECT_TRUE(gone.isErased() && lost.isErased()) << when;
        EXPECT_EQ(referencesTo(inner), erased ? Ids() : Ids{nested}) << when;
    };
    const auto erase = [&](bool erasing)
    { recorded([&] { EXPECT_EQ(open(id, OdDb::kForWrite)->erase(erasing), eOk); }); };

    EXPECT_EQ(open(id, OdDb::kForWrite)->erase(), eWasOpenForWrite) << "the polyline is open";
    expectErased(false, "refused");
    polyline = nullptr;
    erase(true);
    expectErased(true, "erased");
    erase(false);
    expectErased(false, "brought back");
    database->undo();
    expectErased(true, "its coming back undone");
    erase(false);
    expectErased(false, "brought back again");
    database->undo();
    database->undo();
    expectErased(false, "all undone");
    database->redo();
    expectErased(true, "redone");
    database->undo();
    recorded([&] { open(line, OdDb::kForWrite)->erase(); });
    erase(true);
    erase(false);
    EXPECT_TRUE(line.isErased()) << "it was erased by itself this time";
    EXPECT_FALSE(kept.isErased());
}

TEST_F(BlockTest, ComesToAnEndWithBlocksThatDrawEachOther)
{
    const OdDbObjectId space = database->getModelSpaceId();
    const OdDbObjectId a = makeBlock(L"a"), b = makeBlock(L"b");
    const OdDbObjectId aInB = addReference(b, a), bInA = addReference(a, b), aInA = addReference(a, a);
    const OdDbObjectId bInSpace = addReference(space, b);
    EXPECT_EQ(referencesTo(a), sorted({aInB, aInA}));
    EXPECT_EQ(referencesTo(a, false), sorted({aInB, aInA, bInA, bInSpace}));
    EXPECT_EQ(referencesTo(b, false), sorted({bInA, bInSpace, aInB, aInA}));
}

TEST_F(BlockTest, AnswersAtOnceForManyReferences)
{
    constexpr int kCount = 20000;
    const OdDbObjectId space = database->getModelSpaceId();
    const OdDbObjectId drawn = makeBlock(L"drawn");
    std::size_t sum = 0;
    for (int i = 0; i < kCount; ++i)
    {
        addReference(space, drawn);
        OdDbObjectIdArray ids;
        block(drawn)->getBlockReferenceIds(ids);
        sum += ids.size();
    }
    EXPECT_EQ(sum, std::size_t(kCount) * (kCount + 1) / 2);
}

TEST_F(BlockTest, HasAFrameThatFollowsIt)
{
    const OdDbObjectId id = makeBlock(L"Framed");
    OdDbBlockTableRecordPtr framed = block(id, OdDb::kForWrite);
    EXPECT_FALSE(framed->getBlockBeginId().isErased());
    EXPECT_FALSE(framed->getBlockEndId().isErased());
    EXPECT_EQ(open(framed->getBlockEndId())->ownerId(), id);
    recorded([&] { framed->setOrigin(OdGePoint3d(1, 2, 3)); });
    EXPECT_TRUE(framed->origin() == OdGePoint3d(1, 2, 3));
    framed = nullptr;
    database->undo();
    EXPECT_TRUE(block(id)->origin() == OdGePoint3d::kOrigin);
    block(id, OdDb::kForWrite)->setName(L"Renamed");
    const oddb::Groups begin = oddb::ObjectCore::groups(*block(id)->openBlockBegin());
    EXPECT_EQ(begin.findAny(2)->text(), "Renamed");
    EXPECT_EQ(begin.findAny(3)->text(), "Renamed");
    EXPECT_FALSE(block(id)->isLayout() || block(id)->isAnonymous() || block(id)->isFromExternalReference());
    EXPECT_EQ(codeOf([] { OdDbBlockTableRecord::createObject()->setOrigin(OdGePoint3d::kOrigin); }), eNotInDatabase);
}

TEST_F(BlockTest, BelongsToALayoutThatCanBeRenamed)
{
    const OdDbBlockTableRecordPtr space = block(database->getPaperSpaceId());
    EXPECT_TRUE(space->isLayout());
    const OdDbLayoutPtr layout = open<OdDbLayout>(space->getLayoutId(), OdDb::kForWrite);
    EXPECT_EQ(layout->getBlockTableRecordId(), database->getPaperSpaceId());
    EXPECT_EQ(codeOf([&] { layout->setLayoutName(L"MODEL"); }), eDuplicateKey);
    EXPECT_EQ(codeOf([&] { layout->setLayoutName(L""); }), eInvalidKey);
    layout->setLayoutName(L"Sheet");
    const OdDbDictionaryPtr layouts = OdDbDictionary::cast(layout->ownerId().safeOpenObject());
    EXPECT_EQ(layouts->getAt(L"sheet"), layout->objectId());
    EXPECT_FALSE(layouts->has(OdString(L"Layout1")));
}

// ---- Data of applications -------------------------------------------------------------------------------------------

TEST_F(BlockTest, GivesBackTheChainThatAnXrecordWasGiven)
{
    const OdDbXrecordPtr record = OdDbXrecord::createObject();
    EXPECT_TRUE(record->rbChain().isNull());
    const OdResBufPtr chain = OdResBuf::newRb(280, OdInt16(5));
    chain->last()->setNext(OdResBuf::newRb(100, L"marker"));
    chain->last()->setNext(OdResBuf::newRb(1, L"\u0416 text"));
    chain->last()->setNext(OdResBuf::newRb(10, OdGePoint3d(1, 2, 3)));
    chain->last()->setNext(OdResBuf::newRb(90, OdInt32(-7)));
    record->setFromRbChain(chain);
    std::vector<int> types;
    for (OdResBufPtr element = record->rbChain(); !element.isNull(); element = element->next())
        types.push_back(element->restype());
    EXPECT_EQ(types, (std::vector<int>{280, 100, 1, 10, 90}));
    EXPECT_EQ(codeOf([&] { record->setFromRbChain(OdResBuf::newRb(OdResBuf::kRtListBeg)); }), eInvalidResBuf);
    EXPECT_EQ(record->rbChain()->numElements(), 5u);
    record->setFromRbChain(nullptr);
    EXPECT_TRUE(record->rbChain().isNull());
}

} // namespace
