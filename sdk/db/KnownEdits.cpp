// The table of edits. An edit that comes for the first time only leaves its hash, so that those that come once keep no
// rows. One that comes again has the choice between a few places, and stays there as long as it is asked for.
#include "KnownEdits.h"

#include <algorithm>
#include <cstring>

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
    return hash ^ hash >> 32;
}

// Eight bytes at a time, at the end some for the second time; most edits have no more than two or three such blocks.
std::size_t mixed(std::size_t hash, std::string_view bytes)
{
    std::size_t block = 0;
    if (bytes.size() >= sizeof block)
    {
        const std::size_t last = bytes.size() - sizeof block;
        for (std::size_t at = 0; at < last; at += sizeof block)
        {
            std::memcpy(&block, bytes.data() + at, sizeof block);
            hash = mixed(hash, block);
        }
        std::memcpy(&block, bytes.data() + last, sizeof block);
        return mixed(hash, block);
    }
    for (const char byte : bytes)
        block = block << 8 | static_cast<unsigned char>(byte);
    return mixed(hash, block);
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
    {
        m_places.resize(kPlaces);
        m_once.resize(kPlaces);
    }
    return &m_places[hash % (kPlaces / kChoice) * kChoice];
}

KnownEdits::Place* KnownEdits::find(Place* places, std::size_t hash, const Groups& row, const RowEdit& edit)
{
    for (Place* place = places; place != places + kChoice; ++place)
        if (place->hash == hash && place->answers(row, edit))
        {
            place->isUsed = true;
            return place;
        }
    return nullptr;
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

bool KnownEdits::cameBefore(std::size_t hash)
{
    std::array<std::size_t, kChoice>& latest = m_once[hash % kPlaces];
    if (std::find(latest.begin(), latest.end(), hash) != latest.end())
        return true;
    std::copy_backward(latest.begin(), latest.end() - 1, latest.end());
    latest.front() = hash;
    return false;
}

void KnownEdits::remember(Place* places, std::size_t hash, const Groups& row, const RowEdit& edit, const Groups& result)
{
    if (!cameBefore(hash))
        return;
    Place& given = placeToGive(places);
    given.hash = hash;
    given.isUsed = true;
    given.subject = edit.subject;
    given.part = edit.part;
    given.code = edit.code;
    given.groups = edit.groups;
    given.before = row;
    given.after = result;
}

// The row comes last, for what comes last is mixed least: addresses differ in their lower bits, numbers in all.
std::size_t KnownEdits::hashOf(const Groups& row, const RowEdit& edit)
{
    const std::size_t what = reinterpret_cast<std::size_t>(edit.part) + static_cast<std::size_t>(edit.code);
    return mixed(mixed(what, edit.groups), reinterpret_cast<std::size_t>(row.data()));
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
