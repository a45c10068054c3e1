// Attacks boxes, and the exact boxes of arcs by comparing them with many points of the arc.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "Ge/GeCircArc2d.h"
#include "Ge/GeCircArc3d.h"
#include "Ge/GeEllipArc3d.h"
#include "Ge/GeExtents3d.h"
#include "OdError.h"
#include "OdaDefs.h"

namespace
{

constexpr double kStep = 1e-4;

TEST(Extents, NoBoxStaysNoneUntilAPointComes)
{
    OdGeExtents3d extents;
    extents.addExt(OdGeExtents3d::kInvalid);
    extents.expandBy({1, 1, 1});
    extents.translate({1, 1, 1});
    extents.transformBy(OdGeMatrix3d::scaling(-1.0));
    EXPECT_FALSE(extents.isValidExtents());
    EXPECT_FALSE(extents.contains(OdGePoint3d()));
    extents.addPoint({1, 2, 3});
    EXPECT_TRUE(extents.isValidExtents() && extents.minPoint() == OdGePoint3d(1, 2, 3));
    extents.addPoint({std::numeric_limits<double>::quiet_NaN(), 5, 0});
    EXPECT_TRUE(extents.minPoint() == OdGePoint3d(1, 2, 0) && extents.maxPoint() == OdGePoint3d(1, 5, 3));
    OdGeExtents2d flat;
    extents.convert2d(flat);
    EXPECT_TRUE(flat == OdGeExtents2d({1, 2}, {1, 5}));
}

TEST(Extents, ContainAndMeetAtTheirBorders)
{
    OdGeExtents3d box;
    box.comparingSet({5, 0, 9}, {1, 4, 1});
    EXPECT_TRUE(box == OdGeExtents3d({1, 0, 1}, {5, 4, 9}));
    EXPECT_TRUE(box.contains(OdGePoint3d(1, 4, 9)) && box.contains(OdGePoint3d(5 + 1e-11, 0, 1)));
    EXPECT_FALSE(box.contains(OdGePoint3d(5.001, 0, 1)));
    EXPECT_TRUE(box.contains(box) && !box.contains(OdGeExtents3d({1, 0, 1}, {6, 4, 9})));
    EXPECT_FALSE(box.isDisjoint(OdGeExtents3d({5, 4, 9}, {6, 6, 10})));
    EXPECT_TRUE(box.isDisjoint(OdGeExtents3d({5.1, 0, 1}, {6, 4, 9})));
    EXPECT_FALSE(box.contains(OdGePoint3d(std::numeric_limits<double>::quiet_NaN(), 0, 1)));
    box.transformBy(OdGeMatrix3d::rotation(OdaPI2, OdGeVector3d::kZAxis));
    EXPECT_TRUE(box == OdGeExtents3d({-4, 1, 1}, {0, 5, 9}));
    box.expandBy({-1, 0, 2});
    EXPECT_TRUE(box == OdGeExtents3d({-5, 1, 1}, {0, 5, 11}));
}

template<class Extents, class Arc>
void expectExact(const Extents& extents, const Arc& arc, double start, double end, double size, int round)
{
    Extents walked;
    for (int i = 0; i <= 2000; ++i)
        walked.addPoint(arc.evalPoint(start + (end - start) * i / 2000));
    ASSERT_TRUE(extents.contains(walked, 1e-9 * size)) << "round " << round;
    Extents widened = walked;
    widened.addExt(extents);
    ASSERT_TRUE(walked.isEqualTo(widened, kStep * size)) << "round " << round << ": too large";
}

TEST(Extents, OfArcsAreExact)
{
    std::mt19937_64 engine(5);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int round = 0; round < 300; ++round)
    {
        const double start = 10 * unit(engine);
        const double end = start + Oda2PI * (round % 5 == 0 ? 1.0 : std::fabs(unit(engine)));
        const double radius = 0.1 + 5 * std::fabs(unit(engine));
        const OdGeVector3d normal(unit(engine), unit(engine), round % 3 ? unit(engine) : 0.0);
        const OdGeCircArc3d arc({1, 2, 3}, normal, normal.perpVector(), radius, start, end);
        expectExact(arc.getGeomExtents(), arc, start, end, radius, round);
        const OdGeCircArc2d flat({1, 2}, radius, start, end, round % 2 == 0);
        expectExact(flat.getGeomExtents(), flat, start, end, radius, round);
        OdGeEllipArc3d ellipse({1, 2, 3}, OdGeVector3d(3, 1, 0) * radius, OdGeVector3d(0, 1, 1), start, end);
        expectExact(ellipse.getGeomExtents(), ellipse, start, end, 4 * radius + 2, round);
    }
    const OdGeExtents3d circle = OdGeCircArc3d({1, 1, 0}, OdGeVector3d::kZAxis, 2).getGeomExtents();
    EXPECT_TRUE(circle.isEqualTo(OdGeExtents3d({-1, -1, 0}, {3, 3, 0}), 1e-12));
}

TEST(Arc, OfABulgeGoesThroughItsEnds)
{
    std::mt19937_64 engine(6);
    std::uniform_real_distribution<double> unit(-5.0, 5.0);
    for (int round = 0; round < 500; ++round)
    {
        const OdGePoint2d start(unit(engine), unit(engine));
        const OdGePoint2d end(unit(engine), unit(engine));
        const double bulge = unit(engine);
        const OdGeCircArc2d arc(start, end, bulge);
        ASSERT_TRUE(arc.startPoint().isEqualTo(start, 1e-7) && arc.endPoint().isEqualTo(end, 1e-7)) << round;
        ASSERT_EQ(arc.isClockWise(), bulge < 0);
        const double rise = arc.midPoint().distanceTo(start + (end - start) / 2.0);
        ASSERT_NEAR(rise, std::fabs(bulge) * start.distanceTo(end) / 2.0, 1e-6 * (1 + rise)) << round;
    }
    const OdGePoint2d same(1, 1);
    for (const auto& [end, bulge] : {std::pair(same, 1.0), std::pair(OdGePoint2d(2, 2), 0.0),
                                     std::pair(OdGePoint2d(2, 2), std::numeric_limits<double>::infinity())})
        EXPECT_THROW(OdGeCircArc2d(same, end, bulge), OdError);
    EXPECT_THROW(OdGeCircArc3d({}, {0, 0, 1}, {0, 0, 2}, 1, 0, 1), OdError);
}

} // namespace
