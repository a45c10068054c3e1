// Finds the handler behind a context and calls its event operations.
#include "framework/CommandReactor.h"

#include "CommandHandler.h"
#include "Ed/EdCommandStack.h"
#include "RxObjectImpl.h"
#include "RxSystemServices.h"
#include "module/ground/Messages.h"

ODRX_CONS_DEFINE_MEMBERS(CCommandReactor, OdEdCommandStackReactor, RXIMPL_CONSTR)

CCommandReactor::CCommandReactor()
{
    odedRegCmds()->addReactor(this);
}

CCommandReactor::~CCommandReactor()
{
    if (const OdEdCommandStackPtr pCommands = odedRegCmds())
        pCommands->removeReactor(this);
}

OdEdCommandPtr CCommandReactor::unknownCommand(const OdString& commandName, OdEdCommandContext* context)
{
    const CCommandHandlerPtr pHandler = CCommandHandler::cast(context);
    if (!pHandler)
        throw OdError(odSystemServices()->formatMessage(eMessageUnknownCommand, commandName.c_str()));
    pHandler->CommandUnknown(commandName);
    return OdEdCommandPtr();
}

void CCommandReactor::commandWillStart(OdEdCommand* command, OdEdCommandContext* context)
{
    if (const CCommandHandlerPtr pHandler = CCommandHandler::cast(context))
        pHandler->CommandWillStart(command);
}

void CCommandReactor::commandCancelled(OdEdCommand* command, OdEdCommandContext* context)
{
    if (const CCommandHandlerPtr pHandler = CCommandHandler::cast(context))
        pHandler->CommandCancelled(command);
}

void CCommandReactor::commandFailed(OdEdCommand* command, OdEdCommandContext* context)
{
    if (const CCommandHandlerPtr pHandler = CCommandHandler::cast(context))
        pHandler->CommandFailed(command);
}

void CCommandReactor::commandEnded(OdEdCommand* command, OdEdCommandContext* context)
{
    if (const CCommandHandlerPtr pHandler = CCommandHandler::cast(context))
        pHandler->CommandEnded(command);
}
