// What hatches fill: areas with islands in the three styles, lines of patterns, loops of every kind of edge.
#include <random>

#include "EntityTest.h"
#include "support/ShapeRecorder.h"

namespace
{

using namespace entitytest;
using namespace support;

constexpr double kPi = 3.14159265358979323846;

std::string polylineLoop(const std::vector<OdGePoint2d>& points, int type = 2, double bulge = 0.0)
{
    std::string loop = "92 " + std::to_string(type) + "|72 " + (bulge != 0.0 ? "1" : "0") + "|73 1|93 " +
                       std::to_string(points.size());
    for (const OdGePoint2d& point : points)
    {
        loop += "|10 " + std::to_string(point.x) + "|20 " + std::to_string(point.y);
        loop += bulge != 0.0 ? "|42 " + std::to_string(bulge) : "";
    }
    return loop + "|97 0|";
}

std::vector<OdGePoint2d> square(double low, double high)
{
    return {{low, low}, {high, low}, {high, high}, {low, high}};
}

OdDbEntityPtr hatch(const std::string& loops, int loopCount, int style, const std::string& pattern = {})
{
    const bool isSolid = pattern.empty();
    return entityFrom("HATCH", "10 0|20 0|30 0|210 0|220 0|230 1|2 " +
                                   std::string(isSolid ? "SOLID|70 1" : "LINES|70 0") + "|71 0|91 " +
                                   std::to_string(loopCount) + "|" + loops + "75 " + std::to_string(style) + "|76 1|" +
                                   (isSolid ? "" : "52 0|41 1|77 0|" + pattern + "|") + "98 0");
}

TEST_F(EntityTest, HatchesFillTheirIslandsByTheirStyle)
{
    const std::string loops = polylineLoop(square(0, 100), 3) + polylineLoop(square(10, 90), 18) +
                              polylineLoop(square(30, 70)) + polylineLoop(square(45, 55));
    // Places on the diagonal, and whether each of the styles paints them.
    const std::tuple<double, bool, bool, bool> rows[] = {{5, true, true, true},   {20, false, false, true},
                                                         {40, true, false, true}, {50, false, false, true},
                                                         {95, true, true, true},  {105, false, false, false}};
    for (const auto& [at, normal, outer, ignore] : rows)
    {
        const bool expected[] = {normal, outer, ignore};
        for (int style = 0; style < 3; ++style)
            EXPECT_EQ(isPainted(drawnBy(*hatch(loops, 4, style)), at, at), expected[style])
                << "style " << style << " at " << at;
    }
}

TEST_F(EntityTest, HatchesFillLoopsOfAllKindsOfEdges)
{
    // Each is the upper half of something on the base line from -10 to 10, closed by that line.
    const std::string base = "72 1|10 -10|20 0|11 10|21 0|";
    const std::tuple<const char*, std::string, double, double> rows[] = {
        {"arc", "72 2|10 0|20 0|40 10|50 0|51 180|73 1|", 50 * kPi, 0.5},
        {"clockwise arc", "72 2|10 0|20 0|40 10|50 180|51 360|73 0|", 50 * kPi, 0.5},
        {"ellipse", "72 3|10 0|20 0|11 10|21 0|40 0.5|50 0|51 180|73 1|", 25 * kPi, 0.5},
        {"lines", "72 1|10 10|20 0|11 10|21 5|72 1|10 -10|20 5|11 10|21 5|72 1|10 -10|20 5|11 -10|21 0|", 100, 1e-9},
        {"spline of degree 1",
         "72 4|94 1|73 0|74 0|95 5|96 3|40 0|40 0|40 1|40 2|40 2|10 10|20 0|10 0|20 10|10 -10|20 0|", 100, 1e-9},
    };
    for (const auto& [what, edges, area, tolerance] : rows)
    {
        const bool isThree = std::string_view(what) == "lines";
        const std::string loop = "92 1|93 " + std::string(isThree ? "4|" : "2|") + base + edges + "97 0|";
        const std::vector<DrawnShape> shapes = drawnBy(*hatch(loop, 1, 0), 0.001);
        ASSERT_EQ(shapes.size(), 1u) << what;
        EXPECT_NEAR(areaOf(shapes[0].points()), area, tolerance) << what;
    }
}

/// Angles of elliptical edges are angles from the major axis, not parameters: this edge begins where the curve crosses
/// the line y = x.
TEST_F(EntityTest, EllipticalEdgesOfHatchesBeginAtTheirAngles)
{
    const double r = 10 * 5 / std::hypot(10, 5) * std::sqrt(2.0); // from the centre along the diagonal
    const double at = r / std::sqrt(2.0);
    const std::string edge =
        "92 1|93 3|72 3|10 0|20 0|11 10|21 0|40 0.5|50 45|51 90|73 1|72 1|10 0|20 5|11 0|21 0|72 1|10 0|20 0|11 " +
        std::to_string(at) + "|21 " + std::to_string(at) + "|97 0|";
    const std::vector<DrawnShape> shapes = drawnBy(*hatch(edge, 1, 0), 0.001);
    ASSERT_EQ(shapes.size(), 1u);
    EXPECT_NEAR(shapes[0].points().front().x, at, 1e-3);
    EXPECT_NEAR(shapes[0].points().front().y, at, 1e-3);
    const Box box = boxOf(*hatch(edge, 1, 0));
    EXPECT_NEAR(box.x1, at, 1e-3);
}

double lengthOf(const std::vector<DrawnShape>& shapes)
{
    double length = 0.0;
    for (const DrawnShape& shape : shapes)
        length += shape.points().size() == 2 ? (shape.points()[1] - shape.points()[0]).length() : 0.0;
    return length;
}

/// Whatever the outline and the direction: the lines' length times their distance is the area, and the part of it that
/// the pattern draws.
TEST_F(EntityTest, PatternLinesCoverTheArea)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> radius(20, 50);
    for (int round = 0; round < 40; ++round)
    {
        std::vector<OdGePoint2d> star;
        double area = 0.0;
        for (int i = 0; i < 24; ++i)
        {
            const double r = radius(random);
            star.emplace_back(r * std::cos(i * kPi / 12), r * std::sin(i * kPi / 12));
        }
        for (std::size_t i = 0; i < star.size(); ++i)
        {
            const OdGePoint2d& next = star[(i + 1) % star.size()];
            area += (star[i].x * next.y - next.x * star[i].y) / 2.0;
        }
        area -= 10 * 10;
        const double degrees = round * 17.0;
        const double angle = degrees * kPi / 180.0;
        const double spacing = 0.25;
        const bool isDashed = round % 2 != 0;
        const std::string pattern = "78 1|53 " + std::to_string(degrees) + "|43 3|44 -7|45 " +
                                    std::to_string(-std::sin(angle) * spacing + std::cos(angle) * 0.3) + "|46 " +
                                    std::to_string(std::cos(angle) * spacing + std::sin(angle) * 0.3) + "|79 " +
                                    (isDashed ? "4|49 0.5|49 -0.25|49 0|49 -0.25" : "0");
        const std::vector<DrawnShape> shapes =
            drawnBy(*hatch(polylineLoop(star) + polylineLoop(square(-5, 5)), 2, 0, pattern));
        EXPECT_NEAR(lengthOf(shapes) * spacing, isDashed ? area / 2 : area, area * 0.02) << round;
        for (const DrawnShape& shape : shapes)
        {
            const OdGePoint3d& end = shape.points().back();
            EXPECT_FALSE(std::fabs(end.x) < 4.9 && std::fabs(end.y) < 4.9) << "a line in the hole, " << round;
        }
    }
}

