// Numbers as digits.
#pragma once

#include "OdString.h"

namespace odunits
{

/** Which zeros are left out; combined with |. The first three bits only matter for feet and inches. */
enum Zeros
{
    kFeetAndInchesMask = 0x3,
    kZeroFeetAndInchesLeftOut = 0,
    kZerosWritten = 1,
    kZeroInchesLeftOut = 2,
    kZeroFeetLeftOut = 3,
    kLeadingLeftOut = 0x4, ///< the one before the decimal point
    kTrailingLeftOut = 0x8 ///< those at the end of decimal places
};

/** The number of decimal places, or the power of two, that is used for a given one: 0 to 8. */
int allowedPrecision(int precision);

/** Throws OdError (eInvalidInput) for a value that is no number or without end. */
void requireFinite(double value);

/** The value to so many decimal places. */
double rounded(double value, int decimals);

/** A value that is not negative with that many decimal places. */
OdString decimal(double value, int precision, int zeros);

/** A value that is not negative as 1.5000E+00. */
OdString scientific(double value, int precision, int zeros);

/** A sign for what is written of a negative value: "-", but nothing when only zeros are written. */
OdString signFor(double value, const OdString& written);

} // namespace odunits
