// The table of named views of a drawing.
#pragma once

#include "DbSymbolTable.h"

/** The OdDbViewTable holds the named views of a drawing. */
class OdDbViewTable : public OdDbSymbolTable
{
public:
    ODDB_DECLARE_MEMBERS(OdDbViewTable);

protected:
    OdDbViewTable();
};
using OdDbViewTablePtr = OdSmartPtr<OdDbViewTable>;
