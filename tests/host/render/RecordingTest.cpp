// What entities have told while the reach of a space was found is drawn as if they were asked again.
#include "DbBlockTableRecord.h"
#include "DbCircle.h"
#include "DbLine.h"
#include "Ge/GeMatrix3d.h"
#include "Gi/GiDrawableOverrule.h"
#include "Gi/GiTextStyle.h"
#include "PaintedPicture.h"
#include "render/SpaceDraw.h"
#include "support/DrawingFiles.h"

namespace
{

using rendertest::PictureTest;
using rendertest::square;

/// Draws beside circles in all ways that there are, which their places tell, and beside whole spaces.
class Inventor : public OdGiDrawableOverrule
{
public:
    explicit Inventor(OdRxClass* overruled) : m_overruled(overruled)
    {
        OdRxOverrule::addOverrule(m_overruled, this);
        OdRxOverrule::setIsOverruling(true);
    }
    ~Inventor() override
    {
        OdRxOverrule::setIsOverruling(false);
        OdRxOverrule::removeOverrule(m_overruled, this);
    }

    bool worldDraw(const OdGiDrawable* subject, OdGiWorldDraw* worldDraw) override
    {
        OdGiGeometry& to = worldDraw->geometry();
        OdGiSubEntityTraits& looks = worldDraw->subEntityTraits();
        const OdGePoint3d points[] = {{1, 1, 0}, {40, 2, 5}, {30, 40, 0}};
        const OdGeVector3d up(0, 0, 1);
        const OdGeVector3d across(0.6, 0.8, 0);
        OdGiTextStyle style;
        const OdDbCirclePtr circle = OdDbCircle::cast(subject);
        switch (circle.isNull() ? 0 : static_cast<int>(circle->center().x) % 12)
        {
        case 0:
            looks.setColor(1);
            looks.setThickness(3);
            to.polyline(3, points, &across);
            break;
        case 1:
            to.polyline(3, points);
            looks.setFillType(kOdGiFillAlways);
            to.polygon(3, points);
            break;
        case 2:
            to.text(points[1], up, across, L"not ended here", 9, true, nullptr);
            style.setTextSize(7);
            style.setUnderlined(true);
            to.text(points[2], up, across, L"%%c50", 5, false, &style);
            break;
        case 3:
            to.text(points[0], up, across, 8, 0.7, 0.2, L"in the font of drawings");
            break;
        case 4:
            to.ellipArc(points[0], OdGeVector3d(20, 5, 0), OdGeVector3d(-2, 8, 0), 1, -4);
            to.circularArc(points[1], 5, -up, across, 2, kOdGiArcSector);
            to.circle(points[2], 6, up);
            break;
        case 5:
            to.pushModelTransform(OdGeMatrix3d::translation(OdGeVector3d(5, 5, 0)));
            to.polyline(3, points);
            to.popModelTransform();
            break;
        case 6: // as a circle and as something within it
            to.circle(points[2], 4, up);
            to.draw(&*m_line);
            break;
        case 7:
            to.circle(points[2], 30 + worldDraw->deviation(), up);
            break;
        case 8:
            to.circle(points[2], worldDraw->regenType() == kOdGiForExtents ? 50 : 25, up);
            break;
        case 9:
            to.xline(points[0], points[1]);
            to.circle(points[0], 9, up);
            break;
        case 10:
        {
            const OdInt32 faces[] = {3, 0, 1, 2};
            to.circle(points[0], 3, up);
            to.shell(3, points, 4, faces);
            break;
        }
        default:
            break;
        }
        return OdGiDrawableOverrule::worldDraw(subject, worldDraw);
    }

private:
    OdRxClass* m_overruled;
    OdDbLinePtr m_line = OdDbLine::createObject();
};

class RecordingTest : public PictureTest
{
protected:
    RecordingTest() { order.window.reset(); }

