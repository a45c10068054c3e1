// Moving, turning, mirroring and scaling: whatever is drawn afterwards has to be what was drawn before, mapped.
#include <algorithm>
#include <vector>

#include "DbDimension.h"
#include "EntityTest.h"
#include "Ge/GePlane.h"
#include "gi/WorldDraw.h"

namespace
{

using namespace entitytest;

/// Keeps every point of what is drawn; curves leave sixteen points each, whole circles, which may start anywhere, their
/// centre and the ends of their axis.
class PointGeometry : public gi::Geometry
{
public:
    explicit PointGeometry(gi::WorldDraw& worldDraw) : gi::Geometry(worldDraw) {}

    void ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                  double startAngle, double endAngle) override
    {
        const double radius = majorAxis.length();
        if (std::fabs(endAngle - startAngle - 2 * 3.14159265358979323846) < 1e-9 &&
            std::fabs(minorAxis.length() - radius) < 1e-9)
            return keepCircle(toWorld() * center, toWorld() * majorAxis, toWorld() * minorAxis);
        for (int i = 0; i <= 16; ++i)
        {
            const double t = startAngle + (endAngle - startAngle) * i / 16;
            points.push_back(toWorld() * (center + majorAxis * std::cos(t) + minorAxis * std::sin(t)));
        }
    }
    void polyline(OdInt32 count, const OdGePoint3d* from, const OdGeVector3d* normal) override
    {
        for (OdInt32 i = 0; i < count; ++i)
            points.push_back(toWorld() * from[i]);
        if (normal && worldDraw().traits().thickness() != 0.0)
            points.push_back(points.back() + toWorld() * (*normal * worldDraw().traits().thickness()));
    }
    void xline(const OdGePoint3d& first, const OdGePoint3d& second) override
    {
        points.push_back(first);
        points.push_back(second);
    }
    void ray(const OdGePoint3d& first, const OdGePoint3d& second) override { xline(first, second); }

    std::vector<OdGePoint3d> points;

private:
    void keepCircle(const OdGePoint3d& center, const OdGeVector3d& major, const OdGeVector3d& minor)
    {
        const OdGeVector3d axis = major.crossProduct(minor) * (1.0 / major.length());
        points.insert(points.end(), {center, center + axis, center - axis});
    }
};

class PointDraw : public gi::WorldDraw
{
public:
    PointDraw() : gi::WorldDraw(kOdGiForExtents), m_geometry(*this) {}
    OdGiGeometry& geometry() const override { return m_geometry; }
    const std::vector<OdGePoint3d>& points() const { return m_geometry.points; }

private:
    mutable OdStaticRxObject<PointGeometry> m_geometry;
};

std::vector<OdGePoint3d> pointsOf(const OdDbEntity& entity)
{
    OdStaticRxObject<PointDraw> draw;
    entity.worldDraw(&draw);
    return draw.points();
}

struct Kind
{
    const char *what, *dxfName, *groups;
    bool skewable = false; ///< points alone hold its shape
};

#define TILTED "|210 0.66666666666666663|220 0.33333333333333331|230 -0.66666666666666663"

