// Pictures of pixels.
#include "render/CairoCanvas.h"
#include "render/PngFile.h"

namespace render
{

namespace
{

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

std::unique_ptr<Canvas> makePngCanvas(const std::string& file, const PageSize& size, const Color& background)
{
    return std::make_unique<PngCanvas>(file, size, background);
}

} // namespace render
