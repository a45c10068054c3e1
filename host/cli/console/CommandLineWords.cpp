// Takes apart a line that was typed at a console.
#include "cli/console/CommandLineWords.h"

#include <algorithm>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "cli/ParameterWords.h"

namespace cli
{

std::vector<std::string> splitIntoWords(const std::string& line)
{
    std::vector<std::string> words;
    std::string word;
    int depth = 0;
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i)
    {
        const char character = line[i];
        const bool isBlank = character == ' ' || character == '\t';
        if (isBlank && !isQuoted && depth <= 0)
        {
            if (!word.empty())
                words.push_back(std::move(word));
            word.clear();
            continue;
        }
        word += character;
        if (isQuoted && character == '\\' && i + 1 < line.size())
            word += line[++i];
        else if (character == '"')
            isQuoted = !isQuoted;
        else if (!isQuoted)
            depth += character == '{' || character == '[' ? 1 : character == '}' || character == ']' ? -1 : 0;
    }
    if (!word.empty())
        words.push_back(std::move(word));
    return words;
}

std::string requestOf(const std::string& line)
{
    const std::vector<std::string> words = splitIntoWords(line);
    const bool hasParameters = words.size() > 1 && std::all_of(words.begin() + 1, words.end(), isParameterWord);
    const std::string& command = hasParameters ? words[0] : line;
    rapidjson::Document request(rapidjson::kObjectType);
    auto& allocator = request.GetAllocator();
    request.AddMember("command",
                      rapidjson::Value(command.data(), static_cast<rapidjson::SizeType>(command.size()), allocator),
                      allocator);
    if (hasParameters)
        request.AddMember("parameters", parametersOf({words.begin() + 1, words.end()}, allocator), allocator);
    rapidjson::StringBuffer text;
    rapidjson::Writer<rapidjson::StringBuffer> writer(text);
    request.Accept(writer);
    return {text.GetString(), text.GetSize()};
}

} // namespace cli
