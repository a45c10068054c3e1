// What pictures show of drawings: layers, colours, widths, patterns, views, and whatever a drawing can do to break
// them.
#include "DbBlockTableRecord.h"
#include "DbEntity.h"
#include "DbLayerTableRecord.h"
#include "PaintedPicture.h"
#include "render/SpaceBounds.h"
#include "support/DrawingFiles.h"

namespace
{

using namespace rendertest;

TEST_F(PictureTest, ColoursComeFromEntitiesLayersAndBlocks)
{
    support::Content content;
    content.entities = {
        square("A1", "0", 0, 0, "62 1"),
        square("A2", "0", 20, 0, "62 3"),
        square("A3", "0", 40, 0),
        square("A4", "0", 60, 0, "62 1|420 255"),
        square("A5", "0", 80, 0, "62 5|440 33554560"),
        square("A6", "OFF", 0, 20, "62 1"),
        square("A7", "FROZEN", 20, 20, "62 1"),
        square("A8", "LOCKED", 40, 20, "62 1"),
        square("A9", "0", 60, 20, "62 1|60 1"),
        "INSERT B1 0|62 1|100 AcDbBlockReference|2 B|10 0|20 40",
        "INSERT B2 OFF|62 1|100 AcDbBlockReference|2 B|10 40|20 40",
        "INSERT B3 FROZEN|62 1|100 AcDbBlockReference|2 B|10 0|20 60",
        "INSERT B4 LOCKED|62 3|100 AcDbBlockReference|2 B|10 40|20 60",
        "INSERT B5 LOCKED|100 AcDbBlockReference|2 C|10 0|20 80",
        "INSERT B6 0|100 AcDbBlockReference|2 C|10 20|20 80",
        "INSERT B7 0|62 5|100 AcDbBlockReference|2 D|10 60|20 80",
    };
    content.blocks = {{"B", {square("E1", "0", 0, 0, "62 0"), square("E2", "LOCKED", 20, 0, "62 0")}},
                      {"C", {square("E3", "0", 0, 0), square("E4", "LOCKED", 0, 10)}},
                      {"D", {"INSERT E5 0|62 0|100 AcDbBlockReference|2 B|10 0|20 0"}}};
    paint(content);
    const Pixels pixels(order.file);
    const struct
    {
        const char* what;
        double x, y;
        render::Color color;
    } rows[] = {
        {"red", 5, 5, kRed},
        {"green", 25, 5, kGreen},
        {"by layer, colour 7", 45, 5, kBlack},
        {"true colour", 65, 5, kBlue},
        {"half seen through", 85, 5, {127, 127, 255, 255}},
        {"layer off", 5, 25, kWhite},
        {"layer frozen", 25, 25, kWhite},
        {"layer locked", 45, 25, kRed},
        {"invisible", 65, 25, kWhite},
        {"by block", 5, 45, kRed},
        {"by block on a layer of its own", 25, 45, kRed},
        {"layer 0 in a reference on a layer that is off", 45, 45, kWhite},
        {"own layer in a reference on a layer that is off", 65, 45, kRed},
        {"layer 0 in a reference that is frozen", 5, 65, kWhite},
        {"own layer in a reference that is frozen", 25, 65, kWhite},
        {"by block of another colour", 45, 65, kGreen},
        {"by layer, layer 0 in a reference on a layer of a colour", 5, 85, kMagenta},
        {"by layer, layer 0 in a reference on layer 0", 25, 85, kBlack},
        {"by layer, own layer in a reference on layer 0", 25, 95, kMagenta},
        {"by block in a reference by block in one of a colour", 65, 85, kBlue},
        {"by block on its own layer, as deep", 85, 85, kBlue},
    };
    for (const auto& row : rows)
    {
        const render::Color color = colorAt(pixels, row.x, row.y);
        EXPECT_NEAR(color.red, row.color.red, 1) << row.what;
        EXPECT_NEAR(color.green, row.color.green, 1) << row.what;
        EXPECT_NEAR(color.blue, row.color.blue, 1) << row.what;
    }
}

TEST_F(PictureTest, ColourSevenIsSeenOnEveryBackground)
{
    const struct
    {
        const char* background;
        render::Color foreground;
    } rows[] = {{"white", kBlack}, {"black", kWhite}, {"#102030", kWhite}, {"#FFFF80", kBlack}, {"none", kBlack}};
    for (const auto& row : rows)
    {
        order.background = *render::parseColor(row.background);
        paint({{square("A1", "0", 0, 0)}});
        const Pixels pixels(order.file);
        EXPECT_EQ(colorAt(pixels, 5, 5), row.foreground) << row.background;
        EXPECT_EQ(colorAt(pixels, 50, 50).alpha, order.background.alpha) << row.background;
    }
}

TEST_F(PictureTest, LayersThatAreColourSevenAndWhiteAreSeenOnWhite)
{
    std::string text =
        support::drawingOf({{square("A1", "WHITE", 0, 0), square("A2", "0", 20, 0, "62 7|420 16777215")}});
    const std::string layers = support::groups("0 TABLE|2 LAYER");
    text.insert(text.find(layers) + layers.size(),
                support::groups("0 LAYER|2 WHITE|70 0|62 7|420 16777215|6 CONTINUOUS"));
    paintFile(text);
    EXPECT_EQ(colorAt(Pixels(order.file), 5, 5), kBlack);
    EXPECT_EQ(colorAt(Pixels(order.file), 25, 5), kWhite) << "what is white by itself hides what is behind";
}

/// What is painted through a mask looks as what is painted one by one.
TEST_F(PictureTest, CrowdsOfLinesAreAsDarkAsSingleLines)
{
    const auto darkness = [this](int copies)
    {
        support::Content content;
        for (int i = 0; i < copies; ++i)
        {
            content.entities.push_back("LINE AA" + std::to_string(i) + " 0|100 AcDbLine|10 10|20 10|11 90|21 40");
            content.entities.push_back("LINE AB" + std::to_string(i) + " 0|100 AcDbLine|10 10|20 20|11 10|21 90");
            content.entities.push_back("CIRCLE AC" + std::to_string(i) + " 0|100 AcDbCircle|10 60|20 65|40 20");
        }
        paint(content);
        const Pixels pixels(order.file);
        double dark = 0.0;
        for (int y = 0; y < pixels.height(); ++y)
            for (int x = 0; x < pixels.width(); ++x)
                dark += (255 - pixels.at(x, y).red) / 255.0;
        return dark;
    };
    const double single = darkness(1);
    EXPECT_NEAR(darkness(400), single, 0.01 * single) << "painted at once";
    EXPECT_NEAR(darkness(8000), single, 0.01 * single) << "painted while more is found";
}

TEST_F(PictureTest, LinesAreAsWideAsTheyWeigh)
{
    paint({{"LINE A1 0|370 211|100 AcDbLine|10 20|20 0|11 20|21 100",
            "LINE A2 0|370 0|100 AcDbLine|10 50|20 0|11 50|21 100", "LINE A3 0|100 AcDbLine|10 80|20 0|11 80|21 100"}});
    const Pixels pixels(order.file);
    const auto widthAt = [&pixels](int x)
    {
        double dark = 0.0;
        for (int i = x - 15; i <= x + 15; ++i)
            dark += (255 - pixels.at(i, 200).red) / 255.0;
        return dark;
    };
    EXPECT_NEAR(widthAt(80), 2.11 * 96 / 25.4, 0.2);
    EXPECT_NEAR(widthAt(200), 1.0, 0.1) << "never thinner than a pixel";
    EXPECT_NEAR(widthAt(320), 1.0, 0.1);
}

TEST_F(PictureTest, LinetypesKeepTheirScales)
{
    const std::string linetype =
        support::groups("0 TABLE|2 LTYPE|0 LTYPE|2 DASHED|70 0|3 |72 65|73 2|40 5.0|49 2.5|49 -2.5|0 ENDTAB");
    support::Content content;
    content.header = support::group(9, "$LTSCALE") + support::group(40, "2.0");
    content.entities = {"LINE A1 0|6 DASHED|100 AcDbLine|10 0|20 20|11 100|21 20",
                        "LINE A2 0|6 DASHED|48 0.5|100 AcDbLine|10 0|20 40|11 100|21 40",
                        "LINE A3 0|6 DASHED|48 0.001|100 AcDbLine|10 0|20 60|11 100|21 60",
                        "LWPOLYLINE A4 0|6 DASHED|100 AcDbPolyline|90 2|70 0|10 0|20 80|10 9|20 80"};
    std::string text = support::drawingOf(content);
    text.insert(text.find(support::groups("0 TABLE|2 LAYER")), linetype);
    paintFile(text);
    const Pixels pixels(order.file);
    const auto dashesAt = [&pixels](double y)
    {
        int dashes = 0;
        bool wasDark = false;
        for (int x = 0; x < pixels.width(); ++x)
        {
            const bool isDark = pixels.at(x, static_cast<int>((100 - y) * 4)).red < 160;
            dashes += isDark && !wasDark ? 1 : 0;
            wasDark = isDark;
        }
        return dashes;
    };
    EXPECT_EQ(dashesAt(20), 11) << "dashes at both ends";
    EXPECT_EQ(dashesAt(40), 21);
    EXPECT_EQ(dashesAt(60), 1) << "too fine to be seen";
    EXPECT_EQ(dashesAt(80), 1) << "too short for the pattern";
    EXPECT_TRUE(pixels.at(1, 80).red < 160 && pixels.at(390, 160).red < 160) << "the ends are dashes";
}

TEST_F(PictureTest, SheetsShowTheModelThroughTheirViewports)
{
    support::Content content;
    // A square of the model at (1000, 1000), twice as large on the sheet, seen from above and turned by a quarter.
    content.entities = {
        square("A1", "0", 1000, 1000, "62 1"),
        square("A2", "LOCKED", 1010, 1000, "62 3"),
        square("A3", "0", 0, 90, "67 1|62 5"),
        ("VIEWPORT A4 0|67 1|100 AcDbViewport|10 20|20 20|40 40|41 40|68 2|69 2|12 1005|22 1005|16 0|26 0|36 "
         "1|17 0|27 0|37 0|45 20|90 0"),
        ("VIEWPORT A5 0|67 1|100 AcDbViewport|10 70|20 20|40 40|41 40|68 3|69 3|12 0|22 0|16 0|26 0|36 1|17 "
         "1010|27 1010|37 0|45 40|51 90|90 0"),
        ("VIEWPORT A6 0|67 1|100 AcDbViewport|10 20|20 70|40 30|41 30|68 0|69 4|12 1005|22 1005|16 0|26 0|36 "
         "1|17 0|27 0|37 0|45 20|90 0")};
    order.layout = L"layout1";
    paint(content);
    const Pixels pixels(order.file);
    EXPECT_EQ(colorAt(pixels, 5, 95), kBlue) << "the sheet's own square";
    EXPECT_EQ(colorAt(pixels, 12, 12), kRed);
    EXPECT_EQ(colorAt(pixels, 28, 28), kRed);
    EXPECT_EQ(colorAt(pixels, 28, 32), kWhite);
    EXPECT_EQ(colorAt(pixels, 32, 28), kGreen);
    EXPECT_EQ(colorAt(pixels, 38, 28), kGreen);
    EXPECT_EQ(colorAt(pixels, 44, 28), kWhite) << "cut off at the viewport's edge";
    EXPECT_EQ(colorAt(pixels, 20, 70), kWhite) << "a viewport that is off";
    // Turned by a quarter about the corner where they meet, the squares lie to the right of it, the red one below.
    EXPECT_EQ(colorAt(pixels, 75, 25), kGreen);
    EXPECT_EQ(colorAt(pixels, 75, 15), kRed);
    EXPECT_EQ(colorAt(pixels, 65, 15), kWhite);
}

TEST_F(PictureTest, ShowsTheWindowTheViewOrEverything)
{
    support::Content content;
    content.entities = {square("A1", "0", 10, 10, "62 1"), square("A2", "0", 80, 80, "62 3"),
                        "CIRCLE A3 FROZEN|100 AcDbCircle|10 5000|20 0|40 1"};
    content.view = "12 15|22 15|40 10|41 1|16 0|26 0|36 1";
    order.window.reset();
    paint(content);
    {
        const Pixels everything(order.file);
        EXPECT_GT(everything.count(kRed), 1000);
        EXPECT_NEAR(everything.count(kRed), everything.count(kGreen), 100) << "what is frozen does not count";
    }
    order.isActiveView = true;
    paint(content);
    {
        const Pixels view(order.file);
        EXPECT_EQ(view.count(kRed), 400 * 400);
    }
    order.window = OdGeExtents2d({70, 70}, {100, 100});
    paint(content);
    const Pixels window(order.file);
    EXPECT_EQ(window.count(kRed), 0);
    EXPECT_NEAR(window.count(kGreen), 133 * 133, 300);
    order.layout = L"Nowhere";
    try
    {
        paint(content);
        FAIL() << "there is no such layout";
    }
    catch (const OdError& error)
    {
        EXPECT_NE(odStringToUtf8(error.description()).find("Layout1"), std::string::npos) << "it names those there are";
    }
}

/// Extents and pictures agree about what is seen of texts, whatever their style and direction.
TEST_F(PictureTest, BoundsAreThoseOfEachEntityTogether)
{
    std::vector<std::string> files{path("own.dxf")};
    support::Content content;
    content.entities = {square("A1", "0", 0, 0),
                        square("A2", "OFF", 500, 0),
                        square("A3", "FROZEN", 0, 500),
                        square("A4", "0", -500, 0, "60 1"),
                        "CIRCLE A5 0|100 AcDbCircle|10 50|20 50|40 60",
                        "ARC A6 0|100 AcDbCircle|10 50|20 50|40 80|100 AcDbArc|50 200|51 10",
                        "TEXT A7 0|100 AcDbText|10 90|20 90|40 30|1 reaching far|50 30",
                        "INSERT A8 0|100 AcDbBlockReference|2 B|10 0|20 0|41 8|50 30",
                        "INSERT A9 0|100 AcDbBlockReference|2 B|10 20|20 20",
                        "INSERT AA 0|100 AcDbBlockReference|2 B|10 20|20 20|41 30|42 30|50 120"};
    content.blocks = {{"B", {square("E1", "0", 0, 0), "INSERT E2 0|100 AcDbBlockReference|2 C|10 5|20 5|50 45"}},
                      {"C", {"LINE E3 0|100 AcDbLine|10 0|20 0|11 9|21 0"}}};
    support::writeWholeFile(files.front(), support::drawingOf(content));
    for (const std::string& real : support::realDrawings())
        files.push_back(real);
    for (const std::string& file : files)
    {
        const session::OpenDrawing drawing(odUtf8ToString(file));
        const OdDbBlockTableRecordPtr model = drawing.database().getModelSpaceId().safeOpenObject();
        OdGeExtents2d all;
        for (const OdDbObjectIteratorPtr at = model->newIterator(); !at->done(); at->step())
        {
            const OdDbEntityPtr entity = at->entity();
            const OdDbLayerTableRecordPtr layer = entity->layerId().safeOpenObject();
            const bool isHidden = layer->isOff() || layer->isFrozen() || entity->layer() == L"Defpoints" ||
                                  entity->visibility() == OdDb::kInvisible;
            if (OdGeExtents3d box; !isHidden && entity->getGeomExtents(box) == eOk)
                all.addPoint({box.minPoint().x, box.minPoint().y}).addPoint({box.maxPoint().x, box.maxPoint().y});
        }
        const OdGeExtents2d bounds = render::boundsOf(model->objectId()).box;
        ASSERT_EQ(bounds.isValidExtents(), all.isValidExtents()) << file;
        const double tolerance = 1e-9 * (1.0 + all.diagonal().length());
        EXPECT_TRUE(all.contains(bounds, OdGeTol(tolerance))) << file;
        // What other programs draw may hold parts that are not seen; the bounds are then nearer.
        if (file == files.front())
        {
            EXPECT_TRUE(bounds.contains(all, OdGeTol(tolerance))) << file;
        }
    }
}

TEST_F(PictureTest, TextsAreSeenWhereTheirExtentsSay)
{
    const char* texts[] = {
        "TEXT A1 0|100 AcDbText|10 30|20 40|40 10|1 Hgjpqy",
        "TEXT A1 0|100 AcDbText|10 40|20 30|40 10|1 Turned|50 37",
        "TEXT A1 0|100 AcDbText|10 30|20 40|40 10|1 Oblique|51 20|41 0.8",
        "TEXT A1 0|100 AcDbText|10 40|20 30|40 10|1 W%%c%%d|51 -15|50 -25",
        "TEXT A1 0|100 AcDbText|10 50|20 50|40 8|1 back|71 2|50 10",
        "TEXT A1 0|100 AcDbText|10 10|20 50|40 8|1 %%uunder%%u %%oover",
        "MTEXT A1 0|100 AcDbMText|10 20|20 80|40 8|41 60|71 1|72 1|1 {\\fArial;wide} and\\P\\S1/2; {\\H1.5x;high}",
        "MTEXT A1 0|100 AcDbMText|10 50|20 50|40 6|41 0|71 5|72 1|1 centred\\Pg|11 0.8|21 0.6|31 0",
        "MTEXT A1 0|100 AcDbMText|10 90|20 50|40 6|41 0|71 9|72 1|1 {\\fTimes New Roman;fj\\C1;Q} \\W1.4;wide",
        "MTEXT A1 0|100 AcDbMText|10 10|20 50|40 6|41 0|71 4|72 1|1 {\\fCourier New;Ayg} \\T1.5;far \\Q25;slant",
        "MTEXT A1 0|100 AcDbMText|10 10|20 90|40 6|41 0|71 1|72 1|1 \\Lunder\\l\\P{\\Ftxt.shx;\\S+0.1^-0.2;}g",
    };
    constexpr double kPixels = 25.0; // of a drawing unit
    order.size = render::PageSize{2500, 2500};
    for (const char* text : texts)
    {
        support::writeWholeFile(path("drawing.dxf"), support::drawingOf({{text}}));
        const session::OpenDrawing drawing(odUtf8ToString(path("drawing.dxf")));
        render::paintPicture(drawing.database(), order);
        const OdGeExtents2d seen = Pixels(order.file).ink();
        const OdDbBlockTableRecordPtr model = drawing.database().getModelSpaceId().safeOpenObject();
        OdGeExtents3d extents;
        ASSERT_EQ(model->newIterator()->entity()->getGeomExtents(extents), eOk);
        // A hundredth of the lowest text height.
        constexpr double kHundredth = 0.06 * kPixels;
        EXPECT_NEAR(seen.minPoint().x, extents.minPoint().x * kPixels, kHundredth) << text;
        EXPECT_NEAR(seen.maxPoint().x, extents.maxPoint().x * kPixels, kHundredth) << text;
        EXPECT_NEAR(2500 - seen.maxPoint().y, extents.minPoint().y * kPixels, kHundredth) << text;
        EXPECT_NEAR(2500 - seen.minPoint().y, extents.maxPoint().y * kPixels, kHundredth) << text;
    }
}

/// What a text with a negative width factor shows stands before its start.
TEST_F(PictureTest, TextsThatRunBackwardAreSeenFromOutside)
{
    paint({{"TEXT A1 0|100 AcDbText|10 150|20 50|40 10|41 -1|1 MMMMMMMMMMMM"}});
    EXPECT_TRUE(Pixels(order.file).ink().isValidExtents());
}

TEST_F(PictureTest, ShowsPicturesAsTheirEntitiesSay)
{
    const std::string objects = support::section(
        "OBJECTS", support::groups("0 IMAGEDEF|5 F1|100 AcDbRasterImageDef|90 0|1 " ZOLCAD_TEST_DATA
                                   "/pictures/transparent.png|10 2.0|20 2.0|11 1.0|21 1.0|280 1|281 0"));
    const auto image = [](const char* handle, double x, const char* rest)
    {
        return "IMAGE " + std::string(handle) + " 0|100 AcDbRasterImage|90 0|10 " + std::to_string(x) +
               "|20 0|30 0|11 10|21 0|31 0|12 0|22 10|32 0|13 2|23 2|340 F1|" + rest;
    };
    support::Content content;
    content.entities = {image("A1", 0, "70 7|280 0|281 50|282 50|283 0"),
                        image("A2", 25, "70 7|280 0|281 50|282 50|283 100"),
                        image("A3", 50, "70 6|280 0|281 50|282 50|283 0"),
                        image("A4", 75, "70 7|280 1|281 50|282 0|283 0|71 1|91 2|14 -0.5|24 -0.5|14 0.5|24 1.5")};
    std::string text = support::drawingOf(content);
    text.insert(text.size() - support::endOfFile().size(), objects);
    paintFile(text);
    const Pixels pixels(order.file);
    EXPECT_NE(colorAt(pixels, 5, 15), kWhite);
    EXPECT_EQ(colorAt(pixels, 30, 15), kWhite) << "faded away";
    EXPECT_EQ(colorAt(pixels, 55, 15), kWhite) << "an outline alone";
    EXPECT_NEAR(colorAt(pixels, 80, 15).red, 128, 1) << "without contrast";
    EXPECT_EQ(colorAt(pixels, 90, 15), kWhite) << "cut off";
}

TEST_F(PictureTest, SurvivesWhatDrawingsDo)
{
    const char* entities[] = {
        "LINE A1 0|100 AcDbLine|10 -1e300|20 50|11 1e300|21 50",
        "LINE A1 0|100 AcDbLine|10 nan|20 50|11 1|21 50",
        "CIRCLE A1 0|100 AcDbCircle|10 50|20 -1e9|40 1000000050",
        "CIRCLE A1 0|100 AcDbCircle|10 50|20 50|40 1e300",
        "ELLIPSE A1 0|100 AcDbEllipse|10 50|20 50|11 1e12|21 0|31 0|40 1e-9|41 0|42 6.283185307179586",
        "ARC A1 0|100 AcDbCircle|10 50|20 50|40 10|100 AcDbArc|50 inf|51 20",
        "TEXT A1 0|100 AcDbText|10 50|20 50|40 1e9|1 huge",
        "TEXT A1 0|100 AcDbText|10 50|20 50|40 1e-9|1 tiny",
        "TEXT A1 0|100 AcDbText|10 50|20 50|40 5|41 0|1 flat",
        "MTEXT A1 0|100 AcDbMText|10 50|20 50|40 5|41 1e-300|71 1|72 1|1 a b c\\H1e300;d",
        "LWPOLYLINE A1 0|100 AcDbPolyline|90 3|70 1|43 1e12|10 0|20 0|10 1|20 0|10 0|20 1",
        "XLINE A1 0|100 AcDbXline|10 0|20 0|30 0|11 0|21 0|31 0",
        "RAY A1 0|100 AcDbRay|10 1e18|20 0|30 0|11 1|21 0|31 0",
        "INSERT A1 0|100 AcDbBlockReference|2 B|10 0|20 0|41 1e200|42 0|43 1",
        "SPLINE A1 0|100 AcDbSpline|70 8|71 3|72 0|73 0|74 3|11 0|21 0|31 0|11 0|21 0|31 0|11 1e300|21 0|31 0",
        ("HATCH A1 0|100 AcDbHatch|10 0|20 0|30 0|2 X|70 0|71 0|91 1|92 2|72 0|73 1|93 3|10 0|20 0|10 1e9|20 0|10 0|"
         "20 1e9|97 0|75 0|76 1|52 0|41 1|77 0|78 1|53 0|43 0|44 0|45 0|46 1|79 0|98 0"),
    };
    for (const char* entity : entities)
    {
        for (const char* file : {"picture.png", "picture.svg", "picture.pdf"})
        {
            order.file = path(file);
            order.format = *render::formatOf(file);
            order.window = OdGeExtents2d({0, 0}, {100, 100});
            EXPECT_NO_THROW(paint({{entity}, {{"B", {square("E1", "0", 0, 0)}}}})) << entity;
            order.window.reset();
            EXPECT_NO_THROW(paint({{entity}, {{"B", {square("E1", "0", 0, 0)}}}})) << entity;
        }
    }
    // The circle that is almost a line is seen.
    order = {};
    order.file = path("picture.png");
    order.window = OdGeExtents2d({0, 0}, {100, 100});
    order.size = render::PageSize{100, 100};
    paint({{"CIRCLE A1 0|62 1|370 100|100 AcDbCircle|10 50|20 -1e7|40 10000050"}});
    EXPECT_EQ(colorAt(Pixels(order.file), 50, 50), kRed);
}

TEST_F(PictureTest, TextsStayTextsInVectorFiles)
{
    const support::Content content{{"TEXT A1 0|62 1|100 AcDbText|10 10|20 40|40 10|1 A<B & \"C\"",
                                    "LINE A2 0|100 AcDbLine|10 0|20 0|11 100|21 100"}};
    order.file = path("picture.svg");
    order.format = render::Format::kSvg;
    paint(content);
    const std::string svg = support::readWholeFile(order.file);
    EXPECT_NE(svg.find(">A&lt;B &amp; &quot;C&quot;</text>"), std::string::npos) << svg;
    EXPECT_NE(svg.find("width=\"400\" height=\"400\""), std::string::npos);
    EXPECT_NE(svg.find("fill=\"#ff0000\""), std::string::npos);
    EXPECT_EQ(svg.rfind("</svg>\n"), svg.size() - 7);
    order.file = path("picture.pdf");
    order.format = render::Format::kPdf;
    paint(content);
    const std::string pdf = support::readWholeFile(order.file);
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    EXPECT_NE(pdf.find("/ToUnicode"), std::string::npos) << "the text can be searched";
    EXPECT_NE(pdf.find("/MediaBox [ 0 0 300 300 ]"), std::string::npos) << "400 pixels of 1/96 inch";
}

support::Transcript run(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), {ZOLCAD_PROGRAM, "render"});
    return support::transcriptOf(arguments);
}

