// Requests as they should be, and all the ways in which a line can be none.
#include "session/RequestReader.h"

#include <string>

#include <gtest/gtest.h>

#include "session/WideText.h"

namespace
{

using session::Request;
using session::RequestError;
using session::RequestReader;

std::string repeat(std::string_view piece, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

TEST(RequestReader, KeepsIdsToTheDigit)
{
    // Ids, and what is kept of them, empty for the same.
    const std::pair<std::string, std::string> rows[] = {
        {"7", ""},
        {"-0", ""},
        {"9007199254740993", ""},
        {"123456789012345678901234567890", ""},
        {"1e400", ""},
        {"-1E-999", ""},
        {"-12.5e+0123456789", ""},
        {"[1e400,2,\"1e400\",-3e500]", ""},
        {"1e5", ""},
        {"1e99999999999999999999999999999999999999", ""},
        {"0.10", ""},
        {"null", ""},
        {"true", ""},
        {"\"a\\\"b\"", ""},
        {"\"\\u0000\"", ""},
        {"\"\xF0\x9F\x98\x80\"", ""},
        {"\"\\ud83d\\ude00\"", "\"\xF0\x9F\x98\x80\""},
        {"[1, {\"id\": [2.50]}, \"x\"]", "[1,{\"id\":[2.50]},\"x\"]"},
        {"{\"command\": 1, \"command\": 2}", "{\"command\":1,\"command\":2}"}};
    for (const auto& [given, kept] : rows)
    {
        RequestReader reader;
        const Request& request = reader.read(R"({"id": )" + given + R"(, "command": "X", "parameters": {}})");
        EXPECT_TRUE(request.hasId);
        EXPECT_EQ(request.id, kept.empty() ? given : kept);
        EXPECT_EQ(request.command, L"X");
        ASSERT_NE(request.parameters, nullptr);
        EXPECT_EQ(request.parameters->MemberCount(), 0u);
    }
}

TEST(RequestReader, ReadsMembersInAnyOrder)
{
    RequestReader reader;
    const Request& request = reader.read(R"( {"input":["a",[1,2]],"parameters":{"A":1,"A":2},"command":"SAVE x"} )");
    EXPECT_FALSE(request.hasId);
    EXPECT_EQ(request.command, L"SAVE x");
    ASSERT_NE(request.parameters, nullptr);
    EXPECT_EQ(request.parameters->MemberCount(), 2u); // both, in order
    ASSERT_NE(request.input, nullptr);
    EXPECT_EQ(request.input->Size(), 2u);
}

TEST(RequestReader, TakesNullForAbsent)
{
    RequestReader reader;
    const Request& request = reader.read(R"({"id":null,"command":"X","parameters":null,"input":null})");
    EXPECT_EQ(request.id, "null");
    EXPECT_EQ(request.parameters, nullptr);
    EXPECT_EQ(request.input, nullptr);
}

TEST(RequestReader, RefusesHostileLinesAndReadsTheNext)
{
    const struct
    {
        const char* what;
        std::string line;
        const char* fault; // part of the text
    } rows[] = {
        {"nothing", "", "not JSON"},
        {"blanks", "   ", "not JSON"},
        {"a word", "BSYSTEMLABELGETALLIDS", "not JSON"},
        {"half an object", "{\"command\":\"X\"", "not JSON"},
        {"two objects", R"({"command":"X"}{"command":"Y"})", "not JSON"},
        {"a trailing comma", R"({"command":"X",})", "not JSON"},
        {"a comment", R"({"command":"X"/**/})", "not JSON"},
        {"a number with a leading zero", R"({"command":"X","parameters":{"A":012}})", "not JSON"},
        {"not a number", R"({"command":"X","parameters":{"A":NaN}})", "not JSON"},
        {"a number beyond all", R"({"command":"X","parameters":{"A":1e999}})", "out of range"},
        {"a large number that is none", R"({"command":"X","parameters":{"A":1e999e9}})", "not JSON"},
        {"a large number behind escapes", R"({"command":"\"1\\","parameters":{"\\\"":"\\\\","A":1e999}})",
         "out of range"},
        {"large numbers in texts only", R"({"command":"\"1e999\\\"","parameters":{"\\":"1e999"},"input":1})",
         "\"input\""},
        {"digits without end", "{\"command\":\"X\",\"parameters\":{\"A\":" + repeat("9", 5000) + "}}", "out of range"},
        {"an array", "[]", "JSON object"},
        {"a string", "\"command\"", "JSON object"},
        {"null", "null", "JSON object"},
        {"no command", R"({"id":1})", "\"command\""},
        {"a command that is a number", R"({"command":12})", "\"command\""},
        {"a command that is an object", R"({"command":{"command":"X"}})", "\"command\""},
        {"parameters that are an array", R"({"command":"X","parameters":[]})", "\"parameters\""},
        {"parameters that are false", R"({"command":"X","parameters":false})", "\"parameters\""},
        {"input that is a string", R"({"command":"X","input":"a"})", "\"input\""},
        {"a command given twice", R"({"command":"X","command":"Y"})", "two members \"command\""},
        {"an id given twice", R"({"id":1,"command":"X","id":2})", "two members \"id\""},
        {"a misspelt member", R"({"command":"X","paramters":{}})", "\"paramters\""},
        {"half a pair", R"({"command":"\ud83d"})", "surrogate"},
        {"the other half", R"({"command":"\ude00"})", "surrogate"},
        {"halves the wrong way round", R"({"command":"\ude00\ud83d"})", "surrogate"},
        {"a half in the id", R"({"id":"\udc80","command":"X"})", "surrogate"},
        {"a half behind a backslash", R"({"command":"\\\udc80"})", "surrogate"},
        {"a cut escape", "{\"command\":\"\\u12", "not JSON"},
        {"a null byte", std::string("{\"command\":\"X\"}\0more", 19), "null byte"},
        {"a byte that is no text", "{\"command\":\"\xFF\"}", "not UTF-8"},
        {"a character written too long", "{\"command\":\"\xC0\xAF\"}", "not UTF-8"},
        {"a surrogate in UTF-8", "{\"command\":\"\xED\xA0\x80\"}", "not UTF-8"},
        {"a character beyond the last", "{\"command\":\"\xF4\x90\x80\x80\"}", "not UTF-8"},
        {"a cut character", "{\"command\":\"\xE2\x82", "not UTF-8"},
        {"a control character", "{\"command\":\"\x01\"}", "not JSON"},
        {"deep arrays", repeat("[", 5'000'000), "nested too deeply"},
        {"deep objects", repeat("{\"a\":", 1'000'000), "no member \"a\""},
        {"deep parameters", "{\"command\":\"X\",\"parameters\":" + repeat("{\"a\":", 1'000'000), "nested too deeply"},
        {"a deep id", "{\"id\":" + repeat("[", 1'000'000), "nested too deeply"},
        {"a huge word", repeat("x", 10'000'000), "not JSON"}};
    for (const auto& row : rows)
    {
        RequestReader reader;
        try
        {
            reader.read(row.line);
            ADD_FAILURE() << row.what << " was taken for a request";
        }
        catch (const RequestError& error)
        {
            EXPECT_NE(std::string(error.what()).find(row.fault), std::string::npos) << row.what << ": " << error.what();
        }
        EXPECT_EQ(reader.read(R"({"command":"NEXT"})").command, L"NEXT");
    }
}

