// A line of the session's input as far as it could be read.
#include "session/ReadRequest.h"

#include "session/LineReader.h"

namespace session
{

void ReadRequest::read(std::string_view line, bool isTooLong)
{
    if (isLong || isTooLong)
        reader = std::make_unique<RequestReader>();
    isLong = line.size() > LineReader::kShortLine;
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
