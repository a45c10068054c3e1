// Implements the reading of font files with HarfBuzz, which maps them into memory and reads no more than it is asked
// for.
#include "gi/fonts/Typeface.h"

#include <hb-ot.h>
#include <hb.h>

#include "gi/fonts/AverageFont.h"
#include "gi/fonts/GlyphHull.h"

namespace fonts
{

namespace
{

constexpr double kUsualCapHeight = 0.7; ///< of the em square
constexpr double kAverageEm = 1000.0 / 718.0;

hb_font_t* openFont(const FontFile& file)
{
    if (file.path.empty())
        return nullptr;
    hb_blob_t* blob = hb_blob_create_from_file_or_fail(file.path.c_str());
    if (!blob)
        return nullptr;
    hb_face_t* face = hb_face_create(blob, static_cast<unsigned int>(file.face));
    hb_blob_destroy(blob);
    hb_font_t* font = hb_face_get_glyph_count(face) != 0 ? hb_font_create(face) : nullptr;
    hb_face_destroy(face);
    return font;
}

/// The height of a capital letter in the font's units, from a letter itself where the font has it.
double capHeightOf(hb_font_t* font)
{
    hb_codepoint_t glyph = 0;
    hb_glyph_extents_t extents{};
    if (hb_font_get_nominal_glyph(font, U'H', &glyph) && hb_font_get_glyph_extents(font, glyph, &extents) &&
        extents.y_bearing > 0)
        return extents.y_bearing;
    hb_position_t height = 0;
    if (hb_ot_metrics_get_position(font, HB_OT_METRICS_TAG_CAP_HEIGHT, &height) && height > 0)
        return height;
    return hb_face_get_upem(hb_font_get_face(font)) * kUsualCapHeight;
}

} // namespace

void Typeface::Release::operator()(hb_font_t* font) const
{
    hb_font_destroy(font);
}

Typeface::Typeface(FontFile file) : m_file(std::move(file)), m_font(openFont(m_file))
{
    if (!m_font)
    {
        m_file = FontFile();
        m_unitsPerEm = kAverageEm;
        return;
    }
    m_unitsPerEm = hb_face_get_upem(hb_font_get_face(m_font.get()));
    m_unitsPerHeight = capHeightOf(m_font.get());
}

Typeface::~Typeface() = default;

OdUInt32 Typeface::glyphOf(wchar_t character) const
{
    if (!m_font)
        return static_cast<OdUInt32>(character);
    hb_codepoint_t glyph = 0;
    hb_font_get_nominal_glyph(m_font.get(), static_cast<hb_codepoint_t>(character), &glyph);
    return glyph;
}

GlyphMeasures Typeface::measure(OdUInt32 glyph) const
{
    GlyphMeasures measures;
    if (!m_font)
    {
        const auto character = static_cast<wchar_t>(glyph);
        measures.advance = averageAdvance(character);
        if (measures.advance > 0.0 && character != L' ' && character != 0xA0)
            measures.ink.set({0.0, -averageDescent(character)}, {measures.advance, 1.0});
        return measures;
    }
    const double scale = 1.0 / m_unitsPerHeight;
    measures.advance = hb_font_get_glyph_h_advance(m_font.get(), glyph) * scale;
    hb_glyph_extents_t box{};
    if (hb_font_get_glyph_extents(m_font.get(), glyph, &box) && box.width != 0 && box.height != 0)
        measures.ink.set({box.x_bearing * scale, (box.y_bearing + box.height) * scale},
                         {(box.x_bearing + box.width) * scale, box.y_bearing * scale});
    return measures;
}

const GlyphMeasures& Typeface::measuresOf(OdUInt32 glyph) const
{
    const auto known = m_measures.find(glyph);
    return known != m_measures.end() ? known->second : m_measures.emplace(glyph, measure(glyph)).first->second;
}

const std::vector<OdGePoint2d>& Typeface::hullOf(OdUInt32 glyph) const
{
    const auto known = m_hulls.find(glyph);
    if (known != m_hulls.end())
        return known->second;
    std::vector<OdGePoint2d> hull =
        m_font ? hullOfOutline(m_font.get(), glyph, m_unitsPerHeight) : hullOfBox(measuresOf(glyph).ink);
    return m_hulls.emplace(glyph, std::move(hull)).first->second;
}

} // namespace fonts