TEST(RequestReader, NamesTheRefusedRequestAsFarAsItWasRead)
{
    RequestReader reader;
    EXPECT_THROW(reader.read(R"({"id": 12.50, "command": "X", "parameters": [})"), RequestError);
    EXPECT_EQ(reader.request().id, "12.50");
    EXPECT_EQ(reader.request().command, L"X");
    EXPECT_THROW(reader.read("garbage"), RequestError);
    EXPECT_FALSE(reader.request().hasId);
}

TEST(RequestReader, KeepsAnIdOfTenThousandDigits)
{
    RequestReader reader;
    const std::string digits = repeat("1234567890", 1000);
    const Request& request = reader.read("{\"id\":" + digits + R"(,"command":"X","parameters":{"A":7,"B":1e-999}})");
    EXPECT_EQ(request.id, digits);
    EXPECT_EQ(request.parameters->MemberBegin()->value.GetInt(), 7);
}

TEST(RequestReader, ReadsALineOfTenMegabytes)
{
    RequestReader reader;
    const std::string text = repeat("\\u00e9", 10'000'000 / 6);
    const Request& request = reader.read("{\"command\":\"X\",\"parameters\":{\"A\":\"" + text + "\"}}");
    EXPECT_EQ(request.parameters->MemberBegin()->value.GetStringLength(), 10'000'000u / 6);
    EXPECT_EQ(reader.read(R"({"command":"Y"})").command, L"Y");
}

