// Calls the library. A format is recognised by the bytes that a file begins with and nothing else, and the library is
// told which one it is, so that no other reader of the many that it has ever runs.
#include "raster/ImageFile.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <magick/api.h>

#include "OdError.h"

namespace raster
{

namespace
{

constexpr double kCentimetersInInch = 2.54;
constexpr std::uint64_t kMostPixels = std::uint64_t(1) << 28; // a gigabyte of them

struct Format
{
    std::string_view beginning;
    const char* name;
};

constexpr Format kFormats[] = {
    {{"\x89PNG\r\n\x1A\n", 8}, "PNG"},
    {{"\xFF\xD8\xFF", 3}, "JPEG"},
    {{"BM", 2}, "BMP"},
    {{"GIF8", 4}, "GIF"},
    {{"II*\0", 4}, "TIFF"},
    {{"MM\0*", 4}, "TIFF"},
    {{"II+\0", 4}, "TIFF"},
    {{"MM\0+", 4}, "TIFF"},
};

const char* formatOf(std::string_view bytes)
{
    for (const Format& format : kFormats)
        if (bytes.substr(0, format.beginning.size()) == format.beginning)
            return format.name;
    return nullptr;
}

/// What else may stand at a path has no end, or no beginning until somebody writes to it.
void requireRegularFile(const OdString& fileName)
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(odStringToUtf8(fileName), error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        throw OdError_CantOpenFile(fileName, L"it is no regular file");
}

std::string readFile(const OdString& fileName)
{
    requireRegularFile(fileName);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(odStringToUtf8(fileName).c_str(), "rb"),
                                                               &std::fclose);
    std::string bytes;
    char buffer[65536];
    std::size_t count = 0;
    while (file && (count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0)
        bytes.append(buffer, count);
    if (!file || std::ferror(file.get()))
        throw OdError_CantOpenFile(fileName, OdString(std::strerror(errno)));
    return bytes;
}

// ---- The library's objects -----------------------------------------------------------------------------------------

struct DestroyInfo
{
    void operator()(ImageInfo* info) const { DestroyImageInfo(info); }
};
struct DestroyImage
{
    void operator()(Image* image) const { DestroyImageList(image); }
};
using ImagePointer = std::unique_ptr<Image, DestroyImage>;

class Faults
{
public:
    Faults() { GetExceptionInfo(&m_info); }
    ~Faults() { DestroyExceptionInfo(&m_info); }
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    operator ExceptionInfo*() { return &m_info; }
    OdString reason() const
    {
        return OdString(m_info.reason ? GetLocaleExceptionMessage(m_info.severity, m_info.reason)
                                      : "it is no picture that can be read");
    }

private:
    ExceptionInfo m_info;
};

using Read = Image* (*)(const ImageInfo*, const void*, std::size_t, ExceptionInfo*);

/// The first picture of the file.
ImagePointer readImage(const OdString& fileName, Read read)
{
    const std::string bytes = readFile(fileName);
    Faults faults;
    const char* format = formatOf(bytes);
    if (!format)
        throw OdError_CantOpenFile(fileName, faults.reason());
    const std::unique_ptr<ImageInfo, DestroyInfo> info(CloneImageInfo(nullptr));
    std::strncpy(info->magick, format, sizeof info->magick - 1);
    ImagePointer image(read(info.get(), bytes.data(), bytes.size(), faults));
    if (!image || image->columns == 0 || image->rows == 0)
        throw OdError_CantOpenFile(fileName, faults.reason());
    return image;
}

double perInch(double resolution, ResolutionType unit)
{
    return unit == PixelsPerCentimeterResolution ? resolution * kCentimetersInInch
           : unit == PixelsPerInchResolution     ? resolution
                                                 : 0.0;
}

void requireSize(const OdString& fileName, const Image& image, const Header& header)
{
    if (image.columns != header.width || image.rows != header.height)
        throw OdError_CantOpenFile(fileName, L"it was changed while it was read");
    if (std::uint64_t(header.width) * header.height > kMostPixels)
        throw OdError_CantOpenFile(fileName, L"it has too many pixels");
}

} // namespace

void startLibrary()
{
    Faults faults;
    InitializeMagickEx(nullptr, MAGICK_OPT_NO_SIGNAL_HANDER, faults);
}

void stopLibrary()
{
    DestroyMagick();
}

Header readHeader(const OdString& fileName)
{
    const ImagePointer image = readImage(fileName, &PingBlob);
    return {static_cast<OdUInt32>(image->columns), static_cast<OdUInt32>(image->rows),
            perInch(image->x_resolution, image->units), perInch(image->y_resolution, image->units)};
}

// A file without transparency leaves behind whatever its reader found there.
static void makeOpaque(std::vector<OdUInt8>& pixels)
{
    for (std::size_t alpha = 3; alpha < pixels.size(); alpha += 4)
        pixels[alpha] = 0xFF;
}

std::vector<OdUInt8> readPixels(const OdString& fileName, const Header& header)
{
    requireSize(fileName, *readImage(fileName, &PingBlob), header);
    const ImagePointer image = readImage(fileName, &BlobToImage);
    requireSize(fileName, *image, header);
    TransformColorspace(image.get(), RGBColorspace);
    std::vector<OdUInt8> pixels(std::size_t(header.width) * header.height * 4);
    Faults faults;
    if (!DispatchImage(image.get(), 0, 0, header.width, header.height, "BGRA", CharPixel, pixels.data(), faults))
        throw OdError_CantOpenFile(fileName, faults.reason());
    if (!image->matte)
        makeOpaque(pixels);
    return pixels;
}

} // namespace raster
