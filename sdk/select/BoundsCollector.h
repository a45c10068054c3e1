// The rectangle that an entity covers in a plane, whatever layers show of it.
#pragma once

#include "Ge/GeExtents2d.h"
#include "gi/ExtentsCollector.h"
#include "select/ViewPlane.h"

class OdDbEntity;

namespace picking
{

/// Texts are taken with the boxes around their lines, as testing them does: what is drawn of a turned text may end
/// within the corners of its box.
class BoundsGeometry : public gi::ExtentsGeometry
{
public:
    using ExtentsGeometry::text;

    explicit BoundsGeometry(gi::WorldDraw& worldDraw) : ExtentsGeometry(worldDraw) {}

    bool isUnbounded = false;

    void xline(const OdGePoint3d&, const OdGePoint3d&) override { isUnbounded = true; }
    void ray(const OdGePoint3d&, const OdGePoint3d&) override { isUnbounded = true; }
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
              const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle) override
    {
        OdGiGeometrySimplifier::text(position, normal, direction, message, length, raw, textStyle);
    }
};

/// One collector serves many entities, one after the other.
class BoundsCollector
{
public:
    /// No rectangle for an entity that draws nothing, or nothing that ends.
    OdGeExtents2d boundsOf(const OdDbEntity& entity, const ViewPlane& plane);
    /// Whether the entity looked at last has lines without end, beside what the rectangle says.
    bool isUnbounded() const { return m_isUnbounded; }

private:
    bool m_isUnbounded = false;
};

} // namespace picking
