// The runtime classes of all entities, in the order in which they are registered: bases first.
#include "entities/RuntimeClasses.h"

#include "Db2dPolyline.h"
#include "Db3dPolyline.h"
#include "DbArc.h"
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbBlockBegin.h"
#include "DbBlockReference.h"
#include "DbCircle.h"
#include "DbComplexEntity.h"
#include "DbDimension.h"
#include "DbEllipse.h"
#include "DbFace.h"
#include "DbHatch.h"
#include "DbLeader.h"
#include "DbLine.h"
#include "DbMText.h"
#include "DbObjectIterator.h"
#include "DbPoint.h"
#include "DbPolyFaceMesh.h"
#include "DbPolygonMesh.h"
#include "DbPolyline.h"
#include "DbProxyEntity.h"
#include "DbRasterImage.h"
#include "DbRasterImageDef.h"
#include "DbRasterImageDefReactor.h"
#include "DbRasterVariables.h"
#include "DbSolid.h"
#include "DbSpatialFilter.h"
#include "DbSpline.h"
#include "DbText.h"
#include "DbTrace.h"
#include "DbVertex.h"
#include "DbViewport.h"
#include "DbXline.h"
#include "db/ObjectCore.h"
#include "entities/EntityClasses.h"
#include "rx/ClassRows.h"

namespace
{

/// A new object with what every object of its class begins with. The groups are copied rather than shared, for objects
/// of different drawings may be used by different threads.
template<class T>
OdSmartPtr<T> newWithGroups()
{
    static const oddb::Groups initial = entityclasses::initialGroupsOf(T::desc());
    OdSmartPtr<T> made = OdRxObjectImpl<T>::createObject();
    if (initial)
        oddb::ObjectCore::putGroups(*made, oddb::Groups::fromItems(initial.data()->bytes(), initial.byteSize()));
    return made;
}

} // namespace

