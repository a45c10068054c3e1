// What a library reads out of image files.
#pragma once

#include <vector>

#include "OdString.h"

namespace raster
{

struct Header
{
    OdUInt32 width = 0; ///< in pixels
    OdUInt32 height = 0;
    double xPixelsPerInch = 0.0; ///< 0 when the file says nothing of it
    double yPixelsPerInch = 0.0;
};

/// Must be called once before anything is read, and after everything.
void startLibrary();
void stopLibrary();

/// Each throws OdError_CantOpenFile, with the reason, for a file that cannot be read or holds no picture.
Header readHeader(const OdString& fileName);

/// Four bytes for each pixel, as OdGiRasterImage::scanLines has them, all rows from the top down. The file must still
/// hold a picture of the header's size.
std::vector<OdUInt8> readPixels(const OdString& fileName, const Header& header);

} // namespace raster
