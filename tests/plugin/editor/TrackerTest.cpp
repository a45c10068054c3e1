// Attacks the trackers: what they show and tell, in views and models that come and go.
#include <cmath>

#include "Gs/Gs.h"
#include "ModuleServices.h"
#include "Trackers.h"
#include "support/PluginTest.h"
#include "support/ShapeRecorder.h"

using namespace plugintest;

namespace
{

constexpr double kPi = 3.14159265358979323846;

/// A picture that holds what is added and draws it when it is looked at.
class View : public OdGsView
{
public:
    void add(OdGiDrawable* drawable, OdGsModel* model) override
    {
        m_shown.push_back(drawable);
        lastModel = model;
    }
    bool erase(OdGiDrawable* drawable) override
    {
        return std::erase_if(m_shown, [&](const OdGiDrawablePtr& one) { return one.get() == drawable; }) > 0;
    }
    std::string look() const
    {
        std::string text;
        for (const OdGiDrawablePtr& drawable : m_shown)
            for (const support::DrawnShape& line : support::drawnBy(*drawable))
            {
                text += std::to_string(line.color.colorIndex()) + ":";
                for (const OdGePoint3d& point : line.points())
                {
                    char buffer[100];
                    std::snprintf(buffer, sizeof buffer, "(%g %g %g)", point.x, point.y, point.z);
                    text += buffer;
                }
            }
        return text;
    }

    OdGsModel* lastModel = nullptr;

private:
    std::vector<OdGiDrawablePtr> m_shown;
};

class Model : public OdGsModel
{
public:
    void onModified(OdGiDrawable*, OdGiDrawable*) override { ++changes; }

    int changes = 0;
};

class Number : public OdEdRealTracker
{
public:
    void setValue(double value) override { last = value; }

    double last = -1;
};

class TrackerTest : public PluginTest
{
protected:
    TrackerTest() : services(*CModuleServices::Find()), number(OdRxObjectImpl<Number>::createObject()) {}

    void setAxes(const OdChar* xName, const OdGePoint3d& x, const OdChar* yName, const OdGePoint3d& y)
    {
        db->setSysVar(xName, OdResBuf::newRb(10, x));
        db->setSysVar(yName, OdResBuf::newRb(10, y));
    }

    CModuleServices& services;
    OdSmartPtr<Number> number;
    const OdGePoint3d base{1, 2, 3};
};

TEST_F(TrackerTest, ShowWhatFollowsThePointer)
{
    const std::pair<OdEdPointDefTrackerPtr, const char*> rows[] = {
        {services.CreateRubberBandTracker(base, nullptr), "7:(1 2 3)(4 6 15)"},
        {services.CreateRectFrameTracker(base, nullptr), "7:(1 2 3)(4 2 3)(4 6 3)(1 6 3)(1 2 3)"},
        {services.CreatePointToDistanceTracker(base, number, 0, db), "7:(1 2 3)(4 6 15)(4 6 15)"},
        {services.CreatePointToDistanceTracker(base, number, OdEd::kGdsNoZCoord, db), "7:(1 2 3)(4 6 3)(4 6 15)"},
        {services.CreatePointToOrientationTracker(base, number), "7:(14 2 3)(1 2 3)(4 6 15)"},
    };
    for (const auto& [tracker, lines] : rows)
    {
        OdStaticRxObject<View> view;
        EXPECT_TRUE(OdEdPointTracker::cast(tracker));
        EXPECT_EQ(tracker->addDrawables(nullptr), 0);
        EXPECT_EQ(tracker->addDrawables(&view), 1);
        EXPECT_EQ(view.look(), "");
        tracker->setValue(OdGePoint3d(0, 0, 0));
        tracker->setValue(OdGePoint3d(4, 6, 15));
        EXPECT_EQ(view.look(), lines);
        tracker->removeDrawables(&view);
        tracker->removeDrawables(&view);
        tracker->removeDrawables(nullptr);
        EXPECT_EQ(view.look(), "");
    }
}

TEST_F(TrackerTest, TellTheirModel)
{
    const OdSmartPtr<Model> model = OdRxObjectImpl<Model>::createObject();
    const OdEdPointDefTrackerPtr tracker = services.CreateRectFrameTracker(base, model);
    OdStaticRxObject<View> view;
    tracker->addDrawables(&view);
    EXPECT_EQ(view.lastModel, model.get());
    tracker->setValue(OdGePoint3d());
    tracker->setValue(OdGePoint3d());
    EXPECT_EQ(model->changes, 2);
}

TEST_F(TrackerTest, DistancesAreMeasuredByTheOptions)
{
    const OdGePoint3d above(4, 6, 15);
    const auto measure = [&](int options)
    {
        const CPointToDistanceTrackerPtr tracker = services.CreatePointToDistanceTracker(base, number, options, db);
        tracker->setValue(above);
        EXPECT_EQ(number->last, tracker->GetDistanceByOptions(above));
        return number->last;
    };
    const int inPlan = OdEd::kGdsNoZCoord;
    EXPECT_DOUBLE_EQ(measure(0), 13.0);
    EXPECT_DOUBLE_EQ(measure(~inPlan), 13.0);
    EXPECT_DOUBLE_EQ(measure(inPlan), 5.0);
    setAxes(L"UCSXDIR", {2, 0, 0}, L"UCSYDIR", {0, 0, 5});
    EXPECT_DOUBLE_EQ(measure(inPlan), std::hypot(3.0, 12.0)) << "in the plane of the user's coordinate system";
    setAxes(L"UCSXDIR", {1, 0, 0}, L"UCSYDIR", {1, 0, 0});
    EXPECT_DOUBLE_EQ(measure(inPlan), 5.0) << "axes without a plane count as those of the world";
    setAxes(L"PUCSXDIR", {0, 1, 0}, L"PUCSYDIR", {0, 0, 1});
    db->setSysVar(L"TILEMODE", OdResBuf::newRb(70, OdInt16(0)));
    EXPECT_DOUBLE_EQ(measure(inPlan), std::hypot(4.0, 12.0)) << "in a sheet its own";
}

TEST_F(TrackerTest, DirectionsTurnFromEast)
{
    const OdEdPointDefTrackerPtr tracker = services.CreatePointToOrientationTracker(base, number);
    const std::pair<OdGePoint3d, double> rows[] = {
        {{2, 2, 3}, 0},         {{1, 5, 9}, kPi / 2},    {{0, 2, 0}, kPi},
        {{1, 1, 3}, 1.5 * kPi}, {{2, 1, 3}, 1.75 * kPi}, {{1, 2, 9}, 0},
    };
    for (const auto& [point, angle] : rows)
    {
        tracker->setValue(point);
        EXPECT_DOUBLE_EQ(number->last, angle);
    }
}

TEST_F(TrackerTest, FactoriesNameWhatIsMissing)
{
    const std::string name = "CModuleCad::CreatePointTo";
    EXPECT_EQ(thrownBy([&] { services.CreatePointToDistanceTracker(base, nullptr, 0, nullptr); }),
              argumentFault(417, "pTracker", name + "DistanceTracker"));
    EXPECT_EQ(thrownBy([&] { services.CreatePointToDistanceTracker(base, number, 0, nullptr); }),
              argumentFault(122, "pDb", name + "DistanceTracker"));
    EXPECT_EQ(thrownBy([&] { services.CreatePointToOrientationTracker(base, nullptr); }),
              argumentFault(417, "pTracker", name + "OrientationTracker"));
}

} // namespace
