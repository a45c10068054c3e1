// Implements the box around a space. Of most things a rough look says that they lie within the box found so far; only
// the others are measured.
#include "render/SpaceBounds.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbEntity.h"
#include "Gi/GiClipBoundary.h"
#include "Gi/GiGeometrySimplifier.h"
#include "Gi/GiPolyline.h"
#include "Gi/GiTextStyle.h"
#include "render/RecordingGeometry.h"
#include "render/ShownDraw.h"

namespace render
{

namespace
{

constexpr double kFarthest = 1e15; ///< what lies beyond is a mistake
constexpr double kTwoPi = 6.28318530717958647692;

/// Where a + b cos(t) + c sin(t) is greatest or least, besides the ends.
double extremeOf(double cosinePart, double sinePart)
{
    return std::atan2(sinePart, cosinePart);
}

/// The box around all that a block holds.
OdGeExtents2d boundsOfBlock(const OdDbObjectId& blockId);

class BoundsGeometry : public OdGiGeometrySimplifier
{
public:
    BoundsGeometry(OdGiBaseVectorizer& vectorizer, bool isOfBlock)
        : OdGiGeometrySimplifier(vectorizer), m_isOfBlock(isOfBlock)
    {
    }

    const OdGeExtents2d& bounds() const { return m_bounds; }

    void draw(const OdGiDrawable* drawable) override
    {
        constexpr int kEntity = 2; // within the space, which is drawn first
        if (m_depth + 1 == kEntity && isReferenceWithin(drawable))
            return;
        if (++m_depth == kEntity)
        {
            m_box = OdGeExtents2d();
            m_isTooFar = false;
            m_hasTurnedText = false;
        }
        OdGiGeometrySimplifier::draw(drawable);
        if (m_depth == kEntity && m_hasTurnedText)
            measure(drawable);
        if (m_depth-- == kEntity && !m_isTooFar)
            m_bounds.addExt(m_box);
    }

    void polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal) override
    {
        const OdGeVector3d height = heightOf(normal);
        for (OdInt32 i = 0; i < numPoints; ++i)
            add(toWorld() * points[i], height);
    }

    void polygon(OdInt32 numPoints, const OdGePoint3d* points) override { polyline(numPoints, points, m_plineNormal); }

    void pline(const OdGiPolyline& polyline) override
    {
        m_plineNormal = &polyline.normal;
        OdGiGeometrySimplifier::pline(polyline);
        m_plineNormal = nullptr;
    }

    void circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                     const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType) override
    {
        m_arcHeight = heightOf(&normal);
        if (arcType == kOdGiArcSector)
            add(toWorld() * center, m_arcHeight);
        OdGiGeometrySimplifier::circularArc(center, radius, normal, startVector, sweepAngle, arcType);
        m_arcHeight = OdGeVector3d();
    }

    void ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                  double startAngle, double endAngle) override
    {
        const OdGePoint3d middle = toWorld() * center;
        const OdGeVector3d major = toWorld() * majorAxis;
        const OdGeVector3d minor = toWorld() * minorAxis;
        const double first = std::min(startAngle, endAngle);
        const double sweep = std::fabs(endAngle - startAngle);
        if (!std::isfinite(first) || !std::isfinite(sweep) || isWithin(middle, reachOf(major) + reachOf(minor)))
            return;
        const auto addAt = [&](double t) { add(middle + major * std::cos(t) + minor * std::sin(t), m_arcHeight); };
        addAt(startAngle);
        addAt(endAngle);
        for (const double extreme : {extremeOf(major.x, minor.x), extremeOf(major.y, minor.y)})
        {
            for (const double t : {extreme, extreme + kTwoPi / 2})
            {
                const double turn = std::fmod(t - first, kTwoPi);
                if ((turn < 0.0 ? turn + kTwoPi : turn) <= sweep)
                    addAt(t);
            }
        }
    }

    using OdGiGeometrySimplifier::text;
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
              const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle) override
    {
        // No character, code or accent reaches as far as four heights.
        const double size = textStyle ? textStyle->textSize() : 1.0;
        const double widest = size * (1.0 + std::fabs(textStyle ? textStyle->xScale() : 1.0)) *
                              (1.0 + (textStyle ? std::fabs(textStyle->trackingPercent()) : 1.0));
        const double scale = reachOf(toWorld() * direction) + reachOf(toWorld() * normal.crossProduct(direction));
        if (isWithin(toWorld() * position, 4.0 * widest * (length + 2.0) * scale))
            return;
        const OdGeVector3d along = toWorld() * direction;
        m_hasTurnedText = m_hasTurnedText || (along.x != 0.0 && along.y != 0.0);
        OdGiGeometrySimplifier::text(position, normal, direction, message, length, raw, textStyle);
    }

    void pushClipBoundary(const OdGiClipBoundary& boundary) override
    {
        m_clips.push_back({m_box, roomOf(boundary)});
        m_box = OdGeExtents2d();
    }

    void popClipBoundary() override
    {
        if (m_clips.empty())
            return;
        const OdGeExtents2d inside = m_box;
        const Clip clip = m_clips.back();
        m_clips.pop_back();
        m_box = clip.before;
        if (!inside.isValidExtents())
            return;
        const OdGePoint2d low(std::max(inside.minPoint().x, clip.room.minPoint().x),
                              std::max(inside.minPoint().y, clip.room.minPoint().y));
        const OdGePoint2d high(std::min(inside.maxPoint().x, clip.room.maxPoint().x),
                               std::min(inside.maxPoint().y, clip.room.maxPoint().y));
        if (low.x <= high.x && low.y <= high.y)
            m_box.addPoint(low).addPoint(high);
    }

