// Entities of unknown classes. Those that carry a picture of themselves tell their box in it.
#include "DbProxyEntity.h"
#include "Gi/GiWorldDraw.h"
#include "db/Proxies.h"
#include "entities/Fields.h"
#include "entities/ProxyGraphics.h"
#include "entities/Transform.h"

OdString OdDbProxyEntity::originalDxfName() const
{
    assertReadEnabled();
    return odUtf8ToString(oddb::proxyDxfName(*this));
}

bool OdDbProxyEntity::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const OdGeExtents3d box = proxygraphics::boxOf(entityfields::groupsOf(*this));
    if (!box.isValidExtents())
        return true;
    const OdGePoint3d low = box.minPoint();
    const OdGePoint3d high = box.maxPoint();
    OdGePoint3d corners[8];
    for (int i = 0; i < 8; ++i)
        corners[i] = OdGePoint3d(i & 1 ? high.x : low.x, i & 2 ? high.y : low.y, i & 4 ? high.z : low.z);
    worldDraw->geometry().polyline(8, corners);
    return true;
}

OdResult OdDbProxyEntity::subTransformBy(const OdGeMatrix3d& xform)
{
    // The picture that comes with the data would stay behind.
    if (proxygraphics::boxOf(entityfields::groupsOf(*this)).isValidExtents())
        return eNotImplementedYet;
    return transform::transformGroups(*this, xform);
}
