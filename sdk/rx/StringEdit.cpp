// Reading, comparing, searching and changing texts.
#include "OdString.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwctype>
#include <functional>

#include "OdError.h"

namespace
{

constexpr std::wstring_view kWhiteSpace = L" \t\n\v\f\r";

std::wstring_view viewOf(const OdChar* text)
{
    return text ? std::wstring_view(text) : std::wstring_view();
}

int positionOf(std::size_t found)
{
    return found == std::wstring_view::npos ? -1 : static_cast<int>(found);
}

/// Whether a character is in a short set, for those who ask once or twice.
auto isOneOf(std::wstring_view set)
{
    return [set](OdChar character)
    {
        for (const OdChar candidate : set)
            if (candidate == character)
                return true;
        return false;
    };
}

/// The same for those who ask for many characters: for ASCII, one look at a bit.
class CharacterSet
{
public:
    explicit CharacterSet(std::wstring_view characters) : m_characters(characters)
    {
        for (const OdChar character : characters)
            if (odIsAscii(character))
                m_ascii[character / 64] |= bitOf(character);
    }

    bool operator()(OdChar character) const
    {
        return odIsAscii(character) ? (m_ascii[character / 64] & bitOf(character)) != 0
                                    : m_characters.find(character) != std::wstring_view::npos;
    }

private:
    static std::uint64_t bitOf(OdChar character) { return std::uint64_t{1} << (character % 64); }

    std::wstring_view m_characters;
    std::uint64_t m_ascii[2] = {0, 0};
};

std::size_t countLeading(std::wstring_view text, auto condition)
{
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), condition) - text.begin());
}

std::size_t startAt(int start)
{
    return static_cast<std::size_t>(std::max(start, 0));
}

} // namespace

OdChar OdString::getAt(int index) const
{
    if (index < 0 || index >= getLength())
        odThrow(eInvalidIndex);
    return m_text[index];
}

void OdString::setAt(int index, OdChar character)
{
    if (index < 0 || index >= getLength())
        odThrow(eInvalidIndex);
    own(0);
    m_text[index] = character;
}

bool OdString::isAscii() const
{
    return std::ranges::all_of(view(), odIsAscii);
}

int OdString::compare(const OdChar* other) const
{
    return view().compare(viewOf(other));
}

int OdString::iCompare(const OdChar* other) const
{
    return odCompareNoCase(view(), viewOf(other));
}

int OdString::iCompare(const OdString& other) const
{
    return m_text == other.m_text ? 0 : odCompareNoCase(view(), other.view());
}

OdString OdString::mid(int first, int count) const
{
    const int length = getLength();
    const int from = std::clamp(first, 0, length);
    const int taken = std::clamp(count, 0, length - from);
    if (taken == length)
        return *this;
    return OdString(m_text + from, taken);
}

OdString OdString::mid(int first) const
{
    return mid(first, getLength());
}

OdString OdString::left(int count) const
{
    return mid(0, count);
}

OdString OdString::right(int count) const
{
    const int taken = std::clamp(count, 0, getLength());
    return mid(getLength() - taken, taken);
}

OdString OdString::spanIncluding(const OdChar* characters) const
{
    return left(static_cast<int>(countLeading(view(), CharacterSet(viewOf(characters)))));
}

OdString OdString::spanExcluding(const OdChar* characters) const
{
    return left(static_cast<int>(countLeading(view(), std::not_fn(CharacterSet(viewOf(characters))))));
}

int OdString::find(OdChar character, int start) const
{
    return positionOf(view().find(character, startAt(start)));
}

int OdString::find(const OdChar* text, int start) const
{
    return positionOf(view().find(viewOf(text), startAt(start)));
}

int OdString::find(const OdString& text, int start) const
{
    return positionOf(view().find(text.view(), startAt(start)));
}

int OdString::reverseFind(OdChar character) const
{
    return positionOf(view().rfind(character));
}

int OdString::reverseFind(OdChar character, int start) const
{
    return start < 0 ? -1 : positionOf(view().rfind(character, static_cast<std::size_t>(start)));
}

int OdString::findOneOf(const OdChar* characters, int start) const
{
    return positionOf(view().find_first_of(viewOf(characters), startAt(start)));
}

int OdString::findLastOneOf(const OdChar* characters) const
{
    return positionOf(view().find_last_of(viewOf(characters)));
}

namespace
{

// Calls change for the buffer only when some character would change, so that a shared text stays shared.
template<class Map>
void mapCharacters(OdString& text, Map map)
{
    const std::wstring_view present = text.view();
    const auto differs = [map](OdChar character) { return map(character) != character; };
    if (std::ranges::none_of(present, differs))
        return;
    const int length = text.getLength();
    OdChar* buffer = text.getBuffer(length);
    std::transform(buffer, buffer + length, buffer, map);
    text.releaseBuffer(length);
}

} // namespace

OdString& OdString::makeUpper()
{
    mapCharacters(*this, [](OdChar character) { return odToUpper(character); });
    return *this;
}

OdString& OdString::makeLower()
{
    mapCharacters(*this, [](OdChar character) { return odToLower(character); });
    return *this;
}

OdString& OdString::makeReverse()
{
    const int length = getLength();
    if (length > 1)
    {
        OdChar* buffer = getBuffer(length);
        std::reverse(buffer, buffer + length);
    }
    return *this;
}

// Makes the text a part of itself.
OdString& OdString::keep(std::size_t first, std::size_t count)
{
    const std::size_t length = static_cast<std::size_t>(getLength());
    if (count == length)
        return *this;
    if (count == 0)
        empty();
    else if (header()->references.load(std::memory_order_acquire) == 1)
    {
        std::wmemmove(m_text, m_text + first, count);
        setLength(count);
    }
    else
        *this = OdString(view().substr(first, count));
    return *this;
}

