// Finds out how the objects of a class are written.
#include "ObjectKinds.h"

#include "DbDictionary.h"
#include "db/DxfClassTable.h"
#include "db/Proxies.h"

namespace dxf
{
namespace
{

ObjectKind kindOf(const OdDbObject& object, const OdRxClass& runtimeClass)
{
    ObjectKind kind;
    kind.runtimeClass = &runtimeClass;
    kind.cls = oddb::findDxfClassOfRuntimeClass(odStringToUtf8(runtimeClass.name()));
    kind.isFiled = !object.keepsGroups() || object.isKindOf(OdDbDictionary::desc());
    kind.isProxy = !oddb::proxyDxfName(object).empty();
    kind.name = kind.cls != nullptr ? kind.cls->dxfName : odStringToUtf8(runtimeClass.dxfName());
    return kind;
}

} // namespace

const ObjectKind& ObjectKinds::of(const OdDbObject& object)
{
    const OdRxClass* const runtimeClass = object.isA();
    if (const auto known = m_kinds.find(runtimeClass); known != m_kinds.end())
        return known->second;
    return m_kinds.emplace(runtimeClass, kindOf(object, *runtimeClass)).first->second;
}

} // namespace dxf
