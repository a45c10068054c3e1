// The measures of characters where no font is installed: those of a common sans-serif face, from a table, so that
// drawings have the same extents on every machine without fonts. All figures are in text heights, where 1 is the height
// of a capital letter.
#pragma once

namespace fonts
{

/// From one character to the next.
double averageAdvance(wchar_t character);

/// How far a character reaches below the base line.
double averageDescent(wchar_t character);

} // namespace fonts
