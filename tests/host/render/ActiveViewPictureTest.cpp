// What a picture of the active view shows after a session has zoomed or panned: what was zoomed to, and nothing else.
#include "PaintedPicture.h"
#include "support/SessionClient.h"

namespace
{

using namespace rendertest;
using support::Answer;

struct Row
{
    const char* what;
    const char* header; // settings
    const char* view;   // of the model
    const char* sheet;  // the groups of the sheet's viewport behind its place; null for a picture of the model
};

constexpr const char* kModel = "";
constexpr const char* kSheet = "9 $TILEMODE|70 0";
constexpr const char* kFromAbove = "12 0|22 0|40 100|41 1.5|16 0|26 0|36 1";

const Row kRows[] = {
    {"the model from above", kModel, kFromAbove, nullptr},
    {"the model around a target", kModel, "12 7|22 9|40 100|41 1.5|16 0|26 0|36 1|17 300|27 -200|37 50", nullptr},
    {"twisted", kModel, "12 0|22 0|40 100|41 1|16 0|26 0|36 1|17 30|27 20|37 0|51 30", nullptr},
    {"tilted", kModel, "12 0|22 0|40 100|41 0.7|16 1|26 -2|36 3|17 30|27 20|37 0", nullptr},
    {"twisted and tilted", kModel, "12 0|22 0|40 100|41 2|16 -3|26 1|36 2|17 30|27 20|37 9|51 200", nullptr},
    {"hardly tilted", kModel, "12 0|22 0|40 100|41 1|16 0.01|26 0|36 1|17 30|27 20|37 0", nullptr},
    {"from below", kModel, "12 0|22 0|40 100|41 1|16 0|26 0|36 -1|17 30|27 20|37 0|51 10", nullptr},
    {"a sheet", kSheet, kFromAbove, "12 50|22 50|17 0|27 0|37 0|16 0|26 0|36 1|45 80"},
    {"a sheet with a target", kSheet, kFromAbove, "12 45|22 50|17 5|27 0|37 0|16 0|26 0|36 1|45 80"},
    {"a sheet with a twist", kSheet, kFromAbove, "12 50|22 50|17 0|27 0|37 0|16 0|26 0|36 1|45 80|51 30"},
    {"a sheet that says nothing of its view", kSheet, kFromAbove, ""},
};

class ActiveViewPicture : public PictureTest
{
protected:
    /// Two squares, of which A1 is red: at (60, 30), with sides of 10.
    void write(const Row& row)
    {
        support::Content content;
        content.header = *row.header ? support::groups(row.header) : "";
        content.view = row.view;
        const std::string space = row.sheet == nullptr ? "" : "67 1|";
        content.entities = {square("A1", "0", 60, 30, space + "62 1"), square("A2", "0", 0, 90, space + "62 5")};
        if (row.sheet != nullptr)
            content.entities.push_back(
                std::string("VIEWPORT B1 0|67 1|100 AcDbViewport|10 50|20 50|40 160|41 80|68 1|69 1") +
                (*row.sheet ? "|" : "") + row.sheet);
        support::writeWholeFile(path("drawing.dxf"), support::drawingOf(content));
    }

    /// Runs the command in a session, saves the drawing and paints what its active view shows.
    void paintAfter(const char* command, const std::string& parameters)
    {
        {
            support::SessionClient session(path("drawing.dxf"));
            const std::string label = session.run("BSYSTEMLABELCREATE", R"({"OBJECTIDARRAY": {"objectIds": ["A1"]}})")
                                          .text("/result/OBJECTID/objectId");
            std::string with = parameters;
            if (const std::size_t place = with.find("LABEL"); place != std::string::npos)
                with.replace(place, 5, label);
            const Answer answer = session.run(command, with);
            EXPECT_EQ(answer.state(), "ended") << answer.line();
            EXPECT_EQ(session.run("SAVE").state(), "ended");
        }
        order.window.reset();
        order.size.reset();
        order.isActiveView = true;
        const session::OpenDrawing drawing(odUtf8ToString(path("drawing.dxf")));
        render::paintPicture(drawing.database(), order);
    }
};

/// The box around all that is red, in parts of the picture.
OdGeExtents2d redIn(const Pixels& pixels)
{
    OdGeExtents2d box;
    for (int y = 0; y < pixels.height(); ++y)
        for (int x = 0; x < pixels.width(); ++x)
            if (const render::Color color = pixels.at(x, y); color.red > 128 && color.green < 128)
                box.addPoint({double(x) / pixels.width(), double(y) / pixels.height()})
                    .addPoint({(x + 1.0) / pixels.width(), (y + 1.0) / pixels.height()});
    return box;
}

TEST_F(ActiveViewPicture, ShowsWhatWasZoomedOrPannedTo)
{
    // Commands, and whether they fill the picture.
    const std::tuple<const char*, const char*, bool> looks[] = {
        {"ZOOMEXTENTS", R"({"EXTENTS": {"extents": [[60, 30, 0], [70, 40, 0]]}})", true},
        {"BSYSTEMLABELZOOM", R"({"OBJECTIDARRAY": {"objectIds": ["LABEL"]}})", true},
        {"DOLLY", R"({"POINT": {"point": [65, 35, 0]}})", false},
        {"BSYSTEMLABELDOLLY", R"({"OBJECTIDARRAY": {"objectIds": ["LABEL"]}})", false}};
    for (const Row& row : kRows)
        for (const auto& [command, parameters, isFilled] : looks)
        {
            SCOPED_TRACE(std::string(row.what) + ", " + command);
            write(row);
            paintAfter(command, parameters);
            const OdGeExtents2d red = redIn(Pixels(order.file));
            EXPECT_TRUE(red.isValidExtents()) << "nothing of it is seen";
            if (!red.isValidExtents())
                continue;
            EXPECT_NEAR(red.center().x, 0.5, 0.004);
            EXPECT_NEAR(red.center().y, 0.5, 0.004);
            const OdGeVector2d size = red.diagonal();
            if (isFilled) // a margin of 5 % of the size on every side leaves 1 / 1.1 of the picture
            {
                EXPECT_NEAR(std::max(size.x, size.y), 1 / 1.1, 0.004);
            }
        }
}

} // namespace
