// Selections of any kind.
#pragma once

#include "RxObject.h"

/** An OdSelectionSet is a list of chosen things that belong together, each there once. */
class OdSelectionSet : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdSelectionSet);

    /** What the members belong to, null when it is not known. */
    virtual const OdRxObject* baseDatabase() const = 0;

    virtual OdUInt32 numEntities() const = 0;
    virtual void clear() = 0;
};
using OdSelectionSetPtr = OdSmartPtr<OdSelectionSet>;
