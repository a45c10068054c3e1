// Implements fonts for Cairo with FreeType.
#include "render/CairoFonts.h"

#include <cairo-ft.h>
#include <ft2build.h>
#include FT_FREETYPE_H

namespace render
{

struct CairoFonts::Library
{
    FT_Library library = nullptr;
};

namespace
{

void closeFace(void* face)
{
    FT_Done_Face(static_cast<FT_Face>(face));
}

} // namespace

// Cairo keeps what it has drawn of a font for as long as it likes, and the font with it, so that the library that the
// font belongs to has to live as long as the program.
CairoFonts::CairoFonts()
{
    static Library library;
    if (!library.library)
        FT_Init_FreeType(&library.library);
    m_library = &library;
}

CairoFonts::~CairoFonts()
{
    for (const auto& [name, face] : m_faces)
    {
        if (face)
            cairo_font_face_destroy(face);
    }
}

cairo_font_face_t* CairoFonts::open(const OdGiGlyphFont& font)
{
    FT_Face face = nullptr;
    if (font.file->path.empty() ||
        FT_New_Face(m_library->library, font.file->path.c_str(), font.file->face, &face) != 0)
        return nullptr;
    cairo_font_face_t* made = cairo_ft_font_face_create_for_ft_face(face, FT_LOAD_NO_HINTING);
    static const cairo_user_data_key_t key{};
    cairo_font_face_set_user_data(made, &key, face, &closeFace);
    return made;
}

cairo_font_face_t* CairoFonts::faceOf(const OdGiGlyphFont& font)
{
    const auto [place, isNew] = m_faces.try_emplace({font.file->path, font.file->face}, nullptr);
    if (isNew)
        place->second = open(font);
    return place->second;
}

} // namespace render
