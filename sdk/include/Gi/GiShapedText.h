// What a line of text becomes in its font: glyphs at their places.
#pragma once

#include <string>
#include <vector>

#include "Ge/GeExtents2d.h"
#include "Gi/GiTextStyle.h"

/** One glyph. Its place is that of its origin, in drawing units from the start of the line's base line, before the
    slant; the line's text size, width factor and tracking are in it. */
struct OdGiGlyph
{
    OdUInt32 font = 0;      ///< which of OdGiShapedText::fonts
    OdUInt32 index = 0;     ///< of the glyph in the font's file
    OdUInt32 character = 0; ///< the first character of OdGiShapedText::text that it shows
    double x = 0.0;
    double y = 0.0;
};

/** An installed font. It lives as long as the program. */
struct OdGiFontFile
{
    std::string path;   ///< of the file; empty when no font is installed, glyphs have no shape then
    std::string family; ///< its name
    int face = 0;       ///< which of the fonts in the file
    bool bold = false;  ///< its cut
    bool italic = false;
};

/** A font that glyphs are taken from, as a line of text uses it. */
struct OdGiGlyphFont
{
    const OdGiFontFile* file = nullptr; ///< never null in a line of text
    double emSize = 1.0;                ///< the height of the em square in drawing units
    double widthPart = 1.0;             ///< its width in proportion to its height
    double slant = 0.0; ///< how far a point moves to the right per unit that it lies above the base line
};

/** A line that belongs to a text, below, above or through it: a rectangle, before the slant. */
using OdGiTextBar = OdGeExtents2d;

/** A line of text in its font. */
struct OdGiShapedText
{
    std::wstring text; ///< the characters shown, codes replaced by what they stand for
    std::vector<OdGiGlyph> glyphs;
    std::vector<OdGiGlyphFont> fonts;
    std::vector<OdGiTextBar> bars;
    double width = 0.0; ///< how far the next character would stand from the first, spaces at the end included
    OdGeExtents2d ink;  ///< what the glyphs and bars cover, before the slant; invalid when there is nothing to see
};

/** Sets a line of text in its style. With raw false, codes that begin with %% are replaced by the characters and bars
    that they stand for. Takes time in proportion to the length; characters that the font lacks are taken from other
    installed fonts. Never fails: without any installed font, glyphs have widths of their own kind and no shape. Not to
    be called by two threads at a time. */
OdGiShapedText odgiShapeText(const OdGiTextStyle& style, const OdChar* message, OdInt32 length, bool raw);

/** Where a line of text is, without its glyphs. */
struct OdGiTextInk
{
    OdGeExtents2d box;  ///< as OdGiShapedText::ink
    double slant = 0.0; ///< as OdGiGlyphFont::slant of the first font
};

/** The same as odgiShapeText finds, for less work. */
OdGiTextInk odgiTextInk(const OdGiTextStyle& style, const OdChar* message, OdInt32 length, bool raw);
