// Hands the events of the command stack on to the handler whose run they belong to.
#pragma once

#include "Ed/EdCommandStackReactor.h"

/** A CCommandReactor is attached to the command stack as long as it lives. It acts only on commands whose context is a
    CCommandHandler; commands run by other commands have the same context, so their events reach the same handler. */
class CCommandReactor : public OdEdCommandStackReactor
{
public:
    ODRX_DECLARE_MEMBERS(CCommandReactor);

    /** Tells the handler and returns null. Throws OdError with message 904 for a context that is no handler. */
    OdEdCommandPtr unknownCommand(const OdString& commandName, OdEdCommandContext* context) override;
    void commandWillStart(OdEdCommand* command, OdEdCommandContext* context) override;
    void commandCancelled(OdEdCommand* command, OdEdCommandContext* context) override;
    void commandFailed(OdEdCommand* command, OdEdCommandContext* context) override;
    void commandEnded(OdEdCommand* command, OdEdCommandContext* context) override;

protected:
    CCommandReactor();
    ~CCommandReactor() override;
};
using CCommandReactorPtr = OdSmartPtr<CCommandReactor>;
