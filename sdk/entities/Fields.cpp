// Implements typed access to groups.
#include "entities/Fields.h"

#include <cmath>

#include "OdError.h"
#include "db/KnownEdits.h"
#include "db/Stub.h"
#include "db/SymbolNames.h"
#include "entities/EntityClasses.h"
#include "entities/Ocs.h"

namespace entityfields
{

using oddb::DxfClass;
using oddb::DxfRow;
using oddb::DxfSubclass;
using oddb::GroupsBuilder;
using oddb::ObjectCore;

Reader::Reader(const OdDbObject& object, const DxfSubclass& table, oddb::Atom atom)
    : m_object(object), m_groups((object.assertReadEnabled(), groupsOf(object))), m_table(table), m_atom(atom),
      m_index(m_groups, atom)
{
}

Reader Reader::in(const DxfSubclass& table) const
{
    Reader other(m_object, table, table.atom());
    if (other.m_atom == m_atom)
        other.m_index = m_index;
    return other;
}

const DxfRow& Reader::row(int code) const
{
    const DxfRow* row = m_table.row(code);
    if (!row)
        throw OdError(eInvalidGroupCode);
    return *row;
}

double Reader::real(int code) const
{
    const DxfRow& found = row(code);
    return oddb::readReal(find(found.code), found);
}

double Reader::angle(int code) const
{
    return OdaToRadian(real(code));
}

int Reader::integer(int code) const
{
    const DxfRow& found = row(code);
    return static_cast<int>(oddb::readInteger(find(found.code), found));
}

OdGePoint3d Reader::point(int code) const
{
    const DxfRow& found = row(code);
    const oddb::Coordinates at = oddb::readPoint(m_groups, find(found.code), found);
    return OdGePoint3d(at.x, at.y, at.z);
}

OdGeVector3d Reader::vector(int code) const
{
    const DxfRow& found = row(code);
    const oddb::Coordinates at = oddb::readPoint(m_groups, find(found.code), found);
    return OdGeVector3d(at.x, at.y, at.z);
}

OdGeVector3d Reader::normal() const
{
    constexpr int kNormal = 210;
    if (!has(kNormal))
        return OdGeVector3d(0.0, 0.0, 1.0);
    return ocs::frameOf(vector(kNormal)).z;
}

OdString Reader::text(int code) const
{
    const DxfRow& found = row(code);
    return odUtf8ToString(oddb::readText(find(found.code), found));
}

OdDbStub* Reader::stub(int code) const
{
    const DxfRow& found = row(code);
    return oddb::readStub(m_object.database(), find(found.code), found);
}

const DxfClass& classOf(const OdDbObject& object)
{
    const DxfClass* found = entityclasses::classOf(object.isA());
    if (!found)
        throw OdError(eNotApplicable);
    return *found;
}

Groups groupsOf(const OdDbObject& object)
{
    Groups groups = ObjectCore::groups(object);
    return groups ? groups : entityclasses::initialGroupsOf(object.isA());
}

void setReal(OdDbObject& object, const DxfSubclass& table, int code, double value)
{
    GroupsBuilder group;
    setGroups(object, table, code, group.real(code, value));
}

void setAngle(OdDbObject& object, const DxfSubclass& table, int code, double radians)
{
    setReal(object, table, code, OdaToDegree(radians));
}

void setInteger(OdDbObject& object, const DxfSubclass& table, int code, std::int64_t value)
{
    GroupsBuilder group;
    setGroups(object, table, code, group.integer(code, value));
}

void setFlag(OdDbObject& object, const DxfSubclass& table, int code, int bit, bool value)
{
    const int flags = Reader(object, table, table.atom()).integer(code);
    setInteger(object, table, code, value ? flags | bit : flags & ~bit);
}

void setPoint(OdDbObject& object, const DxfSubclass& table, int code, const OdGePoint3d& point)
{
    GroupsBuilder groups;
    setGroups(object, table, code, oddb::appendPoint(groups, table, code, {point.x, point.y, point.z}));
}

void setVector(OdDbObject& object, const DxfSubclass& table, int code, const OdGeVector3d& vector)
{
    setPoint(object, table, code, OdGePoint3d(vector.x, vector.y, vector.z));
}

void setText(OdDbObject& object, const DxfSubclass& table, int code, const OdString& text)
{
    GroupsBuilder group;
    setGroups(object, table, code, group.text(code, odStringToUtf8(text)));
}

void setId(OdDbObject& object, const DxfSubclass& table, int code, OdDbStub* stub)
{
    GroupsBuilder group;
    setGroups(object, table, code, group.id(code, stub));
}

void setName(OdDbObject& object, const DxfSubclass& table, int code, OdDbStub* record)
{
    GroupsBuilder group;
    setGroups(object, table, code, group.name(code, record));
}

void remove(OdDbObject& object, const DxfSubclass& table, int code)
{
    setGroups(object, table, code, GroupsBuilder());
}

void setGroups(OdDbObject& object, const DxfSubclass& table, int code, const GroupsBuilder& groups)
{
    const Groups before = groupsOf(object);
    const auto edit = [&] { return withGroups(before, classOf(object), table, code, groups); };
    ObjectCore::changeGroups(object, resultOfEdit(object, before, {object.isA(), &table, code, groups}, edit));
}

OdGeVector3d requireDirection(const OdGeVector3d& vector)
{
    const double length = std::sqrt(vector.x * vector.x + vector.y * vector.y + vector.z * vector.z);
    if (!std::isfinite(length) || length < 1e-12)
        throw OdError(eInvalidInput);
    return vector * (1.0 / length);
}

void requireNotNegative(double value)
{
    if (!std::isfinite(value) || value < 0.0)
        throw OdError(eInvalidInput);
}

void requirePositive(double value)
{
    if (!std::isfinite(value) || value <= 0.0)
        throw OdError(eInvalidInput);
}

void requireRecord(OdDbStub* stub, oddb::SymbolTable table)
{
    if (!stub || !stub->database)
        throw OdError(eInvalidInput);
    if (oddb::findSymbol(*stub->database, table, oddb::symbolName(stub)) != stub)
        throw OdError(eInvalidInput);
}

} // namespace entityfields
