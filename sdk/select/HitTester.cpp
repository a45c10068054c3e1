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

/// Pieces that one entity is tested with; blocks nested many times over each other have more than anyone can count.
constexpr std::size_t kMostPieces = 4'000'000;
constexpr double kTwoPi = 6.28318530717958647692;

bool isFinite(const OdGePoint2d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
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
}

bool HitGeometry::isAnswered() const
{
    return m_answer.isIncomplete || (m_question == Question::kLiesIn && m_answer.reachesOut) ||
           (m_question == Question::kTouches && m_answer.touches);
}

// What lies on a layer that is off is not seen; what it holds on other layers is.
bool HitGeometry::isShownNow()
{
    if (isAnswered() || !m_layers->of(worldDraw().traits().layer()).isShown())
        return false;
    m_answer.isIncomplete = ++m_pieces > kMostPieces;
    m_answer.isDrawn = true;
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

bool HitGeometry::isFilled() const
{
    return m_isText || m_isSolid || worldDraw().traits().fillType() == kOdGiFillAlways;
}

void HitGeometry::draw(const OdGiDrawable* drawable)
{
    if (isAnswered())
        return;
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
    if (const OdGeVector3d height = extrusion(normal); m_plane.along(toWorld() * height).length() > 0.0)
        addExtruded({seen(center), m_plane.along(toWorld() * major), m_plane.along(toWorld() * minor),
                     std::min(0.0, sweepAngle), std::min(std::fabs(sweepAngle), kTwoPi)},
                    m_plane.along(toWorld() * height));
}

// The far end of an extruded arc, and what is seen of its side: lines at its ends and where it turns away.
void HitGeometry::addExtruded(const EllipticArc& arc, const OdGeVector2d& height)
{
    EllipticArc far = arc;
    far.center += height;
    addArc(far);
    const OdGeVector2d across(-height.y, height.x);
    const double turning = std::atan2(arc.minor.dotProduct(across), arc.major.dotProduct(across));
    for (const double t : {arc.start, arc.start + arc.sweep, turning, turning + kTwoPi / 2.0})
        if (arc.has(t))
            addSegment({arc.at(t), arc.at(t) + height});
}

void HitGeometry::ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                           double startAngle, double endAngle)
{
    EllipticArc arc;
    arc.center = seen(center);
    arc.major = m_plane.along(toWorld() * majorAxis);
    arc.minor = m_plane.along(toWorld() * minorAxis);
    arc.start = std::min(startAngle, endAngle);
    arc.sweep = std::min(std::fabs(endAngle - startAngle), kTwoPi);
    addArc(arc);
}

void HitGeometry::polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal)
{
    if (numPoints <= 0)
        return;
    if (m_isSolid && numPoints > 3) // its outline, which ends where it begins
        polygon(numPoints - 1, points);
    const OdGeVector3d height = normal == nullptr ? OdGeVector3d(0.0, 0.0, 0.0) : extrusion(*normal);
    const OdGeVector2d seenHeight = m_plane.along(toWorld() * height);
    const bool isHigh = seenHeight.length() > 0.0;
    OdGePoint2d last = seen(points[0]);
    if (numPoints == 1 || isHigh)
        addSegment({last, last + seenHeight});
    for (OdInt32 i = 1; i < numPoints && !isAnswered(); ++i)
    {
        const OdGePoint2d next = seen(points[i]);
        addSegment({last, next});
        if (isHigh)
        {
            addSegment({last + seenHeight, next + seenHeight});
            addSegment({next, next + seenHeight});
        }
        last = next;
    }
}

void HitGeometry::polygon(OdInt32 numPoints, const OdGePoint3d* points)
{
    if (numPoints < 3 || !isFilled())
        return gi::Geometry::polygon(numPoints, points);
    m_seen.clear();
    for (OdInt32 i = 0; i < numPoints; ++i)
        m_seen.push_back(seen(points[i]));
    addArea(m_seen);
}

void HitGeometry::shell(OdInt32 numVertices, const OdGePoint3d* vertices, OdInt32 faceListSize, const OdInt32* faceList)
{
    if (!isFilled())
        return gi::Geometry::shell(numVertices, vertices, faceListSize, faceList);
    std::vector<std::vector<OdGePoint2d>> outlines;
    for (OdInt32 at = 0; at < faceListSize && !isAnswered();)
    {
        if (faceList[at] >= 0 && !outlines.empty())
            addAreaWithHoles(std::exchange(outlines, {}));
        const OdInt32 count = std::abs(faceList[at++]);
        std::vector<OdGePoint2d>& outline = outlines.emplace_back();
        for (const OdInt32 end = std::min(at + count, faceListSize); at < end; ++at)
        {
            if (faceList[at] >= 0 && faceList[at] < numVertices)
                outline.push_back(seen(vertices[faceList[at]]));
        }
        if (outline.size() < 3)
            outlines.pop_back();
    }
    if (!outlines.empty())
        addAreaWithHoles(outlines);
}

