// Text on its way between bytes and the SDK.
#include "session/WideText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace session
{

namespace
{

bool isHighSurrogate(wchar_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(wchar_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool isSurrogate(wchar_t unit)
{
    return unit >= 0xD800 && unit <= 0xDFFF;
}

// One row per length of a sequence: how its first byte looks and the least character that may be written so long.
struct SequenceForm
{
    unsigned char mask;
    unsigned char lead;
    std::size_t length;
    std::uint32_t least;
};
constexpr SequenceForm kSequenceForms[] = {
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
};

// Reads the sequence of two to four bytes that bytes begins with; its length, 0 when it is malformed.
std::size_t readSequence(std::string_view bytes, std::uint32_t& character)
{
    const auto lead = static_cast<unsigned char>(bytes[0]);
    for (const SequenceForm& form : kSequenceForms)
    {
        if ((lead & form.mask) != form.lead)
            continue;
        if (bytes.size() < form.length)
            return 0;
        character = lead & static_cast<unsigned char>(~form.mask);
        for (std::size_t i = 1; i < form.length; ++i)
        {
            const auto byte = static_cast<unsigned char>(bytes[i]);
            if ((byte & 0xC0) != 0x80)
                return 0;
            character = character << 6 | (byte & 0x3F);
        }
        const bool allowed = character >= form.least && character <= 0x10FFFF && !isSurrogate(wchar_t(character));
        return allowed ? form.length : 0;
    }
    return 0;
}

// Copies the characters below 0x80 that bytes begins with, so far as they come in blocks; how many these are.
std::size_t copyPlainBlocks(std::string_view bytes, wchar_t* to)
{
    constexpr std::size_t kBlock = 16;
    std::size_t at = 0;
    for (; at + kBlock <= bytes.size(); at += kBlock)
    {
        std::uint64_t halves[2];
        std::memcpy(halves, bytes.data() + at, kBlock);
        if (((halves[0] | halves[1]) & 0x8080808080808080) != 0)
            break;
        unsigned char each[kBlock]; // which the writing cannot change, so that all are widened at once
        std::memcpy(each, halves, kBlock);
        for (std::size_t i = 0; i < kBlock; ++i)
            to[at + i] = static_cast<wchar_t>(each[i]);
    }
    return at;
}

wchar_t* putUnits(std::uint32_t character, wchar_t* to)
{
    if (character < 0x10000)
    {
        *to++ = static_cast<wchar_t>(character);
        return to;
    }
    *to++ = static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
    *to++ = static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
    return to;
}

// Decodes the sequences and leaves at behind them, or at the first that is malformed. Returns where the units end.
wchar_t* decodeSequences(std::string_view bytes, std::size_t& at, wchar_t* to)
{
    while (at < bytes.size())
    {
        const std::size_t plain = copyPlainBlocks(bytes.substr(at), to);
        at += plain;
        to += plain;
        if (at == bytes.size())
            break;
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (byte < 0x80)
        {
            *to++ = static_cast<wchar_t>(byte);
            ++at;
            continue;
        }
        std::uint32_t character = 0;
        const std::size_t length = readSequence(bytes.substr(at), character);
        if (length == 0)
            break;
        to = putUnits(character, to);
        at += length;
    }
    return to;
}

// Without branches, so that the units are compared at once.
template<std::size_t count>
bool hasSurrogatesInBlock(const wchar_t* units)
{
    std::uint32_t found = 0;
    for (std::size_t i = 0; i < count; ++i)
        found |= (static_cast<std::uint32_t>(units[i]) & 0xFFFFF800) == 0xD800 ? 1 : 0;
    return found != 0;
}

bool hasSurrogates(std::wstring_view units)
{
    constexpr std::size_t kLongBlock = 64;
    constexpr std::size_t kShortBlock = 8;
    std::size_t at = 0;
    for (; at + kLongBlock <= units.size(); at += kLongBlock)
        if (hasSurrogatesInBlock<kLongBlock>(units.data() + at))
            return true;
    for (; at + kShortBlock <= units.size(); at += kShortBlock)
        if (hasSurrogatesInBlock<kShortBlock>(units.data() + at))
            return true;
    return std::any_of(units.begin() + static_cast<std::ptrdiff_t>(at), units.end(), isSurrogate);
}

bool readEscapedUnit(const wchar_t* at, const wchar_t* end, wchar_t& unit)
{
    if (end - at < 6 || at[0] != L'\\' || at[1] != L'u')
        return false;
    std::uint32_t value = 0;
    for (int i = 2; i < 6; ++i)
    {
        const wchar_t digit = at[i];
        if (digit >= L'0' && digit <= L'9')
            value = value * 16 + std::uint32_t(digit - L'0');
        else if ((digit | 0x20) >= L'a' && (digit | 0x20) <= L'f')
            value = value * 16 + std::uint32_t((digit | 0x20) - L'a' + 10);
        else
            return false;
    }
    unit = static_cast<wchar_t>(value);
    return true;
}

} // namespace

void LineUnits::makeRoom(std::size_t size)
{
    m_size = 0;
    if (size <= m_capacity)
        return;
    release();
    m_units = std::make_unique_for_overwrite<wchar_t[]>(size);
    m_capacity = size;
}

// A sequence never becomes more units than it has bytes.
std::size_t LineUnits::decode(std::string_view utf8)
{
    makeRoom(utf8.size() + 1);
    std::size_t at = 0;
    wchar_t* const end = decodeSequences(utf8, at, m_units.get());
    *end = L'\0';
    m_size = static_cast<std::size_t>(end - m_units.get());
    return at;
}

bool hasEscapedUnits(std::string_view bytes)
{
    for (std::size_t at = bytes.find('u', 1); at < bytes.size(); at = bytes.find('u', at + 1))
        if (bytes[at - 1] == '\\')
            return true;
    return false;
}

std::size_t findLoneSurrogateEscape(std::wstring_view units)
{
    const wchar_t* const begin = units.data();
    const wchar_t* const end = begin + units.size();
    const auto findEscape = [end](const wchar_t* from)
    { return from + std::min(std::wstring_view(from, end).find(L'\\'), static_cast<std::size_t>(end - from)); };
    for (const wchar_t* at = findEscape(begin); at != end; at = findEscape(at))
    {
        wchar_t unit = 0;
        if (!readEscapedUnit(at, end, unit))
        {
            at += std::min<std::ptrdiff_t>(2, end - at);
            continue;
        }
        wchar_t second = 0;
        const bool isPair = isHighSurrogate(unit) && readEscapedUnit(at + 6, end, second) && isLowSurrogate(second);
        if (isSurrogate(unit) && !isPair)
            return static_cast<std::size_t>(at - begin);
        at += isPair ? 12 : 6;
    }
    return std::wstring_view::npos;
}

OdString joinSurrogates(const wchar_t* units, std::size_t length)
{
    const wchar_t* const end = units + length;
    if (!hasSurrogates({units, length}))
        return OdString(std::wstring_view(units, length));
    std::wstring text;
    text.reserve(length);
    for (const wchar_t* at = units; at != end; ++at)
    {
        if (isHighSurrogate(at[0]) && at + 1 != end && isLowSurrogate(at[1]))
        {
            text += static_cast<wchar_t>(0x10000 + ((at[0] - 0xD800) << 10) + (at[1] - 0xDC00));
            ++at;
        }
        else
            text += *at;
    }
    return OdString(text);
}

} // namespace session
