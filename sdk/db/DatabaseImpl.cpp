// The insides of a database: making stubs, taking over objects that were read, telling listeners.
#include "DatabaseImpl.h"

#include "ObjectCore.h"
#include "OdError.h"

namespace oddb
{

DatabaseImpl::DatabaseImpl(OdDbDatabase& owner) : database(owner), stubs(&owner), journal(owner) {}

// Objects that somebody still holds stay alive without a database, and must not refer into it any more.
DatabaseImpl::~DatabaseImpl()
{
    stubs.visit(
        [](OdDbStub& stub)
        {
            if (stub.object)
                ObjectCore::orphan(*std::exchange(stub.object, nullptr));
        });
}

const FileClass* DatabaseImpl::fileClass(std::string_view dxfName) const
{
    for (const auto& known : fileClasses)
        if (known->dxfName == dxfName)
            return known.get();
    return nullptr;
}

OdDbStub* DatabaseImpl::newStub(OdUInt64 handle)
{
    if (handle == 0)
        handle = nextHandle();
    OdDbStub* stub = stubs.findOrCreate(handle);
    if (stub->object)
        throw OdError(eHandleExists);
    noteHandle(handle);
    return stub;
}

// Handles that a drawing only refers to are taken as well.
OdUInt64 DatabaseImpl::nextHandle()
{
    while (handseed == 0 || stubs.find(handseed))
        ++handseed;
    return handseed;
}

void DatabaseImpl::adopt(OdDbStub& stub, OdDbObject* object, OdDbStub* owner)
{
    ObjectCore::attach(*object, stub, owner);
}

// ---- Listeners -----------------------------------------------------------------------------------------------------

// Listeners may come and go while they are told.
template<class Tell>
void DatabaseImpl::tellReactors(const Tell& tell)
{
    if (reactors.empty())
        return;
    const std::vector<OdDbDatabaseReactor*> told = reactors;
    for (OdDbDatabaseReactor* reactor : told)
        tell(*reactor);
}

template<class Tell>
void DatabaseImpl::tellObjectReactors(const OdDbObject& object, const Tell& tell)
{
    if (objectReactors.empty())
        return;
    auto found = objectReactors.find(ObjectCore::stub(object));
    if (found == objectReactors.end())
        return;
    const std::vector<OdDbObjectReactor*> told = found->second;
    for (OdDbObjectReactor* reactor : told)
        tell(*reactor);
}

void DatabaseImpl::tellPersistentReactors(const OdDbObject& object, const std::function<void(OdDbObject&)>& tell)
{
    const ObjectExtras* extras = ObjectCore::extras(object);
    if (!extras || extras->reactors.empty() || loading || journal.isReplaying())
        return;
    std::vector<OdDbStub*> told;
    extras->reactors.visit([&](OdDbStub* reactor) { told.push_back(reactor); });
    for (OdDbStub* reactor : told)
        if (OdDbObjectPtr opened = OdDbObjectId(reactor).openObject(OdDb::kForNotify))
            tell(*opened);
}

void DatabaseImpl::notifyErased(const OdDbObject& object, bool erased)
{
    tellObjectReactors(object, [&](OdDbObjectReactor& reactor) { reactor.erased(&object, erased); });
    tellReactors([&](OdDbDatabaseReactor& reactor) { reactor.objectErased(&database, &object, erased); });
}

void DatabaseImpl::notifyModified(const OdDbObject& object)
{
    if (loading || journal.isReplaying())
        return;
    const bool xdata = object.isModifiedXData();
    tellObjectReactors(object,
                       [&](OdDbObjectReactor& reactor)
                       {
                           if (xdata)
                               reactor.xDataModified(&object);
                           reactor.modified(&object);
                       });
    tellReactors([&](OdDbDatabaseReactor& reactor) { reactor.objectModified(&database, &object); });
    tellPersistentReactors(object, [&](OdDbObject& reactor) { reactor.modified(&object); });
}

void DatabaseImpl::notifyAppended(const OdDbObject& object)
{
    if (!loading)
        tellReactors([&](OdDbDatabaseReactor& reactor) { reactor.objectAppended(&database, &object); });
}

void DatabaseImpl::notifyUndone(const OdDbObject& object, bool undone)
{
    tellObjectReactors(object, [&](OdDbObjectReactor& reactor)
                       { undone ? reactor.unappended(&object) : reactor.reappended(&object); });
    tellReactors(
        [&](OdDbDatabaseReactor& reactor)
        { undone ? reactor.objectUnAppended(&database, &object) : reactor.objectReAppended(&database, &object); });
}

FileFormat& fileFormat()
{
    static FileFormat theFormat;
    return theFormat;
}

OdString describe(const OdDbStub& stub, const OdChar* fault)
{
    OdString line = L"Object ";
    line += OdDbHandle(stub.handle).ascii();
    line += L": ";
    line += fault;
    return line;
}

} // namespace oddb