TEST_F(EntityTest, PatternsTooFineToBeSeenAreAreasThatAreSeenThrough)
{
    const std::string fine = "78 1|53 0|43 0|44 0|45 0|46 0.0001|79 0";
    const std::string finelyDashed = "78 1|53 0|43 0|44 0|45 0|46 1|79 2|49 1e-7|49 -1e-7";
    const std::string none = "78 1|53 0|43 0|44 0|45 0|46 0|79 0";
    for (const std::string& pattern : {fine, finelyDashed, none})
    {
        const std::vector<DrawnShape> shapes = drawnBy(*hatch(polylineLoop(square(0, 100)), 1, 0, pattern), 0.01);
        ASSERT_FALSE(shapes.empty()) << pattern;
        EXPECT_EQ(shapes.back().kind, ShapeKind::kArea) << pattern;
        EXPECT_EQ(shapes.back().transparency.alpha(), 128) << pattern;
        EXPECT_LT(shapes.size(), 400000u) << pattern;
    }
}

TEST_F(EntityTest, DamagedHatchesDrawNothingOrLess)
{
    const char* damaged[] = {
        "91 1|92 2|72 0|73 1|93 2|10 0|20 0|10 1|20 1|97 0|75 0|76 1|98 0",
        "91 1|92 2|72 0|73 1|93 3|10 nan|20 0|10 1|20 1|10 2|20 0|97 0|75 0|76 1|98 0",
        "91 1|92 1|93 1|72 2|10 0|20 0|40 nan|50 0|51 90|73 1|97 0|75 0|76 1|98 0",
        "91 1|92 1|93 1|72 3|10 0|20 0|11 0|21 0|40 0|50 0|51 90|73 1|97 0|75 0|76 1|98 0",
        "91 1|92 1|93 1|72 4|94 3|95 1|96 1|40 0|10 1|20 1|97 0|75 0|76 1|98 0",
        "91 1|92 1|93 1|72 9|10 1|20 1|97 0|75 7|76 1|98 0",
    };
    for (const char* groups : damaged)
    {
        const OdDbEntityPtr entity =
            entityFrom("HATCH", std::string("100 AcDbHatch|10 0|20 0|30 0|2 SOLID|70 1|71 0|") + groups);
        EXPECT_LE(drawnBy(*entity).size(), 1u) << groups;
    }
}

} // namespace