#define ENTITY_CONSTR(ClassName) newWithGroups<ClassName>()

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbObjectIterator, OdRxObject)
ODDB_DEFINE_MEMBERS(OdDbEntity, OdDbObject, EMPTY_CONSTR, nullptr)
ODDB_DEFINE_MEMBERS(OdDbCurve, OdDbEntity, EMPTY_CONSTR, nullptr)
ODDB_DEFINE_MEMBERS(OdDbLine, OdDbCurve, ENTITY_CONSTR, L"LINE")
ODDB_DEFINE_MEMBERS(OdDbXline, OdDbCurve, ENTITY_CONSTR, L"XLINE")
ODDB_DEFINE_MEMBERS(OdDbRay, OdDbCurve, ENTITY_CONSTR, L"RAY")
ODDB_DEFINE_MEMBERS(OdDbPoint, OdDbEntity, ENTITY_CONSTR, L"POINT")
ODDB_DEFINE_MEMBERS(OdDbCircle, OdDbCurve, ENTITY_CONSTR, L"CIRCLE")
ODDB_DEFINE_MEMBERS(OdDbArc, OdDbCurve, ENTITY_CONSTR, L"ARC")
ODDB_DEFINE_MEMBERS(OdDbEllipse, OdDbCurve, ENTITY_CONSTR, L"ELLIPSE")
ODDB_DEFINE_MEMBERS(OdDbSpline, OdDbCurve, ENTITY_CONSTR, L"SPLINE")
ODDB_DEFINE_MEMBERS(OdDbPolyline, OdDbCurve, ENTITY_CONSTR, L"LWPOLYLINE")
ODDB_DEFINE_MEMBERS(OdDbLeader, OdDbCurve, ENTITY_CONSTR, L"LEADER")
ODDB_DEFINE_MEMBERS(OdDbText, OdDbEntity, ENTITY_CONSTR, L"TEXT")
ODDB_DEFINE_MEMBERS(OdDbAttribute, OdDbText, ENTITY_CONSTR, L"ATTRIB")
ODDB_DEFINE_MEMBERS(OdDbAttributeDefinition, OdDbText, ENTITY_CONSTR, L"ATTDEF")
ODDB_DEFINE_MEMBERS(OdDbMText, OdDbEntity, ENTITY_CONSTR, L"MTEXT")
ODDB_DEFINE_MEMBERS(OdDbVertex, OdDbEntity, EMPTY_CONSTR, nullptr)
ODDB_DEFINE_MEMBERS(OdDb2dVertex, OdDbVertex, ENTITY_CONSTR, L"VERTEX")
ODDB_DEFINE_MEMBERS(OdDb3dPolylineVertex, OdDbVertex, ENTITY_CONSTR, L"VERTEX")
ODDB_DEFINE_MEMBERS(OdDbPolygonMeshVertex, OdDbVertex, ENTITY_CONSTR, L"VERTEX")
ODDB_DEFINE_MEMBERS(OdDbPolyFaceMeshVertex, OdDbVertex, ENTITY_CONSTR, L"VERTEX")
ODDB_DEFINE_MEMBERS(OdDbFaceRecord, OdDbVertex, ENTITY_CONSTR, L"VERTEX")
ODDB_DEFINE_MEMBERS(OdDbSequenceEnd, OdDbEntity, ENTITY_CONSTR, L"SEQEND")
ODDB_DEFINE_MEMBERS(OdDb2dPolyline, OdDbCurve, ENTITY_CONSTR, L"POLYLINE")
ODDB_DEFINE_MEMBERS(OdDb3dPolyline, OdDbCurve, ENTITY_CONSTR, L"POLYLINE")
ODDB_DEFINE_MEMBERS(OdDbPolygonMesh, OdDbEntity, ENTITY_CONSTR, L"POLYLINE")
ODDB_DEFINE_MEMBERS(OdDbPolyFaceMesh, OdDbEntity, ENTITY_CONSTR, L"POLYLINE")
ODDB_DEFINE_MEMBERS(OdDbBlockReference, OdDbEntity, ENTITY_CONSTR, L"INSERT")
ODDB_DEFINE_MEMBERS(OdDbMInsertBlock, OdDbBlockReference, ENTITY_CONSTR, L"INSERT")
ODDB_DEFINE_MEMBERS(OdDbTable, OdDbBlockReference, ENTITY_CONSTR, L"ACAD_TABLE")
ODDB_DEFINE_MEMBERS(OdDbBlockBegin, OdDbEntity, ENTITY_CONSTR, L"BLOCK")
ODDB_DEFINE_MEMBERS(OdDbBlockEnd, OdDbEntity, ENTITY_CONSTR, L"ENDBLK")
ODDB_DEFINE_MEMBERS(OdDbDimension, OdDbEntity, EMPTY_CONSTR, nullptr)
ODDB_DEFINE_MEMBERS(OdDbAlignedDimension, OdDbDimension, ENTITY_CONSTR, L"DIMENSION")
ODDB_DEFINE_MEMBERS(OdDbRotatedDimension, OdDbDimension, ENTITY_CONSTR, L"DIMENSION")
ODDB_DEFINE_MEMBERS(OdDb2LineAngularDimension, OdDbDimension, ENTITY_CONSTR, L"DIMENSION")
ODDB_DEFINE_MEMBERS(OdDb3PointAngularDimension, OdDbDimension, ENTITY_CONSTR, L"DIMENSION")
ODDB_DEFINE_MEMBERS(OdDbRadialDimension, OdDbDimension, ENTITY_CONSTR, L"DIMENSION")
ODDB_DEFINE_MEMBERS(OdDbRadialDimensionLarge, OdDbDimension, ENTITY_CONSTR, L"LARGE_RADIAL_DIMENSION")
ODDB_DEFINE_MEMBERS(OdDbDiametricDimension, OdDbDimension, ENTITY_CONSTR, L"DIMENSION")
ODDB_DEFINE_MEMBERS(OdDbOrdinateDimension, OdDbDimension, ENTITY_CONSTR, L"DIMENSION")
ODDB_DEFINE_MEMBERS(OdDbArcDimension, OdDbDimension, ENTITY_CONSTR, L"ARC_DIMENSION")
ODDB_DEFINE_MEMBERS(OdDbHatch, OdDbEntity, ENTITY_CONSTR, L"HATCH")
ODDB_DEFINE_MEMBERS(OdDbSolid, OdDbEntity, ENTITY_CONSTR, L"SOLID")
ODDB_DEFINE_MEMBERS(OdDbTrace, OdDbEntity, ENTITY_CONSTR, L"TRACE")
ODDB_DEFINE_MEMBERS(OdDbFace, OdDbEntity, ENTITY_CONSTR, L"3DFACE")
ODDB_DEFINE_MEMBERS(OdDbRasterImage, OdDbEntity, ENTITY_CONSTR, L"IMAGE")
ODDB_DEFINE_MEMBERS(OdDbWipeout, OdDbRasterImage, ENTITY_CONSTR, L"WIPEOUT")
ODDB_DEFINE_MEMBERS(OdDbRasterImageDef, OdDbObject, ENTITY_CONSTR, L"IMAGEDEF")
ODDB_DEFINE_MEMBERS(OdDbRasterImageDefReactor, OdDbObject, ENTITY_CONSTR, L"IMAGEDEF_REACTOR")
ODDB_DEFINE_MEMBERS(OdDbRasterVariables, OdDbObject, ENTITY_CONSTR, L"RASTERVARIABLES")
ODDB_DEFINE_MEMBERS(OdDbFilter, OdDbObject, EMPTY_CONSTR, nullptr)
ODDB_DEFINE_MEMBERS(OdDbSpatialFilter, OdDbFilter, ENTITY_CONSTR, L"SPATIAL_FILTER")
ODDB_DEFINE_MEMBERS(OdDbViewport, OdDbEntity, ENTITY_CONSTR, L"VIEWPORT")
ODDB_DEFINE_MEMBERS(OdDbProxyEntity, OdDbEntity, ENTITY_CONSTR, nullptr)

