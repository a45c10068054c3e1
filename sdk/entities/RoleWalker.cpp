// Implements the walk over groups by their roles.
#include "entities/RoleWalker.h"

#include "entities/Ocs.h"
#include "entities/Transform.h"

namespace transform
{

using oddb::GroupIterator;
using oddb::GroupType;
using oddb::GroupView;

bool RoleWalker::enter(const GroupView& group)
{
    if (group.beginsSection())
    {
        m_marker = group.code() == 100 ? group.text() : std::string_view();
        m_blocks.clear();
    }
    else if (group.code() < 300 || group.code() > 309 || !enterBlock(group))
        return false;
    findSection();
    return true;
}

/// Blocks open with "NAME{" and close with "}", in groups 300 to 309.
bool RoleWalker::enterBlock(const GroupView& group)
{
    std::string_view text = group.text();
    if (text == "}" && !m_blocks.empty())
    {
        m_blocks.pop_back();
        return true;
    }
    if (text.empty() || text.back() != '{')
        return false;
    text.remove_suffix(1);
    m_blocks.push_back(text);
    return true;
}

void RoleWalker::findSection()
{
    m_section = findRoles(m_marker, m_blocks.empty() ? std::string_view() : m_blocks.back());
}

const RoleRow* RoleWalker::roleOf(const GroupView& group) const
{
    if (!m_section || group.type() != GroupType::Real)
        return nullptr;
    for (const RoleRow& row : m_section->rows)
    {
        if (row.code == group.code())
            return &row;
    }
    return nullptr;
}

Coordinates::Coordinates(GroupIterator& group, const GroupIterator& end)
{
    const int code = group->code();
    do
        at[count++] = (group++)->real();
    while (count < 3 && group != end && group->code() == code + 10 * count && group->type() == GroupType::Real);
}

Places placesOf(const oddb::Groups& groups)
{
    Places places;
    const ocs::Frame plane = ocs::frameOf(normalOf(groups));
    RoleWalker walker;
    bool inPath = false;
    for (GroupIterator at = groups.begin(); at != groups.end();)
    {
        inPath = !walker.enter(*at) && inPath;
        const RoleRow* row = walker.roleOf(*at);
        if (!row || (row->role != Role::Place && row->role != Role::PlacePlane))
        {
            ++at;
            continue;
        }
        OdGePoint3d point = Coordinates(at, groups.end()).point();
        if (row->role == Role::PlacePlane)
            point = plane.toWorld(point);
        if (!row->isPath)
            places.points.push_back(point);
        else if (inPath)
            places.paths.back().push_back(point);
        else
            places.paths.push_back({point});
        inPath = inPath || row->isPath;
    }
    return places;
}

} // namespace transform
