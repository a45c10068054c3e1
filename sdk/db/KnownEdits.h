// What edits have made of rows that several objects of a drawing share. Objects that are made alike go through the same
// edits one after the other: they share what comes out, and each edit but the first few costs a look-up.
//
//   row of new texts --layer "0"--> row --height 2.5--> row --width 38--> row --contents--> a row of one object
//                         known            known           known
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Groups.h"

class OdDbObject;

namespace oddb
{

/// One edit: what is done, told apart by two addresses and a number, and with which groups.
struct RowEdit
{
    RowEdit(const void* editSubject, const void* editPart, int editCode, const GroupsBuilder& editGroups)
        : subject(editSubject), part(editPart), code(editCode),
          groups(reinterpret_cast<const char*>(editGroups.begin()), editGroups.size())
    {
    }

    const void* subject;
    const void* part;
    int code;
    std::string_view groups;
};

class KnownEdits
{
public:
    /// The edits of the drawing that the object is resident in, null when it is in none.
    static KnownEdits* of(const OdDbObject& object);

    /// Gives a new object the row of the one of its class that was made before it, when both are the same.
    void shareRow(OdDbObject& object);

    /// What the edit makes of a row: as it is known, or by make(), which depends on nothing but row and edit.
    template<class Make>
    Groups result(const Groups& row, const RowEdit& edit, Make make)
    {
        if (!isShared(row) || edit.groups.size() > kLongest)
            return make();
        const std::size_t hash = hashOf(row, edit);
        Place* const places = placesOf(hash);
        if (Place* const known = find(places, hash, row, edit))
            return known->after;
        Groups after = make();
        remember(places, hash, row, edit, after);
        return after;
    }

private:
    static constexpr std::size_t kPlaces = 1024;
    static constexpr std::size_t kChoice = 4;     ///< places next to each other where an edit may be kept
    static constexpr std::size_t kLongest = 1024; ///< in bytes: longer groups are not compared

    /// An edit that came again.
    struct Place
    {
        bool answers(const Groups& row, const RowEdit& edit) const;

        std::size_t hash = 0;
        bool isUsed = false; ///< since places were sought among these last: not to be given away
        const void* subject = nullptr;
        const void* part = nullptr;
        int code = 0;
        std::string groups;
        Groups before; ///< held, so that no other row gets its address
        Groups after;
    };

    /// True when others have the row than one object and who is editing it.
    static bool isShared(const Groups& row) { return row.data() && row.data()->references > 2; }
    static std::size_t hashOf(const Groups& row, const RowEdit& edit);
    Place* placesOf(std::size_t hash);
    static Place* find(Place* places, std::size_t hash, const Groups& row, const RowEdit& edit);
    void remember(Place* places, std::size_t hash, const Groups& row, const RowEdit& edit, const Groups& result);
    static Place& placeToGive(Place* places);
    /// False, and noted, when an edit of this hash has not come lately.
    bool cameBefore(std::size_t hash);

    std::vector<Place> m_places; ///< by hash; none before the first edit
    /// By hash: the hashes of the edits that came latest and are in no place.
    std::vector<std::array<std::size_t, kChoice>> m_once;
    std::unordered_map<const void*, Groups> m_newRows; ///< by class
};

/// What an edit makes of the row of an object.
template<class Make>
Groups resultOfEdit(const OdDbObject& object, const Groups& row, const RowEdit& edit, Make make)
{
    KnownEdits* known = KnownEdits::of(object);
    return known ? known->result(row, edit, make) : make();
}

} // namespace oddb
