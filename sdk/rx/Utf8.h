// UTF-8, one character at a time, in a form that loses nothing:
//
//     characters              bytes
//     U+0000   - U+007F       0xxxxxxx
//     U+0080   - U+07FF       110xxxxx 10xxxxxx
//     U+0800   - U+FFFF       1110xxxx 10xxxxxx 10xxxxxx
//     U+10000  - U+10FFFF     11110xxx 10xxxxxx 10xxxxxx 10xxxxxx
//     U+DC80   - U+DCFF       the byte 80 - FF that is no part of any of the above
#pragma once

#include <string>
#include <string_view>

namespace odutf8
{
constexpr wchar_t kByteBase = 0xDC00;
constexpr wchar_t kReplacement = 0xFFFD;

constexpr bool isHighSurrogate(wchar_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool isLowSurrogate(wchar_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

/// True for a character that stands for a byte that could not be read.
constexpr bool isKeptByte(wchar_t c)
{
    return c >= 0xDC80 && c <= 0xDCFF;
}

constexpr wchar_t joinSurrogates(wchar_t high, wchar_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

/// The character at the position, which is moved behind it; the position must not be the end.
wchar_t takeCharacter(const char*& position, const char* end);

/// The character of a text at the index, which is moved behind it: two surrogates that belong together are one.
inline wchar_t takeCharacter(std::wstring_view text, std::size_t& index)
{
    const wchar_t first = text[index++];
    if (isHighSurrogate(first) && index < text.size() && isLowSurrogate(text[index]))
        return joinSurrogates(first, text[index++]);
    return first;
}

/// Puts the bytes of one character behind what the buffer holds.
void appendCharacter(std::string& buffer, wchar_t character);

/// How many characters the bytes are.
std::size_t countCharacters(std::string_view utf8);
} // namespace odutf8
