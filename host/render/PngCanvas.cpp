// Pictures of pixels.
#include <csetjmp>
#include <string>
#include <vector>

#include <png.h>

#include "render/CairoCanvas.h"

namespace render
{

namespace
{

/// An image in memory; colours are multiplied by alpha.
struct Image
{
    const unsigned char* pixels;
    int width;
    int height;
    int stride;
    bool isOpaque;
};

void appendBytes(png_structp png, png_bytep bytes, png_size_t count)
{
    static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<const char*>(bytes), count);
}

void flushBytes(png_structp) {}

/// Colours of a file are not multiplied by alpha.
void copyRow(const unsigned char* from, const Image& image, png_byte* to)
{
    for (int x = 0; x < image.width; ++x, from += 4)
    {
        const unsigned int alpha = from[3];
        const bool isPlain = image.isOpaque || alpha == 255 || alpha == 0;
        for (int part = 2; part >= 0; --part)
            *to++ = static_cast<png_byte>(isPlain ? from[part] : (from[part] * 255u + alpha / 2) / alpha);
        if (!image.isOpaque)
            *to++ = static_cast<png_byte>(alpha);
    }
}

/// Hands the image to the library, which jumps back here when it fails. Lines on an even ground need no filters, and
/// hardly get smaller by more effort.
bool writeImage(png_structp png, png_infop info, const Image& image, png_byte* row)
{
    constexpr png_uint_32 kPixelsPerMetre = 3780; // 96 to the inch
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    png_set_compression_level(png, 3);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.width), static_cast<png_uint_32>(image.height), 8,
                 image.isOpaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_pHYs(png, info, kPixelsPerMetre, kPixelsPerMetre, PNG_RESOLUTION_METER);
    png_write_info(png, info);
    for (int y = 0; y < image.height; ++y)
    {
        copyRow(image.pixels + static_cast<std::ptrdiff_t>(y) * image.stride, image, row);
        png_write_row(png, row);
    }
    png_write_end(png, info);
    return true;
}

/// The bytes of a PNG file; empty when it cannot be made.
std::string encode(const Image& image)
{
    std::string bytes;
    std::vector<png_byte> row(static_cast<std::size_t>(image.width) * 4);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (info)
        png_set_write_fn(png, &bytes, &appendBytes, &flushBytes);
    if (!info || !writeImage(png, info, image, row.data()))
        bytes.clear();
    png_destroy_write_struct(&png, &info);
    return bytes;
}

class PngCanvas : public CairoCanvas
{
public:
    PngCanvas(const std::string& file, const PageSize& size, const Color& background)
        : CairoCanvas(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size.width, size.height), file, 1.0, background),
          m_isOpaque(background.isOpaque())
    {
        check(cairo_surface_status(surface()));
    }

    void finish() override
    {
        flush();
        check(cairo_status(context()));
        cairo_surface_flush(surface());
        const std::string bytes =
            encode({cairo_image_surface_get_data(surface()), cairo_image_surface_get_width(surface()),
                    cairo_image_surface_get_height(surface()), cairo_image_surface_get_stride(surface()), m_isOpaque});
        writeFile(file(), bytes);
    }

    double thinnestLine() const override { return 1.0; }
    bool showsPixels() const override { return true; }

private:
    bool m_isOpaque;
};

} // namespace

std::unique_ptr<Canvas> makePngCanvas(const std::string& file, const PageSize& size, const Color& background)
{
    return std::make_unique<PngCanvas>(file, size, background);
}

} // namespace render
