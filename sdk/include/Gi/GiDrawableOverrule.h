// Changes how drawables of a class look without changing the drawables.
#pragma once

#include "Gi/GiDrawable.h"
#include "RxOverrule.h"

// An overrule of the two operations of OdGiDrawable. A derived class overrides what it wants to change, calls the base
// operation for what the drawable (or the overrule registered before it) does by itself, and is put into force with
// OdRxOverrule::addOverrule for a class of drawables. While overruling is off it costs nothing.
class OdGiDrawableOverrule : public OdRxOverrule
{
public:
    ODRX_DECLARE_MEMBERS(OdGiDrawableOverrule);

    // Called in place of the subject's own setAttributes. Returns a combination of OdGiDrawable::SetAttributesFlags.
    virtual OdUInt32 setAttributes(const OdGiDrawable* subject, OdGiDrawableTraits* traits);

    // Called in place of the subject's own worldDraw; the same meaning of the returned value.
    virtual bool worldDraw(const OdGiDrawable* subject, OdGiWorldDraw* worldDraw);
};

using OdGiDrawableOverrulePtr = OdSmartPtr<OdGiDrawableOverrule>;
