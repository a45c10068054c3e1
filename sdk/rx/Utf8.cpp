// Implements the reading and writing of UTF-8.
#include "rx/Utf8.h"

#include <algorithm>
#include <climits>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "OdError.h"
#include "OdString.h"

namespace odutf8
{
namespace
{

struct Form
{
    int length; // 0 for a byte that begins no character
    unsigned char valueBits;
    wchar_t least;
};

constexpr Form formOf(unsigned char lead)
{
    if (lead < 0xC2)
        return {0, 0, 0};
    if (lead < 0xE0)
        return {2, static_cast<unsigned char>(lead & 0x1F), 0x80};
    if (lead < 0xF0)
        return {3, static_cast<unsigned char>(lead & 0x0F), 0x800};
    if (lead < 0xF5)
        return {4, static_cast<unsigned char>(lead & 0x07), 0x10000};
    return {0, 0, 0};
}

constexpr bool isAllowed(wchar_t character, wchar_t least)
{
    return character >= least && character <= 0x10FFFF && !isHighSurrogate(character) && !isLowSurrogate(character);
}

// Reads the bytes after the lead; -1 when they do not make a character.
wchar_t readForm(const Form& form, const char* position, const char* end)
{
    if (form.length == 0 || end - position < form.length)
        return -1;
    wchar_t character = form.valueBits;
    for (int i = 1; i < form.length; ++i)
    {
        const unsigned char byte = static_cast<unsigned char>(position[i]);
        if ((byte & 0xC0) != 0x80)
            return -1;
        character = (character << 6) | (byte & 0x3F);
    }
    return isAllowed(character, form.least) ? character : -1;
}

} // namespace

wchar_t takeCharacter(const char*& position, const char* end)
{
    const unsigned char lead = static_cast<unsigned char>(*position);
    if (lead < 0x80)
    {
        ++position;
        return lead;
    }
    const Form form = formOf(lead);
    const wchar_t character = readForm(form, position, end);
    position += character < 0 ? 1 : form.length;
    return character < 0 ? kByteBase + lead : character;
}

void appendCharacter(std::string& buffer, wchar_t character)
{
    if (character < 0 || character > 0x10FFFF)
        character = kReplacement;
    if (character < 0x80)
        buffer += static_cast<char>(character);
    else if (isKeptByte(character))
        buffer += static_cast<char>(character - kByteBase);
    else if (character < 0x800)
    {
        buffer += static_cast<char>(0xC0 | (character >> 6));
        buffer += static_cast<char>(0x80 | (character & 0x3F));
    }
    else
    {
        if (character < 0x10000)
            buffer += static_cast<char>(0xE0 | (character >> 12));
        else
        {
            buffer += static_cast<char>(0xF0 | (character >> 18));
            buffer += static_cast<char>(0x80 | ((character >> 12) & 0x3F));
        }
        buffer += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        buffer += static_cast<char>(0x80 | (character & 0x3F));
    }
}

std::size_t countCharacters(std::string_view utf8)
{
    const char* position = utf8.data();
    const char* const end = position + utf8.size();
    std::size_t count = 0;
    for (; position != end; ++count)
        takeCharacter(position, end);
    return count;
}
} // namespace odutf8

// Most texts are ASCII from the first to the last character, and take no more than a copy.
static std::size_t countAscii(std::string_view text)
{
    constexpr std::size_t kBlock = 16;
    std::size_t count = 0;
    for (unsigned char all = 0; count + kBlock <= text.size(); count += kBlock)
    {
        for (std::size_t i = 0; i < kBlock; ++i)
            all |= static_cast<unsigned char>(text[count + i]);
        if (all >= 0x80)
            break;
    }
    while (count < text.size() && static_cast<unsigned char>(text[count]) < 0x80)
        ++count;
    return count;
}

OdString odUtf8ToString(std::string_view utf8)
{
    OdString text;
    if (utf8.empty())
        return text;
    const std::size_t ascii = countAscii(utf8);
    const std::size_t count = ascii + odutf8::countCharacters(utf8.substr(ascii));
    if (count > INT_MAX)
        odThrow(eOutOfMemory);
    const int length = static_cast<int>(count);
    OdChar* target = std::copy_n(utf8.begin(), ascii, text.getBuffer(length));
    const char* position = utf8.data() + ascii;
    for (const char* const end = utf8.data() + utf8.size(); position != end; ++target)
        *target = odutf8::takeCharacter(position, end);
    text.releaseBuffer(length);
    return text;
}

static constexpr std::size_t kBlock = 8; // characters that are copied at once

// Copies a block. False when not all of it is ASCII; what was put down then is of no use.
static bool copyAsciiBlock(const OdChar* source, char* target)
{
#ifdef __SSE2__
    const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + kBlock / 2));
    const __m128i words = _mm_packs_epi32(low, high);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(target), _mm_packus_epi16(words, words));
    const __m128i beyond = _mm_andnot_si128(_mm_set1_epi32(0x7F), _mm_or_si128(low, high));
    return _mm_movemask_epi8(_mm_cmpeq_epi32(beyond, _mm_setzero_si128())) == 0xFFFF;
#else
    OdChar all = 0;
    for (std::size_t i = 0; i < kBlock; ++i)
    {
        all |= source[i];
        target[i] = static_cast<char>(source[i]);
    }
    return odIsAscii(all);
#endif
}

std::size_t odCopyAscii(std::wstring_view text, char* target)
{
    std::size_t count = 0;
    while (count + kBlock <= text.size() && copyAsciiBlock(text.data() + count, target + count))
        count += kBlock;
    const std::size_t lastBlock = text.size() - kBlock; // which may share characters with the one in front of it
    if (text.size() >= kBlock && count > lastBlock && copyAsciiBlock(text.data() + lastBlock, target + lastBlock))
        return text.size();
    for (; count < text.size() && odIsAscii(text[count]); ++count)
        target[count] = static_cast<char>(text[count]);
    return count;
}

void odAppendUtf8(std::string& buffer, std::wstring_view text)
{
    const std::size_t before = buffer.size();
    buffer.resize(before + text.size());
    const std::size_t ascii = odCopyAscii(text, buffer.data() + before);
    buffer.resize(before + ascii);
    for (std::size_t i = ascii; i < text.size();)
        odutf8::appendCharacter(buffer, odutf8::takeCharacter(text, i));
}

// A short text goes by way of the stack, where no room has to be filled with zeros first.
std::string odStringToUtf8(std::wstring_view text)
{
    char small[256];
    if (text.size() <= sizeof small && odCopyAscii(text, small) == text.size())
        return {small, text.size()};
    std::string utf8;
    odAppendUtf8(utf8, text);
    return utf8;
}

void odAppendWide(std::wstring& buffer, std::string_view utf8)
{
    const char* position = utf8.data();
    for (const char* const end = position + utf8.size(); position != end;)
        buffer += odutf8::takeCharacter(position, end);
}
