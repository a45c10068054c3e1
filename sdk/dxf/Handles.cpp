// Reads and prints handles.
#include "Handles.h"

#include "Numbers.h"

#include <bit>

namespace dxf
{

int hexDigit(char character)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool parseHandle(std::string_view text, std::uint64_t& handle)
{
    text = trimmed(text);
    std::uint64_t value = 0;
    for (const char character : text)
    {
        const int digit = hexDigit(character);
        if (digit < 0 || (value >> 60) != 0)
            return false;
        value = value << 4 | static_cast<std::uint64_t>(digit);
    }
    if (text.empty())
        return false;
    handle = value;
    return true;
}

char* printHandle(std::uint64_t handle, char* buffer)
{
    for (int shift = (63 - std::countl_zero(handle | 1)) / 4 * 4; shift >= 0; shift -= 4)
        *buffer++ = "0123456789ABCDEF"[(handle >> shift) & 15];
    return buffer;
}

std::string handleText(std::uint64_t handle)
{
    char digits[16];
    return std::string(digits, printHandle(handle, digits));
}

} // namespace dxf
