// Writes angles.
#include <algorithm>
#include <cmath>

#include "units/Angles.h"
#include "units/Digits.h"

namespace odunits
{

namespace
{

constexpr double kFullTurn = 360.0;

// How much of degrees, minutes and seconds a precision writes.
enum class Sexagesimal
{
    Degrees,
    Minutes,
    Seconds
};

Sexagesimal partsFor(int precision)
{
    if (precision == 0)
        return Sexagesimal::Degrees;
    return precision <= 2 ? Sexagesimal::Minutes : Sexagesimal::Seconds;
}

int secondsDecimals(int precision)
{
    return std::max(0, precision - 4);
}

// Degrees rounded to what will be written, so that 59.9999 seconds become a minute.
double roundedDegrees(double degrees, int precision)
{
    switch (partsFor(precision))
    {
    case Sexagesimal::Degrees:
        return std::round(degrees);
    case Sexagesimal::Minutes:
        return std::round(degrees * 60.0) / 60.0;
    case Sexagesimal::Seconds:
        break;
    }
    return rounded(degrees * 3600.0, secondsDecimals(precision)) / 3600.0;
}

OdString writeSexagesimal(double degrees, const AngleForm& form)
{
    const int precision = allowedPrecision(form.precision);
    const int decimals = secondsDecimals(precision);
    const Sexagesimal parts = partsFor(precision);
    // Whole units of what is written last, so that nothing is lost on the way.
    const double unitsPerSecond = std::pow(10.0, decimals);
    const double units = std::round(roundedDegrees(degrees, precision) * 3600.0 * unitsPerSecond);
    const double wholeDegrees = std::floor(units / (3600.0 * unitsPerSecond));
    const double rest = units - wholeDegrees * 3600.0 * unitsPerSecond;
    const double minutes = std::floor(rest / (60.0 * unitsPerSecond));
    const double seconds = (rest - minutes * 60.0 * unitsPerSecond) / unitsPerSecond;
    OdString text = decimal(wholeDegrees, 0, 0) + L"d";
    if (parts != Sexagesimal::Degrees)
        text += decimal(minutes, 0, 0) + L"'";
    if (parts == Sexagesimal::Seconds)
        text += decimal(seconds, decimals, form.zeros & kTrailingLeftOut) + L"\"";
    return text;
}

// degrees lies from 0 up to a full turn.
OdString writeBearing(double degrees, const AngleForm& form)
{
    constexpr const OdChar* kDirections[] = {L"E", L"N", L"W", L"S"};
    const double exact = roundedDegrees(degrees, allowedPrecision(form.precision));
    const int quarter = static_cast<int>(exact / 90.0) % 4;
    if (std::fmod(exact, 90.0) == 0.0)
        return kDirections[quarter];
    const bool isNorth = quarter < 2;
    const double fromPole = std::abs(exact - (isNorth ? 90.0 : 270.0));
    const OdString blank = form.asTyped ? L"" : L" ";
    return (isNorth ? L"N" : L"S") + blank + writeSexagesimal(fromPole, form) + blank +
           (quarter == 0 || quarter == 3 ? L"E" : L"W");
}

double withinTurn(double value, double fullTurn)
{
    const double rest = std::fmod(value, fullTurn);
    return rest < 0.0 ? rest + fullTurn : rest;
}

// A value that rounds up to the full turn is none.
OdString writeDecimal(double value, double fullTurn, const AngleForm& form)
{
    const double written = rounded(value, allowedPrecision(form.precision));
    return decimal(written >= fullTurn ? 0.0 : value, form.precision, form.zeros);
}

} // namespace

OdString writeAngle(double radians, const AngleForm& form)
{
    requireFinite(radians);
    const double turn = withinTurn(radians / (2.0 * kPi), 1.0);
    const double degrees = withinTurn(turn * kFullTurn, kFullTurn);
    switch (form.units)
    {
    case OdUnitsFormatter::kDegMinSec:
        return writeSexagesimal(withinTurn(roundedDegrees(degrees, allowedPrecision(form.precision)), kFullTurn), form);
    case OdUnitsFormatter::kGradians:
        return writeDecimal(turn * 400.0, 400.0, form) + L"g";
    case OdUnitsFormatter::kRadians:
        return writeDecimal(withinTurn(radians, 2.0 * kPi), 2.0 * kPi, form) + L"r";
    case OdUnitsFormatter::kSurveyor:
        return writeBearing(withinTurn(roundedDegrees(degrees, allowedPrecision(form.precision)), kFullTurn), form);
    case OdUnitsFormatter::kDecimalDegrees:
        break;
    }
    return writeDecimal(degrees, kFullTurn, form);
}

} // namespace odunits
