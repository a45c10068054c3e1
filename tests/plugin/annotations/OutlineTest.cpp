// Attacks the outlines of stamps: shapes by their corners, roundings that do not fit, and areas of random shapes,
// computed once from the vertices and once from what the shape is.
#include "annotations/AnnotationOutline.h"

#include <cmath>
#include <random>

#include "AnnotationTest.h"
#include "ShapeArea.h"

using namespace annotationtest;
using Annotation::MakeOutline;
using Annotation::Outline;

namespace
{

Outline outlineOf(OdInt32 shape, double width, double height, double radius = 0.0)
{
    AnnotationProperties properties;
    properties.borderShape = shape;
    properties.width = width;
    properties.height = height;
    properties.cornerRadius = radius;
    return MakeOutline(properties);
}

void expectPoints(const Outline& outline, const std::vector<OdGePoint2d>& points, const std::string& what)
{
    ASSERT_EQ(outline.points.size(), points.size()) << what;
    ASSERT_EQ(outline.bulges.size(), points.size()) << what;
    for (unsigned i = 0; i < points.size(); ++i)
        EXPECT_LT(outline.points[i].distanceTo(points[i]), 1e-12 * (1.0 + points[i].asVector().length()))
            << what << " vertex " << i << ": " << outline.points[i].x << " " << outline.points[i].y;
}

TEST(OutlineTest, ShapesHaveTheirCorners)
{
    const double w = 40, h = 10, third = std::sqrt(0.75);
    const std::vector<OdGePoint2d> rectangle = {{-20, -5}, {20, -5}, {20, 5}, {-20, 5}};
    for (const OdInt32 shape : {0, 1, 2, -1, -2, -4})
        expectPoints(outlineOf(shape, w, h), rectangle, std::to_string(shape));
    expectPoints(outlineOf(4, w, h), {{0, 10}, {-40, 0}, {0, -10}, {40, 0}}, "diamond");
    const double r3 = h / std::sqrt(2) / 0.5, r6 = h / std::sqrt(2) / third;
    expectPoints(outlineOf(3, w, h), {{0, r3}, {-r3 * third * 4, -r3 / 2}, {r3 * third * 4, -r3 / 2}}, "triangle");
    expectPoints(outlineOf(-3, w, h), {{r3 * third * 4, r3 / 2}, {0, -r3}, {-r3 * third * 4, r3 / 2}},
                 "turned triangle");
    const Outline hexagon = outlineOf(6, w, h);
    EXPECT_LT(hexagon.points[0].distanceTo(OdGePoint2d(0, r6)), 1e-12);
    EXPECT_LT(hexagon.points[1].x, 0.0); // counter-clockwise
    EXPECT_GT(outlineOf(-6, w, h).points[1].x, outlineOf(-6, w, h).points[0].x);
    EXPECT_EQ(outlineOf(-256, w, h).points.size(), 256u);
}

TEST(OutlineTest, TheEllipseGoesThroughTheCornersOfTheBox)
{
    const Outline ellipse = outlineOf(256, 40, 10, 3.0);
    ASSERT_EQ(ellipse.points.size(), 50u);
    for (unsigned i = 0; i < 50; ++i)
    {
        const OdGePoint2d& point = ellipse.points[i];
        EXPECT_NEAR(std::pow(point.x / 40, 2) + std::pow(point.y / 10, 2), 0.5, 1e-12);
        EXPECT_EQ(ellipse.bulges[i], 0.0);
        const OdGePoint2d& next = ellipse.points[(i + 1) % 50];
        const double step = std::atan2(next.y / 10, next.x / 40) - std::atan2(point.y / 10, point.x / 40);
        EXPECT_NEAR(std::remainder(step, Oda2PI), Oda2PI / 50, 1e-12);
    }
}

TEST(OutlineTest, RectanglesAreRoundedByQuarterCirclesAsFarAsTheyFit)
{
    const double bulge = std::tan(0.39269908169872414);
    const Outline rounded = outlineOf(-4, 40, 10, 2);
    expectPoints(rounded, {{-20, -3}, {-18, -5}, {18, -5}, {20, -3}, {20, 3}, {18, 5}, {-18, 5}, {-20, 3}}, "2");
    for (unsigned i = 0; i < 8; ++i)
        EXPECT_NEAR(rounded.bulges[i], i % 2 == 0 ? bulge : 0.0, 1e-15);
    // Arcs that meet in the middle of the short sides share their vertices.
    for (const double radius : {5.0, 7.0, 1e9})
        expectPoints(outlineOf(-4, 40, 10, radius), {{-20, 0}, {-15, -5}, {15, -5}, {20, 0}, {15, 5}, {-15, 5}},
                     std::to_string(radius));
    expectPoints(outlineOf(0, 10, 10, 6), {{-5, 0}, {0, -5}, {5, 0}, {0, 5}}, "circle");
    for (const double none : {1e-9, 1e-8, 0.0, -3.0})
        EXPECT_EQ(outlineOf(-4, 40, 10, none).points.size(), 4u) << none;
}

TEST(OutlineTest, AreasAreThoseOfTheShapes)
{
    std::mt19937 random(7);
    const auto real = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    for (int turn = 0; turn < 3000; ++turn)
    {
        const OdInt32 shape = turn % 10 == 0 ? 256 : std::uniform_int_distribution(-40, 40)(random);
        const double scale = std::pow(10.0, real(-6, 9)); // from less than millimetres to more than metres
        const double width = scale * real(0.1, 10), height = scale * real(0.1, 10);
        const double radius = turn % 3 == 0 ? 0.0 : scale * real(0, 8);
        const Outline outline = outlineOf(shape, width, height, radius);
        const double area = shapearea::ofVertices(outline.points, outline.bulges);
        const double expected = shapearea::ofShape(shape, width, height, radius);
        EXPECT_NEAR(area, expected, 1e-9 * std::fabs(expected))
            << shape << " " << width << " x " << height << " r " << radius;
        for (unsigned i = 0; i < outline.points.size(); ++i)
            EXPECT_GT(outline.points[i].distanceTo(outline.points[(i + 1) % outline.points.size()]), 0.0);
    }
}

TEST(OutlineTest, FlatOutlinesStrayByAThousandthOfTheRadius)
{
    for (const OdInt32 shape : {-4, 3, -5, 6})
    {
        const Outline outline = outlineOf(shape, 40, 10, 2);
        const OdGePoint2dArray flat = Annotation::FlattenOutline(outline);
        OdGeDoubleArray straight;
        straight.resize(flat.size(), 0.0);
        const double area = shapearea::ofVertices(outline.points, outline.bulges);
        const double lost = std::fabs(area) - std::fabs(shapearea::ofVertices(flat, straight));
        EXPECT_GT(lost, 0.0);
        EXPECT_LT(lost, 2 * Oda2PI * 2 * 2 * 1e-3); // the arcs of a whole circle
        EXPECT_GT(flat.size(), outline.points.size());
    }
    EXPECT_EQ(Annotation::FlattenOutline(outlineOf(256, 40, 10)).size(), 50u);
}

} // namespace
