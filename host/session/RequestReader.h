// Reads one line of the session's input. What a request is:
//
//   {
//     "id":         any value, kept as text and written back as it was given
//     "command":    string
//     "parameters": { name: value, ... }      optional; null is as good as absent
//     "input":      [ answer, ... ]           optional; null is as good as absent
//   }
//
// A line that is anything else is refused with a RequestError; the reader can then read the next line.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "OdString.h"
#include "session/Json.h"
#include "session/LargeNumbers.h"
#include "session/WideText.h"

namespace session
{

// A request that cannot be run. what() says in English (UTF-8) what is wrong with it.
class RequestError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The request read last. The values belong to the reader and live until it reads again.
struct Request
{
    bool hasId = false;
    std::string id; // JSON text
    bool hasCommand = false;
    OdString command;
    const WideValue* parameters = nullptr; // null when the request has none
    const WideValue* input = nullptr;      // null when the request has none
};

// Reads requests one after the other and reuses its memory for each.
class RequestReader
{
public:
    RequestReader();

    // Reads a line without its line feed. Returns the request, valid until the next call. Throws RequestError;
    // request() then holds what could be read of "id" and "command", so that the refusal can name them.
    const Request& read(std::string_view line);

    const Request& request() const { return m_request; }

    // Gives the memory of a long request back when its parameters are through. They are gone then; "input" stays.
    void releaseParameters();

private:
    void decode(std::string_view line);
    void parse(std::string_view line);
    void forgetDocument();
    void takeMembers();

    Request m_request;
    LineUnits m_units;
    LargeNumbers m_largeNumbers;
    std::vector<char> m_memory;
    std::unique_ptr<rapidjson::MemoryPoolAllocator<>> m_allocator;
    std::unique_ptr<WideDocument> m_document;
};

} // namespace session
