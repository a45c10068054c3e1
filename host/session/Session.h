// Answers requests on one open drawing. Each line is read, run as a command of the plug-in or the host, and answered;
// whatever goes wrong becomes part of the answer, and the next line is read.
#pragma once

#include <string_view>

#include "session/OpenDrawing.h"
#include "session/ReadRequest.h"
#include "session/ResponseWriter.h"
#include "session/UserAnswers.h"

namespace session
{

class Session
{
public:
    // The drawing must outlive the session.
    explicit Session(OpenDrawing& drawing);

    // Runs a request and returns the response as a line with its line feed, valid until the next call.
    std::string_view answer(ReadRequest& request);
    std::string_view answer(std::string_view line);

    // Runs a request and returns the response itself.
    const Response& respond(ReadRequest& request);
    const Response& respond(std::string_view line);

    // True when a response carried an error.
    bool hadError() const { return m_hadError; }

private:
    void run(RequestReader& reader);
    void refuse(const RequestError& error);

    OpenDrawing& m_drawing;
    OdSmartPtr<UserAnswers> m_user;
    ReadRequest m_request;
    ResponseWriter m_writer;
    Response m_response;
    bool m_hadError = false;
};

} // namespace session
