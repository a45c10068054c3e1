// The module object and the pictures that it gives.
#include "RxRasterServices.h"

#include <cstring>

#include <unistd.h>

#include "DynamicLinker.h"
#include "OdError.h"
#include "RxObjectImpl.h"
#include "raster/ImageFile.h"

namespace
{

class Picture : public OdGiRasterImage
{
public:
    void read(const OdString& fileName)
    {
        m_fileName = fileName;
        m_header = raster::readHeader(fileName);
    }

    OdUInt32 pixelWidth() const override { return m_header.width; }
    OdUInt32 pixelHeight() const override { return m_header.height; }

    Units defaultResolution(double& xPelsPerUnit, double& yPelsPerUnit) const override
    {
        const bool given = m_header.xPixelsPerInch > 0.0 && m_header.yPixelsPerInch > 0.0;
        xPelsPerUnit = given ? m_header.xPixelsPerInch : 1.0;
        yPelsPerUnit = given ? m_header.yPixelsPerInch : 1.0;
        return given ? kInch : kNone;
    }

    void scanLines(OdUInt8* buffer, OdUInt32 firstScanline, OdUInt32 numLines) const override
    {
        if (firstScanline > pixelHeight() || numLines > pixelHeight() - firstScanline)
            throw OdError(eInvalidIndex);
        if (m_pixels.empty())
            m_pixels = raster::readPixels(m_fileName, m_header);
        const std::size_t rowSize = scanLineSize();
        std::memcpy(buffer, m_pixels.data() + firstScanline * rowSize, numLines * rowSize);
    }

private:
    OdString m_fileName;
    raster::Header m_header;
    mutable std::vector<OdUInt8> m_pixels;
};

class RasterServices : public OdRxRasterServices
{
public:
    void initApp() override { raster::startLibrary(); }
    void uninitApp() override { raster::stopLibrary(); }

    OdGiRasterImagePtr loadRasterImage(const OdString& fileName) override
    {
        if (::access(odStringToUtf8(fileName).c_str(), F_OK) != 0)
            throw OdError_FileNotFound(fileName);
        const auto picture = OdRxObjectImpl<Picture>::createObject();
        picture->read(fileName);
        return picture;
    }
};

} // namespace

ODRX_DEFINE_DYNAMIC_MODULE(RasterServices, RX_RASTER_SERVICES_APPNAME)
