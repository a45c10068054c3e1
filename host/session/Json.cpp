// Puts texts down as JSON.
#include "session/Json.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "OdString.h"

namespace session
{

namespace
{

constexpr std::uint64_t kOnes = 0x0101010101010101;
constexpr std::uint64_t kHighest = kOnes << 7;

bool isHalfCharacter(wchar_t character)
{
    return (character >= 0xD800 && character <= 0xDFFF) || character < 0 || character > 0x10FFFF;
}

bool isEscaped(char character)
{
    return character == '"' || character == '\\' || character < ' ';
}

// Marks by their highest bits the bytes of ASCII that JSON does not put down as they are.
std::uint64_t markEscaped(std::uint64_t ascii)
{
    const auto markLess = [](std::uint64_t bytes, std::uint64_t least)
    { return ~((bytes | kHighest) - kOnes * least) & kHighest; };
    return markLess(ascii, ' ') | markLess(ascii ^ kOnes * '"', 1) | markLess(ascii ^ kOnes * '\\', 1);
}

// The first character of ASCII text that JSON does not put down as it is; the end without one.
const char* findEscaped(std::string_view text)
{
    std::uint64_t bytes = 0;
    const char* at = text.data();
    const char* const end = at + text.size();
    const auto isMarkedAt = [&](const char* place)
    {
        std::memcpy(&bytes, place, sizeof bytes);
        return markEscaped(bytes) != 0;
    };
    while (end - at >= std::ptrdiff_t(sizeof bytes) && !isMarkedAt(at))
        at += sizeof bytes;
    // the last bytes at once, together with some that were looked at
    if (text.size() >= sizeof bytes && at > end - sizeof bytes && !isMarkedAt(end - sizeof bytes))
        return end;
    return std::find_if(at, end, isEscaped);
}

// The text as it stands in JSON, with its quotation marks, for what the library takes for a fault.
std::string escape(std::wstring_view text)
{
    std::string escaped = "\"";
    for (const wchar_t character : text)
    {
        if (isHalfCharacter(character) || character < L' ')
        {
            char digits[8];
            std::snprintf(digits, std::size(digits), "\\u%04x", unsigned(character) & 0xFFFF);
            escaped += digits;
            continue;
        }
        if (character == L'"' || character == L'\\')
            escaped += '\\';
        odAppendUtf8(escaped, {&character, 1});
    }
    return escaped += '"';
}

} // namespace

void JsonWriter::text(std::wstring_view text)
{
    Prefix(rapidjson::kStringType);
    if (!putPrinted(text))
    {
        if (std::none_of(text.begin(), text.end(), isHalfCharacter))
            WriteString(text.data(), static_cast<rapidjson::SizeType>(text.size()));
        else
        {
            const std::string escaped = escape(text);
            std::memcpy(os_->Push(escaped.size()), escaped.data(), escaped.size());
        }
    }
    EndValue(true);
}

void JsonWriter::plain(std::string_view text)
{
    Prefix(rapidjson::kStringType);
    char* const at = os_->Push(text.size() + 2);
    at[0] = '"';
    std::memcpy(at + 1, text.data(), text.size());
    at[text.size() + 1] = '"';
    EndValue(true);
}

// False, and nothing is put down, when the text has characters that are not ASCII or are not printed.
bool JsonWriter::putPrinted(std::wstring_view text)
{
    char* const begin = os_->Push(2 * text.size() + 2);
    char* at = begin;
    *at++ = '"';
    const bool isAscii = odCopyAscii(text, at) == text.size();
    const char* const firstEscaped = isAscii ? findEscaped({at, text.size()}) : at;
    std::size_t put = static_cast<std::size_t>(firstEscaped - at);
    at += put;
    for (; isAscii && put < text.size() && text[put] >= L' '; ++put)
    {
        if (text[put] == L'"' || text[put] == L'\\')
            *at++ = '\\';
        *at++ = static_cast<char>(text[put]);
    }
    const bool isPut = put == text.size();
    if (isPut)
        *at++ = '"';
    else
        at = begin;
    os_->Pop(static_cast<std::size_t>(begin + 2 * text.size() + 2 - at));
    return isPut;
}

} // namespace session
