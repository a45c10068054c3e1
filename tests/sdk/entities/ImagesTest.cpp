// Images in drawings with what belongs to them, and filters of block references: what is made must go and come back as
// a whole, and be there again when the drawing is read again.
#include "EntityTest.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbIdMapping.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbLine.h"
#include "DbRasterImage.h"
#include "DbRasterImageDef.h"
#include "DbRasterImageDefReactor.h"
#include "DbRasterVariables.h"
#include "DbSpatialFilter.h"
#include "support/DrawingFiles.h"
#include "support/DxfRecords.h"
#include "support/TemporaryFolder.h"

namespace
{

class ImagesTest : public entitytest::EntityTest
{
protected:
    ImagesTest() : database(OdDbDatabase::createObject()) { database->initialize(); }

    OdDbObjectId append(OdDbEntity* entity)
    {
        const OdDbBlockTableRecordPtr space = database->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
        return space->appendOdDbEntity(entity);
    }
    OdDbObjectId addDefinition(const OdChar* name)
    {
        const OdDbDictionaryPtr all =
            OdDbRasterImageDef::createImageDictionary(database).safeOpenObject(OdDb::kForWrite);
        const OdDbRasterImageDefPtr definition = OdDbRasterImageDef::createObject();
        definition->setSourceFileName(OdString(name) + L".png");
        definition->setImageSize(OdGeVector2d(4, 2));
        return all->setAt(name, definition);
    }
    OdDbObjectId addImage(const OdDbObjectId& definition)
    {
        const OdDbRasterImagePtr image = OdDbRasterImage::createObject();
        const OdDbObjectId id = append(image);
        image->setImageDefId(definition);
        image->setImageSize(OdGeVector2d(4, 2));
        image->setOrientation(OdGePoint3d(1, 1, 0), OdGeVector3d(8, 0, 0), OdGeVector3d(0, 4, 0));
        image->setClipBoundaryToWholeImage();
        return id;
    }
    OdDbObjectId addReference()
    {
        const OdDbBlockTablePtr blocks = database->getBlockTableId().safeOpenObject(OdDb::kForWrite);
        const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
        block->setName(L"B");
        const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
        reference->setBlockTableRecord(blocks->add(block));
        reference->setPosition(OdGePoint3d(10, 20, 0));
        return append(reference);
    }
    static bool knows(const OdDbObjectId& definition, const OdDbObjectId& image)
    {
        const OdDbRasterImagePtr opened = image.safeOpenObject(OdDb::kForRead, true);
        return definition.safeOpenObject()->hasPersistentReactor(opened->reactorId());
    }

