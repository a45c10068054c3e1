// Finds the rectangle that an entity covers.
#include "select/BoundsCollector.h"

#include "DbEntity.h"

namespace picking
{

namespace
{

class BoundsDraw : public gi::WorldDraw
{
public:
    BoundsDraw() : gi::WorldDraw(kOdGiStandardDisplay), m_geometry(*this) {}

    OdGiGeometry& geometry() const override { return m_geometry; }
    const BoundsGeometry& bounds() const { return m_geometry; }

private:
    mutable OdStaticRxObject<BoundsGeometry> m_geometry;
};

} // namespace

OdGeExtents2d BoundsCollector::boundsOf(const OdDbEntity& entity, const ViewPlane& plane)
{
    OdStaticRxObject<BoundsDraw> draw;
    entity.worldDraw(&draw);
    m_isUnbounded = draw.bounds().isUnbounded;
    const OdGeExtents3d& box = draw.bounds().extents();
    OdGeExtents2d seen;
    if (!box.isValidExtents())
        return seen;
    const OdGePoint3d& low = box.minPoint();
    const OdGePoint3d& high = box.maxPoint();
    for (int corner = 0; corner < 8; ++corner)
        seen.addPoint(
            plane.at({corner & 1 ? high.x : low.x, corner & 2 ? high.y : low.y, corner & 4 ? high.z : low.z}));
    return seen;
}

} // namespace picking
