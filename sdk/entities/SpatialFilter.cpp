// Filters of block references. The groups of a spatial one, behind the marker of its base:
//
//   100 AcDbSpatialFilter
//   70 count  { 10 20 point } *     210 normal   11 origin of the outline's plane   71 clipping
//   72 in front  [40 distance]      73 behind  [41 distance]
//   40 * 12   from the coordinates that hold the reference to those of its block: rows of x, y, z, shift
//   40 * 12   from the coordinates that hold the reference to those of the outline
#include "DbSpatialFilter.h"

#include <array>

#include "DbBlockReference.h"
#include "DbDictionary.h"
#include "OdError.h"
#include "entities/Fields.h"
#include "entities/Ocs.h"

using namespace entityfields;
using entitytables::kFilter;
using entitytables::kSpatialFilter;

namespace
{

constexpr std::size_t kMatrixSize = 12;
using MatrixValues = std::array<double, kMatrixSize>;

struct Definition
{
    OdGePoint2dArray points;
    OdGeVector3d normal{0.0, 0.0, 1.0};
    OdGePoint3d origin;
    bool enabled = true;
    bool hasFront = false;
    bool hasBack = false;
    double front = OdDbSpatialFilter::kInfiniteClip;
    double back = OdDbSpatialFilter::kInfiniteClip;
    OdGeMatrix3d inverseBlock;
    OdGeMatrix3d toOutline;
};

MatrixValues valuesOf(const OdGeMatrix3d& matrix)
{
    MatrixValues values;
    auto value = values.begin();
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            *value++ = matrix[row][column];
    return values;
}

OdGeMatrix3d matrixOf(const double* values)
{
    OdGeMatrix3d matrix;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            matrix[row][column] = values[row * 4 + column];
    return matrix;
}

// ---- Reading -------------------------------------------------------------------------------------------------------

void takeGroup(Definition& definition, const oddb::GroupView& group)
{
    switch (group.code())
    {
    case 10:
        definition.points.append(OdGePoint2d(group.real(), 0.0));
        break;
    case 20:
        if (!definition.points.isEmpty())
            definition.points.last().y = group.real();
        break;
    case 71:
        definition.enabled = group.boolean();
        break;
    case 72:
        definition.hasFront = group.boolean();
        break;
    case 73:
        definition.hasBack = group.boolean();
        break;
    case 41:
        definition.back = group.real();
        break;
    default:
        break;
    }
}

/// The numbers of group 40: perhaps the front distance, then two matrices.
void takeNumbers(Definition& definition, const std::vector<double>& numbers)
{
    const std::size_t first = definition.hasFront ? 1 : 0;
    if (definition.hasFront && !numbers.empty())
        definition.front = numbers.front();
    if (numbers.size() >= first + 2 * kMatrixSize)
    {
        definition.inverseBlock = matrixOf(&numbers[first]);
        definition.toOutline = matrixOf(&numbers[first + kMatrixSize]);
    }
}

Definition definitionOf(const OdDbSpatialFilter& filter)
{
    const Reader fields = read<kSpatialFilter>(filter);
    Definition definition;
    definition.normal = fields.normal();
    definition.origin = fields.point(11);
    std::vector<double> numbers;
    bool inside = false;
    for (const oddb::GroupView& group : fields.groups())
    {
        if (group.beginsSection())
            inside = group.code() == 100 && group.atom() == fields.atom();
        else if (inside && group.code() == 40)
            numbers.push_back(group.real());
        else if (inside)
            takeGroup(definition, group);
    }
    takeNumbers(definition, numbers);
    return definition;
}

// ---- Writing -------------------------------------------------------------------------------------------------------

void appendMatrix(oddb::GroupsBuilder& groups, const OdGeMatrix3d& matrix)
{
    for (const double value : valuesOf(matrix))
        groups.real(40, value);
}

void putDefinition(OdDbSpatialFilter& filter, const Definition& definition)
{
    oddb::GroupsBuilder groups;
    groups.atom(100, atomOf<kFilter>()).atom(100, atomOf<kSpatialFilter>());
    groups.integer(70, static_cast<std::int64_t>(definition.points.size()));
    for (const OdGePoint2d& point : definition.points)
        groups.point(10, point.x, point.y);
    groups.point(210, definition.normal.x, definition.normal.y, definition.normal.z);
    groups.point(11, definition.origin.x, definition.origin.y, definition.origin.z);
    groups.integer(71, definition.enabled);
    groups.integer(72, definition.hasFront);
    if (definition.hasFront)
        groups.real(40, definition.front);
    groups.integer(73, definition.hasBack);
    if (definition.hasBack)
        groups.real(41, definition.back);
    appendMatrix(groups, definition.inverseBlock);
    appendMatrix(groups, definition.toOutline);
    oddb::ObjectCore::changeGroups(filter, groups.finish());
}

/// The map from the world to the plane of a normal at an elevation.
OdGeMatrix3d toPlane(const OdGeVector3d& normal, double elevation)
{
    const ocs::Frame frame = ocs::frameOf(normal);
    OdGeMatrix3d plane;
    plane.setCoordSystem(OdGePoint3d() + frame.z * elevation, frame.x, frame.y, frame.z);
    return plane.inverse();
}

} // namespace

