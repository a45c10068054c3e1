// The runtime classes of the core, in the order in which they are registered: bases first.
#include "DbClasses.h"

#include "DbDatabase.h"
#include "DbDatabaseReactor.h"
#include "DbFiler.h"
#include "DbObject.h"
#include "DbObjectReactor.h"
#include "DbProxyObject.h"
#include "rx/ClassRows.h"
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

constexpr auto kClasses = odlayers::rowsOf<OdDbObject, OdDbDatabase, OdDbObjectReactor, OdDbDatabaseReactor, OdDbFiler,
                                           OdDbDwgFiler, OdDbDxfFiler, OdDbProxyObject>();

} // namespace

void registerCoreClasses()
{
    odlayers::startClasses(kClasses);
    registerObjectClasses();
}

void unregisterCoreClasses()
{
    unregisterObjectClasses();
    odlayers::endClasses(kClasses);
}

namespace
{

const odlayers::Registration kLayer(odlayers::kDatabase, &registerCoreClasses, &unregisterCoreClasses);

} // namespace

} // namespace oddb
