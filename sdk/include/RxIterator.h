// Walking over collections.
#pragma once

#include "RxObject.h"

/** An OdRxIterator stands on one object of a collection, or behind the last. What happens when the collection is
   changed in the meantime, the collection says. */
class OdRxIterator : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdRxIterator);

    virtual bool done() const = 0;
    /** Steps on. Returns false when it now stands behind the last. */
    virtual bool next() = 0;
    /** The object that it stands on, null behind the last. */
    virtual OdRxObjectPtr object() const = 0;
};
using OdRxIteratorPtr = OdSmartPtr<OdRxIterator>;
