// Finds the groups of one part of a row, for readers that ask for many of them.
#pragma once

#include <array>

#include "Groups.h"

namespace oddb
{

/// Where the first groups of the parts of a row that a marker begins are. Valid as long as the row is.
class GroupIndex
{
public:
    GroupIndex(const Groups& groups, Atom subclass);

    /// The same as groups.find(subclass, code).
    std::optional<GroupView> find(const Groups& groups, Atom subclass, int code) const;

private:
    static constexpr std::size_t kMost = 24;

    std::array<std::int16_t, kMost> m_codes;
    std::array<const std::uint8_t*, kMost> m_items;
    std::size_t m_count = 0;
    bool m_isWhole = true; ///< else there are groups that it does not know
};

} // namespace oddb
