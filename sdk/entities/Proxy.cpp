// Entities of unknown classes. Those that carry a picture of themselves draw it.
#include "DbProxyEntity.h"
#include "Gi/GiWorldDraw.h"
#include "db/Proxies.h"
#include "entities/Fields.h"
#include "entities/ProxyGraphics.h"
#include "entities/ProxyPainter.h"
#include "entities/RoleWalker.h"
#include "entities/Transform.h"

OdString OdDbProxyEntity::originalDxfName() const
{
    assertReadEnabled();
    return odUtf8ToString(oddb::proxyDxfName(*this));
}

/// Without a picture of its own an entity shows where it is, so far as its groups tell.
static void drawPlaces(OdGiGeometry& geometry, const oddb::Groups& groups)
{
    const transform::Places places = transform::placesOf(groups);
    for (const OdGePoint3d& point : places.points)
        geometry.polyline(1, &point);
    for (const std::vector<OdGePoint3d>& path : places.paths)
        geometry.polyline(static_cast<OdInt32>(path.size()), path.data());
}

bool OdDbProxyEntity::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const oddb::Groups groups = entityfields::groupsOf(*this);
    const OdGeExtents3d box = proxygraphics::boxOf(groups);
    const bool wantsBox = worldDraw->regenType() == kOdGiForExtents && box.isValidExtents();
    if (!wantsBox && proxygraphics::draw(groups, *worldDraw))
        return true;
    if (!box.isValidExtents())
    {
        drawPlaces(worldDraw->geometry(), groups);
        return true;
    }
    const OdGePoint3d low = box.minPoint();
    const OdGePoint3d high = box.maxPoint();
    OdGePoint3d corners[8];
    for (int i = 0; i < 8; ++i)
        corners[i] = OdGePoint3d(i & 1 ? high.x : low.x, i & 2 ? high.y : low.y, i & 4 ? high.z : low.z);
    worldDraw->geometry().polyline(8, corners);
    return true;
}

// What the class keeps of its own moves where its groups are known, and the picture with it. Of other classes neither
// moves: the picture alone would only be right until the class draws itself again.
OdResult OdDbProxyEntity::subTransformBy(const OdGeMatrix3d& xform)
{
    const OdResult result = transform::transformGroups(*this, xform);
    if (result == eOk)
        oddb::ObjectCore::changeGroups(*this, proxygraphics::transformed(entityfields::groupsOf(*this), xform));
    return result;
}