void HitGeometry::xline(const OdGePoint3d& first, const OdGePoint3d& second)
{
    addLine(first, second, true);
}

void HitGeometry::ray(const OdGePoint3d& first, const OdGePoint3d& second)
{
    addLine(first, second, false);
}

// A line without end is cut to what passes the shape, and never lies in it.
void HitGeometry::addLine(const OdGePoint3d& first, const OdGePoint3d& second, bool isOpenAtStart)
{
    const OdGePoint2d start = seen(first);
    const OdGeVector2d along = m_plane.along(toWorld() * (second - first));
    const double squared = along.lengthSqrd();
    if (squared == 0.0 || !std::isfinite(squared))
        return addSegment({start, start});
    if (m_question == Question::kLiesIn)
        m_answer.reachesOut = m_answer.reachesOut || isShownNow();
    const double middle = (m_center - start).dotProduct(along) / squared;
    const double half = m_shape->box().diagonal().length() / std::sqrt(squared);
    const double from = isOpenAtStart ? middle - half : std::max(0.0, middle - half);
    if (const double to = middle + half; to >= from)
        addSegment({start + along * from, start + along * to});
}

// ---- Answers
// ---------------------------------------------------------------------------------------------------------

void HitGeometry::addSegment(const Segment& segment)
{
    if (!isFinite(segment.start) || !isFinite(segment.end) || !isShownNow())
        return;
    if (m_question == Question::kLiesIn)
    {
        m_answer.reachesOut = m_answer.reachesOut || !m_shape->holds(segment);
        return;
    }
    if (!m_shape->touches(segment))
        return;
    m_answer.touches = true;
    if (m_question == Question::kHowFar)
        m_answer.distance = std::min(m_answer.distance, distanceBetween(m_center, segment));
}

void HitGeometry::addArc(const EllipticArc& arc)
{
    if (!isFinite(arc.at(arc.start)) || !isFinite(arc.at(arc.start + arc.sweep)) || !isShownNow())
        return;
    if (m_question == Question::kLiesIn)
    {
        m_answer.reachesOut = m_answer.reachesOut || !m_shape->holds(arc);
        return;
    }
    if (!m_shape->touches(arc))
        return;
    m_answer.touches = true;
    if (m_question == Question::kHowFar)
        m_answer.distance = std::min(m_answer.distance, distanceBetween(m_center, arc));
}

void HitGeometry::addArea(const std::vector<OdGePoint2d>& corners)
{
    if (!std::all_of(corners.begin(), corners.end(), isFinite) || !isShownNow())
        return;
    const auto side = [&](std::size_t i) { return Segment{corners[i], corners[(i + 1) % corners.size()]}; };
    if (m_question == Question::kLiesIn)
    {
        for (std::size_t i = 0; i < corners.size() && !m_answer.reachesOut; ++i)
            m_answer.reachesOut = !m_shape->holds(side(i));
        return;
    }
    if (!m_shape->touchesArea(corners))
        return;
    m_answer.touches = true;
    if (m_question != Question::kHowFar)
        return;
    if (isWithin(corners, m_center))
        m_answer.areaDistance = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i)
        m_answer.areaDistance = std::min(m_answer.areaDistance, distanceBetween(m_center, side(i)));
}

/// An area is what an odd number of its outlines hold. Where the shape touches no outline, it lies in or out of each as
/// a whole.
void HitGeometry::addAreaWithHoles(const std::vector<std::vector<OdGePoint2d>>& outlines)
{
    bool isInside = false;
    for (const std::vector<OdGePoint2d>& outline : outlines)
    {
        for (std::size_t i = 0; i < outline.size() && !isAnswered(); ++i)
            addSegment({outline[i], outline[(i + 1) % outline.size()]});
        isInside = isInside != (m_question != Question::kLiesIn && m_shape->touchesArea(outline));
    }
    if (m_question == Question::kLiesIn || m_answer.isIncomplete || !isInside || m_answer.touches || !isShownNow())
        return;
    m_answer.touches = true;
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
