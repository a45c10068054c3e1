// Draws an entity onto a shape.
#include "select/HitTester.h"

#include <algorithm>
#include <cmath>

#include "DbDatabase.h"
#include "DbMText.h"
#include "DbSolid.h"
#include "DbText.h"
#include "DbTrace.h"

namespace picking
{

namespace
{

/// Pieces that one entity is tested with, and drawables that are looked at, shown or not, for all of them or for the
/// first that is shown; blocks nested many times over each other have more than anyone can count.
constexpr std::size_t kMostPieces = 4'000'000;
constexpr std::size_t kMostDrawables = 4'000'000;
constexpr std::size_t kMostHidden = 1'000'000;
constexpr double kTwoPi = 6.28318530717958647692;

bool isFinite(const OdGePoint2d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool isFinite(const Segment& segment)
{
    return isFinite(segment.start) && isFinite(segment.end);
}

bool isFinite(const EllipticArc& arc)
{
    return isFinite(arc.at(arc.start)) && isFinite(arc.at(arc.start + arc.sweep));
}

bool isText(const OdGiDrawable& drawable)
{
    return drawable.isKindOf(OdDbText::desc()) || drawable.isKindOf(OdDbMText::desc());
}

bool isSolid(const OdGiDrawable& drawable)
{
    return drawable.isKindOf(OdDbSolid::desc()) || drawable.isKindOf(OdDbTrace::desc());
}

} // namespace

void HitGeometry::ask(Question question, const Shape& shape, const ViewPlane& plane, LayerStates& layers)
{
    m_question = question;
    m_shape = &shape;
    m_center = shape.box().center();
    m_plane = plane;
    m_layers = &layers;
}

void HitGeometry::begin()
{
    m_answer = Answer();
    m_pieces = 0;
    m_drawables = 0;
    m_clips = Clips(); // drawing that failed may have left some
}

bool HitGeometry::isAnswered() const
{
    return m_answer.isIncomplete || (m_question == Question::kLiesIn && m_answer.reachesOut) ||
           (m_question == Question::kTouches && m_answer.touches) ||
           (m_question == Question::kIsDrawn && m_answer.isDrawn);
}

// What lies on a layer that is off is not seen; what it holds on other layers is.
bool HitGeometry::isShownNow()
{
    if (isAnswered() || !m_layers->of(worldDraw().traits().layer()).isShown())
        return false;
    m_answer.isIncomplete = ++m_pieces > kMostPieces;
    return true;
}

// What lies on a frozen layer is not seen, and neither is what it holds. Layer "0" in a block is that of the reference.
bool HitGeometry::isFrozen(const OdDbEntity& entity)
{
    OdDbStub* layer = entity.layerId();
    const OdDbDatabase* const database = entity.database();
    if (m_depth > 0 && database != nullptr && layer == static_cast<OdDbStub*>(database->getLayerZeroId()))
        layer = worldDraw().traits().layer();
    return m_layers->of(layer).isFrozen;
}

EllipticArc HitGeometry::seenOf(const SpaceArc& arc) const
{
    return {seen(arc.center), m_plane.along(arc.major), m_plane.along(arc.minor), arc.start, arc.sweep};
}

const std::vector<OdGePoint2d>& HitGeometry::seenOf(const SpaceOutline& outline)
{
    m_seen.clear();
    for (const OdGePoint3d& corner : outline)
        m_seen.push_back(seen(corner));
    return m_seen;
}

bool HitGeometry::isFilled() const
{
    return m_isText || m_isSolid || worldDraw().traits().fillType() == kOdGiFillAlways;
}

void HitGeometry::draw(const OdGiDrawable* drawable)
{
    if (isAnswered())
        return;
    m_answer.isIncomplete = ++m_drawables > (m_question == Question::kIsDrawn ? kMostHidden : kMostDrawables);
    if (const OdDbEntityPtr entity = OdDbEntity::cast(drawable); !entity.isNull() && isFrozen(*entity))
        return;
    const bool wasText = m_isText;
    const bool wasSolid = m_isSolid;
    m_isText = isText(*drawable);
    m_isSolid = isSolid(*drawable);
    ++m_depth;
    gi::Geometry::draw(drawable);
    --m_depth;
    m_isText = wasText;
    m_isSolid = wasSolid;
}

// ---- Shapes
// ----------------------------------------------------------------------------------------------------------

OdGeVector3d HitGeometry::extrusion(const OdGeVector3d& normal) const
{
    const double thickness = worldDraw().traits().thickness();
    return thickness == 0.0 ? OdGeVector3d(0.0, 0.0, 0.0) : normal.normal() * thickness;
}

void HitGeometry::circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                              const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType)
{
    gi::Geometry::circularArc(center, radius, normal, startVector, sweepAngle, arcType);
    const OdGeVector3d major = startVector * radius;
    const OdGeVector3d minor = normal.normal().crossProduct(startVector) * radius;
    const OdGePoint3d ends[2] = {center + major, center + major * std::cos(sweepAngle) + minor * std::sin(sweepAngle)};
    if (arcType == kOdGiArcSector)
    {
        const OdGePoint3d sides[3] = {ends[0], center, ends[1]};
        polyline(3, sides, nullptr);
    }
    else if (arcType == kOdGiArcChord)
        polyline(2, ends, nullptr);
    const OdGeVector3d height = toWorld() * extrusion(normal);
    if (m_plane.along(height).length() > 0.0)
        addExtruded({toWorld() * center, toWorld() * major, toWorld() * minor, std::min(0.0, sweepAngle),
                     std::min(std::fabs(sweepAngle), kTwoPi)},
                    height);
}

// The far end of an extruded arc, and what is seen of its side: lines at its ends and where it turns away.
void HitGeometry::addExtruded(const SpaceArc& arc, const OdGeVector3d& height)
{
    SpaceArc far = arc;
    far.center += height;
    addArc(far);
    const OdGeVector2d seenHeight = m_plane.along(height);
    const OdGeVector2d across(-seenHeight.y, seenHeight.x);
    const EllipticArc seenArc = seenOf(arc);
    const double turning = std::atan2(seenArc.minor.dotProduct(across), seenArc.major.dotProduct(across));
    for (const double t : {arc.start, arc.start + arc.sweep, turning, turning + kTwoPi / 2.0})
    {
        const OdGePoint3d foot = arc.center + arc.major * std::cos(t) + arc.minor * std::sin(t);
        if (seenArc.has(t))
            addSegment({foot, foot + height});
    }
}

void HitGeometry::ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                           double startAngle, double endAngle)
{
    addArc({toWorld() * center, toWorld() * majorAxis, toWorld() * minorAxis, std::min(startAngle, endAngle),
            std::min(std::fabs(endAngle - startAngle), kTwoPi)});
}

