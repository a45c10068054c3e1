// Shows on the screen which entities carry marks of the plug-in.
#pragma once

#include "Gi/GiDrawableOverrule.h"

/** A CDebugEntityDrawableOverrule paints custom labels blue and entities that characteristic searches ignore green;
   nothing is written to the drawing. A host makes one through the class record: it is in force for all entities from
   then on, with overruling switched on, and when it ends overruling is switched back to what it was. */
class CDebugEntityDrawableOverrule : public OdGiDrawableOverrule
{
public:
    ODRX_DECLARE_MEMBERS(CDebugEntityDrawableOverrule);

    OdUInt32 setAttributes(const OdGiDrawable* subject, OdGiDrawableTraits* traits) override;

protected:
    CDebugEntityDrawableOverrule() = default;
    ~CDebugEntityDrawableOverrule() override;

private:
    static OdSmartPtr<OdRxObject> CreateInForce();
    void PutInForce();

    bool m_bWasOverruling = false;
    bool m_bAdded = false;
};
