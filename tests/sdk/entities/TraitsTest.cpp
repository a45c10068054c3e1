// The looks that entities are drawn with, and what overrules make of them.
#include "DbCircle.h"
#include "DbLine.h"
#include "EntityTest.h"
#include "Gi/GiDrawableOverrule.h"
#include "support/ShapeRecorder.h"

namespace
{

using namespace entitytest;
using namespace support;

OdCmEntityColor drawnColor(const OdGiDrawable& drawable)
{
    const std::vector<DrawnShape> shapes = drawnBy(drawable);
    EXPECT_EQ(shapes.size(), 1u);
    return shapes.empty() ? OdCmEntityColor() : shapes.front().color;
}

/// Paints what it applies to, after everything else has had its say.
class Painter : public OdGiDrawableOverrule
{
public:
    OdCmEntityColor color;
    bool applies = true;
    bool hides = false;

    bool isApplicable(const OdRxObject*) const override { return applies; }
    OdUInt32 setAttributes(const OdGiDrawable* subject, OdGiDrawableTraits* traits) override
    {
        const OdUInt32 flags = OdGiDrawableOverrule::setAttributes(subject, traits);
        OdGiSubEntityTraits::cast(traits)->setTrueColor(color);
        return flags;
    }
    bool worldDraw(const OdGiDrawable* subject, OdGiWorldDraw* worldDraw) override
    {
        return hides || OdGiDrawableOverrule::worldDraw(subject, worldDraw);
    }
};

/// Puts overrules into force and takes them back, whatever a test does.
class Overruling
{
public:
    Overruling() { OdRxOverrule::setIsOverruling(true); }
    ~Overruling()
    {
        OdRxOverrule::setIsOverruling(false);
        for (auto& [overruled, overrule] : m_added)
            OdRxOverrule::removeOverrule(overruled, overrule);
    }
    void add(OdRxClass* overruled, OdRxOverrule& overrule)
    {
        ASSERT_EQ(OdRxOverrule::addOverrule(overruled, &overrule), eOk);
        m_added.emplace_back(overruled, &overrule);
    }

private:
    std::vector<std::pair<OdRxClass*, OdRxOverrule*>> m_added;
};

class OverruleTest : public EntityTest
{
protected:
    OverruleTest()
    {
        line->setEndPoint(OdGePoint3d(1, 1, 0));
        line->setColorIndex(1);
        blue.color = OdCmEntityColor(0, 0, 255);
        green.color = OdCmEntityColor(0, 255, 0);
    }

    OdDbLinePtr line = OdDbLine::createObject();
    OdStaticRxObject<Painter> blue;
    OdStaticRxObject<Painter> green;
};

TEST_F(OverruleTest, PaintsOnlyWhileItIsInForceAndApplies)
{
    EXPECT_EQ(drawnColor(*line).colorIndex(), 1);
    {
        Overruling overruling;
        overruling.add(OdDbEntity::desc(), blue);
        EXPECT_TRUE(drawnColor(*line) == blue.color);
        blue.applies = false;
        EXPECT_EQ(drawnColor(*line).colorIndex(), 1);
        blue.applies = true;
        OdRxOverrule::setIsOverruling(false);
        EXPECT_EQ(drawnColor(*line).colorIndex(), 1);
        OdRxOverrule::setIsOverruling(true);
        EXPECT_TRUE(drawnColor(*line) == blue.color);
    }
    EXPECT_EQ(drawnColor(*line).colorIndex(), 1);
    EXPECT_EQ(line->colorIndex(), 1);
}

TEST_F(OverruleTest, OfTheShapeReachesExtents)
{
    OdGeExtents3d extents;
    EXPECT_EQ(line->getGeomExtents(extents), eOk);
    Overruling overruling;
    overruling.add(OdDbEntity::desc(), blue);
    blue.hides = true;
    EXPECT_EQ(line->getGeomExtents(extents), eInvalidExtents);
}

TEST_F(EntityTest, TraitsOfOneDrawableDoNotReachTheNext)
{
    OdStaticRxObject<RecordingDraw> draw;
    OdDbLinePtr red = OdDbLine::createObject();
    red->setColorIndex(1);
    OdDbLinePtr plain = OdDbLine::createObject();
    draw.geometry().draw(red);
    draw.geometry().draw(plain);
    ASSERT_EQ(draw.shapes().size(), 2u);
    EXPECT_EQ(draw.shapes()[0].color.colorIndex(), 1);
    EXPECT_NE(draw.shapes()[1].color.colorIndex(), 1);
}

} // namespace
