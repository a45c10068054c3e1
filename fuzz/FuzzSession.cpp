// Feeds requests to a session, line by line, as they come. Whatever a line holds, it gets one response, and the session
// goes on.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include <rapidjson/document.h>

#include "Ed/EdCommandStack.h"
#include "session/HostServices.h"
#include "session/Session.h"

namespace
{

// Requests decide which files these write.
void removeCommandsThatWriteFiles()
{
    odedRegCmds()->removeCmd(L"Quend.Zol.Cad.Host", L"SAVE");
    odedRegCmds()->removeCmd(L"Quend.Zol.Cad.Host", L"WBLOCK");
}

void requireOneJsonLine(std::string_view response)
{
    rapidjson::Document json;
    json.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag>(response.data(),
                                                                                       response.size());
    const bool isOneLine = response.find('\n') == response.size() - 1;
    // An id is given back to the digit, also one that is beyond every number type of this reader.
    const bool isTooBig = json.HasParseError() && json.GetParseError() == rapidjson::kParseErrorNumberTooBig;
    if (!isOneLine || (!isTooBig && (json.HasParseError() || !json.IsObject())))
        std::abort();
}

void answerEveryLine(std::string_view lines)
{
    session::OpenDrawing drawing;
    session::Session session(drawing);
    while (!lines.empty())
    {
        const std::size_t end = lines.find('\n');
        requireOneJsonLine(session.answer(lines.substr(0, end)));
        lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 1);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const session::HostServices services(session::Plugin::kLoaded);
    static const bool isPrepared = (removeCommandsThatWriteFiles(), true);
    static_cast<void>(isPrepared);
    answerEveryLine({reinterpret_cast<const char*>(data), size});
    return 0;
}
