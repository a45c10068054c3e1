// Writes one response of the session:
//
//   {"id": …, "command": …, "state": …, "flags": …, "message": …, "result": …, "error": …, "output": […]}
//
// "id" is there when the request had one, "error" when there is one. Each response is one line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OdString.h"
#include "ResBuf.h"
#include "session/Json.h"

namespace session
{

enum class OutputKind
{
    kPrompt,
    kText,
    kError
};

// Something that a user would have seen.
struct Output
{
    OutputKind kind;
    OdString text;
};

struct Failure
{
    int code = 0;
    OdString type;
    std::optional<OdString> name;     // of the value at fault
    std::optional<OdString> function; // that found the fault
    OdString text;
};

struct Response
{
    std::string id; // JSON text, empty when the request had none
    std::optional<OdString> command;
    const char* state = "none";
    std::uint32_t flags = 0;
    std::optional<OdString> message;
    OdResBufPtr result; // left out beside a failure
    std::optional<Failure> failure;
    std::vector<Output> output;
};

class ResponseWriter
{
public:
    // The response as a line with its line feed, valid until the next call.
    std::string_view write(const Response& response);

private:
    rapidjson::StringBuffer m_text;
    JsonWriter m_writer;
};

} // namespace session
