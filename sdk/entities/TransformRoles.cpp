// The table of roles: one row per group that moves with its entity.
#include "entities/TransformRoles.h"

#include <algorithm>

namespace transform
{

namespace
{

using enum Role;

constexpr RoleRow kNormalThickness[] = {{210, PlaneDirection}, {39, Thickness}};
constexpr RoleRow kLine[] = {{10, Place}, {11, Place}, {210, PlaneDirection}, {39, Thickness}};
constexpr RoleRow kPoint[] = {{10, Place}, {210, PlaneDirection}, {39, Thickness}, {50, TurnPlane}};
constexpr RoleRow kCircle[] = {{10, PlacePlane}, {40, Length}, {210, PlaneDirection}, {39, Thickness}};
constexpr RoleRow kArc[] = {{50, AnglePlane}, {51, AnglePlane}};
constexpr RoleRow kEllipse[] = {{10, Place}, {11, Direction}, {210, PlaneDirection}};
constexpr RoleRow kSpline[] = {{10, Place, true}, {11, Place}, {12, Direction}, {13, Direction}, {210, PlaneDirection}};
constexpr RoleRow kHelix[] = {{10, Place}, {11, Place}, {12, Direction}, {40, Length}, {42, Length}};
constexpr RoleRow kXline[] = {{10, Place}, {11, Direction}};
constexpr RoleRow kPolyline[] = {{10, PlacePlane}, {38, Elevation}, {39, Thickness},      {40, Length},
                                 {41, Length},     {43, Length},    {210, PlaneDirection}};
constexpr RoleRow k2dPolyline[] = {
    {10, ElevationPoint}, {39, Thickness}, {40, Length}, {41, Length}, {210, PlaneDirection}};
constexpr RoleRow k2dVertex[] = {{10, PlacePlane}, {40, Length}, {41, Length}, {50, AnglePlane}};
constexpr RoleRow kSpaceVertex[] = {{10, Place}};
constexpr RoleRow kText[] = {{10, PlacePlane}, {11, PlacePlane}, {39, Thickness},
                             {40, Length},     {50, TurnPlane},  {210, PlaneDirection}};
constexpr RoleRow kShape[] = {{10, PlacePlane}, {39, Thickness}, {40, Length}, {50, TurnPlane}, {210, PlaneDirection}};
constexpr RoleRow kMText[] = {{10, Place},  {11, Direction}, {40, Length},    {41, Length},         {42, Length},
                              {43, Length}, {46, Length},    {50, TurnPlane}, {210, PlaneDirection}};
constexpr RoleRow kTolerance[] = {{10, Place}, {11, Direction}, {210, PlaneDirection}};
constexpr RoleRow kBlockReference[] = {{10, PlacePlane}, {210, PlaneDirection}};
constexpr RoleRow kTable[] = {{11, Direction}};
constexpr RoleRow kDimension[] = {{10, Place}, {11, PlacePlane}, {12, PlacePlane}, {210, PlaneDirection}};
constexpr RoleRow kDimensionPoints[] = {{12, PlacePlane}, {13, Place}, {14, Place},
                                        {15, Place},      {16, Place}, {17, Place}};
constexpr RoleRow kAngularPoints[] = {{13, Place}, {14, Place}, {15, Place}, {16, PlacePlane}};
constexpr RoleRow kTrace[] = {{10, PlacePlane}, {11, PlacePlane}, {12, PlacePlane},
                              {13, PlacePlane}, {39, Thickness},  {210, PlaneDirection}};
constexpr RoleRow kFace[] = {{10, Place}, {11, Place}, {12, Place}, {13, Place}};
constexpr RoleRow kLeader[] = {{10, Place},      {40, Length},     {41, Length},    {210, PlaneDirection},
                               {211, Direction}, {212, Direction}, {213, Direction}};
constexpr RoleRow kMline[] = {{10, Place},  {11, Place, true}, {12, Direction},      {13, Direction},
                              {40, Length}, {41, Length},      {210, PlaneDirection}};
constexpr RoleRow kRasterImage[] = {{10, Place}, {11, Direction}, {12, Direction}};
constexpr RoleRow kViewport[] = {{10, Place}, {40, Length}, {41, Length}};
constexpr RoleRow kLight[] = {{10, Place}, {11, UnseenPlace}};
constexpr RoleRow kMesh[] = {{10, Place}};
constexpr RoleRow kSection[] = {{10, Direction}, {11, Place}, {12, Place}};
constexpr RoleRow kMLeaderContext[] = {{10, Place},      {11, Direction}, {12, Place},  {13, Direction},
                                       {14, Direction},  {15, Place},     {40, Length}, {41, Length},
                                       {43, Length},     {44, Length},    {47, Matrix}, {110, UnseenPlace},
                                       {111, Direction}, {112, Direction}};
constexpr RoleRow kMLeaderLeader[] = {{10, Place}, {11, Direction}, {12, Place}, {13, Place}, {40, Length}};
constexpr RoleRow kMLeaderLine[] = {{10, Place, true}, {11, Place}, {12, Place}};

constexpr RoleSection kSections[] = {
    {"AcDbLine", "", kLine, true},
    {"AcDbPoint", "", kPoint},
    {"AcDbCircle", "", kCircle},
    {"AcDbArc", "", kArc},
    {"AcDbEllipse", "", kEllipse},
    {"AcDbSpline", "", kSpline, true},
    {"AcDbHelix", "", kHelix},
    {"AcDbXline", "", kXline, true},
    {"AcDbRay", "", kXline, true},
    {"AcDbPolyline", "", kPolyline},
    {"AcDb2dPolyline", "", k2dPolyline},
    {"AcDb2dVertex", "", k2dVertex},
    {"AcDb3dPolyline", "", kNormalThickness, true},
    {"AcDbPolygonMesh", "", kNormalThickness, true},
    {"AcDbPolyFaceMesh", "", kNormalThickness, true},
    {"AcDb3dPolylineVertex", "", kSpaceVertex, true},
    {"AcDbPolygonMeshVertex", "", kSpaceVertex, true},
    {"AcDbPolyFaceMeshVertex", "", kSpaceVertex, true},
    {"AcDbFaceRecord", "", {}, true},
    {"AcDbText", "", kText},
    {"AcDbShape", "", kShape},
    {"AcDbMText", "", kMText},
    {"AcDbFcf", "", kTolerance},
    {"AcDbBlockReference", "", kBlockReference},
    {"AcDbMInsertBlock", "", kBlockReference},
    {"AcDbTable", "", kTable},
    {"AcDbDimension", "", kDimension},
    {"AcDbAlignedDimension", "", kDimensionPoints},
    {"AcDbOrdinateDimension", "", kDimensionPoints},
    {"AcDbRadialDimension", "", kDimensionPoints},
    {"AcDbRadialDimensionLarge", "", kDimensionPoints},
    {"AcDbDiametricDimension", "", kDimensionPoints},
    {"AcDb2LineAngularDimension", "", kAngularPoints},
    {"AcDb3PointAngularDimension", "", kDimensionPoints},
    {"AcDbArcDimension", "", kDimensionPoints},
    {"AcDbTrace", "", kTrace},
    {"AcDbFace", "", kFace, true},
    {"AcDbLeader", "", kLeader},
    {"AcDbMline", "", kMline},
    {"AcDbRasterImage", "", kRasterImage, true},
    {"AcDbWipeout", "", kRasterImage, true},
    {"AcDbViewport", "", kViewport},
    {"AcDbLight", "", kLight},
    {"AcDbSubDMesh", "", kMesh, true},
    {"AcDbSection", "", kSection},
    {"AcDbMLeader", "CONTEXT_DATA", kMLeaderContext},
    {"AcDbMLeader", "LEADER", kMLeaderLeader},
    {"AcDbMLeader", "LEADER_LINE", kMLeaderLine},
};

} // namespace

const RoleSection* findRoles(std::string_view marker, std::string_view block)
{
    const auto* found =
        std::find_if(std::begin(kSections), std::end(kSections),
                     [&](const RoleSection& section) { return marker == section.marker && block == section.block; });
    return found == std::end(kSections) ? nullptr : found;
}

} // namespace transform
