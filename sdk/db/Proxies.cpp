// Making proxies, and what they know of the classes they stand for.
#include "Proxies.h"

#include "DbProxyObject.h"
#include "ObjectCore.h"
#include "OdError.h"

namespace oddb
{

namespace
{

// Drawn objects have their own kind of proxy, which lies in a layer above and is known by name only here.
constexpr const OdChar* kEntityClass = L"OdDbEntity";
constexpr const OdChar* kEntityProxyClass = L"OdDbProxyEntity";

const FileClass* fileClassOf(const OdDbObject& proxy)
{
    const DatabaseImpl* impl = databaseImpl(proxy);
    return impl ? impl->fileClass(proxyDxfName(proxy)) : nullptr;
}

} // namespace

OdDbObjectPtr makeProxy(DatabaseImpl&, std::string_view dxfName, bool isEntity)
{
    OdDbObjectPtr proxy;
    if (isEntity)
        proxy = odrxSafeCreateObject(kEntityProxyClass);
    else
        proxy = OdDbProxyObject::createObject();
    nameProxy(*proxy, dxfName);
    return proxy;
}

void nameProxy(OdDbObject& object, std::string_view dxfName)
{
    if (!dxfName.empty())
        ObjectCore::makeExtras(object).proxyName = Atom::intern(dxfName).value_or(Atom());
}

std::string_view proxyDxfName(const OdDbObject& object)
{
    const ObjectExtras* extras = ObjectCore::extras(object);
    return extras ? extras->proxyName.text() : std::string_view();
}

void replaceByProxy(DatabaseImpl& database, OdDbStub& stub, const Groups& groups)
{
    const OdRxClass* cls = stub.object->isA();
    const std::string dxfName = odStringToUtf8(cls->dxfName());
    OdDbObjectPtr proxy = makeProxy(database, dxfName, cls->isDerivedFrom(odrxGetClass(kEntityClass)));
    ObjectCore::putGroups(*proxy, groups);
    ObjectCore::exchange(stub, proxy);
    nameProxy(*proxy, dxfName);
}

} // namespace oddb

OdString OdDbProxyObject::originalDxfName() const
{
    assertReadEnabled();
    return odUtf8ToString(oddb::proxyDxfName(*this));
}

OdString OdDbProxyObject::originalClassName() const
{
    assertReadEnabled();
    const oddb::FileClass* known = oddb::fileClassOf(*this);
    return known ? odUtf8ToString(known->className) : OdString();
}

OdString OdDbProxyObject::applicationDescription() const
{
    assertReadEnabled();
    const oddb::FileClass* known = oddb::fileClassOf(*this);
    return known ? odUtf8ToString(known->application) : OdString();
}
