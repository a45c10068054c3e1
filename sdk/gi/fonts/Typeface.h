// One font file with the measures of its glyphs.
#pragma once

#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

#include "Ge/GeExtents2d.h"
#include "gi/fonts/FontFinder.h"

struct hb_font_t;

namespace fonts
{

/// The measures of a glyph in text heights, where 1 is the height of a capital letter.
struct GlyphMeasures
{
    double advance = 0.0;
    OdGeExtents2d ink; ///< invalid when there is nothing to see
};

/// A font file. What is asked of a glyph is read once and kept. For one thread.
class Typeface
{
public:
    /// With an empty path, or when the file cannot be read, the measures are those of the average font and the number
    /// of a glyph is that of its character.
    explicit Typeface(FontFile file);
    ~Typeface();
    Typeface(const Typeface&) = delete;
    Typeface& operator=(const Typeface&) = delete;

    const FontFile& file() const { return m_file; }
    bool hasOutlines() const { return m_font != nullptr; }
    /// The em square's height in text heights.
    double emSize() const { return m_unitsPerEm / m_unitsPerHeight; }
    double unitsPerHeight() const { return m_unitsPerHeight; }

    /// The number of the glyph of a character, 0 when the font has none.
    OdUInt32 glyphOf(wchar_t character) const;
    const GlyphMeasures& measuresOf(OdUInt32 glyph) const;
    /// The corners of the convex area around the glyph, in text heights.
    const std::vector<OdGePoint2d>& hullOf(OdUInt32 glyph) const;

    /// For shaping, scaled to the font's own units; null without outlines.
    hb_font_t* shapingFont() const { return m_font.get(); }

private:
    struct Release
    {
        void operator()(hb_font_t* font) const;
    };

    GlyphMeasures measure(OdUInt32 glyph) const;

    FontFile m_file;
    std::unique_ptr<hb_font_t, Release> m_font;
    double m_unitsPerEm = 1.0;
    double m_unitsPerHeight = 1.0;
    mutable std::unordered_map<OdUInt32, GlyphMeasures> m_measures;
    mutable std::unordered_map<OdUInt32, std::vector<OdGePoint2d>> m_hulls;
};

} // namespace fonts
