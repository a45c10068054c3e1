// Numbers that are beyond what the JSON parser reads. A JSON number may have any size; one that is too large, or has
// too many digits, is taken out of the text before it is parsed, with a 0 in its place, and put back when the parser
// comes to it.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace session
{

class LargeNumbers
{
public:
    // Takes the large numbers out of the units of one JSON value, which keep their number. In its bytes is looked first
    // whether there may be any.
    void takeOut(std::string_view utf8, std::span<wchar_t> units);

    // Called for each number in the order of the text: the number as it was written, null for one that was not taken
    // out.
    const std::string* next();

private:
    struct Taken
    {
        std::size_t position; // counted in numbers
        std::string digits;
    };

    void takeOutOf(std::span<wchar_t> units);

    std::vector<Taken> m_taken;
    std::size_t m_nextTaken = 0;
    std::size_t m_nextNumber = 0;
};

} // namespace session
