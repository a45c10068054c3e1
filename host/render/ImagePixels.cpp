// Implements the pixels of pictures: Cairo has colours multiplied by alpha.
#include "render/ImagePixels.h"

namespace render
{

namespace
{

cairo_status_t appendBytes(void* out, const unsigned char* bytes, unsigned int count)
{
    static_cast<std::string*>(out)->append(reinterpret_cast<const char*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

ImagePixels::ImagePixels(const OdGiRasterImage& image, bool isTransparent)
{
    const int width = static_cast<int>(image.pixelWidth());
    const int height = static_cast<int>(image.pixelHeight());
    const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_ARGB32, width);
    if (stride > 0)
    {
        m_pixels.resize(static_cast<std::size_t>(stride) * static_cast<std::size_t>(height));
        image.scanLines(m_pixels.data(), 0, image.pixelHeight());
    }
    for (std::size_t i = 0; i + 3 < m_pixels.size(); i += 4)
    {
        const unsigned int alpha = isTransparent ? m_pixels[i + 3] : 255;
        for (std::size_t part = i; part < i + 3; ++part)
            m_pixels[part] = static_cast<OdUInt8>((m_pixels[part] * alpha + 127) / 255);
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
