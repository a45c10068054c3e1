// What a stamp looks like: the record that its JSON form is read into and that it is drawn from.
#pragma once

#include "CmColor.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"
#include "OdString.h"

namespace Annotation
{

/** How a shape of the border is numbered. All other numbers n stand for a polygon of |n| corners that is stretched to
    the box; a negative one is turned by half a step, and |n| below 3 is the rectangle too. */
enum EBorderShape : OdInt32
{
    eBorderRectangle = -4,
    eBorderEllipse = 256
};

/** An AnnotationProperties is one stamp: a text in a box with border, background and perhaps an image. Lengths are in
    drawing units. It is a plain value. */
struct AnnotationProperties
{
    OdGePoint3d position;       ///< the centre of the box
    OdGeVector3d normal;        ///< of the plane that the box lies in
    double width = 0.0;         ///< of the box
    double height = 0.0;        ///< of the box
    double padding = 0.0;       ///< between border and content
    double angle = 0.0;         ///< in degrees, counter-clockwise about the normal
    OdString id;                ///< of the host; carried, not interpreted
    OdString documentVersionId; ///< likewise
    OdString text;
    OdInt32 horizontalAlignment = 0; ///< an OdDb::TextHorzMode
    OdInt32 verticalAlignment = 0;   ///< an OdDb::TextVertMode
    OdString originalImagePath;      ///< the image file that the host was given; empty for no image
    OdString effectiveImageFileName; ///< the file to attach in its place, if not empty
    bool uniform = false;            ///< the image keeps the proportion of its sides
    OdString handle;                 ///< of the block reference, hexadecimal; empty for a new stamp
    bool textColorSet = false;
    OdCmColor textColor;
    OdCmTransparency textTransparency;
    bool backgroundColorSet = false;
    OdCmColor backgroundColor{OdCmEntityColor(255, 255, 255)};
    OdCmTransparency backgroundTransparency{OdUInt8(0)};
    bool borderColorSet = false;
    OdCmColor borderColor{OdCmEntityColor(255, 255, 255)};
    OdInt32 borderShape = 0; ///< see EBorderShape
    OdCmTransparency borderTransparency{OdUInt8(0)};
    double borderThickness = 0.0;
    double cornerRadius = 0.0;
    bool fitToText = false; ///< the box takes the size of its text
    double fontSize = 0.0;  ///< height of capital letters
    double lineSpacingFactor = 0.0;
    OdString font; ///< typeface

    bool HasVisibleBackground() const { return backgroundColorSet && IsVisible(backgroundTransparency); }
    bool HasVisibleBorder() const { return borderColorSet && IsVisible(borderTransparency); }
    bool HasImage() const { return !originalImagePath.isEmpty(); }
    bool HasVisibleDecoration() const { return HasVisibleBackground() || HasVisibleBorder() || HasImage(); }

private:
    static bool IsVisible(const OdCmTransparency& transparency)
    {
        return !transparency.isByAlpha() || transparency.alpha() != 0;
    }
};

} // namespace Annotation
