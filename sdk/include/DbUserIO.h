// Asking a user for what lies in a drawing.
#pragma once

#include "Ed/EdUserIO.h"
#include "Ge/GePoint3dArray.h"
#include "SSet.h"

/** An OdDbUserIO also asks for selections of entities of a drawing. What a class does not override throws OdError
    (eNotApplicable). */
class OdDbUserIO : public OdEdBaseUserIO
{
public:
    ODRX_DECLARE_MEMBERS(OdDbUserIO);

    /** The entities that were selected before a command was started; null for none. */
    virtual void setPickfirst(OdSelectionSet* selection);
    virtual OdSelectionSetPtr pickfirst();

    /** Asks for a colour as drawings have it. */
    virtual OdCmColor getColor(const OdString& prompt, int options = 0, const OdCmColorBase* defaultValue = nullptr,
                               const OdString& keywords = OdString(), OdEdInputTracker* tracker = nullptr);

    /** Asks for a selection. The tracker decides what may become part of it; points receives what the user picked, when
        it is not null. */
    virtual OdSelectionSetPtr select(const OdString& prompt = OdString(), int options = 0,
                                     const OdSelectionSet* defaultValue = nullptr,
                                     const OdString& keywords = OdString(), OdSSetTracker* tracker = nullptr,
                                     OdGePoint3dArray* points = nullptr);
};
using OdDbUserIOPtr = OdSmartPtr<OdDbUserIO>;