private:
    struct Clip
    {
        OdGeExtents2d before; ///< what was found in front of the clip
        OdGeExtents2d room;   ///< of the clip
    };

    /// Of turned texts the frames reach farther than the letters, which the entity itself looks at.
    void measure(const OdGiDrawable* drawable)
    {
        const OdDbEntityPtr entity = OdDbEntity::cast(drawable);
        OdGeExtents3d box;
        if (m_isOfBlock || entity.isNull() || entity->getGeomExtents(box) != eOk)
            return;
        m_box = OdGeExtents2d();
        m_isTooFar = false;
        for (const OdGePoint3d& corner : {box.minPoint(), box.maxPoint()})
            add(corner.x, corner.y);
    }

    static double reachOf(const OdGeVector3d& vector) { return std::fabs(vector.x) + std::fabs(vector.y); }

    OdGeVector3d heightOf(const OdGeVector3d* normal) const
    {
        const double thickness = normal ? worldDraw().traits().thickness() : 0.0;
        return thickness == 0.0 ? OdGeVector3d() : toWorld() * (normal->normal() * thickness);
    }

    void add(const OdGePoint3d& point, const OdGeVector3d& height)
    {
        add(point.x, point.y);
        if (height.x != 0.0 || height.y != 0.0)
            add(point.x + height.x, point.y + height.y);
    }

    void add(double x, double y)
    {
        if (!std::isfinite(x) || !std::isfinite(y))
            return;
        m_isTooFar = m_isTooFar || (m_clips.empty() && (std::fabs(x) > kFarthest || std::fabs(y) > kFarthest));
        m_box.addPoint({x, y});
    }

    /// True when all that is this near to a point lies in what was found so far.
    bool isWithin(const OdGePoint3d& point, double reach) const
    {
        return m_clips.empty() && m_arcHeight == OdGeVector3d() && m_bounds.isValidExtents() &&
               point.x - reach >= m_bounds.minPoint().x && point.x + reach <= m_bounds.maxPoint().x &&
               point.y - reach >= m_bounds.minPoint().y && point.y + reach <= m_bounds.maxPoint().y;
    }

    /// True when a block reference holds nothing outside of what was found so far. Of attributes this is not known.
    bool isReferenceWithin(const OdGiDrawable* drawable)
    {
        if (m_isOfBlock || !drawable || drawable->isA() != OdDbBlockReference::desc())
            return false;
        const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(drawable);
        if (!m_bounds.isValidExtents() || !reference->attributeIterator()->done())
            return false;
        const OdDbObjectId block = reference->blockTableRecord();
        const auto [known, isNew] = m_blocks.try_emplace(static_cast<OdDbStub*>(block));
        if (isNew && !block.isErased())
            known->second = boundsOfBlock(block);
        const OdGeMatrix3d map = reference->blockTransform();
        const bool isFlat = map.entry[0][2] == 0.0 && map.entry[1][2] == 0.0;
        if (!isFlat || !known->second.isValidExtents())
            return false;
        const OdGePoint2d& low = known->second.minPoint();
        const OdGePoint2d& high = known->second.maxPoint();
        for (const double x : {low.x, high.x})
        {
            for (const double y : {low.y, high.y})
            {
                if (!isWithin(map * OdGePoint3d(x, y, 0.0), 0.0))
                    return false;
            }
        }
        return true;
    }

    /// The box around what a clip leaves, seen from above; endless when it is not looked through along z.
    OdGeExtents2d roomOf(const OdGiClipBoundary& boundary) const
    {
        OdGeExtents2d room;
        OdGeMatrix3d fromClipSpace = boundary.m_xToClipSpace;
        if (boundary.m_Points.size() < 2 || fromClipSpace.isSingular())
            return {{-kFarthest, -kFarthest}, {kFarthest, kFarthest}};
        fromClipSpace = toWorld() * fromClipSpace.invert();
        std::vector<OdGePoint2d> corners(boundary.m_Points.begin(), boundary.m_Points.end());
        if (corners.size() == 2)
            corners = {corners[0], {corners[1].x, corners[0].y}, corners[1], {corners[0].x, corners[1].y}};
        const OdGeVector3d through = fromClipSpace * OdGeVector3d(0.0, 0.0, kFarthest);
        for (const OdGePoint2d& corner : corners)
        {
            const OdGePoint3d world = fromClipSpace * OdGePoint3d(corner.x, corner.y, 0.0);
            for (const OdGePoint3d& end : {world + through, world - through})
                room.addPoint({end.x, end.y});
        }
        return room;
    }

    bool m_isOfBlock;
    OdGeExtents2d m_bounds;
    OdGeExtents2d m_box; ///< of the entity that is being drawn
    bool m_isTooFar = false;
    bool m_hasTurnedText = false;
    int m_depth = 0;
    OdGeVector3d m_arcHeight;
    const OdGeVector3d* m_plineNormal = nullptr; ///< while a flat polyline is drawn
    std::vector<Clip> m_clips;
    std::unordered_map<OdDbStub*, OdGeExtents2d> m_blocks; ///< what each block definition reaches
};