const Kind kKinds[] = {
    {"line", "LINE", "10 1|20 5|30 -2|11 4|21 2|31 3", true},
    {"point", "POINT", "10 1|20 5|30 -2"},
    {"circle", "CIRCLE", "10 3|20 4|30 5|40 2"},
    {"tilted circle", "CIRCLE", "10 3|20 4|30 5|40 2" TILTED},
    {"thick circle", "CIRCLE", "39 3|10 3|20 4|30 5|40 2"},
    {"arc", "ARC", "10 3|20 4|30 5|40 2|100 AcDbArc|50 20|51 250"},
    {"tilted arc", "ARC", "10 3|20 4|30 5|40 2" TILTED "|100 AcDbArc|50 20|51 250"},
    {"ellipse", "ELLIPSE", "10 1|20 1|30 0|11 4|21 1|31 0|210 0|220 0|230 1|40 0.5|41 1|42 3"},
    {"spline", "SPLINE",
     "70 8|71 2|72 6|73 3|74 0|12 1|22 0|32 0|40 0|40 0|40 0|40 1|40 1|40 1|10 0|20 0|30 0|10 1|20 2|30 0|10 2|20 0|30 "
     "4",
     true},
    {"construction line", "XLINE", "10 1|20 1|30 0|11 1|21 0|31 0"},
    {"ray", "RAY", "10 1|20 1|30 0|11 0|21 1|31 0"},
    {"polyline", "LWPOLYLINE", "90 3|70 1|38 2|10 0|20 0|42 0.5|10 3|20 1|10 1|20 5|42 -2"},
    {"tilted polyline", "LWPOLYLINE", "90 3|70 1|38 2|10 0|20 0|42 0.5|10 3|20 1|10 1|20 5" TILTED},
    {"wide polyline", "LWPOLYLINE", "90 2|70 0|43 0.5|10 0|20 0|10 3|20 1"},
    {"leader without arrow", "LEADER", "3 Standard|71 0|76 2|10 0|20 0|30 0|10 5|20 5|30 1|211 1|221 0|231 0"},
    {"text", "TEXT", "10 3|20 4|30 1|40 2|1 Hg|50 30|51 10"},
    {"centred tilted text", "TEXT", "10 0|20 0|30 0|40 2|1 Hg|72 1|11 10|21 20|31 2" TILTED},
    {"fitted text", "TEXT", "10 3|20 4|30 1|40 2|1 Hg|72 5|11 10|21 20|31 1"},
    {"multi-line text", "MTEXT", "10 10|20 20|30 3|40 2|41 30|71 5|72 1|1 one\\Ptwo g|11 1|21 1|31 0"},
    {"multi-line text by rotation", "MTEXT", "10 10|20 20|30 3|40 2|41 30|71 5|72 1|1 one|50 30"},
    {"solid", "SOLID", "10 0|20 0|30 1|11 2|21 0|31 1|12 0|22 1|32 1|13 2|23 1|33 1|39 3"},
    {"tilted trace", "TRACE", "10 0|20 0|30 1|11 2|21 0|31 1|12 0|22 1|32 1|13 2|23 1|33 1" TILTED},
    {"face", "3DFACE", "10 0|20 0|30 0|11 2|21 0|31 1|12 2|22 3|32 2|13 0|23 3|33 -1", true},
    {"image", "IMAGE", "90 0|10 1|20 2|30 0|11 0.5|21 0|31 0|12 0|22 0.25|32 0|13 100|23 80|70 1|280 0", true},
    {"hatch of a polyline", "HATCH",
     "10 0|20 0|30 2|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|92 3|72 1|73 1|93 2|10 0|20 0|42 1|10 2|20 1|42 0.5|97 "
     "0|75 0|76 1|98 1|10 1|20 1"},
    {"tilted hatch of edges", "HATCH",
     "10 0|20 0|30 3" TILTED "|2 ANSI31|70 0|71 0|91 1|92 1|93 4|72 1|10 0|20 0|11 4|21 0|72 2|10 2|20 0|40 2|50 10|51 "
     "170|73 1|72 2|10 2|20 0|40 1|50 10|51 80|73 0|72 3|10 1|20 1|11 3|21 1|40 0.5|50 10|51 "
     "200|73 0|97 0|75 0|76 1|52 0|41 1|77 0|78 1|53 45|43 7|44 7|45 -2|46 2|79 0|98 0"},
    {"hatch of a spline", "HATCH",
     "10 0|20 0|30 0|2 SOLID|70 1|71 0|91 1|92 1|93 1|72 4|94 2|73 0|74 0|95 6|96 3|40 0|40 0|40 0|40 1|40 1|40 1|10 "
     "0|20 0|10 1|20 2|10 2|20 0|97 2|11 0|21 0|11 2|21 0|12 1|22 1|13 1|23 -1|97 0|75 0|76 1|98 0"},
};

struct Map
{
    const char* what;
    OdGeMatrix3d matrix;
};

