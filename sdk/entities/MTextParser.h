// Reads the contents of a multi-line text (MTEXT) piece by piece: the characters a reader sees, the places where a
// line ends, and the format codes that change how what follows looks.
//
//   contents := { piece }
//   piece    := character
//             | "\P" new line         | "\N" new column          | "\X" end of the text above a dimension line
//             | "\~" hard space       | "\\" "\{" "\}" the character itself
//             | "\L" "\l" "\O" "\o" "\K" "\k"                    underline, overline, strike-through on and off
//             | "\A" digit ";"        alignment within the line  0 bottom, 1 middle, 2 top
//             | "\C" number ";"       colour index               | "\c" number ";"  true colour, blue-green-red
//             | "\H" number ["x"] ";" height (x: times what it was)
//             | "\W" number ["x"] ";" width factor
//             | "\Q" number ";"       oblique angle in degrees
//             | "\T" number ["x"] ";" tracking
//             | "\f" name {"|" option} ";"  or "\F" name ";"      typeface or shape file
//             | "\p" options ";"      paragraph: indents, tabs
//             | "\S" upper ("^" | "/" | "#") lower ";"           stacked fraction or tolerance
//             | "\U+" 4 hex digits    | "\M+" digit 4 hex digits  one character by number
//             | "{" contents "}"      what is changed inside ends with the group
//             | "^I" tab | "^J" new line | "^M" nothing | "^ " a caret
//             | "%%c" diameter | "%%d" degree | "%%p" plus-minus | "%%nnn" one character by number
//             | "%%u" "%%o" "%%k"                                underline, overline, strike-through switched
//
// What does not follow these rules is text: it is shown as it stands. Nothing is an error.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mtext
{

enum class PieceKind : std::uint8_t
{
    kEnd,
    kCharacter,     // character
    kLineEnd,       // paragraph end
    kColumnEnd,     // column break, also a line end
    kStack,         // upper over lower
    kHeight,        // number, relative
    kWidthFactor,   // number, relative
    kOblique,       // number in degrees
    kTracking,      // number, relative
    kLineAlignment, // number 0, 1, 2
    kColorIndex,    // number
    kTrueColor,     // number 0xBBGGRR
    kFont,          // text: name and options, character: f or F
    kParagraph,     // text: options
    kUnderline,     // number 1 on, 0 off, -1 the other way
    kOverline,
    kStrike,
    kGroupBegin,
    kGroupEnd
};

struct Piece
{
    PieceKind kind = PieceKind::kEnd;
    wchar_t character = 0;
    double number = 0.0;
    bool relative = false;
    std::wstring_view text; // upper part of a stack, font name, paragraph options; points into the contents
    std::wstring_view lower;
};

// Walks over contents once from the first character to the last. The contents must outlive the parser.
class Parser
{
public:
    explicit Parser(std::wstring_view contents) : m_rest(contents) {}

    // Fills piece with the next piece and returns true, or returns false at the end of the contents.
    bool next(Piece& piece);

private:
    bool readEscape(Piece& piece);
    bool readPercent(Piece& piece);
    bool readCaret(Piece& piece);
    bool readNumber(Piece& piece, PieceKind kind, bool mayBeRelative);
    bool readSwitch(Piece& piece, PieceKind kind, double state);
    bool readText(Piece& piece, PieceKind kind);
    bool readStack(Piece& piece);
    bool readCodePoint(Piece& piece);
    bool takeCharacter(Piece& piece, wchar_t character, std::size_t length);
    bool takeKind(Piece& piece, PieceKind kind, std::size_t length);

    std::wstring_view m_rest;
};

// The text that a reader sees: no format codes, one '\n' where a line ends, stacks as upper/lower.
std::wstring plainText(std::wstring_view contents);

} // namespace mtext
