// The table of dimension styles of a drawing.
#pragma once

#include "DbSymbolTable.h"

/** The OdDbDimStyleTable holds the dimension styles of a drawing. */
class OdDbDimStyleTable : public OdDbSymbolTable
{
public:
    ODDB_DECLARE_MEMBERS(OdDbDimStyleTable);

protected:
    OdDbDimStyleTable();
};
using OdDbDimStyleTablePtr = OdSmartPtr<OdDbDimStyleTable>;
