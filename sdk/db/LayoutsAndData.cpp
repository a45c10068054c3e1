// Data of applications, plot settings and layouts.
#include "DatabaseImpl.h"
#include "DbDictionary.h"
#include "DbLayout.h"
#include "DbXrecord.h"
#include "OdError.h"
#include "RecordFields.h"
#include "ResBufGroups.h"

using oddb::GroupsBuilder;
using oddb::ObjectCore;

// ---- Data of applications ------------------------------------------------------------------------------------------

namespace
{

constexpr int kXrecordMergeCode = 280;

// The values stand behind the marker and the merge style, and may look like them.
bool isHead(const oddb::GroupView& group, int place)
{
    return place == 0 ? group.beginsSection() : place == 1 && group.code() == kXrecordMergeCode;
}

} // namespace

OdDbXrecord::OdDbXrecord()
{
    ObjectCore::putGroups(*this, oddb::initialGroups(oddb::recordtables::kXrecord, {kXrecordMergeCode}));
}

OdResBufPtr OdDbXrecord::rbChain() const
{
    GroupsBuilder values;
    int place = 0;
    for (const oddb::GroupView& group : oddb::readableGroups(*this))
        if (!isHead(group, place++))
            values.append(group);
    return oddb::toChain(values.build());
}

OdResult OdDbXrecord::setFromRbChain(const OdResBuf* chain)
{
    assertWriteEnabled(false, false);
    GroupsBuilder groups;
    int place = 0;
    for (const oddb::GroupView& group : oddb::readableGroups(*this))
        if (isHead(group, place++))
            groups.append(group);
    for (OdResBufPtr element(chain); !element.isNull(); element = element->next())
        oddb::appendElement(groups, *element, database());
    ObjectCore::changeGroups(*this, groups.build());
    return eOk;
}

// ---- Plot settings -------------------------------------------------------------------------------------------------

namespace
{

constexpr int kModelFlag = 1024;

const oddb::RecordFields kPlot(oddb::recordtables::kLayout, 0);
const oddb::RecordFields kLayout(oddb::recordtables::kLayout);

} // namespace

OdDbPlotSettings::OdDbPlotSettings()
{
    ObjectCore::putGroups(*this,
                          oddb::initialGroups(oddb::recordtables::kPlotSettings,
                                              {1,   2,   4,   6,  40, 41, 42, 43, 44, 45, 46, 47, 48,  49,  140,
                                               141, 142, 143, 70, 72, 73, 74, 7,  75, 76, 77, 78, 147, 148, 149}));
}

OdString OdDbPlotSettings::getPlotSettingsName() const
{
    return kPlot.text(*this, 1);
}

OdString OdDbPlotSettings::getPlotCfgName() const
{
    return kPlot.text(*this, 2);
}

OdString OdDbPlotSettings::getCanonicalMediaName() const
{
    return kPlot.text(*this, 4);
}

void OdDbPlotSettings::getPlotPaperSize(double& width, double& height) const
{
    width = kPlot.real(*this, 44);
    height = kPlot.real(*this, 45);
}

void OdDbPlotSettings::getPlotPaperMargins(double& left, double& bottom, double& right, double& top) const
{
    left = kPlot.real(*this, 40);
    bottom = kPlot.real(*this, 41);
    right = kPlot.real(*this, 42);
    top = kPlot.real(*this, 43);
}

void OdDbPlotSettings::getPlotOrigin(double& x, double& y) const
{
    x = kPlot.real(*this, 46);
    y = kPlot.real(*this, 47);
}

void OdDbPlotSettings::getCustomPrintScale(double& numerator, double& denominator) const
{
    numerator = kPlot.real(*this, 142);
    denominator = kPlot.real(*this, 143);
}

OdDbPlotSettings::PlotPaperUnits OdDbPlotSettings::plotPaperUnits() const
{
    return static_cast<PlotPaperUnits>(kPlot.integer(*this, 72));
}

OdDbPlotSettings::PlotRotation OdDbPlotSettings::plotRotation() const
{
    return static_cast<PlotRotation>(kPlot.integer(*this, 73) & 3);
}

bool OdDbPlotSettings::modelType() const
{
    return kPlot.flag(*this, 70, kModelFlag);
}

// ---- Layouts -------------------------------------------------------------------------------------------------------

OdDbLayout::OdDbLayout()
{
    GroupsBuilder groups;
    groups.append(ObjectCore::groups(*this));
    const oddb::Groups own =
        oddb::initialGroups(oddb::recordtables::kLayout, {1, 70, 71, 10, 11, 12, 14, 15, 146, 13, 16, 17, 76, 330});
    bool isOwn = false;
    for (const oddb::GroupView& group : own)
    {
        isOwn = isOwn || group.is(oddb::recordtables::kLayout.subclasses.back()->marker);
        if (isOwn)
            groups.append(group);
    }
    ObjectCore::putGroups(*this, groups.build());
    kLayout.setPoint(*this, 16, {1.0, 0.0, 0.0});
    kLayout.setPoint(*this, 17, {0.0, 1.0, 0.0});
}

OdString OdDbLayout::getLayoutName() const
{
    return kLayout.text(*this, 1);
}

// Whoever names a layout may have the dictionary open for write already.
static OdDbDictionaryPtr openForWrite(const OdDbObjectId& dictionaryId)
{
    OdDbDictionaryPtr dictionary = OdDbDictionary::cast(dictionaryId.openObject(OdDb::kForRead));
    if (!dictionary.isNull() && !dictionary->isWriteEnabled())
        dictionary = OdDbDictionary::cast(dictionaryId.safeOpenObject(OdDb::kForWrite));
    return dictionary;
}

void OdDbLayout::setLayoutName(const OdString& name)
{
    assertWriteEnabled(false, false);
    if (name.isEmpty())
        throw OdError(eInvalidKey);
    const OdDbDictionaryPtr layouts = isDBRO() ? openForWrite(ownerId()) : OdDbDictionaryPtr();
    const OdString present = layouts.isNull() ? OdString() : layouts->nameAt(objectId());
    if (!present.isEmpty() && present != name && !layouts->setName(present, name))
        throw OdError(eDuplicateKey);
    kLayout.setText(*this, 1, name);
}

OdDbObjectId OdDbLayout::getBlockTableRecordId() const
{
    return kLayout.stub(*this, 330);
}

void OdDbLayout::setBlockTableRecordId(OdDbObjectId blockId)
{
    kLayout.setId(*this, 330, blockId);
}

int OdDbLayout::getTabOrder() const
{
    return kLayout.integer(*this, 71);
}

void OdDbLayout::setTabOrder(int order)
{
    kLayout.setInteger(*this, 71, order);
}

void OdDbLayout::getLimits(OdGePoint2d& minimum, OdGePoint2d& maximum) const
{
    minimum = kLayout.point2d(*this, 10);
    maximum = kLayout.point2d(*this, 11);
}

void OdDbLayout::getExtents(OdGePoint3d& minimum, OdGePoint3d& maximum) const
{
    minimum = kLayout.point(*this, 14);
    maximum = kLayout.point(*this, 15);
}
