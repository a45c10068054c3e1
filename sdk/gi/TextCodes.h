// The codes that stand inside the string of a single-line text for characters and line styles that a keyboard lacks:
//
//   %%c diameter sign    %%d degree sign     %%p plus-minus sign     %%% percent sign
//   %%u underline        %%o overline        %%k strike-through      each switches the style on and off
//   %%nnn                the character with the decimal number nnn
//   \U+XXXX              the character with the hexadecimal Unicode number XXXX
//   \M+nXXXX             the character with the hexadecimal number XXXX of East Asian code page n
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace textcodes
{

enum class CodeKind : std::uint8_t
{
    kNone,
    kCharacter,
    kUnderline,
    kOverline,
    kStrike
};

struct Code
{
    CodeKind kind = CodeKind::kNone;
    wchar_t character = 0;
    std::size_t length = 0; // characters that the code takes, 0 when there is none
};

struct Character
{
    wchar_t value = 0;
    std::size_t length = 0; // characters read, 0 when none stands there
};

// The code that text begins with.
Code readPercentCode(std::wstring_view text);

// The character that text begins with as \U+XXXX (a pair of surrogates is one character) or \M+nXXXX.
Character readNumberedCharacter(std::wstring_view text);

// What text begins with: one character that a reader sees, or a code that switches a line style.
struct Visible
{
    CodeKind kind = CodeKind::kCharacter; // never kNone
    wchar_t character = 0;
    std::size_t length = 1;
};

// text must not be empty.
Visible readVisible(std::wstring_view text);

// The characters that a reader of a single-line text sees.
std::wstring visibleText(std::wstring_view text);

} // namespace textcodes
