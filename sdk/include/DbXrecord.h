// Data of any kind that applications keep in a drawing.
#pragma once

#include "DbObject.h"

/** An OdDbXrecord is a list of values, each with a group code that says its type. Like every database object it is used
    by one thread at a time. */
class OdDbXrecord : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbXrecord);

    /** The values as a chain, null when there are none. */
    OdResBufPtr rbChain() const;

    /** Replaces all values; null removes them. Returns eOk. Throws OdError: eNotOpenForWrite, eInvalidResBuf for a
       chain with an element that is no value; nothing is changed then. */
    OdResult setFromRbChain(const OdResBuf* chain);

    bool keepsGroups() const override { return true; }

protected:
    OdDbXrecord();
};
using OdDbXrecordPtr = OdSmartPtr<OdDbXrecord>;
