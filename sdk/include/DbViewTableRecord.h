// Views that have a name.
#pragma once

#include "DbAbstractViewTableRecord.h"

/** An OdDbViewTableRecord is a view of the drawing that can be gone back to by its name. */
class OdDbViewTableRecord : public OdDbAbstractViewTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbViewTableRecord);

protected:
    OdDbViewTableRecord();
};
using OdDbViewTableRecordPtr = OdSmartPtr<OdDbViewTableRecord>;
