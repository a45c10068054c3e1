// Goes over the groups of an entity knowing which of them hold places, directions and lengths.
#pragma once

#include <string_view>
#include <vector>

#include "Ge/GePoint3d.h"
#include "db/Groups.h"
#include "entities/TransformRoles.h"

namespace transform
{

/// Keeps the part and the block of groups that a walk has come to.
class RoleWalker
{
public:
    /// Called with each group in turn, before its role is asked for. Returns true when another part or block begins.
    bool enter(const oddb::GroupView& group);

    /// The role of a group of the present part; null for one that does not move.
    const RoleRow* roleOf(const oddb::GroupView& group) const;

    /// The rows of the present part, null when nothing in it moves.
    const RoleSection* section() const { return m_section; }

private:
    bool enterBlock(const oddb::GroupView& group);
    void findSection();

    std::string_view m_marker;
    std::vector<std::string_view> m_blocks;
    const RoleSection* m_section = nullptr;
};

/// The two or three coordinates of a point, or the one number of a group, from a row of groups.
struct Coordinates
{
    double at[3] = {0.0, 0.0, 0.0};
    int count = 0;

    /// Reads from the group on and leaves it behind what was read.
    Coordinates(oddb::GroupIterator& group, const oddb::GroupIterator& end);
    OdGePoint3d point() const { return OdGePoint3d(at[0], at[1], at[2]); }
    OdGeVector3d vector() const { return OdGeVector3d(at[0], at[1], at[2]); }
};

/// What can be said of the look of an entity by its groups alone: points, and lines through some of them.
struct Places
{
    std::vector<OdGePoint3d> points;
    std::vector<std::vector<OdGePoint3d>> paths;
};
Places placesOf(const oddb::Groups& groups);

} // namespace transform
