// The insides of a database: making stubs, taking over objects that were read, telling listeners.
#include "DatabaseImpl.h"

#include <algorithm>
#include <array>

#include "ObjectCore.h"
#include "OdError.h"

namespace oddb
{

namespace
{

/// A list that takes no memory of its own while it is short, as lists of listeners are.
template<class T>
class ShortList
{
public:
    ShortList() = default;
    explicit ShortList(const std::vector<T>& elements)
    {
        for (const T& element : elements)
            append(element);
    }

    void append(T element)
    {
        if (m_count < m_few.size())
            m_few[m_count] = element;
        else
            m_more.push_back(element);
        ++m_count;
    }
    std::size_t size() const { return m_count; }
    T operator[](std::size_t at) const { return at < m_few.size() ? m_few[at] : m_more[at - m_few.size()]; }

private:
    std::array<T, 4> m_few;
    std::vector<T> m_more;
    std::size_t m_count = 0;
};

} // namespace

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

bool DatabaseImpl::hasReactor(const OdDbDatabaseReactor* reactor) const
{
    return std::find(reactors.begin(), reactors.end(), reactor) != reactors.end();
}

bool DatabaseImpl::hasReactor(const OdDbStub& stub, const OdDbObjectReactor* reactor) const
{
    const auto found = objectReactors.find(&stub);
    return found != objectReactors.end() &&
           std::find(found->second.begin(), found->second.end(), reactor) != found->second.end();
}

// Listeners may come and go while they are told.
template<class Tell>
void DatabaseImpl::tellReactors(const Tell& tell)
{
    if (reactors.empty())
        return;
    const ShortList<OdDbDatabaseReactor*> told(reactors);
    for (std::size_t i = 0; i < told.size(); ++i)
        if (hasReactor(told[i]))
            tell(*told[i]);
}

template<class Tell>
void DatabaseImpl::tellObjectReactors(const OdDbObject& object, const Tell& tell)
{
    if (objectReactors.empty())
        return;
    auto found = objectReactors.find(ObjectCore::stub(object));
    if (found == objectReactors.end())
        return;
    const ShortList<OdDbObjectReactor*> told(found->second);
    for (std::size_t i = 0; i < told.size(); ++i)
        if (hasReactor(*ObjectCore::stub(object), told[i]))
            tell(*told[i]);
}

void DatabaseImpl::tellPersistentReactors(const OdDbObject& object, const std::function<void(OdDbObject&)>& tell)
{
    const ObjectExtras* extras = ObjectCore::extras(object);
    if (!extras || extras->reactors.empty() || loading || journal.isReplaying())
        return;
    ShortList<OdDbStub*> told;
    extras->reactors.visit([&](OdDbStub* reactor) { told.append(reactor); });
    for (std::size_t i = 0; i < told.size(); ++i)
        if (OdDbObjectPtr opened = OdDbObjectId(told[i]).openObject(OdDb::kForNotify))
            tell(*opened);
}

void DatabaseImpl::notifyErased(const OdDbObject& object, bool erased)
{
    tellObjectReactors(object, [&](OdDbObjectReactor& reactor) { reactor.erased(&object, erased); });
    tellReactors([&](OdDbDatabaseReactor& reactor) { reactor.objectErased(&database, &object, erased); });
}

void DatabaseImpl::notifyModified(const OdDbObject& object)
{
    // An object whose making was taken back may still have been held open.
    if (loading || journal.isReplaying() || ObjectCore::stub(object)->has(OdDbStub::kUndone))
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

void DatabaseImpl::notifyCopied(const OdDbObject& object, const OdDbObject& copy)
{
    tellObjectReactors(object, [&](OdDbObjectReactor& reactor) { reactor.copied(&object, &copy); });
}

void DatabaseImpl::notifyGoodbye()
{
    tellReactors([&](OdDbDatabaseReactor& reactor) { reactor.goodbye(&database); });
    while (!objectReactors.empty())
    {
        const auto told = objectReactors.extract(objectReactors.begin());
        for (OdDbObjectReactor* reactor : told.mapped())
            reactor->goodbye(told.key()->object);
    }
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
