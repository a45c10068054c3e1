// Block references, single and in rows and columns, and tables, which are drawn the same way.
#include <cmath>

#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "Gi/GiWorldDraw.h"
#include "OdError.h"
#include "db/BlockReferences.h"
#include "entities/BlockClip.h"
#include "entities/BlockContents.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"
#include "entities/Subentities.h"
#include "entities/Transform.h"
#include "gi/ExtentsCollector.h"

using namespace entityfields;
using entitytables::kBlockReference;
using entitytables::kMInsertBlock;
using entitytables::kTable;

namespace
{

/// References in rows and columns may stand behind a marker of their own.
const oddb::DxfSubclass& tableOf(const OdDbBlockReference& reference)
{
    const bool array = oddb::ObjectCore::groups(reference).hasSection(atomOf<kMInsertBlock>());
    return array ? kMInsertBlock : kBlockReference;
}

Reader fieldsOf(const OdDbBlockReference& reference)
{
    const oddb::DxfSubclass& table = tableOf(reference);
    const bool array = &table == &kMInsertBlock;
    return Reader(reference, table, array ? atomOf<kMInsertBlock>() : atomOf<kBlockReference>());
}

/// The axes of the block's coordinates, turned but not scaled.
ocs::Frame turnedFrame(const Reader& fields, double rotation)
{
    ocs::Frame frame = ocs::frameOf(fields.normal());
    const OdGeVector3d x = frame.direction(rotation);
    frame.y = frame.direction(rotation + OdaPI2);
    frame.x = x;
    return frame;
}

/// Rows and columns shift the block along the turned axes, whatever its scale.
OdGeVector3d cellOffset(const ocs::Frame& turned, double x, double y)
{
    return turned.x * x + turned.y * y;
}

OdGeMatrix3d matrixOf(const OdGePoint3d& position, const ocs::Frame& turned, const OdGeScale3d& scale,
                      const OdGePoint3d& base)
{
    const OdGeVector3d x = turned.x * scale.sx;
    const OdGeVector3d y = turned.y * scale.sy;
    const OdGeVector3d z = turned.z * scale.sz;
    OdGeMatrix3d matrix;
    matrix.setCoordSystem(position - x * base.x - y * base.y - z * base.z, x, y, z);
    return matrix;
}

OdGePoint3d positionOf(const Reader& fields)
{
    return ocs::frameOf(fields.normal()).toWorld(fields.point(10));
}

OdGeScale3d scaleOf(const Reader& fields)
{
    return OdGeScale3d(fields.real(41), fields.real(42), fields.real(43));
}

bool isUsableFactor(double factor)
{
    return std::isfinite(factor) && factor != 0.0;
}

} // namespace

OdDbBlockReference::OdDbBlockReference() = default;

OdDbBlockReference::~OdDbBlockReference() = default;

oddb::SubentityList* OdDbBlockReference::subentities() const
{
    return m_attributes.get();
}

oddb::SubentityList& OdDbBlockReference::makeSubentities()
{
    if (!m_attributes)
        m_attributes = std::make_unique<oddb::SubentityList>();
    return *m_attributes;
}

OdDbObjectId OdDbBlockReference::blockTableRecord() const
{
    return fieldsOf(*this).stub(2);
}

void OdDbBlockReference::setBlockTableRecord(OdDbObjectId blockId)
{
    requireRecord(blockId, oddb::SymbolTable::Block);
    assertWriteEnabled(false, false);
    if (blockTableRecord() == blockId)
        return;
    oddb::recordBlockChange(*this);
    setName(*this, tableOf(*this), 2, blockId);
}

OdGePoint3d OdDbBlockReference::position() const
{
    return positionOf(fieldsOf(*this));
}

void OdDbBlockReference::setPosition(const OdGePoint3d& position)
{
    setPoint(*this, tableOf(*this), 10, ocs::frameOf(normal()).fromWorld(position));
}

OdGeScale3d OdDbBlockReference::scaleFactors() const
{
    return scaleOf(fieldsOf(*this));
}

void OdDbBlockReference::setScaleFactors(const OdGeScale3d& scale)
{
    if (!isUsableFactor(scale.sx) || !isUsableFactor(scale.sy) || !isUsableFactor(scale.sz))
        throw OdError(eInvalidInput);
    const oddb::DxfSubclass& table = tableOf(*this);
    setReal(*this, table, 41, scale.sx);
    setReal(*this, table, 42, scale.sy);
    setReal(*this, table, 43, scale.sz);
}

double OdDbBlockReference::rotation() const
{
    return fieldsOf(*this).angle(50);
}

void OdDbBlockReference::setRotation(double rotation)
{
    setAngle(*this, tableOf(*this), 50, rotation);
}

void OdDbBlockReference::setNormal(const OdGeVector3d& normal)
{
    const OdGePoint3d place = position();
    setVector(*this, tableOf(*this), 210, requireDirection(normal));
    setPosition(place);
}

OdGeMatrix3d OdDbBlockReference::blockTransform() const
{
    const Reader fields = fieldsOf(*this);
    return matrixOf(positionOf(fields), turnedFrame(fields, fields.angle(50)), scaleOf(fields),
                    drawing::basePointOf(fields.stub(2)));
}

OdDbObjectId OdDbBlockReference::appendAttribute(OdDbAttribute* attribute)
{
    const OdDbObjectId id = oddb::appendSubentity(*this, makeSubentities(), attribute);
    setInteger(*this, tableOf(*this), 66, 1);
    return id;
}

OdDbObjectIteratorPtr OdDbBlockReference::attributeIterator() const
{
    static const oddb::SubentityList none;
    assertReadEnabled();
    return oddb::newIterator(m_attributes ? *m_attributes : none);
}

