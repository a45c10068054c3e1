// A font as styles name it: one font file, and others for characters that it lacks.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>

#include "Gi/GiShapedText.h"
#include "gi/fonts/Typeface.h"

namespace fonts
{

/// The file's glyphs, read once for the whole program.
std::shared_ptr<const Typeface> typefaceOf(const FontFile& file);

/// The file that glyphs of a set line are taken from.
std::shared_ptr<const Typeface> typefaceOf(const OdGiGlyphFont& font);

/// A character's glyph in the file that has it.
struct FoundGlyph
{
    const Typeface* typeface = nullptr;
    OdUInt32 glyph = 0;
    const GlyphMeasures* measures = nullptr;
    double widthPart = 1.0; ///< what widths are multiplied by

    double advance() const { return measures->advance * widthPart; }
};

/// Lives as long as the program. For one thread.
class Font
{
public:
    explicit Font(FontRequest request);
    /// A font of this file alone.
    explicit Font(std::unique_ptr<Typeface> typeface);

    /// The font that a style names.
    static const Font& of(const OdGiTextStyle& style);

    const Typeface& typeface() const { return *m_typeface; }
    /// True when characters have to be slanted, because a slanted font was asked for and there is none.
    bool needsSlant() const { return m_request.italic && !m_typeface->file().italic; }

    FoundGlyph find(wchar_t character) const;
    /// A glyph of a file that find has given.
    FoundGlyph found(const Typeface& typeface, OdUInt32 glyph) const;

    /// How far letters such as g, p and y reach below the base line, in text heights.
    double descent() const;

private:
    FoundGlyph search(wchar_t character) const;
    FoundGlyph searchSubstitutes(wchar_t character) const;

    FontRequest m_request;
    std::shared_ptr<const Typeface> m_typeface;
    double m_widthPart = 1.0;
    mutable std::array<FoundGlyph, 0x180> m_common; ///< of the first characters, empty where not yet asked for
    mutable std::unordered_map<wchar_t, FoundGlyph> m_others;
    mutable std::optional<std::vector<Substitute>> m_substitutes;
};

} // namespace fonts
