// Attacks what comes from users and command strings: answers, keywords and their abbreviations, questions repeated.
#include "support/PluginTest.h"

#include "UserIO.h"
#include "framework/Json.h"
#include "framework/StringIO.h"
#include "userio/KeywordList.h"

using namespace plugintest;

namespace
{

using InputTest = PluginTest;

TEST_F(InputTest, CutsCommandStringsIntoAnswers)
{
    const std::pair<const OdChar*, std::vector<std::string>> rows[] = {
        {L"", {}},
        {L" \t\r\n", {}},
        {L"A b  c ", {"A", "b", "c"}},
        {L"\"\"", {""}},
        {L"\"\" \"\"\"x y\"z", {"", "", "x y", "z"}},
        {L"a\"b c\"", {"a\"b", "c\""}},
        {L"\"open end ", {"open end "}},
        {L"\"", {""}},
        {L"{\"a\":[1, 2]} next", {"{\"a\":[1, 2]}", "next"}},
        {L"[\"]\", \"\\\"]\"] x", {"[\"]\", \"\\\"]\"]", "x"}},
        {L"[1][2]", {"[1]", "[2]"}},
        {L"{\"a\": \"b c", {"{\"a\": \"b c"}},
        {L"[\"\\", {"[\"\\"}},
        {L"a{b c}", {"a{b", "c}"}},
        {L"] }", {"]", "}"}},
    };
    for (const auto& [utf8, expected] : rows)
    {
        const CStringIOPtr io = CStringIO::createObject(utf8, nullptr);
        std::vector<std::string> answers;
        while (io->HasText())
            answers.push_back(odStringToUtf8(io->getString(L"", 0, nullptr)));
        EXPECT_EQ(answers, expected) << odStringToUtf8(utf8);
        EXPECT_THROW(io->getString(L"", 0, nullptr), OdEdCancel);
        EXPECT_THROW(io->getPoint(L"", 0, nullptr), OdEdCancel);
    }
}

TEST_F(InputTest, FindsKeywords)
{
    const std::tuple<const OdChar*, const OdChar*, int> rows[] = {
        {L"Yes No", L"yes", 0},         {L"Yes No", L"N", 1},       {L"Yes No", L"Maybe", -1},
        {L"Yes No", L"", -1},           {L"Yes No", L"Yess", -1},   {L"", L"Yes", -1},
        {L"  Yes   No ", L"no", 1},     {L"eXit LAst", L"x", 0},    {L"eXit LAst", L"e", -1},
        {L"eXit LAst", L"ex", 0},       {L"eXit LAst", L"l", -1},   {L"eXit LAst", L"las", 1},
        {L"eXit LAst", L"lax", -1},     {L"all", L"a", -1},         {L"all", L"ALL", 0},
        {L"Close C", L"c", 1},          {L"Save SAll", L"sa", 0},   {L"Yes No _ Ja Nein", L"nein", 1},
        {L"Yes No _ Ja Nein", L"j", 0}, {L"Yes No _ Ja", L"No", 1}, {L"Yes No _ Ja Nein", L"_", -1},
        {L"Über Ende", L"ü", 0},        {L"_ Yes", L"Yes", -1},     {L"N No", L"n", 0},
    };
    for (const auto& [keywords, answer, index] : rows)
        EXPECT_EQ(CKeywordList(keywords).Find(answer), index)
            << odStringToUtf8(keywords) << " / " << odStringToUtf8(answer);
}

TEST_F(InputTest, AsksForTextsAsTheOptionsSay)
{
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", db, host);
    OdEdUserIO& io = *handler->userIO();
    const int nonEmpty = OdEd::kInpNonEmpty;
    const int throwEmpty = static_cast<int>(OdEd::kInpThrowEmpty);
    const struct
    {
        std::deque<OdString> answers;
        int options;
        const OdChar* defaultValue;
        const char* result;
        std::size_t prompts;
    } rows[] = {
        {{L" x "}, 0, L"", " x ", 1},
        {{L""}, 0, L"", "", 1},
        {{L""}, 0, L"default", "default", 1},
        {{L""}, nonEmpty, L"Beta", "Beta", 1},
        {{L"", L"", L"y"}, nonEmpty, L"", "y", 3},
        {{L"", L"b"}, nonEmpty, L"", "keyword 1 Beta", 2},
        {{L"ALPHA"}, 0, L"", "keyword 0 Alpha", 1},
        {{L""}, throwEmpty, L"default", "empty", 1},
        {{}, 0, L"default", "cancel", 1},
    };
    for (const auto& row : rows)
    {
        host->answers = row.answers;
        host->prompts.clear();
        host->errors.clear();
        std::string result;
        try
        {
            result = odStringToUtf8(io.getString(L"Say:", row.options, row.defaultValue, L"Alpha Beta"));
        }
        catch (const OdEdKeyword& keyword)
        {
            result = "keyword " + std::to_string(keyword.keywordIndex()) + " " + odStringToUtf8(keyword.keyword());
        }
        catch (const OdEdEmptyInput&)
        {
            result = "empty";
        }
        catch (const OdEdCancel&)
        {
            result = "cancel";
        }
        EXPECT_EQ(result, row.result);
        EXPECT_EQ(host->prompts, std::vector<std::string>(row.prompts, "Say:"));
        EXPECT_EQ(host->errors, std::vector<std::string>(row.prompts - 1, "Requires non-empty value!"));
    }
}

TEST_F(InputTest, AsksForKeywordsUntilItHasOne)
{
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", db, host);
    OdEdUserIO& io = *handler->userIO();
    host->answers = {L"Maybe", L""};
    EXPECT_EQ(io.getKeyword(L"", L"Yes No", 1), 1);
    EXPECT_EQ(host->prompts, std::vector<std::string>(2, "Enter one of the keywords: [Yes/No/]<No>:"));
    EXPECT_EQ(host->texts, std::vector<std::string>{""});
    EXPECT_EQ(host->errors, std::vector<std::string>{"Invalid keyword!"});
    host->prompts.clear();
    host->answers = {L"", L"y"};
    EXPECT_EQ(io.getKeyword(L"Really <No>", L"Yes No", -1), 0);
    EXPECT_EQ(host->prompts, std::vector<std::string>(2, "Really <No>:"));
    host->prompts.clear();
    host->answers = {L""};
    EXPECT_EQ(io.getKeyword(L"Really <No>", L"Yes No", 1), 1);
    EXPECT_EQ(host->prompts, std::vector<std::string>{"Really <No>:"});
}

TEST_F(InputTest, JsonTextsAreTheSameHoweverTheyWereWritten)
{
    const std::pair<const OdChar*, const char*> rows[] = {
        {L"\"\\uD83D\\uDE00\"", "\xF0\x9F\x98\x80"},
        {L"\"\U0001F600\"", "\xF0\x9F\x98\x80"},
        {L"\"\\u00e9\\n\\\"\"", "é\n\""},
        {L"\"\"", ""},
    };
    for (const auto& [json, utf8] : rows)
    {
        std::wstring text = json;
        JsonDocument document;
        document.ParseInsitu(text.data());
        ASSERT_FALSE(document.HasParseError());
        const OdString read = TextOfJson(document);
        EXPECT_EQ(odStringToUtf8(read), utf8);
        JsonDocument written;
        written.SetArray().PushBack(JsonOfText(read, written.GetAllocator()), written.GetAllocator());
        std::wstring again(WriteJson(written).view());
        JsonDocument reread;
        reread.ParseInsitu(again.data());
        EXPECT_EQ(TextOfJson(reread[0]), read);
    }
}

} // namespace
