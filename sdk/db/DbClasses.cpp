// The runtime classes of the core, in the order in which they are registered: bases first.
#include "DbClasses.h"

#include <iterator>

#include "DbDatabase.h"
#include "DbDatabaseReactor.h"
#include "DbFiler.h"
#include "DbObject.h"
#include "DbObjectReactor.h"
#include "DbProxyObject.h"
#include "rx/Layers.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbObject, OdGiDrawable, EMPTY_CONSTR, 0, 0, 0, nullptr, nullptr);
ODRX_CONS_DEFINE_MEMBERS(OdDbDatabase, OdDbObject, DBOBJECT_CONSTR);
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbObjectReactor, OdRxObject);
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbDatabaseReactor, OdRxObject);
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbFiler, OdRxObject);
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbDwgFiler, OdDbFiler);
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbDxfFiler, OdDbFiler);
ODDB_DEFINE_MEMBERS(OdDbProxyObject, OdDbObject, DBOBJECT_CONSTR, nullptr);

namespace oddb
{

namespace
{

struct ClassFunctions
{
    void (*init)();
    void (*uninit)();
};

constexpr ClassFunctions kClasses[] = {
    {&OdDbObject::rxInit, &OdDbObject::rxUninit},
    {&OdDbDatabase::rxInit, &OdDbDatabase::rxUninit},
    {&OdDbObjectReactor::rxInit, &OdDbObjectReactor::rxUninit},
    {&OdDbDatabaseReactor::rxInit, &OdDbDatabaseReactor::rxUninit},
    {&OdDbFiler::rxInit, &OdDbFiler::rxUninit},
    {&OdDbDwgFiler::rxInit, &OdDbDwgFiler::rxUninit},
    {&OdDbDxfFiler::rxInit, &OdDbDxfFiler::rxUninit},
    {&OdDbProxyObject::rxInit, &OdDbProxyObject::rxUninit},
};

} // namespace

void registerCoreClasses()
{
    for (const ClassFunctions& functions : kClasses)
        functions.init();
    registerObjectClasses();
}

void unregisterCoreClasses()
{
    unregisterObjectClasses();
    for (auto functions = std::rbegin(kClasses); functions != std::rend(kClasses); ++functions)
        functions->uninit();
}

namespace
{

const odlayers::Registration kLayer(odlayers::kDatabase, &registerCoreClasses, &unregisterCoreClasses);

} // namespace

} // namespace oddb
