// The groups of polylines and meshes that keep each vertex as an entity of its own, and of their vertices.
#include "entities/EntityTables.h"
#include "entities/TableRows.h"

namespace entitytables
{

using namespace entityrows;

namespace
{

constexpr DxfRow kPolylineRows[] = {
    integer(66, "vertices follow", 1),
    point3d(10, "elevation, as the third coordinate"),
    real(39, "thickness"),
    integer(70, "flags: closed 1, fit 2, spline 4, in space 8, mesh 16, closed along N 32, faces 64"),
    real(40, "start width"),
    real(41, "end width"),
    integer(71, "number of vertices along M"),
    integer(72, "number of vertices along N"),
    integer(73, "density of the smooth surface along M"),
    integer(74, "density of the smooth surface along N"),
    integer(75, "curve or surface type"),
    point3d(210, "normal"),
};

constexpr DxfRow kVertexRows[] = {
    point3d(10, "position"),
    real(40, "start width"),
    real(41, "end width"),
    real(42, "bulge"),
    integer(70, "flags: fit 1, tangent 2, spline 8, control point 16, in space 32, mesh 64, faces 128"),
    angle(50, "direction of the fitted curve"),
    since(OdDb::vAC24, integer(91, "vertex number")),
};

constexpr DxfRow kFaceRecordRows[] = {
    point3d(10, "unused"),        integer(70, "flags", 128),   integer(71, "first corner"),
    integer(72, "second corner"), integer(73, "third corner"), integer(74, "fourth corner"),
};

} // namespace

const DxfSubclass k2dPolyline{"AcDb2dPolyline", kPolylineRows};
const DxfSubclass k3dPolyline{"AcDb3dPolyline", kPolylineRows};
const DxfSubclass kPolygonMesh{"AcDbPolygonMesh", kPolylineRows};
const DxfSubclass kPolyFaceMesh{"AcDbPolyFaceMesh", kPolylineRows};
const DxfSubclass kVertex{"AcDbVertex", {}};
const DxfSubclass k2dVertex{"AcDb2dVertex", kVertexRows};
const DxfSubclass k3dPolylineVertex{"AcDb3dPolylineVertex", kVertexRows};
const DxfSubclass kPolygonMeshVertex{"AcDbPolygonMeshVertex", kVertexRows};
const DxfSubclass kPolyFaceMeshVertex{"AcDbPolyFaceMeshVertex", kVertexRows};
const DxfSubclass kFaceRecord{"AcDbFaceRecord", kFaceRecordRows};

} // namespace entitytables
