// Single lines of text.
#pragma once

#include "DbEntity.h"

/** A TEXT: one line of text in one style. Its place is the position for text that is aligned left on its base line,
    the alignment point otherwise; both are world coordinates, angles are radians. */
class OdDbText : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbText);

    /** The text as it is stored, with its %% codes. */
    OdString textString() const;
    void setTextString(const OdString& text);

    OdGePoint3d position() const;
    void setPosition(const OdGePoint3d& position);
    OdGePoint3d alignmentPoint() const;
    void setAlignmentPoint(const OdGePoint3d& point);
    /** True for text aligned left on its base line. */
    bool isDefaultAlignment() const;

    /** The height of capital letters. */
    double height() const;
    /** Throws OdError(eInvalidInput), and changes nothing, unless the height is positive and finite. */
    void setHeight(double height);
    double widthFactor() const;
    void setWidthFactor(double factor);
    double rotation() const;
    void setRotation(double rotation);
    double oblique() const;
    void setOblique(double oblique);
    double thickness() const;
    void setThickness(double thickness);
    /** The text's place stays where it is. Throws OdError(eInvalidInput) for the zero vector. */
    void setNormal(const OdGeVector3d& normal);

    bool isMirroredInX() const;
    void mirrorInX(bool mirror);
    bool isMirroredInY() const;
    void mirrorInY(bool mirror);

    OdDb::TextHorzMode horizontalMode() const;
    void setHorizontalMode(OdDb::TextHorzMode mode);
    OdDb::TextVertMode verticalMode() const;
    void setVerticalMode(OdDb::TextVertMode mode);

    /** The text style's record, null when the style that the text names does not exist. */
    OdDbObjectId textStyle() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for an id that is no text style. */
    void setTextStyle(OdDbObjectId textStyleId);

    bool isPlanar() const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbTextPtr = OdSmartPtr<OdDbText>;
