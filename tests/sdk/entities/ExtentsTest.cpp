// The boxes of single entities against figures worked out by hand.
#include "EntityTest.h"

namespace
{

using namespace entitytest;

struct Case
{
    const char *what, *dxfName;
    double x0, y0, z0, x1, y1, z1;
    const char* groups;
};

const double kRoot2 = std::sqrt(2.0);

const Case kCases[] = {
    {"line", "LINE", 1, 2, -2, 4, 5, 3, "10 1|20 5|30 -2|11 4|21 2|31 3"},
    {"line with thickness", "LINE", 0, 0, 0, 1, 0, 7, "39 7|10 0|20 0|30 0|11 1|21 0|31 0"},
    {"line with thickness along y", "LINE", 0, -7, 0, 1, 0, 0, "39 -7|10 0|20 0|30 0|11 1|21 0|31 0|210 0|220 1|230 0"},
    {"point", "POINT", 3, 4, 5, 3, 4, 5, "10 3|20 4|30 5"},
    {"circle", "CIRCLE", 1, 2, 5, 5, 6, 5, "10 3|20 4|30 5|40 2"},
    {"circle in the xz plane", "CIRCLE", 1, -5, 2, 5, -5, 6, "10 3|20 4|30 5|40 2|210 0|220 -1|230 0"},
    {"circle seen from below", "CIRCLE", -5, 2, -5, -1, 6, -5, "10 3|20 4|30 5|40 2|210 0|220 0|230 -1"},
    {"cylinder", "CIRCLE", -2, -2, 1, 2, 2, 11, "39 10|10 0|20 0|30 1|40 2"},
    {"quarter arc", "ARC", 0, 0, 0, 1, 1, 0, "10 0|20 0|30 0|40 1|100 AcDbArc|50 0|51 90"},
    {"arc over the x axis", "ARC", kRoot2, -kRoot2, 0, 2, kRoot2, 0, "10 0|20 0|30 0|40 2|100 AcDbArc|50 315|51 45"},
    {"arc that leaves out the top", "ARC", -2, -2, 0, 2, kRoot2, 0, "10 0|20 0|30 0|40 2|100 AcDbArc|50 135|51 45"},
    {"arc of equal angles is a full turn", "ARC", -1, -1, 0, 1, 1, 0, "10 0|20 0|30 0|40 1|100 AcDbArc|50 30|51 30"},
    {"arc with angles beyond a turn", "ARC", 0, 0, 0, 1, 1, 0, "10 0|20 0|30 0|40 1|100 AcDbArc|50 720|51 810"},
    {"arc seen from below", "ARC", -1, 0, 0, 0, 1, 0, "10 0|20 0|30 0|40 1|210 0|220 0|230 -1|100 AcDbArc|50 0|51 90"},
    {"half ellipse", "ELLIPSE", -3, 1, 0, 5, 3, 0,
     "10 1|20 1|30 0|11 4|21 0|31 0|210 0|220 0|230 1|40 0.5|41 0|42 3.14159265358979"},
    {"turned ellipse", "ELLIPSE", -std::sqrt(11.25), -std::sqrt(11.25), 0, std::sqrt(11.25), std::sqrt(11.25), 0,
     "10 0|20 0|30 0|11 3|21 3|31 0|210 0|220 0|230 1|40 0.5|41 0|42 6.28318530717959"},
    {"solid, corners crosswise", "SOLID", 0, 0, 0, 2, 1, 3,
     "10 0|20 0|30 0|11 2|21 0|31 0|12 0|22 1|32 0|13 2|23 1|33 0|39 3"},
    {"triangle without a fourth corner", "SOLID", 0, 0, 0, 2, 5, 0, "10 0|20 0|30 0|11 2|21 0|31 0|12 1|22 5|32 0"},
    {"face", "3DFACE", 0, 0, -1, 2, 3, 2, "10 0|20 0|30 0|11 2|21 0|31 1|12 2|22 3|32 2|13 0|23 3|33 -1"},
    {"leader", "LEADER", 0, 0, 0, 8, 5, 1,
     "3 Standard|71 1|76 3|10 0|20 0|30 0|10 5|20 5|30 0|10 8|20 5|30 1|340 0|213 90|223 90|233 90"},
    {"image", "IMAGE", 1, 2, 0, 51, 22, 0,
     "90 0|10 1|20 2|30 0|11 0.5|21 0|31 0|12 0|22 0.25|32 0|13 100|23 80|70 1|280 0"},
    {"clipped image", "IMAGE", 10, 50, 0, 20, 70, 0,
     "90 0|10 0|20 0|30 0|11 1|21 0|31 0|12 0|22 1|32 0|13 100|23 80|70 7|280 1|71 1|91 2|14 9.5|24 9.5|14 19.5|24 "
     "29.5"},
    {"wipeout", "WIPEOUT", 10, 10, 0, 14, 12, 0,
     "90 0|10 10|20 10|30 0|11 4|21 0|31 0|12 0|22 4|32 0|13 1|23 1|70 7|280 1|71 2|91 4|14 -0.5|24 0.5|14 0.5|24 "
     "0.5|14 0|24 0|14 -0.5|24 0.5"},
    {"viewport", "VIEWPORT", 3, 5, 0, 7, 7, 0, "10 5|20 6|30 0|40 4|41 2|68 2|69 2"},
    {"lwpolyline", "LWPOLYLINE", 0, 0, 4, 3, 5, 4, "90 3|70 0|38 4|10 0|20 0|10 3|20 1|10 1|20 5"},
    {"half circle by a bulge of 1", "LWPOLYLINE", 0, -1, 0, 2, 0, 0, "90 2|70 0|10 0|20 0|42 1|10 2|20 0"},
    {"half circle by a bulge of -1", "LWPOLYLINE", 0, 0, 0, 2, 1, 0, "90 2|70 0|10 0|20 0|42 -1|10 2|20 0"},
    {"circle of two bulges", "LWPOLYLINE", 0, -1, 0, 2, 1, 0, "90 2|70 1|10 0|20 0|42 1|10 2|20 0|42 1"},
    // Three quarters of a circle: the bulge is tan(270/4 degrees).
    {"bulge above 1", "LWPOLYLINE", -kRoot2, -1 - kRoot2, 0, kRoot2, 0, 0,
     "90 2|70 0|10 -1|20 0|42 2.41421356237309|10 1|20 0"},
    {"wide segment", "LWPOLYLINE", 0, -1, 0, 10, 1, 0, "90 2|70 0|43 2|10 0|20 0|10 10|20 0"},
    {"widening segment", "LWPOLYLINE", 0, -3, 0, 10, 3, 0, "90 2|70 0|10 0|20 0|40 2|41 6|10 10|20 0"},
    {"wide arc", "LWPOLYLINE", -0.5, -2.5, 0, 4.5, 0, 0, "90 2|70 0|43 1|10 0|20 0|42 1|10 4|20 0"},
    {"bulge between equal points", "LWPOLYLINE", 1, 1, 0, 1, 1, 0, "90 2|70 0|10 1|20 1|42 1|10 1|20 1"},
    {"flat spline, degree 1", "SPLINE", 0, 0, 0, 4, 5, 1,
     "70 8|71 1|72 5|73 3|74 0|40 0|40 0|40 1|40 2|40 2|10 0|20 0|30 0|10 2|20 5|30 0|10 4|20 0|30 1"},
    {"parabola", "SPLINE", 0, 0, 0, 2, 1, 0,
     "70 8|71 2|72 6|73 3|74 0|40 0|40 0|40 0|40 1|40 1|40 1|10 0|20 0|30 0|10 1|20 2|30 0|10 2|20 0|30 0"},
    {"quarter circle as a rational spline", "SPLINE", 0, 0, 0, 1, 1, 0,
     "70 12|71 2|72 6|73 3|74 0|40 0|40 0|40 0|40 1|40 1|40 1|41 1|41 0.70710678118654757|41 1|10 1|20 0|30 0|10 1|20 "
     "1|30 0|10 0|20 1|30 0"},
    {"spline of fit points alone", "SPLINE", 1, 0, 0, 4, 2, 3,
     "70 8|71 3|72 0|73 0|74 2|11 1|21 2|31 3|11 4|21 0|31 0"},
    {"spline with too few knots falls back to its control points", "SPLINE", 0, 0, 0, 3, 4, 0,
     "70 8|71 3|72 2|73 2|74 0|40 0|40 1|10 0|20 0|30 0|10 3|20 4|30 0"},
    {"hatch with a polyline", "HATCH", 0, -1, 2, 2, 1, 2,
     "10 0|20 0|30 2|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|92 3|72 1|73 1|93 2|10 0|20 0|42 1|10 2|20 0|42 1|97 "
     "0|75 0|76 1|98 1|10 99|20 99"},
    {"hatch with edges", "HATCH", 0, 0, 0, 4, 2, 0,
     "10 0|20 0|30 0|210 0|220 0|230 1|2 ANSI31|70 0|71 0|91 1|92 1|93 2|72 1|10 0|20 0|11 4|21 0|72 2|10 2|20 0|40 "
     "2|50 0|51 180|73 1|97 0|75 0|76 1|52 0|41 1|77 0|78 1|53 45|43 77|44 77|45 -2|46 2|79 0|98 0"},
    {"hatch with a clockwise arc", "HATCH", 0, -1, 0, 1, 0, 0,
     "10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|92 1|93 1|72 2|10 0|20 0|40 1|50 0|51 90|73 0|97 0|75 "
     "0|76 1|98 0"},
    {"hatch with an elliptical edge", "HATCH", -2, -1, 0, 2, 1, 0,
     "10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|92 1|93 1|72 3|10 0|20 0|11 2|21 0|40 0.5|50 0|51 360|73 "
     "1|97 0|75 0|76 1|98 0"},
};

TEST_F(EntityTest, SingleExtentsAreThoseWorkedOutByHand)
{
    for (const Case& row : kCases)
    {
        const Box box{row.x0, row.y0, row.z0, row.x1, row.y1, row.z1};
        expectBoxOf(*entityFrom(row.dxfName, row.groups), box, 1e-9, row.what);
    }
}

/// Boxes of texts "HHH" of height 2 that stand at (10, 20), from what is seen of the line.
TEST_F(EntityTest, TextsReachFromTheirAlignmentPointByTheirSize)
{
    const OdGiShapedText line = shapedText(L"HHH");
    const double w = line.width * 2;
    const double l = line.ink.minPoint().x * 2;
    const double r = line.ink.maxPoint().x * 2;
    const OdGiShapedText deep = shapedText(L"HgH");
    const double d = -2 * shapedText(L"gpqy").ink.minPoint().y;
    ASSERT_GT(l, 0.0);
    ASSERT_LT(r, w);
    ASSERT_NEAR(line.ink.minPoint().y, 0.0, 1e-9);
    const struct
    {
        const char* what;
        double x0, y0, z0, x1, y1, z1;
        const char* groups;
        double tolerance = 1e-6;
    } rows[] = {
        {"left", 10 + l, 20, 0, 10 + r, 22, 0, "10 10|20 20|30 0|40 2|1 HHH"},
        {"with a descender", 10 + l, 20 + deep.ink.minPoint().y * 2, 0, 10 + deep.ink.maxPoint().x * 2, 22, 0,
         "10 10|20 20|30 0|40 2|1 HgH"},
        {"half as wide", 10 + l / 2, 20, 0, 10 + r / 2, 22, 0, "10 10|20 20|30 0|40 2|1 HHH|41 0.5"},
        {"turned by 90 degrees", 8, 20 + l, 0, 10, 20 + r, 0, "10 10|20 20|30 0|40 2|1 HHH|50 90"},
        {"turned by 180 degrees", 10 - r, 18, 0, 10 - l, 20, 0, "10 10|20 20|30 0|40 2|1 HHH|50 180"},
        {"slanted by 45 degrees, its corners being round", 10 + l, 20, 0, 10 + r + 2, 22, 0,
         "10 10|20 20|30 0|40 2|1 HHH|51 45", 0.06},
        {"centred", 10 - w / 2 + l, 20, 0, 10 - w / 2 + r, 22, 0, "10 0|20 0|30 0|40 2|1 HHH|72 1|11 10|21 20|31 0"},
        {"right", 10 - w + l, 20, 0, 10 - w + r, 22, 0, "10 0|20 0|30 0|40 2|1 HHH|72 2|11 10|21 20|31 0"},
        {"middle", 10 - w / 2 + l, 19, 0, 10 - w / 2 + r, 21, 0, "10 0|20 0|30 0|40 2|1 HHH|72 4|11 10|21 20|31 0"},
        {"top right", 10 - w + l, 18, 0, 10 - w + r, 20, 0,
         "10 0|20 0|30 0|40 2|1 HHH|72 2|11 10|21 20|31 0|100 AcDbText|73 3"},
        {"bottom left", 10 + l, 20 + d, 0, 10 + r, 22 + d, 0,
         "10 0|20 0|30 0|40 2|1 HHH|72 0|11 10|21 20|31 0|100 AcDbText|73 1"},
        {"aligned between points", 10 + 10 * l / w, 20, 0, 10 + 10 * r / w, 20 + 20 / w, 0,
         "10 10|20 20|30 0|40 2|1 HHH|72 3|11 20|21 20|31 0"},
        {"fitted between points", 10 + 10 * l / w, 20, 0, 10 + 10 * r / w, 22, 0,
         "10 10|20 20|30 0|40 2|1 HHH|72 5|11 20|21 20|31 0"},
        {"backward", 10 - r, 20, 0, 10 - l, 22, 0, "10 10|20 20|30 0|40 2|1 HHH|71 2"},
        {"upside down", 10 + l, 18, 0, 10 + r, 20, 0, "10 10|20 20|30 0|40 2|1 HHH|71 4"},
        {"both", 10 - r, 18, 0, 10 - l, 20, 0, "10 10|20 20|30 0|40 2|1 HHH|71 6"},
        {"codes of characters", 10 + l, 20, 0, 10 + r, 22, 0, "10 10|20 20|30 0|40 2|1 HH%%072"},
        {"seen from behind", -10 - r, 20, 0, -10 - l, 22, 0, "10 10|20 20|30 0|40 2|1 HHH|210 0|220 0|230 -1"},
        {"with thickness", 10 + l, 20, 1, 10 + r, 22, 1, "39 5|10 10|20 20|30 1|40 2|1 HHH"},
    };
    for (const auto& row : rows)
    {
        const Box box{row.x0, row.y0, row.z0, row.x1, row.y1, row.z1};
        expectBoxOf(*entityFrom("TEXT", row.groups), box, row.tolerance, row.what);
    }
}

TEST_F(EntityTest, UnderlinedAndOverlinedTextsReachToTheirLines)
{
    const Box plain = boxOf(*entityFrom("TEXT", "10 0|20 0|30 0|40 2|1 HHH"));
    const Box lined = boxOf(*entityFrom("TEXT", "10 0|20 0|30 0|40 2|1 %%oHH%%uH%%o%%u"));
    EXPECT_LT(lined.y0, plain.y0 - 0.2);
    EXPECT_GT(lined.y1, plain.y1 + 0.2);
    EXPECT_NEAR(lined.x1, shapedText(L"HHH").width * 2, 1e-9);
}

/// Glyphs are not boxes: the extents of a turned line follow their outlines.
TEST_F(EntityTest, TurnedTextsReachAsFarAsTheirOutlines)
{
    // A letter o is as wide and as high in whatever direction it is seen, but for the little it is no circle.
    const Box upright = boxOf(*entityFrom("TEXT", "10 0|20 0|30 0|40 2|1 O|7 STANDARD"));
    const Box turned = boxOf(*entityFrom("TEXT", "10 0|20 0|30 0|40 2|1 O|50 45"));
    const double diagonal = std::hypot(upright.x1 - upright.x0, upright.y1 - upright.y0);
    EXPECT_LT(turned.x1 - turned.x0, 0.95 * diagonal);
    EXPECT_GT(turned.x1 - turned.x0, std::min(upright.x1 - upright.x0, upright.y1 - upright.y0));
}

TEST_F(EntityTest, WhatDrawsNothingHasNoExtentsAndLeavesTheBoxAlone)
{
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"empty text", "TEXT", "10 1|20 1|30 0|40 2|1 "},
        {"endless line", "XLINE", "10 1|20 1|30 0|11 1|21 0|31 0"},
        {"ray", "RAY", "10 1|20 1|30 0|11 1|21 0|31 0"},
        {"polyline without vertices", "LWPOLYLINE", "90 0|70 0"},
        {"spline without points", "SPLINE", "70 8|71 3|72 0|73 0|74 0"},
        {"hatch without loops", "HATCH", "10 0|20 0|30 0|2 SOLID|70 1|71 0|91 0|75 0|76 1|98 0"},
        {"line that is not a number", "LINE", "10 nan|20 0|30 0|11 nan|21 0|31 0"},
        {"circle of infinite radius", "CIRCLE", "10 0|20 0|30 0|40 inf"},
        {"arc whose angle is not a number", "ARC", "10 0|20 0|30 0|40 1|100 AcDbArc|50 nan|51 1"},
        {"bulge that is not a number", "LWPOLYLINE", "90 2|70 0|10 0|20 0|42 nan|10 1|20 0"},
        {"sheet viewport", "VIEWPORT", "10 5|20 6|30 0|40 4|41 2|68 1|69 1"},
        {"reference to no block", "INSERT", "100 AcDbBlockReference|2 NOWHERE|10 0|20 0|30 0"},
        {"dimension without block", "DIMENSION", "100 AcDbDimension|10 0|20 0|30 0|70 0"},
        {"unknown entity", "WHATEVER", "100 AcDbWhatever|10 1|20 2|30 3"},
        {"entity with no data", "LINE", ""},
    };
    for (const auto& [what, dxfName, groups] : rows)
    {
        const OdDbEntityPtr entity = entityFrom(dxfName, groups);
        OdGeExtents3d extents(OdGePoint3d(1, 2, 3), OdGePoint3d(4, 5, 6));
        const bool empty = std::string_view(groups).empty();
        EXPECT_EQ(entity->getGeomExtents(extents), empty ? eOk : eInvalidExtents) << what;
        if (!empty)
            expectBox(extents, {1, 2, 3, 4, 5, 6}, 0.0, what);
    }
}

} // namespace
