// Making rows of groups, one group after the other, in a buffer that is used again and again.
#include <bit>
#include <limits>
#include <new>

#include "Groups.h"

namespace oddb
{

namespace
{

bool isZero(double value)
{
    return std::bit_cast<std::uint64_t>(value) == 0;
}

bool fitsFloat(double value)
{
    if (!(value >= -3.4e38 && value <= 3.4e38))
        return false;
    return std::bit_cast<std::uint64_t>(static_cast<double>(static_cast<float>(value))) ==
           std::bit_cast<std::uint64_t>(value);
}

template<class T>
bool fits(std::int64_t value)
{
    return value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
}

std::size_t lengthBytes(std::size_t length)
{
    std::size_t bytes = 1;
    while (length >= 0x80)
    {
        length >>= 7;
        ++bytes;
    }
    return bytes;
}

std::uint8_t* writeLength(std::uint8_t* at, std::size_t length)
{
    while (length >= 0x80)
    {
        *at++ = static_cast<std::uint8_t>(length | 0x80);
        length >>= 7;
    }
    *at++ = static_cast<std::uint8_t>(length);
    return at;
}

template<class T>
void write(std::uint8_t* at, T value)
{
    std::memcpy(at, &value, sizeof value);
}

} // namespace

GroupsBuilder::~GroupsBuilder()
{
    if (m_buffer != m_own)
        std::free(m_buffer);
}

void GroupsBuilder::makeRoom(std::size_t size)
{
    std::size_t capacity = 2 * m_capacity;
    while (capacity - m_size < size)
        capacity *= 2;
    void* buffer = std::realloc(m_buffer == m_own ? nullptr : m_buffer, capacity);
    if (!buffer)
        throw std::bad_alloc();
    if (m_buffer == m_own)
        std::memcpy(buffer, m_own, m_size);
    m_buffer = static_cast<std::uint8_t*>(buffer);
    m_capacity = capacity;
}

std::uint8_t* GroupsBuilder::head(int code, Storage storage, std::size_t payload)
{
    std::uint8_t* at = grow(2 + payload);
    write(at, static_cast<std::uint16_t>(((code + 8) & 0x7FF) | static_cast<int>(storage) << 11));
    return at + 2;
}

GroupsBuilder& GroupsBuilder::bytes(int code, Storage storage, std::string_view value)
{
    std::uint8_t* at = writeLength(head(code, storage, lengthBytes(value.size()) + value.size()), value.size());
    if (!value.empty())
        std::memcpy(at, value.data(), value.size());
    return *this;
}

GroupsBuilder& GroupsBuilder::atom(int code, Atom value)
{
    write(head(code, Storage::Atom, 2), value.index());
    return *this;
}

GroupsBuilder& GroupsBuilder::text(int code, std::string_view value)
{
    if (code == 100 || code == 101 || code == 102)
        if (std::optional<Atom> interned = Atom::intern(value))
            return atom(code, *interned);
    return bytes(code, Storage::String, value);
}

GroupsBuilder& GroupsBuilder::real(int code, double value)
{
    if (isZero(value))
        head(code, Storage::Zero, 0);
    else if (fitsFloat(value))
        write(head(code, Storage::Float, 4), static_cast<float>(value));
    else
        write(head(code, Storage::Double, 8), value);
    return *this;
}

GroupsBuilder& GroupsBuilder::integer(int code, std::int64_t value)
{
    if (fits<std::int8_t>(value))
        write(head(code, Storage::Int8, 1), static_cast<std::int8_t>(value));
    else if (fits<std::int16_t>(value))
        write(head(code, Storage::Int16, 2), static_cast<std::int16_t>(value));
    else if (fits<std::int32_t>(value))
        write(head(code, Storage::Int32, 4), static_cast<std::int32_t>(value));
    else
        write(head(code, Storage::Int64, 8), value);
    return *this;
}

GroupsBuilder& GroupsBuilder::boolean(int code, bool value)
{
    write(head(code, Storage::Bool, 1), static_cast<std::uint8_t>(value));
    return *this;
}

GroupsBuilder& GroupsBuilder::id(int code, OdDbStub* stub)
{
    write(head(code, Storage::Id, 8), stub);
    return *this;
}

GroupsBuilder& GroupsBuilder::name(int code, OdDbStub* record)
{
    write(head(code, Storage::Name, 8), record);
    return *this;
}

GroupsBuilder& GroupsBuilder::binary(int code, std::string_view value)
{
    return bytes(code, Storage::Binary, value);
}

GroupsBuilder& GroupsBuilder::point(int code, double x, double y)
{
    return real(code, x).real(code + 10, y);
}

GroupsBuilder& GroupsBuilder::point(int code, double x, double y, double z)
{
    return point(code, x, y).real(code + 20, z);
}

GroupsBuilder& GroupsBuilder::append(const Groups& groups)
{
    return appendItems(groups.begin()->item(), groups.end()->item());
}

GroupsBuilder& GroupsBuilder::appendItems(const std::uint8_t* first, const std::uint8_t* last)
{
    if (first == last)
        return *this;
    const auto size = static_cast<std::size_t>(last - first);
    std::memcpy(grow(size), first, size);
    return *this;
}

} // namespace oddb