std::vector<Map> similarities()
{
    const OdGePoint3d center(3, -7, 2);
    const OdGeVector3d axis(1, 2, -0.5);
    return {{"move", OdGeMatrix3d::translation(OdGeVector3d(100, -50, 7))},
            {"turn about z", OdGeMatrix3d::rotation(0.7, OdGeVector3d(0, 0, 1), center)},
            {"turn in space", OdGeMatrix3d::rotation(2.1, axis, center)},
            {"scale", OdGeMatrix3d::scaling(2.5, center)},
            {"mirror in x", OdGeMatrix3d::scaling(OdGeScale3d(-1, 1, 1), center)},
            {"mirror in space", OdGeMatrix3d::mirroring(OdGePlane(center, axis))},
            {"all together", OdGeMatrix3d::rotation(1.1, axis, center) *
                                 OdGeMatrix3d::scaling(OdGeScale3d(3, -3, 3), center) *
                                 OdGeMatrix3d::translation(OdGeVector3d(5, 6, 7))}};
}

/// Which way round a circle is drawn, nobody sees, so the order of points does not count.
void expectPoints(std::vector<OdGePoint3d> found, std::vector<OdGePoint3d> expected, const std::string& what)
{
    const auto before = [](const OdGePoint3d& a, const OdGePoint3d& b)
    { return a.x + 3.1 * a.y + 7.7 * a.z < b.x + 3.1 * b.y + 7.7 * b.z; };
    std::sort(found.begin(), found.end(), before);
    std::sort(expected.begin(), expected.end(), before);
    ASSERT_EQ(found.size(), expected.size()) << what;
    for (std::size_t i = 0; i < found.size(); ++i)
        ASSERT_LT(found[i].distanceTo(expected[i]), 1e-8) << what << ", point " << i;
}

TEST_F(EntityTest, TransformingDrawsTheMappedPoints)
{
    for (const Kind& kind : kKinds)
        for (const Map& map : similarities())
        {
            const OdDbEntityPtr entity = entityFrom(kind.dxfName, kind.groups);
            std::vector<OdGePoint3d> expected = pointsOf(*entity);
            ASSERT_FALSE(expected.empty()) << kind.what;
            for (OdGePoint3d& point : expected)
                point = map.matrix * point;
            ASSERT_EQ(entity->transformBy(map.matrix), eOk) << kind.what << ", " << map.what;
            expectPoints(pointsOf(*entity), expected, std::string(kind.what) + ", " + map.what);
        }
}

TEST_F(EntityTest, TransformingBackAgainGivesTheSameFigures)
{
    for (const Kind& kind : kKinds)
    {
        const OdDbEntityPtr entity = entityFrom(kind.dxfName, kind.groups);
        const oddb::Groups before = oddb::ObjectCore::groups(*entity);
        ASSERT_EQ(entity->transformBy(OdGeMatrix3d::translation(OdGeVector3d(8, -16, 0))), eOk);
        ASSERT_EQ(entity->transformBy(OdGeMatrix3d::translation(OdGeVector3d(-8, 16, 0))), eOk);
        const oddb::Groups after = oddb::ObjectCore::groups(*entity);
        auto a = before.begin();
        auto b = after.begin();
        for (; a != before.end() && b != after.end(); ++a, ++b)
        {
            EXPECT_EQ(a->code(), b->code()) << kind.what;
            EXPECT_NEAR(a->real(), b->real(), 1e-12) << kind.what << ", group " << a->code();
            EXPECT_EQ(a->text(), b->text()) << kind.what << ", group " << a->code();
        }
    }
}

TEST_F(EntityTest, TransformingRefusesMatricesThatTheShapeCannotTake)
{
    for (const Kind& kind : kKinds)
    {
        const OdDbEntityPtr entity = entityFrom(kind.dxfName, kind.groups);
        const std::vector<OdGePoint3d> before = pointsOf(*entity);
        OdGeMatrix3d notFinite;
        notFinite[0][3] = std::nan("");
        EXPECT_EQ(entity->transformBy(notFinite), eInvalidInput) << kind.what;
        EXPECT_EQ(entity->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(1, 0, 1))), eInvalidInput) << kind.what;
        const OdGeMatrix3d uneven = OdGeMatrix3d::scaling(OdGeScale3d(1, 2, 3));
        const OdResult result = entity->transformBy(uneven);
        if (result == eOk)
        {
            std::vector<OdGePoint3d> expected = before;
            for (OdGePoint3d& point : expected)
                point = uneven * point;
            expectPoints(pointsOf(*entity), expected, kind.what);
        }
        else
        {
            EXPECT_FALSE(kind.skewable) << kind.what;
            EXPECT_EQ(result, eCannotScaleNonUniformly) << kind.what;
            expectPoints(pointsOf(*entity), before, kind.what);
        }
    }
}

