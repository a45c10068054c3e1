// Attacks the views that a drawing is shown in: changed without a trace in the history, and there again after saving.

#include "DbBlockTableRecord.h"
#include "DbLine.h"
#include "DbViewportTableRecord.h"
#include "ObjectsTest.h"
#include "support/DrawingFiles.h"

namespace
{

using namespace objectstest;

using ViewTest = ObjectsTest;

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
    }
    database->disableUndoRecording(false);
    EXPECT_EQ(database->undoMark(), mark);
    database->undo();
    EXPECT_FALSE(database->hasUndo());
    const OdDbDatabasePtr read = support::savedAndRead(*database);
    const auto view = open<OdDbViewportTableRecord>(read->activeViewportId());
    EXPECT_TRUE(view->centerPoint() == OdGePoint2d(3, -4) && view->target() == OdGePoint3d(1, 2, 3));
    EXPECT_DOUBLE_EQ(view->height(), 25);
    EXPECT_DOUBLE_EQ(view->width(), 50);
    EXPECT_TRUE(view->viewDirection().isEqualTo(OdGeVector3d(0, 1, 1)));
}

} // namespace
