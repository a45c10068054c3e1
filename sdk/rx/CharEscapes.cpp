// Characters that drawings write with other characters:
//
//     \U+XXXX     the character with that number, in four hexadecimal digits; above FFFF as two surrogates
//     \M+nXXXX    the pair of bytes XXXX of the double-byte code page n: 1 932, 2 950, 3 949, 4 1361, 5 936
#include "OdCharMapper.h"

#include "rx/CodePages.h"
#include "rx/Utf8.h"

namespace
{

constexpr std::size_t kUnicodeLength = 7;   // \U+XXXX
constexpr std::size_t kMultibyteLength = 8; // \M+nXXXX
constexpr OdCodePageId kMultibytePages[] = {CP_ANSI_932, CP_ANSI_950, CP_ANSI_949, CP_ANSI_1361, CP_ANSI_936};

int hexDigit(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const char lower = static_cast<char>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The value of four digits, -1 when they are none.
int readHex4(std::string_view text, std::size_t at)
{
    if (text.size() < at + 4)
        return -1;
    int value = 0;
    for (std::size_t i = at; i < at + 4; ++i)
    {
        const int digit = hexDigit(text[i]);
        if (digit < 0)
            return -1;
        value = value * 16 + digit;
    }
    return value;
}

bool startsEscape(std::string_view text, std::size_t at, char kind)
{
    return text.size() > at + 2 && text[at] == '\\' && (text[at + 1] | 0x20) == kind && text[at + 2] == '+';
}

struct Escape
{
    wchar_t character = -1; // -1 for no escape
    std::size_t length = 0;
};

Escape readUnicode(std::string_view text, std::size_t at)
{
    const int value = startsEscape(text, at, 'u') ? readHex4(text, at + 3) : -1;
    if (odutf8::isHighSurrogate(value))
    {
        const std::size_t behind = at + kUnicodeLength;
        const int low = startsEscape(text, behind, 'u') ? readHex4(text, behind + 3) : -1;
        return odutf8::isLowSurrogate(low) ? Escape{odutf8::joinSurrogates(value, low), 2 * kUnicodeLength} : Escape();
    }
    // What has a byte of its own is left alone: a line feed, say, would break the line that the text stands in.
    const bool isCharacter = value >= 0x80 && !odutf8::isLowSurrogate(value);
    return isCharacter ? Escape{value, kUnicodeLength} : Escape();
}

Escape readMultibyte(std::string_view text, std::size_t at)
{
    if (!startsEscape(text, at, 'm') || text.size() < at + kMultibyteLength || text[at + 3] < '1' || text[at + 3] > '5')
        return {};
    const int value = readHex4(text, at + 4);
    const odcodepages::Table* table = odcodepages::table(kMultibytePages[text[at + 3] - '1']);
    if (value < 0 || !table)
        return {};
    const char16_t character =
        table->character(static_cast<unsigned char>(value >> 8), static_cast<unsigned char>(value & 0xFF));
    return character == odcodepages::Table::kNone ? Escape() : Escape{character, kMultibyteLength};
}

Escape readEscape(std::string_view text, std::size_t at)
{
    const Escape unicode = readUnicode(text, at);
    return unicode.length ? unicode : readMultibyte(text, at);
}

} // namespace

std::size_t OdCharMapper::findEscape(std::string_view utf8)
{
    for (std::size_t at = utf8.find('\\'); at != std::string_view::npos; at = utf8.find('\\', at + 1))
        if (startsEscape(utf8, at, 'u') || startsEscape(utf8, at, 'm'))
            return at;
    return std::string_view::npos;
}

void OdCharMapper::decodeEscapes(std::string_view utf8, std::string& decoded)
{
    std::size_t copied = 0;
    for (std::size_t at = utf8.find('\\'); at != std::string_view::npos;)
    {
        const Escape escape = readEscape(utf8, at);
        if (escape.length)
        {
            decoded.append(utf8, copied, at - copied);
            odutf8::appendCharacter(decoded, escape.character);
            copied = at + escape.length;
        }
        at = utf8.find('\\', at + std::max<std::size_t>(escape.length, 1));
    }
    decoded.append(utf8, copied);
}

OdString OdCharMapper::decodeEscapes(const OdString& text)
{
    const std::string utf8 = odStringToUtf8(text);
    if (!hasEscapes(utf8))
        return text;
    std::string decoded;
    decodeEscapes(utf8, decoded);
    return odUtf8ToString(decoded);
}
