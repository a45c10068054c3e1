// How wide a line of text is and how far it reaches below its base line, without any font file at hand: a table of the
// advance widths of a common sans-serif face serves for every text style. All figures are in text heights, where 1 is
// the height of a capital letter.
#pragma once

#include <string_view>

namespace textmetrics
{

// How far letters such as g, p and y reach below the base line.
constexpr double kDescent = 0.29;

// From one base line to the next of a multi-line text with spacing factor 1.
constexpr double kLineSpacing = 5.0 / 3.0;

struct Size
{
    double width = 0.0;   // sum of the advances
    double descent = 0.0; // deepest reach below the base line, 0 when no character goes below it
};

// The advance from this character to the next one.
double advance(wchar_t character);

// The reach of one character below the base line.
double descent(wchar_t character);

// The size of characters set in one line.
Size measure(std::wstring_view characters);

} // namespace textmetrics