/// Entities without a class of their own, and parts of groups that only some of them have.
TEST_F(EntityTest, UnknownKindsMoveByTheirListedGroups)
{
    const OdGeMatrix3d move = OdGeMatrix3d::translation(OdGeVector3d(10, 20, 30));
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"mline", "MLINE", "100 AcDbMline|10 1|20 2|30 3|11 4|21 5|31 6|12 1|22 0|32 0|13 0|23 1|33 0",
         "100 AcDbMline|10 11|20 22|30 33|11 14|21 25|31 36|12 1|22 0|32 0|13 0|23 1|33 0"},
        {"tolerance", "TOLERANCE", "100 AcDbFcf|3 S|10 1|20 2|30 3|1 x|11 1|21 0|31 0",
         "100 AcDbFcf|3 S|10 11|20 22|30 33|1 x|11 1|21 0|31 0"},
        {"light", "LIGHT", "100 AcDbLight|40 5|10 1|20 2|30 3|11 4|21 5|31 6",
         "100 AcDbLight|40 5|10 11|20 22|30 33|11 14|21 25|31 36"},
        {"multileader", "MULTILEADER",
         "100 AcDbMLeader|300 CONTEXT_DATA{|40 1|10 1|20 2|30 3|302 LEADER{|10 1|20 1|30 1|11 1|21 0|31 0|304 "
         "LEADER_LINE{|10 0|20 0|30 0|305 }|303 }|110 7|120 8|130 9|301 }|10 1|20 1|30 1",
         "100 AcDbMLeader|300 CONTEXT_DATA{|40 1|10 11|20 22|30 33|302 LEADER{|10 11|20 21|30 31|11 1|21 0|31 0|304 "
         "LEADER_LINE{|10 10|20 20|30 30|305 }|303 }|110 17|120 28|130 39|301 }|10 1|20 1|30 1"},
    };
    for (const auto& [what, dxfName, before, after] : rows)
    {
        const OdDbEntityPtr entity = entityFrom(dxfName, before);
        ASSERT_EQ(entity->transformBy(move), eOk) << what;
        EXPECT_TRUE(oddb::ObjectCore::groups(*entity) == groupsFrom("100 AcDbEntity|8 0|" + std::string(after)))
            << what;
    }
}

TEST_F(EntityTest, DimensionsMoveWithTheirBlockButDoNotTurn)
{
    OdDbEntityPtr entity =
        entityFrom("DIMENSION", "100 AcDbDimension|2 *D1|10 1|20 2|30 0|11 5|21 5|31 0|70 33|42 7.5|3 Standard|100 "
                                "AcDbAlignedDimension|13 0|23 0|33 0|14 9|24 0|34 0");
    OdDbAlignedDimensionPtr dimension = OdDbAlignedDimension::cast(entity);
    ASSERT_FALSE(dimension.isNull());
    EXPECT_TRUE(dimension->isSingleDimBlockReference());
    EXPECT_EQ(dimension->measurement(), 7.5);
    for (int times = 1; times <= 2; ++times)
    {
        ASSERT_EQ(dimension->transformBy(OdGeMatrix3d::translation(OdGeVector3d(1, 2, 3))), eOk);
        const oddb::GroupView offset = *oddb::ObjectCore::groups(*dimension).findAny(12);
        EXPECT_EQ(offset.real(), times);
    }
    EXPECT_EQ(dimension->xLine2Point(), OdGePoint3d(11, 4, 6));
    EXPECT_EQ(dimension->dimLinePoint(), OdGePoint3d(3, 6, 6));
    EXPECT_EQ(dimension->textPosition(), OdGePoint3d(7, 9, 6));
    EXPECT_EQ(dimension->transformBy(OdGeMatrix3d::rotation(1, OdGeVector3d(0, 0, 1))), eNotImplementedYet);
    EXPECT_EQ(dimension->xLine2Point(), OdGePoint3d(11, 4, 6));
}

} // namespace