void HitGeometry::polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal)
{
    if (numPoints <= 0)
        return;
    if (m_isSolid && numPoints > 3) // its outline, which ends where it begins
        polygon(numPoints - 1, points);
    const OdGeVector3d height = normal == nullptr ? OdGeVector3d(0.0, 0.0, 0.0) : toWorld() * extrusion(*normal);
    const bool isHigh = m_plane.along(height).length() > 0.0;
    OdGePoint3d last = toWorld() * points[0];
    if (numPoints == 1 || isHigh)
        addSegment({last, last + height});
    for (OdInt32 i = 1; i < numPoints && !isAnswered(); ++i)
    {
        const OdGePoint3d next = toWorld() * points[i];
        addSegment({last, next});
        if (isHigh)
        {
            addSegment({last + height, next + height});
            addSegment({next, next + height});
        }
        last = next;
    }
}

void HitGeometry::polygon(OdInt32 numPoints, const OdGePoint3d* points)
{
    if (numPoints < 3 || !isFilled())
        return gi::Geometry::polygon(numPoints, points);
    SpaceOutline corners = std::move(m_corners);
    corners.clear();
    for (OdInt32 i = 0; i < numPoints; ++i)
        corners.push_back(toWorld() * points[i]);
    m_clips.isEmpty() ? addPolygon(corners) : addArea({corners});
    m_corners = std::move(corners);
}

