// What all entities have in common: layer and looks, extents, moving, erasing with all that they own.
#include "DbEntity.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "CmColor.h"
#include "DbDatabase.h"
#include "DbFiler.h"
#include "Gi/GiWorldDraw.h"
#include "OdError.h"
#include "db/Stub.h"
#include "entities/Fields.h"
#include "entities/Ocs.h"
#include "entities/Subentities.h"
#include "entities/Transform.h"
#include "gi/ExtentsCollector.h"

using namespace entityfields;
using entitytables::kEntity;
using oddb::SymbolTable;

namespace
{

constexpr int kLayer = 8;
constexpr int kLinetype = 6;
constexpr int kColorIndex = 62;
constexpr int kTrueColor = 420;
constexpr int kColorName = 430;
constexpr int kTransparency = 440;
constexpr int kLinetypeScale = 48;
constexpr int kInvisible = 60;
constexpr int kLineWeight = 370;
constexpr int kPlotStyle = 390;
constexpr int kPaperSpace = 67;
constexpr OdUInt16 kByLayerIndex = 256;

/// Opens every vertex or attribute for write and hands it on.
template<class Change>
void changeSubentities(const OdDbEntity& entity, Change change)
{
    if (const oddb::SubentityList* list = entity.subentities())
        oddb::visitSubentities(*list, change, OdDb::kForWrite);
}

/// The part of a name in a colour book in front of and behind the divider.
void splitColorName(const OdString& stored, OdString& book, OdString& name)
{
    const int divider = stored.find(L'$');
    book = divider < 0 ? OdString() : stored.left(divider);
    name = divider < 0 ? stored : stored.mid(divider + 1);
}

OdResult setRecord(OdDbEntity& entity, int code, SymbolTable table, const OdString& name)
{
    if (!entity.database())
        return eNoDatabase;
    OdDbStub* record = oddb::findSymbol(*entity.database(), table, odStringToUtf8(name));
    if (!record)
        return eKeyNotFound;
    setName(entity, kEntity, code, record);
    return eOk;
}

OdResult setRecord(OdDbEntity& entity, int code, SymbolTable table, OdDbObjectId id)
{
    OdDbStub* record = id;
    if (!record || !record->database)
        return eInvalidInput;
    if (oddb::findSymbol(*record->database, table, oddb::symbolName(record)) != record)
        return eInvalidInput;
    setName(entity, kEntity, code, record);
    return eOk;
}

/// Calls visit(group) for what all entities have in common, which comes before all that only some have.
template<class Visit>
void visitCommonGroups(const OdDbEntity& entity, Visit visit)
{
    entity.assertReadEnabled();
    const Groups groups = groupsOf(entity);
    const oddb::Atom marker = atomOf<kEntity>();
    bool isInside = false;
    bool isApplicationData = false;
    for (const oddb::GroupView& group : groups)
    {
        if (group.beginsSection())
        {
            if (isInside)
                break;
            isInside = group.code() == 100 && group.atom() == marker;
        }
        else if (group.code() == 102)
            isApplicationData = !isApplicationData;
        else if (isInside && !isApplicationData)
            visit(group);
    }
}

bool isOneOf(const OdString& name, std::initializer_list<const OdChar*> names)
{
    return std::any_of(names.begin(), names.end(), [&name](const OdChar* other) { return name.iCompare(other) == 0; });
}

} // namespace

OdDbObjectId OdDbEntity::blockId() const
{
    return ownerId();
}

OdString OdDbEntity::layer() const
{
    return read<kEntity>(*this).text(kLayer);
}

OdDbObjectId OdDbEntity::layerId() const
{
    return read<kEntity>(*this).stub(kLayer);
}

OdResult OdDbEntity::setLayer(const OdString& layerName, bool doSubents)
{
    const OdResult result = setRecord(*this, kLayer, SymbolTable::Layer, layerName);
    if (result == eOk && doSubents)
        changeSubentities(*this, [&](OdDbEntity& element) { element.setLayer(layerName); });
    return result;
}

