// Lengths as texts.
//
//   length     = [ sign ] ( feet [ [ blanks ] [ "-" ] [ blanks ] inches ] | inches )
//   feet       = number "'"
//   inches     = ( number | [ integer ( blanks | "-" ) ] fraction ) [ '"' ]
//   fraction   = integer "/" integer                                      the lower one is not zero
//   number     = digits [ "." digits ] [ "E" [ sign ] digits ]            digits on one side of the point are enough
//
// A foot is twelve units, an inch is one.
#pragma once

#include "UnitsFormatter.h"

namespace odunits
{

/** How a length is written. */
struct LinearForm
{
    OdUnitsFormatter::LUnits units = OdUnitsFormatter::kDecimal;
    int precision = 4;
    int zeros = 0;        ///< a combination of Zeros
    bool asTyped = false; ///< without blanks, as it may be typed where a blank ends the answer
};

/** Both throw OdError (eInvalidInput): for a value that is not finite, for a text that is no length. */
OdString writeLength(double value, const LinearForm& form);
double readLength(const OdString& text);

} // namespace odunits
