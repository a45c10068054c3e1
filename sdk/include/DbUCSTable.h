// The table of user coordinate systems of a drawing.
#pragma once

#include "DbSymbolTable.h"

/** The OdDbUCSTable holds the user coordinate systems of a drawing. */
class OdDbUCSTable : public OdDbSymbolTable
{
public:
    ODDB_DECLARE_MEMBERS(OdDbUCSTable);

protected:
    OdDbUCSTable();
};
using OdDbUCSTablePtr = OdSmartPtr<OdDbUCSTable>;
