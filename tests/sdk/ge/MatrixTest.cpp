// Attacks mappings by their properties on random ones: inverses, products, planes of any normal.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "Ge/GeMatrix2d.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePlane.h"
#include "OdaDefs.h"
#include "support/ErrorCode.h"

namespace
{

constexpr double kNear = 1e-9;

class Random
{
public:
    double number(double size) { return std::uniform_real_distribution<double>(-size, size)(m_engine); }
    OdGeVector3d vector(double size) { return {number(size), number(size), number(size)}; }
    OdGePoint3d point(double size) { return vector(size).asPoint(); }
    OdGeMatrix3d mapping()
    {
        const OdGeMatrix3d scaled = OdGeMatrix3d::scaling(OdGeScale3d(factor(), factor(), factor()), point(10));
        const OdGeMatrix3d turned = OdGeMatrix3d::rotation(number(10), vector(1), point(10));
        return OdGeMatrix3d::translation(vector(10)) * turned * scaled * OdGeMatrix3d::rotation(number(10), vector(1));
    }

private:
    double factor()
    {
        const double size = std::exp(number(1));
        return m_engine() % 2 ? size : -size;
    }
    std::mt19937_64 m_engine{42};
};

using support::codeOf;

TEST(Matrix3d, InversesAndProductsAgreeWithMappingPoints)
{
    Random random;
    for (int round = 0; round < 2000; ++round)
    {
        const OdGeMatrix3d first = random.mapping();
        const OdGeMatrix3d second = random.mapping();
        const OdGePoint3d point = random.point(10);
        ASSERT_TRUE((first * first.inverse()).isEqualTo(OdGeMatrix3d::kIdentity, kNear)) << round;
        ASSERT_TRUE((first * second * point).isEqualTo(first * (second * point), 1e-7)) << round;
        ASSERT_TRUE((first.inverse() * (first * point)).isEqualTo(point, 1e-7)) << round;
        ASSERT_NEAR((first * second).det(), first.det() * second.det(), kNear * std::fabs(first.det() * second.det()));
        const OdGeVector3d vector = random.vector(10);
        ASSERT_TRUE((first * (point + vector) - first * point).isEqualTo(first * vector, 1e-7));
    }
}

TEST(Matrix3d, TurningKeepsLengthsAndTheAxis)
{
    Random random;
    for (int round = 0; round < 1000; ++round)
    {
        const OdGeVector3d axis = random.vector(1);
        const OdGePoint3d center = random.point(100);
        const double angle = random.number(7);
        const OdGeMatrix3d turn = OdGeMatrix3d::rotation(angle, axis, center);
        ASSERT_TRUE(turn.isUniScaledOrtho(kNear));
        ASSERT_NEAR(turn.det(), 1.0, kNear);
        ASSERT_TRUE((turn * (center + axis)).isEqualTo(center + axis, kNear));
        const OdGeVector3d arm = axis.perpVector();
        ASSERT_NEAR(std::cos(arm.angleTo(turn * arm, axis)), std::cos(angle), kNear);
        ASSERT_NEAR(std::sin(arm.angleTo(turn * arm, axis)), std::sin(angle), 1e-8);
    }
    EXPECT_TRUE((OdGeMatrix3d::rotation(OdaPI2, OdGeVector3d::kZAxis) * OdGeVector3d::kXAxis) == OdGeVector3d::kYAxis);
}

TEST(Matrix3d, MirroringTwiceLeavesEverything)
{
    Random random;
    for (int round = 0; round < 500; ++round)
    {
        const OdGePlane plane(random.point(10), random.vector(1));
        const OdGePoint3d point = random.point(10);
        const OdGeMatrix3d mirrors[] = {OdGeMatrix3d::mirroring(plane), OdGeMatrix3d::mirroring(random.point(10)),
                                        OdGeMatrix3d::mirroring(random.point(10), random.vector(1))};
        for (const OdGeMatrix3d& mirror : mirrors)
            ASSERT_TRUE((mirror * mirror).isEqualTo(OdGeMatrix3d::kIdentity, 1e-8));
        ASSERT_NEAR(plane.signedDistanceTo(mirrors[0] * point), -plane.signedDistanceTo(point), 1e-8);
        ASSERT_NEAR(plane.signedDistanceTo(plane.project(point)), 0.0, kNear);
    }
}

TEST(Matrix3d, PlanesHaveTheAxesThatDrawingsGiveThem)
{
    const std::pair<OdGeVector3d, OdGeVector3d> kPlanes[] = {
        {{0, 0, 1}, {1, 0, 0}},
        {{0, 0, -1}, {-1, 0, 0}},
        {{0, 0, 1e-200}, {1, 0, 0}},
        {{1, 0, 0}, {0, 1, 0}},
        {{0, 1, 0}, {-1, 0, 0}},
        {{0, -5, 0}, {1, 0, 0}},
        {{1.0 / 65, 0, 1}, OdGeVector3d(1, 0, -1.0 / 65).normal()}, // still near the z axis
        {{1.0 / 60, 0, 1}, {0, 1, 0}},                              // no longer
    };
    for (const auto& [upright, xAxis] : kPlanes)
    {
        const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(upright);
        EXPECT_TRUE(plane.getCsXAxis().isEqualTo(xAxis, kNear)) << upright.x << " " << upright.y;
    }
    Random random;
    for (int round = 0; round < 1000; ++round)
    {
        const OdGeVector3d normal = random.vector(1);
        const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal);
        ASSERT_TRUE(plane.isUniScaledOrtho(kNear));
        ASSERT_NEAR(plane.det(), 1.0, kNear);
        ASSERT_TRUE(plane.getCsZAxis().isCodirectionalTo(normal, kNear));
        ASSERT_TRUE((plane * OdGeMatrix3d::worldToPlane(normal)).isEqualTo(OdGeMatrix3d::kIdentity, kNear));
    }
}

