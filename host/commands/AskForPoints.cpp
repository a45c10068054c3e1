// Asks a user for the points of the shape that is selected with.
#include "commands/AskForPoints.h"

#include <optional>

#include "Ed/EdException.h"

namespace hostcommands
{

namespace
{

using Visual = OdDbVisualSelection;

constexpr const OdChar* kUndo = L"Undo";
constexpr const OdChar* kNoPoint = L"Invalid point!";

struct Questions
{
    Visual::Mode mode;
    const OdChar* first;
    const OdChar* next; // null: there is no other
    int nextOptions;
    std::size_t least;
    bool isOpenEnded;
};

const Questions kQuestions[] = {
    {Visual::kPoint, L"Point on an object:", nullptr, 0, 1, false},
    {Visual::kBox, L"First corner:", L"Opposite corner:", OdEd::kGptRectFrame, 2, false},
    {Visual::kWindow, L"First corner of the window:", L"Opposite corner:", OdEd::kGptRectFrame, 2, false},
    {Visual::kCrossing, L"First corner of the crossing window:", L"Opposite corner:", OdEd::kGptRectFrame, 2, false},
    {Visual::kFence, L"First point of the fence:", L"Next point [Undo/]:", OdEd::kGptRubberBand, 2, true},
    {Visual::kWPoly, L"First corner of the polygon:", L"Next corner [Undo/]:", OdEd::kGptRubberBand, 3, true},
    {Visual::kCPoly, L"First corner of the crossing polygon:", L"Next corner [Undo/]:", OdEd::kGptRubberBand, 3, true},
};

// A point, or nothing for an empty answer.
std::optional<OdGePoint3d> askForPoint(OdDbUserIO& user, const OdString& prompt, int options, const OdString& keywords)
{
    const int all = options | static_cast<int>(OdEd::kGptNoLimCheck | OdEd::kInpThrowEmpty);
    for (;;)
    {
        try
        {
            return user.getPoint(prompt, all, nullptr, keywords);
        }
        catch (const OdEdEmptyInput&)
        {
            return std::nullopt;
        }
        catch (const OdEdOtherInput&)
        {
            user.putError(kNoPoint);
        }
        catch (const OdEdException&)
        {
            throw;
        }
        catch (const OdError& error) // coordinates that are no numbers
        {
            if (error.code() != eInvalidInput)
                throw;
            user.putError(kNoPoint);
        }
    }
}

// Goes on until an empty answer; the keyword takes the last point back.
void askForMore(OdDbUserIO& user, const Questions& questions, std::vector<OdGePoint3d>& points)
{
    while (questions.isOpenEnded || points.size() < questions.least)
    {
        try
        {
            const OdString keywords = questions.isOpenEnded ? OdString(kUndo) : OdString();
            const std::optional<OdGePoint3d> next = askForPoint(user, questions.next, questions.nextOptions, keywords);
            if (!next)
                return;
            points.push_back(*next);
        }
        catch (const OdEdKeyword&)
        {
            if (points.size() > 1)
                points.pop_back();
            user.setLASTPOINT(points.back());
        }
    }
}

} // namespace

std::vector<OdGePoint3d> askForPoints(OdDbUserIO& user, Visual::Mode mode)
{
    const Questions& questions = kQuestions[mode];
    const std::optional<OdGePoint3d> first = askForPoint(user, questions.first, 0, OdString());
    if (!first)
        return {};
    std::vector<OdGePoint3d> points = {*first};
    if (questions.next != nullptr)
        askForMore(user, questions, points);
    if (points.size() < questions.least)
        return {};
    return points;
}

} // namespace hostcommands
