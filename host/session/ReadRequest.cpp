// A line of the session's input as far as it could be read.
#include "session/ReadRequest.h"

namespace session
{

namespace
{

constexpr std::size_t kLongLine = std::size_t{64} << 10;

} // namespace

void ReadRequest::read(std::string_view line, bool isTooLong)
{
    if (isLong || isTooLong)
        reader = std::make_unique<RequestReader>();
    isLong = line.size() > kLongLine;
    fault = nullptr;
    try
    {
        if (isTooLong)
            throw RequestError("the line is too long");
        reader->read(line);
    }
    catch (...)
    {
        fault = std::current_exception();
    }
}

} // namespace session
