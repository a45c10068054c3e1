// Reads and prints the numbers of a DXF file. Most coordinates have few digits: they are one exact integer divided by
// one exact power of ten, which needs no general conversion.
#include "Numbers.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace dxf
{
namespace
{

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t kLargestExactInteger = std::uint64_t{1} << 53;

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// Reads [-]digits[.digits] when both the digits and the power of ten are exact in a double.
bool parsePlainReal(std::string_view text, double& value)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    const bool negative = at != end && *at == '-';
    at += negative;
    std::uint64_t digits = 0;
    int decimals = 0;
    const char* const first = at;
    while (at != end && isDigit(*at))
        digits = digits * 10 + static_cast<std::uint64_t>(*at++ - '0');
    std::ptrdiff_t count = at - first;
    if (at != end && *at == '.')
    {
        const char* const point = ++at;
        while (at != end && isDigit(*at))
            digits = digits * 10 + static_cast<std::uint64_t>(*at++ - '0');
        decimals = static_cast<int>(at - point);
        count += decimals;
    }
    if (at != end || count == 0 || count > 19 || digits > kLargestExactInteger)
        return false;
    const double magnitude = static_cast<double>(digits) / kPowersOfTen[decimals];
    value = negative ? -magnitude : magnitude;
    return true;
}

double nearestFinite(std::string_view text)
{
    const bool negative = text.front() == '-';
    const std::size_t exponent = text.find_first_of("eE");
    const bool small = exponent != std::string_view::npos && exponent + 1 < text.size() && text[exponent + 1] == '-';
    const double magnitude = small ? 0.0 : std::numeric_limits<double>::max();
    return negative ? -magnitude : magnitude;
}

NumberText parseAnyReal(std::string_view text, double& value)
{
    value = 0.0;
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    double read = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
    if (error == std::errc::result_out_of_range)
    {
        value = nearestFinite(text);
        return NumberText::Mended;
    }
    if (error != std::errc() || !std::isfinite(read))
        return NumberText::None;
    value = read;
    return end == text.data() + text.size() ? NumberText::Exact : NumberText::Mended;
}

} // namespace

NumberText parseReal(std::string_view text, double& value)
{
    text = trimmed(text);
    return parsePlainReal(text, value) ? NumberText::Exact : parseAnyReal(text, value);
}

NumberText parseInteger(std::string_view text, std::int64_t& value)
{
    text = trimmed(text);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && end == text.data() + text.size())
        return NumberText::Exact;
    double real = 0.0;
    if (parseReal(text, real) == NumberText::None)
        return NumberText::None;
    constexpr double kLimit = 9.2e18;
    value = static_cast<std::int64_t>(real > kLimit ? kLimit : real < -kLimit ? -kLimit : real);
    return NumberText::Mended;
}

char* printReal(double value, char* buffer)
{
    if (!std::isfinite(value))
        value = 0.0;
    char* const end = std::to_chars(buffer, buffer + kLongestNumber - 2, value).ptr;
    const std::size_t length = static_cast<std::size_t>(end - buffer);
    const bool hasPoint = std::memchr(buffer, '.', length) != nullptr;
    if (hasPoint || std::memchr(buffer, 'e', length) != nullptr)
        return end;
    end[0] = '.';
    end[1] = '0';
    return end + 2;
}

char* printInteger(std::int64_t value, char* buffer)
{
    return std::to_chars(buffer, buffer + kLongestNumber, value).ptr;
}

} // namespace dxf
