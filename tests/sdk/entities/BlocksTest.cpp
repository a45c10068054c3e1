// Entities in drawings: references to blocks, attributes, vertices, erasing, undo, copies.
#include <chrono>

#include "Db2dPolyline.h"
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbCircle.h"
#include "DbDatabase.h"
#include "DbLine.h"
#include "EntityTest.h"

namespace
{

using namespace entitytest;

class DrawingTest : public EntityTest
{
protected:
    DrawingTest() { database->initialize(); }

    OdDbBlockTableRecordPtr newBlock(const OdString& name)
    {
        OdDbBlockTablePtr table = database->getBlockTableId().safeOpenObject(OdDb::kForWrite);
        OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
        block->setName(name);
        table->add(block);
        return block;
    }

    OdDbBlockTableRecordPtr modelSpace() { return database->getModelSpaceId().safeOpenObject(OdDb::kForWrite); }

    OdDbObjectId addLine(OdDbBlockTableRecord& block, const OdGePoint3d& from, const OdGePoint3d& to)
    {
        OdDbLinePtr line = OdDbLine::createObject();
        line->setStartPoint(from);
        line->setEndPoint(to);
        return block.appendOdDbEntity(line);
    }

    OdDbObjectId addReference(OdDbBlockTableRecord& into, OdDbObjectId block, const OdGePoint3d& position,
                              const OdGeScale3d& scale = OdGeScale3d(), double rotation = 0.0)
    {
        OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
        const OdDbObjectId id = into.appendOdDbEntity(reference);
        reference->setBlockTableRecord(block);
        reference->setPosition(position);
        reference->setScaleFactors(scale);
        reference->setRotation(rotation);
        return id;
    }

    static void expectBoxAt(OdDbObjectId id, const Box& expected, const char* what)
    {
        expectBoxOf(*OdDbEntityPtr(id.safeOpenObject()), expected, 1e-9, what);
    }