OdResult OdDbEntity::setLayer(OdDbObjectId layerId, bool doSubents)
{
    const OdResult result = setRecord(*this, kLayer, SymbolTable::Layer, layerId);
    if (result == eOk && doSubents)
        changeSubentities(*this, [&](OdDbEntity& element) { element.setLayer(layerId); });
    return result;
}

OdCmEntityColor OdDbEntity::entityColor() const
{
    const Reader fields = read<kEntity>(*this);
    OdCmEntityColor color;
    if (fields.has(kTrueColor))
    {
        const auto rgb = static_cast<OdUInt32>(fields.integer(kTrueColor));
        color.setRGB(static_cast<OdUInt8>(rgb >> 16), static_cast<OdUInt8>(rgb >> 8), static_cast<OdUInt8>(rgb));
        return color;
    }
    const int index = std::abs(fields.integer(kColorIndex));
    color.setColorIndex(static_cast<OdUInt16>(index <= kByLayerIndex ? index : kByLayerIndex));
    return color;
}

OdCmColor OdDbEntity::color() const
{
    OdCmColor color(entityColor());
    const OdString stored = read<kEntity>(*this).text(kColorName);
    if (!stored.isEmpty())
    {
        OdString book;
        OdString name;
        splitColorName(stored, book, name);
        color.setNames(name, book);
    }
    return color;
}

OdUInt16 OdDbEntity::colorIndex() const
{
    const int index = std::abs(read<kEntity>(*this).integer(kColorIndex));
    return static_cast<OdUInt16>(index <= kByLayerIndex ? index : kByLayerIndex);
}

OdResult OdDbEntity::setColor(const OdCmColor& color, bool doSubents)
{
    assertWriteEnabled();
    if (color.isByColor())
        setInteger(*this, kEntity, kTrueColor, color.entityColor().rgb());
    else
        remove(*this, kEntity, kTrueColor);
    if (!color.colorName().isEmpty())
        setText(*this, kEntity, kColorName, color.bookName() + L"$" + color.colorName());
    else if (read<kEntity>(*this).has(kColorName))
        remove(*this, kEntity, kColorName);
    setInteger(*this, kEntity, kColorIndex, color.colorIndex());
    if (doSubents)
        changeSubentities(*this, [&](OdDbEntity& element) { element.setColor(color); });
    return eOk;
}

OdResult OdDbEntity::setColorIndex(OdUInt16 colorIndex, bool doSubents)
{
    if (colorIndex > kByLayerIndex)
        return eInvalidInput;
    OdCmColor color;
    color.setColorIndex(colorIndex);
    return setColor(color, doSubents);
}

OdCmTransparency OdDbEntity::transparency() const
{
    OdCmTransparency transparency;
    transparency.serializeIn(static_cast<OdUInt32>(read<kEntity>(*this).integer(kTransparency)));
    return transparency;
}

OdResult OdDbEntity::setTransparency(const OdCmTransparency& transparency, bool doSubents)
{
    if (transparency.isByLayer())
        remove(*this, kEntity, kTransparency);
    else
        setInteger(*this, kEntity, kTransparency, transparency.serializeOut());
    if (doSubents)
        changeSubentities(*this, [&](OdDbEntity& element) { element.setTransparency(transparency); });
    return eOk;
}

OdString OdDbEntity::linetype() const
{
    return read<kEntity>(*this).text(kLinetype);
}

OdDbObjectId OdDbEntity::linetypeId() const
{
    return read<kEntity>(*this).stub(kLinetype);
}

OdResult OdDbEntity::setLinetype(const OdString& linetypeName, bool doSubents)
{
    OdResult result = setRecord(*this, kLinetype, SymbolTable::Linetype, linetypeName);
    if (result != eOk && isOneOf(linetypeName, {L"ByLayer", L"ByBlock"}))
    {
        setText(*this, kEntity, kLinetype, linetypeName);
        result = eOk;
    }
    if (result == eOk && doSubents)
        changeSubentities(*this, [&](OdDbEntity& element) { element.setLinetype(linetypeName); });
    return result;
}

