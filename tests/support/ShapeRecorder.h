// Keeps what drawables draw, for tests to look at.
#pragma once

#include <string>
#include <vector>

#include "DbEntity.h"
#include "Gi/GiClipBoundary.h"
#include "Gi/GiShapedText.h"
#include "gi/WorldDraw.h"

namespace support
{

enum class ShapeKind
{
    kLine,
    kArea,
    kArc,
    kText,
    kPicture,
    kClip,
    kClipEnd
};

/// One shape in world coordinates. An area has one outline or, of several, the points of each.
struct DrawnShape
{
    ShapeKind kind = ShapeKind::kLine;
    bool isFilled = false;
    OdCmEntityColor color;
    OdCmTransparency transparency;
    std::vector<std::vector<OdGePoint3d>> outlines;
    std::wstring text;

    const std::vector<OdGePoint3d>& points() const { return outlines.front(); }
};

class RecordingGeometry : public OdGiGeometrySimplifier
{
public:
    explicit RecordingGeometry(OdGiBaseVectorizer& vectorizer) : OdGiGeometrySimplifier(vectorizer) {}

    std::vector<DrawnShape> shapes;

    void ellipArc(const OdGePoint3d& center, const OdGeVector3d& major, const OdGeVector3d& minor, double start,
                  double end) override
    {
        std::vector<OdGePoint3d> points;
        for (int i = 0; i <= 64; ++i)
        {
            const double t = start + (end - start) * i / 64;
            points.push_back(toWorld() * (center + major * std::cos(t) + minor * std::sin(t)));
        }
        add(ShapeKind::kArc).outlines.push_back(points);
    }
    void polyline(OdInt32 count, const OdGePoint3d* points, const OdGeVector3d*) override
    {
        add(ShapeKind::kLine).outlines.push_back(world(count, points));
    }
    void polygon(OdInt32 count, const OdGePoint3d* points) override
    {
        add(ShapeKind::kArea).outlines.push_back(world(count, points));
    }
    void shell(OdInt32, const OdGePoint3d* vertices, OdInt32 size, const OdInt32* faces) override
    {
        for (OdInt32 at = 0; at < size;)
        {
            DrawnShape& area = faces[at] > 0 ? add(ShapeKind::kArea) : shapes.back();
            std::vector<OdGePoint3d>& outline = area.outlines.emplace_back();
            const OdInt32 count = std::abs(faces[at++]);
            for (OdInt32 i = 0; i < count; ++i)
                outline.push_back(toWorld() * vertices[faces[at++]]);
        }
    }
    using OdGiGeometrySimplifier::text;
    void text(const OdGePoint3d& position, const OdGeVector3d&, const OdGeVector3d&, const OdChar* message,
              OdInt32 length, bool raw, const OdGiTextStyle* style) override
    {
        DrawnShape& shape = add(ShapeKind::kText);
        shape.outlines.push_back({toWorld() * position});
        shape.text = odgiShapeText(style ? *style : OdGiTextStyle(), message, length, raw).text;
    }
    void pushClipBoundary(const OdGiClipBoundary& boundary) override
    {
        const OdGeMatrix3d fromClip = toWorld() * boundary.m_xToClipSpace.inverse();
        std::vector<OdGePoint3d> points;
        for (const OdGePoint2d& point : boundary.m_Points)
            points.push_back(fromClip * OdGePoint3d(point.x, point.y, 0.0));
        add(ShapeKind::kClip).outlines.push_back(points);
    }
    void popClipBoundary() override { add(ShapeKind::kClipEnd); }

private:
    std::vector<OdGePoint3d> world(OdInt32 count, const OdGePoint3d* points) const
    {
        std::vector<OdGePoint3d> mapped;
        for (OdInt32 i = 0; i < count; ++i)
            mapped.push_back(toWorld() * points[i]);
        return mapped;
    }
    DrawnShape& add(ShapeKind kind)
    {
        DrawnShape& shape = shapes.emplace_back();
        shape.kind = kind;
        shape.isFilled = worldDraw().traits().fillType() == kOdGiFillAlways;
        shape.color = worldDraw().effectiveTraits().color;
        shape.transparency = worldDraw().effectiveTraits().transparency;
        return shape;
    }
};

class RecordingDraw : public OdGiBaseVectorizer
{
public:
    explicit RecordingDraw(double deviation = 0.0)
        : OdGiBaseVectorizer(kOdGiStandardDisplay), m_geometry(*this), m_deviation(deviation)
    {
    }
    OdGiGeometry& geometry() const override { return m_geometry; }
    double deviation() const override { return m_deviation; }
    std::vector<DrawnShape>& shapes() const { return m_geometry.shapes; }

private:
    mutable OdStaticRxObject<RecordingGeometry> m_geometry;
    double m_deviation;
};

inline std::vector<DrawnShape> drawnBy(const OdGiDrawable& drawable, double deviation = 0.0)
{
    OdStaticRxObject<RecordingDraw> draw(deviation);
    draw.geometry().draw(&drawable);
    return draw.shapes();
}

inline std::size_t countOf(const std::vector<DrawnShape>& shapes, ShapeKind kind)
{
    return static_cast<std::size_t>(
        std::count_if(shapes.begin(), shapes.end(), [kind](const DrawnShape& shape) { return shape.kind == kind; }));
}

/// The area of a flat outline seen from above.
inline double areaOf(const std::vector<OdGePoint3d>& outline)
{
    double doubled = 0.0;
    for (std::size_t i = 0; i < outline.size(); ++i)
    {
        const OdGePoint3d& next = outline[(i + 1) % outline.size()];
        doubled += outline[i].x * next.y - next.x * outline[i].y;
    }
    return std::fabs(doubled) / 2.0;
}

/// Whether a point is painted: it lies within an odd number of the outlines of one filled area.
inline bool isPainted(const std::vector<DrawnShape>& shapes, double x, double y)
{
    for (const DrawnShape& shape : shapes)
    {
        bool inside = false;
        for (const std::vector<OdGePoint3d>& outline : shape.outlines)
        {
            for (std::size_t i = 0, before = outline.size() - 1; i < outline.size(); before = i++)
            {
                const OdGePoint3d& a = outline[i];
                const OdGePoint3d& b = outline[before];
                if ((a.y > y) != (b.y > y) && x < (b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x)
                    inside = !inside;
            }
        }
        if (inside && shape.kind == ShapeKind::kArea && shape.isFilled)
            return true;
    }
    return false;
}

} // namespace support
