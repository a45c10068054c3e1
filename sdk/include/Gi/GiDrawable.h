// What can be drawn: the root of every database object that has a shape.
#pragma once

#include "RxObject.h"

class OdDbStub;
class OdGiDrawableTraits;
class OdGiWorldDraw;

// Something that can say how it looks (setAttributes) and what its shape is (worldDraw). Every client of a drawing's
// shapes, from extents to pictures, goes through these two operations, so that drawable overrules reach them all.
class OdGiDrawable : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdGiDrawable);

    // Bits that setAttributes may return.
    enum SetAttributesFlags : int
    {
        kDrawableNone = 0,
        kDrawableIsAnEntity = 1,
        kDrawableIsCompoundObject = 4, // draws other drawables, for example a block reference
        kDrawableIsInvisible = 16
    };

    // Sets the traits (colour, layer, linetype ...) that the shape is drawn with; the drawable overrules registered for
    // its class take part when overruling is on. Returns a combination of SetAttributesFlags. traits must not be null.
    OdUInt32 setAttributes(OdGiDrawableTraits* traits) const;

    // Describes the shape through worldDraw->geometry(); overrules take part as in setAttributes. Returns true when the
    // description is complete, false when a client that shows views would have to ask for each view.
    bool worldDraw(OdGiWorldDraw* worldDraw) const;

    // True when the drawable is an object of a database.
    virtual bool isPersistent() const = 0;

    // The identity of the drawable in its database, null when it is in none.
    virtual OdDbStub* id() const = 0;

protected:
    friend class OdGiDrawableOverrule;

    // What setAttributes and worldDraw do when no overrule intervenes.
    virtual OdUInt32 subSetAttributes(OdGiDrawableTraits* traits) const = 0;
    virtual bool subWorldDraw(OdGiWorldDraw* worldDraw) const = 0;
};

using OdGiDrawablePtr = OdSmartPtr<OdGiDrawable>;