OdResult OdDbEntity::setLinetype(OdDbObjectId linetypeId, bool doSubents)
{
    const OdResult result = setRecord(*this, kLinetype, SymbolTable::Linetype, linetypeId);
    if (result == eOk && doSubents)
        changeSubentities(*this, [&](OdDbEntity& element) { element.setLinetype(linetypeId); });
    return result;
}

double OdDbEntity::linetypeScale() const
{
    return read<kEntity>(*this).real(kLinetypeScale);
}

OdResult OdDbEntity::setLinetypeScale(double linetypeScale, bool doSubents)
{
    if (!(linetypeScale > 0.0) || !std::isfinite(linetypeScale))
        return eInvalidInput;
    setReal(*this, kEntity, kLinetypeScale, linetypeScale);
    if (doSubents)
        changeSubentities(*this, [&](OdDbEntity& element) { element.setLinetypeScale(linetypeScale); });
    return eOk;
}

OdDb::LineWeight OdDbEntity::lineWeight() const
{
    return static_cast<OdDb::LineWeight>(read<kEntity>(*this).integer(kLineWeight));
}

OdResult OdDbEntity::setLineWeight(OdDb::LineWeight lineWeight, bool doSubents)
{
    setInteger(*this, kEntity, kLineWeight, lineWeight);
    if (doSubents)
        changeSubentities(*this, [&](OdDbEntity& element) { element.setLineWeight(lineWeight); });
    return eOk;
}

OdDb::Visibility OdDbEntity::visibility() const
{
    bool isVisible = true; // as it is for nearly all, so that it pays to look no farther than need be
    visitCommonGroups(*this,
                      [&isVisible](const oddb::GroupView& group)
                      {
                          if (group.code() == kInvisible)
                              isVisible = group.integer() == 0;
                      });
    return isVisible ? OdDb::kVisible : OdDb::kInvisible;
}

OdResult OdDbEntity::setVisibility(OdDb::Visibility visibility, bool doSubents)
{
    if (visibility == OdDb::kVisible)
        remove(*this, kEntity, kInvisible);
    else
        setInteger(*this, kEntity, kInvisible, visibility);
    if (doSubents)
        changeSubentities(*this, [&](OdDbEntity& element) { element.setVisibility(visibility); });
    return eOk;
}

OdDbObjectId OdDbEntity::plotStyleNameId() const
{
    return read<kEntity>(*this).stub(kPlotStyle);
}

bool OdDbEntity::isInPaperSpace() const
{
    return read<kEntity>(*this).integer(kPaperSpace) != 0;
}

void OdDbEntity::setDatabaseDefaults(OdDbDatabase* database, bool doSubents)
{
    if (!database)
        database = this->database();
    remove(*this, kEntity, kTrueColor);
    remove(*this, kEntity, kColorName);
    remove(*this, kEntity, kColorIndex);
    remove(*this, kEntity, kLinetype);
    remove(*this, kEntity, kLineWeight);
    remove(*this, kEntity, kTransparency);
    OdDbStub* layerZero = database ? oddb::findSymbol(*database, SymbolTable::Layer, "0") : nullptr;
    if (layerZero)
        setName(*this, kEntity, kLayer, layerZero);
    if (doSubents)
        changeSubentities(*this, [database](OdDbEntity& element) { element.setDatabaseDefaults(database); });
}

void OdDbEntity::setPropertiesFrom(const OdDbEntity* source, bool doSubents)
{
    if (!source)
        throw OdError(eNullObjectPointer);
    if (const OdDbObjectId layer = source->layerId(); !layer.isNull())
        setLayer(layer, doSubents);
    if (const OdDbObjectId linetype = source->linetypeId(); !linetype.isNull())
        setLinetype(linetype, doSubents);
    setColor(source->color(), doSubents);
    setTransparency(source->transparency(), doSubents);
    setLinetypeScale(source->linetypeScale(), doSubents);
    setLineWeight(source->lineWeight(), doSubents);
    setVisibility(source->visibility(), doSubents);
}

