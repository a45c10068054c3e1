// Drawables, and the overrules that come between them and whoever draws them.
#include "Gi/GiDrawable.h"
#include "Gi/GiDrawableOverrule.h"
#include "Gi/GiWorldDraw.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdGiDrawable, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdGiDrawableTraits, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdGiSubEntityTraits, OdGiDrawableTraits)
ODRX_NO_CONS_DEFINE_MEMBERS(OdGiGeometry, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdGiWorldDraw, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdGiDrawableOverrule, OdRxOverrule)

namespace
{

OdGiDrawableOverrule* firstOverrule(const OdGiDrawable* subject)
{
    return static_cast<OdGiDrawableOverrule*>(OdRxOverruleInternals::first(subject, OdGiDrawableOverrule::desc()));
}

OdGiDrawableOverrule* nextOverrule(const OdGiDrawable* subject, const OdGiDrawableOverrule* current)
{
    return static_cast<OdGiDrawableOverrule*>(
        OdRxOverruleInternals::next(subject, OdGiDrawableOverrule::desc(), current));
}

} // namespace

OdUInt32 OdGiDrawable::setAttributes(OdGiDrawableTraits* traits) const
{
    if (OdRxOverrule::isOverruling())
    {
        if (OdGiDrawableOverrule* overrule = firstOverrule(this))
            return overrule->setAttributes(this, traits);
    }
    return subSetAttributes(traits);
}

bool OdGiDrawable::worldDraw(OdGiWorldDraw* worldDraw) const
{
    if (OdRxOverrule::isOverruling())
    {
        if (OdGiDrawableOverrule* overrule = firstOverrule(this))
            return overrule->worldDraw(this, worldDraw);
    }
    return subWorldDraw(worldDraw);
}

OdUInt32 OdGiDrawableOverrule::setAttributes(const OdGiDrawable* subject, OdGiDrawableTraits* traits)
{
    if (OdGiDrawableOverrule* next = nextOverrule(subject, this))
        return next->setAttributes(subject, traits);
    return subject->subSetAttributes(traits);
}

bool OdGiDrawableOverrule::worldDraw(const OdGiDrawable* subject, OdGiWorldDraw* worldDraw)
{
    if (OdGiDrawableOverrule* next = nextOverrule(subject, this))
        return next->worldDraw(subject, worldDraw);
    return subject->subWorldDraw(worldDraw);
}
