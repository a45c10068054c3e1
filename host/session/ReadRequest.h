// A line of the session's input as far as it could be read.
#pragma once

#include <exception>
#include <memory>
#include <string_view>

#include "session/RequestReader.h"

namespace session
{

struct ReadRequest
{
    std::unique_ptr<RequestReader> reader = std::make_unique<RequestReader>();
    std::exception_ptr fault; // why the line is no request; null when it is one
    bool isLong = false;      // then its memory is not kept for the next one

    // Reads a line without its line feed. What is wrong with the line is kept as the fault.
    void read(std::string_view line, bool isTooLong = false);
};

} // namespace session
