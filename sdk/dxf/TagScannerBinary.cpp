// The binary form: the sentinel, then the groups one after the other, numbers with the low byte first.
//
//   sentinel            22 bytes
//   code                R13 and later: 2 bytes
//                       R12 and before: 1 byte, or 255 and 2 bytes for a code of 255 and above
//   value  text         bytes up to a zero
//          real         8 bytes
//          whole        2, 4 or 8 bytes; truth values 1
//          bytes        length in 1 byte, then the bytes
#include "TagScanner.h"

#include <cmath>
#include <cstring>

namespace dxf
{
namespace
{

bool isNameCharacter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.' || c == '$';
}

// Length of the record name at the place, with the zero after it; 0 when none stands there.
std::size_t nameLength(std::string_view file, std::size_t at)
{
    constexpr std::size_t kLongest = 64;
    std::size_t end = at;
    while (end < file.size() && end - at < kLongest && isNameCharacter(file[end]))
        ++end;
    const bool isName = end > at + 1 && end < file.size() && file[end] == '\0' && file[at] >= 'A' && file[at] <= 'Z';
    return isName ? end + 1 - at : 0;
}

} // namespace

template<class Value>
bool TagScanner::take(Value& value)
{
    if (m_file.size() - m_at < sizeof value)
        return false;
    std::memcpy(&value, m_file.data() + m_at, sizeof value);
    m_at += sizeof value;
    return true;
}

bool TagScanner::readBinaryCode(int& code)
{
    std::uint8_t first = 0;
    std::int16_t wide = 0;
    if (m_form == Form::BinaryByteCodes)
    {
        if (!take(first))
            return false;
        code = first;
        if (first != 255)
            return true;
    }
    if (!take(wide))
        return false;
    code = wide;
    return true;
}

bool TagScanner::nextBinary(Tag& tag)
{
    m_tagAt = m_at;
    if (m_at >= m_file.size())
        return false;
    if (readBinaryCode(tag.code) && isGroupCode(tag.code) && readBinaryValue(tag))
        return true;
    return resumeBinary(tag);
}

bool TagScanner::readBinaryValue(Tag& tag)
{
    tag.kind = valueKind(tag.code);
    tag.text = {};
    std::int16_t two = 0;
    std::int32_t four = 0;
    std::uint8_t one = 0;
    switch (tag.kind)
    {
    case ValueKind::Real:
        if (!take(tag.real))
            return false;
        if (!std::isfinite(tag.real))
        {
            tag.real = 0.0;
            m_faults.add(place(), "group " + std::to_string(tag.code) + ": the real is not finite, 0.0 is taken");
        }
        return true;
    case ValueKind::Int16:
        return take(two) && (tag.integer = two, true);
    case ValueKind::Int32:
        return take(four) && (tag.integer = four, true);
    case ValueKind::Int64:
        return take(tag.integer);
    case ValueKind::Bool:
        return take(one) && (tag.integer = one, true);
    case ValueKind::Bytes:
        if (!take(one) || m_file.size() - m_at < one)
            return false;
        tag.text = m_file.substr(m_at, one);
        m_at += one;
        return true;
    default:
        const std::size_t zero = m_file.find('\0', m_at);
        if (zero == std::string_view::npos)
            return false;
        tag.text = m_file.substr(m_at, zero - m_at);
        m_at = zero + 1;
        return true;
    }
}

// Goes on at the next bytes that can be a group (0, NAME).
bool TagScanner::resumeBinary(Tag& tag)
{
    const Place wrong = place();
    const std::string_view zeroCode =
        m_form == Form::BinaryWordCodes ? std::string_view("\0\0", 2) : std::string_view("\0", 1);
    for (std::size_t at = m_tagAt + 1; (at = m_file.find(zeroCode, at)) != std::string_view::npos; ++at)
    {
        const std::size_t name = at + zeroCode.size();
        const std::size_t length = nameLength(m_file, name);
        if (length == 0)
            continue;
        tag.code = 0;
        tag.kind = ValueKind::Text;
        tag.text = m_file.substr(name, length - 1);
        m_tagAt = at;
        m_at = name + length;
        m_faults.add(wrong, "no group stands here; reading goes on at " + placeName(place()));
        return true;
    }
    m_at = m_file.size();
    m_faults.add(wrong, "no group stands here, and no record follows");
    return false;
}

} // namespace dxf
