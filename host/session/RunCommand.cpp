// Runs one command string on a drawing.
#include "session/RunCommand.h"

#include <cstdint>

#include "CommandHandler.h"
#include "ModuleErrors.h"

namespace session
{

namespace
{

const char* const kStates[] = {"none", "started", "ended", "cancelled", "failed"}; // by ECommandState

// The error that a handler keeps, from the chain of its address that stands for a result; null for any other chain.
const OdError* errorIn(const OdResBufPtr& chain)
{
    const bool isNamed = !chain.isNull() && chain->restype() == OdResBuf::kRtString && chain->getString() == L"ERROR";
    const OdResBufPtr value = isNamed ? chain->next() : OdResBufPtr();
    if (value.isNull() || value->restype() != OdResBuf::kRtInt64)
        return nullptr;
    return reinterpret_cast<const OdError*>(static_cast<std::intptr_t>(value->getInt64()));
}

void run(OdDbDatabase& database, const OdString& command, const OdResBufPtr& parameters, CommandUser& user,
         Response& response)
{
    const CCommandHandlerPtr handler = CCommandHandler::createObject(command, &database, &user);
    if (!parameters.isNull())
        handler->funcIO()->setParam(parameters);
    handler->Execute();

    ECommandState state = eCommandNone;
    OdInt32 flags = 0;
    OdRxObjectPtr result;
    handler->GetResult(state, flags, result);
    response.state = kStates[static_cast<std::size_t>(state)];
    response.flags = static_cast<std::uint32_t>(flags);
    response.message = user.message();
    response.result = OdResBuf::cast(result);
    if (const OdError* const error = errorIn(response.result))
        response.failure = failureOf(*error);
}

} // namespace

Failure failureOf(const OdError& error)
{
    Failure failure;
    failure.code = error.code();
    failure.type = error.className();
    failure.text = error.description();
    if (const CModuleErrorContext* const context = CModuleErrorContext::Of(error))
    {
        failure.name = context->GetName();
        failure.function = context->GetFunction();
    }
    return failure;
}

Failure failureOf(const std::exception& error)
{
    Failure failure;
    failure.code = eGeneralException;
    failure.type = L"std::exception";
    failure.text = odUtf8ToString(error.what());
    return failure;
}

void runCommand(OdDbDatabase& database, const OdString& command, const OdResBufPtr& parameters, CommandUser& user,
                Response& response)
{
    try
    {
        run(database, command, parameters, user, response);
    }
    catch (const OdError& error)
    {
        response.failure = failureOf(error);
    }
    catch (const std::exception& error)
    {
        response.failure = failureOf(error);
    }
}

} // namespace session
