// OBJECTS as they are written: the named-objects dictionary, then every object that is no entity and in no table.
#include "Tables.h"
#include "Writing.h"

#include "DbEntity.h"
#include "DbSymbolTable.h"
#include "db/ObjectCore.h"

#include <algorithm>
#include <vector>

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

// In the order of handles, so that a drawing that nobody changed is written as it was the last time.
void writeObjectsSection(Writing& writing)
{
    const OdDbStub* const root = writing.database.namedObjects;
    if (root != nullptr && !root->isErased())
        writing.objects.print(*root);
    std::vector<const OdDbStub*> objects;
    writing.database.stubs.visit(
        [&](const OdDbStub& stub)
        {
            if (&stub != root && !stub.isErased() && isObjectsRecord(*stub.object) && !ownerIsErased(stub))
                objects.push_back(&stub);
        });
    std::sort(objects.begin(), objects.end(),
              [](const OdDbStub* a, const OdDbStub* b) { return a->handle < b->handle; });
    for (const OdDbStub* const object : objects)
        writing.objects.print(*object);
}

} // namespace dxf
