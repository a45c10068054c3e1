// Attacks the views that a drawing is shown in: changed without a trace in the history, and there again after saving.
#include <limits>

#include "DbBlockTableRecord.h"
#include "DbLine.h"
#include "DbViewport.h"
#include "DbViewportTableRecord.h"
#include "ObjectsTest.h"
#include "db/DxfClassTable.h"
#include "support/TemporaryFolder.h"

namespace
{

using namespace objectstest;

class ViewTest : public ObjectsTest
{
protected:
    OdDbDatabasePtr savedAndRead() const
    {
        const support::TemporaryFolder folder;
        const OdString file = odUtf8ToString(folder.path("view.dxf"));
        database->writeFile(file);
        OdDbDatabasePtr read = OdDbDatabase::createObject();
        read->readFile(file);
        return read;
    }
    void showSheet() const
    {
        const OdDbViewportPtr sheet = OdDbViewport::createObject();
        open<OdDbBlockTableRecord>(database->getPaperSpaceId(), OdDb::kForWrite)->appendOdDbEntity(sheet);
        const oddb::DxfClass& cls = *oddb::findDxfClass("VIEWPORT");
        oddb::ObjectCore::changeGroups(
            *sheet, oddb::withInteger(oddb::ObjectCore::groups(*sheet), cls, *cls.subclass("AcDbViewport"), 69, 1));
        database->setSysVar(L"TILEMODE", OdResBuf::newRb(70, OdInt16(0)));
    }
};

TEST_F(ViewTest, OfTheModelIsSavedAndNotUndone)
{
    recorded(
        [&]
        {
            open<OdDbBlockTableRecord>(database->getModelSpaceId(), OdDb::kForWrite)
                ->appendOdDbEntity(OdDbLine::createObject());
        });
    const OdUInt64 mark = database->undoMark();
    database->disableUndoRecording(true);
    {
        const auto view = open<OdDbViewportTableRecord>(database->activeViewportId(), OdDb::kForWrite);
        view->setCenterPoint(OdGePoint2d(3, -4));
        view->setHeight(25);
        view->setWidth(50);
        view->setTarget(OdGePoint3d(1, 2, 3));
        view->setViewDirection(OdGeVector3d(0, 1, 1));
        EXPECT_EQ(codeOf([&] { view->setHeight(0); }), eInvalidInput);
        EXPECT_EQ(codeOf([&] { view->setWidth(-1); }), eInvalidInput);
        EXPECT_EQ(codeOf([&] { view->setViewDirection(OdGeVector3d()); }), eInvalidInput);
    }
    database->disableUndoRecording(false);
    EXPECT_EQ(database->undoMark(), mark);
    database->undo();
    EXPECT_FALSE(database->hasUndo());
    const OdDbDatabasePtr read = savedAndRead();
    const auto view = open<OdDbViewportTableRecord>(read->activeViewportId());
    EXPECT_TRUE(view->centerPoint() == OdGePoint2d(3, -4) && view->target() == OdGePoint3d(1, 2, 3));
    EXPECT_DOUBLE_EQ(view->height(), 25);
    EXPECT_DOUBLE_EQ(view->width(), 50);
    EXPECT_TRUE(view->viewDirection().isEqualTo(OdGeVector3d(0, 1, 1)));
}

TEST_F(ViewTest, OfASheetIsItsOwnViewport)
{
    database->setSysVar(L"TILEMODE", OdResBuf::newRb(70, OdInt16(0)));
    EXPECT_EQ(database->activeViewportId(), database->currentLayoutId()) << "the sheet was never shown";
    showSheet();
    const auto view = open<OdDbViewport>(database->activeViewportId(), OdDb::kForWrite);
    EXPECT_EQ(view->number(), 1);
    view->setViewCenter(OdGePoint2d(5, 6));
    view->setViewHeight(7);
    view->setViewTarget(OdGePoint3d(1, 0, 0));
    view->setViewDirection(OdGeVector3d(0, 0, 2));
    view->setTwistAngle(0.5);
    EXPECT_EQ(codeOf([&] { view->setViewHeight(std::numeric_limits<double>::infinity()); }), eInvalidInput);
    EXPECT_EQ(codeOf([&] { view->setViewCenter(OdGePoint2d(std::nan(""), 0)); }), eInvalidInput);
    const OdDbDatabasePtr read = savedAndRead();
    const auto again = open<OdDbViewport>(read->activeViewportId());
    EXPECT_TRUE(again->viewCenter() == OdGePoint2d(5, 6) && again->viewTarget() == OdGePoint3d(1, 0, 0));
    EXPECT_DOUBLE_EQ(again->viewHeight(), 7);
    EXPECT_DOUBLE_EQ(again->twistAngle(), 0.5);
    EXPECT_EQ(again->blockId(), read->getPaperSpaceId());
}

} // namespace
