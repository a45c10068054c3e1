// Attacks points and distances: typed coordinates, limits, defaults, trackers, the last point of each drawing.
#include <cmath>

#include "Ge/GeTol.h"
#include "ModuleServices.h"
#include "RxVariant.h"
#include "UserIOTest.h"

using namespace plugintest;

namespace
{

constexpr double kPi = 3.14159265358979323846;

TEST_F(UserIOTest, PointsAreReadFromText)
{
    const std::string invalid = "Invalid point!";
    const struct
    {
        std::deque<Answer> answers;
        int options;
        std::string result;
        std::vector<std::string> shown;
    } rows[] = {
        {{typed(L"1,2")}, 0, "1 2 0", {}},
        {{typed(L"1,2,3")}, 0, "1 2 3", {}},
        {{typed(L"-1.5, 2e1 ,0")}, 0, "-1.5 20 0", {}},
        {{typed(L"1',1/2")}, 0, "12 0.5 0", {}},
        {{typed(L"1,2,3,4")}, 0, "1 2 3", {}},
        {{typed(L"1,2,")}, 0, "1 2 0", {}},
        {{OdGePoint3d(4, 5, 6)}, 0, "4 5 6", {}},
        {{typed(L"5")}, 0, "other 5", {}},
        {{typed(L",1")}, 0, "other ,1", {}},
        {{typed(L"1,")}, 0, "other 1,", {}},
        {{typed(L",")}, 0, "other ,", {}},
        {{typed(L"   ")}, 0, "other    ", {}},
        {{typed(L"\U0001F600")}, 0, "other \U0001F600", {}},
        {{typed(L"1,abc"), typed(L"1,1")}, 0, "1 1 0", {invalid}},
        {{typed(L"1,,2"), typed(L"nan,1"), typed(L"1,1e999"), typed(L"1 mm,2"), OdGePoint3d()},
         0,
         "0 0 0",
         {invalid, invalid, invalid, invalid}},
        {{typed(L"1,abc")}, kThrowOther, "other 1,abc", {}},
        {{eInvalidInput, OdGePoint3d(1, 1, 1)}, 0, "1 1 1", {invalid}},
        {{eInvalidInput}, kThrowOther, "other ", {}},
        {{eOutOfRange}, 0, "error 28", {}},
        {{typed(L"")}, kThrowEmpty, "empty", {}},
        {{typed(L""), typed(L"3,4")}, 0, "3 4 0", {invalid}},
        {{typed(L"")}, 0, "cancel", {invalid}},
        {{}, 0, "cancel", {}},
    };
    for (const auto& row : rows)
    {
        ask(row.answers);
        const std::string first = row.answers.empty() || !std::holds_alternative<OdString>(row.answers[0])
                                      ? ""
                                      : odStringToUtf8(std::get<OdString>(row.answers[0]));
        EXPECT_EQ(outcomeOf([&] { return textOf(io->getPoint(L"", row.options)); }), row.result) << first;
        EXPECT_EQ(answering->shown, row.shown) << first;
        EXPECT_EQ(answering->prompts[0], "Enter a point:");
    }
}

TEST_F(UserIOTest, PointsHaveKeywordsAndDefaults)
{
    const OdGePoint3d fallback(7, 8, 9);
    const struct
    {
        std::deque<Answer> answers;
        int options;
        std::string result;
        std::vector<std::string> shown;
    } rows[] = {
        {{typed(L"cl")}, 0, "keyword 1 CLose", {}},
        {{typed(L"close")}, kThrowOther, "keyword 1 CLose", {}},
        {{typed(L"c")}, 0, "other c", {}},
        {{typed(L"1,2,Undo")}, 0, "cancel", {"Requires valid point or optional keyword!"}},
        {{typed(L"")}, 0, "7 8 9", {}},
        {{typed(L"")}, kThrowEmpty, "empty", {}},
        {{typed(L"a,b")}, 0, "keyword 2 a,b", {}},
    };
    for (const auto& row : rows)
    {
        ask(row.answers);
        EXPECT_EQ(outcomeOf([&] { return textOf(io->getPoint(L"At:", row.options, &fallback, L"Undo CLose a,b")); }),
                  row.result);
        EXPECT_EQ(answering->shown, row.shown);
    }
}

TEST_F(UserIOTest, LimitsHoldWithATolerance)
{
    set(L"LIMMIN", OdResBuf::newRb(10, OdGePoint2d(0, 0)));
    set(L"LIMMAX", OdResBuf::newRb(10, OdGePoint2d(10, 5)));
    const double t = OdGeContext::gTol.equalPoint();
    const std::pair<OdGePoint3d, bool> rows[] = {
        {{10, 5, 1e9}, true},       {{10 + t / 2, 0, 0}, true},    {{10 + 2 * t, 0, 0}, false},
        {{5, 5 + 2 * t, 0}, false}, {{-t / 2, -t / 2, 0}, true},   {{-2 * t, 1, 0}, false},
        {{1, -2 * t, 0}, false},    {{std::nan(""), 1, 0}, false},
    };
    for (const int check : {0, 1})
        for (const int options : {0, int(OdEd::kGptNoLimCheck)})
            for (const auto& [point, isInside] : rows)
            {
                set(L"LIMCHECK", OdResBuf::newRb(70, OdInt16(check)));
                ask({point, OdGePoint3d(1, 1, 1)});
                const bool isAccepted = isInside || !check || options;
                io->getPoint(L"", options);
                EXPECT_EQ(answering->shown, isAccepted ? std::vector<std::string>{}
                                                       : std::vector<std::string>{"Point is outside limits!"});
                EXPECT_EQ(textOf(io->getLASTPOINT()), isAccepted ? textOf(point) : "1 1 1");
            }
}

TEST_F(UserIOTest, TrackersStartFromTheLastPoint)
{
    io->setLASTPOINT(OdGePoint3d(1, 2, 3));
    const OdGePoint3d picked(4, 6, 9);
    // Options and the corners of what is shown, 0 for no tracker.
    const std::pair<int, std::size_t> rows[] = {
        {0, 0}, {OdEd::kGptRubberBand, 2}, {OdEd::kGptRectFrame, 5}, {OdEd::kGptRubberBand | OdEd::kGptRectFrame, 5}};
    for (const auto& [options, corners] : rows)
    {
        io->setLASTPOINT(OdGePoint3d(1, 2, 3));
        ask({picked});
        io->getPoint(L"", options);
        const auto* tracker = dynamic_cast<const CPointTracker*>(answering->lastTracker.get());
        ASSERT_EQ(tracker != nullptr, corners != 0);
        if (tracker)
        {
            EXPECT_EQ(textOf(tracker->basePoint()), "1 2 3");
            EXPECT_EQ(tracker->GetDrawable().GetLines()[0].size(), corners);
        }
    }
    const OdEdPointDefTrackerPtr own = io->createRubberBand(OdGePoint3d());
    ask({picked});
    io->getPoint(L"", OdEd::kGptRectFrame, nullptr, L"", own);
    EXPECT_EQ(answering->lastTracker.get(), own.get());
}

// ---- Distances ------------------------------------------------------------------------------------------------------

TEST_F(UserIOTest, DistancesAreTypedOrMeasured)
{
    const auto lengths = OdResBuf::kDxfXdDist;
    const auto angles = OdResBuf::kRtOrient;
    const int fromLast = OdEd::kGdsFromLastPoint;
    const int inPlan = OdEd::kGdsNoZCoord;
    const OdGePoint3d p(3, 4, 0), q(3, 4, 12);
    const struct
    {
        std::deque<Answer> answers;
        OdResBuf::ValueType type;
        int options;
        std::string result;
        std::vector<double> told;
        std::size_t prompts;
    } rows[] = {
        {{typed(L"7.5")}, lengths, 0, "7.5", {}, 1},
        {{typed(L"1'")}, lengths, 0, "12", {}, 1},
        {{typed(L"180")}, angles, 0, textOf(kPi), {}, 1},
        {{typed(L"7.5")}, OdResBuf::kDxfReal, 0, "0", {}, 1},
        {{typed(L"u")}, lengths, 0, "keyword 0 Up", {}, 1},
        {{typed(L"abc")}, lengths, 0, "error 5", {}, 1},
        {{typed(L"")}, lengths, kThrowEmpty, "empty", {}, 1},
        {{OdGePoint3d(), p}, lengths, 0, "5", {5, 5}, 2},
        {{OdGePoint3d(), p}, angles, 0, "5", {std::atan2(4, 3), 5}, 2},
        {{OdGePoint3d(), q}, lengths, 0, "13", {13, 13}, 2},
        {{OdGePoint3d(), q}, lengths, inPlan, "5", {5, 5}, 2},
        {{OdGePoint3d(), q}, angles, inPlan, "13", {std::atan2(4, 3), 13}, 2},
        {{typed(L"1,0"), typed(L"4,4")}, lengths, 0, "5", {5}, 2},
        {{OdGePoint3d(), typed(L"2.5")}, lengths, 0, "2.5", {2.5}, 2},
        {{OdGePoint3d(), typed(L"90")}, angles, 0, textOf(kPi / 2), {kPi / 2}, 2},
        {{OdGePoint3d(), typed(L"")}, lengths, 0, "99", {}, 2},
        {{OdGePoint3d(), typed(L"")}, lengths, kThrowEmpty, "empty", {}, 2},
        {{OdGePoint3d(), typed(L"down")}, lengths, 0, "keyword 1 Down", {}, 2},
        {{OdGePoint3d(), typed(L"1,x")}, lengths, 0, "error 5", {}, 2},
        {{OdGePoint3d()}, lengths, 0, "cancel", {}, 2},
        {{OdGePoint3d(10, 10, 0)}, lengths, fromLast, "5", {5, 5}, 1},
    };
    for (const auto& row : rows)
    {
        for (const bool tracked : {true, false})
        {
            const OdSmartPtr<NumberTracker> tracker = OdRxObjectImpl<NumberTracker>::createObject();
            io->setLASTPOINT(OdGePoint3d(7, 6, 0));
            ask(row.answers);
            const std::string result = outcomeOf(
                [&] {
                    return textOf(
                        io->getReal(L"", row.options, 99.0, row.type, L"Up Down", tracked ? tracker.get() : nullptr));
                });
            // Without a tracker nothing measures otherwise than straight.
            const bool inPlanUntracked = !tracked && row.options == inPlan && row.type == lengths;
            EXPECT_EQ(result, inPlanUntracked ? "13" : row.result);
            ASSERT_EQ(tracker->values.size(), tracked ? row.told.size() : 0u) << row.result;
            for (std::size_t i = 0; i < tracker->values.size(); ++i)
                EXPECT_NEAR(tracker->values[i], row.told[i], 1e-12);
            std::vector<std::string> prompts = {"Enter a distance:", "Enter second point:"};
            if (row.options == fromLast)
                prompts.erase(prompts.begin());
            prompts.resize(row.prompts);
            EXPECT_EQ(answering->prompts, prompts);
        }
    }
    ask({typed(L"7.5"), OdGePoint3d(), p});
    EXPECT_EQ(io->getDist(L"How far:"), 7.5);
    EXPECT_EQ(io->getDist(L"How far:"), 5.0);
    EXPECT_EQ(answering->prompts, (std::vector<std::string>{"How far:", "How far:", "Enter second point:"}));
}

// ---- The last point -------------------------------------------------------------------------------------------------

TEST_F(UserIOTest, EachDrawingHasItsLastPoint)
{
    OdDbDatabasePtr other = OdDbDatabase::createObject();
    other->initialize();
    const CCommandHandlerPtr otherHandler = CCommandHandler::createObject(L"X", other, answering);
    const OdDbUserIO& otherIO = *otherHandler->dbUserIO();
    EXPECT_EQ(textOf(io->getLASTPOINT()), "0 0 0");
    ask({OdGePoint3d(1, 2, 3)});
    io->getPoint(L"");
    EXPECT_EQ(textOf(io->getLASTPOINT()), "1 2 3");
    EXPECT_EQ(textOf(CUserIO::createObject(handler)->getLASTPOINT()), "1 2 3") << "it outlives the object";
    EXPECT_EQ(textOf(otherIO.getLASTPOINT()), "0 0 0");
}

TEST_F(UserIOTest, TheLastPointHasAFormThatOthersMayRead)
{
    CModuleServices& services = *CModuleServices::Find();
    io->setLASTPOINT(OdGePoint3d(1, 2, 3));
    const OdRxVariantValue stored(services.arbitraryData(db, L"LASTPOINT"));
    ASSERT_EQ(stored->getRxObjectPtrArray().size(), 3u);
    EXPECT_EQ(OdRxVariantValue(stored->getRxObjectPtrArray()[1])->getDouble(), 2.0);
    const OdRxObjectPtrArray two = {OdRxVariantValue(1.0), OdRxVariantValue(2.0)};
    const OdRxObjectPtrArray four = {OdRxVariantValue(4.0), OdRxVariantValue(5.0), OdRxVariantValue(6.0),
                                     OdRxVariantValue(7.0)};
    const OdRxVariantValue text(OdString(L"x"));
    const OdRxObjectPtrArray texts = {text, text, text};
    const std::pair<OdRxObjectPtr, const char*> rows[] = {
        {OdRxVariantValue(two), "0 0 0"},
        {OdRxVariantValue(four), "4 5 6"},
        {OdRxVariantValue(texts), "0 0 0"},
        {OdRxVariantValue(1.0), "0 0 0"},
        {OdResBuf::newRb(1, OdString(L"x")), "0 0 0"},
        {nullptr, "0 0 0"},
    };
    for (const auto& [value, point] : rows)
    {
        services.setArbitraryData(db, L"LASTPOINT", value);
        EXPECT_EQ(textOf(io->getLASTPOINT()), point);
    }
}

} // namespace
