// The table of layers of a drawing.
#pragma once

#include "DbSymbolTable.h"

/** The OdDbLayerTable holds the layers of a drawing. */
class OdDbLayerTable : public OdDbSymbolTable
{
public:
    ODDB_DECLARE_MEMBERS(OdDbLayerTable);

protected:
    OdDbLayerTable();
};
using OdDbLayerTablePtr = OdSmartPtr<OdDbLayerTable>;
