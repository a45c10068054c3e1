// Copying as programs ask a drawing for it.
#include <algorithm>
#include <string_view>

#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbEntity.h"
#include "Ge/GeMatrix3d.h"
#include "OdError.h"
#include "RxObjectImpl.h"
#include "db/DatabaseImpl.h"
#include "db/HeaderVariables.h"
#include "entities/ObjectCopier.h"

namespace
{

/// What the parts of the target are to those of the original drawing: tables, root dictionary, spaces.
void mapFrames(OdDbIdMapping& mapping)
{
    const oddb::DatabaseImpl& from = mapping.origDb()->impl();
    const oddb::DatabaseImpl& to = mapping.destDb()->impl();
    for (int table = 1; table < oddb::kSymbolTableCount; ++table)
        if (from.tables[table] && to.tables[table])
            mapping.assign(OdDbIdPair(from.tables[table], to.tables[table]));
    mapping.assign(OdDbIdPair(from.namedObjects, to.namedObjects));
    mapping.assign(OdDbIdPair(from.modelSpace, to.modelSpace));
    mapping.assign(OdDbIdPair(from.paperSpace, to.paperSpace));
}

/// True for settings that say how a drawing is to be understood: units, scales, forms of numbers and of dimensions. The
/// others name records, or tell of places and times in the one drawing.
bool isGeneralSetting(const oddb::HeaderRow& row)
{
    constexpr std::string_view kOwn[] = {"ACADMAINTVER", "TILEMODE",  "TDCREATE", "TDUCREATE",
                                         "TDUPDATE",     "TDUUPDATE", "TDINDWG",  "TDUSRTIMER"};
    const bool isNumber = row.kind == oddb::DxfKind::Real || row.kind == oddb::DxfKind::Integer ||
                          row.kind == oddb::DxfKind::Angle || row.kind == oddb::DxfKind::Boolean;
    return isNumber && std::find(std::begin(kOwn), std::end(kOwn), row.name) == std::end(kOwn);
}

void copySettings(const OdDbDatabase& from, OdDbDatabase& to)
{
    for (const oddb::HeaderVariable& variable : oddb::HeaderVariables::of(from.impl()).all())
        if (const oddb::HeaderRow* row = oddb::findHeaderRow(variable.name); row && isGeneralSetting(*row))
            oddb::HeaderVariables::of(to.impl()).put(variable.name, variable.values);
}

void requireCopyable(const OdDbObjectIdArray& objectIds)
{
    for (const OdDbObjectId& id : objectIds)
        oddb::ObjectCopier::requireCopyable(*id.safeOpenObject());
}

void moveCopies(OdDbIdMapping& mapping, const OdGePoint3d& basePoint)
{
    if (basePoint == OdGePoint3d())
        return;
    const OdGeMatrix3d move = OdGeMatrix3d::translation(OdGePoint3d() - basePoint);
    for (OdDbIdMappingIterPtr pairs = mapping.newIterator(); !pairs->done(); pairs->next())
    {
        const OdDbIdPair pair = pairs->getMap();
        const OdDbEntityPtr entity =
            pair.isPrimary() ? OdDbEntity::cast(pair.value().openObject(OdDb::kForWrite)) : OdDbEntityPtr();
        const OdResult result = entity.isNull() ? eOk : entity->transformBy(move);
        if (result != eOk)
            throw OdError(result);
    }
}

} // namespace

OdDbObjectPtr OdDbObject::subDeepClone(OdDbIdMapping& mapping, OdDbObject* ownerObject, bool isPrimary) const
{
    return oddb::ObjectCopier(mapping).copy(*this, ownerObject, isPrimary);
}

OdDbObjectPtr OdDbObject::subWblockClone(OdDbIdMapping& mapping, OdDbObject* ownerObject, bool isPrimary) const
{
    return oddb::ObjectCopier(mapping).copy(*this, ownerObject, isPrimary);
}

void OdDbObject::appendToOwner(OdDbIdPair&, OdDbObject*, OdDbIdMapping&) {}

void OdDbDatabase::deepCloneObjects(const OdDbObjectIdArray& objectIds, const OdDbObjectId& ownerId,
                                    OdDbIdMapping& mapping)
{
    requireCopyable(objectIds);
    mapping.setOrigDb(this);
    mapping.setDestDb(this);
    mapping.setContext(OdDb::kDcCopy, OdDb::kDrcIgnore);
    oddb::ObjectCopier copier(mapping);
    for (const OdDbObjectId& id : objectIds)
    {
        const OdDbObjectPtr source = id.safeOpenObject();
        const OdDbObjectPtr owner = (ownerId.isNull() ? source->ownerId() : ownerId).openObject(OdDb::kForWrite);
        copier.copy(*source, owner, true);
    }
    copier.translate();
}

OdDbDatabasePtr OdDbDatabase::wblock(const OdDbObjectIdArray& objectIds, const OdGePoint3d& basePoint)
{
    requireCopyable(objectIds);
    OdDbDatabasePtr target = OdDbDatabase::createObject();
    target->setAppServices(appServices());
    target->initialize(getMEASUREMENT());
    target->disableUndoRecording(true);
    copySettings(*this, *target);
    OdSmartPtr<OdDbIdMapping> mapping = OdDbIdMapping::createObject();
    mapping->setOrigDb(this);
    mapping->setDestDb(target);
    mapping->setContext(OdDb::kDcWblock, OdDb::kDrcIgnore);
    mapFrames(*mapping);
    oddb::ObjectCopier copier(*mapping);
    for (const OdDbObjectId& id : objectIds)
    {
        const OdDbObjectPtr source = id.safeOpenObject();
        copier.copyPrimary(*source);
    }
    copier.copyNeeded();
    copier.translate();
    moveCopies(*mapping, basePoint);
    target->disableUndoRecording(false);
    return target;
}
