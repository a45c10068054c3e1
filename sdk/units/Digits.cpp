// Writes numbers independent of the language of the system.
#include "units/Digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "OdError.h"

namespace odunits
{

namespace
{

// More than the digits of the greatest double with eight decimal places.
constexpr std::size_t kMostDigits = 400;

std::string digitsOf(double value, std::chars_format form, int precision)
{
    char buffer[kMostDigits];
    const std::to_chars_result end = std::to_chars(buffer, buffer + kMostDigits, value, form, precision);
    return std::string(buffer, end.ptr);
}

// digits is "123.450"; what is left is "123.45", "123" or, where all of it would go, "0".
std::string withoutZeros(std::string digits, int zeros)
{
    if ((zeros & kTrailingLeftOut) && digits.find('.') != std::string::npos)
    {
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.back() == '.')
            digits.pop_back();
    }
    if ((zeros & kLeadingLeftOut) && digits.starts_with("0."))
        digits.erase(0, 1);
    return digits;
}

} // namespace

int allowedPrecision(int precision)
{
    return std::clamp(precision, 0, 8);
}

void requireFinite(double value)
{
    if (!std::isfinite(value))
        throw OdError(eInvalidInput);
}

double rounded(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

OdString decimal(double value, int precision, int zeros)
{
    const std::string digits = digitsOf(value, std::chars_format::fixed, allowedPrecision(precision));
    return OdString(withoutZeros(digits, zeros).c_str());
}

OdString scientific(double value, int precision, int zeros)
{
    const std::string digits = digitsOf(value, std::chars_format::scientific, allowedPrecision(precision));
    const std::size_t exponent = digits.find('e');
    OdString text(withoutZeros(digits.substr(0, exponent), zeros & kTrailingLeftOut).c_str());
    text += OdString(digits.substr(exponent).c_str()).makeUpper();
    return text;
}

OdString signFor(double value, const OdString& written)
{
    return value < 0.0 && written.findOneOf(L"123456789") >= 0 ? L"-" : L"";
}

} // namespace odunits
