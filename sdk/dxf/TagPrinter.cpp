// The two forms in which groups are printed; TagScannerAscii.cpp and TagScannerBinary.cpp draw them. The binary form is
// always the one with codes of two bytes.
#include "TagPrinter.h"

#include "BinarySentinel.h"
#include "Handles.h"
#include "Numbers.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace dxf
{
namespace
{

constexpr std::size_t kMostChunk = 255;  // what the length byte can say
constexpr std::size_t kUsualChunk = 127; // what fits into a line of 254 digits
constexpr std::size_t kRoom = 64;        // for a code and any number

template<class Value>
char* put(char* at, Value value)
{
    std::memcpy(at, &value, sizeof value);
    return at + sizeof value;
}

template<class Narrow>
char* putNarrowed(char* at, std::int64_t value)
{
    // a writer may have meant the bits: 65535 in 16 bits is -1
    using Limits = std::numeric_limits<Narrow>;
    using Unsigned = std::make_unsigned_t<Narrow>;
    const std::int64_t most = static_cast<std::int64_t>(std::numeric_limits<Unsigned>::max());
    const std::int64_t kept = std::clamp<std::int64_t>(value, Limits::min(), most);
    return put(at, static_cast<Narrow>(kept));
}

// A code as it stands in an ASCII file: right-aligned in three places, with the end of its line.
struct CodeLine
{
    char text[7]{};
    std::uint8_t length = 0;
};

constexpr int kCodeLines = 1072;

constexpr CodeLine makeCodeLine(int code)
{
    CodeLine line;
    for (int unit = code < 1000 ? 100 : 1000; unit > 0; unit /= 10)
        line.text[line.length++] = code < unit && unit > 1 ? ' ' : static_cast<char>('0' + code / unit % 10);
    line.text[line.length++] = '\n';
    return line;
}

constexpr auto makeCodeLines()
{
    std::array<CodeLine, kCodeLines> lines{};
    for (int code = 0; code < kCodeLines; ++code)
        lines[static_cast<std::size_t>(code)] = makeCodeLine(code);
    return lines;
}

constexpr std::array<CodeLine, kCodeLines> kLines = makeCodeLines();

std::size_t fieldWidth(ValueKind kind)
{
    return kind == ValueKind::Int16 || kind == ValueKind::Bool ? 6 : kind == ValueKind::Int32 ? 9 : 0;
}

} // namespace

void TagPrinter::beginFile()
{
    if (!m_ascii)
        m_output.write(kBinarySentinel);
}

char* TagPrinter::putCode(char* at, int code) const
{
    if (!m_ascii)
        return put(at, static_cast<std::int16_t>(code));
    if (code >= 0 && code < kCodeLines)
    {
        const CodeLine& line = kLines[static_cast<std::size_t>(code)];
        std::memcpy(at, line.text, sizeof line.text);
        return at + line.length;
    }
    at = printInteger(code, at);
    *at++ = '\n';
    return at;
}

char* TagPrinter::putLineEnd(char* at) const
{
    if (m_ascii)
        *at++ = '\n';
    return at;
}

void TagPrinter::text(int code, std::string_view value)
{
    constexpr std::size_t kShort = 1024;
    const char ending = m_ascii ? '\n' : '\0';
    if (!m_ascii)
        value = value.substr(0, value.find('\0'));
    char* at = putCode(m_output.reserve(kRoom + kShort), code);
    if (value.size() > kShort)
    {
        m_output.advance(at);
        m_output.write(value);
        at = m_output.reserve(kRoom);
    }
    else if (!value.empty())
    {
        std::memcpy(at, value.data(), value.size());
        at += value.size();
    }
    *at++ = ending;
    m_output.advance(at);
}

void TagPrinter::real(int code, double value)
{
    char* const at = putCode(m_output.reserve(kRoom), code);
    m_output.advance(m_ascii ? putLineEnd(printReal(value, at)) : put(at, value));
}

void TagPrinter::integer(int code, std::int64_t value)
{
    if (m_ascii)
        asciiInteger(code, value);
    else
        binaryInteger(code, value);
}

void TagPrinter::asciiInteger(int code, std::int64_t value)
{
    char* at = putCode(m_output.reserve(kRoom), code);
    char digits[kLongestNumber];
    const std::size_t length = static_cast<std::size_t>(printInteger(value, digits) - digits);
    for (std::size_t width = fieldWidth(valueKind(code)); width > length; --width)
        *at++ = ' ';
    std::memcpy(at, digits, length);
    m_output.advance(putLineEnd(at + length));
}

void TagPrinter::binaryInteger(int code, std::int64_t value)
{
    char* const at = putCode(m_output.reserve(kRoom), code);
    switch (valueKind(code))
    {
    case ValueKind::Bool:
        m_output.advance(putNarrowed<std::int8_t>(at, value));
        break;
    case ValueKind::Int32:
        m_output.advance(putNarrowed<std::int32_t>(at, value));
        break;
    case ValueKind::Int64:
        m_output.advance(put(at, value));
        break;
    default:
        m_output.advance(putNarrowed<std::int16_t>(at, value));
    }
}

void TagPrinter::handle(int code, std::uint64_t value)
{
    char* at = printHandle(value, putCode(m_output.reserve(kRoom), code));
    *at++ = m_ascii ? '\n' : '\0';
    m_output.advance(at);
}

void TagPrinter::bytes(int code, std::string_view value)
{
    if (value.size() <= kMostChunk)
        return chunk(code, value);
    for (std::size_t at = 0; at < value.size(); at += kUsualChunk)
        chunk(code, value.substr(at, kUsualChunk));
}

void TagPrinter::chunk(int code, std::string_view value)
{
    char* at = putCode(m_output.reserve(kRoom + 2 * kMostChunk), code);
    if (!m_ascii)
        at = put(at, static_cast<std::uint8_t>(value.size()));
    for (const char byte : value)
    {
        if (!m_ascii)
        {
            *at++ = byte;
            continue;
        }
        *at++ = "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
        *at++ = "0123456789ABCDEF"[static_cast<unsigned char>(byte) & 15];
    }
    m_output.advance(putLineEnd(at));
}

} // namespace dxf
