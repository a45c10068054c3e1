// The entities that frame a block definition in a drawing file.
#pragma once

#include "DbEntity.h"

/** A BLOCK: it stands in front of the entities of a block definition and holds its base point. */
class OdDbBlockBegin : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbBlockBegin);
};

/** An ENDBLK: it stands behind the entities of a block definition. */
class OdDbBlockEnd : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbBlockEnd);
};

using OdDbBlockBeginPtr = OdSmartPtr<OdDbBlockBegin>;
using OdDbBlockEndPtr = OdSmartPtr<OdDbBlockEnd>;
