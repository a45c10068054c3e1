// Typed access to the groups of records and other objects by the table of their class: what their operations are made
// of.
#pragma once

#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"
#include "ObjectCore.h"
#include "OdString.h"
#include "RecordTables.h"

namespace oddb
{

/// The groups of one class of objects, in the last of its parts unless another one is named.
class RecordFields
{
public:
    constexpr explicit RecordFields(const DxfClass& cls) : m_class(cls), m_part(*cls.subclasses.back()) {}
    constexpr RecordFields(const DxfClass& cls, std::size_t part) : m_class(cls), m_part(*cls.subclasses[part]) {}

    // Reading; each throws OdError eNotOpenForRead when the object is not open.
    double real(const OdDbObject& object, int code) const;
    /// A value that files keep in degrees, in radians.
    double angle(const OdDbObject& object, int code) const;
    int integer(const OdDbObject& object, int code) const;
    bool flag(const OdDbObject& object, int code, int bit) const { return (integer(object, code) & bit) != 0; }
    OdGePoint2d point2d(const OdDbObject& object, int code) const;
    OdGePoint3d point(const OdDbObject& object, int code) const;
    OdGeVector3d vector(const OdDbObject& object, int code) const { return point(object, code).asVector(); }
    OdString text(const OdDbObject& object, int code) const;
    /// The referenced object or record; null when there is none.
    OdDbStub* stub(const OdDbObject& object, int code) const;
    bool has(const OdDbObject& object, int code) const;

    // Changing; each throws OdError eNotOpenForWrite, and changes nothing, when the object may not be changed.
    void setReal(OdDbObject& object, int code, double value) const;
    void setAngle(OdDbObject& object, int code, double radians) const;
    void setInteger(OdDbObject& object, int code, std::int64_t value) const;
    void setFlag(OdDbObject& object, int code, int bit, bool value) const;
    void setPoint2d(OdDbObject& object, int code, const OdGePoint2d& value) const;
    void setPoint(OdDbObject& object, int code, const OdGePoint3d& value) const;
    void setText(OdDbObject& object, int code, const OdString& value) const;
    void setId(OdDbObject& object, int code, OdDbStub* value) const;
    void setName(OdDbObject& object, int code, OdDbStub* record) const;
    void setGroups(OdDbObject& object, int code, const GroupsBuilder& groups) const;
    void remove(OdDbObject& object, int code) const { setGroups(object, code, GroupsBuilder()); }

private:
    const DxfRow& row(int code) const;

    const DxfClass& m_class;
    const DxfSubclass& m_part;
};

/// Throws OdError eInvalidInput unless the value is finite.
void requireFinite(double value);
/// Throws OdError eInvalidInput unless the value is finite and positive.
void requirePositive(double value);

} // namespace oddb
