// Vertices that are entities of their own. Their position is read by whoever draws the polyline.
#include "DbVertex.h"
#include "OdError.h"
#include "entities/Fields.h"

using namespace entityfields;
using namespace entitytables;

namespace
{

enum Flag
{
    kCurveFit = 1,
    kSplineFit = 8,
    kSplineControl = 16
};

constexpr int kCorners = 4;

OdDb::Vertex3dType spatialType(int flags)
{
    if (flags & kSplineControl)
        return OdDb::k3dControlVertex;
    return flags & kSplineFit ? OdDb::k3dFitVertex : OdDb::k3dSimpleVertex;
}

int cornerCode(int corner)
{
    if (corner < 0 || corner >= kCorners)
        throw OdError(eInvalidIndex);
    return 71 + corner;
}

} // namespace

OdGePoint3d OdDb2dVertex::position() const
{
    return read<k2dVertex>(*this).point(10);
}

void OdDb2dVertex::setPosition(const OdGePoint3d& position)
{
    setPoint(*this, k2dVertex, 10, position);
}

double OdDb2dVertex::bulge() const
{
    return read<k2dVertex>(*this).real(42);
}

void OdDb2dVertex::setBulge(double bulge)
{
    setReal(*this, k2dVertex, 42, bulge);
}

double OdDb2dVertex::startWidth() const
{
    return read<k2dVertex>(*this).real(40);
}

void OdDb2dVertex::setStartWidth(double width)
{
    setReal(*this, k2dVertex, 40, width);
}

double OdDb2dVertex::endWidth() const
{
    return read<k2dVertex>(*this).real(41);
}

void OdDb2dVertex::setEndWidth(double width)
{
    setReal(*this, k2dVertex, 41, width);
}

OdDb::Vertex2dType OdDb2dVertex::vertexType() const
{
    const int flags = read<k2dVertex>(*this).integer(70);
    if (flags & kSplineControl)
        return OdDb::k2dSplineCtlVertex;
    if (flags & kSplineFit)
        return OdDb::k2dSplineFitVertex;
    return flags & kCurveFit ? OdDb::k2dCurveFitVertex : OdDb::k2dVertex;
}

OdGePoint3d OdDb3dPolylineVertex::position() const
{
    return read<k3dPolylineVertex>(*this).point(10);
}

void OdDb3dPolylineVertex::setPosition(const OdGePoint3d& position)
{
    setPoint(*this, k3dPolylineVertex, 10, position);
}

OdDb::Vertex3dType OdDb3dPolylineVertex::vertexType() const
{
    return spatialType(read<k3dPolylineVertex>(*this).integer(70));
}

OdGePoint3d OdDbPolygonMeshVertex::position() const
{
    return read<kPolygonMeshVertex>(*this).point(10);
}

void OdDbPolygonMeshVertex::setPosition(const OdGePoint3d& position)
{
    setPoint(*this, kPolygonMeshVertex, 10, position);
}

OdDb::Vertex3dType OdDbPolygonMeshVertex::vertexType() const
{
    return spatialType(read<kPolygonMeshVertex>(*this).integer(70));
}

OdGePoint3d OdDbPolyFaceMeshVertex::position() const
{
    return read<kPolyFaceMeshVertex>(*this).point(10);
}

void OdDbPolyFaceMeshVertex::setPosition(const OdGePoint3d& position)
{
    setPoint(*this, kPolyFaceMeshVertex, 10, position);
}

OdInt16 OdDbFaceRecord::getVertexAt(int corner) const
{
    return static_cast<OdInt16>(read<kFaceRecord>(*this).integer(cornerCode(corner)));
}

void OdDbFaceRecord::setVertexAt(int corner, OdInt16 vertex)
{
    setInteger(*this, kFaceRecord, cornerCode(corner), vertex);
}
