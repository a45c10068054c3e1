// The commands that find, erase and copy entities: ENTITIES, ERASE, COPY and WBLOCK.
#include <unordered_set>

#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "DbEntity.h"
#include "DbIdMapping.h"
#include "DbLayout.h"
#include "Ge/GeMatrix3d.h"
#include "OdError.h"
#include "RxObjectImpl.h"
#include "commands/CommandTable.h"
#include "commands/DrawingFiles.h"
#include "commands/EntityFilter.h"
#include "commands/FileVersions.h"

namespace hostcommands
{

namespace
{

OdString quotedHandle(const OdDbObjectId& id)
{
    return L"\"" + id.getHandle().ascii() + L"\"";
}

[[noreturn]] void refuse(OdResult code, const OdDbObjectId& id, const OdChar* fault)
{
    throw OdError(code, L"the object with the handle " + quotedHandle(id) + L" " + fault);
}

// Objects that hold a drawing together are neither erased nor copied by hand.
void requireOrdinary(const OdDbObject& object)
{
    if (object.isKindOf(OdDbEntity::desc()))
        return;
    const OdDbObjectPtr owner = object.ownerId().openObject();
    const bool isInDictionary = !owner.isNull() && owner->isKindOf(OdDbDictionary::desc());
    if (!isInDictionary || object.isKindOf(OdDbDictionary::desc()) || object.isKindOf(OdDbLayout::desc()))
        refuse(eCannotBeErasedByCaller, object.objectId(), L"is part of the drawing's structure");
}

OdDbObjectPtr openOrdinary(const OdDbObjectId& id, OdDb::OpenMode mode)
{
    OdDbObjectPtr object = id.safeOpenObject(mode);
    requireOrdinary(*object);
    return object;
}

// The objects of the parameter OBJECTIDARRAY, each once. Throws OdError(eInvalidInput) when it is missing.
OdDbObjectIdArray givenObjects(const CommandRun& run)
{
    if (!run.parameters.has(L"OBJECTIDARRAY"))
        throw OdError(eInvalidInput, OdString(L"the parameter OBJECTIDARRAY is missing"));
    std::unordered_set<OdDbStub*> seen;
    OdDbObjectIdArray distinct;
    for (const OdDbObjectId& id : run.parameters.objectIds(L"OBJECTIDARRAY"))
        if (seen.insert(static_cast<OdDbStub*>(id)).second)
            distinct.append(id);
    return distinct;
}

OdDbObjectId copyOf(const OdDbObjectId& original, const OdDbIdMapping& mapping)
{
    OdDbIdPair pair(original);
    if (!mapping.compute(pair) || !pair.value().isValid())
        refuse(eNotApplicable, original, L"cannot be copied");
    return pair.value();
}

// A move so wide that coordinates would stop being numbers is none.
OdGeMatrix3d moveBy(const OdGeVector3d& vector)
{
    constexpr double kWidestMove = 1e100;
    if (!(vector.length() <= kWidestMove))
        throw OdError(eInvalidInput, OdString(L"VECTOR is too long"));
    return OdGeMatrix3d::translation(vector);
}

void moveEntity(const OdDbObjectId& id, const OdGeMatrix3d& move)
{
    const OdDbEntityPtr entity = OdDbEntity::cast(id.safeOpenObject(OdDb::kForWrite));
    if (entity.isNull())
        return;
    if (const OdResult outcome = entity->transformBy(move); outcome != eOk)
        refuse(outcome, id, L"cannot be moved");
}

EntityCriteria criteriaOf(const Parameters& parameters)
{
    const auto valueOf = [&](const OdChar* name) { return parameters.string(name).value_or(OdString()); };
    EntityCriteria criteria;
    criteria.types = splitAtCommas(valueOf(L"TYPE"));
    if (const OdString layer = valueOf(L"LAYER"); !layer.isEmpty())
        criteria.layers.push_back(layer);
    criteria.text = valueOf(L"TEXT");
    return criteria;
}

} // namespace

void findEntities(CommandRun& run)
{
    const EntityFilter filter(criteriaOf(run.parameters));
    const OdDbBlockTableRecordPtr space = run.database.getActiveLayoutBTRId().safeOpenObject();
    OdDbObjectIdArray found;
    for (OdDbObjectIteratorPtr entities = space->newIterator(); !entities->done(); entities->step())
        if (filter.admits(entities->objectId()))
            found.append(entities->objectId());
    run.results.add(L"OBJECTIDARRAY", found);
}

void erase(CommandRun& run)
{
    for (const OdDbObjectId& id : givenObjects(run))
    {
        const OdResult outcome = openOrdinary(id, OdDb::kForWrite)->erase();
        if (outcome != eOk)
            refuse(outcome, id, L"cannot be erased");
    }
}

void copy(CommandRun& run)
{
    const OdGeMatrix3d move = moveBy(run.parameters.vector(L"VECTOR"));
    const OdDbObjectIdArray originals = givenObjects(run);
    for (const OdDbObjectId& id : originals)
        openOrdinary(id, OdDb::kForRead);
    const OdDbIdMappingPtr mapping = OdRxObjectImpl<OdDbIdMapping>::createObject();
    run.database.deepCloneObjects(originals, OdDbObjectId::kNull, *mapping);
    OdDbObjectIdArray copies;
    for (const OdDbObjectId& id : originals)
    {
        const OdDbObjectId made = copyOf(id, *mapping);
        moveEntity(made, move);
        copies.append(made);
    }
    run.results.add(L"OBJECTIDARRAY", copies);
}

void writeBlock(CommandRun& run)
{
    const OdString file = run.parameters.string(L"FILE").value_or(OdString());
    if (file.isEmpty())
        throw OdError(eInvalidInput, OdString(L"FILE is missing"));
    requireFileName(file);
    const OdDbDatabasePtr block = run.database.wblock(givenObjects(run));
    block->writeFile(file, OdDb::kDxf, versionToWrite(run.database.originalFileVersion()));
}

} // namespace hostcommands
