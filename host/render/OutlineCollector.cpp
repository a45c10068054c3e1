// Implements the collecting of outlines.
#include "render/OutlineCollector.h"

#include <algorithm>
#include <cmath>

#include "Gi/GiBaseVectorizer.h"
#include "Gi/GiGeometrySimplifier.h"

namespace render
{

namespace
{

constexpr double kJoined = 0.01; ///< pixels between the end of a piece and the start of the next

class OutlineGeometry : public OdGiGeometrySimplifier
{
public:
    explicit OutlineGeometry(OdGiBaseVectorizer& vectorizer) : OdGiGeometrySimplifier(vectorizer) {}

    Path path;
    PageMap map;

    void polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d*) override
    {
        std::vector<OdGePoint2d> piece;
        piece.reserve(static_cast<std::size_t>(numPoints));
        for (OdInt32 i = 0; i < numPoints; ++i)
            piece.push_back(map.at(toWorld() * points[i]));
        add(piece);
    }

    void ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                  double startAngle, double endAngle) override
    {
        constexpr int kSteps = 256;
        std::vector<OdGePoint2d> piece;
        for (int i = 0; i <= kSteps; ++i)
        {
            const double t = startAngle + (endAngle - startAngle) * i / kSteps;
            piece.push_back(map.at(toWorld() * (center + majorAxis * std::cos(t) + minorAxis * std::sin(t))));
        }
        add(piece);
    }

private:
    /// Adds a piece, the other way round where that goes on from the end of the last one.
    void add(std::vector<OdGePoint2d>& piece)
    {
        if (piece.empty())
            return;
        const bool isFirst = path.empty();
        if (!isFirst && path.lastPoint().distanceTo(piece.front()) > kJoined &&
            path.lastPoint().distanceTo(piece.back()) <= kJoined)
            std::reverse(piece.begin(), piece.end());
        for (const OdGePoint2d& point : piece)
            path.empty() ? path.moveTo(point) : path.lineTo(point);
    }
};

class OutlineDraw : public OdGiBaseVectorizer
{
public:
    OutlineDraw() : OdGiBaseVectorizer(kOdGiForExtents), m_geometry(*this) {}
    OdGiGeometry& geometry() const override { return m_geometry; }
    OutlineGeometry& outline() const { return m_geometry; }

private:
    mutable OdStaticRxObject<OutlineGeometry> m_geometry;
};

} // namespace

Path collectOutline(const OdDbEntity& entity, const PageMap& map)
{
    OdStaticRxObject<OutlineDraw> draw;
    draw.outline().map = map;
    entity.worldDraw(&draw);
    Path path = draw.outline().path;
    if (!path.empty())
        path.close();
    return path;
}

} // namespace render
