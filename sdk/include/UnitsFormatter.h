// Lengths, angles and colours as texts.
#pragma once

#include "CmColorBase.h"
#include "OdString.h"
#include "SharedPtr.h"

using OdCmColorBasePtr = OdSharedPtr<OdCmColorBase>;

/** An OdUnitsFormatter writes lengths, angles and colours as people read them and reads what people type. Each reading
    operation throws OdError (eInvalidInput) for a text that it cannot read, blanks around a text do not matter, and
    whatever an operation wrote it reads back, as exactly as it was written. */
class OdUnitsFormatter
{
public:
    /** The forms of lengths, with one and a half units as an example. */
    enum LUnits
    {
        kScientific = 1,    ///< 1.5000E+00
        kDecimal = 2,       ///< 1.5000
        kEngineering = 3,   ///< feet and decimal inches: 0'-1.5000"
        kArchitectural = 4, ///< feet and fractions of inches: 0'-1 1/2"
        kFractional = 5     ///< 1 1/2
    };

    /** The forms of angles, with an eighth of a full turn as an example. */
    enum AUnits
    {
        kDecimalDegrees = 0, ///< 45.0000
        kDegMinSec = 1,      ///< 45d0'0"
        kGradians = 2,       ///< 50.0000g
        kRadians = 3,        ///< 0.7854r
        kSurveyor = 4        ///< N 45d0'0" E
    };

    virtual ~OdUnitsFormatter() = default;

    /** A length in the form that the drawing says. precision is the number of decimal places, or the power of two that
        fractions go to, 0 to 8; smaller and greater ones count as these. zeros is a combination of what DIMZIN says
        about the zeros that are left out: in feet and inches 0 to 3 (0: zero feet and exactly zero inches, 1: none, 2:
        zero feet, 3: zero inches), 4 those before the decimal point, 8 those at the end. */
    virtual OdString formatLinear(double value) const = 0;
    virtual OdString formatLinear(double value, LUnits units, int precision, int zeros) const = 0;

    /** A length from a text in any of the forms, whichever the drawing uses. */
    virtual double unformatLinear(const OdString& text) const = 0;

    /** An angle in radians in the form that the drawing says. Surveyor's angles are written as bearings; precision is
       the number of decimal places, in degrees, minutes and seconds 0 to 8 for how much is written (0: degrees, 1 and
       2: minutes, 3 and 4: seconds, more: their decimal places). */
    virtual OdString formatAngle(double value) const = 0;
    virtual OdString formatAngle(double value, AUnits units, int precision, int zeros) const = 0;

    /** An angle in radians from a text in any of the forms; a plain number is in the form that the drawing says. */
    virtual double unformatAngle(const OdString& text) const = 0;

    /** A colour by its name ("ByLayer", "ByBlock", "red" to "magenta" and "white"), else its number, else "R,G,B"; one
        from a colour book as "book$colour". */
    virtual OdString formatCmColor(const OdCmColorBase& value) const = 0;
    /** Never null. */
    virtual OdCmColorBasePtr unformatCmColor(const OdString& text) const = 0;
};
