// Implements the %%, \U+ and \M+ codes of single-line text.
#include "gi/TextCodes.h"

namespace textcodes
{

namespace
{

constexpr wchar_t kDiameter = 0x2205;
constexpr wchar_t kDegree = 0x00B0;
constexpr wchar_t kPlusMinus = 0x00B1;
constexpr wchar_t kUnknownCharacter = 0xFFFD;

struct LetterCode
{
    wchar_t letter;
    CodeKind kind;
    wchar_t character;
};

constexpr LetterCode kLetterCodes[] = {
    {L'c', CodeKind::kCharacter, kDiameter},
    {L'd', CodeKind::kCharacter, kDegree},
    {L'p', CodeKind::kCharacter, kPlusMinus},
    {L'%', CodeKind::kCharacter, L'%'},
    {L'u', CodeKind::kUnderline, 0},
    {L'o', CodeKind::kOverline, 0},
    {L'k', CodeKind::kStrike, 0},
};

wchar_t toLower(wchar_t c)
{
    return c >= L'A' && c <= L'Z' ? c + (L'a' - L'A') : c;
}

int hexDigit(wchar_t c)
{
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    const wchar_t lower = toLower(c);
    return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
}

// Four hexadecimal digits, -1 when they are not there.
int readHex4(std::wstring_view text)
{
    if (text.size() < 4)
        return -1;
    int value = 0;
    for (std::size_t i = 0; i < 4; ++i)
    {
        const int digit = hexDigit(text[i]);
        if (digit < 0)
            return -1;
        value = value * 16 + digit;
    }
    return value;
}

int readUnicodeEscape(std::wstring_view text)
{
    return text.substr(0, 3) == L"\\U+" ? readHex4(text.substr(3)) : -1;
}

Code readDecimalCode(std::wstring_view text)
{
    int value = 0;
    std::size_t length = 2;
    for (; length < text.size() && length < 5 && text[length] >= L'0' && text[length] <= L'9'; ++length)
        value = value * 10 + (text[length] - L'0');
    if (length == 2 || value == 0)
        return {};
    return {CodeKind::kCharacter, static_cast<wchar_t>(value), length};
}

} // namespace

Code readPercentCode(std::wstring_view text)
{
    if (text.size() < 3 || text[0] != L'%' || text[1] != L'%')
        return {};
    const wchar_t letter = toLower(text[2]);
    for (const LetterCode& row : kLetterCodes)
    {
        if (row.letter == letter)
            return {row.kind, row.character, 3};
    }
    return readDecimalCode(text);
}

Character readNumberedCharacter(std::wstring_view text)
{
    constexpr std::size_t kEscapeLength = 7;
    const int high = readUnicodeEscape(text);
    if (high >= 0xD800 && high <= 0xDBFF)
    {
        const int low = readUnicodeEscape(text.substr(kEscapeLength));
        if (low >= 0xDC00 && low <= 0xDFFF)
            return {static_cast<wchar_t>(0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00)), 2 * kEscapeLength};
    }
    if (high >= 0)
    {
        const bool loneSurrogate = (high >= 0xD800 && high <= 0xDFFF) || high == 0;
        return {loneSurrogate ? kUnknownCharacter : static_cast<wchar_t>(high), kEscapeLength};
    }
    // Which character a multibyte number names is settled where files are read; here it only has to be one character.
    const bool multibyte = text.size() >= 8 && text.substr(0, 3) == L"\\M+" && text[3] >= L'1' && text[3] <= L'5';
    if (multibyte && readHex4(text.substr(4)) >= 0)
        return {kUnknownCharacter, 8};
    return {};
}

Visible readVisible(std::wstring_view text)
{
    const Code code = text.front() == L'%' ? readPercentCode(text) : Code();
    if (code.kind != CodeKind::kNone)
        return {code.kind, code.character, code.length};
    const Character numbered = text.front() == L'\\' ? readNumberedCharacter(text) : Character();
    if (numbered.length != 0)
        return {CodeKind::kCharacter, numbered.value, numbered.length};
    return {CodeKind::kCharacter, text.front(), 1};
}

std::wstring visibleText(std::wstring_view text)
{
    std::wstring visible;
    visible.reserve(text.size());
    while (!text.empty())
    {
        const Visible next = readVisible(text);
        if (next.kind == CodeKind::kCharacter)
            visible.push_back(next.character);
        text.remove_prefix(next.length);
    }
    return visible;
}

} // namespace textcodes
