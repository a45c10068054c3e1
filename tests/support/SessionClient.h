// Talks to a running `zolcad session`: sends requests and reads the responses as JSON.
#pragma once

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

#include <rapidjson/document.h>
#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "support/ChildProcess.h"

namespace support
{

// One response. Values are found by JSON pointers such as "/result/OBJECTID/objectId".
class Answer
{
public:
    explicit Answer(const std::string& line) : m_line(line)
    {
        m_json.Parse(line.c_str(), line.size());
        if (m_json.HasParseError() || !m_json.IsObject())
            throw std::runtime_error("a response that is no JSON object: " + line);
    }

    const std::string& line() const { return m_line; }

    const rapidjson::Value* find(const char* pointer) const { return rapidjson::Pointer(pointer).Get(m_json); }

    bool has(const char* pointer) const { return find(pointer) != nullptr; }

    // The value as JSON text without blanks, "(none)" when there is none.
    std::string json(const char* pointer) const
    {
        const rapidjson::Value* const value = find(pointer);
        if (value == nullptr)
            return "(none)";
        rapidjson::StringBuffer text;
        rapidjson::Writer<rapidjson::StringBuffer> writer(text);
        value->Accept(writer);
        return text.GetString();
    }

    std::string text(const char* pointer) const
    {
        const rapidjson::Value* const value = find(pointer);
        return value != nullptr && value->IsString() ? std::string(value->GetString(), value->GetStringLength())
                                                     : "(none)";
    }

    int number(const char* pointer) const
    {
        const rapidjson::Value* const value = find(pointer);
        return value != nullptr && value->IsInt() ? value->GetInt() : -1;
    }

    std::string state() const { return text("/state"); }

    // The handles of a list such as "/result/OBJECTIDARRAY".
    std::vector<std::string> handles(const char* pointer) const
    {
        std::vector<std::string> found;
        const rapidjson::Value* const value = find(pointer);
        if (value == nullptr || !value->IsObject() || value->MemberCount() != 1 ||
            !value->MemberBegin()->value.IsArray())
            return found;
        for (const rapidjson::Value& handle : value->MemberBegin()->value.GetArray())
            found.emplace_back(handle.GetString());
        return found;
    }

private:
    std::string m_line;
    rapidjson::Document m_json;
};

// ["2A","2B"]
inline std::string handleList(const std::vector<std::string>& handles)
{
    std::string list = "[";
    for (const std::string& handle : handles)
        list += (list.size() > 1 ? ",\"" : "\"") + handle + '"';
    return list + ']';
}

class SessionClient
{
public:
    explicit SessionClient(const std::string& drawing = {}, const std::string& folder = {})
        : m_program(drawing.empty() ? std::vector<std::string>{ZOLCAD_PROGRAM, "session"}
                                    : std::vector<std::string>{ZOLCAD_PROGRAM, "session", drawing},
                    folder)
    {
    }

    // Sends a line as it is and reads its response.
    Answer send(const std::string& line)
    {
        m_program.write(line + '\n');
        return Answer(m_program.readLine());
    }

    // Runs a command; parameters is JSON text.
    Answer run(const std::string& command, const std::string& parameters = "{}")
    {
        return send(R"({"command":")" + command + R"(","parameters":)" + parameters + '}');
    }

    std::vector<std::string> entities(const std::string& parameters = "{}")
    {
        return run("ENTITIES", parameters).handles("/result/OBJECTIDARRAY");
    }

    int finish() { return m_program.finish(); }
    ChildProcess& program() { return m_program; }

private:
    ChildProcess m_program;
};

} // namespace support
