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
    writer.plain("id");
    writer.RawValue(L"", 0, rapidjson::kNullType); // the separator; the text itself is in bytes already
    for (const char byte : id)
        text.Put(byte);
}

void writeOptional(JsonWriter& writer, const std::optional<OdString>& text)
{
    if (text)
        writer.text(text->view());
    else
        writer.Null();
}

void writeFailure(JsonWriter& writer, const Failure& failure)
{
    writer.plain("error");
    writer.StartObject();
    writer.plain("code");
    writer.Int(failure.code);
    writer.plain("type");
    writer.text(failure.type.view());
    if (failure.name)
    {
        writer.plain("name");
        writer.text(failure.name->view());
    }
    if (failure.function)
    {
        writer.plain("function");
        writer.text(failure.function->view());
    }
    writer.plain("text");
    writer.text(failure.text.view());
    writer.EndObject();
}

void writeOutput(JsonWriter& writer, const std::vector<Output>& output)
{
    writer.plain("output");
    writer.StartArray();
    for (const Output& piece : output)
    {
        writer.StartObject();
        writer.plain(kOutputNames[static_cast<std::size_t>(piece.kind)]);
        writer.text(piece.text.view());
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
    writer.plain("command");
    writeOptional(writer, response.command);
    writer.plain("state");
    writer.plain(response.state);
    writer.plain("flags");
    writer.Uint(response.flags);
    writer.plain("message");
    writeOptional(writer, response.message);
    writer.plain("result");
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
