// What the session writes as JSON against what the library writes, character by character.
#include "session/Json.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace
{

std::string written(const std::wstring& text)
{
    rapidjson::StringBuffer buffer;
    session::JsonWriter writer(buffer);
    writer.StartArray();
    writer.plain("in front");
    writer.text(text);
    writer.EndArray();
    return buffer.GetString();
}

std::string writtenByTheLibrary(const std::wstring& text)
{
    rapidjson::StringBuffer buffer;
    session::JsonWriter::Base writer(buffer);
    writer.StartArray();
    writer.String(L"in front");
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    writer.EndArray();
    return buffer.GetString();
}

// Texts are taken in blocks, the last one overlapping: a character that needs an escape may be at any place of any.
TEST(Json, WritesEveryCharacterAtEveryPlace)
{
    const std::wstring special = {L'"', L'\\', L'\n', L'\0', L'\x1F', L' ', L'\x7F', L'\x80', L'ä', L'€', L'\x1F4D0'};
    for (std::size_t length = 0; length < 40; ++length)
        for (std::size_t place = 0; place < length; ++place)
            for (const wchar_t character : special)
            {
                std::wstring text(length, L'a');
                text[place] = character;
                ASSERT_EQ(written(text), writtenByTheLibrary(text)) << length << " characters, number " << place;
                text.back() = L'"';
                ASSERT_EQ(written(text), writtenByTheLibrary(text)) << length << " characters, number " << place;
            }
}

TEST(Json, EscapesHalfCharacters)
{
    const std::pair<std::wstring, const char*> cases[] = {
        {{wchar_t(0xDC9C)}, R"(["in front","\udc9c"])"},
        {{L'"', wchar_t(0xD800), L'\\', L'\n', L'ä'}, "[\"in front\",\"\\\"\\ud800\\\\\\u000aä\"]"},
    };
    for (const auto& [text, json] : cases)
        EXPECT_EQ(written(text), json);
}

} // namespace