TEST_F(PictureTest, TheProgramSaysWhatIsWrong)
{
    support::writeWholeFile(path("good.dxf"), support::drawingOf({{square("A1", "0", 0, 0)}}));
    support::writeWholeFile(path("bad.dxf"), "no drawing\nat all\n");
    const std::string good = path("good.dxf");
    const std::string png = path("out.png");
    const struct
    {
        std::vector<std::string> arguments;
        int code;
        const char* said;
    } rows[] = {
        {{good, "-o", png}, 0, ""},
        {{good, "-o", png, "--window", "0,0,10,10", "--size", "20x30", "--background", "#12345678", "--view",
          "--marks"},
         0,
         ""},
        {{good}, 2, "--output"},
        {{good, "-o", path("out.gif")}, 2, ".svg, .png or .pdf"},
        {{good, "-o", "png"}, 2, ".svg, .png or .pdf"},
        {{good, "-o", png, "--window", "0,0,10"}, 2, "x1,y1,x2,y2"},
        {{good, "-o", png, "--window", "0,0,10,nan"}, 2, "x1,y1,x2,y2"},
        {{good, "-o", png, "--window", "0,0,10,10,10"}, 2, "x1,y1,x2,y2"},
        {{good, "-o", png, "--window", "0,0,0,10"}, 2, "no area"},
        {{good, "-o", png, "--size", "20"}, 2, "WIDTHxHEIGHT"},
        {{good, "-o", png, "--size", "0x20"}, 2, "1 to 20000"},
        {{good, "-o", png, "--size", "20x1e9"}, 2, "1 to 20000"},
        {{good, "-o", png, "--background", "#12345"}, 2, "#RRGGBB"},
        {{good, "-o", png, "--background", "mauve"}, 2, "white, black"},
        {{good, "-o", png, "--nothing"}, 2, "nothing"},
        {{path("nowhere.dxf"), "-o", png}, 3, "nowhere.dxf"},
        {{path("bad.dxf"), "-o", png}, 3, "bad.dxf"},
        {{good, "-o", png, "--layout", "Nowhere"}, 1, "Layout1"},
        {{good, "-o", path("no/folder/out.png")}, 1, "out.png"},
        {{good, "-o", path("no/folder/out.svg")}, 1, "out.svg"},
        {{good, "-o", path("no/folder/out.pdf")}, 1, "out.pdf"},
    };
    for (const auto& row : rows)
    {
        const support::Transcript outcome = run(row.arguments);
        EXPECT_EQ(outcome.code, row.code) << testing::PrintToString(row.arguments) << outcome.errors;
        EXPECT_NE(outcome.errors.find(row.said), std::string::npos)
            << testing::PrintToString(row.arguments) << outcome.errors;
    }
    const Pixels pixels(png);
    EXPECT_EQ(pixels.width(), 20);
    EXPECT_EQ(pixels.height(), 30);
}