OdResult OdDbEntity::getGeomExtents(OdGeExtents3d& extents) const
{
    assertReadEnabled();
    return subGetGeomExtents(extents);
}

OdResult OdDbEntity::subGetGeomExtents(OdGeExtents3d& extents) const
{
    OdStaticRxObject<gi::ExtentsCollector> collector;
    worldDraw(&collector);
    if (!collector.extents().isValidExtents())
        return eInvalidExtents;
    extents = collector.extents();
    return eOk;
}

/// What keeps the vertices or attributes from being mapped with their owner, eOk when nothing does.
static OdResult checkSubentities(const OdDbEntity& entity, const OdGeVector3d& normal, const OdGeMatrix3d& xform)
{
    const oddb::SubentityList* list = entity.subentities();
    if (!list)
        return eOk;
    OdResult result = list->isBusy() ? eWasOpenForWrite : eOk;
    if (!transform::isSimilarity(xform))
        oddb::visitSubentities(*list,
                               [&](const OdDbEntity& element)
                               {
                                   if (result == eOk)
                                       result = transform::checkGroupsInPlane(element, normal, xform);
                               });
    return result;
}

OdResult OdDbEntity::transformBy(const OdGeMatrix3d& xform)
{
    assertWriteEnabled();
    if (!xform.isFinite() || xform.isSingular() || xform.isPerspective())
        return eInvalidInput;
    const OdGeVector3d before = normal();
    if (const OdResult result = checkSubentities(*this, before, xform); result != eOk)
        return result;
    if (const OdResult result = subTransformBy(xform); result != eOk)
        return result;
    transform::transformXData(*this, xform);
    changeSubentities(*this, [&](OdDbEntity& element) { transform::transformGroupsInPlane(element, before, xform); });
    return eOk;
}

OdResult OdDbEntity::subTransformBy(const OdGeMatrix3d& xform)
{
    return transform::transformGroups(*this, xform);
}

OdResult OdDbEntity::getTransformedCopy(const OdGeMatrix3d& xform, OdDbEntityPtr& copy) const
{
    const OdDbEntityPtr made = OdDbEntity::cast(clone());
    if (made.isNull())
        return eNotApplicable;
    const OdResult result = made->transformBy(xform);
    if (result == eOk)
        copy = made;
    return result;
}

bool OdDbEntity::isPlanar() const
{
    return false;
}

OdGeVector3d OdDbEntity::normal() const
{
    assertReadEnabled();
    return ocs::frameOf(transform::normalOf(groupsOf(*this))).z;
}

oddb::SubentityList& OdDbEntity::makeSubentities()
{
    if (oddb::SubentityList* list = subentities())
        return *list;
    throw OdError(eNotApplicable);
}

namespace
{

/// The looks of an entity, found in one walk over its groups: pictures ask every entity for all of them.
struct StoredLooks
{
    OdDbStub* layer = nullptr;
    OdDbStub* linetype = nullptr;
    bool hasLayerName = false; ///< by a name that names no record, or not in its spelling
    bool hasLinetypeName = false;
    int colorIndex = kByLayerIndex;
    std::optional<OdUInt32> trueColor;
    double linetypeScale = 1.0;
    int lineWeight = OdDb::kLnWtByLayer;
    OdUInt32 transparency = 0;
    bool isVisible = true;

