// Angles as texts.
//
//   angle    = [ sign ] ( degrees | number "g" | number "r" | number ) | bearing
//   degrees  = number "d" [ number "'" [ number '"' ] ]                only the last number may have decimal places,
//                                                                      minutes and seconds are less than 60
//   bearing  = "N" | "E" | "S" | "W" | ( "N" | "S" ) ( degrees | number ) ( "E" | "W" )     0 to 90 degrees
//   number   = digits [ "." digits ] [ "E" [ sign ] digits ]           digits on one side of the point are enough
//
// Blanks may stand around the angle of a bearing. "d" may be written as the degree sign. A number alone is in the form
// that the drawing says, in degrees for degrees, minutes and seconds and for bearings. Angles run counter-clockwise
// from east. Those that are written lie from 0 up to a full turn.
#pragma once

#include "UnitsFormatter.h"

namespace odunits
{

/** How an angle is written. */
struct AngleForm
{
    OdUnitsFormatter::AUnits units = OdUnitsFormatter::kDecimalDegrees;
    int precision = 4;
    int zeros = 0;        ///< a combination of Zeros
    bool asTyped = false; ///< without blanks
};

/** Both throw OdError (eInvalidInput): for a value that is not finite, for a text that is no angle. */
OdString writeAngle(double radians, const AngleForm& form);
double readAngle(const OdString& text, OdUnitsFormatter::AUnits plainNumbers);

inline constexpr double kPi = 3.14159265358979323846;

} // namespace odunits
