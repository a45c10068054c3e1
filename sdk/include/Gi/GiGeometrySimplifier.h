// Receives shapes and reduces those that a client does not take itself to simpler ones.
#pragma once

#include <functional>
#include <vector>

#include "Gi/GiGeometry.h"

class OdGiBaseVectorizer;
struct OdGiSubEntityTraitsData;

/** Keeps the transforms, and draws drawables into each other. Circles and arcs arrive as elliptical arcs, polygons and
    areas with holes as closed polylines, flat polylines as lines, arcs and filled polygons, texts and pictures as
    the polygons around them, unless the client takes them itself. What a client overrides receives coordinates as they
   are given; toWorld maps them. */
class OdGiGeometrySimplifier : public OdGiGeometry
{
public:
    explicit OdGiGeometrySimplifier(OdGiBaseVectorizer& vectorizer);

    OdGeMatrix3d getModelToWorldTransform() const override { return m_transforms.back(); }
    void pushModelTransform(const OdGeMatrix3d& xform) override;
    void popModelTransform() override;

    void circle(const OdGePoint3d& center, double radius, const OdGeVector3d& normal) override;
    void circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                     const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType) override;
    void polygon(OdInt32 numPoints, const OdGePoint3d* points) override;
    void shell(OdInt32 numVertices, const OdGePoint3d* vertices, OdInt32 faceListSize,
               const OdInt32* faceList) override;
    void pline(const OdGiPolyline& polyline) override;
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
              const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle) override;
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction, double height,
              double width, double oblique, const OdString& message) override;
    void rasterImageDc(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v,
                       const OdGiRasterImage* image, const OdGePoint2d* uvBoundary, OdUInt32 numBoundPts,
                       bool transparency, double brightness, double contrast, double fade) override;
    void xline(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void ray(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void draw(const OdGiDrawable* drawable) override;

protected:
    const OdGeMatrix3d& toWorld() const { return m_transforms.back(); }
    OdGiBaseVectorizer& worldDraw() const { return m_worldDraw; }

    /** Draws what tell hands to this receiver as shapes of a drawable that has these looks and is shown. */
    void drawAs(const OdGiSubEntityTraitsData& looks, const std::function<void()>& tell);

private:
    template<class Begin, class Tell>
    void drawWithin(Begin begin, Tell tell);
    bool begin(const OdGiDrawable& drawable);

    OdGiBaseVectorizer& m_worldDraw;
    std::vector<OdGeMatrix3d> m_transforms;
};
