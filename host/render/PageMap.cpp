// Implements views.
#include "render/PageMap.h"

namespace render
{

OdGeMatrix3d toViewPlane(const ViewPoint& view)
{
    const double length = view.direction.length();
    const OdGeVector3d z = length > 0.0 ? view.direction / length : OdGeVector3d(0.0, 0.0, 1.0);
    const OdGeVector3d x = z.perpVector();
    const OdGeVector3d y = z.crossProduct(x);
    const double c = std::cos(view.twist);
    const double s = std::sin(view.twist);
    OdGeMatrix3d fromPlane;
    fromPlane.setCoordSystem(view.target, x * c - y * s, x * s + y * c, z);
    return fromPlane.inverse();
}

OdGeMatrix3d toPage(const OdGeExtents2d& plane, const OdGeExtents2d& page)
{
    const double scale = (page.maxPoint().x - page.minPoint().x) / (plane.maxPoint().x - plane.minPoint().x);
    OdGeMatrix3d matrix;
    matrix.setCoordSystem(OdGePoint3d(page.minPoint().x - plane.minPoint().x * scale,
                                      page.maxPoint().y + plane.minPoint().y * scale, 0.0),
                          OdGeVector3d(scale, 0.0, 0.0), OdGeVector3d(0.0, -scale, 0.0), OdGeVector3d(0.0, 0.0, scale));
    return matrix;
}

} // namespace render