OdResult OdDbBlockReference::geomExtentsBestFit(OdGeExtents3d& extents, const OdGeMatrix3d& parentXform) const
{
    assertReadEnabled();
    OdStaticRxObject<gi::ExtentsCollector> collector;
    collector.geometry().pushModelTransform(parentXform);
    worldDraw(&collector);
    if (!collector.extents().isValidExtents())
        return eInvalidExtents;
    extents = collector.extents();
    return eOk;
}

bool OdDbBlockReference::isPlanar() const
{
    return true;
}

OdUInt32 OdDbBlockReference::subSetAttributes(OdGiDrawableTraits* traits) const
{
    return OdDbEntity::subSetAttributes(traits) | kDrawableIsCompoundObject;
}

bool OdDbBlockReference::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    drawDefinition(worldDraw);
    if (!m_attributes)
        return true;
    oddb::visitSubentities(*m_attributes,
                           [worldDraw](const OdDbEntity& attribute)
                           {
                               if (attribute.visibility() == OdDb::kVisible)
                                   worldDraw->geometry().draw(&attribute);
                           });
    return true;
}

void OdDbBlockReference::drawDefinition(OdGiWorldDraw* worldDraw) const
{
    const std::optional<OdGiClipBoundary> clip = drawing::clipOf(*this);
    worldDraw->geometry().pushModelTransform(blockTransform());
    if (clip)
        worldDraw->geometry().pushClipBoundary(*clip);
    drawing::drawBlock(*worldDraw, blockTableRecord());
    if (clip)
        worldDraw->geometry().popClipBoundary();
    worldDraw->geometry().popModelTransform();
}

OdResult OdDbBlockReference::subTransformBy(const OdGeMatrix3d& xform)
{
    const Reader fields = fieldsOf(*this);
    const ocs::Frame turned = turnedFrame(fields, rotation());
    const OdGeVector3d x = xform * turned.x;
    const OdGeVector3d y = xform * turned.y;
    const OdGeVector3d z = xform * turned.z;
    if (!transform::areOrthogonal(x, y, z))
        return eCannotScaleNonUniformly;
    const OdGePoint3d place = xform * position();
    const OdGeScale3d scale = scaleFactors();
    const OdGeVector3d newNormal = x.crossProduct(y).normal();
    const oddb::DxfSubclass& table = tableOf(*this);
    setVector(*this, table, 210, newNormal);
    setPosition(place);
    setRotation(ocs::frameOf(newNormal).angleOf(x));
    setScaleFactors(OdGeScale3d(scale.sx * x.length(), scale.sy * y.length(), scale.sz * z.dotProduct(newNormal)));
    return eOk;
}

OdUInt16 OdDbMInsertBlock::columns() const
{
    return static_cast<OdUInt16>(std::max(fieldsOf(*this).integer(70), 1));
}

void OdDbMInsertBlock::setColumns(OdUInt16 columns)
{
    requirePositive(columns);
    setInteger(*this, tableOf(*this), 70, columns);
}

OdUInt16 OdDbMInsertBlock::rows() const
{
    return static_cast<OdUInt16>(std::max(fieldsOf(*this).integer(71), 1));
}

void OdDbMInsertBlock::setRows(OdUInt16 rows)
{
    requirePositive(rows);
    setInteger(*this, tableOf(*this), 71, rows);
}

double OdDbMInsertBlock::columnSpacing() const
{
    return fieldsOf(*this).real(44);
}

void OdDbMInsertBlock::setColumnSpacing(double spacing)
{
    setReal(*this, tableOf(*this), 44, spacing);
}

double OdDbMInsertBlock::rowSpacing() const
{
    return fieldsOf(*this).real(45);
}

void OdDbMInsertBlock::setRowSpacing(double spacing)
{
    setReal(*this, tableOf(*this), 45, spacing);
}

void OdDbMInsertBlock::drawDefinition(OdGiWorldDraw* worldDraw) const
{
    const ocs::Frame turned = turnedFrame(fieldsOf(*this), rotation());
    const OdGeMatrix3d first = blockTransform();
    const OdDbObjectId block = blockTableRecord();
    const int lastColumn = columns() - 1;
    const int lastRow = rows() - 1;
    // The cells are all alike, so those at the corners reach as far as all of them.
    const bool cornersOnly = worldDraw->regenType() == kOdGiForExtents;
    const int columnStep = cornersOnly ? std::max(lastColumn, 1) : 1;
    const int rowStep = cornersOnly ? std::max(lastRow, 1) : 1;
    for (int row = 0; row <= lastRow && !worldDraw->regenAbort(); row += rowStep)
    {
        for (int column = 0; column <= lastColumn; column += columnStep)
        {
            const OdGeVector3d offset = cellOffset(turned, column * columnSpacing(), row * rowSpacing());
            worldDraw->geometry().pushModelTransform(OdGeMatrix3d::translation(offset) * first);
            drawing::drawBlock(*worldDraw, block);
            worldDraw->geometry().popModelTransform();
        }
    }
}

void OdDbTable::drawDefinition(OdGiWorldDraw* worldDraw) const
{
    const Reader fields = fieldsOf(*this);
    const ocs::Frame frame = ocs::frameOf(fields.normal());
    const Reader table = read<kTable>(*this);
    const double rotation = table.has(11) ? frame.angleOf(table.vector(11)) : fields.angle(50);
    worldDraw->geometry().pushModelTransform(
        matrixOf(position(), turnedFrame(fields, rotation), scaleFactors(), drawing::basePointOf(fields.stub(2))));
    drawing::drawBlock(*worldDraw, blockTableRecord());
    worldDraw->geometry().popModelTransform();
}
