// Entities that own further entities: polylines of single vertices, block references with attributes.
#pragma once

#include "DbCurve.h"
#include "DbObjectIterator.h"

/** A SEQEND: it marks the end of the vertices or attributes that follow their owner in a drawing file. */
class OdDbSequenceEnd : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbSequenceEnd);
};

using OdDbSequenceEndPtr = OdSmartPtr<OdDbSequenceEnd>;