void OdDbSpatialFilter::getDefinition(OdGePoint2dArray& points, OdGeVector3d& normal, double& elevation,
                                      double& frontClip, double& backClip, bool& enabled) const
{
    const Definition definition = definitionOf(*this);
    points = definition.points;
    normal = definition.normal;
    elevation = definition.origin.asVector().dotProduct(definition.normal);
    frontClip = definition.front;
    backClip = definition.back;
    enabled = definition.enabled;
}

void OdDbSpatialFilter::setDefinition(const OdGePoint2dArray& points, const OdGeVector3d& normal, double elevation,
                                      double frontClip, double backClip, bool enabled)
{
    if (points.size() < 2)
        throw OdError(eInvalidInput);
    Definition definition = definitionOf(*this);
    definition.points = points;
    definition.normal = requireDirection(normal);
    definition.origin = OdGePoint3d() + definition.normal * elevation;
    definition.enabled = enabled;
    definition.hasFront = frontClip < kInfiniteClip;
    definition.front = frontClip;
    definition.hasBack = backClip < kInfiniteClip;
    definition.back = backClip;
    definition.toOutline = toPlane(definition.normal, elevation);
    putDefinition(*this, definition);
}

OdGeMatrix3d OdDbSpatialFilter::getOriginalInverseBlockXform() const
{
    return definitionOf(*this).inverseBlock;
}

void OdDbSpatialFilter::setOriginalInverseBlockXform(const OdGeMatrix3d& xform)
{
    Definition definition = definitionOf(*this);
    definition.inverseBlock = xform;
    putDefinition(*this, definition);
}

// ---- Filters of references -----------------------------------------------------------------------------------------

namespace
{

constexpr OdChar kFilters[] = L"ACAD_FILTER";
constexpr OdChar kSpatial[] = L"SPATIAL";

OdDbDictionaryPtr filtersOf(const OdDbBlockReference& reference)
{
    const OdDbDictionaryPtr extension = OdDbDictionary::cast(reference.extensionDictionary().openObject());
    return extension.isNull() ? OdDbDictionaryPtr() : OdDbDictionary::cast(extension->getAt(kFilters, OdDb::kForRead));
}

OdDbDictionaryPtr makeFilters(OdDbBlockReference& reference)
{
    if (OdDbDictionaryPtr filters = filtersOf(reference); !filters.isNull())
        return filters;
    const OdDbDictionaryPtr extension = reference.createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
    return extension->setAt(kFilters, OdDbDictionary::createObject()).safeOpenObject();
}

/// The only kind there is.
void requireSpatial(const OdRxClass* filterClass)
{
    if (!filterClass || !OdDbSpatialFilter::desc()->isDerivedFrom(filterClass))
        throw OdError(eNotThatKindOfClass);
}

} // namespace

void OdDbIndexFilterManager::addFilter(OdDbBlockReference* reference, OdDbFilter* filter)
{
    if (!reference || !filter)
        throw OdError(eNullObjectPointer);
    requireSpatial(filter->isA());
    if (const OdDbSpatialFilterPtr spatial = OdDbSpatialFilter::cast(filter); !spatial.isNull())
        spatial->setOriginalInverseBlockXform(reference->blockTransform().inverse());
    const OdDbDictionaryPtr filters = makeFilters(*reference);
    filters->upgradeOpen();
    filters->setAt(kSpatial, filter);
    filters->downgradeOpen();
}

OdDbFilterPtr OdDbIndexFilterManager::getFilter(const OdDbBlockReference* reference, const OdRxClass* filterClass,
                                                OdDb::OpenMode openMode)
{
    if (!reference)
        throw OdError(eNullObjectPointer);
    requireSpatial(filterClass);
    const OdDbDictionaryPtr filters = filtersOf(*reference);
    return filters.isNull() ? OdDbFilterPtr() : OdDbFilter::cast(filters->getAt(kSpatial, openMode));
}

void OdDbIndexFilterManager::removeFilter(OdDbBlockReference* reference, const OdRxClass* filterClass)
{
    const OdDbFilterPtr filter = getFilter(reference, filterClass, OdDb::kForWrite);
    if (!filter.isNull())
        filter->erase(true);
}
