// What a shape on the screen takes: by what entities draw, not by the boxes around them.
#include <limits>

#include "OdError.h"
#include "ResBuf.h"
#include "SelectTest.h"

namespace
{

using namespace selecttest;
using Visual = OdDbVisualSelection;

struct Case
{
    const char* what;
    Visual::Mode mode;
    std::vector<OdGePoint3d> points;
    const char* expected;
};

void expectSelections(const Drawing& drawing, const std::vector<Case>& cases)
{
    for (const Case& each : cases)
        EXPECT_EQ(drawing.select(each.mode, each.points), each.expected) << each.what;
}

const std::vector<std::string> kShapes = {
    "LINE A1 0|100 AcDbLine|10 0|20 0|11 100|21 100",
    "CIRCLE A2 0|100 AcDbCircle|10 50|20 50|40 40",
    "ARC A3 0|100 AcDbCircle|10 200|20 0|40 10|100 AcDbArc|50 0|51 90",
    "ELLIPSE A4 0|100 AcDbEllipse|10 300|20 0|11 20|21 0|40 0.5|41 0|42 6.283185307179586",
    "LWPOLYLINE A5 0|100 AcDbPolyline|90 3|70 1|10 400|20 0|10 420|20 0|10 400|20 20",
    "TEXT A6 0|100 AcDbText|10 500|20 0|40 10|1 MMMM|100 AcDbText",
    "SOLID A7 0|100 AcDbTrace|10 600|20 0|11 620|21 0|12 600|22 20|13 620|23 20",
    "POINT A8 0|100 AcDbPoint|10 700|20 0",
    "LWPOLYLINE A9 0|100 AcDbPolyline|90 2|70 0|10 800|20 0|42 1|10 820|20 0",
};

// Each goes through the origin, many thousand times as large as what is drawn there.
TEST(Shapes, TakeWhatLargeCurvesDrawNearThem)
{
    for (const double radius : {1e3, 1e5, 1e7})
        for (const OdGeVector2d& towards : {OdGeVector2d(1, 0), OdGeVector2d(0.6, 0.8), OdGeVector2d(-0.28, 0.96)})
        {
            const OdGeVector2d center = towards * radius;
            const std::string place = "|10 " + std::to_string(center.x) + "|20 " + std::to_string(center.y);
            const Drawing drawing({{"CIRCLE A1 0|100 AcDbCircle" + place + "|40 " + std::to_string(radius),
                                    "ELLIPSE A2 0|100 AcDbEllipse" + place + "|11 " + std::to_string(center.x) +
                                        "|21 " + std::to_string(center.y) + "|40 0.5|41 0|42 6.283185307179586"}});
            for (const double size : {0.01, 1.0})
                expectSelections(
                    drawing,
                    {{"a crossing around the origin", Visual::kCrossing, {at(-size, -size), at(size, size)}, "A1 A2"},
                     {"a crossing beside it",
                      Visual::kCrossing,
                      {at(4 * size * towards.x - size, 4 * size * towards.y - size),
                       at(4 * size * towards.x + size, 4 * size * towards.y + size)},
                      ""},
                     {"a fence through the origin",
                      Visual::kFence,
                      {at(-size * towards.x, -size * towards.y), at(size * towards.x, size * towards.y)},
                      "A1 A2"},
                     {"a polygon around the origin",
                      Visual::kCPoly,
                      {at(-size, -size), at(size, -size), at(0, 2 * size)},
                      "A1 A2"}});
        }
}

TEST(Shapes, TakeWhatEntitiesDraw)
{
    const Drawing drawing({kShapes});
    expectSelections(
        drawing,
        {
            {"crossing in the box of a line, off it", Visual::kCrossing, {at(85, 5), at(95, 12)}, ""},
            {"crossing on a line", Visual::kCrossing, {at(15, 10), at(17, 20)}, "A1"},
            {"crossing in a circle", Visual::kCrossing, {at(40, 60), at(45, 70)}, ""},
            {"crossing of a circle's edge", Visual::kCrossing, {at(8, 49), at(12, 51)}, "A2"},
            {"crossing in the corner of a circle's box", Visual::kCrossing, {at(82, 11), at(89, 18)}, ""},
            {"window around a circle and the line's end", Visual::kWindow, {at(9, 9), at(101, 101)}, "A2"},
            {"window exactly around it", Visual::kWindow, {at(10, 10), at(90, 90)}, "A2"},
            {"window a little smaller", Visual::kWindow, {at(10.001, 10), at(90, 90)}, ""},
            {"window around both, from right to left", Visual::kWindow, {at(101, 101), at(-1, -1)}, "A1 A2"},
            {"box to the right", Visual::kBox, {at(9, 101), at(101, 9)}, "A2"},
            {"box to the left", Visual::kBox, {at(101, 101), at(9, 9)}, "A1 A2"},
            {"crossing on the missing part of an arc", Visual::kCrossing, {at(189, -1), at(191, 1)}, ""},
            {"crossing at an arc's end", Visual::kCrossing, {at(209, -5), at(211, 0)}, "A3"},
            {"window around an arc only", Visual::kWindow, {at(200, 0), at(210, 10)}, "A3"},
            {"crossing of an ellipse's flank", Visual::kCrossing, {at(299, 9), at(301, 11)}, "A4"},
            {"crossing within it", Visual::kCrossing, {at(295, -5), at(305, 5)}, ""},
            {"crossing in the empty half of a triangle's box", Visual::kCrossing, {at(415, 15), at(420, 20)}, ""},
            {"crossing of its long side", Visual::kCrossing, {at(409, 9), at(411, 11)}, "A5"},
            {"crossing within a text", Visual::kCrossing, {at(505, 4), at(506, 5)}, "A6"},
            {"crossing within a solid", Visual::kCrossing, {at(609, 9), at(611, 11)}, "A7"},
            {"window around a point", Visual::kWindow, {at(699, -1), at(701, 1)}, "A8"},
            {"window of no size on a point", Visual::kCrossing, {at(700, 0), at(700, 0)}, "A8"},
            {"crossing of a bulge", Visual::kCrossing, {at(809, -11), at(811, -9)}, "A9"},
            {"crossing where its chord would be", Visual::kCrossing, {at(809, -1), at(811, 1)}, ""},
            {"window around everything", Visual::kWindow, {at(-1, -20), at(1000, 200)}, "A1 A2 A3 A4 A5 A6 A7 A8 A9"},
        });
}

TEST(Shapes, TakeByPolygonsAndFences)
{
    const Drawing drawing({kShapes});
    // A horseshoe that is open at the top, and a bow tie.
    const std::vector<OdGePoint3d> horseshoe = {at(-10, -10), at(110, -10), at(110, 110), at(105, 110),
                                                at(105, -5),  at(-5, -5),   at(-5, 110),  at(-10, 110)};
    const std::vector<OdGePoint3d> triangle = {at(200, 0), at(211, 0), at(200, 11)};
    expectSelections(
        drawing,
        {
            {"polygon that goes around", Visual::kWPoly, horseshoe, ""},
            {"the same crossing", Visual::kCPoly, horseshoe, ""},
            {"polygon whose corner a circle leaves", Visual::kWPoly, {at(0, 0), at(120, 0), at(0, 120)}, ""},
            {"the same crossing", Visual::kCPoly, {at(0, 0), at(120, 0), at(0, 120)}, "A1 A2"},
            {"polygon that cuts an arc off twice", Visual::kWPoly, triangle, ""},
            {"polygon that holds it", Visual::kWPoly, {at(199, -1), at(225, -1), at(199, 25)}, "A3"},
            {"polygon along the sides of a triangle", Visual::kWPoly, {at(400, 0), at(420, 0), at(400, 20)}, "A5"},
            {"bow tie: between the wings is outside",
             Visual::kCPoly,
             {at(590, -20), at(630, 40), at(630, -20), at(590, 40)},
             "A7"},
            {"its wings meet in the middle of the solid",
             Visual::kWPoly,
             {at(590, -20), at(630, 40), at(630, -20), at(590, 40)},
             ""},
            {"fence through a circle", Visual::kFence, {at(50, -10), at(50, 20)}, "A2"},
            {"fence within it", Visual::kFence, {at(30, 60), at(40, 70)}, ""},
            {"fence that turns", Visual::kFence, {at(0, 30), at(5, 30), at(5, 200), at(410, 200), at(410, 5)}, "A5"},
            {"fence that closes itself takes nothing within",
             Visual::kFence,
             {at(690, -5), at(710, -5), at(710, 5), at(690, 5), at(690, -5)},
             ""},
            {"fence within a solid", Visual::kFence, {at(605, 5), at(606, 5)}, "A7"},
            {"fence along a line", Visual::kFence, {at(-20, -20), at(-1, -1), at(0, 0)}, "A1"},
        });
}

TEST(Shapes, PickTheNearestLineOnTop)
{
    const Drawing drawing({{
        "LINE A1 0|100 AcDbLine|10 0|20 0|11 100|21 0",
        "SOLID A2 0|100 AcDbTrace|10 -10|20 -10|11 110|21 -10|12 -10|22 10|13 110|23 10",
        "LINE A3 0|100 AcDbLine|10 50|20 -50|11 50|21 50",
        "LINE A4 0|100 AcDbLine|10 0|20 0.1|11 100|21 0.1",
        "CIRCLE A5 0|100 AcDbCircle|10 200|20 0|40 10",
        "CIRCLE A6 0|100 AcDbCircle|10 200|20 0|40 10",
    }});
    expectSelections(drawing, {
                                  {"a line over a solid", Visual::kPoint, {at(20, -0.05)}, "A1"},
                                  {"the nearer of two", Visual::kPoint, {at(20, 0.2)}, "A4"},
                                  {"a solid", Visual::kPoint, {at(20, 5)}, "A2"},
                                  {"a line in the pick box, off the point", Visual::kPoint, {at(50.29, 30)}, "A3"},
                                  {"one that is not", Visual::kPoint, {at(50.31, 30)}, ""},
                                  {"the upper of two that are alike", Visual::kPoint, {at(210, 0)}, "A6"},
                                  {"the middle of a circle", Visual::kPoint, {at(200, 0)}, ""},
                              });
}

TEST(Shapes, SeeWhatLayersShow)
{
    const Drawing drawing(
        {{
             "LINE A1 OFF|100 AcDbLine|10 0|20 0|11 1|21 0",
             "LINE A2 FROZEN|100 AcDbLine|10 0|20 0|11 1|21 0",
             "LINE A3 LOCKED|100 AcDbLine|10 0|20 0|11 1|21 0",
             "LINE A4 0|60 1|100 AcDbLine|10 0|20 0|11 1|21 0",
             "INSERT B1 0|100 AcDbBlockReference|2 MIXED|10 100|20 0",
             "INSERT B2 OFF|100 AcDbBlockReference|2 MIXED|10 200|20 0",
             "INSERT B3 FROZEN|100 AcDbBlockReference|2 MIXED|10 300|20 0",
             "INSERT B4 0|100 AcDbBlockReference|2 HIDDEN|10 400|20 0",
             "INSERT B5 0|100 AcDbBlockReference|2 OUTER|10 500|20 0",
         },
         {{"MIXED",
           {"LINE E1 0|100 AcDbLine|10 0|20 0|11 10|21 0", "LINE E2 LOCKED|100 AcDbLine|10 0|20 5|11 10|21 5",
            "LINE E3 OFF|100 AcDbLine|10 0|20 50|11 10|21 50", "LINE E4 0|60 1|100 AcDbLine|10 0|20 60|11 10|21 60"}},
          {"HIDDEN", {"LINE E5 FROZEN|100 AcDbLine|10 0|20 0|11 10|21 0"}},
          {"OUTER",
           {"INSERT E6 FROZEN|100 AcDbBlockReference|2 MIXED|10 0|20 0",
            "INSERT E7 OFF|100 AcDbBlockReference|2 MIXED|10 0|20 100"}}}});
    expectSelections(
        drawing, {
                     {"single entities", Visual::kCrossing, {at(-1, -1), at(2, 1)}, "A3"},
                     {"a block: all that is shown", Visual::kWindow, {at(100, 0), at(110, 5)}, "B1"},
                     {"what is off in it", Visual::kCrossing, {at(100, 45), at(110, 65)}, ""},
                     {"a block on a layer that is off: its layer 0", Visual::kCrossing, {at(200, -1), at(210, 1)}, ""},
                     {"its other layers", Visual::kCrossing, {at(200, 4), at(210, 6)}, "B2"},
                     {"a window around those only", Visual::kWindow, {at(200, 4), at(210, 6)}, "B2"},
                     {"a block on a frozen layer", Visual::kCrossing, {at(290, -90), at(390, 90)}, ""},
                     {"a block that shows nothing", Visual::kWindow, {at(390, -90), at(490, 90)}, ""},
                     {"frozen within a block", Visual::kCrossing, {at(500, 4), at(510, 6)}, ""},
                     {"off within a block: layer 0", Visual::kCrossing, {at(500, 99), at(510, 101)}, ""},
                     {"off within a block: the other", Visual::kCrossing, {at(500, 104), at(510, 106)}, "B5"},
                     {"window around all that is shown of it", Visual::kWindow, {at(500, 105), at(510, 105)}, "B5"},
                 });
}

TEST(Shapes, ReachIntoNestedAndScaledBlocks)
{
    const Drawing drawing(
        {{
             "INSERT A1 0|100 AcDbBlockReference|2 OUTER|10 1000|20 0|41 2|42 -2|43 2|50 90",
             "INSERT A2 0|100 AcDbMInsertBlock|2 RING|10 0|20 0|70 3|71 2|44 100|45 200",
             "INSERT A3 0|66 1|100 AcDbBlockReference|2 RING|10 2000|20 0",
             "ATTRIB A4 0|100 AcDbText|10 2100|20 0|40 10|1 MMMM|100 AcDbAttribute|2 TAG|70 0",
             "SEQEND A5 0",
             "INSERT A6 0|100 AcDbBlockReference|2 ENDLESS|10 3000|20 0",
         },
         {{"RING", {"CIRCLE E1 0|100 AcDbCircle|10 0|20 0|40 10"}},
          {"INNER", {"INSERT E2 0|100 AcDbBlockReference|2 RING|10 50|20 0|41 0.5|42 0.5|43 0.5"}},
          {"OUTER", {"INSERT E3 0|100 AcDbBlockReference|2 INNER|10 0|20 30"}},
          {"ENDLESS",
           {"INSERT E4 0|100 AcDbBlockReference|2 ENDLESS|10 1|20 0", "LINE E5 0|100 AcDbLine|10 0|20 0|11 9|21 0"}}}});
    // OUTER (50, 30) radius 5, then y mirrored and doubled (100, -60), then turned: (60, 100), radius 10.
    expectSelections(drawing, {
                                  {"the ring deep within", Visual::kCrossing, {at(1069, 99), at(1071, 101)}, "A1"},
                                  {"its middle", Visual::kCrossing, {at(1059, 99), at(1061, 101)}, ""},
                                  {"window around it", Visual::kWindow, {at(1050, 90), at(1070, 110)}, "A1"},
                                  {"the last cell of an array", Visual::kCrossing, {at(209, 199), at(211, 201)}, "A2"},
                                  {"a middle cell", Visual::kCrossing, {at(109, -1), at(111, 1)}, "A2"},
                                  {"between the cells", Visual::kCrossing, {at(40, 40), at(60, 60)}, ""},
                                  {"an attribute", Visual::kCrossing, {at(2105, 4), at(2106, 5)}, "A3"},
                                  {"a block without its attribute", Visual::kWindow, {at(1980, -20), at(2020, 20)}, ""},
                                  {"a block that holds itself", Visual::kCrossing, {at(3004, -1), at(3005, 1)}, "A6"},
                              });
}

TEST(Shapes, AreCutByClips)
{
    const Drawing drawing({{
                               "INSERT A1 0|100 AcDbBlockReference|2 PLAN|10 0|20 0",
                               "INSERT A2 0|100 AcDbBlockReference|2 PLAN|10 1000|20 0|41 2|42 2|43 2|50 90",
                               "INSERT A3 0|100 AcDbBlockReference|2 PLAN|10 2000|20 0",
                               "INSERT A4 0|100 AcDbBlockReference|2 HOLDER|10 3000|20 0",
                           },
                           {{"PLAN",
                             {
                                 "LINE E1 0|100 AcDbLine|10 0|20 0|11 100|21 0",
                                 "CIRCLE E2 0|39 5|100 AcDbCircle|10 50|20 0|40 30",
                                 "SOLID E3 0|100 AcDbTrace|10 0|20 40|11 100|21 40|12 0|22 60|13 100|23 60",
                                 "XLINE E4 0|100 AcDbXline|10 0|20 80|11 1|21 0",
                             }},
                            {"HOLDER", {"INSERT F1 0|100 AcDbBlockReference|2 PLAN|10 0|20 0"}}}});
    drawing.clip("A1", {{40, -50}, {90, 90}});
    drawing.clip("A2", {{910, 50}, {1010, 210}});
    // A horseshoe that is open at the top.
    drawing.clip("A3",
                 {{2000, -50}, {2100, -50}, {2100, 90}, {2070, 90}, {2070, -10}, {2030, -10}, {2030, 90}, {2000, 90}});
    drawing.clip("F1", {{40, -50}, {90, 90}});
    drawing.clip("A4", {{3000, -50}, {3060, 90}});
    expectSelections(
        drawing,
        {
            {"a line before the outline", Visual::kCrossing, {at(10, -1), at(39, 1)}, ""},
            {"within", Visual::kCrossing, {at(45, -1), at(46, 1)}, "A1"},
            {"behind", Visual::kCrossing, {at(91, -1), at(99, 1)}, ""},
            {"a circle's cut half", Visual::kCrossing, {at(19, -20), at(39, 20)}, ""},
            {"its other half", Visual::kCrossing, {at(79, -1), at(81, 1)}, "A1"},
            {"a solid's cut side", Visual::kCrossing, {at(10, 45), at(20, 55)}, ""},
            {"within the solid", Visual::kCrossing, {at(50, 45), at(60, 55)}, "A1"},
            {"an endless line, cut", Visual::kFence, {at(-500, 0), at(-500, 100)}, ""},
            {"within", Visual::kFence, {at(60, 70), at(60, 85)}, "A1"},
            {"the window around what is left", Visual::kWindow, {at(40, -30), at(90, 80)}, "A1"},
            {"a window that is too small", Visual::kWindow, {at(40, -30), at(89, 80)}, ""},
            {"a pick in the solid", Visual::kPoint, {at(85, 50)}, "A1"},
            {"a pick where it was cut off", Visual::kPoint, {at(35, 50)}, ""},
            {"turned and doubled: a line", Visual::kCrossing, {at(999, 100), at(1001, 101)}, "A2"},
            {"its end", Visual::kCrossing, {at(999, 20), at(1001, 49)}, ""},
            {"the arc on the other side", Visual::kCrossing, {at(1011, 60), at(1070, 140)}, ""},
            {"within the solid", Visual::kCrossing, {at(911, 51), at(912, 52)}, "A2"},
            {"beneath it", Visual::kCrossing, {at(911, 40), at(912, 49)}, ""},
            {"between the legs of a horseshoe", Visual::kCrossing, {at(2031, -9), at(2069, 89)}, ""},
            {"in a leg", Visual::kCrossing, {at(2010, 50), at(2011, 51)}, "A3"},
            {"a fence across both", Visual::kFence, {at(2031, 50), at(2071, 50)}, "A3"},
            {"two clips: before both", Visual::kCrossing, {at(3000, -40), at(3039, 89)}, ""},
            {"in the inner only", Visual::kCrossing, {at(3061, -40), at(3100, 89)}, ""},
            {"in both", Visual::kCrossing, {at(3041, 50), at(3042, 51)}, "A4"},
            {"window around it", Visual::kWindow, {at(3040, -30), at(3060, 80)}, "A4"},
            {"a shape around nothing that is left", Visual::kCPoly, {at(2035, 0), at(2065, 0), at(2050, 30)}, ""},
        });
}

TEST(Shapes, MeetLinesWithoutEnd)
{
    const Drawing drawing({{
                               "XLINE A1 0|100 AcDbXline|10 0|20 0|11 1|21 1",
                               "RAY A2 0|100 AcDbRay|10 0|20 0|11 -1|21 0",
                               "INSERT A3 0|100 AcDbBlockReference|2 AXIS|10 0|20 500",
                           },
                           {{"AXIS", {"XLINE E1 0|100 AcDbXline|10 0|20 0|11 1|21 0"}}}});
    expectSelections(drawing, {
                                  {"far away", Visual::kCrossing, {at(1e6 - 1, 1e6), at(1e6 + 1, 1e6 + 1)}, "A1"},
                                  {"behind the start of a ray", Visual::kCrossing, {at(900, -1), at(901, 1)}, ""},
                                  {"before it", Visual::kPoint, {at(-900, 0)}, "A2"},
                                  {"in a block", Visual::kFence, {at(-7e5, 400), at(-7e5, 600)}, "A3"},
                                  {"never within", Visual::kWindow, {at(-1e9, -1e9), at(1e9, 1e9)}, ""},
                              });
}

TEST(Shapes, LieInThePlaneOfTheView)
{
    // Seen from the front, with the world's z upwards.
    Content content{{"LINE A1 0|100 AcDbLine|10 0|20 0|30 50|11 10|21 0|31 60",
                     "CIRCLE A2 0|100 AcDbCircle|39 20|10 100|20 0|30 0|40 10"}};
    content.view = "40 100|16 0|26 -1|36 0";
    const Drawing front(content);
    EXPECT_EQ(front.select(Visual::kWindow, {{-1, 7, 49}, {11, -7, 61}}), "A1");
    EXPECT_EQ(front.select(Visual::kCrossing, {{0, 0, 0}, {10, 0, 10}}), "");
    EXPECT_EQ(front.select(Visual::kCrossing, {{85, 0, 9}, {95, 0, 11}}), "A2") << "the side of a cylinder";
    EXPECT_EQ(front.select(Visual::kWindow, {{90, 0, 0}, {110, 0, 20}}), "A2");
    EXPECT_EQ(front.select(Visual::kWindow, {{90, 0, 0}, {110, 0, 19}}), "");

    content.view = "40 100|16 0|26 0|36 1|51 90";
    const Drawing turned(content);
    EXPECT_EQ(turned.select(Visual::kWindow, {{-1, -1, 0}, {11, 1, 0}}), "A1");

    // From below, and from nearly straight above, the world's x axis goes to the left or to the right, which decides
    // between a crossing and a window.
    const std::pair<const char*, const char*> rows[] = {{"40 100|16 0|26 0|36 -1", "A1 A2"},
                                                        {"40 100|16 0.01|26 0|36 1", ""},
                                                        {"40 100|16 0|26 0.01|36 1", ""},
                                                        {"40 100|16 0|26 0.02|36 1", "A1 A2"}};
    for (const auto& [view, expected] : rows)
    {
        content.view = view;
        EXPECT_EQ(Drawing(content).select(Visual::kBox, {{5, -9, 0}, {99, 9, 0}}), expected) << view;
    }
}

TEST(Shapes, AreNarrowedDownByAFilter)
{
    const Drawing drawing({kShapes});
    const auto chain = [](int code, const wchar_t* text) { return OdResBuf::newRb(code, OdString(text)); };
    const std::vector<OdGePoint3d> all = {at(-1, -20), at(1000, 200)};
    EXPECT_EQ(drawing.select(Visual::kWindow, all, chain(0, L"line,Circle")), "A1 A2");
    EXPECT_EQ(drawing.select(Visual::kWindow, all, chain(8, L"NOSUCH")), "");
    const OdResBufPtr both = chain(8, L"0");
    both->setNext(chain(0, L"TEXT"));
    EXPECT_EQ(drawing.select(Visual::kWindow, all, both), "A6");
    EXPECT_THROW(drawing.select(Visual::kWindow, all, chain(1, L"E12")), OdError);
    EXPECT_THROW(drawing.select(Visual::kWindow, all, OdDbSelectionSet::createObject(nullptr)), OdError);
}

TEST(Shapes, RefuseWhatIsNone)
{
    const Drawing drawing({kShapes});
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<Visual::Mode, std::vector<OdGePoint3d>> cases[] = {
        {Visual::kPoint, {}},
        {Visual::kPoint, {at(0, 0), at(1, 1)}},
        {Visual::kBox, {at(0, 0)}},
        {Visual::kWindow, {at(0, 0), at(1, 1), at(2, 2)}},
        {Visual::kFence, {at(0, 0)}},
        {Visual::kWPoly, {at(0, 0), at(1, 1)}},
        {Visual::kCPoly, {at(0, 0), at(1, nan), at(2, 2)}},
        {Visual::kCrossing, {at(0, 0), at(infinity, 0)}},
        {static_cast<Visual::Mode>(7), {at(0, 0), at(1, 1)}},
        {static_cast<Visual::Mode>(-1), {at(0, 0)}},
    };
    for (const auto& [mode, points] : cases)
    {
        EXPECT_THROW(drawing.select(mode, points), OdError) << mode << ' ' << points.size();
    }
    const OdGePoint3d point;
    EXPECT_THROW(OdDbSelectionSet::select(OdDbObjectId::kNull, 1, &point, Visual::kPoint), OdError);
    EXPECT_THROW(OdDbSelectionSet::select(drawing.id("A1"), 1, &point, Visual::kPoint), OdError);
}

} // namespace
