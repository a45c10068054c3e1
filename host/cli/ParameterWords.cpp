// Parameters as people write them.
#include "cli/ParameterWords.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string_view>

#include "session/RequestReader.h"

namespace cli
{

namespace
{

using Allocator = rapidjson::Document::AllocatorType;
using rapidjson::Value;

Value textValue(std::string_view text, Allocator& allocator)
{
    return Value(text.data(), static_cast<rapidjson::SizeType>(text.size()), allocator);
}

Value formOf(const char* form, Value value, Allocator& allocator)
{
    Value whole(rapidjson::kObjectType);
    whole.AddMember(Value(rapidjson::StringRef(form)), value, allocator);
    return whole;
}

std::vector<std::string> splitAtCommas(const std::string& text)
{
    std::vector<std::string> parts;
    for (std::size_t begin = 0; begin < text.size();)
    {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        parts.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

Value handlesIn(const std::string& text, Allocator& allocator)
{
    Value handles(rapidjson::kArrayType);
    for (const std::string& handle : splitAtCommas(text))
        handles.PushBack(textValue(handle, allocator), allocator);
    return handles;
}

Value objectId(const std::string& text, Allocator& allocator)
{
    return formOf("objectId", textValue(text, allocator), allocator);
}

Value objectIds(const std::string& text, Allocator& allocator)
{
    return formOf("objectIds", handlesIn(text, allocator), allocator);
}

Value selectionSet(const std::string& text, Allocator& allocator)
{
    return formOf("selectionSet", handlesIn(text, allocator), allocator);
}

// What is no number stays a text, which the reader of requests refuses.
Value coordinate(const std::string& text, Allocator& allocator)
{
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    const bool isNumber = !text.empty() && *end == '\0';
    return isNumber ? Value(number) : textValue(text, allocator);
}

Value point(const std::string& text, Allocator& allocator)
{
    Value coordinates(rapidjson::kArrayType);
    for (const std::string& part : splitAtCommas(text))
        coordinates.PushBack(coordinate(part, allocator), allocator);
    return formOf("point", std::move(coordinates), allocator);
}

struct ShortForm
{
    std::string_view nameEnd;
    bool isWholeName;
    Value (*read)(const std::string& text, Allocator& allocator);
};

constexpr ShortForm kShortForms[] = {
    {"ARRAY", false, objectIds},    {"OBJECTID", true, objectId},        {"SELECTIONSET", true, selectionSet},
    {"SOURCE", true, selectionSet}, {"DESTINATION", true, selectionSet}, {"VECTOR", true, point},
};

std::string upperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char letter) { return std::toupper(letter); });
    return text;
}

const ShortForm* findShortForm(const std::string& name)
{
    const std::string wanted = upperCase(name);
    for (const ShortForm& form : kShortForms)
        if (form.isWholeName ? wanted == form.nameEnd : wanted.ends_with(form.nameEnd))
            return &form;
    return nullptr;
}

Value valueOf(const std::string& name, const std::string& text, Allocator& allocator)
{
    if (upperCase(name) == "JSON" && !text.starts_with('"'))
        return textValue(text, allocator);
    const ShortForm* const form = findShortForm(name);
    if (form != nullptr && !text.starts_with('{'))
        return form->read(text, allocator);
    rapidjson::Document parsed;
    parsed.Parse(text.data(), text.size());
    const bool isText = parsed.HasParseError() || (parsed.IsNumber() && !parsed.IsInt());
    return isText ? textValue(text, allocator) : Value(parsed, allocator);
}

} // namespace

bool isParameterWord(const std::string& word)
{
    const std::size_t equals = word.find('=');
    return equals != std::string::npos && equals > 0 &&
           std::all_of(word.begin(), word.begin() + static_cast<std::ptrdiff_t>(equals),
                       [](unsigned char letter) { return std::isalpha(letter); });
}

Value parametersOf(const std::vector<std::string>& words, Allocator& allocator)
{
    Value parameters(rapidjson::kObjectType);
    for (const std::string& word : words)
    {
        const std::size_t equals = word.find('=');
        if (equals == std::string::npos || equals == 0)
            throw session::RequestError("a parameter is NAME=VALUE, not \"" + word + "\"");
        const std::string name = word.substr(0, equals);
        parameters.AddMember(textValue(name, allocator), valueOf(name, word.substr(equals + 1), allocator), allocator);
    }
    return parameters;
}

} // namespace cli