    OdDbDatabasePtr database = OdDbDatabase::createObject();
};

constexpr double kQuarter = 1.57079632679489661923;

TEST_F(DrawingTest, ReferencesPlaceScaleTurnAndMirrorTheirBlock)
{
    OdDbBlockTableRecordPtr block = newBlock(L"B");
    block->setOrigin(OdGePoint3d(1, 0, 0));
    addLine(*block, OdGePoint3d(1, 0, 0), OdGePoint3d(3, 1, 0));
    const OdDbObjectId id = block->objectId();
    block.release();
    const struct
    {
        const char* what;
        OdGePoint3d position;
        OdGeScale3d scale;
        double rotation;
        Box box;
    } rows[] = {
        {"placed", {10, 20, 5}, {1, 1, 1}, 0, {10, 20, 5, 12, 21, 5}},
        {"scaled", {10, 20, 0}, {2, 3, 1}, 0, {10, 20, 0, 14, 23, 0}},
        {"turned", {10, 20, 0}, {1, 1, 1}, kQuarter, {9, 20, 0, 10, 22, 0}},
        {"mirrored in x", {10, 20, 0}, {-1, 1, 1}, 0, {8, 20, 0, 10, 21, 0}},
        {"mirrored in y and turned", {10, 20, 0}, {1, -2, 1}, kQuarter, {10, 20, 0, 12, 22, 0}},
    };
    OdDbBlockTableRecordPtr model = modelSpace();
    for (const auto& row : rows)
        expectBoxAt(addReference(*model, id, row.position, row.scale, row.rotation), row.box, row.what);
}

TEST_F(DrawingTest, NestedReferencesMultiplyTheirTransforms)
{
    OdDbBlockTableRecordPtr inner = newBlock(L"INNER");
    addLine(*inner, OdGePoint3d(0, 0, 0), OdGePoint3d(1, 2, 0));
    OdDbBlockTableRecordPtr outer = newBlock(L"OUTER");
    addReference(*outer, inner->objectId(), OdGePoint3d(10, 0, 0), OdGeScale3d(2, 2, 2), kQuarter);
    OdDbBlockTableRecordPtr model = modelSpace();
    const OdDbObjectId id =
        addReference(*model, outer->objectId(), OdGePoint3d(100, 0, 0), OdGeScale3d(3, 3, 3), kQuarter);
    // (0,0)-(1,2) doubled and turned is (0,0)-(-4,2), moved (10,0)-(6,2), tripled and turned (0,30)-(-6,18).
    expectBoxAt(id, {94, 18, 0, 100, 30, 0}, "nested");
    const OdDbBlockReferencePtr reference = id.safeOpenObject();
    OdGeExtents3d fitted;
    ASSERT_EQ(reference->geomExtentsBestFit(fitted, OdGeMatrix3d::rotation(kQuarter, OdGeVector3d(0, 0, 1))), eOk);
    expectBox(fitted, {-30, 94, 0, -18, 100, 0}, 1e-9, "turned once more");
}

TEST_F(DrawingTest, BestFitIsNoBoxOfABox)
{
    OdDbBlockTableRecordPtr block = newBlock(L"C");
    OdDbCirclePtr circle = OdDbCircle::createObject();
    circle->setRadius(1);
    block->appendOdDbEntity(circle);
    OdDbBlockTableRecordPtr model = modelSpace();
    const OdDbObjectId id = addReference(*model, block->objectId(), OdGePoint3d(0, 0, 0));
    const OdDbBlockReferencePtr reference = id.safeOpenObject();
    OdGeExtents3d fitted;
    ASSERT_EQ(reference->geomExtentsBestFit(fitted, OdGeMatrix3d::rotation(kQuarter / 2, OdGeVector3d(0, 0, 1))), eOk);
    expectBox(fitted, {-1, -1, 0, 1, 1, 0}, 1e-9, "turned circle");
}

TEST_F(DrawingTest, BlocksThatContainThemselvesEnd)
{
    OdDbBlockTableRecordPtr a = newBlock(L"A");
    OdDbBlockTableRecordPtr b = newBlock(L"B");
    addLine(*a, OdGePoint3d(0, 0, 0), OdGePoint3d(1, 1, 0));
    addLine(*b, OdGePoint3d(0, 0, 0), OdGePoint3d(0, 5, 0));
    addReference(*a, a->objectId(), OdGePoint3d(100, 0, 0));
    addReference(*a, b->objectId(), OdGePoint3d(2, 0, 0));
    addReference(*b, a->objectId(), OdGePoint3d(100, 0, 0));
    OdDbBlockTableRecordPtr model = modelSpace();
    expectBoxAt(addReference(*model, a->objectId(), OdGePoint3d()), {0, 0, 0, 2, 5, 0}, "self-containing");
}

TEST_F(DrawingTest, BlocksNestedWithoutMeasureTakeNoMeasurelessTime)
{
    // Each block holds the one before it ten times: 10^30 lines in all.
    OdDbBlockTableRecordPtr below = newBlock(L"L0");
    addLine(*below, OdGePoint3d(0, 0, 0), OdGePoint3d(1, 1, 0));
    for (int level = 1; level <= 30; ++level)
    {
        OdString name;
        name.format(L"L%d", level);
        OdDbBlockTableRecordPtr block = newBlock(name);
        for (int i = 0; i < 10; ++i)
            addReference(*block, below->objectId(), OdGePoint3d(i, 0, 0));
        below = block;
    }
    OdDbBlockTableRecordPtr model = modelSpace();
    const OdDbObjectId id = addReference(*model, below->objectId(), OdGePoint3d());
    const auto start = std::chrono::steady_clock::now();
    expectBoxAt(id, {0, 0, 0, 1 + 9 * 30, 1, 0}, "bomb");
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_LT(taken.count(), 20.0);
}

TEST_F(DrawingTest, ChainsOfBlocksDeeperThanAnyoneDrawsDoNotExhaustTheStack)
{
    OdDbBlockTableRecordPtr below = newBlock(L"L0");
    addLine(*below, OdGePoint3d(0, 0, 0), OdGePoint3d(1, 1, 0));
    for (int level = 1; level <= 5000; ++level)
    {
        OdString name;
        name.format(L"L%d", level);
        OdDbBlockTableRecordPtr block = newBlock(name);
        addLine(*block, OdGePoint3d(0, 0, 0), OdGePoint3d(0, 0, 1));
        addReference(*block, below->objectId(), OdGePoint3d(0, 0, 0));
        below = block;
    }
    OdDbBlockTableRecordPtr model = modelSpace();
    expectBoxAt(addReference(*model, below->objectId(), OdGePoint3d()), {0, 0, 0, 0, 0, 1}, "deep chain");
}

TEST_F(DrawingTest, ArraysReachFromTheirFirstCellToTheirLast)
{
    OdDbBlockTableRecordPtr block = newBlock(L"CELL");
    addLine(*block, OdGePoint3d(0, 0, 0), OdGePoint3d(1, 1, 0));
    OdDbBlockTableRecordPtr model = modelSpace();
    OdDbMInsertBlockPtr array = OdDbMInsertBlock::createObject();
    model->appendOdDbEntity(array);
    array->setBlockTableRecord(block->objectId());
    array->setColumns(4);
    array->setRows(3);
    array->setColumnSpacing(10);
    array->setRowSpacing(-20);
    const Box straight = boxOf(*array);
    EXPECT_NEAR(straight.x1, 31, 1e-9);
    EXPECT_NEAR(straight.y0, -40, 1e-9);
    EXPECT_NEAR(straight.y1, 1, 1e-9);
    array->setRotation(kQuarter);
    array->setScaleFactors(OdGeScale3d(2, 2, 2));
    const Box turned = boxOf(*array);
    EXPECT_NEAR(turned.x0, -2, 1e-9);
    EXPECT_NEAR(turned.x1, 40, 1e-9);
    EXPECT_NEAR(turned.y1, 32, 1e-9);
    array->setColumns(60000);
    array->setRows(60000);
    array->setColumnSpacing(1);
    array->setRowSpacing(1);
    EXPECT_NEAR(boxOf(*array).y1, 60001, 1e-6);
    EXPECT_THROW(array->setRows(0), OdError);
}

TEST_F(DrawingTest, AttributesBelongToTheirReferenceInEverything)
{
    OdDbBlockTableRecordPtr block = newBlock(L"B");
    addLine(*block, OdGePoint3d(0, 0, 0), OdGePoint3d(1, 1, 0));
    OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
    definition->setTag(L"A_VERY_LONG_TAG_THAT_NO_REFERENCE_SHOWS");
    block->appendOdDbEntity(definition);
    OdDbBlockTableRecordPtr model = modelSpace();
    const OdDbObjectId id = addReference(*model, block->objectId(), OdGePoint3d());
    OdDbBlockReferencePtr reference = id.safeOpenObject(OdDb::kForWrite);
    OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setTag(L"T");
    attribute->setTextString(L"HHH");
    attribute->setHeight(2);
    attribute->setPosition(OdGePoint3d(0, 10, 0));
    const OdDbObjectId attributeId = reference->appendAttribute(attribute);
    EXPECT_THROW(reference->appendAttribute(attribute), OdError);
    attribute.release();
    const double width = shapedText(L"HHH").ink.maxPoint().x * 2;
    const Box before = boxOf(*reference);
    EXPECT_NEAR(before.x1, width, 1e-9);
    EXPECT_NEAR(before.y1, 12, 1e-9);

    ASSERT_EQ(reference->transformBy(OdGeMatrix3d::translation(OdGeVector3d(100, 0, 0))), eOk);
    EXPECT_NEAR(boxOf(*reference).x1, 100 + width, 1e-9);

    EXPECT_EQ(reference->setColorIndex(5), eOk);
    EXPECT_EQ(OdDbEntityPtr(attributeId.safeOpenObject())->colorIndex(), 5);

    reference->erase();
    EXPECT_TRUE(attributeId.isErased());
    reference->erase(false);
    EXPECT_FALSE(attributeId.isErased());

    // What was erased by itself stays so when its owner comes back.
    OdDbObjectPtr(attributeId.safeOpenObject(OdDb::kForWrite))->erase();
    EXPECT_TRUE(reference->attributeIterator()->done());
    reference->erase();
    reference->erase(false);
    EXPECT_TRUE(attributeId.isErased());
}

TEST_F(DrawingTest, VerticesMakeTheShapeOfTheirPolyline)
{
    OdDbBlockTableRecordPtr model = modelSpace();
    OdDb2dPolylinePtr polyline = OdDb2dPolyline::createObject();
    OdDb2dVertexPtr homeless = OdDb2dVertex::createObject();
    EXPECT_THROW(polyline->appendVertex(homeless), OdError);
    model->appendOdDbEntity(polyline);
    const double bulges[] = {1, 0};
    for (int i = 0; i < 2; ++i)
    {
        OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
        vertex->setPosition(OdGePoint3d(2 * i, 0, 0));
        vertex->setBulge(bulges[i]);
        polyline->appendVertex(vertex);
    }
    polyline->setElevation(3);
    const Box box = boxOf(*polyline);
    EXPECT_NEAR(box.y0, -1, 1e-9);
    EXPECT_NEAR(box.z0, 3, 1e-9);
    ASSERT_EQ(polyline->transformBy(OdGeMatrix3d::rotation(kQuarter, OdGeVector3d(1, 0, 0))), eOk);
    const Box stood = boxOf(*polyline);
    EXPECT_NEAR(stood.z0, -1, 1e-9);
    EXPECT_NEAR(stood.y0, -3, 1e-9);
    EXPECT_NEAR(stood.x1, 2, 1e-9);
}

TEST_F(DrawingTest, SettersRefuseEntitiesThatAreOpenForRead)
{
    OdDbBlockTableRecordPtr model = modelSpace();
    const OdDbObjectId id = addLine(*model, OdGePoint3d(0, 0, 0), OdGePoint3d(1, 0, 0));
    OdDbLinePtr line = id.safeOpenObject();
    EXPECT_THROW(line->setEndPoint(OdGePoint3d(5, 5, 5)), OdError);
    EXPECT_THROW(line->setColorIndex(1), OdError);
    EXPECT_THROW(line->transformBy(OdGeMatrix3d::translation(OdGeVector3d(1, 1, 1))), OdError);
    EXPECT_EQ(line->endPoint(), OdGePoint3d(1, 0, 0));
    EXPECT_EQ(line->setLayer(L"no such layer"), eKeyNotFound);
    EXPECT_EQ(line->layer(), OdString(L"0"));
}

} // namespace
