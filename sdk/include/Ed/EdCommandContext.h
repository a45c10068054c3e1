// What a command works in: whom it can ask, what it is given, which data it works on.
#pragma once

#include "Ed/EdFunctionIO.h"
#include "Ed/EdUserIO.h"
#include "OdaCommon.h"

/** An OdEdCommandContext is handed to every command that runs. Commands that a command runs in turn are given the same
    context. */
class OdEdCommandContext : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdEdCommandContext);

    /** The data that commands work on, null when there is none. */
    virtual OdRxObject* baseDatabase() = 0;
    /** Whom commands ask; null when there is nobody. */
    virtual OdEdUserIO* userIO() = 0;
    /** Argument and result of the command that runs; null when there is none. */
    virtual OdEdFunctionIO* funcIO() = 0;

    /** Leaves an object under a name for the commands of this context, or removes it with null. An empty name is passed
        over. */
    virtual void setArbitraryData(const OdString& key, OdRxObject* object) = 0;
    /** The object of that name, null when there is none. */
    virtual OdRxObjectPtr arbitraryData(const OdString& key) const = 0;
};
using OdEdCommandContextPtr = OdSmartPtr<OdEdCommandContext>;
