// The fonts of shaped texts as Cairo has them.
#pragma once

#include <map>
#include <string>
#include <utility>

#include <cairo.h>

#include "Gi/GiShapedText.h"

namespace render
{

/// Opens each font file once. One thread.
class CairoFonts
{
public:
    CairoFonts();
    ~CairoFonts();
    CairoFonts(const CairoFonts&) = delete;
    CairoFonts& operator=(const CairoFonts&) = delete;

    /// Null for a font that has no file or whose file cannot be read.
    cairo_font_face_t* faceOf(const OdGiGlyphFont& font);

private:
    cairo_font_face_t* open(const OdGiGlyphFont& font);

    struct Library;
    Library* m_library;
    std::map<std::pair<std::string, int>, cairo_font_face_t*> m_faces;
};

} // namespace render
