// Typed values in memory, one behind the other.
#include "MemoryFilers.h"

#include <cstring>

#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeVector2d.h"
#include "Ge/GeVector3d.h"
#include "GroupCodes.h"
#include "OdError.h"

namespace oddb
{

namespace
{

struct Pair
{
    double x, y;
};

struct Triple
{
    double x, y, z;
};

} // namespace

OdSmartPtr<MemoryDwgFiler> MemoryDwgFiler::create(FilerType type, OdDbDatabase* database)
{
    OdSmartPtr<MemoryDwgFiler> filer = OdRxObjectImpl<MemoryDwgFiler>::createObject();
    filer->begin(type, database);
    return filer;
}

void MemoryDwgFiler::begin(FilerType type, OdDbDatabase* database)
{
    m_type = type;
    m_database = database;
    m_written.clear();
    m_groups.clear();
    m_source = {};
    m_position = 0;
    m_translate = {};
}

void MemoryDwgFiler::beginReading(FilerType type, OdDbDatabase* database, Translate translate)
{
    m_type = type;
    m_database = database;
    m_position = 0;
    m_translate = std::move(translate);
}

void MemoryDwgFiler::setBytes(std::span<const std::uint8_t> bytes)
{
    m_groups.clear();
    m_source = bytes;
    m_position = 0;
}

void MemoryDwgFiler::seek(OdInt64 offset, SeekType seekType)
{
    const auto size = static_cast<OdInt64>(m_source.size());
    const OdInt64 origin = seekType == kSeekFromStart ? 0 : seekType == kSeekFromEnd ? size : OdInt64(m_position);
    if (offset < -origin || offset > size - origin)
        throw OdError(eEndOfFile);
    m_position = static_cast<std::size_t>(origin + offset);
}

// ---- Bytes ---------------------------------------------------------------------------------------------------------

// Writing always appends, wherever reading has got to.
void MemoryDwgFiler::put(const void* bytes, std::size_t size)
{
    const auto* from = static_cast<const std::uint8_t*>(bytes);
    m_written.insert(m_written.end(), from, from + size);
    m_source = m_written;
    m_position = m_source.size();
}

// The payload of the value that comes next; the position stays.
const std::uint8_t* MemoryDwgFiler::peek(Tag tag, std::size_t size) const
{
    if (m_position >= m_source.size())
        throw OdError(eEndOfFile);
    if (m_source[m_position] != static_cast<std::uint8_t>(tag))
        throw OdError(eDwgObjectImproperlyRead);
    if (m_source.size() - m_position - 1 < size)
        throw OdError(eEndOfFile);
    return m_source.data() + m_position + 1;
}

void MemoryDwgFiler::writeText(Tag tag, std::string_view text)
{
    if (text.size() > UINT32_MAX)
        throw OdError(eOutOfRange);
    write(tag, static_cast<std::uint32_t>(text.size()));
    put(text.data(), text.size());
}

std::string_view MemoryDwgFiler::readText(Tag tag)
{
    std::uint32_t length;
    std::memcpy(&length, peek(tag, sizeof length), sizeof length);
    const std::uint8_t* payload = peek(tag, sizeof length + length);
    m_position += 1 + sizeof length + length;
    return {reinterpret_cast<const char*>(payload + sizeof length), length};
}

// ---- Values --------------------------------------------------------------------------------------------------------

bool MemoryDwgFiler::rdBool()
{
    return read<std::uint8_t>(Tag::Bool) != 0;
}

OdString MemoryDwgFiler::rdString()
{
    return odUtf8ToString(readText(Tag::String));
}

void MemoryDwgFiler::rdBytes(void* buffer, OdUInt32 numBytes)
{
    const std::size_t start = m_position;
    const std::string_view bytes = readText(Tag::Bytes);
    if (bytes.size() != numBytes)
    {
        m_position = start;
        throw OdError(eDwgObjectImproperlyRead);
    }
    if (numBytes)
        std::memcpy(buffer, bytes.data(), numBytes);
}

OdInt8 MemoryDwgFiler::rdInt8()
{
    return read<OdInt8>(Tag::Int8);
}

OdInt16 MemoryDwgFiler::rdInt16()
{
    return read<OdInt16>(Tag::Int16);
}

OdInt32 MemoryDwgFiler::rdInt32()
{
    return read<OdInt32>(Tag::Int32);
}

OdInt64 MemoryDwgFiler::rdInt64()
{
    return read<OdInt64>(Tag::Int64);
}

double MemoryDwgFiler::rdDouble()
{
    return read<double>(Tag::Double);
}

OdDbHandle MemoryDwgFiler::rdDbHandle()
{
    return read<OdUInt64>(Tag::Handle);
}

OdGePoint2d MemoryDwgFiler::rdPoint2d()
{
    const Pair pair = read<Pair>(Tag::Point2d);
    return OdGePoint2d(pair.x, pair.y);
}

OdGePoint3d MemoryDwgFiler::rdPoint3d()
{
    const Triple triple = read<Triple>(Tag::Point3d);
    return OdGePoint3d(triple.x, triple.y, triple.z);
}

OdGeVector2d MemoryDwgFiler::rdVector2d()
{
    const Pair pair = read<Pair>(Tag::Point2d);
    return OdGeVector2d(pair.x, pair.y);
}

OdGeVector3d MemoryDwgFiler::rdVector3d()
{
    const Triple triple = read<Triple>(Tag::Point3d);
    return OdGeVector3d(triple.x, triple.y, triple.z);
}

OdGeScale3d MemoryDwgFiler::rdScale3d()
{
    const Triple triple = read<Triple>(Tag::Point3d);
    return OdGeScale3d(triple.x, triple.y, triple.z);
}

void MemoryDwgFiler::wrBool(bool value)
{
    write(Tag::Bool, static_cast<std::uint8_t>(value));
}

void MemoryDwgFiler::wrString(const OdString& value)
{
    writeText(Tag::String, odStringToUtf8(value));
}

void MemoryDwgFiler::wrBytes(const void* buffer, OdUInt32 numBytes)
{
    writeText(Tag::Bytes, {static_cast<const char*>(buffer), numBytes});
}

void MemoryDwgFiler::wrInt8(OdInt8 value)
{
    write(Tag::Int8, value);
}

void MemoryDwgFiler::wrInt16(OdInt16 value)
{
    write(Tag::Int16, value);
}

void MemoryDwgFiler::wrInt32(OdInt32 value)
{
    write(Tag::Int32, value);
}

void MemoryDwgFiler::wrInt64(OdInt64 value)
{
    write(Tag::Int64, value);
}

void MemoryDwgFiler::wrDouble(double value)
{
    write(Tag::Double, value);
}

void MemoryDwgFiler::wrDbHandle(const OdDbHandle& value)
{
    write(Tag::Handle, static_cast<OdUInt64>(value));
}

void MemoryDwgFiler::wrPoint2d(const OdGePoint2d& value)
{
    write(Tag::Point2d, Pair{value.x, value.y});
}

void MemoryDwgFiler::wrPoint3d(const OdGePoint3d& value)
{
    write(Tag::Point3d, Triple{value.x, value.y, value.z});
}

void MemoryDwgFiler::wrVector2d(const OdGeVector2d& value)
{
    write(Tag::Point2d, Pair{value.x, value.y});
}

void MemoryDwgFiler::wrVector3d(const OdGeVector3d& value)
{
    write(Tag::Point3d, Triple{value.x, value.y, value.z});
}

void MemoryDwgFiler::wrScale3d(const OdGeScale3d& value)
{
    write(Tag::Point3d, Triple{value.sx, value.sy, value.sz});
}

// The parts that deal with ids and shared rows are in another file.
template void MemoryDwgFiler::write<OdDbStub*>(Tag, OdDbStub* const&);
template OdDbStub* MemoryDwgFiler::read<OdDbStub*>(Tag);
template void MemoryDwgFiler::write<std::uint32_t>(Tag, const std::uint32_t&);

} // namespace oddb
