// Draws an entity onto the shape that a user selects with, and tells whether it lies in the shape, touches it, or how
// far it is from a point. Only what layers show counts, at any depth of blocks; curves are themselves, not polylines
// that stand for them; texts and what is filled are areas.
#pragma once

#include <limits>

#include "gi/WorldDraw.h"
#include "select/Clips.h"
#include "select/LayerStates.h"
#include "select/Shape.h"
#include "select/ViewPlane.h"

class OdDbEntity;

namespace picking
{

/// What is asked of the entities that are drawn.
enum class Question
{
    kLiesIn,
    kTouches,
    kHowFar, ///< from the centre of the shape, for what touches it
    kIsDrawn ///< wherever the shape is
};

struct Answer
{
    bool isDrawn = false;      ///< anything is shown at all
    bool touches = false;      ///< something shown touches the shape; not asked for by kLiesIn
    bool reachesOut = false;   ///< something shown does not lie in the shape; asked for by kLiesIn only
    bool isIncomplete = false; ///< so much is drawn that the rest was passed over
    double distance = std::numeric_limits<double>::infinity();     ///< of lines
    double areaDistance = std::numeric_limits<double>::infinity(); ///< of areas, 0 within
};

class HitGeometry : public gi::Geometry
{
public:
    explicit HitGeometry(gi::WorldDraw& worldDraw) : gi::Geometry(worldDraw) {}

    void ask(Question question, const Shape& shape, const ViewPlane& plane, LayerStates& layers);
    void begin();
    const Answer& answer() const { return m_answer; }
    bool isAnswered() const;

    void circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                     const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType) override;
    void ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                  double startAngle, double endAngle) override;
    void polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal) override;
    void polygon(OdInt32 numPoints, const OdGePoint3d* points) override;
    void shell(OdInt32 numVertices, const OdGePoint3d* vertices, OdInt32 faceListSize,
               const OdInt32* faceList) override;
    void xline(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void ray(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void draw(const OdGiDrawable* drawable) override;
    void pushClipBoundary(const OdGiClipBoundary& boundary) override { m_clips.push(boundary, toWorld()); }
    void popClipBoundary() override { m_clips.pop(); }

private:
    bool isShownNow();
    bool isFrozen(const OdDbEntity& entity);
    bool isFilled() const;
    OdGePoint2d seen(const OdGePoint3d& world) const { return m_plane.at(world); }
    EllipticArc seenOf(const SpaceArc& arc) const;
    const std::vector<OdGePoint2d>& seenOf(const SpaceOutline& outline); ///< valid until the next call
    OdGeVector3d extrusion(const OdGeVector3d& normal) const;
    void addSegment(const SpaceSegment& segment);
    void addArc(const SpaceArc& arc);
    void addExtruded(const SpaceArc& arc, const OdGeVector3d& height);
    void addPolygon(const SpaceOutline& outline);
    void addArea(const std::vector<SpaceOutline>& outlines);
    bool isShapeWithin(const std::vector<SpaceOutline>& outlines, const std::optional<FlatArea>& area);
    template<class Curve>
    void look(const Curve& curve);
    void addLine(const OdGePoint3d& first, const OdGePoint3d& second, bool isOpenAtStart);

    Question m_question = Question::kTouches;
    const Shape* m_shape = nullptr;
    OdGePoint2d m_center;
    ViewPlane m_plane;
    LayerStates* m_layers = nullptr;
    Answer m_answer;
    std::size_t m_pieces = 0; ///< that are shown
    std::size_t m_drawables = 0;
    int m_depth = 0;
    bool m_isText = false;
    bool m_isSolid = false;
    Clips m_clips;
    SpaceOutline m_corners;          // reused
    std::vector<OdGePoint2d> m_seen; // reused
};

/// One tester serves many entities, one after the other.
class HitTester : public gi::WorldDraw
{
public:
    /// All that is given must outlive the tester.
    HitTester(Question question, const Shape& shape, const ViewPlane& plane, LayerStates& layers);

    /// Draws an entity of the space, which is visible and on a layer that is not frozen.
    const Answer& test(const OdDbEntity& entity);

    OdGiGeometry& geometry() const override { return m_geometry; }
    bool regenAbort() const override { return m_geometry.isAnswered(); }

private:
    mutable OdStaticRxObject<HitGeometry> m_geometry;
};

} // namespace picking
