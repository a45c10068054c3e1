// The table of linetypes of a drawing.
#pragma once

#include "DbSymbolTable.h"

/** The OdDbLinetypeTable holds the linetypes of a drawing. */
class OdDbLinetypeTable : public OdDbSymbolTable
{
public:
    ODDB_DECLARE_MEMBERS(OdDbLinetypeTable);

protected:
    OdDbLinetypeTable();
};
using OdDbLinetypeTablePtr = OdSmartPtr<OdDbLinetypeTable>;
