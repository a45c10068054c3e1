// The plain lines of standard input, and the choice between them and a terminal.
#include "cli/console/LineSource.h"

#include <cstdio>
#include <string_view>

#include <unistd.h>

#include "cli/console/Terminal.h"
#include "session/LineReader.h"

namespace cli
{

namespace
{

class PlainLines : public LineSource
{
public:
    Input read(const Question& question, std::string& text) override
    {
        std::string_view line;
        const bool isThere = m_lines.read(line);
        if (isThere && line.ends_with('\r'))
            line.remove_suffix(1);
        text = line;
        std::printf("%s%s\n", question.prompt.c_str(), text.c_str());
        std::fflush(stdout);
        return isThere ? Input::kLine : Input::kEnd;
    }

    bool isPerson() const override { return false; }

private:
    session::LineReader m_lines{STDIN_FILENO};
};

} // namespace

std::unique_ptr<LineSource> openLineSource()
{
    if (::isatty(STDIN_FILENO) && ::isatty(STDOUT_FILENO))
        return std::make_unique<Terminal>();
    return std::make_unique<PlainLines>();
}

} // namespace cli
