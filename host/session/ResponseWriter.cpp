// Writes one response of the session.
#include "session/ResponseWriter.h"

#include "session/ValueKinds.h"

namespace session
{

namespace
{

const char* const kOutputNames[] = {"prompt", "text", "error"}; // by OutputKind

void writeId(rapidjson::StringBuffer& text, JsonWriter& writer, const std::string& id)
{
    if (id.empty())
        return;
    writer.printed("id");
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

void writeFailure(JsonWriter& writer, const Failure& failure)
{
    writer.printed("error");
    writer.StartObject();
    writer.printed("code");
    writer.Int(failure.code);
    writer.printed("type");
    writeText(writer, failure.type);
    if (failure.name)
    {
        writer.printed("name");
        writeText(writer, *failure.name);
    }
    if (failure.function)
    {
        writer.printed("function");
        writeText(writer, *failure.function);
    }
    writer.printed("text");
    writeText(writer, failure.text);
    writer.EndObject();
}

void writeOutput(JsonWriter& writer, const std::vector<Output>& output)
{
    writer.printed("output");
    writer.StartArray();
    for (const Output& piece : output)
    {
        writer.StartObject();
        writer.printed(kOutputNames[static_cast<std::size_t>(piece.kind)]);
        writeText(writer, piece.text);
        writer.EndObject();
    }
    writer.EndArray();
}

} // namespace

std::string_view ResponseWriter::write(const Response& response)
{
    m_text.Clear();
    m_writer.Reset(m_text);
    JsonWriter& writer = m_writer;
    writer.StartObject();
    writeId(m_text, writer, response.id);
    writer.printed("command");
    writeOptional(writer, response.command);
    writer.printed("state");
    writer.printed(response.state);
    writer.printed("flags");
    writer.Uint(response.flags);
    writer.printed("message");
    writeOptional(writer, response.message);
    writer.printed("result");
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
