// What PNG and PDF have in common: painting with Cairo.
#pragma once

#include <memory>
#include <vector>

#include <cairo.h>

#include "render/CairoFonts.h"
#include "render/Canvas.h"
#include "render/LineMask.h"

namespace render
{

/// Puts a path behind what the context has.
void addPath(cairo_t* context, const Path& path);

class CairoCanvas : public Canvas
{
public:
    /// Takes over the surface. scale is what a pixel of the page is in units of the surface.
    CairoCanvas(cairo_surface_t* surface, std::string file, double scale, const Color& background);
    ~CairoCanvas() override;
    CairoCanvas(const CairoCanvas&) = delete;
    CairoCanvas& operator=(const CairoCanvas&) = delete;

    void fill(const Path& path, const Color& color, bool evenOdd) override;
    void stroke(const Path& path, const Color& color, double width) override;
    void fillBar(const Path& quadrilateral, const Color& color) override;
    void text(const OdGiShapedText& text, const TextPlace& place, const Color& color) override;
    void image(const OdGiRasterImage& image, const ImagePlace& place, const ImageLooks& looks) override;
    void pushClip(const Path& path) override;
    void popClip() override;

protected:
    cairo_surface_t* surface() const { return m_surface; }
    const std::string& file() const { return m_file; }
    /// Crowds of thin lines go through a mask from now on. The surface has pixels, so many of them.
    void useMask(int width, int height);
    /// Paints what is still kept back.
    void flush();
    /// Throws OdError_FileWriteError when the status says that something has failed.
    void check(cairo_status_t status) const;

    /// Shows glyphs of one font; the font and the matrix are set.
    virtual void showGlyphs(const OdGiShapedText& text, const std::vector<cairo_glyph_t>& glyphs, OdUInt32 font);

    cairo_t* context() const { return m_context; }

private:
    /// Lines of one width that are kept back.
    struct Strokes
    {
        double width = 0.0;
        Path path;
    };

    void use(const Color& color);
    void setColor(const Color& color);
    void paintAreas();
    void maskEarly(Strokes& strokes);
    void paintStrokes(Strokes& strokes);
    void drawGlyphs(const OdGiShapedText& text, const TextPlace& place, OdUInt32 font);

    cairo_surface_t* m_surface;
    cairo_t* m_context;
    std::string m_file;
    CairoFonts m_fonts;
    // Lines and bars of one opaque colour are kept back and painted at once, which takes far less time. Their order is
    // not seen, nor that of what else has this colour.
    Color m_color;
    std::vector<Strokes> m_strokes;
    Path m_bars;
    std::size_t m_kept = 0;
    std::unique_ptr<LineMask> m_mask; ///< what it holds between two calls belongs to the first of the strokes
    OdGeVector2d m_maskSize;
};

} // namespace render
