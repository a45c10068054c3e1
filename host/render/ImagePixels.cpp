// Implements the pixels of pictures: Cairo has colours multiplied by alpha.
#include "render/ImagePixels.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace render
{

namespace
{

cairo_status_t appendBytes(void* out, const unsigned char* bytes, unsigned int count)
{
    static_cast<std::string*>(out)->append(reinterpret_cast<const char*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
}

using ToneTable = std::array<OdUInt8, 256>;

/// What brightness, contrast and fading make of each tone of a colour.
ToneTable tonesOf(const ImageLooks& looks, OdUInt8 background)
{
    ToneTable tones;
    for (int tone = 0; tone < 256; ++tone)
    {
        const double contrasted = (tone - 127.5) * looks.contrast / 50.0 + 127.5;
        const double lit = std::clamp(contrasted + (looks.brightness - 50.0) / 50.0 * 255.0, 0.0, 255.0);
        const double faded = lit + (background - lit) * looks.fade / 100.0;
        tones[static_cast<std::size_t>(tone)] = static_cast<OdUInt8>(std::clamp(std::lround(faded), 0L, 255L));
    }
    return tones;
}

} // namespace

ImagePixels::ImagePixels(const OdGiRasterImage& image, const ImageLooks& looks)
{
    const int width = static_cast<int>(image.pixelWidth());
    const int height = static_cast<int>(image.pixelHeight());
    const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_ARGB32, width);
    if (stride > 0)
    {
        m_pixels.resize(static_cast<std::size_t>(stride) * static_cast<std::size_t>(height));
        image.scanLines(m_pixels.data(), 0, image.pixelHeight());
    }
    const std::array<ToneTable, 3> tones = {tonesOf(looks, looks.background.blue),
                                            tonesOf(looks, looks.background.green),
                                            tonesOf(looks, looks.background.red)};
    for (std::size_t i = 0; i + 3 < m_pixels.size(); i += 4)
    {
        const unsigned int alpha = looks.isTransparent ? m_pixels[i + 3] : 255;
        for (std::size_t part = 0; part < 3; ++part)
        {
            OdUInt8& tone = m_pixels[i + part];
            tone = static_cast<OdUInt8>((tones[part][tone] * alpha + 127) / 255);
        }
        m_pixels[i + 3] = static_cast<OdUInt8>(alpha);
    }
    m_surface = cairo_image_surface_create_for_data(m_pixels.data(), CAIRO_FORMAT_ARGB32, width, height, stride);
}

ImagePixels::~ImagePixels()
{
    // The pixels end here, whoever still knows the surface.
    cairo_surface_finish(m_surface);
    cairo_surface_destroy(m_surface);
}

std::string ImagePixels::png() const
{
    std::string bytes;
    cairo_surface_write_to_png_stream(m_surface, &appendBytes, &bytes);
    return bytes;
}

} // namespace render
