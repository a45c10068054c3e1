// The subclasses of all entities: one list of groups per subclass marker, in the order in which files have them.
#pragma once

#include "db/DxfClassTable.h"

namespace entitytables
{

using oddb::DxfSubclass;

extern const DxfSubclass kEntity;

// Curves
extern const DxfSubclass kLine;
extern const DxfSubclass kPoint;
extern const DxfSubclass kCircle;
extern const DxfSubclass kArc;
extern const DxfSubclass kEllipse;
extern const DxfSubclass kSpline;
extern const DxfSubclass kXline;
extern const DxfSubclass kRay;
extern const DxfSubclass kPolyline;
extern const DxfSubclass kLeader;
extern const DxfSubclass kMline;

// Polylines and meshes with vertices of their own
extern const DxfSubclass k2dPolyline;
extern const DxfSubclass k3dPolyline;
extern const DxfSubclass kPolygonMesh;
extern const DxfSubclass kPolyFaceMesh;
extern const DxfSubclass kVertex;
extern const DxfSubclass k2dVertex;
extern const DxfSubclass k3dPolylineVertex;
extern const DxfSubclass kPolygonMeshVertex;
extern const DxfSubclass kPolyFaceMeshVertex;
extern const DxfSubclass kFaceRecord;

// Texts
extern const DxfSubclass kText;
extern const DxfSubclass kTextEnd;
extern const DxfSubclass kAttribute;
extern const DxfSubclass kAttributeDefinition;
extern const DxfSubclass kMText;
extern const DxfSubclass kTolerance;
extern const DxfSubclass kShape;

// Blocks
extern const DxfSubclass kBlockReference;
extern const DxfSubclass kMInsertBlock;
extern const DxfSubclass kTable;
extern const DxfSubclass kBlockBegin;
extern const DxfSubclass kBlockEnd;

// Dimensions
extern const DxfSubclass kDimension;
extern const DxfSubclass kAlignedDimension;
extern const DxfSubclass kRotatedDimension;
extern const DxfSubclass kOrdinateDimension;
extern const DxfSubclass kRadialDimension;
extern const DxfSubclass kRadialDimensionLarge;
extern const DxfSubclass kDiametricDimension;
extern const DxfSubclass k2LineAngularDimension;
extern const DxfSubclass k3PointAngularDimension;
extern const DxfSubclass kArcDimension;

// Areas, pictures, windows
extern const DxfSubclass kHatch;
extern const DxfSubclass kTrace;
extern const DxfSubclass kFace;
extern const DxfSubclass kRasterImage;
extern const DxfSubclass kWipeout;
extern const DxfSubclass kRasterImageDef;
extern const DxfSubclass kRasterImageDefReactor;
extern const DxfSubclass kRasterVariables;
extern const DxfSubclass kFilter;
extern const DxfSubclass kSpatialFilter;
extern const DxfSubclass kViewport;

} // namespace entitytables
