// Numbers that are beyond what the JSON parser reads.
#include "session/LargeNumbers.h"

#include <algorithm>
#include <cstring>

namespace session
{

namespace
{

constexpr std::ptrdiff_t kMostCharacters = 200;
constexpr std::ptrdiff_t kMostExponentDigits = 2;

bool isDigit(wchar_t unit)
{
    return unit >= L'0' && unit <= L'9';
}

bool mayBePartOfNumber(wchar_t unit)
{
    return isDigit(unit) || unit == L'+' || unit == L'-' || unit == L'.' || unit == L'e' || unit == L'E';
}

// Behind the string that begins there: the next quote that no odd number of backslashes escapes.
const wchar_t* skipString(const wchar_t* at, const wchar_t* end)
{
    const std::wstring_view text(at, end);
    for (std::size_t quote = text.find(L'"', 1); quote != std::wstring_view::npos; quote = text.find(L'"', quote + 1))
    {
        const std::size_t last = text.find_last_not_of(L'\\', quote - 1);
        if ((quote - last) % 2 == 1)
            return at + quote + 1;
    }
    return end;
}

const wchar_t* skipDigits(const wchar_t* at, const wchar_t* end)
{
    return std::find_if_not(at, end, isDigit);
}

struct Shape
{
    bool isNumber = false;
    std::ptrdiff_t exponentDigits = 0;
};

// [-] (0 | digits without a leading 0) [. digits] [(e | E) [+ | -] digits]
Shape shapeOf(const wchar_t* at, const wchar_t* end)
{
    Shape shape;
    if (at != end && *at == L'-')
        ++at;
    const wchar_t* const integer = at;
    at = skipDigits(at, end);
    if (at == integer || (*integer == L'0' && at - integer > 1))
        return shape;
    if (at != end && *at == L'.')
    {
        const wchar_t* const fraction = ++at;
        at = skipDigits(at, end);
        if (at == fraction)
            return shape;
    }
    if (at != end && (*at == L'e' || *at == L'E'))
    {
        ++at;
        if (at != end && (*at == L'+' || *at == L'-'))
            ++at;
        const wchar_t* const exponent = at;
        at = skipDigits(at, end);
        shape.exponentDigits = at - exponent;
        if (shape.exponentDigits == 0)
            return shape;
    }
    shape.isNumber = at == end;
    return shape;
}

// ---- Looking for them anywhere, in texts too -----------------------------------------------------------------------

// What a large number that has no long exponent has.
bool hasLongRun(std::string_view utf8)
{
    constexpr std::string_view kPartsOfNumbers = "0123456789+-.eE";
    constexpr std::size_t kStep = kMostCharacters; // so that a longer run is met
    for (std::size_t at = kStep; at < utf8.size(); at += kStep)
    {
        if (!mayBePartOfNumber(utf8[at]))
            continue;
        const std::size_t before = utf8.find_last_not_of(kPartsOfNumbers, at); // npos + 1 is 0
        const std::size_t behind = std::min(utf8.find_first_not_of(kPartsOfNumbers, at), utf8.size());
        if (behind - (before + 1) > kStep)
            return true;
    }
    return false;
}

bool beginsLongExponent(std::string_view utf8)
{
    if (utf8.starts_with('+') || utf8.starts_with('-'))
        utf8.remove_prefix(1);
    const auto first = utf8.begin();
    return std::find_if_not(first, utf8.end(), isDigit) - first > kMostExponentDigits;
}

// The letter of an exponent stands behind a digit.
bool beginsExponent(unsigned char before, unsigned char letter)
{
    return (static_cast<unsigned char>(before - '0') < 10) & ((letter | 0x20) == 'e');
}

// In blocks without branches, whose bytes are compared at once.
bool hasLongExponent(std::string_view utf8)
{
    constexpr std::size_t kBlock = 64;
    std::size_t at = 0;
    const auto isLongBetween = [&](std::size_t first, std::size_t last)
    {
        for (std::size_t i = first; i < last; ++i)
            if (beginsExponent(utf8[i], utf8[i + 1]) && beginsLongExponent(utf8.substr(i + 2)))
                return true;
        return false;
    };
    for (; at + kBlock < utf8.size(); at += kBlock)
    {
        unsigned char before[kBlock];
        unsigned char letters[kBlock];
        std::memcpy(before, utf8.data() + at, kBlock);
        std::memcpy(letters, utf8.data() + at + 1, kBlock);
        unsigned char found = 0;
        for (std::size_t i = 0; i < kBlock; ++i)
            found |= beginsExponent(before[i], letters[i]) ? 1 : 0;
        if (found != 0 && isLongBetween(at, at + kBlock))
            return true;
    }
    return at + 1 < utf8.size() && isLongBetween(at, utf8.size() - 1);
}

} // namespace

void LargeNumbers::takeOut(std::string_view utf8, std::span<wchar_t> units)
{
    m_taken.clear();
    m_nextTaken = 0;
    m_nextNumber = 0;
    if (hasLongExponent(utf8) || hasLongRun(utf8))
        takeOutOf(units);
}

void LargeNumbers::takeOutOf(std::span<wchar_t> units)
{
    std::size_t position = 0;
    wchar_t* const end = units.data() + units.size();
    for (wchar_t* at = units.data(); at < end;)
    {
        if (*at == L'"')
        {
            at = units.data() + (skipString(at, end) - units.data());
            continue;
        }
        if (!isDigit(*at) && *at != L'-')
        {
            ++at;
            continue;
        }
        wchar_t* const behind = std::find_if_not(at, end, mayBePartOfNumber);
        const Shape shape = shapeOf(at, behind);
        if (shape.isNumber && (behind - at > kMostCharacters || shape.exponentDigits > kMostExponentDigits))
        {
            m_taken.push_back({position, std::string(at, behind)});
            *at = L'0';
            std::fill(at + 1, behind, L' ');
        }
        ++position;
        at = behind;
    }
}

const std::string* LargeNumbers::next()
{
    const std::size_t position = m_nextNumber++;
    if (m_nextTaken == m_taken.size() || m_taken[m_nextTaken].position != position)
        return nullptr;
    return &m_taken[m_nextTaken++].digits;
}

} // namespace session
