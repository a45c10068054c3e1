// Listening to the commands that run.
#pragma once

#include "Ed/EdCommand.h"

/** An OdEdCommandStackReactor hears of every command that the command stack runs, those run by other commands included;
    every operation does nothing unless it is overridden. The command is never null. */
class OdEdCommandStackReactor : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdEdCommandStackReactor);

    /** A command was asked for by a name that no command has. Returns the command to be run instead, null for none.
       What it throws reaches the caller of executeCommand. */
    virtual OdEdCommandPtr unknownCommand(const OdString& commandName, OdEdCommandContext* context);

    /** A command is about to start. Throwing refuses it: it has failed (or, with OdEdCancel, is cancelled). */
    virtual void commandWillStart(OdEdCommand* command, OdEdCommandContext* context);

    /** It was cancelled, failed, or came to its end. */
    virtual void commandCancelled(OdEdCommand* command, OdEdCommandContext* context);
    virtual void commandFailed(OdEdCommand* command, OdEdCommandContext* context);
    virtual void commandEnded(OdEdCommand* command, OdEdCommandContext* context);
};
using OdEdCommandStackReactorPtr = OdSmartPtr<OdEdCommandStackReactor>;
