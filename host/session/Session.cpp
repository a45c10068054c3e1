// Answers requests on one open drawing.
#include "session/Session.h"

#include "RxObjectImpl.h"
#include "session/RunCommand.h"
#include "session/ValueKinds.h"

namespace session
{

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
        m_response.failure = failureOf(error);
    }
    catch (const std::exception& error)
    {
        m_response.failure = failureOf(error);
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
    m_reader.releaseParameters();
    runCommand(database, request.command, parameters, *m_user, m_response);
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
