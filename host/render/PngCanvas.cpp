// Pictures of pixels.
#include <utility>

#include "render/CairoCanvas.h"
#include "render/PngFile.h"

namespace render
{

namespace
{

// The surface keeps the pixels.
cairo_surface_t* makeSurface(const PageSize& size, std::unique_ptr<unsigned char[]> pixels)
{
    constexpr cairo_format_t kFormat = CAIRO_FORMAT_ARGB32;
    if (!pixels)
        return cairo_image_surface_create(kFormat, size.width, size.height);
    static const cairo_user_data_key_t kPixels{};
    cairo_surface_t* const surface = cairo_image_surface_create_for_data(
        pixels.get(), kFormat, size.width, size.height, cairo_format_stride_for_width(kFormat, size.width));
    const auto release = [](void* kept) { delete[] static_cast<unsigned char*>(kept); };
    if (cairo_surface_set_user_data(surface, &kPixels, pixels.get(), release) == CAIRO_STATUS_SUCCESS)
    {
        static_cast<void>(pixels.release());
        return surface;
    }
    cairo_surface_destroy(surface);
    return makeSurface(size, nullptr);
}

class PngCanvas : public CairoCanvas
{
public:
    PngCanvas(const std::string& file, const PageSize& size, const Color& background,
              std::unique_ptr<unsigned char[]> pixels)
        : CairoCanvas(makeSurface(size, std::move(pixels)), file, 1.0, background), m_isOpaque(background.isOpaque())
    {
        check(cairo_surface_status(surface()));
        useMask(size.width, size.height);
    }

    void finish() override
    {
        flush();
        check(cairo_status(context()));
        cairo_surface_flush(surface());
        const std::string bytes = encodePng(
            {cairo_image_surface_get_data(surface()), cairo_image_surface_get_width(surface()),
             cairo_image_surface_get_height(surface()), cairo_image_surface_get_stride(surface()), m_isOpaque});
        writeFile(file(), bytes);
    }

    double thinnestLine() const override { return 1.0; }
    bool showsPixels() const override { return true; }

private:
    bool m_isOpaque;
};

} // namespace

std::unique_ptr<Canvas> makePngCanvas(const std::string& file, const PageSize& size, const Color& background,
                                      std::unique_ptr<unsigned char[]> pixels)
{
    return std::make_unique<PngCanvas>(file, size, background, std::move(pixels));
}

} // namespace render
