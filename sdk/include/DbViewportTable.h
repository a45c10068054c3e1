// The table of viewport configurations of the model of a drawing.
#pragma once

#include "DbSymbolTable.h"

/** The OdDbViewportTable holds the viewport configurations of the model of a drawing. */
class OdDbViewportTable : public OdDbSymbolTable
{
public:
    ODDB_DECLARE_MEMBERS(OdDbViewportTable);

    /** The viewport that is worked in: the first one named "*Active"; null when there is none. */
    OdDbObjectId getActiveViewportId() const;

protected:
    OdDbViewportTable();
};
using OdDbViewportTablePtr = OdSmartPtr<OdDbViewportTable>;
