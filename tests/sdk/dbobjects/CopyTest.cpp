// Attacks copying: what a copy needs has to come along, once, and nothing of it may refer to the drawing it came from.
#include <functional>

#include "BlockDrawing.h"
#include "DbAttribute.h"
#include "DbDimension.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbLinetypeTableRecord.h"
#include "db/BlockCore.h"
#include "db/DictionaryCore.h"
#include "db/DxfClassTable.h"
#include "support/DrawingFiles.h"

namespace
{

using namespace objectstest;
using oddb::ObjectCore;

// Calls visit for every stub that the object refers to in any way.
void visitReferences(const OdDbObject& object, const std::function<void(const OdDbStub*)>& visit)
{
    ObjectCore::groups(object).visitStubs([&](int, OdDbStub* stub, oddb::GroupType) { visit(stub); });
    visit(ObjectCore::owner(object));
    if (const oddb::ObjectExtras* extras = ObjectCore::extras(object))
    {
        visit(extras->extensionDictionary);
        extras->reactors.visit(visit);
        for (std::size_t i = 0; i < extras->xdata.size(); ++i)
        {
            visit(extras->xdata[i].application);
            extras->xdata[i].values.visitStubs([&](int, OdDbStub* stub, oddb::GroupType) { visit(stub); });
        }
    }
    if (const OdDbDictionaryPtr dictionary = OdDbDictionary::cast(&object); !dictionary.isNull())
        for (const oddb::DictionaryEntry& entry : *oddb::DictionaryCore::entries(*dictionary).inOrder())
            visit(entry.object);
}

// The number of references that lead out of the drawing.
int foreignReferences(const OdDbDatabase& database)
{
    int count = 0;
    database.impl().stubs.visit(
        [&](const OdDbStub& stub)
        {
            if (stub.object)
                visitReferences(*stub.object,
                                [&](const OdDbStub* other) { count += other && other->database != &database; });
        });
    return count;
}

class CopyTest : public BlockDrawing
{
protected:
    OdDbObjectId addLayer(const OdString& name, const OdString& linetypeName) const
    {
        const OdDbLinetypeTableRecordPtr linetype = OdDbLinetypeTableRecord::createObject();
        linetype->setName(linetypeName);
        open<OdDbSymbolTable>(database->getLinetypeTableId(), OdDb::kForWrite)->add(linetype);
        linetype->setDashes({1.0, -1.0});
        const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
        layer->setName(name);
        open<OdDbLayerTable>(database->getLayerTableId(), OdDb::kForWrite)->add(layer);
        layer->setLinetypeObjectId(linetype->objectId());
        return layer->objectId();
    }
    OdDbObjectIdArray copiesWithin(const OdDbObjectIdArray& ids) const
    {
        const OdDbIdMappingPtr mapping = copyWithin(ids);
        OdDbObjectIdArray copies;
        for (const OdDbObjectId& id : ids)
        {
            OdDbIdPair pair(id);
            EXPECT_TRUE(mapping->compute(pair) && pair.isCloned() && pair.isPrimary());
            copies.append(pair.value());
        }
        return copies;
    }
    static Ids modelOf(const OdDbDatabase& drawing) { return entitiesOf(drawing.getModelSpaceId()); }
};

TEST_F(CopyTest, BringsLayersAndLinetypesAlongOnce)
{
    const OdDbObjectId layer = addLayer(L"Walls", L"Dashed");
    OdDbObjectIdArray lines;
    for (int i = 0; i < 3; ++i)
    {
        lines.append(addLine());
        open<OdDbLine>(lines.last(), OdDb::kForWrite)->setLayer(layer);
    }
    const OdDbDatabasePtr made = database->wblock(lines, OdGePoint3d(1, 1, 0));
    EXPECT_EQ(foreignReferences(*made), 0);
    const Ids copies = modelOf(*made);
    ASSERT_EQ(copies.size(), 3u);
    EXPECT_TRUE(open<OdDbLine>(copies[2])->endPoint() == OdGePoint3d(2, 3, 0));
    const OdDbObjectId copied = open<OdDbLine>(copies[0])->layerId();
    EXPECT_EQ(copied, find(made->getLayerTableId(), L"walls"));
    EXPECT_EQ(open<OdDbLayerTableRecord>(copied)->linetypeObjectId(), find(made->getLinetypeTableId(), L"DASHED"));
    EXPECT_EQ(open<OdDbLinetypeTableRecord>(find(made->getLinetypeTableId(), L"DASHED"))->numDashes(), 2);
    EXPECT_TRUE(open<OdDbLine>(lines.getAt(0))->endPoint() == OdGePoint3d(3, 4, 0)) << "originals stay";
}

TEST_F(CopyTest, ComesToAnEndWithBlocksThatDrawEachOther)
{
    const OdDbObjectId a = makeBlock(L"a"), b = makeBlock(L"b");
    addReference(a, b);
    addReference(b, a);
    addReference(a, a);
    addLine(b);
    open<OdDbBlockTableRecord>(b, OdDb::kForWrite)->setOrigin(OdGePoint3d(7, 8, 9));
    open<OdDbBlockTableRecord>(b, OdDb::kForWrite)->setExplodable(false);
    const OdDbDatabasePtr made = database->wblock({addReference(database->getModelSpaceId(), a)});
    EXPECT_EQ(foreignReferences(*made), 0);
    const OdDbObjectId copyOfA = find(made->getBlockTableId(), L"A"), copyOfB = find(made->getBlockTableId(), L"B");
    ASSERT_FALSE(copyOfA.isNull() || copyOfB.isNull());
    EXPECT_EQ(entitiesOf(copyOfA).size(), 2u);
    EXPECT_EQ(entitiesOf(copyOfB).size(), 2u);
    EXPECT_TRUE(open<OdDbBlockTableRecord>(copyOfB)->origin() == OdGePoint3d(7, 8, 9));
    EXPECT_FALSE(open<OdDbBlockTableRecord>(copyOfB)->explodable());
    OdDbObjectIdArray references;
    open<OdDbBlockTableRecord>(copyOfA)->getBlockReferenceIds(references);
    EXPECT_EQ(references.size(), 3u);
}

TEST_F(CopyTest, KeepsWhatABlockSaysOfItself)
{
    const OdDbObjectId block = makeBlock(L"Block");
    const OdDbObjectId begin = open<OdDbBlockTableRecord>(block)->getBlockBeginId();
    const oddb::DxfClass& cls = *oddb::findDxfClass("BLOCK");
    const OdDbObjectPtr frame = open(begin, OdDb::kForWrite);
    ObjectCore::changeGroups(
        *frame, oddb::withText(ObjectCore::groups(*frame), cls, *cls.subclass("AcDbBlockBegin"), 4, "a description"));
    const OdDbDatabasePtr made = database->wblock({addReference(database->getModelSpaceId(), block)});
    const auto copy = open<OdDbBlockTableRecord>(find(made->getBlockTableId(), L"Block"));
    EXPECT_TRUE(copy->comments() == L"a description");
    EXPECT_EQ(ObjectCore::groups(*open(copy->getBlockBeginId())).findAny(2)->stub(), ObjectCore::stub(*copy));
    EXPECT_EQ(foreignReferences(*made), 0);
}

TEST_F(CopyTest, GivesEachDimensionABlockOfItsOwn)
{
    const OdDbObjectId drawn = makeBlock(L"*D");
    const OdDbObjectId line = addLine(drawn);
    const OdDbRotatedDimensionPtr dimension = OdDbRotatedDimension::createObject();
    const OdDbObjectId id = space()->appendOdDbEntity(dimension);
    dimension->setDimBlockId(drawn);
    const OdDbObjectId stamp = addReference(database->getModelSpaceId(), makeBlock(L"Shared"));
    OdDbObjectIdArray copies;
    recorded([&] { copies = copiesWithin({id, stamp}); });
    const OdDbObjectId own = open<OdDbDimension>(copies.getAt(0))->dimBlockId();
    ASSERT_FALSE(own.isErased() || own == drawn);
    const auto block = open<OdDbBlockTableRecord>(own);
    EXPECT_EQ(block->getName().left(2), L"*D");
    EXPECT_TRUE(block->isAnonymous());
    EXPECT_EQ(ObjectCore::groups(*open(block->getBlockBeginId())).findAny(3)->text(), odStringToUtf8(block->getName()));
    ASSERT_EQ(entitiesOf(own).size(), 1u);
    EXPECT_NE(entitiesOf(own)[0], line);
    EXPECT_EQ(open<OdDbBlockReference>(copies.getAt(1))->blockTableRecord(),
              open<OdDbBlockReference>(stamp)->blockTableRecord());
    database->undo();
    EXPECT_TRUE(own.isErased());
    EXPECT_EQ(open<OdDbDimension>(id)->dimBlockId(), drawn);
}

TEST_F(CopyTest, TranslatesExtendedDataAndListeners)
{
    const OdDbObjectId copied = addLine(), left = addLine(), listener = addLine();
    database->newRegApp(L"TESTED");
    const OdResBufPtr xdata = OdResBuf::newRb(1001, L"TESTED");
    for (const OdDbObjectId& id : {listener, left})
        xdata->last()->setNext(OdResBuf::newRb(1005, id.getHandle().ascii()));
    {
        const OdDbObjectPtr object = open(copied, OdDb::kForWrite);
        object->setXData(xdata);
        object->addPersistentReactor(left);
        object->addPersistentReactor(listener);
    }
    const OdDbDatabasePtr made = database->wblock({copied, listener});
    EXPECT_EQ(foreignReferences(*made), 0);
    const Ids copies = modelOf(*made);
    ASSERT_EQ(copies.size(), 2u);
    const OdDbObjectIdArray listeners = open(copies[0])->getPersistentReactors();
    ASSERT_EQ(listeners.size(), 1u);
    EXPECT_EQ(listeners.getAt(0), copies[1]);
    const OdResBufPtr chain = open(copies[0])->xData(L"TESTED");
    ASSERT_FALSE(chain.isNull());
    EXPECT_EQ(chain->next()->getHandle(), copies[1].getHandle());
    EXPECT_TRUE(open(copies[0])->xData()->numElements() == chain->numElements()) << "no other application is left";
}

TEST_F(CopyTest, CopiesExtensionDictionariesWithTheirContents)
{
    const OdDbObjectId line = addLine();
    const OdDbObjectId dictionary = open(line, OdDb::kForWrite)->createExtensionDictionary();
    const OdDbXrecordPtr record = OdDbXrecord::createObject();
    const OdResBufPtr chain = OdResBuf::newRb(1, L"own");
    chain->setNext(OdResBuf::newRb(330, line));
    record->setFromRbChain(chain);
    open<OdDbDictionary>(dictionary, OdDb::kForWrite)->setAt(L"data", record);

    for (const bool elsewhere : {false, true})
    {
        const OdDbDatabasePtr made = elsewhere ? database->wblock({line}) : database;
        const OdDbObjectId copy = elsewhere ? modelOf(*made)[0] : copiesWithin({line}).getAt(0);
        const OdDbObjectId copied = open(copy)->extensionDictionary();
        ASSERT_FALSE(copied.isErased() || copied == dictionary) << elsewhere;
        EXPECT_EQ(open(copied)->ownerId(), copy);
        const OdDbXrecordPtr data = OdDbXrecord::cast(open<OdDbDictionary>(copied)->getAt(L"data", OdDb::kForRead));
        ASSERT_FALSE(data.isNull());
        EXPECT_EQ(data->rbChain()->next()->getObjectId(), copy) << "refers to the copy";
        EXPECT_EQ(foreignReferences(*made), 0);
    }
}

TEST_F(CopyTest, RefusesWhatIsNotThere)
{
    const OdDbObjectId line = addLine();
    open(line, OdDb::kForWrite)->erase();
    const OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    EXPECT_EQ(codeOf([&] { database->deepCloneObjects({line}, OdDbObjectId(), *mapping); }), eWasErased);
    EXPECT_EQ(codeOf([&] { database->wblock({OdDbObjectId()}); }), eNullObjectId);
    for (const OdDbObjectId& own :
         {database->getLayerTableId(), database->getNamedObjectsDictionaryId(), database->getModelSpaceId(),
          database->getPaperSpaceId(), database->currentLayoutId(), space(OdDb::kForRead)->getBlockBeginId()})
    {
        const OdDbObjectIdArray ids = {addLine(), own};
        EXPECT_EQ(codeOf([&] { database->wblock(ids); }), eNotApplicable);
        EXPECT_EQ(codeOf([&] { database->deepCloneObjects(ids, OdDbObjectId(), *mapping); }), eNotApplicable);
    }
    OdDbIdPair nothing(database->getLayerTableId());
    EXPECT_FALSE(mapping->compute(nothing));
    EXPECT_EQ(codeOf([&] { database->deepCloneObjects({database->getLayerZeroId()}, OdDbObjectId(), *mapping); }),
              eDuplicateRecordName);
}

TEST_F(CopyTest, BringsUnitsAndScalesButNothingThatNamesRecords)
{
    database->setSysVar(L"INSUNITS", OdResBuf::newRb(70, OdInt16(5)));
    database->setSysVar(L"LTSCALE", OdResBuf::newRb(40, 12.5));
    database->setSysVar(L"TILEMODE", OdResBuf::newRb(70, OdInt16(0)));
    database->setSysVar(L"EXTMAX", OdResBuf::newRb(10, OdGePoint3d(1, 2, 3)));
    addLayer(L"Walls", L"Dashed");
    database->setSysVar(L"CLAYER", OdResBuf::newRb(8, L"Walls"));
    const OdDbDatabasePtr made = database->wblock({addLine()});
    EXPECT_EQ(made->getINSUNITS(), 5);
    EXPECT_DOUBLE_EQ(made->getLTSCALE(), 12.5);
    EXPECT_TRUE(made->getTILEMODE());
    EXPECT_TRUE(made->getEXTMAX().x < 0);
    EXPECT_EQ(made->getCLAYER(), made->getLayerZeroId());
}

TEST_F(CopyTest, BringsTheOwnerOfAnAttribute)
{
    const OdDbObjectId id = addReference(database->getModelSpaceId(), makeBlock(L"Block"));
    const OdDbObjectId attribute =
        open<OdDbBlockReference>(id, OdDb::kForWrite)->appendAttribute(OdDbAttribute::createObject());
    const OdDbDatabasePtr made = database->wblock({attribute, id}, OdGePoint3d(1, 0, 0));
    ASSERT_EQ(modelOf(*made).size(), 1u);
    EXPECT_TRUE(open<OdDbBlockReference>(modelOf(*made)[0])->position() == OdGePoint3d(-1, 0, 0));
    EXPECT_EQ(foreignReferences(*made), 0);
}

TEST_F(CopyTest, WritesTheModelsOfRealDrawingsOut)
{
    const std::vector<std::string> paths = support::realDrawings();
    if (paths.empty())
        GTEST_SKIP() << support::kNoRealDrawings;
    for (const std::string& path : paths)
    {
        SCOPED_TRACE(path);
        const OdDbDatabasePtr read = support::readDrawing(path);
        OdDbObjectIdArray all;
        for (const OdDbObjectId& id : modelOf(*read))
            all.append(id);
        const OdDbDatabasePtr made = read->wblock(all);
        EXPECT_EQ(foreignReferences(*made), 0);
        EXPECT_EQ(modelOf(*made).size(), all.size());
        EXPECT_EQ(modelOf(*support::savedAndRead(*made)).size(), all.size());
    }
}

} // namespace
