// The tables of classes, and the values of groups by their rows.
#include "DxfClassTable.h"

#include <unordered_map>

#include "ObjectCore.h"

namespace oddb
{

namespace
{

int coordinateCount(DxfKind kind)
{
    return kind == DxfKind::Point3d ? 3 : kind == DxfKind::Point2d ? 2 : 1;
}

struct Registry
{
    std::unordered_map<std::string_view, const DxfClass*> byDxfName;
    std::unordered_map<std::string_view, const DxfClass*> byClassName;
    std::unordered_map<const OdRxClass*, const DxfClass*> known; ///< answers given before
};

Registry& registry()
{
    static Registry theRegistry;
    return theRegistry;
}

const DxfClass* find(const std::unordered_map<std::string_view, const DxfClass*>& classes, std::string_view name)
{
    auto found = classes.find(name);
    return found == classes.end() ? nullptr : found->second;
}

} // namespace

// ---- Classes -------------------------------------------------------------------------------------------------------

const DxfRow* DxfSubclass::findRow(int code) const
{
    for (const DxfRow& row : rows)
        if (row.code == code)
            return &row;
    for (const DxfRow& row : rows)
        for (int i = 1; i < coordinateCount(row.kind); ++i)
            if (row.code + 10 * i == code)
                return &row;
    return nullptr;
}

void DxfSubclass::index() const
{
    atom();
    for (std::size_t i = 0; i < rows.size() && i < 0xFF; ++i)
        if (std::uint8_t& usual = usualRows[static_cast<unsigned int>(rows[i].code) % std::size(usualRows)]; usual == 0)
            usual = static_cast<std::uint8_t>(i + 1);
}

Atom DxfSubclass::atom() const
{
    if (knownAtom.empty())
        knownAtom = Atom(marker);
    return knownAtom;
}

const DxfSubclass* DxfClass::subclass(std::string_view marker) const
{
    for (const DxfSubclass* known : subclasses)
        if (known->marker == marker)
            return known;
    return nullptr;
}

int DxfClass::position(std::string_view marker) const
{
    for (std::size_t i = 0; i < subclasses.size(); ++i)
        if (subclasses[i]->marker == marker)
            return static_cast<int>(i);
    return -1;
}

void registerDxfClasses(std::span<const DxfClass> classes)
{
    registry().known.clear();
    for (const DxfClass& known : classes)
    {
        registry().byDxfName.insert_or_assign(known.dxfName, &known);
        registry().byClassName.insert_or_assign(known.className, &known);
        for (const DxfSubclass* const subclass : known.subclasses)
            subclass->index();
    }
}

const DxfClass* findDxfClass(std::string_view dxfName)
{
    return find(registry().byDxfName, dxfName);
}

const DxfClass* findDxfClassOfRuntimeClass(std::string_view className)
{
    return find(registry().byClassName, className);
}

const DxfClass* dxfClassOf(const OdDbObject& object)
{
    const auto [place, isNew] = registry().known.try_emplace(object.isA(), nullptr);
    for (const OdRxClass* cls = place->first; isNew && cls && !place->second; cls = cls->myParent())
        place->second = findDxfClassOfRuntimeClass(odStringToUtf8(cls->name()));
    return place->second;
}

// ---- Reading -------------------------------------------------------------------------------------------------------

double readReal(const std::optional<GroupView>& group, const DxfRow& row)
{
    return group ? group->real() : row.number;
}

std::int64_t readInteger(const std::optional<GroupView>& group, const DxfRow& row)
{
    return group ? group->integer() : static_cast<std::int64_t>(row.number);
}

std::string_view readText(const std::optional<GroupView>& group, const DxfRow& row)
{
    return group ? group->text() : std::string_view(row.text);
}

OdDbStub* readStub(const OdDbDatabase* database, const std::optional<GroupView>& group, const DxfRow& row)
{
    if (group && group->type() != GroupType::Text)
        return group->stub();
    const std::string_view name = group ? group->text() : std::string_view(row.text);
    return database && !name.empty() ? findSymbol(*database, row.table, name) : nullptr;
}

Coordinates readPoint(const Groups& groups, const std::optional<GroupView>& first, const DxfRow& row)
{
    double values[3] = {row.number, row.number, row.number};
    if (!first)
        return {values[0], values[1], row.kind == DxfKind::Point2d ? 0.0 : values[2]};
    values[2] = 0.0;
    GroupIterator at(first->item());
    for (int i = 0; i < 3 && at != groups.end() && at->code() == row.code + 10 * i; ++i, ++at)
        values[i] = at->real();
    return {values[0], values[1], values[2]};
}

double readReal(const Groups& groups, Atom subclass, const DxfRow& row, int occurrence)
{
    return readReal(groups.find(subclass, row.code, occurrence), row);
}

std::int64_t readInteger(const Groups& groups, Atom subclass, const DxfRow& row, int occurrence)
{
    return readInteger(groups.find(subclass, row.code, occurrence), row);
}

std::string_view readText(const Groups& groups, Atom subclass, const DxfRow& row, int occurrence)
{
    return readText(groups.find(subclass, row.code, occurrence), row);
}

OdDbStub* readStub(const OdDbDatabase* database, const Groups& groups, Atom subclass, const DxfRow& row)
{
    return readStub(database, groups.find(subclass, row.code), row);
}

Coordinates readPoint(const Groups& groups, Atom subclass, const DxfRow& row, int occurrence)
{
    return readPoint(groups, groups.find(subclass, row.code, occurrence), row);
}

// ---- Editing -------------------------------------------------------------------------------------------------------

Groups withReal(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code, double value)
{
    GroupsBuilder group;
    return withGroups(groups, cls, subclass, code, group.real(code, value));
}

Groups withInteger(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code, std::int64_t value)
{
    GroupsBuilder group;
    return withGroups(groups, cls, subclass, code, group.integer(code, value));
}

Groups withText(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code,
                std::string_view value)
{
    GroupsBuilder group;
    return withGroups(groups, cls, subclass, code, group.text(code, value));
}

Groups withId(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code, OdDbStub* value)
{
    GroupsBuilder group;
    return withGroups(groups, cls, subclass, code, group.id(code, value));
}

Groups withName(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code, OdDbStub* record)
{
    GroupsBuilder group;
    return withGroups(groups, cls, subclass, code, group.name(code, record));
}

GroupsBuilder& appendPoint(GroupsBuilder& groups, const DxfSubclass& subclass, int code, Coordinates value)
{
    const DxfRow* row = subclass.row(code);
    if (row && row->kind == DxfKind::Point2d)
        return groups.point(code, value.x, value.y);
    return groups.point(code, value.x, value.y, value.z);
}

Groups withPoint(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code, Coordinates value)
{
    GroupsBuilder group;
    return withGroups(groups, cls, subclass, code, appendPoint(group, subclass, code, value));
}

Groups without(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code)
{
    return withGroups(groups, cls, subclass, code, GroupsBuilder());
}

} // namespace oddb
