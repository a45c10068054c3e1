// Paints shapes on a canvas: the client of the SDK's drawing that pictures are made by.
#pragma once

#include <vector>

#include "Gi/GiBaseVectorizer.h"
#include "Gi/GiGeometrySimplifier.h"
#include "render/Canvas.h"
#include "render/Looks.h"
#include "render/PageMap.h"

namespace render
{

/// Receives shapes in drawing units and hands lines, areas, texts and pictures to the canvas in pixels.
class PictureGeometry : public OdGiGeometrySimplifier
{
public:
    PictureGeometry(OdGiBaseVectorizer& vectorizer, Canvas& canvas, Looks& looks);

    /// What follows is seen as the map says; what lies outside of the area is left out. unitScale is the pixels of a
    /// drawing unit.
    void look(const PageMap& map, const OdGeExtents2d& area, double unitScale);

    void pushModelTransform(const OdGeMatrix3d& xform) override;
    void popModelTransform() override;
    void circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                     const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType) override;
    void ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                  double startAngle, double endAngle) override;
    void polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal) override;
    void polygon(OdInt32 numPoints, const OdGePoint3d* points) override;
    void shell(OdInt32 numVertices, const OdGePoint3d* vertices, OdInt32 faceListSize,
               const OdInt32* faceList) override;
    void pline(const OdGiPolyline& polyline) override;
    using OdGiGeometrySimplifier::text;
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
              const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle) override;
    void rasterImageDc(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v,
                       const OdGiRasterImage* image, const OdGePoint2d* uvBoundary, OdUInt32 numBoundPts,
                       bool transparency, double brightness, double contrast, double fade) override;
    void xline(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void ray(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void pushClipBoundary(const OdGiClipBoundary& boundary) override;
    void popClipBoundary() override;

private:
    struct Ellipse;

    /// From what is being drawn to the page.
    const PageMap& map() const { return m_nestedMap; }
    bool isSeen(const OdGeExtents2d& bounds) const;
    void addPolyline(const PageMap& map, OdInt32 numPoints, const OdGePoint3d* points, bool closed, Path& path) const;
    void addEllipse(const Ellipse& ellipse, Path& path) const;
    void addSegment(OdGePoint2d from, OdGePoint2d to, Path& path) const;
    void drawLines(const Path& path, bool isClosed);
    void strokeLines(const Path& path, bool isClosed);
    void fillArea(const Path& path, bool evenOdd);
    void drawDot(const OdGePoint2d& at);
    void drawEndless(const OdGePoint3d& first, const OdGePoint3d& second, bool isOpenAtStart);
    void drawTextBar(const OdGiTextInk& ink, const TextPlace& place, const Color& color);

    Canvas& m_canvas;
    Looks& m_looks;
    PageMap m_map;
    PageMap m_nestedMap;
    OdGeExtents2d m_area;
    // While a flat polyline is drawn: its lines and arcs in one path, its filled parts in another.
    bool m_gathers = false;
    Path m_lines;
    Path m_areas;
    Path m_path; // reused
};

} // namespace render
