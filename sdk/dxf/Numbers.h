// Numbers as a DXF file spells them: read from a line whatever the program that wrote it was used to, printed in the
// shortest form that reads back as the same value.
#pragma once

#include <cstdint>
#include <string_view>

namespace dxf
{

/// How well a text could be read as a number.
enum class NumberText
{
    Exact,  ///< the text is a number
    Mended, ///< a number begins the text, or the value had to be forced into the range of its type
    None,   ///< no number; the value is 0
};

/// Returns the text without blanks, tabs and line ends at both ends.
inline std::string_view trimmed(std::string_view text)
{
    const auto isBlank = [](char character) { return character == ' ' || (character >= '\t' && character <= '\r'); };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Reads a real number. An overflow becomes the largest real, "nan" and "inf" count as no number.
NumberText parseReal(std::string_view text, double& value);

/// Reads a whole number; a real without fraction ("1.0") is mended into one.
NumberText parseInteger(std::string_view text, std::int64_t& value);

/// Longest text that printReal and printInteger make.
constexpr int kLongestNumber = 32;

/// Prints a real number so that it reads back as the same value; whole numbers end in ".0". A number that is not finite
/// is printed as 0.0. Returns the end of what was written; the buffer holds kLongestNumber characters.
char* printReal(double value, char* buffer);

/// Prints a whole number and returns the end of what was written.
char* printInteger(std::int64_t value, char* buffer);

} // namespace dxf