    OdDbDatabasePtr database;
    support::TemporaryFolder folder;
};

TEST_F(ImagesTest, DefinitionsKnowTheirImages)
{
    const OdDbObjectId a = addDefinition(L"A"), b = addDefinition(L"B");
    const OdDbObjectId image = addImage(a), other = addImage(a);
    EXPECT_TRUE(knows(a, image));
    EXPECT_TRUE(knows(a, other));
    OdDbRasterImagePtr opened = image.safeOpenObject(OdDb::kForWrite);
    const OdDbObjectId reactor = opened->reactorId();
    opened->setImageDefId(b);
    EXPECT_EQ(opened->reactorId(), reactor);
    EXPECT_TRUE(knows(b, image));
    EXPECT_FALSE(knows(a, image));
    EXPECT_TRUE(knows(a, other));
    EXPECT_THROW(opened->setImageDefId(image), OdError);
    EXPECT_EQ(opened->imageDefId(), b);
}

TEST_F(ImagesTest, CopiesHaveReactorsOfTheirOwn)
{
    const OdDbObjectId definition = addDefinition(L"A"), image = addImage(definition);
    const OdDbObjectId reactor = OdDbRasterImagePtr(image.safeOpenObject())->reactorId();
    const OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    database->deepCloneObjects({image}, OdDbObjectId(), *mapping);
    OdDbIdPair pair(image);
    ASSERT_TRUE(mapping->compute(pair));
    const OdDbRasterImagePtr copy = pair.value().safeOpenObject(OdDb::kForWrite);
    EXPECT_NE(copy->reactorId(), reactor);
    EXPECT_TRUE(knows(definition, copy->objectId()));
    EXPECT_EQ(OdDbRasterImageDefReactorPtr(copy->reactorId().safeOpenObject())->imageId(), copy->objectId());
    copy->erase(true);
    EXPECT_TRUE(copy->reactorId().isErased());
    EXPECT_FALSE(reactor.isErased());
    EXPECT_TRUE(knows(definition, image));
}

TEST_F(ImagesTest, ReactorsGoAndComeWithTheirImages)
{
    const OdDbObjectId image = addImage(addDefinition(L"A"));
    const OdDbObjectId reactor = OdDbRasterImagePtr(image.safeOpenObject())->reactorId();
    for (const bool erased : {true, false, true})
    {
        image.safeOpenObject(OdDb::kForWrite, true)->erase(erased);
        EXPECT_EQ(reactor.isErased(), erased);
    }
    database->startUndoRecord();
    image.safeOpenObject(OdDb::kForWrite, true)->erase(false);
    database->undo();
    EXPECT_TRUE(reactor.isErased());
    database->redo();
    EXPECT_FALSE(reactor.isErased());
}

TEST_F(ImagesTest, DefinitionsForgetErasedImagesUntilTheyComeBack)
{
    const OdDbObjectId definition = addDefinition(L"A");
    const OdDbObjectId images[] = {addImage(definition), addImage(definition), addImage(definition)};
    const auto reactors = [&] { return definition.safeOpenObject(OdDb::kForRead, true)->getPersistentReactors(); };
    const auto count = [&] { return OdDbRasterImageDefPtr(definition.safeOpenObject())->entityCount(); };
    const auto erase = [](const OdDbObjectId& id, bool erased)
    { return id.safeOpenObject(OdDb::kForWrite, true)->erase(erased); };
    const OdDbObjectIdArray all = reactors();
    ASSERT_EQ(all.size(), 4u); // with the dictionary
    EXPECT_EQ(count(), 3);
    database->startUndoRecord();
    EXPECT_EQ(erase(images[1], true), eOk);
    EXPECT_FALSE(knows(definition, images[1]));
    EXPECT_EQ(reactors().size(), 3u);
    EXPECT_EQ(erase(images[0], true), eOk);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(erase(images[2], true), eOk);
    EXPECT_EQ(count(), 0);
    database->undo();
    EXPECT_TRUE(reactors() == all);
    EXPECT_EQ(count(), 3);
    database->redo();
    EXPECT_EQ(reactors().size(), 1u);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(erase(images[1], false), eOk);
    EXPECT_TRUE(knows(definition, images[1]));
    EXPECT_EQ(count(), 1);
    // Also when the definition itself comes and goes meanwhile, or is open.
    EXPECT_EQ(erase(definition, true), eOk);
    EXPECT_EQ(erase(images[1], true), eOk);
    EXPECT_EQ(erase(images[1], false), eOk);
    EXPECT_EQ(erase(definition, false), eOk);
    EXPECT_EQ(count(), 1);
    const OdDbObjectPtr opened = definition.safeOpenObject(OdDb::kForWrite);
    EXPECT_EQ(erase(images[0], false), eOk);
    EXPECT_TRUE(knows(definition, images[0]));
    EXPECT_TRUE(opened->isWriteEnabled());
}

TEST_F(ImagesTest, DefinitionsSayWhetherAnImageStandsOnALockedLayer)
{
    const OdDbObjectId definition = addDefinition(L"A");
    bool isLocked = true;
    const auto count = [&] { return OdDbRasterImageDefPtr(definition.safeOpenObject())->entityCount(&isLocked); };
    EXPECT_EQ(count(), 0);
    EXPECT_FALSE(isLocked);
    const OdDbObjectId images[] = {addImage(definition), addImage(definition)};
    EXPECT_EQ(count(), 2);
    EXPECT_FALSE(isLocked);
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName(L"locked");
    const OdDbLayerTablePtr layers = database->getLayerTableId().safeOpenObject(OdDb::kForWrite);
    OdDbEntityPtr(images[1].safeOpenObject(OdDb::kForWrite))->setLayer(layers->add(layer));
    layer->setIsLocked(true);
    EXPECT_EQ(count(), 2);
    EXPECT_TRUE(isLocked);
}

TEST_F(ImagesTest, VariablesAreMadeOnce)
{
    const OdDbRasterVariablesPtr made = OdDbRasterVariables::openRasterVariables(database, OdDb::kForWrite);
    EXPECT_EQ(made->imageFrame(), OdDbRasterVariables::kImageFrameOff);
    EXPECT_EQ(made->imageQuality(), OdDbRasterVariables::kImageQualityHigh);
    made->setImageFrame(OdDbRasterVariables::kImageFrameBelow);
    const OdDbObjectId id = made->objectId();
    EXPECT_EQ(OdDbRasterVariables::openRasterVariables(database)->objectId(), id);
    EXPECT_THROW(OdDbRasterVariables::openRasterVariables(nullptr), OdError);
}

TEST_F(ImagesTest, FiltersRememberTheirOutlineAndPlace)
{
    const OdDbObjectId id = addReference();
    const OdDbBlockReferencePtr reference = id.safeOpenObject(OdDb::kForWrite);
    const OdDbSpatialFilterPtr filter = OdDbSpatialFilter::createObject();
    OdGePoint2dArray points;
    EXPECT_THROW(filter->setDefinition(points, OdGeVector3d::kZAxis, 0.0), OdError);
    for (const double x : {0.0, 3.0, 1.5})
        points.append(OdGePoint2d(x, x == 1.5 ? 2.0 : 0.0));
    EXPECT_THROW(filter->setDefinition(points, OdGeVector3d(), 0.0), OdError);
    filter->setDefinition(points, OdGeVector3d(0, 0, -2), 4.0, 7.0);
    OdDbIndexFilterManager::addFilter(reference, filter);
    filter->downgradeOpen();

    const OdDbSpatialFilterPtr found =
        OdDbSpatialFilter::cast(OdDbIndexFilterManager::getFilter(reference, OdDbSpatialFilter::desc()));
    OdGePoint2dArray read;
    OdGeVector3d normal;
    double elevation = 0.0, front = 0.0, back = 0.0;
    bool enabled = false;
    found->getDefinition(read, normal, elevation, front, back, enabled);
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(read[2], OdGePoint2d(1.5, 2.0));
    EXPECT_EQ(normal, OdGeVector3d(0, 0, -1));
    EXPECT_EQ(elevation, 4.0);
    EXPECT_EQ(front, 7.0);
    EXPECT_EQ(back, OdDbSpatialFilter::kInfiniteClip);
    EXPECT_TRUE(enabled);
    EXPECT_EQ(found->getOriginalInverseBlockXform() * OdGePoint3d(10, 20, 0), OdGePoint3d());

    // A second one takes its place.
    const OdDbObjectId first = found->objectId();
    const OdDbSpatialFilterPtr second = OdDbSpatialFilter::createObject();
    second->setDefinition(points, OdGeVector3d::kZAxis, 0.0);
    OdDbIndexFilterManager::addFilter(reference, second);
    second->downgradeOpen();
    EXPECT_TRUE(first.isErased());
    OdDbIndexFilterManager::removeFilter(reference, OdDbSpatialFilter::desc());
    OdDbIndexFilterManager::removeFilter(reference, OdDbSpatialFilter::desc());
    EXPECT_TRUE(OdDbIndexFilterManager::getFilter(reference, OdDbSpatialFilter::desc()).isNull());
    EXPECT_THROW(OdDbIndexFilterManager::getFilter(reference, OdDbLine::desc()), OdError);
}

TEST_F(ImagesTest, AllOfItIsReadAgain)
{
    const OdDbObjectId definition = addDefinition(L"A");
    const OdDbObjectId image = addImage(definition);
    const OdDbObjectId id = addReference();
    OdGePoint2dArray corners;
    corners.append(OdGePoint2d(-1, -2));
    corners.append(OdGePoint2d(3, 4));
    const OdDbSpatialFilterPtr filter = OdDbSpatialFilter::createObject();
    filter->setDefinition(corners, OdGeVector3d::kZAxis, 0.0);
    OdDbIndexFilterManager::addFilter(OdDbBlockReferencePtr(id.safeOpenObject(OdDb::kForWrite)), filter);
    filter->downgradeOpen();
    OdDbRasterVariables::openRasterVariables(database);
    for (const OdDb::SaveType type : {OdDb::kDxf, OdDb::kDxb})
    {
        const OdDbDatabasePtr again = support::savedAndRead(*database, type);
        const auto reopen = [&](const OdDbObjectId& old) { return again->getOdDbObjectId(old.getHandle()); };
        EXPECT_TRUE(knows(reopen(definition), reopen(image)));
        const OdDbBlockReferencePtr reference = reopen(id).safeOpenObject();
        const OdDbSpatialFilterPtr found =
            OdDbSpatialFilter::cast(OdDbIndexFilterManager::getFilter(reference, OdDbSpatialFilter::desc()));
        EXPECT_EQ(found->getOriginalInverseBlockXform() * OdGePoint3d(10, 20, 0), OdGePoint3d());
        OdArray<OdGePoint3d> outline;
        EXPECT_EQ(OdDbRasterImagePtr(reopen(image).safeOpenObject())->getVertices(outline), eOk);
        EXPECT_EQ(outline[1], OdGePoint3d(9, 5, 0));
    }
}

/// Other programs take images only from files that describe their classes.
TEST_F(ImagesTest, FilesDescribeTheClassesTheyUse)
{
    addImage(addDefinition(L"A"));
    const std::string path = folder.path("classes.dxf");
    database->writeFile(OdString(path.c_str()));
    const std::string file = support::readWholeFile(path);
    EXPECT_NE(file.find("  2\nAcDbRasterImage\n  3\nISM\n"), std::string::npos);
    EXPECT_NE(file.find("  2\nAcDbRasterImageDefReactor\n  3\nISM\n"), std::string::npos);
    EXPECT_EQ(file.find("  2\nAcDbSpatialFilter\n"), std::string::npos);
}

} // namespace
