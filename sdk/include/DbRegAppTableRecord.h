// Registered applications: the names under which extended data is kept.
#pragma once

#include "DbSymbolTable.h"

/** An OdDbRegAppTableRecord makes one application known to a drawing; without it no object takes extended data of the
    application. */
class OdDbRegAppTableRecord : public OdDbSymbolTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRegAppTableRecord);

protected:
    OdDbRegAppTableRecord();
};
using OdDbRegAppTableRecordPtr = OdSmartPtr<OdDbRegAppTableRecord>;
