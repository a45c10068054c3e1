// Opening the drawings that are named on the command line. They end with the program.
#include "cli/Drawings.h"

#include <algorithm>
#include <iostream>

#include "OdError.h"

namespace cli
{

namespace
{

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kTakeApart = true; // what is wrong with that is to be found, too
#elif defined(__has_feature)
constexpr bool kTakeApart = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
constexpr bool kTakeApart = false;
#endif

std::string describeFailure(const std::string& file, const OdString& fault)
{
    std::string line = odStringToUtf8(fault);
    if (line.find(file) == std::string::npos)
        line = file + ": " + line;
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line;
}

} // namespace

void openDrawing(std::optional<session::OpenDrawing>& drawing, const std::string& file)
{
    try
    {
        if (file.empty())
            drawing.emplace();
        else
            drawing.emplace(odUtf8ToString(file));
        if (!kTakeApart)
            drawing->endsWithTheProgram();
    }
    catch (const OdError& error)
    {
        throw UnreadableDrawing(describeFailure(file, error.description()));
    }
    catch (const std::exception& error)
    {
        throw UnreadableDrawing(describeFailure(file, odUtf8ToString(error.what())));
    }
}

void reportMended(const session::OpenDrawing& drawing, const std::string& file)
{
    for (const OdString& line : drawing.database().recoveryReport())
        std::cerr << "zolcad: " << file << ": " << odStringToUtf8(line) << '\n';
}

} // namespace cli