void HitGeometry::shell(OdInt32 numVertices, const OdGePoint3d* vertices, OdInt32 faceListSize, const OdInt32* faceList)
{
    if (!isFilled())
        return gi::Geometry::shell(numVertices, vertices, faceListSize, faceList);
    std::vector<SpaceOutline> outlines;
    for (OdInt32 at = 0; at < faceListSize && !isAnswered();)
    {
        if (faceList[at] >= 0 && !outlines.empty())
            addArea(std::exchange(outlines, {}));
        const OdInt32 count = std::abs(faceList[at++]);
        SpaceOutline& outline = outlines.emplace_back();
        for (const OdInt32 end = std::min(at + count, faceListSize); at < end; ++at)
        {
            if (faceList[at] >= 0 && faceList[at] < numVertices)
                outline.push_back(toWorld() * vertices[faceList[at]]);
        }
        if (outline.size() < 3)
            outlines.pop_back();
    }
    if (!outlines.empty())
        addArea(outlines);
}

void HitGeometry::xline(const OdGePoint3d& first, const OdGePoint3d& second)
{
    addLine(first, second, true);
}

void HitGeometry::ray(const OdGePoint3d& first, const OdGePoint3d& second)
{
    addLine(first, second, false);
}

// A line without end is cut to what passes the shape, and lies in it only where a clip gives it ends.
void HitGeometry::addLine(const OdGePoint3d& first, const OdGePoint3d& second, bool isOpenAtStart)
{
    const SpaceSegment line{toWorld() * first, toWorld() * second};
    const double least = isOpenAtStart ? -std::numeric_limits<double>::infinity() : 0.0;
    if (const std::optional<Run> reach = m_clips.reachOf(line))
    {
        if (reach->to >= least)
            addSegment({line.at(std::max(least, reach->from)), line.at(reach->to)});
        return;
    }
    const OdGeVector2d along = m_plane.along(line.end - line.start);
    const double squared = along.lengthSqrd();
    if (squared == 0.0 || !std::isfinite(squared))
        return addSegment({line.start, line.start});
    const bool hasNoEnd = m_question == Question::kLiesIn || m_question == Question::kIsDrawn;
    if (hasNoEnd && isShownNow())
        m_answer.isDrawn = m_answer.reachesOut = true;
    const double middle = (m_center - seen(line.start)).dotProduct(along) / squared;
    const double half = m_shape->box().diagonal().length() / std::sqrt(squared);
    if (middle + half >= least)
        addSegment({line.at(std::max(least, middle - half)), line.at(middle + half)});
}

// ---- Answers
// ---------------------------------------------------------------------------------------------------------

template<class Curve>
void HitGeometry::look(const Curve& curve)
{
    if (!isFinite(curve))
        return;
    m_answer.isDrawn = true;
    if (m_question == Question::kLiesIn)
    {
        m_answer.reachesOut = m_answer.reachesOut || !m_shape->holds(curve);
        return;
    }
    if (m_question == Question::kIsDrawn || !m_shape->touches(curve))
        return;
    m_answer.touches = true;
    if (m_question == Question::kHowFar)
        m_answer.distance = std::min(m_answer.distance, distanceBetween(m_center, curve));
}

void HitGeometry::addSegment(const SpaceSegment& segment)
{
    if (!isShownNow())
        return;
    if (m_clips.isEmpty())
        return look(Segment{seen(segment.start), seen(segment.end)});
    for (const Run& run : m_clips.runsOf(segment))
        look(Segment{seen(segment.at(run.from)), seen(segment.at(run.to))});
}

