// Pages of PDF. Texts are texts: they can be searched and copied.
#include <algorithm>

#include <cairo-pdf.h>

#include "OdError.h"
#include "render/CairoCanvas.h"

namespace render
{

namespace
{

constexpr double kPointsPerPixel = 72.0 / 96.0;

/// Which characters the glyphs stand for, where each glyph begins with a later character than the one before.
struct Clusters
{
    std::string utf8;
    std::vector<cairo_text_cluster_t> clusters;
    bool isUsable = true;
};

Clusters clustersOf(const OdGiShapedText& text, OdUInt32 font)
{
    Clusters made;
    const auto count = static_cast<OdUInt32>(text.glyphs.size());
    for (OdUInt32 i = 0; i < count; ++i)
    {
        if (text.glyphs[i].font != font)
            continue;
        const OdUInt32 first = text.glyphs[i].character;
        const OdUInt32 end = i + 1 < count ? text.glyphs[i + 1].character : static_cast<OdUInt32>(text.text.size());
        made.isUsable = made.isUsable && end > first;
        if (!made.isUsable)
            break;
        const std::string bytes = odStringToUtf8(std::wstring_view(text.text).substr(first, end - first));
        made.utf8 += bytes;
        made.clusters.push_back({static_cast<int>(bytes.size()), 1});
    }
    return made;
}

class PdfCanvas : public CairoCanvas
{
public:
    PdfCanvas(const std::string& file, const PageSize& size, const Color& background)
        : CairoCanvas(
              cairo_pdf_surface_create(file.c_str(), size.width * kPointsPerPixel, size.height * kPointsPerPixel), file,
              kPointsPerPixel, background)
    {
        check(cairo_surface_status(surface()));
    }

    void finish() override
    {
        flush();
        check(cairo_status(context()));
        cairo_surface_finish(surface());
        check(cairo_surface_status(surface()));
    }

    double thinnestLine() const override { return 0.5; }
    bool showsPixels() const override { return false; }

protected:
    void showGlyphs(const OdGiShapedText& text, const std::vector<cairo_glyph_t>& glyphs, OdUInt32 font) override
    {
        const Clusters made = clustersOf(text, font);
        if (!made.isUsable || made.clusters.size() != glyphs.size())
            return CairoCanvas::showGlyphs(text, glyphs, font);
        cairo_show_text_glyphs(context(), made.utf8.data(), static_cast<int>(made.utf8.size()), glyphs.data(),
                               static_cast<int>(glyphs.size()), made.clusters.data(),
                               static_cast<int>(made.clusters.size()), cairo_text_cluster_flags_t(0));
    }
};

} // namespace

std::unique_ptr<Canvas> makePdfCanvas(const std::string& file, const PageSize& size, const Color& background)
{
    return std::make_unique<PdfCanvas>(file, size, background);
}

} // namespace render