    void take(const oddb::GroupView& group);
};

void StoredLooks::take(const oddb::GroupView& group)
{
    switch (group.code())
    {
    case kLayer:
        layer = group.stub();
        hasLayerName = layer == nullptr;
        break;
    case kLinetype:
        linetype = group.stub();
        hasLinetypeName = linetype == nullptr;
        break;
    case kColorIndex:
        colorIndex = static_cast<int>(std::abs(group.integer()));
        break;
    case kTrueColor:
        trueColor = static_cast<OdUInt32>(group.integer());
        break;
    case kLinetypeScale:
        linetypeScale = group.real();
        break;
    case kLineWeight:
        lineWeight = static_cast<int>(group.integer());
        break;
    case kTransparency:
        transparency = static_cast<OdUInt32>(group.integer());
        break;
    case kInvisible:
        isVisible = group.integer() == 0;
        break;
    default:
        break;
    }
}

StoredLooks looksOf(const OdDbEntity& entity)
{
    StoredLooks looks;
    visitCommonGroups(entity, [&looks](const oddb::GroupView& group) { looks.take(group); });
    return looks;
}

OdCmEntityColor colorOf(const StoredLooks& looks)
{
    OdCmEntityColor color;
    if (looks.trueColor)
        color.setRGB(static_cast<OdUInt8>(*looks.trueColor >> 16), static_cast<OdUInt8>(*looks.trueColor >> 8),
                     static_cast<OdUInt8>(*looks.trueColor));
    else
        color.setColorIndex(static_cast<OdUInt16>(std::min<int>(looks.colorIndex, kByLayerIndex)));
    return color;
}

} // namespace

OdUInt32 OdDbEntity::subSetAttributes(OdGiDrawableTraits* traits) const
{
    const StoredLooks stored = looksOf(*this);
    const OdUInt32 flags = kDrawableIsAnEntity | (stored.isVisible ? kDrawableNone : kDrawableIsInvisible);
    const OdSmartPtr<OdGiSubEntityTraits> looks = OdGiSubEntityTraits::cast(traits);
    if (looks.isNull())
        return flags;
    looks->setTrueColor(colorOf(stored));
    looks->setLayer(stored.hasLayerName || !stored.layer ? static_cast<OdDbStub*>(layerId()) : stored.layer);
    looks->setLineType(stored.hasLinetypeName ? static_cast<OdDbStub*>(linetypeId()) : stored.linetype);
    looks->setLineTypeScale(stored.linetypeScale);
    looks->setLineWeight(static_cast<OdDb::LineWeight>(stored.lineWeight));
    OdCmTransparency transparency;
    transparency.serializeIn(stored.transparency);
    looks->setTransparency(transparency);
    return flags;
}

bool OdDbEntity::subWorldDraw(OdGiWorldDraw*) const
{
    return true;
}

// States for undo do without what has steps of its own; copies in memory get copies of what the original owns.
static bool filesSubentities(const OdDbDwgFiler& filer)
{
    return filer.filerType() != OdDbFiler::kUndoFiler && filer.filerType() != OdDbFiler::kCopyFiler;
}

OdResult OdDbEntity::dwgInFields(OdDbDwgFiler* filer)
{
    const OdResult result = OdDbObject::dwgInFields(filer);
    if (result == eOk && filesSubentities(*filer))
        oddb::readSubentities(*filer, *this);
    return result;
}

void OdDbEntity::dwgOutFields(OdDbDwgFiler* filer) const
{
    OdDbObject::dwgOutFields(filer);
    if (filesSubentities(*filer))
        oddb::writeSubentities(*filer, subentities());
}

void OdDbEntity::copyFrom(const OdRxObject* source)
{
    OdDbObject::copyFrom(source);
    oddb::copySubentities(*OdDbEntity::cast(source), *this);
}

void OdDbEntity::subMadeResident()
{
    if (oddb::SubentityList* list = subentities())
        oddb::attachSubentities(*this, *list);
}

OdResult OdDbEntity::subErase(bool erasing)
{
    if (const OdResult result = OdDbObject::subErase(erasing); result != eOk)
        return result;
    const oddb::SubentityList* list = subentities();
    return list ? list->eraseElements(erasing) : eOk;
}
