// Implements the reader of multi-line text contents; the header draws the format.
#include "entities/MTextParser.h"

#include "gi/TextCodes.h"

namespace mtext
{

namespace
{

constexpr wchar_t kHardSpace = 0x00A0;

struct NumberSpan
{
    double value = 0.0;
    std::size_t length = 0; // 0: no number stands there
};

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

// Plain decimal notation only: the whole text is walked once, whatever stands there.
NumberSpan scanNumber(std::wstring_view text)
{
    std::size_t at = 0;
    const bool negative = !text.empty() && text[0] == L'-';
    if (!text.empty() && (text[0] == L'-' || text[0] == L'+'))
        ++at;
    double value = 0.0;
    std::size_t digits = 0;
    for (; at < text.size() && isDigit(text[at]); ++at, ++digits)
        value = value * 10.0 + (text[at] - L'0');
    if (at < text.size() && text[at] == L'.')
    {
        double unit = 0.1;
        for (++at; at < text.size() && isDigit(text[at]); ++at, ++digits, unit *= 0.1)
            value += (text[at] - L'0') * unit;
    }
    if (digits == 0)
        return {};
    return {negative ? -value : value, at};
}

// Where upper and lower part of a stack meet; a backslash takes the next character's meaning away.
std::size_t findStackDivider(std::wstring_view stack)
{
    for (std::size_t i = 0; i < stack.size(); ++i)
    {
        if (stack[i] == L'\\')
            ++i;
        else if (stack[i] == L'^' || stack[i] == L'/' || stack[i] == L'#')
            return i;
    }
    return std::wstring_view::npos;
}

std::size_t findUnescaped(std::wstring_view text, wchar_t wanted)
{
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == L'\\')
            ++i;
        else if (text[i] == wanted)
            return i;
    }
    return std::wstring_view::npos;
}

void appendUnescaped(std::wstring& out, std::wstring_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == L'\\' && i + 1 < text.size())
            ++i;
        out.push_back(text[i]);
    }
}

} // namespace

bool Parser::takeCharacter(Piece& piece, wchar_t character, std::size_t length)
{
    piece.kind = PieceKind::kCharacter;
    piece.character = character;
    m_rest.remove_prefix(length);
    return true;
}

bool Parser::takeKind(Piece& piece, PieceKind kind, std::size_t length)
{
    piece.kind = kind;
    m_rest.remove_prefix(length);
    return true;
}

bool Parser::next(Piece& piece)
{
    piece = Piece();
    while (m_rest.size() >= 2 && m_rest[0] == L'^' && m_rest[1] == L'M')
        m_rest.remove_prefix(2);
    if (m_rest.empty())
        return false;
    const wchar_t first = m_rest.front();
    if (first == L'\\' && readEscape(piece))
        return true;
    if (first == L'%' && readPercent(piece))
        return true;
    if (first == L'^' && readCaret(piece))
        return true;
    if (first == L'{')
        return takeKind(piece, PieceKind::kGroupBegin, 1);
    if (first == L'}')
        return takeKind(piece, PieceKind::kGroupEnd, 1);
    if (first == L'\n')
        return takeKind(piece, PieceKind::kLineEnd, 1);
    return takeCharacter(piece, first, 1);
}

bool Parser::readEscape(Piece& piece)
{
    if (m_rest.size() < 2)
        return false;
    const wchar_t code = m_rest[1];
    switch (code)
    {
    case L'P':
    case L'X':
        return takeKind(piece, PieceKind::kLineEnd, 2);
    case L'N':
        return takeKind(piece, PieceKind::kColumnEnd, 2);
    case L'~':
        return takeCharacter(piece, kHardSpace, 2);
    case L'\\':
    case L'{':
    case L'}':
        return takeCharacter(piece, code, 2);
    case L'L':
    case L'l':
        return readSwitch(piece, PieceKind::kUnderline, code == L'L' ? 1.0 : 0.0);
    case L'O':
    case L'o':
        return readSwitch(piece, PieceKind::kOverline, code == L'O' ? 1.0 : 0.0);
    case L'K':
    case L'k':
        return readSwitch(piece, PieceKind::kStrike, code == L'K' ? 1.0 : 0.0);
    case L'A':
        return readNumber(piece, PieceKind::kLineAlignment, false);
    case L'C':
        return readNumber(piece, PieceKind::kColorIndex, false);
    case L'c':
        return readNumber(piece, PieceKind::kTrueColor, false);
    case L'H':
        return readNumber(piece, PieceKind::kHeight, true);
    case L'W':
        return readNumber(piece, PieceKind::kWidthFactor, true);
    case L'T':
        return readNumber(piece, PieceKind::kTracking, true);
    case L'Q':
        return readNumber(piece, PieceKind::kOblique, false);
    case L'f':
    case L'F':
        return readText(piece, PieceKind::kFont);
    case L'p':
        return readText(piece, PieceKind::kParagraph);
    case L'S':
        return readStack(piece);
    case L'U':
    case L'M':
        return readCodePoint(piece);
    default:
        return false;
    }
}

