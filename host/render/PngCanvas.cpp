// Pictures of pixels.
#include <csetjmp>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include <png.h>
#include <zlib.h>

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

/// The colours of an opaque image, as long as they are no more than one byte can number.
class Palette
{
public:
    explicit Palette(const Image& image)
    {
        m_indices.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
        png_byte* index = m_indices.data();
        for (int y = 0; y < image.height && m_isUsable; ++y)
        {
            const unsigned char* pixel = image.pixels + static_cast<std::ptrdiff_t>(y) * image.stride;
            for (int x = 0; x < image.width && m_isUsable; ++x, pixel += 4)
                *index++ = indexOf(pixel);
        }
    }

    bool isUsable() const { return m_isUsable; }
    const std::vector<png_color>& colors() const { return m_colors; }

    /// The numbers of all pixels' colours, row by row.
    const png_byte* indices() const { return m_indices.data(); }

private:
    /// The number of a pixel's colour, which becomes known with this.
    png_byte indexOf(const unsigned char* pixel)
    {
        std::uint32_t color;
        std::memcpy(&color, pixel, sizeof color);
        if (color == m_lastColor)
            return m_lastIndex;
        std::size_t place = (color * 2654435761u) >> (32 - kBits);
        while (m_places[place].isTaken && m_places[place].color != color)
            place = (place + 1) % m_places.size();
        if (!m_places[place].isTaken)
            add(place, color, pixel);
        m_lastColor = color;
        m_lastIndex = m_places[place].index;
        return m_lastIndex;
    }

    struct Place
    {
        std::uint32_t color = 0;
        png_byte index = 0;
        bool isTaken = false;
    };

    void add(std::size_t place, std::uint32_t color, const unsigned char* pixel)
    {
        m_isUsable = m_isUsable && m_colors.size() < 256;
        if (!m_isUsable)
            return;
        m_places[place] = {color, static_cast<png_byte>(m_colors.size()), true};
        m_colors.push_back({pixel[2], pixel[1], pixel[0]});
    }

    static constexpr int kBits = 11;
    std::vector<Place> m_places = std::vector<Place>(std::size_t(1) << kBits);
    std::vector<png_color> m_colors;
    std::vector<png_byte> m_indices;
    std::uint32_t m_lastColor = 0; // has no alpha: no pixel of an opaque image
    png_byte m_lastIndex = 0;
    bool m_isUsable = true;
};

/// Hands the image to the library, which jumps back here when it fails. Lines on an even ground need no filters, and
/// hardly get smaller by more effort; of numbers of colours, only runs are worth looking for.
bool writeImage(png_structp png, png_infop info, const Image& image, const Palette* palette, png_byte* row)
{
    constexpr png_uint_32 kPixelsPerMetre = 3780; // 96 to the inch
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    const int direct = image.isOpaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA;
    png_set_compression_level(png, 1);
    if (palette)
        png_set_compression_strategy(png, Z_RLE);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.width), static_cast<png_uint_32>(image.height), 8,
                 palette ? PNG_COLOR_TYPE_PALETTE : direct, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_set_pHYs(png, info, kPixelsPerMetre, kPixelsPerMetre, PNG_RESOLUTION_METER);
    if (palette)
        png_set_PLTE(png, info, palette->colors().data(), static_cast<int>(palette->colors().size()));
    png_write_info(png, info);
    for (int y = 0; y < image.height; ++y)
    {
        if (!palette)
            copyRow(image.pixels + static_cast<std::ptrdiff_t>(y) * image.stride, image, row);
        png_write_row(png, palette ? palette->indices() + static_cast<std::ptrdiff_t>(y) * image.width : row);
    }
    png_write_end(png, info);
    return true;
}

/// The bytes of a PNG file; empty when it cannot be made.
std::string encode(const Image& image)
{
    std::string bytes;
    std::vector<png_byte> row(static_cast<std::size_t>(image.width) * 4);
    std::optional<Palette> palette;
    if (image.isOpaque)
        palette.emplace(image);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (info)
        png_set_write_fn(png, &bytes, &appendBytes, &flushBytes);
    if (!info || !writeImage(png, info, image, palette && palette->isUsable() ? &*palette : nullptr, row.data()))
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
        useMask(size.width, size.height);
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
