// Pictures in files, as programs and renderers see them.
#pragma once

#include "OdPlatform.h"
#include "RxObject.h"

/** An OdGiRasterImage is one picture. Its size and resolution are known at once; its pixels are read when they are
    asked for first. One thread at a time may use it. */
class OdGiRasterImage : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdGiRasterImage);

    enum Units : int
    {
        kNone = 0,
        kMillimeter = 1,
        kCentimeter = 2,
        kMeter = 3,
        kInch = 5
    };

    /** The size in pixels; both are above 0. */
    virtual OdUInt32 pixelWidth() const = 0;
    virtual OdUInt32 pixelHeight() const = 0;

    /** The resolution that the file gives: pixels in one unit across and upward. Returns kNone, and sets both to 1, for
        a file that gives none. */
    virtual Units defaultResolution(double& xPelsPerUnit, double& yPelsPerUnit) const = 0;

    /** The number of bytes of a row of scanLines. */
    OdUInt32 scanLineSize() const { return pixelWidth() * 4; }

    /** Copies rows of pixels to a buffer of numLines times scanLineSize bytes: from the top of the picture down, each
        row from left to right, each pixel blue, green, red and alpha, where alpha 0 is invisible and colours are not
        multiplied by it. Throws OdError: eInvalidIndex for rows that the picture does not have, eCantOpenFile for a
        picture whose pixels cannot be read. */
    virtual void scanLines(OdUInt8* buffer, OdUInt32 firstScanline, OdUInt32 numLines = 1) const = 0;
};
using OdGiRasterImagePtr = OdSmartPtr<OdGiRasterImage>;
