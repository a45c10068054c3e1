// The looks of a line of text: its font and how it is distorted.
#pragma once

#include "OdString.h"

namespace fonts
{
class Font;
}

/** A text style as drawables hand it to the receiver of their shapes. It is a plain value; one value may be used by one
    thread at a time. A new one is of height 1 in the font of drawings, not distorted.

    A font is named by a file, as records of drawings do, or by a typeface. A file with the ending .ttf, .ttc or .otf
    names the installed font of that file or the typeface that such files are known to hold; any other file name is
    that of a font of strokes, which a technical drawing font stands for. A font that is not installed is replaced by
    one of equal metrics where there is one, else by a plain sans-serif font; docs/pictures.md has the list. */
class OdGiTextStyle
{
public:
    OdGiTextStyle() = default;
    bool operator==(const OdGiTextStyle& other) const;

    const OdString& fileName() const { return m_fileName; }
    /** Takes the typeface away that setFont has set. */
    void setFileName(const OdString& fileName);
    const OdString& bigFontFileName() const { return m_bigFontFileName; }
    void setBigFontFileName(const OdString& fileName) { m_bigFontFileName = fileName; }

    /** The typeface; empty when the font is named by its file. */
    void font(OdString& typeface, bool& bold, bool& italic) const;
    /** The typeface goes before a file name. An empty one leaves the file name in force, cut as given. */
    void setFont(const OdString& typeface, bool bold, bool italic);

    /** The height of capital letters in drawing units. */
    double textSize() const { return m_textSize; }
    void setTextSize(double size) { m_textSize = size; }
    /** The width of characters in proportion to what their font gives. */
    double xScale() const { return m_xScale; }
    void setXScale(double scale) { m_xScale = scale; }
    /** The slant in radians. */
    double obliquingAngle() const { return m_obliquingAngle; }
    void setObliquingAngle(double angle) { m_obliquingAngle = angle; }
    /** The distance from character to character in proportion to what their font gives. */
    double trackingPercent() const { return m_trackingPercent; }
    void setTrackingPercent(double tracking) { m_trackingPercent = tracking; }

    bool isUnderlined() const { return m_underlined; }
    void setUnderlined(bool underlined) { m_underlined = underlined; }
    bool isOverlined() const { return m_overlined; }
    void setOverlined(bool overlined) { m_overlined = overlined; }
    bool isStriked() const { return m_striked; }
    void setStriked(bool striked) { m_striked = striked; }
    /** Characters stand one below the other. */
    bool isVertical() const { return m_vertical; }
    void setVertical(bool vertical) { m_vertical = vertical; }

private:
    friend class fonts::Font;

    OdString m_fileName;
    OdString m_bigFontFileName;
    OdString m_typeface;
    double m_textSize = 1.0;
    double m_xScale = 1.0;
    double m_obliquingAngle = 0.0;
    double m_trackingPercent = 1.0;
    bool m_bold = false;
    bool m_italic = false;
    bool m_underlined = false;
    bool m_overlined = false;
    bool m_striked = false;
    bool m_vertical = false;
    mutable const fonts::Font* m_font = nullptr; // what the names lead to, once it has been asked for
};
