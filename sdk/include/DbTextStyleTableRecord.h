// Text styles: the font of texts and how it is distorted.
#pragma once

#include "DbSymbolTable.h"

/** An OdDbTextStyleTableRecord is one text style. Setting operations throw OdError(eNotOpenForWrite), and those of
    numbers OdError(eInvalidInput) for one out of range; nothing is changed then. */
class OdDbTextStyleTableRecord : public OdDbSymbolTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbTextStyleTableRecord);

    /** The font file, as "txt" or "arial.ttf". */
    OdString fileName() const;
    void setFileName(const OdString& fileName);

    /** The file with the additional characters of East Asian writing, empty when there is none. */
    OdString bigFontFileName() const;
    void setBigFontFileName(const OdString& fileName);

    /** The typeface of a TrueType font with its cut; an empty typeface for other fonts. */
    void font(OdString& typeface, bool& bold, bool& italic, int& charset, int& pitchAndFamily) const;
    void setFont(const OdString& typeface, bool bold, bool italic, int charset, int pitchAndFamily);

    /** The height of all texts of the style, 0 when each has its own. Not negative. */
    double textSize() const;
    void setTextSize(double size);

    /** The height that was used last. */
    double priorSize() const;
    void setPriorSize(double size);

    /** The width of characters in proportion to their height. Positive. */
    double xScale() const;
    void setXScale(double scale);

    /** The slant of characters in radians, within plus and minus 85 degrees. */
    double obliquingAngle() const;
    void setObliquingAngle(double angle);

    bool isVertical() const;
    void setIsVertical(bool vertical);

    /** True for a record that stands for a file of shapes rather than for a text style; it has no name. */
    bool isShapeFile() const;

protected:
    OdDbTextStyleTableRecord();
};
using OdDbTextStyleTableRecordPtr = OdSmartPtr<OdDbTextStyleTableRecord>;
