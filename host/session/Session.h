// Answers requests on one open drawing. Each line is read, run as a command of the plug-in or the host, and answered;
// whatever goes wrong becomes part of the answer, and the next line is read.
#pragma once

#include <string_view>

#include "session/OpenDrawing.h"
#include "session/RequestReader.h"
#include "session/ResponseWriter.h"
#include "session/UserAnswers.h"

namespace session
{

class Session
{
public:
    // The drawing must outlive the session.
    explicit Session(OpenDrawing& drawing);

    // Runs the request of a line and returns the response as a line with its line feed, valid until the next call.
    std::string_view answer(std::string_view line);

    // Runs the request of a line and returns the response itself.
    const Response& respond(std::string_view line);

    // Answers a line that was too long to be read.
    std::string_view refuseTooLong();

    // True when a response carried an error.
    bool hadError() const { return m_hadError; }

private:
    void run(const Request& request);
    void refuse(const RequestError& error);

    OpenDrawing& m_drawing;
    OdSmartPtr<UserAnswers> m_user;
    RequestReader m_reader;
    ResponseWriter m_writer;
    Response m_response;
    bool m_hadError = false;
};

} // namespace session
