// Selections: members in order, and for each its place, so that adding and taking out cost the same for any number.
#include "DbSSet.h"

#include <unordered_map>

#include "DbDatabase.h"
#include "OdError.h"
#include "RxObjectImpl.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbSelectionSetIterator, OdRxObject);
ODRX_NO_CONS_DEFINE_MEMBERS(OdSelectionSet, OdRxObject);
ODRX_CONS_DEFINE_MEMBERS(OdDbSelectionSet, OdSelectionSet, RXIMPL_CONSTR);
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbSelectionMethod, OdRxObject);
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbVisualSelection, OdDbSelectionMethod);

struct OdDbSelectionSet::Members
{
    const OdDbDatabase* base = nullptr;
    OdDbObjectIdArray ids; ///< null where a member was taken out
    std::unordered_map<OdDbObjectId, OdUInt32> places;

    void closeGaps()
    {
        if (places.size() == ids.size())
            return;
        OdDbObjectIdArray kept;
        kept.reserve(static_cast<OdUInt32>(places.size()));
        const OdDbObjectIdArray& all = ids;
        for (const OdDbObjectId& id : all)
        {
            if (id.isNull())
                continue;
            places[id] = kept.size();
            kept.append(id);
        }
        ids = kept;
    }
};

namespace
{

class MemberIterator : public OdDbSelectionSetIterator
{
public:
    void show(const OdDbObjectIdArray& members) { m_members = members; }

    bool done() const override { return m_index >= m_members.size(); }
    bool next() override
    {
        if (!done())
            ++m_index;
        return !done();
    }
    OdDbObjectId objectId() const override { return done() ? OdDbObjectId() : m_members[m_index]; }

private:
    OdDbObjectIdArray m_members;
    OdUInt32 m_index = 0;
};

} // namespace

OdDbSelectionSet::OdDbSelectionSet() : m_members(std::make_unique<Members>()) {}

OdDbSelectionSet::~OdDbSelectionSet() = default;

OdSmartPtr<OdDbSelectionSet> OdDbSelectionSet::createObject(const OdDbDatabase* database)
{
    OdDbSelectionSetPtr made = createObject();
    made->m_members->base = database;
    return made;
}

const OdRxObject* OdDbSelectionSet::baseDatabase() const
{
    return m_members->base;
}

OdDbDatabase* OdDbSelectionSet::database() const
{
    return const_cast<OdDbDatabase*>(m_members->base);
}

void OdDbSelectionSet::append(const OdDbObjectId& objectId)
{
    if (objectId.isNull())
        return;
    if (!m_members->base)
        m_members->base = objectId.database();
    if (objectId.database() != m_members->base)
        throw OdError(eWrongDatabase);
    if (m_members->places.emplace(objectId, m_members->ids.size()).second)
        m_members->ids.append(objectId);
}

void OdDbSelectionSet::append(const OdDbObjectIdArray& objectIds)
{
    for (const OdDbObjectId& id : objectIds)
        append(id);
}

void OdDbSelectionSet::remove(const OdDbObjectId& objectId)
{
    const auto place = m_members->places.find(objectId);
    if (place == m_members->places.end())
        return;
    m_members->ids[place->second].setNull();
    m_members->places.erase(place);
}

void OdDbSelectionSet::remove(const OdDbObjectIdArray& objectIds)
{
    for (const OdDbObjectId& id : objectIds)
        remove(id);
}

bool OdDbSelectionSet::isMember(const OdDbObjectId& objectId) const
{
    return m_members->places.count(objectId) != 0;
}

OdUInt32 OdDbSelectionSet::numEntities() const
{
    return static_cast<OdUInt32>(m_members->places.size());
}

void OdDbSelectionSet::clear()
{
    m_members->ids.clear();
    m_members->places.clear();
}

OdDbObjectIdArray OdDbSelectionSet::objectIdArray() const
{
    m_members->closeGaps();
    return m_members->ids;
}

OdDbSelectionSetIteratorPtr OdDbSelectionSet::newIterator() const
{
    OdSmartPtr<MemberIterator> iterator = OdRxObjectImpl<MemberIterator>::createObject();
    iterator->show(objectIdArray());
    return OdDbSelectionSetIteratorPtr(iterator.get());
}
