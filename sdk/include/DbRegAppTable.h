// The table of registered applications of a drawing.
#pragma once

#include "DbSymbolTable.h"

/** The OdDbRegAppTable holds the registered applications of a drawing. */
class OdDbRegAppTable : public OdDbSymbolTable
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRegAppTable);

protected:
    OdDbRegAppTable();
};
using OdDbRegAppTablePtr = OdSmartPtr<OdDbRegAppTable>;
