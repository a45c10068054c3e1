// OBJECTS as they are written: the named-objects dictionary, then every object that is no entity and in no table.
#include "Tables.h"
#include "Writing.h"

#include "DbEntity.h"
#include "DbSymbolTable.h"
#include "db/ObjectCore.h"

namespace dxf
{
namespace
{

bool isObjectsRecord(const OdDbObject& object)
{
    return !object.isKindOf(OdDbEntity::desc()) && !object.isKindOf(OdDbSymbolTable::desc()) &&
           !object.isKindOf(OdDbSymbolTableRecord::desc());
}

// An object goes with what owns it. Owners may be in a circle in damaged drawings.
bool ownerIsErased(const OdDbStub& stub)
{
    constexpr int kDeepest = 100;
    const OdDbStub* owner = oddb::ObjectCore::owner(*stub.object);
    for (int depth = 0; depth < kDeepest && owner != nullptr && owner->object != nullptr; ++depth)
    {
        if (owner->isErased())
            return true;
        owner = oddb::ObjectCore::owner(*owner->object);
    }
    return false;
}

} // namespace

void writeObjectsSection(Writing& writing)
{
    const OdDbStub* const root = writing.database.namedObjects;
    if (root != nullptr && !root->isErased())
        writing.objects.print(*root);
    writing.database.stubs.visit(
        [&](const OdDbStub& stub)
        {
            if (&stub != root && !stub.isErased() && isObjectsRecord(*stub.object) && !ownerIsErased(stub))
                writing.objects.print(stub);
        });
}

} // namespace dxf