namespace entityclasses
{

namespace
{

constexpr auto kClasses = odlayers::rowsOf<
    OdDbObjectIterator, OdDbEntity, OdDbCurve, OdDbLine, OdDbXline, OdDbRay, OdDbPoint, OdDbCircle, OdDbArc,
    OdDbEllipse, OdDbSpline, OdDbPolyline, OdDbLeader, OdDbText, OdDbAttribute, OdDbAttributeDefinition, OdDbMText,
    OdDbVertex, OdDb2dVertex, OdDb3dPolylineVertex, OdDbPolygonMeshVertex, OdDbPolyFaceMeshVertex, OdDbFaceRecord,
    OdDbSequenceEnd, OdDb2dPolyline, OdDb3dPolyline, OdDbPolygonMesh, OdDbPolyFaceMesh, OdDbBlockReference,
    OdDbMInsertBlock, OdDbTable, OdDbBlockBegin, OdDbBlockEnd, OdDbDimension, OdDbAlignedDimension,
    OdDbRotatedDimension, OdDb2LineAngularDimension, OdDb3PointAngularDimension, OdDbRadialDimension,
    OdDbRadialDimensionLarge, OdDbDiametricDimension, OdDbOrdinateDimension, OdDbArcDimension, OdDbHatch, OdDbSolid,
    OdDbTrace, OdDbFace, OdDbRasterImage, OdDbWipeout, OdDbRasterImageDef, OdDbRasterImageDefReactor,
    OdDbRasterVariables, OdDbFilter, OdDbSpatialFilter, OdDbViewport, OdDbProxyEntity>();

} // namespace

void registerRuntimeClasses()
{
    odlayers::startClasses(kClasses);
}

void unregisterRuntimeClasses()
{
    odlayers::endClasses(kClasses);
}

} // namespace entityclasses