void HitGeometry::addArc(const SpaceArc& arc)
{
    if (!isShownNow())
        return;
    EllipticArc piece = seenOf(arc);
    if (m_clips.isEmpty())
        return look(piece);
    for (const Run& run : m_clips.runsOf(arc))
    {
        piece.start = run.from;
        piece.sweep = run.to - run.from;
        look(piece);
    }
}

void HitGeometry::addPolygon(const SpaceOutline& outline)
{
    const std::vector<OdGePoint2d>& corners = seenOf(outline);
    if (!std::all_of(corners.begin(), corners.end(), [](const OdGePoint2d& corner) { return isFinite(corner); }) ||
        !isShownNow())
        return;
    m_answer.isDrawn = true;
    const auto side = [&](std::size_t i) { return Segment{corners[i], corners[(i + 1) % corners.size()]}; };
    if (m_question == Question::kLiesIn)
    {
        for (std::size_t i = 0; i < corners.size() && !m_answer.reachesOut; ++i)
            m_answer.reachesOut = !m_shape->holds(side(i));
        return;
    }
    if (m_question == Question::kIsDrawn || !m_shape->touchesArea(corners))
        return;
    m_answer.touches = true;
    if (m_question != Question::kHowFar)
        return;
    if (isWithin(corners, m_center))
        m_answer.areaDistance = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i)
        m_answer.areaDistance = std::min(m_answer.areaDistance, distanceBetween(m_center, side(i)));
}

// Where the shape touches no outline and nothing that a clip cuts off, it lies in or out of the area as a whole.
bool HitGeometry::isShapeWithin(const std::vector<SpaceOutline>& outlines, const std::optional<FlatArea>& area)
{
    const OdGePoint2d place = m_shape->edges().front().start;
    bool isInside = false;
    for (const SpaceOutline& outline : outlines)
        isInside = isInside != isWithin(seenOf(outline), place);
    if (!isInside || m_clips.isEmpty())
        return isInside;
    const OdGePoint3d inPlane = OdGePoint3d() + m_plane.right * place.x + m_plane.up * place.y;
    const std::optional<OdGePoint3d> onArea =
        area ? area->meet(inPlane, m_plane.right.crossProduct(m_plane.up)) : std::nullopt;
    return onArea && m_clips.hold(*onArea);
}

/// An area is what an odd number of its outlines hold.
void HitGeometry::addArea(const std::vector<SpaceOutline>& outlines)
{
    const double distanceOfLines = m_answer.distance;
    for (const SpaceOutline& outline : outlines)
        for (std::size_t i = 0; i < outline.size() && !isAnswered(); ++i)
            addSegment({outline[i], outline[(i + 1) % outline.size()]});
    std::optional<FlatArea> area;
    if (!m_clips.isEmpty() && isShownNow() && (area = FlatArea::within(outlines)))
        for (const SpaceSegment& edge : m_clips.edgesOf(*area))
            look(Segment{seen(edge.start), seen(edge.end)});
    m_answer.areaDistance = std::min(m_answer.areaDistance, std::exchange(m_answer.distance, distanceOfLines));
    if (m_question == Question::kLiesIn || m_question == Question::kIsDrawn || m_answer.isIncomplete ||
        m_answer.touches || !isShownNow() || !isShapeWithin(outlines, area))
        return;
    m_answer.isDrawn = m_answer.touches = true;
    m_answer.areaDistance = 0.0;
}

HitTester::HitTester(Question question, const Shape& shape, const ViewPlane& plane, LayerStates& layers)
    : gi::WorldDraw(kOdGiStandardDisplay), m_geometry(*this)
{
    m_geometry.ask(question, shape, plane, layers);
}

const Answer& HitTester::test(const OdDbEntity& entity)
{
    m_geometry.begin();
    m_geometry.draw(&entity);
    return m_geometry.answer();
}

} // namespace picking
