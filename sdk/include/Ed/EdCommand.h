// Commands: named pieces of work that programs, modules and users ask for.
#pragma once

#include "OdaCommon.h"

class OdEdCommandContext;

/** An OdEdCommand is one command of the command stack. It belongs to a group, has a global name that is the same in
    every language and a local one that is shown to users. It may be a variable of a module (OdStaticRxObject); the
    module then takes it off the stack before it ends. */
class OdEdCommand : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdEdCommand);

    virtual OdString groupName() const = 0;
    virtual OdString globalName() const = 0;

    /** The global name unless it is overridden. */
    virtual OdString localName() const;

    /** Bits that tell the program how to run the command; 0 unless it is overridden. */
    virtual OdUInt32 flags() const;

    /** Does the work. Whatever it throws makes it a command that failed, OdEdCancel one that was cancelled. */
    virtual void execute(OdEdCommandContext* context) = 0;
};
using OdEdCommandPtr = OdSmartPtr<OdEdCommand>;

/** The work of a command that has no class of its own. */
using OdEdCommandFunction = void(OdEdCommandContext* context);
