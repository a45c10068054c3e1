// Colours as texts.
//
//   colour = name | integer | integer "," integer "," integer     a number to 256, or red, green and blue to 255
//   name   = "ByLayer" | "ByBlock" | "red" | "yellow" | "green" | "cyan" | "blue" | "magenta" | "white"
//
// Case does not matter, and blanks may stand around the commas. 0 is by block, 256 by layer, 1 to 7 are the colours
// that have names.
#pragma once

#include "UnitsFormatter.h"

namespace odunits
{

/** Both throw OdError (eInvalidInput): for a colour that is none, for a text that is no colour. */
OdString writeColor(const OdCmColorBase& color);
OdCmColor readColor(const OdString& text);

} // namespace odunits
