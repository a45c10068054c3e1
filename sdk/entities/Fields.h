// Typed access to the groups of an object by the tables of its class: what the operations of entities are made of.
#pragma once

#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"
#include "OdString.h"
#include "db/DxfClassTable.h"
#include "db/GroupIndex.h"
#include "db/ObjectCore.h"
#include "entities/EntityTables.h"

namespace entityfields
{

using oddb::Groups;

/// The groups of one subclass of an object that is open.
class Reader
{
public:
    Reader(const OdDbObject& object, const oddb::DxfSubclass& table, oddb::Atom atom);

    /// Another table's groups of the same object.
    Reader in(const oddb::DxfSubclass& table) const;

    bool has(int code) const { return find(code).has_value(); }
    double real(int code) const;
    /// A value that files keep in degrees, in radians.
    double angle(int code) const;
    int integer(int code) const;
    bool flag(int code, int bit) const { return (integer(code) & bit) != 0; }
    OdGePoint3d point(int code) const;
    OdGeVector3d vector(int code) const;
    /// The direction of group 210, the world's z axis when there is none that can serve.
    OdGeVector3d normal() const;
    OdString text(int code) const;
    /// The referenced object or record; null when there is none.
    OdDbStub* stub(int code) const;

    const Groups& groups() const { return m_groups; }
    oddb::Atom atom() const { return m_atom; }

private:
    const oddb::DxfRow& row(int code) const;
    std::optional<oddb::GroupView> find(int code) const { return m_index.find(code); }

    const OdDbObject& m_object;
    Groups m_groups;
    const oddb::DxfSubclass& m_table;
    oddb::Atom m_atom;
    mutable oddb::GroupIndex m_index;
};

/// The interned marker of a table.
template<const oddb::DxfSubclass& table>
oddb::Atom atomOf()
{
    static const oddb::Atom atom = table.atom();
    return atom;
}

/// Throws OdError eNotOpenForRead when the object is not open.
template<const oddb::DxfSubclass& table>
Reader read(const OdDbObject& object)
{
    return Reader(object, table, atomOf<table>());
}

/// The class whose tables the object's groups follow. Throws OdError eNotApplicable for an object without tables.
const oddb::DxfClass& classOf(const OdDbObject& object);

/// The groups of the object; for a new one that has none yet, those that every object of its class begins with.
Groups groupsOf(const OdDbObject& object);

// Each changes one group. Throws OdError eNotOpenForWrite, and changes nothing, when the object may not be changed.
void setReal(OdDbObject& object, const oddb::DxfSubclass& table, int code, double value);
void setAngle(OdDbObject& object, const oddb::DxfSubclass& table, int code, double radians);
void setInteger(OdDbObject& object, const oddb::DxfSubclass& table, int code, std::int64_t value);
void setFlag(OdDbObject& object, const oddb::DxfSubclass& table, int code, int bit, bool value);
void setPoint(OdDbObject& object, const oddb::DxfSubclass& table, int code, const OdGePoint3d& point);
void setVector(OdDbObject& object, const oddb::DxfSubclass& table, int code, const OdGeVector3d& vector);
void setText(OdDbObject& object, const oddb::DxfSubclass& table, int code, const OdString& text);
void setId(OdDbObject& object, const oddb::DxfSubclass& table, int code, OdDbStub* stub);
void setName(OdDbObject& object, const oddb::DxfSubclass& table, int code, OdDbStub* record);
void remove(OdDbObject& object, const oddb::DxfSubclass& table, int code);
void setGroups(OdDbObject& object, const oddb::DxfSubclass& table, int code, const oddb::GroupsBuilder& groups);

/// Returns the vector with length 1. Throws OdError eInvalidInput for one that is zero or not finite.
OdGeVector3d requireDirection(const OdGeVector3d& vector);
/// Throws OdError eInvalidInput unless the value is finite and not negative, or positive.
void requireNotNegative(double value);
void requirePositive(double value);
/// Throws OdError eInvalidInput unless the stub is a record of the table.
void requireRecord(OdDbStub* stub, oddb::SymbolTable table);

} // namespace entityfields
