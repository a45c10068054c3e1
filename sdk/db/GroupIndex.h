// Finds the groups of one part of a row, for readers that ask for many of them.
#pragma once

#include <array>

#include "Groups.h"

namespace oddb
{

/// Told of all groups of a row in their order, it says which belong to the parts that a marker begins.
class PartWalk
{
public:
    explicit PartWalk(Atom marker) : m_marker(marker), m_isInPart(marker.empty()) {}

    /// True for the part's own groups, which are neither markers nor application data.
    bool owns(const GroupView& group, int code)
    {
        if (code < 100 || code > 102)
            return m_isInPart && !m_isInApplicationData;
        return ownsBetweenParts(group, code);
    }

private:
    bool ownsBetweenParts(const GroupView& group, int code);

    Atom m_marker;
    bool m_isInPart;
    bool m_isInApplicationData = false;
};

/// Where the first groups of the parts of a row that a marker begins are. It walks over the row once, only as far as
/// it has to. Valid as long as the row is.
class GroupIndex
{
public:
    GroupIndex(const Groups& groups, Atom subclass)
        : m_next(groups.begin()->item()), m_end(groups.end()->item()), m_part(subclass)
    {
    }

    /// The same as groups.find(subclass, code).
    std::optional<GroupView> find(int code)
    {
        for (std::size_t i = 0; i < m_count; ++i)
            if (m_codes[i] == code)
                return GroupView(m_items[i]);
        return m_next != m_end ? findFarther(code) : std::nullopt;
    }

private:
    /// Beyond, groups are those of many points, which are not looked up one by one.
    static constexpr std::size_t kMost = 24;

    std::optional<GroupView> findFarther(int code);

    const std::uint8_t* m_next; ///< what has not been walked over
    const std::uint8_t* m_end;
    PartWalk m_part;
    std::size_t m_count = 0;
    std::array<std::int16_t, kMost> m_codes;
    std::array<const std::uint8_t*, kMost> m_items;
};

} // namespace oddb
