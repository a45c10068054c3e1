// Writes lengths.
#include <cmath>

#include "units/Digits.h"
#include "units/Linear.h"

namespace odunits
{

namespace
{

constexpr double kInchesPerFoot = 12.0;

/// A value as a whole part and a fraction in lowest terms.
struct Mixed
{
    double whole = 0.0;
    int numerator = 0;
    int denominator = 1;
};

Mixed toMixed(double value, int precision)
{
    Mixed mixed;
    mixed.denominator = 1 << allowedPrecision(precision);
    const double fraction = std::modf(value, &mixed.whole);
    mixed.numerator = static_cast<int>(std::lround(fraction * mixed.denominator));
    if (mixed.numerator == mixed.denominator)
    {
        mixed.whole += 1.0;
        mixed.numerator = 0;
    }
    while (mixed.denominator > 1 && mixed.numerator % 2 == 0)
    {
        mixed.numerator /= 2;
        mixed.denominator /= 2;
    }
    return mixed;
}

OdString fractionOf(const Mixed& mixed)
{
    return OdString().format(L"%d/%d", mixed.numerator, mixed.denominator);
}

OdString writeMixed(const Mixed& mixed, const LinearForm& form, bool zeroWholeWritten)
{
    if (mixed.numerator == 0)
        return decimal(mixed.whole, 0, 0);
    if (mixed.whole == 0.0 && !zeroWholeWritten)
        return fractionOf(mixed);
    return decimal(mixed.whole, 0, 0) + (form.asTyped ? L"-" : L" ") + fractionOf(mixed);
}

OdString joinFeetAndInches(double feet, const OdString& inches, bool inchesAreZero, const LinearForm& form)
{
    const int zeros = form.zeros & kFeetAndInchesMask;
    const bool zeroFeetWritten = zeros == kZerosWritten || zeros == kZeroInchesLeftOut;
    const bool zeroInchesWritten = zeros == kZerosWritten || zeros == kZeroFeetLeftOut;
    const bool feetWritten = feet != 0.0 || zeroFeetWritten;
    const bool inchesWritten = !inchesAreZero || zeroInchesWritten || !feetWritten;
    OdString text;
    if (feetWritten)
        text += decimal(feet, 0, 0) + L"'";
    if (feetWritten && inchesWritten && !form.asTyped)
        text += L"-";
    if (inchesWritten)
        text += inches + L"\"";
    return text;
}

// Inches that round up to a foot are one.
OdString writeEngineering(double value, const LinearForm& form)
{
    const double unrounded = std::fmod(value, kInchesPerFoot);
    double feet = (value - unrounded) / kInchesPerFoot;
    double inches = rounded(unrounded, allowedPrecision(form.precision));
    if (inches >= kInchesPerFoot)
    {
        feet += 1.0;
        inches = 0.0;
    }
    return joinFeetAndInches(feet, decimal(inches, form.precision, form.zeros), inches == 0.0, form);
}

OdString writeArchitectural(double value, const LinearForm& form)
{
    Mixed mixed = toMixed(value, form.precision);
    const double inches = std::fmod(mixed.whole, kInchesPerFoot);
    const double feet = (mixed.whole - inches) / kInchesPerFoot;
    mixed.whole = inches;
    const int zeros = form.zeros & kFeetAndInchesMask;
    const bool zeroInchWritten = feet != 0.0 || zeros != kZeroFeetAndInchesLeftOut;
    const bool isZero = mixed.whole == 0.0 && mixed.numerator == 0;
    return joinFeetAndInches(feet, writeMixed(mixed, form, zeroInchWritten), isZero, form);
}

OdString writeMagnitude(double value, const LinearForm& form)
{
    switch (form.units)
    {
    case OdUnitsFormatter::kScientific:
        return scientific(value, form.precision, form.zeros);
    case OdUnitsFormatter::kEngineering:
        return writeEngineering(value, form);
    case OdUnitsFormatter::kArchitectural:
        return writeArchitectural(value, form);
    case OdUnitsFormatter::kFractional:
        return writeMixed(toMixed(value, form.precision), form, false);
    case OdUnitsFormatter::kDecimal:
        break;
    }
    return decimal(value, form.precision, form.zeros);
}

} // namespace

OdString writeLength(double value, const LinearForm& form)
{
    requireFinite(value);
    const OdString magnitude = writeMagnitude(std::abs(value), form);
    return signFor(value, magnitude) + magnitude;
}

} // namespace odunits