bool Parser::readSwitch(Piece& piece, PieceKind kind, double state)
{
    piece.number = state;
    return takeKind(piece, kind, 2);
}

bool Parser::readNumber(Piece& piece, PieceKind kind, bool mayBeRelative)
{
    const NumberSpan number = scanNumber(m_rest.substr(2));
    if (number.length == 0)
        return false;
    std::size_t length = 2 + number.length;
    piece.number = number.value;
    piece.relative = mayBeRelative && length < m_rest.size() && (m_rest[length] == L'x' || m_rest[length] == L'X');
    length += piece.relative ? 1 : 0;
    if (length < m_rest.size() && m_rest[length] == L';')
        ++length;
    return takeKind(piece, kind, length);
}

bool Parser::readText(Piece& piece, PieceKind kind)
{
    const std::size_t end = m_rest.find(L';');
    const std::size_t length = end == std::wstring_view::npos ? m_rest.size() : end;
    piece.text = m_rest.substr(2, length - 2);
    piece.character = m_rest[1];
    return takeKind(piece, kind, length + (end == std::wstring_view::npos ? 0 : 1));
}

bool Parser::readStack(Piece& piece)
{
    const std::wstring_view rest = m_rest.substr(2);
    const std::size_t end = findUnescaped(rest, L';');
    const std::wstring_view stack = rest.substr(0, end);
    const std::size_t divider = findStackDivider(stack);
    piece.text = stack.substr(0, divider);
    piece.character = divider == std::wstring_view::npos ? L'\0' : stack[divider];
    piece.lower = divider == std::wstring_view::npos ? std::wstring_view() : stack.substr(divider + 1);
    if (piece.character == L'^' && !piece.lower.empty() && piece.lower.front() == L' ')
        piece.lower.remove_prefix(1);
    return takeKind(piece, PieceKind::kStack, 2 + stack.size() + (end == std::wstring_view::npos ? 0 : 1));
}

bool Parser::readCodePoint(Piece& piece)
{
    const textcodes::Character character = textcodes::readNumberedCharacter(m_rest);
    return character.length != 0 && takeCharacter(piece, character.value, character.length);
}

bool Parser::readPercent(Piece& piece)
{
    const textcodes::Code code = textcodes::readPercentCode(m_rest);
    switch (code.kind)
    {
    case textcodes::CodeKind::kNone:
        return false;
    case textcodes::CodeKind::kCharacter:
        return takeCharacter(piece, code.character, code.length);
    case textcodes::CodeKind::kUnderline:
        piece.number = -1.0;
        return takeKind(piece, PieceKind::kUnderline, code.length);
    case textcodes::CodeKind::kOverline:
        piece.number = -1.0;
        return takeKind(piece, PieceKind::kOverline, code.length);
    case textcodes::CodeKind::kStrike:
        piece.number = -1.0;
        return takeKind(piece, PieceKind::kStrike, code.length);
    }
    return false;
}

bool Parser::readCaret(Piece& piece)
{
    if (m_rest.size() < 2)
        return false;
    switch (m_rest[1])
    {
    case L'I':
        return takeCharacter(piece, L'\t', 2);
    case L'J':
        return takeKind(piece, PieceKind::kLineEnd, 2);
    case L' ':
        return takeCharacter(piece, L'^', 2);
    default:
        return false;
    }
}

std::wstring plainText(std::wstring_view contents)
{
    std::wstring text;
    text.reserve(contents.size());
    Parser parser(contents);
    for (Piece piece; parser.next(piece);)
    {
        if (piece.kind == PieceKind::kCharacter)
            text.push_back(piece.character);
        else if (piece.kind == PieceKind::kLineEnd || piece.kind == PieceKind::kColumnEnd)
            text.push_back(L'\n');
        else if (piece.kind == PieceKind::kStack)
        {
            appendUnescaped(text, piece.text);
            if (!piece.lower.empty())
                text.push_back(piece.character == L'^' ? L'^' : L'/');
            appendUnescaped(text, piece.lower);
        }
    }
    return text;
}

} // namespace mtext
