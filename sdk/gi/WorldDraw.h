// The drawing of drawables into each other, which every client of shapes needs: nested coordinate systems and traits.
// A client derives from Geometry and receives shapes with the transform to the world at hand.
#pragma once

#include <vector>

#include "Gi/GiWorldDraw.h"
#include "StaticRxObject.h"
#include "gi/Traits.h"

namespace gi
{

class WorldDraw;

/// Keeps the transforms. Circles and arcs arrive as elliptical arcs, polygons as closed polylines, texts as boxes,
/// unless the client takes them itself.
class Geometry : public OdGiGeometry
{
public:
    explicit Geometry(WorldDraw& worldDraw);

    OdGeMatrix3d getModelToWorldTransform() const override { return m_transforms.back(); }
    void pushModelTransform(const OdGeMatrix3d& xform) override;
    void popModelTransform() override;

    void circle(const OdGePoint3d& center, double radius, const OdGeVector3d& normal) override;
    void circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                     const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType) override;
    void polygon(OdInt32 numPoints, const OdGePoint3d* points) override;
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
              const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle) override;
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction, double height,
              double width, double oblique, const OdString& message) override;
    void xline(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void ray(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void draw(const OdGiDrawable* drawable) override;

protected:
    const OdGeMatrix3d& toWorld() const { return m_transforms.back(); }
    WorldDraw& worldDraw() const { return m_worldDraw; }

private:
    void setTraitsOf(const OdGiDrawable& drawable, const TraitValues& outer);

    WorldDraw& m_worldDraw;
    std::vector<OdGeMatrix3d> m_transforms;
    int m_nesting = 0;
};

/// Ties a client's geometry to the traits.
class WorldDraw : public OdGiWorldDraw
{
public:
    explicit WorldDraw(OdGiRegenType regenType) : m_regenType(regenType) {}

    OdGiSubEntityTraits& subEntityTraits() const override { return m_traits; }
    OdGiRegenType regenType() const override { return m_regenType; }
    bool regenAbort() const override { return false; }
    double deviation() const override { return 0.0; }

    Traits& traits() const { return m_traits; }

    /// True unless only the shape is of interest; setAttributes is then not asked for.
    bool wantsTraits() const { return m_regenType != kOdGiForExtents; }

private:
    mutable OdStaticRxObject<Traits> m_traits;
    OdGiRegenType m_regenType;
};

} // namespace gi
