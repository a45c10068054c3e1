// The table of entity classes. Where classes share a name in files, the more special one stands first.
#include "entities/EntityClasses.h"

#include <unordered_map>
#include <vector>

#include "RxClass.h"
#include "entities/EntityTables.h"
#include "entities/RasterImageFiles.h"
#include "entities/RuntimeClasses.h"
#include "rx/Layers.h"

namespace entityclasses
{

namespace
{

using namespace entitytables;
using oddb::DxfClass;
using oddb::DxfRow;
using oddb::Groups;
using oddb::GroupsBuilder;

using Parts = std::span<const DxfSubclass* const>;

constexpr const DxfSubclass* kLineParts[] = {&kEntity, &kLine};
constexpr const DxfSubclass* kXlineParts[] = {&kEntity, &kXline};
constexpr const DxfSubclass* kRayParts[] = {&kEntity, &kRay};
constexpr const DxfSubclass* kPointParts[] = {&kEntity, &kPoint};
constexpr const DxfSubclass* kCircleParts[] = {&kEntity, &kCircle};
constexpr const DxfSubclass* kCircleArcParts[] = {&kEntity, &kCircle, &kArc};
constexpr const DxfSubclass* kEllipseParts[] = {&kEntity, &kEllipse};
constexpr const DxfSubclass* kSplineParts[] = {&kEntity, &kSpline};
constexpr const DxfSubclass* kPolylineParts[] = {&kEntity, &kPolyline};
constexpr const DxfSubclass* kLeaderParts[] = {&kEntity, &kLeader};
constexpr const DxfSubclass* kTextTextEndParts[] = {&kEntity, &kText, &kTextEnd};
constexpr const DxfSubclass* kTextAttributeParts[] = {&kEntity, &kText, &kAttribute};
constexpr const DxfSubclass* kTextAttributeDefinitionParts[] = {&kEntity, &kText, &kAttributeDefinition};
constexpr const DxfSubclass* kMTextParts[] = {&kEntity, &kMText};
constexpr const DxfSubclass* kFaceRecordParts[] = {&kEntity, &kFaceRecord};
constexpr const DxfSubclass* kVertexPolyFaceMeshVertexParts[] = {&kEntity, &kVertex, &kPolyFaceMeshVertex};
constexpr const DxfSubclass* kVertexPolygonMeshVertexParts[] = {&kEntity, &kVertex, &kPolygonMeshVertex};
constexpr const DxfSubclass* kVertex3dPolylineVertexParts[] = {&kEntity, &kVertex, &k3dPolylineVertex};
constexpr const DxfSubclass* kVertex2dVertexParts[] = {&kEntity, &kVertex, &k2dVertex};
constexpr const DxfSubclass* kEntityParts[] = {&kEntity};
constexpr const DxfSubclass* kPolyFaceMeshParts[] = {&kEntity, &kPolyFaceMesh};
constexpr const DxfSubclass* kPolygonMeshParts[] = {&kEntity, &kPolygonMesh};
constexpr const DxfSubclass* k3dPolylineParts[] = {&kEntity, &k3dPolyline};
constexpr const DxfSubclass* k2dPolylineParts[] = {&kEntity, &k2dPolyline};
constexpr const DxfSubclass* kMInsertBlockParts[] = {&kEntity, &kMInsertBlock};
constexpr const DxfSubclass* kBlockReferenceParts[] = {&kEntity, &kBlockReference};
constexpr const DxfSubclass* kBlockReferenceTableParts[] = {&kEntity, &kBlockReference, &kTable};
constexpr const DxfSubclass* kBlockBeginParts[] = {&kEntity, &kBlockBegin};
constexpr const DxfSubclass* kBlockEndParts[] = {&kEntity, &kBlockEnd};
constexpr const DxfSubclass* kDimension2LineAngularDimensionParts[] = {&kEntity, &kDimension, &k2LineAngularDimension};
constexpr const DxfSubclass* kDimension3PointAngularDimensionParts[] = {&kEntity, &kDimension,
                                                                        &k3PointAngularDimension};
constexpr const DxfSubclass* kDimensionDiametricDimensionParts[] = {&kEntity, &kDimension, &kDiametricDimension};
constexpr const DxfSubclass* kDimensionRadialDimensionParts[] = {&kEntity, &kDimension, &kRadialDimension};
constexpr const DxfSubclass* kDimensionOrdinateDimensionParts[] = {&kEntity, &kDimension, &kOrdinateDimension};
constexpr const DxfSubclass* kDimensionAlignedDimensionRotatedDimensionParts[] = {
    &kEntity, &kDimension, &kAlignedDimension, &kRotatedDimension};
constexpr const DxfSubclass* kDimensionAlignedDimensionParts[] = {&kEntity, &kDimension, &kAlignedDimension};
constexpr const DxfSubclass* kDimensionRadialDimensionLargeParts[] = {&kEntity, &kDimension, &kRadialDimensionLarge};
constexpr const DxfSubclass* kDimensionArcDimensionParts[] = {&kEntity, &kDimension, &kArcDimension};
constexpr const DxfSubclass* kHatchParts[] = {&kEntity, &kHatch};
constexpr const DxfSubclass* kTraceParts[] = {&kEntity, &kTrace};
constexpr const DxfSubclass* kFaceParts[] = {&kEntity, &kFace};
constexpr const DxfSubclass* kRasterImageParts[] = {&kEntity, &kRasterImage};
constexpr const DxfSubclass* kWipeoutParts[] = {&kEntity, &kWipeout};
constexpr const DxfSubclass* kRasterImageDefParts[] = {&kRasterImageDef};
constexpr const DxfSubclass* kRasterImageDefReactorParts[] = {&kRasterImageDefReactor};
constexpr const DxfSubclass* kRasterVariablesParts[] = {&kRasterVariables};
constexpr const DxfSubclass* kSpatialFilterParts[] = {&kFilter, &kSpatialFilter};
constexpr const DxfSubclass* kViewportParts[] = {&kEntity, &kViewport};

constexpr int kAnyFlags = -1;

/// One class. required lists the groups that a new object has, in the order of the parts, which a bar divides. flags is
/// what a new object has in group 70 and, under the mask of its name in files, what tells it from the others where a
/// file has no markers.
struct EntityClass
{
    const char* dxfName;
    const char* className;
    Parts parts;
    const char* required;
    int flags = kAnyFlags;
};

constexpr EntityClass kClasses[] = {
    {"LINE", "OdDbLine", kLineParts, "8|10 11"},
    {"XLINE", "OdDbXline", kXlineParts, "8|10 11"},
    {"RAY", "OdDbRay", kRayParts, "8|10 11"},
    {"POINT", "OdDbPoint", kPointParts, "8|10"},
    {"CIRCLE", "OdDbCircle", kCircleParts, "8|10 40"},
    {"ARC", "OdDbArc", kCircleArcParts, "8|10 40|50 51"},
    {"ELLIPSE", "OdDbEllipse", kEllipseParts, "8|10 11 210 40 41 42"},
    {"SPLINE", "OdDbSpline", kSplineParts, "8|70 71 72 73 74"},
    {"LWPOLYLINE", "OdDbPolyline", kPolylineParts, "8|90 70"},
    {"LEADER", "OdDbLeader", kLeaderParts, "8|3 71 72 73 76"},
    {"TEXT", "OdDbText", kTextTextEndParts, "8|10 40 1|"},
    {"ATTRIB", "OdDbAttribute", kTextAttributeParts, "8|10 40 1|2 70"},
    {"ATTDEF", "OdDbAttributeDefinition", kTextAttributeDefinitionParts, "8|10 40 1|3 2 70"},
    {"MTEXT", "OdDbMText", kMTextParts, "8|10 40 41 71 72 1"},
    {"VERTEX", "OdDbFaceRecord", kFaceRecordParts, "8|10 70 71 72 73 74", 128},
    {"VERTEX", "OdDbPolyFaceMeshVertex", kVertexPolyFaceMeshVertexParts, "8||10 70", 192},
    {"VERTEX", "OdDbPolygonMeshVertex", kVertexPolygonMeshVertexParts, "8||10 70", 64},
    {"VERTEX", "OdDb3dPolylineVertex", kVertex3dPolylineVertexParts, "8||10 70", 32},
    {"VERTEX", "OdDb2dVertex", kVertex2dVertexParts, "8||10", 0},
    {"SEQEND", "OdDbSequenceEnd", kEntityParts, "8"},
    {"POLYLINE", "OdDbPolyFaceMesh", kPolyFaceMeshParts, "8|66 10 70 71 72", 64},
    {"POLYLINE", "OdDbPolygonMesh", kPolygonMeshParts, "8|66 10 70 71 72", 16},
    {"POLYLINE", "OdDb3dPolyline", k3dPolylineParts, "8|66 10 70", 8},
    {"POLYLINE", "OdDb2dPolyline", k2dPolylineParts, "8|66 10", 0},
    {"INSERT", "OdDbMInsertBlock", kMInsertBlockParts, "8|2 10 70 71"},
    {"INSERT", "OdDbBlockReference", kBlockReferenceParts, "8|2 10"},
    {"ACAD_TABLE", "OdDbTable", kBlockReferenceTableParts, ""},
    {"BLOCK", "OdDbBlockBegin", kBlockBeginParts, "8|2 70 10 3 1"},
    {"ENDBLK", "OdDbBlockEnd", kBlockEndParts, "8|"},
    {"DIMENSION", "OdDb2LineAngularDimension", kDimension2LineAngularDimensionParts, "8|2 10 11 70 3|13 14 15 16", 2},
    {"DIMENSION", "OdDb3PointAngularDimension", kDimension3PointAngularDimensionParts, "8|2 10 11 70 3|13 14 15", 5},
    {"DIMENSION", "OdDbDiametricDimension", kDimensionDiametricDimensionParts, "8|2 10 11 70 3|15 40", 3},
    {"DIMENSION", "OdDbRadialDimension", kDimensionRadialDimensionParts, "8|2 10 11 70 3|15 40", 4},
    {"DIMENSION", "OdDbOrdinateDimension", kDimensionOrdinateDimensionParts, "8|2 10 11 70 3|13 14", 6},
    {"DIMENSION", "OdDbRotatedDimension", kDimensionAlignedDimensionRotatedDimensionParts, "8|2 10 11 70 3|13 14 50|",
     0},
    {"DIMENSION", "OdDbAlignedDimension", kDimensionAlignedDimensionParts, "8|2 10 11 70 3|13 14", 1},
    {"LARGE_RADIAL_DIMENSION", "OdDbRadialDimensionLarge", kDimensionRadialDimensionLargeParts,
     "8|2 10 11 70 3|13 14 15 40", 4},
    {"ARC_DIMENSION", "OdDbArcDimension", kDimensionArcDimensionParts, "8|2 10 11 70 3|13 14 15 70 40 41 71", 5},
    {"HATCH", "OdDbHatch", kHatchParts, "8|10 210 2 70 71 91 75 76 98"},
    {"SOLID", "OdDbSolid", kTraceParts, "8|10 11 12 13"},
    {"TRACE", "OdDbTrace", kTraceParts, "8|10 11 12 13"},
    {"3DFACE", "OdDbFace", kFaceParts, "8|10 11 12 13"},
    {"IMAGE", "OdDbRasterImage", kRasterImageParts, "8|90 10 11 12 13 340 70 280 281 282 283 71 91"},
    {"WIPEOUT", "OdDbWipeout", kWipeoutParts, "8|90 10 11 12 13 70 280 281 282 283 71 91"},
    {"IMAGEDEF", "OdDbRasterImageDef", kRasterImageDefParts, "90 1 10 11 280 281"},
    {"IMAGEDEF_REACTOR", "OdDbRasterImageDefReactor", kRasterImageDefReactorParts, "90 330"},
    {"RASTERVARIABLES", "OdDbRasterVariables", kRasterVariablesParts, "90 70 71 72"},
    {"SPATIAL_FILTER", "OdDbSpatialFilter", kSpatialFilterParts, "|"},
    {"ACAD_PROXY_ENTITY", "OdDbProxyEntity", kEntityParts, ""},
    {"VIEWPORT", "OdDbViewport", kViewportParts, "8|10 40 41 68 69"},
};

/// Which bits of group 70 tell the classes of one name apart.
struct FlagMask
{
    const char* dxfName;
    int mask;
};

constexpr FlagMask kFlagMasks[] = {{"VERTEX", 224}, {"POLYLINE", 88}, {"DIMENSION", 7}};

int maskOf(std::string_view dxfName)
{
    for (const FlagMask& row : kFlagMasks)
    {
        if (dxfName == row.dxfName)
            return row.mask;
    }
    return 0;
}

/// The classes as the files' table wants them; in the order of kClasses.
const std::vector<DxfClass>& dxfClasses()
{
    static const std::vector<DxfClass> classes = []
    {
        std::vector<DxfClass> made;
        for (const EntityClass& row : kClasses)
            made.push_back({row.dxfName, row.className, row.parts, row.parts.front() == &kEntity});
        return made;
    }();
    return classes;
}

std::unordered_map<const OdRxClass*, const DxfClass*>& classesByRuntimeClass()
{
    static std::unordered_map<const OdRxClass*, const DxfClass*> classes;
    return classes;
}

int flagsOf(const Groups& groups)
{
    const auto flags = groups.findAny(70);
    return flags ? static_cast<int>(flags->integer()) : 0;
}

bool isArray(const Groups& groups)
{
    const auto rows = groups.findAny(71);
    return flagsOf(groups) > 1 || (rows && rows->integer() > 1);
}

bool fitsMarker(const EntityClass& row, const Groups& groups)
{
    return groups.hasSection(row.parts.back()->atom());
}

bool fitsFlags(const EntityClass& row, const Groups& groups)
{
    const int mask = maskOf(row.dxfName);
    return row.flags != kAnyFlags && (flagsOf(groups) & mask) == (row.flags & mask);
}

bool fitsArray(const EntityClass& row, const Groups&)
{
    return row.parts.data() == kMInsertBlockParts;
}

bool fitsReference(const EntityClass& row, const Groups&)
{
    return row.parts.data() == kBlockReferenceParts;
}

using Fits = bool (*)(const EntityClass&, const Groups&);

/// The rows of kClasses that have one name in files; they stand together.
using Rows = std::span<const EntityClass>;

Rows rowsOf(std::string_view dxfName)
{
    static const std::unordered_map<std::string_view, Rows> rowsByName = []
    {
        std::unordered_map<std::string_view, Rows> made;
        for (const EntityClass& row : kClasses)
        {
            Rows& rows = made.try_emplace(row.dxfName, &row, 0).first->second;
            rows = Rows(rows.data(), rows.size() + 1);
        }
        return made;
    }();
    const auto found = rowsByName.find(dxfName);
    return found == rowsByName.end() ? Rows() : found->second;
}

const DxfClass* findFitting(Rows rows, const Groups& groups, Fits fits)
{
    for (const EntityClass& row : rows)
    {
        if (fits(row, groups))
            return &dxfClasses()[static_cast<std::size_t>(&row - kClasses)];
    }
    return nullptr;
}

const EntityClass* rowOf(const DxfClass& dxfClass)
{
    const std::vector<DxfClass>& classes = dxfClasses();
    const bool ours = &dxfClass >= classes.data() && &dxfClass < classes.data() + classes.size();
    return ours ? &kClasses[&dxfClass - classes.data()] : nullptr;
}

void appendDefault(GroupsBuilder& groups, const DxfRow& row)
{
    const double z = row.code == 210 ? 1.0 : row.number;
    switch (row.kind)
    {
    case oddb::DxfKind::Text:
    case oddb::DxfKind::Name:
        groups.text(row.code, row.text);
        break;
    case oddb::DxfKind::Real:
    case oddb::DxfKind::Angle:
        groups.real(row.code, row.number);
        break;
    case oddb::DxfKind::Point2d:
        groups.point(row.code, row.number, row.number);
        break;
    case oddb::DxfKind::Point3d:
        groups.point(row.code, row.number, row.number, z);
        break;
    case oddb::DxfKind::Integer:
        groups.integer(row.code, static_cast<std::int64_t>(row.number));
        break;
    case oddb::DxfKind::Boolean:
        groups.boolean(row.code, row.number != 0.0);
        break;
    case oddb::DxfKind::Id:
        groups.id(row.code, nullptr);
        break;
    case oddb::DxfKind::Binary:
        break;
    }
}

void appendRequired(GroupsBuilder& groups, const EntityClass& entityClass, const DxfSubclass& part, int code)
{
    if (code == 70 && entityClass.flags != kAnyFlags && &part != &kArcDimension)
        groups.integer(code, entityClass.flags);
    else if (const DxfRow* row = part.row(code))
        appendDefault(groups, *row);
}

/// Walks over the list of required groups and the parts side by side.
Groups makeInitialGroups(const EntityClass& entityClass)
{
    GroupsBuilder groups;
    const char* at = entityClass.required;
    for (const DxfSubclass* part : entityClass.parts)
    {
        groups.atom(100, part->atom());
        while (*at && *at != '|')
        {
            int code = 0;
            for (; *at >= '0' && *at <= '9'; ++at)
                code = code * 10 + (*at - '0');
            appendRequired(groups, entityClass, *part, code);
            at += *at == ' ' ? 1 : 0;
        }
        at += *at == '|' ? 1 : 0;
    }
    return groups.finish();
}

} // namespace

void registerClasses()
{
    registerRuntimeClasses();
    rasterfiles::start();
    oddb::registerDxfClasses(dxfClasses());
    for (const DxfClass& known : dxfClasses())
        classesByRuntimeClass()[odrxGetClass(odUtf8ToString(known.className))] = &known;
}

void unregisterClasses()
{
    rasterfiles::end();
    classesByRuntimeClass().clear();
    unregisterRuntimeClasses();
}

const DxfClass* classFor(std::string_view dxfName, const Groups& groups)
{
    const Rows rows = rowsOf(dxfName);
    if (dxfName == "INSERT")
        return findFitting(rows, groups, isArray(groups) ? fitsArray : fitsReference);
    if (const DxfClass* found = findFitting(rows, groups, fitsMarker))
        return found;
    if (const DxfClass* found = findFitting(rows, groups, fitsFlags))
        return found;
    return oddb::findDxfClass(dxfName);
}

const DxfClass* classOf(const OdRxClass* runtimeClass)
{
    const auto& known = classesByRuntimeClass();
    for (; runtimeClass; runtimeClass = runtimeClass->myParent())
    {
        const auto found = known.find(runtimeClass);
        if (found != known.end())
            return found->second;
    }
    return nullptr;
}

Groups initialGroupsOf(const OdRxClass* runtimeClass)
{
    const DxfClass* known = classOf(runtimeClass);
    return known ? initialGroups(*known) : Groups();
}

Groups initialGroups(const DxfClass& dxfClass)
{
    const EntityClass* row = rowOf(dxfClass);
    return row ? makeInitialGroups(*row) : Groups();
}

namespace
{

const odlayers::Registration kLayer(odlayers::kEntities, &registerClasses, &unregisterClasses);

} // namespace

} // namespace entityclasses