TEST_F(PictureTest, MarksAreBlueAndGreenOnlyWhenAskedFor)
{
    const std::string ignored = "|1001 terraSHAPING|1071 3|1071 1|1071 0|1000 |1000 |1000 ";
    support::Content content;
    content.entities = {square("A1", "0", 0, 0, "62 1"), square("A2", "0", 20, 0, "62 1") + ignored,
                        "INSERT A3 0|62 1|100 AcDbBlockReference|2 B|10 0|20 40",
                        "INSERT A4 0|62 4|100 AcDbBlockReference|2 B|10 50|20 40"};
    content.blocks = {{"B", {square("E1", "0", 0, 0, "62 0"), square("E2", "0", 20, 0, "62 2")}}};
    support::writeWholeFile(path("plain.dxf"), support::drawingOf(content));
    support::ChildProcess label({ZOLCAD_PROGRAM, "run", path("plain.dxf"), "BSYSTEMLABELCREATE",
                                 "OBJECTIDARRAY={\"objectIds\":[\"A1\",\"A3\"]}", "NAME=E1", "--save",
                                 path("labelled.dxf")},
                                {});
    ASSERT_EQ(label.finish(), 0) << label.errors() << label.output();
    const auto paintWith = [this](std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), {path("labelled.dxf"), "-o", order.file, "--window", "0,0,100,100"});
        ASSERT_EQ(run(arguments).code, 0);
    };
    paintWith({});
    {
        const Pixels plain(order.file);
        for (const auto& [x, y] : {std::pair(5, 5), std::pair(25, 5), std::pair(5, 45)})
            EXPECT_EQ(colorAt(plain, x, y), kRed) << x << " " << y;
    }
    paintWith({"--marks"});
    const Pixels marked(order.file);
    EXPECT_EQ(colorAt(marked, 5, 5), kBlue) << "of a label";
    EXPECT_EQ(colorAt(marked, 25, 5), kGreen) << "passed over by searches";
    EXPECT_EQ(colorAt(marked, 5, 45), kBlue) << "by block, in a reference of a label";
    EXPECT_EQ(colorAt(marked, 25, 45), (render::Color{255, 255, 0, 255})) << "of a colour of its own within it";
    EXPECT_EQ(marked.count(kRed), 0);
}

} // namespace