    /// True when the space of a layout has been recorded, and looks the same when all entities are asked.
    bool isRecordedAsAsked(const session::OpenDrawing& drawing, render::Format format)
    {
        const OdDbLayoutPtr layout = render::findLayout(drawing.database(), order.layout);
        render::View view = render::viewOf(drawing.database(), *layout, order);
        const render::PageSize size = render::fitPage(view, *layout, order);
        const bool isRecorded = view.recording.has_value();
        const auto paint = [&]
        {
            const std::unique_ptr<render::Canvas> canvas =
                format == render::Format::kSvg ? render::makeSvgCanvas(order.file, size, order.background)
                                               : render::makePngCanvas(order.file, size, order.background);
            render::Looks looks(order.background, canvas->thinnestLine(), 3.8, drawing.database().getLTSCALE());
            OdStaticRxObject<render::SpaceDraw> draw(*canvas, looks, drawing.database());
            draw.drawSpace(layout->getBlockTableRecordId(), view, {{0, 0}, {double(size.width), double(size.height)}});
            canvas->finish();
            return support::readWholeFile(order.file);
        };
        const std::string told = paint();
        view.recording.reset();
        EXPECT_TRUE(told == paint());
        return isRecorded;
    }

    void writeOwn()
    {
        support::Content content;
        content.entities = {
            square("A1", "LOCKED", 0, 0),
            square("A2", "OFF", 50, 0),
            "INSERT A3 OFF|62 3|100 AcDbBlockReference|2 B|10 20|20 20|50 30",
            square("A4", "0", 5, 5, "62 0"),
            "LWPOLYLINE A5 LOCKED|100 AcDbPolyline|90 3|70 1|43 2|10 0|20 0|42 1|10 60|20 0|10 50|20 40",
            "POINT A6 0|100 AcDbPoint|10 20|20 70",
            "INSERT A7 0|100 AcDbBlockReference|2 *MODEL_SPACE|10 5|20 3",
            "MTEXT A8 0|100 AcDbMText|10 50|20 50|40 5|41 30|71 1|72 1|1 a {\\C1;red} b",
            "TEXT A9 0|100 AcDbText|10 90|20 90|40 30|1 turned|50 30",
        };
        for (int i = 0; i < 24; ++i)
            content.entities.push_back("CIRCLE " + std::to_string(300 + i) + (i % 2 ? " LOCKED" : " 0") +
                                       "|100 AcDbCircle|10 " + std::to_string(i) + "|20 50|40 6");
        content.blocks = {{"B", {square("E1", "0", 0, 0, "62 0"), "LINE E3 0|100 AcDbLine|10 0|20 0|11 9|21 0"}}};
        support::writeWholeFile(path("own.dxf"), support::drawingOf(content));
    }
};

TEST_F(RecordingTest, IsDrawnAsIfEntitiesWereAsked)
{
    writeOwn();
    std::vector<std::string> files = support::realDrawings();
    files.push_back(path("own.dxf"));
    for (const std::string& file : files)
    {
        const session::OpenDrawing drawing(odUtf8ToString(file));
        EXPECT_TRUE(isRecordedAsAsked(drawing, render::Format::kSvg)) << file;
        EXPECT_TRUE(isRecordedAsAsked(drawing, render::Format::kPng)) << file;
    }
}

TEST_F(RecordingTest, KeepsWhatApplicationsDraw)
{
    writeOwn();
    const session::OpenDrawing drawing(odUtf8ToString(path("own.dxf")));
    {
        OdStaticRxObject<Inventor> inventor(OdDbCircle::desc());
        EXPECT_TRUE(isRecordedAsAsked(drawing, render::Format::kSvg));
    }
    // What is drawn beside the entities of a space comes anywhere among them.
    OdStaticRxObject<Inventor> inventor(OdDbBlockTableRecord::desc());
    EXPECT_FALSE(isRecordedAsAsked(drawing, render::Format::kSvg));
}

/// A drawing that is too large to be kept whole is drawn whole.
TEST_F(RecordingTest, GoesOnAskingWhenItIsFull)
{
    render::Recording recording;
    const std::vector<OdGePoint3d> points(1 << 20);
    int kept = 0;
    for (; !recording.isFull() && kept < 100; ++kept)
    {
        recording.beginEntity({});
        recording.addPolyline(static_cast<OdInt32>(points.size()), points.data(), nullptr);
        recording.keepEntity();
    }
    EXPECT_EQ(kept, 4) << "of 24 MB each";
}

} // namespace
