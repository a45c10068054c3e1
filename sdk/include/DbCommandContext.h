// What a command on a drawing works in.
#pragma once

#include "Ed/EdCommandContext.h"

class OdDbDatabase;
class OdDbUserIO;

/** An OdDbCommandContext is the context of commands that work on a drawing. */
class OdDbCommandContext : public OdEdCommandContext
{
public:
    ODRX_DECLARE_MEMBERS(OdDbCommandContext);

    /** baseDatabase() as a drawing. Returns null when there is none or it is of another kind. */
    OdDbDatabase* database();
    /** userIO() as one that asks for what lies in a drawing; null when there is none or it is of another kind. */
    OdDbUserIO* dbUserIO();
};
using OdDbCommandContextPtr = OdSmartPtr<OdDbCommandContext>;
