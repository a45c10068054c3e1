// What the README and the list of commands promise is what the program does: the first session gives the answers that
// are printed there, and no command is left out or made up.
#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/DxfRecords.h"
#include "support/SessionClient.h"
#include "support/TemporaryFolder.h"

namespace
{

const std::string kProject = // the folder above tests/data
    std::filesystem::path(ZOLCAD_TEST_DATA).parent_path().parent_path().string() + '/';

std::string pageOf(const std::string& name)
{
    return support::readWholeFile(kProject + name);
}

struct Exchange
{
    std::string request, response;
};

std::string withoutBlanks(std::string text)
{
    std::erase_if(text, [](char character) { return character == ' ' || character == '\n'; });
    return text;
}

// The lines of the README that begin with "> " and "< "; an answer may go on in indented lines.
std::vector<Exchange> firstSession()
{
    std::vector<Exchange> exchanges;
    std::istringstream page(pageOf("README.md"));
    bool isAnswer = false;
    for (std::string line; std::getline(page, line);)
    {
        if (line.starts_with("> {"))
            exchanges.push_back({line.substr(2), {}});
        isAnswer = line.starts_with("< {") || (isAnswer && line.starts_with("   "));
        if (isAnswer && !exchanges.empty())
            exchanges.back().response += line.substr(2);
    }
    return exchanges;
}

// The members of the answer that the README shows, in their order.
std::string shown(const support::Answer& answer)
{
    std::string text = "{";
    for (const char* member : {"/id", "/command", "/state", "/result", "/error"})
        if (answer.has(member))
            text += std::string(text.size() > 1 ? "," : "") + '"' + (member + 1) + "\":" + answer.json(member);
    return text + '}';
}

bool isCommandName(const std::string& word)
{
    return word.size() > 3 && std::all_of(word.begin(), word.end(),
                                          [](unsigned char letter) { return std::isupper(letter) || letter == '_'; });
}

std::set<std::string> existingCommands()
{
    support::ChildProcess program({ZOLCAD_PROGRAM, "commands"});
    EXPECT_EQ(program.finish(), 0);
    std::set<std::string> names;
    std::istringstream lines(program.output());
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("  "))
            names.insert(line.substr(2, line.find(' ', 2) - 2));
    return names;
}

// The names of commands in the left or right column of a page's tables, as `NAME`.
std::set<std::string> commandsIn(const std::string& page)
{
    std::set<std::string> names;
    for (std::size_t at = page.find('`'); at != std::string::npos;)
    {
        const std::size_t end = page.find('`', at + 1);
        if (end == std::string::npos)
            break;
        if (const std::string word = page.substr(at + 1, end - at - 1); isCommandName(word))
            names.insert(word);
        at = page.find('`', end + 1);
    }
    return names;
}

TEST(Readme, ShowsAFirstSessionAsItIs)
{
    const std::vector<Exchange> exchanges = firstSession();
    ASSERT_GE(exchanges.size(), 5u);
    support::SessionClient session(kProject + "examples/bearing-bracket.dxf");
    std::string requests;
    for (const Exchange& each : exchanges)
    {
        requests += each.request + '\n';
        EXPECT_EQ(withoutBlanks(shown(session.send(each.request))), withoutBlanks(each.response)) << each.request;
    }
    EXPECT_EQ(requests, pageOf("examples/first-session.jsonl"));
}

TEST(Readme, ShowsTheConsoleAsItIs)
{
    support::ChildProcess console({ZOLCAD_PROGRAM, "console", kProject + "examples/bearing-bracket.dxf"});
    console.write(pageOf("examples/first-console.txt"));
    EXPECT_EQ(console.finish(), 0);
    const std::string readme = pageOf("README.md");
    const std::size_t begin = readme.find("\nCommand: ") + 1;
    const std::string shown = readme.substr(begin, readme.find("```", begin) - begin);
    EXPECT_EQ(console.output(), shown + "Command: \n");
}

TEST(Readme, ShowsHowAShellPassesJson)
{
    const std::string page = pageOf("docs/commands.md");
    const std::size_t begin = page.find("zolcad run sheet.dxf");
    ASSERT_NE(begin, std::string::npos);
    const support::TemporaryFolder folder;
    support::writeWholeFile(folder.path("sheet.dxf"), pageOf("examples/bearing-bracket.dxf"));
    std::string shown = page.substr(begin, page.find("```", begin) - begin);
    shown.replace(0, std::string("zolcad").size(), ZOLCAD_PROGRAM);
    support::ChildProcess shell({"/bin/sh", "-c", shown}, folder.path(""));
    EXPECT_EQ(shell.finish(), 0) << shown;
    support::ChildProcess asked({ZOLCAD_PROGRAM, "run", folder.path("bordered.dxf"), "GETDRAWINGBORDER"});
    EXPECT_EQ(asked.finish(), 0);
    EXPECT_NE(asked.output().find("297"), std::string::npos) << asked.output();
}

TEST(Readme, NamesEveryCommandThereIsAndNoOther)
{
    const std::set<std::string> existing = existingCommands();
    ASSERT_GT(existing.size(), 20u);
    for (const char* page : {"README.md", "docs/commands.md"})
    {
        const std::set<std::string> named = commandsIn(pageOf(page));
        for (const std::string& command : existing)
            EXPECT_TRUE(named.contains(command)) << page << " does not name " << command;
    }
    const std::string readme = pageOf("README.md");
    const std::size_t begin = readme.find("## The commands");
    const std::string table = readme.substr(begin, readme.find("\n## ", begin + 1) - begin);
    for (const std::string& command : commandsIn(table))
        EXPECT_TRUE(existing.contains(command)) << "the README names " << command << ", which is not there";
}

} // namespace
