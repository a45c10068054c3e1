// Sorts groups into subclasses by the class table.
#include "Markers.h"

#include "ValueKind.h"

#include <vector>

namespace dxf
{
namespace
{

using oddb::DxfClass;
using oddb::DxfKind;
using oddb::DxfRow;
using oddb::DxfSubclass;
using oddb::GroupsBuilder;
using oddb::GroupView;

struct Placed
{
    GroupView group;
    const DxfRow* row;
    std::size_t part;
    bool taken = false;
};

// The first part that knows the code; what nobody knows belongs to the last part, the class itself.
void place(Placed& item, const DxfClass& cls)
{
    for (item.part = 0; item.part < cls.subclasses.size(); ++item.part)
    {
        item.row = cls.subclasses[item.part]->row(item.group.code());
        if (item.row != nullptr)
            return;
    }
    item.part = cls.subclasses.size() - 1;
}

std::vector<Placed> placeAll(const oddb::Groups& groups, const DxfClass& cls)
{
    std::vector<Placed> placed;
    for (const GroupView& group : groups)
    {
        placed.push_back({group, nullptr, 0});
        place(placed.back(), cls);
    }
    return placed;
}

void append(GroupsBuilder& groups, const Placed& item, SymbolFinder& symbols)
{
    const bool isName =
        item.row != nullptr && item.row->kind == DxfKind::Name && item.group.type() == oddb::GroupType::Text;
    OdDbStub* const record = isName ? symbols.find(item.row->table, item.group.text()) : nullptr;
    if (record != nullptr)
        groups.name(item.group.code(), record);
    else
        groups.append(item.group);
}

bool isPoint(const Placed& item)
{
    return item.row != nullptr && (item.row->kind == DxfKind::Point2d || item.row->kind == DxfKind::Point3d);
}

// Puts the second and third coordinate behind the first, wherever the file has them.
void appendCoordinates(GroupsBuilder& groups, std::vector<Placed>& placed, std::size_t first)
{
    constexpr int kStep = 10;
    constexpr int kCoordinates = 3;
    int expected = placed[first].group.code() + kStep;
    const int end = placed[first].group.code() + kStep * kCoordinates;
    for (std::size_t i = first + 1; i < placed.size() && expected < end; ++i)
    {
        const int code = placed[i].group.code();
        if (code == placed[first].group.code())
            return;
        if (placed[i].taken || code != expected || placed[i].row != placed[first].row)
            continue;
        groups.append(placed[i].group);
        placed[i].taken = true;
        expected += kStep;
    }
}

void appendPart(GroupsBuilder& groups, std::vector<Placed>& placed, std::size_t part, SymbolFinder& symbols)
{
    for (std::size_t i = 0; i < placed.size(); ++i)
    {
        if (placed[i].taken || placed[i].part != part)
            continue;
        placed[i].taken = true;
        append(groups, placed[i], symbols);
        if (isPoint(placed[i]) && placed[i].group.code() == placed[i].row->code)
            appendCoordinates(groups, placed, i);
    }
}

} // namespace

void insertMarkers(GroupsBuilder& groups, const DxfClass& cls, SymbolFinder& symbols)
{
    if (cls.subclasses.empty())
        return;
    const oddb::Groups unsorted = groups.build();
    std::vector<Placed> placed = placeAll(unsorted, cls);
    groups.clear();
    for (std::size_t part = 0; part < cls.subclasses.size(); ++part)
    {
        groups.atom(100, cls.subclasses[part]->atom());
        appendPart(groups, placed, part, symbols);
    }
}

} // namespace dxf