TEST(RequestReader, GivesParametersBackButNotWhatIsStillAskedFor)
{
    RequestReader reader;
    const std::string text = repeat("x", 2'000'000);
    const Request& request = reader.read("{\"id\":7,\"command\":\"X\",\"parameters\":{\"A\":\"" + text +
                                         "\"},\"input\":[\"" + text + "\"]}");
    reader.releaseParameters();
    EXPECT_EQ(request.parameters, nullptr);
    ASSERT_NE(request.input, nullptr);
    EXPECT_EQ((*request.input)[0].GetStringLength(), text.size());
    reader.read("{\"id\":7,\"command\":\"X\",\"parameters\":{\"A\":\"" + text + "\"}}");
    reader.releaseParameters();
    EXPECT_EQ(request.id, "7");
    EXPECT_EQ(request.command, L"X");
    EXPECT_EQ(reader.read(R"({"command":"Y","parameters":{"A":1}})").parameters->MemberCount(), 1u);
}

// Lines are searched in blocks, which may end anywhere in a number.
TEST(RequestReader, KeepsLargeNumbersAtAllPlaces)
{
    for (const std::string& number : {std::string("1e100"), std::string("-1.5E+0400"), std::string("2e-999"),
                                      std::string(201, '7'), "0." + std::string(199, '1')})
        for (std::size_t shift = 0; shift < 210; ++shift)
        {
            session::RequestReader reader;
            const std::string text(shift, 'x');
            const Request& request =
                reader.read("{\"command\":\"X\",\"parameters\":{\"A\":\"" + text + "\"},\"id\":" + number + "}");
            EXPECT_EQ(request.id, number) << shift;
        }
}

// Characters below 80 are decoded in blocks, which may end anywhere.
TEST(WideText, DecodesCharactersOfAllLengthsAtAllPlaces)
{
    const std::wstring character = L"a\u00E9\u20AC\U0001F600";
    for (std::size_t shift = 0; shift < 10; ++shift)
    {
        OdString expected(std::wstring(shift, L'x'));
        for (int i = 0; i < 3000; ++i)
            expected.append(character);
        std::string bytes = odStringToUtf8(expected.view());
        session::LineUnits line;
        EXPECT_EQ(line.decode(bytes), bytes.size());
        const std::wstring_view units = line.text();
        EXPECT_EQ(units.data()[units.size()], L'\0');
        EXPECT_EQ(session::joinSurrogates(units.data(), units.size()), expected);
        bytes.pop_back();
        EXPECT_EQ(line.decode(bytes), bytes.size() - 3);
    }
}

TEST(WideText, JoinsHalvesAndLeavesLoneOnesAlone)
{
    const wchar_t units[] = {L'a', 0xD83D, 0xDE00, 0xDE00, 0xD83D, L'b', 0xD83D};
    const OdString text = session::joinSurrogates(units, std::size(units));
    const std::wstring expected = {L'a', wchar_t(0x1F600), wchar_t(0xDE00), wchar_t(0xD83D), L'b', wchar_t(0xD83D)};
    EXPECT_EQ(text, OdString(expected));
}

} // namespace
