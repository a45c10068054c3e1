// Reading and writing rows of groups through the operations of a DXF filer.
#include "GroupsDxfFiler.h"

#include <limits>

#include "DbDatabase.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeVector2d.h"
#include "Ge/GeVector3d.h"
#include "GroupCodes.h"
#include "OdError.h"
#include "OdaDefs.h"
#include "Stub.h"

namespace oddb
{

OdSmartPtr<GroupsDxfFiler> GroupsDxfFiler::create(OdDbDatabase* database, FilerType type, OdDb::DwgVersion version)
{
    OdSmartPtr<GroupsDxfFiler> filer = OdRxObjectImpl<GroupsDxfFiler>::createObject();
    filer->m_database = database;
    filer->m_type = type;
    filer->m_version = version;
    return filer;
}

OdSmartPtr<GroupsDxfFiler> GroupsDxfFiler::createReader(const Groups& groups, OdDbDatabase* database, FilerType type)
{
    OdSmartPtr<GroupsDxfFiler> filer = create(database, type);
    filer->m_groups = groups;
    filer->rewindFiler();
    return filer;
}

OdDb::DwgVersion GroupsDxfFiler::dwgVersion(OdDb::MaintReleaseVer* maintenance) const
{
    if (maintenance)
        *maintenance = OdDb::kMRelease0;
    return m_version;
}

// ---- Stepping ------------------------------------------------------------------------------------------------------

void GroupsDxfFiler::rewindFiler()
{
    m_next = m_groups.begin();
    m_current = m_groups.end();
}

// A point is one item: its further coordinates go with the first one.
GroupIterator GroupsDxfFiler::behind(GroupIterator at) const
{
    const int code = at->code();
    const bool isPoint = at->type() == GroupType::Real && groupValue(code) == GroupValue::Point;
    ++at;
    for (int i = 1; isPoint && i < 3 && at != m_groups.end() && at->code() == code + 10 * i; ++i)
        ++at;
    return at;
}

int GroupsDxfFiler::nextItem()
{
    if (m_next == m_groups.end())
        throw OdError(eEndOfFile);
    m_current = m_next;
    m_next = behind(m_next);
    return m_current->code();
}

void GroupsDxfFiler::pushBackItem()
{
    if (m_current == m_groups.end())
        throw OdError(eInvalidContext);
    m_next = m_current;
}

int GroupsDxfFiler::currentGroupCode() const
{
    return current().code();
}

bool GroupsDxfFiler::atEOF()
{
    return m_next == m_groups.end() || m_next->code() == 1001;
}

bool GroupsDxfFiler::atExtendedData()
{
    return m_next != m_groups.end() && m_next->code() == 1001;
}

bool GroupsDxfFiler::atSubclassData(const OdString& subClassName)
{
    if (m_next == m_groups.end() || m_next->code() != 100 || odUtf8ToString(m_next->text()) != subClassName)
        return false;
    nextItem();
    return true;
}

Groups GroupsDxfFiler::rdGroups()
{
    GroupsBuilder builder;
    while (!atEOF())
    {
        const GroupIterator first = m_next;
        nextItem();
        builder.appendItems(first->item(), m_next->item());
    }
    return builder.build();
}

// ---- Reading -------------------------------------------------------------------------------------------------------

const GroupView& GroupsDxfFiler::current() const
{
    if (m_current == m_groups.end())
        throw OdError(eInvalidContext);
    return *m_current;
}

const GroupView& GroupsDxfFiler::current(GroupType type) const
{
    if (current().type() != type)
        throw OdError(eInvalidGroupCode);
    return *m_current;
}

template<class T>
T GroupsDxfFiler::readInteger() const
{
    const std::int64_t value = current(GroupType::Integer).integer();
    if constexpr (sizeof(T) < sizeof(std::int64_t))
    {
        // Files write the upper half of unsigned numbers either way.
        using Signed = std::make_signed_t<T>;
        using Unsigned = std::make_unsigned_t<T>;
        if (value < std::numeric_limits<Signed>::min() || value > std::int64_t(std::numeric_limits<Unsigned>::max()))
            throw OdError(eOutOfRange);
    }
    return static_cast<T>(value);
}

OdString GroupsDxfFiler::rdString()
{
    if (current().type() == GroupType::Id)
        return rdHandle().ascii();
    if (current().type() != GroupType::Name)
        current(GroupType::Text);
    return odUtf8ToString(current().text());
}

bool GroupsDxfFiler::rdBool()
{
    if (current().type() != GroupType::Boolean)
        current(GroupType::Integer);
    return current().boolean();
}

OdInt8 GroupsDxfFiler::rdInt8()
{
    return readInteger<OdInt8>();
}

OdInt16 GroupsDxfFiler::rdInt16()
{
    return readInteger<OdInt16>();
}

OdInt32 GroupsDxfFiler::rdInt32()
{
    return readInteger<OdInt32>();
}

OdInt64 GroupsDxfFiler::rdInt64()
{
    return readInteger<OdInt64>();
}

OdUInt8 GroupsDxfFiler::rdUInt8()
{
    return readInteger<OdUInt8>();
}

OdUInt16 GroupsDxfFiler::rdUInt16()
{
    return readInteger<OdUInt16>();
}

OdUInt32 GroupsDxfFiler::rdUInt32()
{
    return readInteger<OdUInt32>();
}

OdUInt64 GroupsDxfFiler::rdUInt64()
{
    return readInteger<OdUInt64>();
}

OdDbHandle GroupsDxfFiler::rdHandle()
{
    if (current().type() == GroupType::Id)
        return OdDbObjectId(current().stub()).getHandle();
    OdDbHandle handle;
    if (!OdDbHandle::parse(current(GroupType::Text).text(), handle))
        throw OdError(eInvalidGroupCode);
    return handle;
}

OdDbObjectId GroupsDxfFiler::rdObjectId()
{
    if (current().type() == GroupType::Id || current().type() == GroupType::Name)
        return current().stub();
    const OdDbHandle handle = rdHandle();
    return handle.isNull() || !m_database ? OdDbObjectId() : m_database->getOdDbObjectId(handle, true);
}

double GroupsDxfFiler::rdDouble()
{
    return current(GroupType::Real).real();
}

double GroupsDxfFiler::rdAngle()
{
    return OdaToRadian(rdDouble());
}

GroupsDxfFiler::Triple GroupsDxfFiler::readPoint() const
{
    double coordinates[3] = {current(GroupType::Real).real(), 0, 0};
    GroupIterator at = m_current;
    for (int i = 1; i < 3 && ++at != m_next; ++i)
        coordinates[i] = at->real();
    return {coordinates[0], coordinates[1], coordinates[2]};
}

void GroupsDxfFiler::rdPoint2d(OdGePoint2d& point)
{
    const Triple read = readPoint();
    point = OdGePoint2d(read.x, read.y);
}

void GroupsDxfFiler::rdPoint3d(OdGePoint3d& point)
{
    const Triple read = readPoint();
    point = OdGePoint3d(read.x, read.y, read.z);
}

void GroupsDxfFiler::rdVector2d(OdGeVector2d& vector)
{
    const Triple read = readPoint();
    vector = OdGeVector2d(read.x, read.y);
}

void GroupsDxfFiler::rdVector3d(OdGeVector3d& vector)
{
    const Triple read = readPoint();
    vector = OdGeVector3d(read.x, read.y, read.z);
}

void GroupsDxfFiler::rdScale3d(OdGeScale3d& scale)
{
    const Triple read = readPoint();
    scale = OdGeScale3d(read.x, read.y, read.z);
}

void GroupsDxfFiler::rdBinaryChunk(OdBinaryData& chunk)
{
    const std::string_view bytes = current(GroupType::Binary).binary();
    chunk.resize(static_cast<OdUInt32>(bytes.size()));
    if (!bytes.empty())
        std::memcpy(chunk.asArrayPtr(), bytes.data(), bytes.size());
}

// ---- Writing -------------------------------------------------------------------------------------------------------

void GroupsDxfFiler::wrName(const OdString& name)
{
    wrString(0, name);
}

void GroupsDxfFiler::wrString(int groupCode, const OdString& value)
{
    m_text.clear();
    odAppendUtf8(m_text, value.view());
    m_builder.text(groupCode, m_text);
}

void GroupsDxfFiler::wrSubclassMarker(const OdString& value)
{
    wrString(100, value);
}

void GroupsDxfFiler::wrBool(int groupCode, bool value)
{
    m_builder.boolean(groupCode, value);
}

void GroupsDxfFiler::wrInt8(int groupCode, OdInt8 value)
{
    m_builder.integer(groupCode, value);
}

void GroupsDxfFiler::wrInt16(int groupCode, OdInt16 value)
{
    m_builder.integer(groupCode, value);
}

void GroupsDxfFiler::wrInt32(int groupCode, OdInt32 value)
{
    m_builder.integer(groupCode, value);
}

void GroupsDxfFiler::wrInt64(int groupCode, OdInt64 value)
{
    m_builder.integer(groupCode, value);
}

void GroupsDxfFiler::wrUInt8(int groupCode, OdUInt8 value)
{
    m_builder.integer(groupCode, value);
}

// Files hold signed numbers, so the upper half of unsigned ones becomes negative.
void GroupsDxfFiler::wrUInt16(int groupCode, OdUInt16 value)
{
    m_builder.integer(groupCode, static_cast<OdInt16>(value));
}

void GroupsDxfFiler::wrUInt32(int groupCode, OdUInt32 value)
{
    m_builder.integer(groupCode, static_cast<OdInt32>(value));
}

void GroupsDxfFiler::wrUInt64(int groupCode, OdUInt64 value)
{
    m_builder.integer(groupCode, static_cast<OdInt64>(value));
}

void GroupsDxfFiler::wrHandle(int groupCode, OdDbHandle value)
{
    m_builder.text(groupCode, value.text());
}

void GroupsDxfFiler::wrObjectId(int groupCode, OdDbObjectId id)
{
    m_builder.id(groupCode, id);
}

void GroupsDxfFiler::wrDouble(int groupCode, double value, int)
{
    m_builder.real(groupCode, value);
}

void GroupsDxfFiler::wrAngle(int groupCode, double value, int)
{
    m_builder.real(groupCode, OdaToDegree(value));
}

void GroupsDxfFiler::wrPoint2d(int groupCode, const OdGePoint2d& value, int)
{
    m_builder.point(groupCode, value.x, value.y);
}

void GroupsDxfFiler::wrPoint3d(int groupCode, const OdGePoint3d& value, int)
{
    m_builder.point(groupCode, value.x, value.y, value.z);
}

void GroupsDxfFiler::wrVector2d(int groupCode, const OdGeVector2d& value, int)
{
    m_builder.point(groupCode, value.x, value.y);
}

void GroupsDxfFiler::wrVector3d(int groupCode, const OdGeVector3d& value, int)
{
    m_builder.point(groupCode, value.x, value.y, value.z);
}

void GroupsDxfFiler::wrScale3d(int groupCode, const OdGeScale3d& value, int)
{
    m_builder.point(groupCode, value.sx, value.sy, value.sz);
}

void GroupsDxfFiler::wrBinaryChunk(int groupCode, const OdUInt8* buffer, OdUInt32 numBytes)
{
    m_builder.binary(groupCode, {reinterpret_cast<const char*>(buffer), numBytes});
}

} // namespace oddb