TEST(Matrix3d, WhatCannotBeMappedBackIsRefused)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    const struct
    {
        const char* what;
        OdResult expected;
        void (*work)(double nan, double infinite);
    } kCases[] = {
        {"flat", eNonInvertibleMatrix, [](double, double) { OdGeMatrix3d::scaling(OdGeScale3d(1, 0, 1)).inverse(); }},
        {"nothing", eNonInvertibleMatrix, [](double, double) { OdGeMatrix3d::scaling(0.0).inverse(); }},
        {"no number", eNonInvertibleMatrix, [](double nan, double) { OdGeMatrix3d::scaling(nan).inverse(); }},
        {"infinite", eNonInvertibleMatrix, [](double, double inf) { OdGeMatrix3d::scaling(inf).inverse(); }},
        {"parallel axes", eNonInvertibleMatrix,
         [](double, double) {
             OdGeMatrix3d().setCoordSystem({}, {1, 2, 3}, {2, 4, 6}, {0, 0, 1}).inverse();
         }},
        {"very small", eOk, [](double, double) { OdGeMatrix3d::scaling(1e-30).inverse(); }},
        {"no axis", eInvalidInput, [](double, double) { OdGeMatrix3d::rotation(1, OdGeVector3d()); }},
        {"infinite axis", eInvalidInput,
         [](double, double inf) { OdGeMatrix3d::rotation(1, OdGeVector3d(inf, 0, 0)); }},
        {"no normal", eInvalidInput, [](double, double) { OdGeMatrix3d::planeToWorld(OdGeVector3d()); }},
        {"normal of no number", eInvalidInput,
         [](double nan, double) { OdGeMatrix3d::planeToWorld(OdGeVector3d(nan, 0, 1)); }},
        {"plane of parallel axes", eInvalidInput,
         [](double, double) { OdGePlane({}, OdGeVector3d(1, 1, 1), OdGeVector3d(-2, -2, -2)); }},
        {"line without direction", eInvalidInput,
         [](double, double) { OdGeMatrix2d::mirroring(OdGePoint2d(1, 1), OdGeVector2d(0, 0)); }},
        {"flat plane", eNonInvertibleMatrix, [](double, double) { OdGeMatrix2d::scaling(0.0).inverse(); }},
        {"scale of nothing", eNonInvertibleMatrix, [](double, double) { OdGeScale3d(1, 0, 1).inverse(); }},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(codeOf([&] { row.work(nan, infinite); }), row.expected) << row.what;
    EXPECT_FALSE(OdGeMatrix3d::scaling(nan).isFinite());
    EXPECT_FALSE(OdGeMatrix3d::scaling(OdGeScale3d(1, 2, 1)).isUniScaledOrtho());
    EXPECT_TRUE(OdGeMatrix3d::scaling(OdGeScale3d(2, -2, 2)).isUniScaledOrtho());
}

TEST(Matrix2d, InversesAgreeWithMappingPoints)
{
    Random random;
    for (int round = 0; round < 1000; ++round)
    {
        const OdGePoint2d center(random.number(10), random.number(10));
        const OdGeVector2d direction(random.number(1), random.number(1));
        const OdGeMatrix2d mapping =
            OdGeMatrix2d::rotation(random.number(7), center) * OdGeMatrix2d::mirroring(center, direction) *
            OdGeMatrix2d::scaling(random.number(3), center) * OdGeMatrix2d::translation(direction);
        const OdGePoint2d point(random.number(10), random.number(10));
        ASSERT_TRUE((mapping.inverse() * (mapping * point)).isEqualTo(point, 1e-7)) << round;
        ASSERT_TRUE((mapping * mapping.inverse()).isEqualTo(OdGeMatrix2d::kIdentity, 1e-7)) << round;
    }
}

TEST(Vector, AnglesLieInTheirRange)
{
    EXPECT_NEAR(OdGeVector2d(0, -1).angle(), 1.5 * OdaPI, kNear);
    EXPECT_EQ(OdGeVector2d(1, -1e-320).angle(), 0.0) << "not a full turn";
    EXPECT_NEAR(OdGeVector2d(1, 0).angleToCCW({0, -1}), 1.5 * OdaPI, kNear);
    EXPECT_NEAR(OdGeVector3d(1, 0, 0).angleTo({-1, 0, 0}), OdaPI, kNear);
    EXPECT_NEAR(OdGeVector3d(1, 0, 0).angleTo({0, 1, 0}, {0, 0, -1}), 1.5 * OdaPI, kNear);
    EXPECT_NEAR(OdGeVector3d(1, 0, 0).angleTo({1, 1e-9, 0}), 1e-9, 1e-15) << "small angles keep their digits";
    EXPECT_FALSE(OdGeVector3d().isParallelTo({1, 0, 0}) || OdGeVector3d().isPerpendicularTo({1, 0, 0}));
    EXPECT_TRUE(OdGeVector3d().normal() == OdGeVector3d());
    EXPECT_NEAR(OdGeVector3d(1e200, 1e200, 0).length(), std::sqrt(2.0) * 1e200, 1e190) << "no overflow on the way";
}

} // namespace
