// The table of edits: a place for each hash, where the last edit that was asked for twice stays.
#include "KnownEdits.h"

#include <functional>

#include "DatabaseImpl.h"
#include "ObjectCore.h"

namespace oddb
{

namespace
{

std::size_t mixed(std::size_t hash, std::size_t value)
{
    constexpr std::size_t kOdd = 0x9E3779B97F4A7C15u;
    hash = (hash ^ value) * kOdd;
    return hash ^ hash >> 29;
}

} // namespace

bool KnownEdits::Place::answers(const Groups& row, const RowEdit& edit) const
{
    return before.data() == row.data() && code == edit.code && part == edit.part && subject == edit.subject &&
           groups == edit.groups;
}

void KnownEdits::Place::remember(std::size_t hash, const Groups& row, const RowEdit& edit, const Groups& result)
{
    if (std::exchange(asked, hash) != hash)
        return;
    subject = edit.subject;
    part = edit.part;
    code = edit.code;
    groups = edit.groups;
    before = row;
    after = result;
}

std::size_t KnownEdits::hashOf(const Groups& row, const RowEdit& edit)
{
    const std::size_t hash =
        mixed(std::hash<std::string_view>()(edit.groups), reinterpret_cast<std::size_t>(row.data()));
    return mixed(hash, reinterpret_cast<std::size_t>(edit.part) + static_cast<std::size_t>(edit.code));
}

KnownEdits::Place& KnownEdits::placeOf(std::size_t hash)
{
    if (m_places.empty())
        m_places.resize(kPlaces);
    return m_places[hash % kPlaces];
}

KnownEdits* KnownEdits::of(const OdDbObject& object)
{
    DatabaseImpl* database = databaseImpl(object);
    return database ? &database->knownEdits : nullptr;
}

void KnownEdits::shareRow(OdDbObject& object)
{
    const Groups row = ObjectCore::groups(object);
    if (!row)
        return;
    Groups& last = m_newRows[object.isA()];
    if (last == row)
        ObjectCore::putGroups(object, last);
    else
        last = row;
}

} // namespace oddb
