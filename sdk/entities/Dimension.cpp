// What all dimensions have in common.
#include "DbDimension.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"
#include "entities/Transform.h"

using namespace entityfields;
using entitytables::kDimension;

namespace
{

enum Flag
{
    kOwnBlock = 32,
    kUserText = 128
};

/// How far the block is moved from where its entities lie; files have it in one of two parts.
OdGeVector3d blockOffset(const OdDbDimension& dimension)
{
    const Reader fields = read<kDimension>(dimension);
    const Reader linear = read<entitytables::kAlignedDimension>(dimension);
    const OdGeVector3d offset = linear.has(12) ? linear.vector(12) : fields.vector(12);
    return ocs::frameOf(fields.normal()).toWorld(offset);
}

} // namespace

OdDbObjectId OdDbDimension::dimBlockId() const
{
    return read<kDimension>(*this).stub(2);
}

void OdDbDimension::setDimBlockId(OdDbObjectId blockId, bool singleReferenced)
{
    requireRecord(blockId, oddb::SymbolTable::Block);
    setName(*this, kDimension, 2, blockId);
    setFlag(*this, kDimension, 70, kOwnBlock, singleReferenced);
}

bool OdDbDimension::isSingleDimBlockReference() const
{
    return read<kDimension>(*this).flag(70, kOwnBlock);
}

OdGePoint3d OdDbDimension::textPosition() const
{
    const Reader fields = read<kDimension>(*this);
    return ocs::frameOf(fields.normal()).toWorld(fields.point(11));
}

void OdDbDimension::setTextPosition(const OdGePoint3d& position)
{
    setPoint(*this, kDimension, 11, ocs::frameOf(normal()).fromWorld(position));
    setFlag(*this, kDimension, 70, kUserText, true);
}

bool OdDbDimension::isUsingDefaultTextPosition() const
{
    return !read<kDimension>(*this).flag(70, kUserText);
}

OdString OdDbDimension::dimensionText() const
{
    return read<kDimension>(*this).text(1);
}

void OdDbDimension::setDimensionText(const OdString& text)
{
    setText(*this, kDimension, 1, text);
}

double OdDbDimension::textRotation() const
{
    return read<kDimension>(*this).angle(53);
}

void OdDbDimension::setTextRotation(double rotation)
{
    setAngle(*this, kDimension, 53, rotation);
}

double OdDbDimension::measurement() const
{
    return read<kDimension>(*this).real(42);
}

double OdDbDimension::elevation() const
{
    const Reader fields = read<kDimension>(*this);
    return ocs::frameOf(fields.normal()).fromWorld(fields.point(10)).z;
}

double OdDbDimension::horizontalRotation() const
{
    return read<kDimension>(*this).angle(51);
}

OdDbObjectId OdDbDimension::dimensionStyle() const
{
    return read<kDimension>(*this).stub(3);
}

void OdDbDimension::setDimensionStyle(OdDbObjectId styleId)
{
    requireRecord(styleId, oddb::SymbolTable::DimStyle);
    setName(*this, kDimension, 3, styleId);
}

bool OdDbDimension::isPlanar() const
{
    return true;
}

OdUInt32 OdDbDimension::subSetAttributes(OdGiDrawableTraits* traits) const
{
    return OdDbEntity::subSetAttributes(traits) | kDrawableIsCompoundObject;
}

bool OdDbDimension::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    worldDraw->geometry().pushModelTransform(OdGeMatrix3d::translation(blockOffset(*this)));
    drawing::drawBlock(*worldDraw, dimBlockId());
    worldDraw->geometry().popModelTransform();
    return true;
}

OdResult OdDbDimension::subTransformBy(const OdGeMatrix3d& xform)
{
    if (!transform::isTranslation(xform))
        return eNotImplementedYet;
    // The offset of the block is one of the places that are listed to move; where it is not written it is zero.
    const bool written = groupsOf(*this).findAny(12).has_value();
    if (const OdResult result = transform::transformGroups(*this, xform); result != eOk)
        return result;
    if (!written)
        setVector(*this, kDimension, 12, ocs::frameOf(normal()).fromWorld(xform.translation()));
    return eOk;
}
