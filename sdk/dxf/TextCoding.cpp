// The coding of texts in files.
//
//   \U+XXXX          the character with this number, four hexadecimal digits; two of them with numbers D800-DBFF and
//                    DC00-DFFF are one character beyond FFFF
//   ^J ^M            line feed and carriage return, which would end the line
//   ^ J ^  J ...     a caret that is followed by (blanks and) J or M is written with one blank more
//   any other byte   UTF-8, or the code page's characters
//
// \U+XXXX of control characters, of the backslash and of the caret stay as they are, for decoded they would be taken
// for the beginning of something else when the text is read back. The null character, which ends texts in binary files,
// is always written so.
#include "TextCoding.h"

#include "Handles.h"
#include "OdCharMapper.h"
#include "OdString.h"

#include <cstdint>
#include <cstring>

namespace dxf
{
namespace
{

constexpr std::size_t kEscapeLength = 7; // \U+XXXX

constexpr std::uint64_t kOnes = 0x0101010101010101u;
constexpr std::uint64_t kHighBits = kOnes << 7;

// True when one of the eight bytes begins something special: a backslash, a caret, a control character or, in a code
// page, a byte from 80 on.
bool hasSpecial(std::uint64_t bytes, bool inCodePage)
{
    // backslash and caret differ in one bit
    const std::uint64_t zeroWhereSpecial = (bytes & ~(kOnes * 2)) ^ kOnes * '\\';
    const std::uint64_t special = (zeroWhereSpecial - kOnes) & ~zeroWhereSpecial;
    const std::uint64_t control = (bytes - kOnes * ' ') & ~bytes;
    return ((special | control | (inCodePage ? bytes : 0)) & kHighBits) != 0;
}

// Takes eight bytes at a time; the last ones of a longer text overlap those before, a shorter text is filled up with
// blanks.
bool hasSpecial(std::string_view text, bool inCodePage)
{
    std::uint64_t bytes = kOnes * ' ';
    if (text.size() < sizeof bytes)
    {
        for (const char character : text)
            bytes = bytes << 8 | static_cast<unsigned char>(character);
        return hasSpecial(bytes, inCodePage);
    }
    const char* const last = text.data() + text.size() - sizeof bytes;
    for (const char* at = text.data(); at < last; at += sizeof bytes)
    {
        std::memcpy(&bytes, at, sizeof bytes);
        if (hasSpecial(bytes, inCodePage))
            return true;
    }
    std::memcpy(&bytes, last, sizeof bytes);
    return hasSpecial(bytes, inCodePage);
}

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Reads \U+XXXX at the beginning of the text.
bool readEscape(std::string_view text, char32_t& unit)
{
    if (text.size() < kEscapeLength || text.substr(0, 3) != "\\U+")
        return false;
    unit = 0;
    for (const char character : text.substr(3, 4))
    {
        const int digit = hexDigit(character);
        if (digit < 0)
            return false;
        unit = unit << 4 | static_cast<char32_t>(digit);
    }
    return true;
}

void append(std::string& utf8, char32_t character)
{
    const wchar_t text[] = {static_cast<wchar_t>(character)};
    odAppendUtf8(utf8, std::wstring_view(text, 1));
}

// Appends the character that \U+XXXX, once or as a pair, stands for; returns the bytes it takes, 0 when it stays as it
// is.
std::size_t decodeEscape(std::string_view text, std::string& decoded)
{
    char32_t unit = 0;
    char32_t low = 0;
    if (!readEscape(text, unit))
        return 0;
    if (isHighSurrogate(unit) && readEscape(text.substr(kEscapeLength), low) && isLowSurrogate(low))
    {
        append(decoded, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
        return 2 * kEscapeLength;
    }
    const bool staysEscaped =
        (unit > 0 && unit < ' ') || unit == '\\' || unit == '^' || unit == 0x7F || (unit >= 0xD800 && unit <= 0xDFFF);
    if (staysEscaped)
        return 0;
    append(decoded, unit);
    return kEscapeLength;
}

// True when the text behind a caret, blanks passed over, is the letter of a line end.
bool namesLineEnd(std::string_view behindCaret)
{
    const std::size_t letter = behindCaret.find_first_not_of(' ');
    return letter != std::string_view::npos && (behindCaret[letter] == 'J' || behindCaret[letter] == 'M');
}

// Appends what the caret at the beginning of the text stands for; returns the bytes it takes.
std::size_t decodeCaret(std::string_view text, std::string& decoded)
{
    if (!namesLineEnd(text.substr(1)))
    {
        decoded += '^';
        return 1;
    }
    decoded += text[1] == 'J' ? '\n' : text[1] == 'M' ? '\r' : '^';
    return 2;
}

} // namespace

bool TextDecoder::isPlain(std::string_view raw) const
{
    return !hasSpecial(raw, m_page != CP_UNDEFINED);
}

std::string_view TextDecoder::decodeSpecial(std::string_view raw)
{
    if (m_page != CP_UNDEFINED)
    {
        m_paged.clear();
        OdCharMapper::codepageToUtf8(raw, m_page, m_paged);
        raw = m_paged;
    }
    m_text.clear();
    while (!raw.empty())
    {
        std::size_t length = 0;
        if (raw.front() == '\\')
            length = decodeEscape(raw, m_text);
        else if (raw.front() == '^')
            length = decodeCaret(raw, m_text);
        if (length == 0)
        {
            m_text += raw.front();
            length = 1;
        }
        raw.remove_prefix(length);
    }
    return m_text;
}

bool TextEncoder::isPlain(std::string_view utf8) const
{
    return !hasSpecial(utf8, m_page != CP_UNDEFINED);
}

std::string_view TextEncoder::encodeSpecial(std::string_view utf8)
{
    m_text.clear();
    for (std::size_t i = 0; i < utf8.size(); ++i)
    {
        const char character = utf8[i];
        if (character == '\n' || character == '\r')
            m_text += character == '\n' ? "^J" : "^M";
        else if (character == '^' && namesLineEnd(utf8.substr(i + 1)))
            m_text += "^ ";
        else if (character == '\0')
            m_text += "\\U+0000";
        else
            m_text += character;
    }
    if (m_page == CP_UNDEFINED)
        return m_text;
    m_paged.clear();
    OdCharMapper::utf8ToCodepage(m_text, m_page, m_paged);
    return m_paged;
}

} // namespace dxf