OdString& OdString::trimRight()
{
    return trimRight(kWhiteSpace.data());
}

OdString& OdString::trimRight(OdChar character)
{
    return keep(0, view().find_last_not_of(character) + 1);
}

OdString& OdString::trimRight(const OdChar* characters)
{
    const std::wstring_view text = view();
    const auto last = std::find_if_not(text.rbegin(), text.rend(), isOneOf(viewOf(characters)));
    return keep(0, static_cast<std::size_t>(text.rend() - last));
}

OdString& OdString::trimLeft()
{
    return trimLeft(kWhiteSpace.data());
}

OdString& OdString::trimLeft(OdChar character)
{
    const std::size_t first = std::min(view().find_first_not_of(character), view().size());
    return keep(first, view().size() - first);
}

OdString& OdString::trimLeft(const OdChar* characters)
{
    const std::size_t first = countLeading(view(), isOneOf(viewOf(characters)));
    return keep(first, view().size() - first);
}

int OdString::replace(OdChar oldCharacter, OdChar newCharacter)
{
    const int count = static_cast<int>(std::ranges::count(view(), oldCharacter));
    mapCharacters(*this, [=](OdChar character) { return character == oldCharacter ? newCharacter : character; });
    return count;
}

int OdString::replace(const OdChar* oldText, const OdChar* newText)
{
    const std::wstring_view from = viewOf(oldText);
    if (from.empty())
        return 0;
    int count = 0;
    std::wstring replaced;
    std::size_t copied = 0;
    for (std::size_t at = view().find(from); at != std::wstring_view::npos; at = view().find(from, copied))
    {
        replaced.append(view(), copied, at - copied).append(viewOf(newText));
        copied = at + from.size();
        ++count;
    }
    if (count)
        *this = OdString(replaced.append(view(), copied));
    return count;
}

int OdString::remove(OdChar character)
{
    const int count = static_cast<int>(std::ranges::count(view(), character));
    if (count == 0)
        return 0;
    const int length = getLength();
    OdChar* buffer = getBuffer(length);
    static_cast<void>(std::remove(buffer, buffer + length, character));
    releaseBuffer(length - count);
    return count;
}

int OdString::insert(int index, OdChar character)
{
    const int at = std::clamp(index, 0, getLength());
    *this = left(at) + character + mid(at);
    return getLength();
}

int OdString::insert(int index, const OdChar* text)
{
    const int at = std::clamp(index, 0, getLength());
    const OdString inserted(text);
    *this = left(at) + inserted + mid(at);
    return getLength();
}

int OdString::deleteChars(int index, int count)
{
    const int length = getLength();
    if (index >= 0 && index < length && count > 0)
        *this = left(index) + mid(index + std::min(count, length - index));
    return getLength();
}

void OdString::truncate(int maxLength)
{
    keep(0, static_cast<std::size_t>(std::clamp(maxLength, 0, getLength())));
}

namespace
{

// Writes through a stream that grows, for what does not fit a small buffer.
OdString formatLong(const OdChar* format, va_list arguments)
{
    wchar_t* buffer = nullptr;
    std::size_t length = 0;
    std::FILE* stream = open_wmemstream(&buffer, &length);
    if (!stream)
        odThrow(eOutOfMemory);
    const int written = std::vfwprintf(stream, format, arguments);
    std::fclose(stream);
    OdString text(buffer, static_cast<int>(length));
    std::free(buffer);
    if (written < 0)
        odThrow(eInvalidInput);
    return text;
}

} // namespace

namespace
{

// A text in the making that is not to be long.
class SmallText
{
public:
    bool append(std::wstring_view text)
    {
        if (text.size() > m_characters.size() - m_length)
            return false;
        std::wmemcpy(m_characters.data() + m_length, text.data(), text.size());
        m_length += text.size();
        return true;
    }
    std::wstring_view view() const { return {m_characters.data(), m_length}; }

private:
    std::array<OdChar, 256> m_characters;
    std::size_t m_length = 0;
};

// Puts texts in the places of a format that has places for nothing else, as most messages are. False for other formats,
// and for what gets long.
bool formatTexts(std::wstring_view format, va_list arguments, SmallText& text)
{
    constexpr std::wstring_view kPlace = L"%ls";
    for (;;)
    {
        const std::size_t place = std::min(format.find(L'%'), format.size());
        if (!text.append(format.substr(0, place)))
            return false;
        format.remove_prefix(place);
        if (format.empty())
            return true;
        const OdChar* const argument = format.starts_with(kPlace) ? va_arg(arguments, const OdChar*) : nullptr;
        if (!argument || !text.append(argument))
            return false;
        format.remove_prefix(kPlace.size());
    }
}

} // namespace

OdString& OdString::formatV(const OdChar* format, va_list arguments)
{
    va_list texts;
    va_copy(texts, arguments);
    SmallText text;
    const bool isFormatted = formatTexts(viewOf(format), texts, text);
    va_end(texts);
    if (isFormatted)
        return *this = OdString(text.view());
    OdChar small[256];
    va_list again;
    va_copy(again, arguments);
    const int length = std::vswprintf(small, std::size(small), format, arguments);
    try
    {
        *this = length >= 0 ? OdString(small, length) : formatLong(format, again);
    }
    catch (...)
    {
        va_end(again);
        throw;
    }
    va_end(again);
    return *this;
}

OdString& OdString::format(const OdChar* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    try
    {
        formatV(format, arguments);
    }
    catch (...)
    {
        va_end(arguments);
        throw;
    }
    va_end(arguments);
    return *this;
}