class BoundsDraw : public ShownDraw
{
public:
    /// Without a recording, all of a block is looked at, seen or not.
    BoundsDraw(const OdDbDatabase& database, Recording* recording)
        : ShownDraw(kOdGiForExtents, database), m_geometry(*this, !recording)
    {
        if (recording)
            m_recorder.emplace(m_geometry, traits(), *recording);
    }

    OdGiGeometry& geometry() const override
    {
        return m_recorder ? static_cast<OdGiGeometry&>(*m_recorder) : m_geometry;
    }
    bool wantsTraits() const override { return true; }
    /// What is recorded comes in the order in which it is drawn.
    OdGiRegenType regenType() const override
    {
        if (m_recorder && m_recorder->isInSpace())
            return kOdGiStandardDisplay;
        noteQuestion();
        return ShownDraw::regenType();
    }
    double deviation() const override
    {
        noteQuestion();
        return ShownDraw::deviation();
    }

    const OdGeExtents2d& bounds() const { return m_geometry.bounds(); }
    bool isRecordingComplete() const { return m_recorder && m_recorder->isComplete(); }

protected:
    /// What is seen of a block depends on the reference.
    bool isShown(const OdGiDrawable& drawable, OdUInt32 flags) override
    {
        if (!m_recorder)
            return true;
        const bool isShown = ShownDraw::isShown(drawable, flags);
        if (isShown)
            m_recorder->beginShown();
        return isShown;
    }

private:
    void noteQuestion() const
    {
        if (m_recorder)
            m_recorder->noteQuestion();
    }

    mutable OdStaticRxObject<BoundsGeometry> m_geometry;
    mutable std::optional<OdStaticRxObject<RecordingGeometry>> m_recorder;
};

OdGeExtents2d boundsOfBlock(const OdDbObjectId& blockId)
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(blockId.safeOpenObject());
    OdStaticRxObject<BoundsDraw> draw(*block->database(), nullptr);
    draw.geometry().draw(block);
    return draw.bounds();
}

} // namespace

SpaceBounds boundsOf(const OdDbObjectId& blockId)
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(blockId.safeOpenObject());
    Recording recording;
    OdStaticRxObject<BoundsDraw> draw(*block->database(), &recording);
    draw.geometry().draw(block);
    SpaceBounds bounds{draw.bounds(), {}};
    if (draw.isRecordingComplete())
        bounds.recording = std::move(recording);
    return bounds;
}

} // namespace render
