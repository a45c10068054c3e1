// Layers.
#include "DbLayerTableRecord.h"

#include "OdError.h"
#include "RecordFields.h"
#include "SymbolTableCore.h"

namespace
{

using oddb::ObjectCore;

constexpr int kFlagsCode = 70;
constexpr int kColorCode = 62; // negative for a layer that is off
constexpr int kTrueColorCode = 420;
constexpr int kColorNameCode = 430;
constexpr int kFrozen = 1;
constexpr int kLocked = 4;

const oddb::RecordFields kFields(oddb::recordtables::kLayer);

int storedColor(const OdDbObject& layer)
{
    return kFields.integer(layer, kColorCode);
}

void requireIndex(OdUInt16 index)
{
    if (index < 1 || index > 255)
        throw OdError(eInvalidInput);
}

} // namespace

OdDbLayerTableRecord::OdDbLayerTableRecord()
{
    ObjectCore::putGroups(*this, oddb::initialGroups(oddb::recordtables::kLayer, {2, 70, 62, 6, 370}));
}

// ---- State ---------------------------------------------------------------------------------------------------------

bool OdDbLayerTableRecord::isFrozen() const
{
    return kFields.flag(*this, kFlagsCode, kFrozen);
}

void OdDbLayerTableRecord::setIsFrozen(bool frozen)
{
    kFields.setFlag(*this, kFlagsCode, kFrozen, frozen);
}

bool OdDbLayerTableRecord::isOff() const
{
    return storedColor(*this) < 0;
}

void OdDbLayerTableRecord::setIsOff(bool off)
{
    const int index = std::abs(storedColor(*this));
    kFields.setInteger(*this, kColorCode, off ? -index : index);
}

bool OdDbLayerTableRecord::isLocked() const
{
    return kFields.flag(*this, kFlagsCode, kLocked);
}

void OdDbLayerTableRecord::setIsLocked(bool locked)
{
    kFields.setFlag(*this, kFlagsCode, kLocked, locked);
}

bool OdDbLayerTableRecord::isPlottable() const
{
    return kFields.integer(*this, 290) != 0;
}

void OdDbLayerTableRecord::setIsPlottable(bool plottable)
{
    oddb::GroupsBuilder group;
    kFields.setGroups(*this, 290, group.boolean(290, plottable));
}

// ---- Looks ---------------------------------------------------------------------------------------------------------

OdCmColor OdDbLayerTableRecord::color() const
{
    OdCmColor color;
    color.setColorIndex(colorIndex());
    if (!kFields.has(*this, kTrueColorCode))
        return color;
    const int rgb = kFields.integer(*this, kTrueColorCode);
    color.setRGB(static_cast<OdUInt8>(rgb >> 16), static_cast<OdUInt8>(rgb >> 8), static_cast<OdUInt8>(rgb));
    const OdString names = kFields.text(*this, kColorNameCode); // "book$colour"
    if (const int border = names.find(L'$'); border >= 0)
        color.setNames(names.mid(border + 1), names.left(border));
    return color;
}

void OdDbLayerTableRecord::setColor(const OdCmColor& color)
{
    if (!color.isByColor())
    {
        if (!color.isByACI())
            throw OdError(eInvalidInput);
        return setColorIndex(color.colorIndex());
    }
    const bool off = isOff();
    const int nearest = OdCmEntityColor::lookUpACI(color.red(), color.green(), color.blue());
    kFields.setInteger(*this, kColorCode, off ? -nearest : nearest);
    kFields.setInteger(*this, kTrueColorCode, color.red() << 16 | color.green() << 8 | color.blue());
    if (color.colorName().isEmpty())
        kFields.remove(*this, kColorNameCode);
    else
        kFields.setText(*this, kColorNameCode, color.bookName() + L"$" + color.colorName());
}

OdUInt16 OdDbLayerTableRecord::colorIndex() const
{
    return static_cast<OdUInt16>(std::abs(storedColor(*this)));
}

void OdDbLayerTableRecord::setColorIndex(OdUInt16 colorIndex)
{
    requireIndex(colorIndex);
    kFields.setInteger(*this, kColorCode, isOff() ? -colorIndex : colorIndex);
    kFields.remove(*this, kTrueColorCode);
    kFields.remove(*this, kColorNameCode);
}

OdDbObjectId OdDbLayerTableRecord::linetypeObjectId() const
{
    return kFields.stub(*this, 6);
}

void OdDbLayerTableRecord::setLinetypeObjectId(OdDbObjectId linetypeId)
{
    OdRxClass* cls = linetypeId.objectClass();
    if (!cls || cls->name() != oddb::symbolTableKind(oddb::SymbolTable::Linetype).recordClass)
        throw OdError(eInvalidInput);
    kFields.setName(*this, 6, linetypeId);
}

OdDb::LineWeight OdDbLayerTableRecord::lineWeight() const
{
    return static_cast<OdDb::LineWeight>(kFields.integer(*this, 370));
}

void OdDbLayerTableRecord::setLineWeight(OdDb::LineWeight lineWeight)
{
    kFields.setInteger(*this, 370, lineWeight);
}

OdCmTransparency OdDbLayerTableRecord::transparency() const
{
    OdCmTransparency transparency(static_cast<OdUInt8>(255));
    for (OdResBufPtr element = xData(L"AcCmTransparency"); !element.isNull(); element = element->next())
        if (element->restype() == 1071)
            transparency.serializeIn(static_cast<OdUInt32>(element->getInt32()));
    return transparency;
}

OdDbObjectId OdDbLayerTableRecord::plotStyleNameId() const
{
    return kFields.stub(*this, 390);
}

OdDbObjectId OdDbLayerTableRecord::materialId() const
{
    return kFields.stub(*this, 347);
}

OdString OdDbLayerTableRecord::description() const
{
    OdString found;
    for (OdResBufPtr element = xData(L"AcAecLayerStandard"); !element.isNull(); element = element->next())
        if (element->restype() == 1000)
            found = element->getString();
    return found;
}
