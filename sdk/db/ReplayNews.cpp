// Telling listeners of what undo, redo and abort have done.
#include "ReplayNews.h"

#include <algorithm>

#include "DatabaseImpl.h"

namespace oddb
{

ReplayNews::ReplayNews(DatabaseImpl& database)
    : m_database(database), m_isHeard(!database.reactors.empty() || !database.objectReactors.empty())
{
}

ReplayNews::~ReplayNews()
{
    clear();
}

void ReplayNews::note(OdDbStub& stub, Kind kind)
{
    if (m_isHeard)
        m_items.push_back({&stub, kind});
}

void ReplayNews::noteModified(OdDbStub& stub)
{
    if (!m_isHeard || stub.has(OdDbStub::kMarked))
        return;
    stub.set(OdDbStub::kMarked, true);
    note(stub, Kind::Modified);
}

void ReplayNews::noteErased(OdDbStub& stub, bool erased)
{
    note(stub, erased ? Kind::Erased : Kind::Unerased);
}

void ReplayNews::noteMade(OdDbStub& stub, bool made)
{
    note(stub, made ? Kind::ReAppended : Kind::UnAppended);
}

// Listeners may come and go while they are told.
void ReplayNews::tell()
{
    const std::vector<OdDbDatabaseReactor*> told = m_database.reactors;
    for (OdDbDatabaseReactor* reactor : told)
        if (m_database.hasReactor(reactor))
            tell(*reactor);
    for (const Item& item : m_items)
        tellOfObject(item);
    clear();
}

void ReplayNews::clear()
{
    for (const Item& item : m_items)
        item.stub->set(OdDbStub::kMarked, false);
    m_items.clear();
}

void ReplayNews::tell(OdDbDatabaseReactor& reactor) const
{
    const OdDbDatabase* database = &m_database.database;
    for (const Item& item : m_items)
    {
        if (!m_database.hasReactor(&reactor))
            return;
        const OdDbObject* object = item.stub->object;
        try
        {
            if (item.kind == Kind::UnAppended)
                reactor.objectUnAppended(database, object);
            else if (item.kind == Kind::ReAppended)
                reactor.objectReAppended(database, object);
            else if (item.kind != Kind::Modified)
                reactor.objectErased(database, object, item.kind == Kind::Erased);
            else if (!item.stub->isErased())
                reactor.objectModified(database, object);
        }
        catch (...)
        {
            // The others are to hear of it all the same.
        }
    }
}

void ReplayNews::tellOfObject(const Item& item) const
{
    const auto found = m_database.objectReactors.find(item.stub);
    if (found == m_database.objectReactors.end())
        return;
    const std::vector<OdDbObjectReactor*> told = found->second;
    for (OdDbObjectReactor* reactor : told)
    {
        try
        {
            if (m_database.hasReactor(*item.stub, reactor))
                tell(*reactor, item);
        }
        catch (...)
        {
            // As above.
        }
    }
}

void ReplayNews::tell(OdDbObjectReactor& reactor, const Item& item)
{
    const OdDbObject* object = item.stub->object;
    if (item.kind == Kind::UnAppended)
        reactor.unappended(object);
    else if (item.kind == Kind::ReAppended)
        reactor.reappended(object);
    else if (item.kind != Kind::Modified)
        reactor.erased(object, item.kind == Kind::Erased);
    else if (!item.stub->isErased())
        reactor.modified(object);
}

} // namespace oddb
