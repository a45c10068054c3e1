// Typed access to groups by the table of the class.
#include "RecordFields.h"

#include <cmath>

#include "OdError.h"

namespace oddb
{

const DxfRow& RecordFields::row(int code) const
{
    const DxfRow* row = m_part.row(code);
    if (!row)
        throw OdError(eInvalidGroupCode);
    return *row;
}

// ---- Reading -------------------------------------------------------------------------------------------------------

double RecordFields::real(const OdDbObject& object, int code) const
{
    return readReal(readableGroups(object), m_part.atom(), row(code));
}

double RecordFields::angle(const OdDbObject& object, int code) const
{
    return OdaToRadian(real(object, code));
}

int RecordFields::integer(const OdDbObject& object, int code) const
{
    return static_cast<int>(readInteger(readableGroups(object), m_part.atom(), row(code)));
}

OdGePoint2d RecordFields::point2d(const OdDbObject& object, int code) const
{
    const Coordinates at = readPoint(readableGroups(object), m_part.atom(), row(code));
    return OdGePoint2d(at.x, at.y);
}

OdGePoint3d RecordFields::point(const OdDbObject& object, int code) const
{
    const Coordinates at = readPoint(readableGroups(object), m_part.atom(), row(code));
    return OdGePoint3d(at.x, at.y, at.z);
}

OdString RecordFields::text(const OdDbObject& object, int code) const
{
    const Groups groups = readableGroups(object);
    return odUtf8ToString(readText(groups, m_part.atom(), row(code)));
}

OdDbStub* RecordFields::stub(const OdDbObject& object, int code) const
{
    return readStub(object.database(), readableGroups(object), m_part.atom(), row(code));
}

bool RecordFields::has(const OdDbObject& object, int code) const
{
    return readableGroups(object).find(m_part.atom(), code).has_value();
}

// ---- Changing ------------------------------------------------------------------------------------------------------

void RecordFields::setReal(OdDbObject& object, int code, double value) const
{
    requireFinite(value);
    ObjectCore::changeGroups(object, withReal(ObjectCore::groups(object), m_class, m_part, code, value));
}

void RecordFields::setAngle(OdDbObject& object, int code, double radians) const
{
    setReal(object, code, OdaToDegree(radians));
}

void RecordFields::setInteger(OdDbObject& object, int code, std::int64_t value) const
{
    ObjectCore::changeGroups(object, withInteger(ObjectCore::groups(object), m_class, m_part, code, value));
}

void RecordFields::setFlag(OdDbObject& object, int code, int bit, bool value) const
{
    const auto flags = readInteger(ObjectCore::groups(object), m_part.atom(), row(code));
    setInteger(object, code, value ? flags | bit : flags & ~std::int64_t(bit));
}

void RecordFields::setPoint2d(OdDbObject& object, int code, const OdGePoint2d& value) const
{
    setPoint(object, code, OdGePoint3d(value.x, value.y, 0.0));
}

void RecordFields::setPoint(OdDbObject& object, int code, const OdGePoint3d& value) const
{
    for (const double coordinate : {value.x, value.y, value.z})
        requireFinite(coordinate);
    ObjectCore::changeGroups(object,
                             withPoint(ObjectCore::groups(object), m_class, m_part, code, {value.x, value.y, value.z}));
}

void RecordFields::setText(OdDbObject& object, int code, const OdString& value) const
{
    ObjectCore::changeGroups(object,
                             withText(ObjectCore::groups(object), m_class, m_part, code, odStringToUtf8(value)));
}

void RecordFields::setId(OdDbObject& object, int code, OdDbStub* value) const
{
    ObjectCore::changeGroups(object, withId(ObjectCore::groups(object), m_class, m_part, code, value));
}

void RecordFields::setName(OdDbObject& object, int code, OdDbStub* record) const
{
    ObjectCore::changeGroups(object, withName(ObjectCore::groups(object), m_class, m_part, code, record));
}

void RecordFields::setGroups(OdDbObject& object, int code, const GroupsBuilder& groups) const
{
    ObjectCore::changeGroups(object, withGroups(ObjectCore::groups(object), m_class, m_part, code, groups));
}

// ---- Checks --------------------------------------------------------------------------------------------------------

void requireFinite(double value)
{
    if (!std::isfinite(value))
        throw OdError(eInvalidInput);
}

void requirePositive(double value)
{
    requireFinite(value);
    if (value <= 0.0)
        throw OdError(eInvalidInput);
}

} // namespace oddb
