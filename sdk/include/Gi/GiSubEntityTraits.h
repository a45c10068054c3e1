// The looks that a shape is drawn with: colour, layer, linetype, line weight, fill.
#pragma once

#include "CmColorBase.h"
#include "DbEnums.h"
#include "RxObject.h"

class OdDbStub;

enum OdGiFillType : int
{
    kOdGiFillAlways = 1, // closed shapes are filled
    kOdGiFillNever = 2   // outlines only
};

// The receiver of the properties that a drawable as a whole has; see OdGiSubEntityTraits for those of its parts.
class OdGiDrawableTraits : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdGiDrawableTraits);
};

// The looks of whatever is drawn next. A drawable sets them in setAttributes and may change them between the parts of
// its shape; what an enclosing block reference gives (colour "by block") is resolved by the client.
class OdGiSubEntityTraits : public OdGiDrawableTraits
{
public:
    ODRX_DECLARE_MEMBERS(OdGiSubEntityTraits);

    // Colour by index: 0 by block, 1 to 255, 256 by layer. Replaces a true colour.
    virtual void setColor(OdUInt16 colorIndex) = 0;
    // Colour by any method of OdCmEntityColor.
    virtual void setTrueColor(const OdCmEntityColor& color) = 0;
    virtual void setLayer(OdDbStub* layerId) = 0;
    // Null means by layer.
    virtual void setLineType(OdDbStub* linetypeId) = 0;
    virtual void setLineTypeScale(double scale) = 0;
    virtual void setLineWeight(OdDb::LineWeight lineWeight) = 0;
    virtual void setTransparency(const OdCmTransparency& transparency) = 0;
    virtual void setFillType(OdGiFillType fillType) = 0;
    // Length of the extrusion along the normal that curves and texts get, in drawing units.
    virtual void setThickness(double thickness) = 0;
    // Marks a part of the drawable for selection; 0 for none.
    virtual void setSelectionMarker(OdGsMarker marker) = 0;

    virtual OdUInt16 color() const = 0;
    virtual OdCmEntityColor trueColor() const = 0;
    virtual OdDbStub* layer() const = 0;
    virtual OdDbStub* lineType() const = 0;
    virtual double lineTypeScale() const = 0;
    virtual OdDb::LineWeight lineWeight() const = 0;
    virtual OdCmTransparency transparency() const = 0;
    virtual OdGiFillType fillType() const = 0;
    virtual double thickness() const = 0;
};
