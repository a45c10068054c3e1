// The table of edits. Each has the choice between a few places. An edit that comes for the first time leaves its hash
// there, so that those that come once keep no rows; who finds its hash stays as long as it is asked for.
#include "KnownEdits.h"

#include <algorithm>
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

KnownEdits::Place* KnownEdits::placesOf(std::size_t hash)
{
    if (m_places.empty())
        m_places.resize(kPlaces);
    return &m_places[hash % (kPlaces / kChoice) * kChoice];
}

KnownEdits::Place* KnownEdits::find(Place* places, const Groups& row, const RowEdit& edit)
{
    Place* const found =
        std::find_if(places, places + kChoice, [&](const Place& place) { return place.answers(row, edit); });
    if (found == places + kChoice)
        return nullptr;
    found->isUsed = true;
    return found;
}

// The first that was not asked for; when all were, they begin anew.
KnownEdits::Place& KnownEdits::placeToGive(Place* places)
{
    Place* const end = places + kChoice;
    Place* given = std::find_if(places, end, [](const Place& place) { return !place.isUsed; });
    if (given == end)
    {
        std::for_each(places, end, [](Place& place) { place.isUsed = false; });
        given = places;
    }
    std::rotate(given, given + 1, end); // the next one is another
    return *(end - 1);
}

void KnownEdits::remember(Place* places, std::size_t hash, const Groups& row, const RowEdit& edit, const Groups& result)
{
    Place* const end = places + kChoice;
    Place* const again = std::find_if(places, end, [&](const Place& place) { return place.hash == hash; });
    if (again == end)
    {
        Place& given = placeToGive(places);
        given = Place();
        given.hash = hash;
        return;
    }
    again->isUsed = true;
    again->subject = edit.subject;
    again->part = edit.part;
    again->code = edit.code;
    again->groups = edit.groups;
    again->before = row;
    again->after = result;
}

std::size_t KnownEdits::hashOf(const Groups& row, const RowEdit& edit)
{
    const std::size_t hash =
        mixed(std::hash<std::string_view>()(edit.groups), reinterpret_cast<std::size_t>(row.data()));
    return mixed(hash, reinterpret_cast<std::size_t>(edit.part) + static_cast<std::size_t>(edit.code));
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
