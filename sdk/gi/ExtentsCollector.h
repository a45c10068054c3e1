// Finds the box around whatever is drawn: the client behind the extents of entities, blocks and drawings.
#pragma once

#include "Ge/GeExtents3d.h"
#include "Gi/GiClipBoundary.h"
#include "Gi/GiPolyline.h"
#include "gi/WorldDraw.h"

namespace gi
{

class ExtentsGeometry : public Geometry
{
public:
    explicit ExtentsGeometry(WorldDraw& worldDraw) : gi::Geometry(worldDraw) {}

    const OdGeExtents3d& extents() const { return m_extents; }

    void circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                     const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType) override;
    void ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                  double startAngle, double endAngle) override;
    void polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal) override;
    void polygon(OdInt32 numPoints, const OdGePoint3d* points) override;
    void pline(const OdGiPolyline& polyline) override;
    void pushClipBoundary(const OdGiClipBoundary& boundary) override;
    void popClipBoundary() override;
    using Geometry::text;
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
              const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle) override;

private:
    void addPoint(const OdGePoint3d& world);
    void addExtruded(const OdGeExtents3d& box, const OdGeVector3d& normal);

    struct Clip
    {
        OdGeExtents3d before; ///< what was found in front of the clip
        OdGeExtents3d room;   ///< of the clip
    };

    OdGeExtents3d m_extents;
    const OdGeVector3d* m_plineNormal = nullptr; ///< while a flat polyline is drawn
    std::vector<Clip> m_clips;
};

/// One collector serves one drawable or several drawn one after the other. Shapes with coordinates that are not finite
/// are passed over.
class ExtentsCollector : public WorldDraw
{
public:
    ExtentsCollector() : gi::WorldDraw(kOdGiForExtents), m_geometry(*this) {}

    OdGiGeometry& geometry() const override { return m_geometry; }

    /// The box so far, invalid while nothing was drawn.
    const OdGeExtents3d& extents() const { return m_geometry.extents(); }

private:
    mutable OdStaticRxObject<ExtentsGeometry> m_geometry;
};

} // namespace gi
