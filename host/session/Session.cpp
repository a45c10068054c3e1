// Answers requests on one open drawing.
#include "session/Session.h"

#include <cstdint>
#include <iterator>

#include "CommandHandler.h"
#include "ModuleErrors.h"
#include "RxObjectImpl.h"
#include "session/ValueKinds.h"

namespace session
{

namespace
{

const char* const kStates[] = {"none", "started", "ended", "cancelled", "failed"}; // by ECommandState

Failure describe(const OdError& error)
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

Failure describeUnknown(const char* what)
{
    Failure failure;
    failure.code = eGeneralException;
    failure.type = L"std::exception";
    failure.text = odUtf8ToString(what);
    return failure;
}

// The error that a handler keeps, from the chain of its address that stands for a result; null for any other chain.
const OdError* errorIn(const OdResBufPtr& chain)
{
    const bool isNamed = !chain.isNull() && chain->restype() == OdResBuf::kRtString && chain->getString() == L"ERROR";
    const OdResBufPtr value = isNamed ? chain->next() : OdResBufPtr();
    if (value.isNull() || value->restype() != OdResBuf::kRtInt64)
        return nullptr;
    return reinterpret_cast<const OdError*>(static_cast<std::intptr_t>(value->getInt64()));
}

} // namespace

Session::Session(OpenDrawing& drawing) : m_drawing(drawing), m_user(OdRxObjectImpl<UserAnswers>::createObject()) {}

std::string_view Session::answer(std::string_view line)
{
    return m_writer.write(respond(line));
}

const Response& Session::respond(std::string_view line)
{
    m_response = Response();
    try
    {
        run(m_reader.read(line));
    }
    catch (const RequestError& error)
    {
        refuse(error);
    }
    catch (const OdError& error)
    {
        m_response.failure = describe(error);
    }
    catch (const std::exception& error)
    {
        m_response.failure = describeUnknown(error.what());
    }
    const Request& request = m_reader.request();
    m_response.id = request.id;
    if (request.hasCommand)
        m_response.command = request.command;
    m_response.output = std::move(m_user->output());
    m_hadError = m_hadError || m_response.failure.has_value();
    return m_response;
}

std::string_view Session::refuseTooLong()
{
    m_response = Response();
    refuse(RequestError("the line is too long"));
    m_hadError = true;
    return m_writer.write(m_response);
}

void Session::run(const Request& request)
{
    m_user->begin(request.input);
    OdDbDatabase& database = m_drawing.database();
    const OdResBufPtr parameters =
        request.parameters == nullptr ? OdResBufPtr() : readChain(*request.parameters, database);
    const CCommandHandlerPtr handler = CCommandHandler::createObject(request.command, &database, m_user);
    if (!parameters.isNull())
        handler->funcIO()->setParam(parameters);
    handler->Execute();

    ECommandState state = eCommandNone;
    OdInt32 flags = 0;
    OdRxObjectPtr result;
    handler->GetResult(state, flags, result);
    m_response.state = kStates[static_cast<std::size_t>(state)];
    m_response.flags = static_cast<std::uint32_t>(flags);
    m_response.message = m_user->message();
    m_response.result = OdResBuf::cast(result);
    if (const OdError* const error = errorIn(m_response.result))
        m_response.failure = describe(*error);
}

void Session::refuse(const RequestError& error)
{
    Failure failure;
    failure.code = eInvalidInput;
    failure.type = L"request";
    failure.text = odUtf8ToString(error.what());
    m_response.failure = failure;
}

} // namespace session
