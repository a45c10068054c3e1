// Answers requests on one open drawing.
#include "session/Session.h"

#include "RxObjectImpl.h"
#include "session/RunCommand.h"
#include "session/ValueKinds.h"

namespace session
{

Session::Session(OpenDrawing& drawing) : m_drawing(drawing), m_user(OdRxObjectImpl<UserAnswers>::createObject()) {}

std::string_view Session::answer(ReadRequest& request)
{
    return m_writer.write(respond(request));
}

std::string_view Session::answer(std::string_view line)
{
    return m_writer.write(respond(line));
}

const Response& Session::respond(std::string_view line)
{
    m_request.read(line);
    return respond(m_request);
}

const Response& Session::respond(ReadRequest& request)
{
    m_response = Response();
    try
    {
        if (request.fault)
            std::rethrow_exception(request.fault);
        run(*request.reader);
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
    const Request& read = request.reader->request();
    m_response.id = read.id;
    if (read.hasCommand)
        m_response.command = read.command;
    m_response.output = std::move(m_user->output());
    m_hadError = m_hadError || m_response.failure.has_value();
    return m_response;
}

void Session::run(RequestReader& reader)
{
    const Request& request = reader.request();
    m_user->begin(request.input);
    OdDbDatabase& database = m_drawing.database();
    const OdResBufPtr parameters =
        request.parameters == nullptr ? OdResBufPtr() : readChain(*request.parameters, database);
    reader.releaseParameters();
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
