// Texts of several lines.
#pragma once

#include "DbEntity.h"

/** An MTEXT: text that is broken into lines at a width and may change its looks within a line by format codes. It hangs
    on its location by one of nine attachment points; angles are radians. */
class OdDbMText : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbMText);

    enum AttachmentPoint : int
    {
        kTopLeft = 1,
        kTopCenter = 2,
        kTopRight = 3,
        kMiddleLeft = 4,
        kMiddleCenter = 5,
        kMiddleRight = 6,
        kBottomLeft = 7,
        kBottomCenter = 8,
        kBottomRight = 9
    };

    enum FlowDirection : int
    {
        kLtoR = 1,
        kRtoL = 2,
        kTtoB = 3,
        kBtoT = 4,
        kByStyle = 5
    };

    /** The text as it is stored, with its format codes. */
    OdString contents() const;
    void setContents(const OdString& contents);

    /** The text that a reader sees, without format codes; a line feed ends each line. */
    OdString text() const;

    OdGePoint3d location() const;
    void setLocation(const OdGePoint3d& location);
    /** The direction of the lines in world coordinates. */
    OdGeVector3d direction() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for the zero vector. */
    void setDirection(const OdGeVector3d& direction);
    double rotation() const;
    void setRotation(double rotation);
    void setNormal(const OdGeVector3d& normal);

    /** The width that lines are broken at, 0 for none. */
    double width() const;
    void setWidth(double width);
    /** The height of the box that the text was given; it does not limit what is drawn. */
    double height() const;
    void setHeight(double height);
    /** The size of what is drawn. */
    double actualWidth() const;
    double actualHeight() const;

    /** The height of capital letters unless a format code changes it. */
    double textHeight() const;
    /** Throws OdError(eInvalidInput), and changes nothing, unless the height is positive and finite. */
    void setTextHeight(double height);

    AttachmentPoint attachment() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for a value outside the enumeration. */
    void setAttachment(AttachmentPoint attachment);
    /** The attachment point in two parts: its column and its row. */
    OdDb::TextHorzMode horizontalMode() const;
    void setHorizontalMode(OdDb::TextHorzMode mode);
    OdDb::TextVertMode verticalMode() const;
    void setVerticalMode(OdDb::TextVertMode mode);

    FlowDirection flowDirection() const;
    void setFlowDirection(FlowDirection direction);

    double lineSpacingFactor() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for a factor outside 0.25 to 4. */
    void setLineSpacingFactor(double factor);
    OdDb::LineSpacingStyle lineSpacingStyle() const;
    void setLineSpacingStyle(OdDb::LineSpacingStyle style);

    OdDbObjectId textStyle() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for an id that is no text style. */
    void setTextStyle(OdDbObjectId textStyleId);

    /** The format codes. */
    static const OdChar* nonBreakSpace();
    static const OdChar* overlineOn();
    static const OdChar* overlineOff();
    static const OdChar* underlineOn();
    static const OdChar* underlineOff();
    static const OdChar* colorChange();
    static const OdChar* fontChange();
    static const OdChar* heightChange();
    static const OdChar* widthChange();
    static const OdChar* obliqueChange();
    static const OdChar* trackChange();
    static const OdChar* lineBreak();
    static const OdChar* paragraphBreak();
    static const OdChar* stackStart();
    static const OdChar* alignChange();
    static const OdChar* blockBegin();
    static const OdChar* blockEnd();

    bool isPlanar() const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbMTextPtr = OdSmartPtr<OdDbMText>;
