// zolcad session: requests from standard input, responses on standard output.
#include <csignal>
#include <optional>

#include <cerrno>
#include <unistd.h>

#include "cli/CommandLine.h"
#include "cli/Doors.h"
#include "cli/Drawings.h"
#include "session/LineReader.h"
#include "session/Session.h"

namespace cli
{

namespace
{

bool writeAll(std::string_view bytes)
{
    while (!bytes.empty())
    {
        const ssize_t count = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return false;
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace

int serveSession(const std::string& drawingFile, session::Plugin plugin)
{
    std::signal(SIGPIPE, SIG_IGN); // a reader that is gone ends the session by a failing write
    const session::HostServices services(plugin);
    std::optional<session::OpenDrawing> drawing;
    openDrawing(drawing, drawingFile);
    reportMended(*drawing, drawingFile);
    session::Session session(*drawing);
    session::LineReader lines(STDIN_FILENO);
    for (std::string_view line; lines.read(line);)
        if (!writeAll(lines.wasTooLong() ? session.refuseTooLong() : session.answer(line)))
            return kFailure;
    return session.hadError() ? kFailure : kSuccess;
}

} // namespace cli
