// Implements painting with Cairo.
#include "render/CairoCanvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "OdError.h"
#include "render/ImagePixels.h"

namespace render
{

namespace
{

constexpr std::size_t kMostKept = 20000;     ///< steps of paths that are painted at once
constexpr std::size_t kMostMasked = 1000000; ///< the same where there is a mask
constexpr std::size_t kWorthwhile = 20000;   ///< steps that are worth a thread of their own
constexpr std::size_t kMostWidths = 64;      ///< of lines that are painted at once
constexpr double kThin = 1.5;                ///< pixels up to which ends and corners of lines are not seen
constexpr double kPixelsForStep = 1000.0;    ///< pixels of a mask that are painted in the time of a stroke's step

bool isUsable(const cairo_matrix_t& matrix)
{
    const double area = matrix.xx * matrix.yy - matrix.xy * matrix.yx;
    return std::isfinite(area) && std::fabs(area) > 1e-12 && std::isfinite(matrix.x0) && std::isfinite(matrix.y0);
}

/// True when so many steps fill a box so well that a mask pays.
bool isCrowded(const OdGeVector2d& box, std::size_t steps)
{
    return (box.x + 2.0) * (box.y + 2.0) < kPixelsForStep * static_cast<double>(steps);
}

OdGeVector2d smallerOf(const OdGeVector2d& first, const OdGeVector2d& second)
{
    return {std::min(first.x, second.x), std::min(first.y, second.y)};
}

} // namespace

void addPath(cairo_t* context, const Path& path)
{
    const OdGePoint2d* point = path.points().data();
    for (const Step step : path.steps())
    {
        switch (step)
        {
        case Step::kMove:
            cairo_move_to(context, point->x, point->y);
            ++point;
            break;
        case Step::kLine:
            cairo_line_to(context, point->x, point->y);
            ++point;
            break;
        case Step::kCurve:
            cairo_curve_to(context, point[0].x, point[0].y, point[1].x, point[1].y, point[2].x, point[2].y);
            point += 3;
            break;
        case Step::kClose:
            cairo_close_path(context);
            break;
        }
    }
}

CairoCanvas::CairoCanvas(cairo_surface_t* surface, std::string file, double scale, const Color& background)
    : m_surface(surface), m_context(cairo_create(surface)), m_file(std::move(file))
{
    cairo_scale(m_context, scale, scale);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_set_font_options(m_context, options);
    cairo_font_options_destroy(options);
    if (background.alpha > 0)
    {
        setColor(background);
        cairo_paint(m_context);
    }
}

CairoCanvas::~CairoCanvas()
{
    cairo_destroy(m_context);
    cairo_surface_destroy(m_surface);
}

void CairoCanvas::check(cairo_status_t status) const
{
    if (status != CAIRO_STATUS_SUCCESS)
        throw OdError_FileWriteError(odUtf8ToString(m_file), odUtf8ToString(cairo_status_to_string(status)));
}

void CairoCanvas::setColor(const Color& color)
{
    cairo_set_source_rgba(m_context, color.red / 255.0, color.green / 255.0, color.blue / 255.0, color.alpha / 255.0);
}

/// Goes on in a colour: what is kept back of another one is painted first.
void CairoCanvas::use(const Color& color)
{
    if (m_kept > 0 && (color != m_color || !color.isOpaque() || m_kept > (m_mask ? kMostMasked : kMostKept)))
        flush();
    m_color = color;
}

void CairoCanvas::flush()
{
    if (m_kept == 0)
        return;
    setColor(m_color);
    paintAreas();
    for (Strokes& strokes : m_strokes)
        paintStrokes(strokes);
    m_kept = 0;
}

void CairoCanvas::paintAreas()
{
    if (m_bars.empty())
        return;
    addPath(m_context, m_bars);
    cairo_set_fill_rule(m_context, CAIRO_FILL_RULE_WINDING);
    cairo_fill(m_context);
    m_bars.clear();
}

void CairoCanvas::useMask(int width, int height)
{
    m_mask = std::make_unique<LineMask>(width, height);
    m_maskSize = {static_cast<double>(width), static_cast<double>(height)};
}

/// Lines that are a crowd whatever follows are laid into the mask while more of them are found.
void CairoCanvas::maskEarly(Strokes& strokes)
{
    const std::size_t steps = strokes.path.steps().size();
    const bool isSure = m_mask && &strokes == &m_strokes.front() && strokes.width <= kThin && steps >= kWorthwhile &&
                        isCrowded(m_maskSize, steps);
    if (isSure && m_mask->makeRoom())
        m_mask->add(std::exchange(strokes.path, Path()), strokes.width);
}

/// The ends and corners of thin lines are not seen, so that they are made simple.
void CairoCanvas::paintStrokes(Strokes& strokes)
{
    const bool isBegun = m_mask && !m_mask->isEmpty();
    if (strokes.path.empty() && !isBegun)
        return;
    const bool isThin = strokes.width <= kThin;
    const auto isCrowd = [&]
    { return isCrowded(smallerOf(strokes.path.bounds().diagonal(), m_maskSize), strokes.path.steps().size()); };
    if (isBegun || (isThin && m_mask && isCrowd() && m_mask->makeRoom()))
    {
        m_mask->addAtOnce(strokes.path, strokes.width);
        strokes.path.clear();
        return m_mask->paint(m_context);
    }
    cairo_set_line_cap(m_context, isThin ? CAIRO_LINE_CAP_SQUARE : CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(m_context, isThin ? CAIRO_LINE_JOIN_BEVEL : CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(m_context, strokes.width);
    addPath(m_context, strokes.path);
    cairo_stroke(m_context);
    strokes.path.clear();
}

void CairoCanvas::fill(const Path& path, const Color& color, bool evenOdd)
{
    use(color);
    addPath(m_context, path);
    setColor(color);
    cairo_set_fill_rule(m_context, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    cairo_fill(m_context);
}

void CairoCanvas::fillBar(const Path& quadrilateral, const Color& color)
{
    const std::vector<OdGePoint2d>& corners = quadrilateral.points();
    if (!color.isOpaque() || corners.size() != 4)
        return fill(quadrilateral, color, false);
    use(color);
    // All run around in one direction, so that none takes away what another one fills.
    const OdGeVector2d across = corners[2] - corners[0];
    const OdGeVector2d other = corners[3] - corners[1];
    const bool isReversed = across.x * other.y - across.y * other.x < 0.0;
    m_bars.moveTo(corners[0]);
    m_bars.lineTo(corners[isReversed ? 3 : 1]);
    m_bars.lineTo(corners[2]);
    m_bars.lineTo(corners[isReversed ? 1 : 3]);
    m_bars.close();
    m_kept += 5;
}

void CairoCanvas::stroke(const Path& path, const Color& color, double width)
{
    use(color);
    const auto sameWidth = [width](const Strokes& strokes) { return strokes.width == width; };
    auto strokes = std::find_if(m_strokes.begin(), m_strokes.end(), sameWidth);
    if (strokes == m_strokes.end())
    {
        if (m_strokes.size() == kMostWidths)
        {
            flush();
            m_strokes.clear();
        }
        strokes = m_strokes.insert(m_strokes.end(), {width, Path()});
    }
    strokes->path.append(path);
    m_kept += path.steps().size();
    maskEarly(*strokes);
    // Of lines that are seen through each other, each has to be painted by itself.
    if (!color.isOpaque())
        flush();
}

void CairoCanvas::text(const OdGiShapedText& text, const TextPlace& place, const Color& color)
{
    use(color);
    setColor(color);
    for (OdUInt32 font = 0; font < text.fonts.size(); ++font)
        drawGlyphs(text, place, font);
    const double slant = text.fonts.empty() ? 0.0 : text.fonts.front().slant;
    for (const OdGiTextBar& bar : text.bars)
        fillBar(barPath(bar, place, slant), color);
}

void CairoCanvas::drawGlyphs(const OdGiShapedText& text, const TextPlace& place, OdUInt32 font)
{
    const OdGiGlyphFont& used = text.fonts[font];
    cairo_font_face_t* face = m_fonts.faceOf(used);
    // Glyphs have their y axis downward.
    const OdGeVector2d along = place.along * (used.emSize * used.widthPart);
    const OdGeVector2d down = (place.up + place.along * used.slant) * -used.emSize;
    const cairo_matrix_t matrix{along.x, along.y, down.x, down.y, 0.0, 0.0};
    if (!face || !isUsable(matrix))
        return;
    std::vector<cairo_glyph_t> glyphs;
    for (const OdGiGlyph& glyph : text.glyphs)
    {
        const OdGePoint2d at = place.origin + place.along * (glyph.x + used.slant * glyph.y) + place.up * glyph.y;
        if (glyph.font == font && std::isfinite(at.x) && std::isfinite(at.y))
            glyphs.push_back({glyph.index, at.x, at.y});
    }
    cairo_set_font_face(m_context, face);
    cairo_set_font_matrix(m_context, &matrix);
    showGlyphs(text, glyphs, font);
}

void CairoCanvas::showGlyphs(const OdGiShapedText&, const std::vector<cairo_glyph_t>& glyphs, OdUInt32)
{
    cairo_show_glyphs(m_context, glyphs.data(), static_cast<int>(glyphs.size()));
}

void CairoCanvas::image(const OdGiRasterImage& image, const ImagePlace& place, const ImageLooks& looks)
{
    flush();
    const int width = static_cast<int>(image.pixelWidth());
    const int height = static_cast<int>(image.pixelHeight());
    const cairo_matrix_t matrix{place.across.x / width, place.across.y / width, place.down.x / height,
                                place.down.y / height,  place.origin.x,         place.origin.y};
    if (!isUsable(matrix))
        return;
    const ImagePixels pixels(image, looks);
    cairo_save(m_context);
    cairo_transform(m_context, &matrix);
    cairo_rectangle(m_context, 0, 0, width, height);
    cairo_clip(m_context);
    cairo_set_source_surface(m_context, pixels.surface(), 0, 0);
    cairo_pattern_set_extend(cairo_get_source(m_context), CAIRO_EXTEND_PAD);
    cairo_paint_with_alpha(m_context, looks.alpha / 255.0);
    cairo_restore(m_context);
}

void CairoCanvas::pushClip(const Path& path)
{
    flush();
    cairo_save(m_context);
    cairo_new_path(m_context);
    addPath(m_context, path);
    cairo_clip(m_context);
}

void CairoCanvas::popClip()
{
    flush();
    cairo_restore(m_context);
}

} // namespace render
