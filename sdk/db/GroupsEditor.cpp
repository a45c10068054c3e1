// Editing rows of groups by the tables of classes: what is there is replaced in its place, and what is missing comes
// where the class has it.
#include <algorithm>
#include <bitset>
#include <unordered_map>

#include "DxfClassTable.h"

namespace oddb
{

namespace
{

// The items [first, last) of one part of a row, behind its marker.
struct Section
{
    const std::uint8_t* first;
    const std::uint8_t* last;
};

/// The codes that a subclass has behind one of its rows: those with row(code) > row.
class CodesBehind
{
public:
    CodesBehind(const DxfSubclass& subclass, const DxfRow& row)
    {
        for (int code = 0; code < static_cast<int>(m_behind.size()); ++code)
            m_behind[static_cast<std::size_t>(code)] = subclass.row(code) > &row;
    }

    /// The answer for a row of a table, which never goes.
    static const CodesBehind& of(const DxfSubclass& subclass, const DxfRow& row)
    {
        thread_local std::unordered_map<const DxfRow*, CodesBehind> known;
        return known.try_emplace(&row, subclass, row).first->second;
    }

    bool contains(int code) const
    {
        return code >= 0 && code < static_cast<int>(m_behind.size()) && m_behind[static_cast<std::size_t>(code)];
    }

private:
    std::bitset<1100> m_behind; // no code is greater than 1071
};

class Editor
{
public:
    Editor(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code,
           const GroupsBuilder& replacement)
        : m_groups(groups), m_class(cls), m_subclass(subclass), m_code(code), m_row(subclass.row(code)),
          m_replacement(replacement)
    {
    }

    Groups edit() const
    {
        const Places places = find();
        if (places.group)
            return replaceFrom(*places.group);
        if (m_replacement.empty())
            return m_groups;
        if (places.section)
            return insertAt(findPlace(*places.section));
        return insertSection();
    }

private:
    const std::uint8_t* begin() const { return m_groups.begin()->item(); }
    const std::uint8_t* end() const { return m_groups.end()->item(); }

    static bool beginsSection(int code) { return code == 100 || code == 101; }

    // Walks the groups of [first, last) that belong to the class itself, not to application data inside of it.
    // Stops and returns true when visit, which gets the code as well, returns true.
    template<class Visit>
    static bool visitOwn(const std::uint8_t* first, const std::uint8_t* last, Visit visit)
    {
        bool inside = false;
        for (GroupView group(first); group.item() != last; group = GroupView(group.next()))
        {
            const int code = group.code();
            if (code == 102)
                inside = group.text().starts_with('{');
            else if (!inside && visit(group, code))
                return true;
        }
        return false;
    }

    // What a walk over the row finds.
    struct Places
    {
        std::optional<Section> group;   // the first group of the row in any part with the marker
        std::optional<Section> section; // while there is none: the part that it belongs to
    };

    Places find() const
    {
        Places places;
        const Atom marker = m_subclass.atom();
        int before = ordinalOfSubclass();
        bool marked = false;
        visitOwn(begin(), end(),
                 [&](const GroupView& group, int code)
                 {
                     if (beginsSection(code))
                     {
                         if (places.section && places.section->last == end())
                             places.section->last = group.item();
                         marked = group.atom() == marker;
                         if (marked && before-- == 0)
                             places.section = Section{group.next(), end()};
                     }
                     else if (marked && code == m_code)
                     {
                         places.group = Section{group.item(), behindCoordinates(group, end())};
                         return true;
                     }
                     return false;
                 });
        return places;
    }

    int ordinalOfSubclass() const
    {
        int ordinal = 0;
        for (const DxfSubclass* known : m_class.subclasses)
        {
            if (known == &m_subclass)
                break;
            ordinal += known->atom() == m_subclass.atom();
        }
        return ordinal;
    }

    // The next group of the row in the same part, with the coordinates that follow it.
    std::optional<Section> findGroup(const std::uint8_t* first) const
    {
        std::optional<Section> found;
        visitOwn(first, end(),
                 [&](const GroupView& group, int code)
                 {
                     if (code == m_code)
                         found = Section{group.item(), behindCoordinates(group, end())};
                     return found || beginsSection(code);
                 });
        return found;
    }

    const std::uint8_t* behindCoordinates(const GroupView& group, const std::uint8_t* last) const
    {
        const int coordinates = !m_row                            ? 1
                                : m_row->kind == DxfKind::Point3d ? 3
                                : m_row->kind == DxfKind::Point2d ? 2
                                                                  : 1;
        const std::uint8_t* at = group.next();
        for (int i = 1; i < coordinates && at != last && GroupView(at).code() == m_code + 10 * i; ++i)
            at = GroupView(at).next();
        return at;
    }

    // Where the row's group belongs: in front of the first group that the class has behind it.
    const std::uint8_t* findPlace(const Section& section) const
    {
        const std::uint8_t* place = section.last;
        if (!m_row)
            return place;
        const CodesBehind& behind = CodesBehind::of(m_subclass, *m_row);
        visitOwn(section.first, section.last,
                 [&](const GroupView& group, int code)
                 {
                     if (!behind.contains(code))
                         return false;
                     place = group.item();
                     return true;
                 });
        return place;
    }

    Groups insertAt(const std::uint8_t* place) const { return m_groups.spliced(place, place, m_replacement); }

    Groups replaceFrom(Section found) const
    {
        const bool isSame = static_cast<std::size_t>(found.last - found.first) == m_replacement.size() &&
                            std::equal(found.first, found.last, m_replacement.begin());
        if (isSame && (!m_row || !m_row->repeats))
            return m_groups;
        if (!m_row || !m_row->repeats)
            return m_groups.spliced(found.first, found.last, m_replacement);
        GroupsBuilder edited;
        edited.appendItems(begin(), found.first).appendItems(m_replacement.begin(), m_replacement.end());
        const std::uint8_t* copied = found.last;
        for (std::optional<Section> next = findGroup(copied); next; next = findGroup(copied))
        {
            edited.appendItems(copied, next->first);
            copied = next->last;
        }
        edited.appendItems(copied, end());
        return edited.build();
    }

    // Puts the marker and the groups in front of the first part that the class has behind it.
    Groups insertSection() const
    {
        const int position = m_class.position(m_subclass.marker);
        const std::uint8_t* place = end();
        visitOwn(begin(), end(),
                 [&](const GroupView& group, int code)
                 {
                     if (!beginsSection(code) || (code == 100 && m_class.position(group.text()) <= position))
                         return false;
                     place = group.item();
                     return true;
                 });
        GroupsBuilder section;
        section.atom(100, m_subclass.atom()).appendItems(m_replacement.begin(), m_replacement.end());
        return m_groups.spliced(place, place, section);
    }

    const Groups& m_groups;
    const DxfClass& m_class;
    const DxfSubclass& m_subclass;
    int m_code;
    const DxfRow* m_row;
    const GroupsBuilder& m_replacement;
};

} // namespace

Groups withGroups(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code,
                  const GroupsBuilder& replacement)
{
    return Editor(groups, cls, subclass, code, replacement).edit();
}

} // namespace oddb
