// Going over the entities that a block, a polyline or a block reference owns.
#pragma once

#include "DbObject.h"

class OdDbEntity;

/** Goes over the objects of one owner in their order. It holds no object open. Objects appended while it runs are
    reached; removing nothing but the flag of being erased, erasing does not disturb it. */
class OdDbObjectIterator : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbObjectIterator);

    /** Goes to the first object, or to the last one; erased ones are passed over with skipDeleted. */
    virtual void start(bool atBeginning = true, bool skipDeleted = true) = 0;

    /** True when there is no current object. */
    virtual bool done() const = 0;

    /** The current object, null when there is none. */
    virtual OdDbObjectId objectId() const = 0;

    /** Opens the current object. Returns null when there is none or it cannot be opened. */
    virtual OdSmartPtr<OdDbEntity> entity(OdDb::OpenMode openMode = OdDb::kForRead,
                                          bool openErasedEntity = false) const = 0;

    /** Goes one object on, or back. */
    virtual void step(bool forward = true, bool skipDeleted = true) = 0;

    /** Goes to that object. Returns false, and stays, when the owner does not have it. */
    virtual bool seek(OdDbObjectId objectId) = 0;
};

using OdDbObjectIteratorPtr = OdSmartPtr<OdDbObjectIterator>;
