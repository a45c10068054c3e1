// The table of text styles of a drawing.
#pragma once

#include "DbSymbolTable.h"

/** The OdDbTextStyleTable holds the text styles of a drawing. */
class OdDbTextStyleTable : public OdDbSymbolTable
{
public:
    ODDB_DECLARE_MEMBERS(OdDbTextStyleTable);

protected:
    OdDbTextStyleTable();
};
using OdDbTextStyleTablePtr = OdSmartPtr<OdDbTextStyleTable>;
