// Vertices and attributes go where their owner goes: into copies, into a drawing, through every move.
#include "Db2dPolyline.h"
#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "EntityTest.h"
#include "Ge/GeMatrix3d.h"
#include "db/DatabaseImpl.h"

namespace
{

using namespace entitytest;

class OwnedTest : public EntityTest
{
protected:
    OwnedTest()
    {
        database = OdDbDatabase::createObject();
        database->initialize();
        const OdDb2dPolylinePtr made = OdDb2dPolyline::createObject();
        polyline = space()->appendOdDbEntity(made);
        for (const double x : {1.0, 4.0})
        {
            const OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
            vertex->setPosition(OdGePoint3d(x, x, 0));
            vertices.push_back(made->appendVertex(vertex));
        }
        const OdDbBlockReferencePtr inserted = OdDbBlockReference::createObject();
        reference = space()->appendOdDbEntity(inserted);
        const OdDbAttributePtr text = OdDbAttribute::createObject();
        text->setTextString(L"A");
        attribute = inserted->appendAttribute(text);
        database->clearUndo();
    }

    OdDbBlockTableRecordPtr space() const { return database->getModelSpaceId().safeOpenObject(OdDb::kForWrite); }
    static OdDbEntityPtr open(const OdDbObjectId& id, OdDb::OpenMode mode = OdDb::kForRead)
    {
        return OdDbEntityPtr(id.safeOpenObject(mode));
    }
    static OdGePoint3d positionOf(const OdDbObjectId& vertex) { return OdDb2dVertexPtr(open(vertex))->position(); }
    /// Everything that the drawing's entities say of themselves.
    std::vector<oddb::Groups> state() const
    {
        std::vector<oddb::Groups> all;
        database->impl().stubs.visit(
            [&](const OdDbStub& stub)
            {
                if (!stub.isErased() && stub.object->isKindOf(OdDbEntity::desc()))
                    all.push_back(oddb::ObjectCore::groups(*stub.object));
            });
        return all;
    }

    OdDbDatabasePtr database;
    OdDbObjectId polyline, reference, attribute;
    std::vector<OdDbObjectId> vertices;
};

TEST_F(OwnedTest, CopiesInMemoryHaveTheirOwn)
{
    const std::vector<oddb::Groups> before = state();
    const OdGeMatrix3d move = OdGeMatrix3d::translation({10, 20, 0});
    OdDbEntityPtr copy, inserted;
    ASSERT_EQ(open(polyline)->getTransformedCopy(move, copy), eOk);
    ASSERT_EQ(open(reference)->getTransformedCopy(move, inserted), eOk);
    EXPECT_TRUE(state() == before) << "the originals stay";
    expectBoxOf(*copy, {11, 21, 0, 14, 24, 0}, 1e-9, "copy");
    EXPECT_GT(boxOf(*inserted).y0, 19.0);

    OdDbEntityPtr second = OdDbEntity::cast(copy->clone());
    ASSERT_EQ(second->transformBy(move), eOk);
    EXPECT_NEAR(boxOf(*copy).x0, 11, 1e-9) << "copies of copies are their own, too";
    EXPECT_NEAR(boxOf(*second).x0, 21, 1e-9);

    database->startUndoRecord();
    const OdDbObjectId id = space()->appendOdDbEntity(copy);
    const OdDbObjectId insertedId = space()->appendOdDbEntity(inserted);
    copy = inserted = nullptr;
    EXPECT_NEAR(boxOf(*open(id)).x1, 14, 1e-9);
    int count = 0;
    for (OdDbObjectIteratorPtr vertex = OdDb2dPolylinePtr(open(id))->vertexIterator(); !vertex->done(); vertex->step())
    {
        EXPECT_EQ(vertex->entity()->ownerId(), id);
        ++count;
    }
    EXPECT_EQ(count, 2);
    EXPECT_FALSE(OdDbBlockReferencePtr(open(insertedId))->attributeIterator()->done());
    database->undo();
    EXPECT_TRUE(state() == before);
}

TEST_F(OwnedTest, MovesAreWholeOrNotAtAll)
{
    const std::vector<oddb::Groups> before = state();
    {
        const OdDbEntityPtr held = open(vertices[1], OdDb::kForWrite);
        EXPECT_EQ(open(polyline, OdDb::kForWrite)->transformBy(OdGeMatrix3d::translation({1, 0, 0})), eWasOpenForWrite);
    }
    EXPECT_EQ(open(reference, OdDb::kForWrite)->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(1, 3, 1))),
              eCannotScaleNonUniformly)
        << "its text cannot be stretched so";
    EXPECT_TRUE(state() == before);
    EXPECT_EQ(open(polyline, OdDb::kForWrite)->transformBy(OdGeMatrix3d::translation({1, 0, 0})), eOk);
    EXPECT_TRUE(positionOf(vertices[1]) == OdGePoint3d(5, 4, 0));
    database->undo();
    EXPECT_TRUE(state() == before);
}

TEST_F(OwnedTest, ExtendedDataGoesWithItsEntity)
{
    database->newRegApp(L"TESTED");
    const OdResBufPtr chain = OdResBuf::newRb(1001, L"TESTED");
    for (const int code : {1010, 1011, 1012, 1013})
        chain->last()->setNext(OdResBuf::newRb(code, OdGePoint3d(1, 2, 0)));
    for (const int code : {1040, 1041, 1042})
        chain->last()->setNext(OdResBuf::newRb(code, 5.0));
    open(polyline, OdDb::kForWrite)->setXData(chain);
    database->startUndoRecord();
    // turned by a right angle, doubled, moved
    OdGeMatrix3d xform = OdGeMatrix3d::translation({10, 0, 0}) * OdGeMatrix3d::scaling(2.0) *
                         OdGeMatrix3d::rotation(OdaPI2, OdGeVector3d::kZAxis);
    ASSERT_EQ(open(polyline, OdDb::kForWrite)->transformBy(xform), eOk);
    const OdResBufPtr moved = open(polyline)->xData(L"TESTED");
    OdResBufPtr at = moved->next();
    for (const OdGePoint3d& expected :
         {OdGePoint3d(1, 2, 0), OdGePoint3d(6, 2, 0), OdGePoint3d(-4, 2, 0), OdGePoint3d(-2, 1, 0)})
    {
        EXPECT_TRUE(at->getPoint3d().isEqualTo(expected)) << at->restype();
        at = at->next();
    }
    for (const double expected : {5.0, 10.0, 10.0})
    {
        EXPECT_NEAR(at->getDouble(), expected, 1e-9) << at->restype();
        at = at->next();
    }
    database->undo();
    EXPECT_TRUE(open(polyline)->xData(L"TESTED")->next()->next()->getPoint3d() == OdGePoint3d(1, 2, 0));
}

} // namespace
