// zolcad session: requests from standard input, responses on standard output.
#include <csignal>
#include <optional>

#include <unistd.h>

#include "cli/CommandLine.h"
#include "cli/Doors.h"
#include "cli/Drawings.h"
#include "session/Conversation.h"
#include "session/Session.h"

namespace cli
{

int serveSession(const std::string& drawingFile, session::Plugin plugin)
{
    std::signal(SIGPIPE, SIG_IGN); // a reader that is gone ends the session by a failing write
    const session::HostServices services(plugin);
    std::optional<session::OpenDrawing> drawing;
    openDrawing(drawing, drawingFile);
    reportMended(*drawing, drawingFile);
    session::Session session(*drawing);
    session::Conversation conversation(STDIN_FILENO, STDOUT_FILENO);
    while (session::ReadRequest* const request = conversation.next())
        if (!conversation.answer(session.answer(*request)))
            return kFailure;
    return conversation.finish() && !session.hadError() ? kSuccess : kFailure;
}

} // namespace cli
