// The table of block definitions of a drawing.
#pragma once

#include "DbSymbolTable.h"

/** The OdDbBlockTable holds the block definitions of a drawing, those of the model and of the layouts among them. */
class OdDbBlockTable : public OdDbSymbolTable
{
public:
    ODDB_DECLARE_MEMBERS(OdDbBlockTable);

    /** The blocks of the model and of the paper layout shown last. */
    OdDbObjectId getModelSpaceId() const;
    OdDbObjectId getPaperSpaceId() const;

    /** As OdDbSymbolTable::add. A name of "*" and one letter, as "*U", is completed by the next free number. */
    OdDbObjectId add(OdDbSymbolTableRecord* record) override;

protected:
    OdDbBlockTable();
};
using OdDbBlockTablePtr = OdSmartPtr<OdDbBlockTable>;
