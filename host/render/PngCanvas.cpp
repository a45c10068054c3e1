// Pictures of pixels.
#include <cstdio>

#include "OdError.h"
#include "render/CairoCanvas.h"

namespace render
{

namespace
{

class PngCanvas : public CairoCanvas
{
public:
    PngCanvas(const std::string& file, const PageSize& size, const Color& background)
        : CairoCanvas(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size.width, size.height), file, 1.0, background)
    {
        check(cairo_surface_status(surface()));
    }

    void finish() override
    {
        flush();
        check(cairo_status(context()));
        check(cairo_surface_write_to_png(surface(), file().c_str()));
    }

    double thinnestLine() const override { return 1.0; }
    bool showsPixels() const override { return true; }
};

} // namespace

std::unique_ptr<Canvas> makePngCanvas(const std::string& file, const PageSize& size, const Color& background)
{
    return std::make_unique<PngCanvas>(file, size, background);
}

} // namespace render
