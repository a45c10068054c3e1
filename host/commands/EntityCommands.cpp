// The commands that find, erase and copy entities: ENTITIES, ERASE and COPY.
#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "DbEntity.h"
#include "DbIdMapping.h"
#include "DbLayout.h"
#include "Ge/GeMatrix3d.h"
#include "OdError.h"
#include "RxObjectImpl.h"
#include "commands/CommandTable.h"
#include "commands/EntityFilter.h"

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
    const OdDbObjectPtr object = id.safeOpenObject(mode);
    requireOrdinary(*object);
    return object;
}

} // namespace

void findEntities(CommandRun& run)
{
    const EntityFilter filter(run.parameters);
    const OdDbBlockTableRecordPtr space = run.database.getActiveLayoutBTRId().safeOpenObject();
    OdDbObjectIdArray found;
    for (OdDbObjectIteratorPtr entities = space->newIterator(); !entities->done(); entities->step())
        if (filter.admits(entities->objectId()))
            found.append(entities->objectId());
    run.results.add(L"OBJECTIDARRAY", found);
}

void erase(CommandRun& run)
{
    for (const OdDbObjectId& id : run.parameters.objectIds(L"OBJECTIDARRAY"))
    {
        const OdResult outcome = openOrdinary(id, OdDb::kForWrite)->erase();
        if (outcome != eOk)
            refuse(outcome, id, L"cannot be erased");
    }
}

void copy(CommandRun& run)
{
    const OdGeMatrix3d move = OdGeMatrix3d::translation(run.parameters.vector(L"VECTOR"));
    const OdDbIdMappingPtr mapping = OdRxObjectImpl<OdDbIdMapping>::createObject();
    OdDbObjectIdArray copies;
    for (const OdDbObjectId& id : run.parameters.objectIds(L"OBJECTIDARRAY"))
    {
        const OdDbObjectPtr source = openOrdinary(id, OdDb::kForRead);
        const OdDbObjectPtr owner = source->ownerId().safeOpenObject(OdDb::kForWrite);
        const OdDbObjectPtr made = source->deepClone(*mapping, owner);
        if (made.isNull())
            refuse(eNotApplicable, id, L"cannot be copied");
        if (const OdDbEntityPtr entity = OdDbEntity::cast(made); !entity.isNull())
            if (const OdResult outcome = entity->transformBy(move); outcome != eOk)
                refuse(outcome, id, L"cannot be moved");
        copies.append(made->objectId());
    }
    run.results.add(L"OBJECTIDARRAY", copies);
}

} // namespace hostcommands
