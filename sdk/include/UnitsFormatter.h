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
    enum LUnits : int
    {
        kScientific = 1,    ///< 1.5000E+00
        kDecimal = 2,       ///< 1.5000
        kEngineering = 3,   ///< feet and decimal inches: 0'-1.5000"
        kArchitectural = 4, ///< feet and fractions of inches: 0'-1 1/2"
        kFractional = 5     ///< 1 1/2
    };

    /** The forms of angles, with an eighth of a full turn as an example. */
    enum AUnits : int
    {
        kDecimalDegrees = 0, ///< 45.0000
        kDegMinSec = 1,      ///< 45d0'0"
        kGradians = 2,       ///< 50.0000g
        kRadians = 3,        ///< 0.7854r
        kSurveyor = 4        ///< N 45d0'0" E
    };

    virtual ~OdUnitsFormatter() = default;

    /** A length in the form that the drawing says (LUNITS, LUPREC, DIMZIN). precision is the number of decimal places,
        or the power of two that fractions go to, 0 to 8; smaller and greater ones count as these. zeros says which
        zeros are left out, as DIMZIN does: in feet and inches 0 zero feet and exactly zero inches, 1 none, 2 zero
        inches, 3 zero feet; 4 those before the decimal point, 8 those at the end. In a drawing whose UNITMODE is 1
        nothing that is written has blanks, so that it may be typed. Throws OdError (eInvalidInput) for a value that is
        not finite. */
    virtual OdString formatLinear(double value) const = 0;
    virtual OdString formatLinear(double value, LUnits units, int precision, int zeros) const = 0;

    /** A length from a text in any of the forms, whichever the drawing uses: 12.5, 1.25E+1, 1'-0 1/2", 12 1/2. */
    virtual double unformatLinear(const OdString& text) const = 0;

    /** An angle in radians, counter-clockwise from east, in the form that the drawing says (AUNITS, AUPREC, DIMAZIN).
        One outside of a full turn is written as the one within that it equals. precision is the number of decimal
        places; of degrees, minutes and seconds, which bearings are written in too, it says how much is written (0:
        degrees, 1 and 2: minutes, 3 and 4: seconds, more: their decimal places). Throws as formatLinear. */
    virtual OdString formatAngle(double value) const = 0;
    virtual OdString formatAngle(double value, AUnits units, int precision, int zeros) const = 0;

    /** An angle in radians from a text in any of the forms; a plain number is in the form that the drawing says. */
    virtual double unformatAngle(const OdString& text) const = 0;

    /** A colour by its name ("ByLayer", "ByBlock", "red" to "magenta" and "white"), else its number, else as "R,G,B".
        Throws OdError (eInvalidInput) for a colour that is none. */
    virtual OdString formatCmColor(const OdCmColorBase& value) const = 0;
    /** Never null. */
    virtual OdCmColorBasePtr unformatCmColor(const OdString& text) const = 0;
};
