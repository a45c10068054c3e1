// Writes one response of the session.
#include "session/ResponseWriter.h"

#include "session/ValueKinds.h"

namespace session
{

namespace
{

const wchar_t* const kOutputNames[] = {L"prompt", L"text", L"error"}; // by OutputKind

void writeId(rapidjson::StringBuffer& text, JsonWriter& writer, const std::string& id)
{
    if (id.empty())
        return;
    writer.Key(L"id");
    writer.RawValue(L"", 0, rapidjson::kNullType); // the separator; the text itself is in bytes already
    for (const char byte : id)
        text.Put(byte);
}

void writeOptional(JsonWriter& writer, const std::optional<OdString>& text)
{
    if (text)
        writeText(writer, *text);
    else
        writer.Null();
}

void writeAscii(JsonWriter& writer, std::string_view text)
{
    const std::wstring wide(text.begin(), text.end());
    writer.String(wide.data(), static_cast<rapidjson::SizeType>(wide.size()));
}

void writeFailure(JsonWriter& writer, const Failure& failure)
{
    writer.Key(L"error");
    writer.StartObject();
    writer.Key(L"code");
    writer.Int(failure.code);
    writer.Key(L"type");
    writeText(writer, failure.type);
    if (failure.name)
    {
        writer.Key(L"name");
        writeText(writer, *failure.name);
    }
    if (failure.function)
    {
        writer.Key(L"function");
        writeText(writer, *failure.function);
    }
    writer.Key(L"text");
    writeText(writer, failure.text);
    writer.EndObject();
}

void writeOutput(JsonWriter& writer, const std::vector<Output>& output)
{
    writer.Key(L"output");
    writer.StartArray();
    for (const Output& piece : output)
    {
        writer.StartObject();
        writer.Key(kOutputNames[static_cast<std::size_t>(piece.kind)]);
        writeText(writer, piece.text);
        writer.EndObject();
    }
    writer.EndArray();
}

} // namespace

std::string_view ResponseWriter::write(const Response& response)
{
    m_text.Clear();
    JsonWriter writer(m_text);
    writer.StartObject();
    writeId(m_text, writer, response.id);
    writer.Key(L"command");
    writeOptional(writer, response.command);
    writer.Key(L"state");
    writeAscii(writer, response.state);
    writer.Key(L"flags");
    writer.Uint(response.flags);
    writer.Key(L"message");
    writeOptional(writer, response.message);
    writer.Key(L"result");
    if (response.result.isNull() || response.failure)
        writer.Null();
    else
        writeChain(writer, response.result);
    if (response.failure)
        writeFailure(writer, *response.failure);
    writeOutput(writer, response.output);
    writer.EndObject();
    m_text.Put('\n');
    return {m_text.GetString(), m_text.GetSize()};
}

} // namespace session
