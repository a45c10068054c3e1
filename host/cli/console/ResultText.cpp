// Results of commands as people read them.
#include "cli/console/ResultText.h"

#include <utility>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "session/ValueKinds.h"

namespace cli
{

namespace
{

using rapidjson::Value;

constexpr rapidjson::SizeType kShownOfList = 100;

std::string jsonOf(const Value& value)
{
    rapidjson::StringBuffer text;
    rapidjson::Writer<rapidjson::StringBuffer> writer(text);
    value.Accept(writer);
    return {text.GetString(), text.GetSize()};
}

std::string describeList(const Value& handles)
{
    if (handles.Empty())
        return "none";
    std::string text;
    for (rapidjson::SizeType i = 0; i < std::min(handles.Size(), kShownOfList); ++i)
        text += (i == 0 ? "" : " ") + std::string(handles[i].GetString(), handles[i].GetStringLength());
    if (handles.Size() > kShownOfList)
        text += " ... and " + std::to_string(handles.Size() - kShownOfList) + " more";
    return text;
}

std::string describeObject(const Value& handle)
{
    const std::string text(handle.GetString(), handle.GetStringLength());
    return text == "0" ? "none" : text;
}

std::string describe(const Value& value)
{
    if (value.IsString())
        return {value.GetString(), value.GetStringLength()};
    if (value.IsBool())
        return value.GetBool() ? "yes" : "no";
    for (const char* form : {"objectIds", "selectionSet"})
        if (value.IsObject() && value.HasMember(form))
            return describeList(value[form]);
    if (value.IsObject() && value.HasMember("objectId"))
        return describeObject(value["objectId"]);
    return jsonOf(value);
}

} // namespace

std::string describeResult(const OdResBuf* chain)
{
    rapidjson::StringBuffer json;
    session::JsonWriter writer(json);
    session::writeChain(writer, chain);
    rapidjson::Document values;
    values.Parse(json.GetString(), json.GetSize());
    std::string text;
    if (values.IsObject())
        for (const auto& value : std::as_const(values).GetObject())
            text +=
                std::string(value.name.GetString(), value.name.GetStringLength()) + ": " + describe(value.value) + '\n';
    return text;
}

} // namespace cli
