// Selecting by a shape on the screen: candidates come from the spatial index, and each is then tested by what it draws.
#include <algorithm>
#include <cmath>

#include "DbDatabase.h"
#include "DbEntity.h"
#include "DbSSet.h"
#include "OdError.h"
#include "select/DrawingIndex.h"
#include "select/EntityConditions.h"
#include "select/HitTester.h"
#include "select/SeenEntities.h"

namespace picking
{

namespace
{

using Visual = OdDbVisualSelection;

/// Half the side of the pick box in parts of the view's height: three pixels of a screen with a thousand.
constexpr double kPickBox = 0.003;

std::vector<OdGePoint2d> seenPoints(int numPoints, const OdGePoint3d* points, const ViewPlane& plane)
{
    std::vector<OdGePoint2d> seen;
    for (int i = 0; i < numPoints; ++i)
    {
        seen.push_back(plane.at(points[i]));
        if (!std::isfinite(seen.back().x) || !std::isfinite(seen.back().y))
            throw OdError(eInvalidInput, OdString(L"a point to select with is no place"));
    }
    return seen;
}

struct ModeRow
{
    Visual::Mode mode;
    int leastPoints;
    int mostPoints; ///< 0: any number
};

constexpr ModeRow kModes[] = {
    {Visual::kPoint, 1, 1}, {Visual::kBox, 2, 2},   {Visual::kWindow, 2, 2}, {Visual::kCrossing, 2, 2},
    {Visual::kFence, 2, 0}, {Visual::kWPoly, 3, 0}, {Visual::kCPoly, 3, 0},
};

void requirePoints(Visual::Mode mode, int numPoints, const OdGePoint3d* points)
{
    const auto isMode = [mode](const ModeRow& row) { return row.mode == mode; };
    const ModeRow* const row = std::find_if(std::begin(kModes), std::end(kModes), isMode);
    if (row == std::end(kModes))
        throw OdError(eInvalidInput, OdString(L"there is no such way to select"));
    if (points == nullptr || numPoints < row->leastPoints || (row->mostPoints != 0 && numPoints > row->mostPoints))
        throw OdError(eInvalidInput, OdString().format(L"%d points are not what this way to select needs", numPoints));
}

Shape pickBox(const OdGePoint2d& center, double viewHeight)
{
    const bool isUsable = std::isfinite(viewHeight) && viewHeight > 0.0;
    const double half = (isUsable ? viewHeight : 1.0) * kPickBox;
    return Shape::rectangle(center - OdGeVector2d(half, half), center + OdGeVector2d(half, half));
}

Shape shapeOf(Visual::Mode mode, std::vector<OdGePoint2d> points, double viewHeight)
{
    switch (mode)
    {
    case Visual::kPoint:
        return pickBox(points[0], viewHeight);
    case Visual::kFence:
        return Shape::fence(std::move(points));
    case Visual::kWPoly:
    case Visual::kCPoly:
        return Shape::polygon(std::move(points));
    default:
        return Shape::rectangle(points[0], points[1]);
    }
}

Question questionOf(Visual::Mode mode, const std::vector<OdGePoint2d>& points)
{
    if (mode == Visual::kPoint)
        return Question::kHowFar;
    const bool isToTheRight = mode == Visual::kBox && points[0].x <= points[1].x;
    const bool isWindow = mode == Visual::kWindow || mode == Visual::kWPoly || isToTheRight;
    return isWindow ? Question::kLiesIn : Question::kTouches;
}

struct Hit
{
    Place place;
    double distance;
    double areaDistance;
};

/// Lines come before areas, what is near before what is farther off, what lies on top before what lies below.
bool isBetter(const Hit& first, const Hit& second)
{
    if (first.distance != second.distance)
        return first.distance < second.distance;
    if (first.areaDistance != second.areaDistance)
        return first.areaDistance < second.areaDistance;
    return first.place > second.place;
}

class Selecting
{
public:
    Selecting(const ViewedSpace& space, Question question, const Shape& shape, const EntityConditions& conditions)
        : m_index(DrawingIndex::of(*space.block.database()).find(space)), m_question(question), m_shape(shape),
          m_conditions(conditions), m_tester(question, shape, space.plane, m_layers)
    {
    }

    std::vector<Hit> run()
    {
        const auto look = [this](Place place, const OdGeExtents2d& box) { lookAt(place, box); };
        if (m_shape.isFence())
            for (const Segment& edge : m_shape.edges())
                m_index.findAlong(edge.start, edge.end, look);
        else
            m_index.findIn(m_shape.box(), look);
        const auto isBefore = [](const Hit& first, const Hit& second) { return first.place < second.place; };
        const auto isSame = [](const Hit& first, const Hit& second) { return first.place == second.place; };
        std::sort(m_hits.begin(), m_hits.end(), isBefore);
        m_hits.erase(std::unique(m_hits.begin(), m_hits.end(), isSame), m_hits.end());
        return std::move(m_hits);
    }

    OdDbObjectId entityOf(const Hit& hit) const { return m_index.entityAt(hit.place); }

private:
    void lookAt(Place place, const OdGeExtents2d& box)
    {
        const bool isInside = box.isValidExtents() && m_shape.holds(box);
        const OdDbEntityPtr entity = OdDbEntity::cast(OdDbObjectId(m_index.entityAt(place)).openObject());
        if (entity.isNull() || !mayBeSelected(*entity))
            return;
        if (isInside && m_question != Question::kHowFar && !isMadeOfParts(*entity) && isShown(*entity))
            m_hits.push_back({place, 0.0, 0.0});
        else
            test(place, *entity);
    }

    bool isShown(const OdDbEntity& entity) { return m_layers.of(entity.layerId()).isShown(); }

    bool mayBeSelected(const OdDbEntity& entity) { return maySee(entity, m_layers) && m_conditions.admit(entity); }

    void test(Place place, const OdDbEntity& entity)
    {
        const Answer& answer = m_tester.test(entity);
        const bool isHit = m_question == Question::kLiesIn ? answer.isDrawn && !answer.reachesOut
                                                           : answer.touches || answer.isIncomplete;
        if (isHit)
            m_hits.push_back({place, answer.distance, answer.areaDistance});
    }

    SpatialIndex& m_index;
    Question m_question;
    const Shape& m_shape;
    const EntityConditions& m_conditions;
    LayerStates m_layers;
    OdStaticRxObject<HitTester> m_tester;
    std::vector<Hit> m_hits;
};

} // namespace

} // namespace picking

OdSmartPtr<OdDbSelectionSet> OdDbSelectionSet::select(const OdDbObjectId& viewportId, int numPoints,
                                                      const OdGePoint3d* points, OdDbVisualSelection::Mode mode,
                                                      OdDbVisualSelection::SubentSelectionMode,
                                                      const OdRxObject* filter)
{
    using namespace picking;
    requirePoints(mode, numPoints, points);
    const ViewedSpace space = viewedThrough(viewportId);
    const std::vector<OdGePoint2d> seen = seenPoints(numPoints, points, space.plane);
    const Shape shape = shapeOf(mode, seen, space.height);
    const EntityConditions conditions(filter);
    Selecting selecting(space, questionOf(mode, seen), shape, conditions);
    const std::vector<Hit> hits = selecting.run();
    OdDbSelectionSetPtr set = createObject(space.block.database());
    if (mode != OdDbVisualSelection::kPoint)
        for (const Hit& hit : hits)
            set->append(selecting.entityOf(hit));
    else if (!hits.empty())
        set->append(selecting.entityOf(*std::min_element(hits.begin(), hits.end(), isBetter)));
    return set;
}
