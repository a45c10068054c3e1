// Reads and prints the numbers of a DXF file. Most coordinates have few digits: they are one exact integer divided by
// one exact power of ten, which needs no general conversion.
#include "Numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

namespace dxf
{
namespace
{

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t kLargestExactInteger = std::uint64_t{1} << 53;

constexpr auto kDigitPairs = []
{
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i)
        pairs[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
    return pairs;
}();

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

char* printPair(std::uint64_t pair, char* at)
{
    std::memcpy(at, &kDigitPairs[2 * pair], 2);
    return at + 2;
}

template<class Unsigned>
char* printDigits(Unsigned value, char* at)
{
    if (value < 10)
    {
        *at = static_cast<char>('0' + value);
        return at + 1;
    }
    if (value < 100)
        return printPair(value, at);
    return printPair(value % 100, printDigits(value / 100, at));
}

// Prints a fraction of nine digits without the zeros at its end, but one digit at least.
char* printFraction(std::uint32_t fraction, char* at)
{
    if (fraction == 0)
    {
        *at = '0';
        return at + 1;
    }
    char* end = at + 9;
    for (char* pair = end - 2; pair > at; pair -= 2, fraction /= 100)
        printPair(fraction % 100, pair);
    *at = static_cast<char>('0' + fraction);
    while (end[-1] == '0')
        --end;
    return end;
}

// Prints digits / 10^decimals; so much is known when it is compiled, so that nothing is divided.
template<int decimals>
char* printDecimal(std::uint64_t digits, char* at)
{
    constexpr auto kScale = static_cast<std::uint64_t>(kPowersOfTen[decimals]);
    constexpr auto kMissing = static_cast<std::uint32_t>(kPowersOfTen[9 - decimals]);
    using Whole = std::conditional_t<decimals == 9, std::uint32_t, std::uint64_t>; // below a million then
    at = printDigits(static_cast<Whole>(digits / kScale), at);
    *at++ = '.';
    return printFraction(static_cast<std::uint32_t>(digits % kScale) * kMissing, at);
}

// Prints a number that is exactly a short decimal one: what comes of reading digits / 10^decimals back when it has so
// few digits is the same number, and no shorter text is. Null for any other.
template<int decimals>
char* printIfDecimal(double value, char* at)
{
    const double magnitude = std::fabs(value);
    // Wrong rounding is found out below. NOLINTNEXTLINE(bugprone-incorrect-roundings)
    const auto digits = static_cast<std::uint64_t>(magnitude * kPowersOfTen[decimals] + 0.5);
    if (static_cast<double>(digits) / kPowersOfTen[decimals] != magnitude)
        return nullptr;
    *at = '-';
    return printDecimal<decimals>(digits, at + (value < 0.0));
}

// The same with as many decimals as there is room for within fifteen digits. Null also for the negative zero, and for
// numbers so small that the form with an exponent is shorter.
char* printPlainReal(double value, char* buffer)
{
    constexpr double kSmall = 1e-4;
    const double magnitude = std::fabs(value);
    if (magnitude < kSmall)
    {
        constexpr std::string_view kZero = "0.0";
        char* const end = std::copy(kZero.begin(), kZero.end(), buffer);
        return std::bit_cast<std::uint64_t>(value) == 0 ? end : nullptr;
    }
    if (magnitude < 1e6)
        return printIfDecimal<9>(value, buffer);
    if (magnitude < 1e9)
        return printIfDecimal<6>(value, buffer);
    if (magnitude < 1e12)
        return printIfDecimal<3>(value, buffer);
    return magnitude < 1e15 ? printIfDecimal<0>(value, buffer) : nullptr;
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

NumberText parseBlankedReal(std::string_view text, double& value)
{
    return parsePlainReal(text, value) ? NumberText::Exact : parseAnyReal(text, value);
}

} // namespace

NumberText parseReal(std::string_view text, double& value)
{
    return parsePlainReal(text, value) ? NumberText::Exact : parseBlankedReal(trimmed(text), value);
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
    if (char* const printed = printPlainReal(value, buffer))
        return printed;
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
    if (value >= 0)
        return printDigits(static_cast<std::uint64_t>(value), buffer);
    return std::to_chars(buffer, buffer + kLongestNumber, value).ptr;
}

} // namespace dxf
