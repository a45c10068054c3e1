// The console at a terminal, and on a file of lines.
#include <string>

#include <gtest/gtest.h>

#include "cli/console/CommandLineWords.h"
#include "cli/console/Completion.h"
#include "support/ChildProcess.h"
#include "support/DxfRecords.h"
#include "support/EntityDrawing.h"
#include "support/PseudoTerminal.h"
#include "support/TemporaryFolder.h"

namespace
{

const char* const kPrompt = "Command: ";
const std::string kEscape = "\x1b";
const std::string kControlC = "\x03";
const std::string kControlD = "\x04";
const std::string kUp = "\x1b[A";

class Console : public testing::Test
{
protected:
    Console()
    {
        support::writeWholeFile(path(),
                                support::drawingOf({{"LINE A1 0|100 AcDbLine|10 0|20 0|11 10|21 0",
                                                     "TEXT A2 0|100 AcDbText|10 100|20 0|40 5|1 E12|100 AcDbText"}}));
    }

    std::string path() const { return m_folder.path("drawing.dxf"); }
    std::vector<std::string> command() const { return {ZOLCAD_PROGRAM, "console", path()}; }

private:
    support::TemporaryFolder m_folder;
};

/// What is typed, and what appears then.
using Dialogue = std::vector<std::pair<std::string, std::string>>;

void talk(support::PseudoTerminal& terminal, const Dialogue& dialogue)
{
    for (const auto& [typed, shown] : dialogue)
    {
        terminal.type(typed);
        terminal.waitFor(shown);
    }
}

TEST_F(Console, CompletesCommandsAndKeywords)
{
    support::PseudoTerminal terminal(command());
    talk(terminal, {{"", kPrompt},
                    {"bsystemlabelto\t", "BSYSTEMLABELTOJSON "},
                    {"\r", "/Selected/"},
                    {"s\t", "Selected"},
                    {"\r", "is done."},
                    {"", kPrompt},
                    {"BSYSTEMLABELGETIDFROM\t", "BSYSTEMLABELGETIDFROMGUID\n"},
                    {"", "BSYSTEMLABELGETIDFROMHANDLE\n"},
                    {"", "BSYSTEMLABELGETIDFROMNAME\n"},
                    {"n\t NAME=x\r", "OBJECTID: none"},
                    {"", kPrompt},
                    {"SELECTIONSELECTVISUAL SELECTFUNCTION=4\r", "First point of the fence: "},
                    {"5,5\r", "Next point [Undo/]: "},
                    {"u\t", "Undo"},
                    {"\r", "Next point [Undo/]: "},
                    {"5,-5\r\r", "SELECTIONSET: A1\n"}});
}

// The ways to select are offered where objects are asked for, and at no other question for a point.
TEST_F(Console, OffersWaysToSelectWhereTheyAreTaken)
{
    support::PseudoTerminal terminal(command());
    const std::tuple<const char*, const char*, const char*> others[] = {
        {"SELECTIONSELECTVISUAL SELECTFUNCTION=2", "First corner of the window: ", "Invalid point!"},
        {"SELECTIONSELECTVISUAL SELECTFUNCTION=0", "Point on an object: ", "Invalid point!"},
        {"DEFINEDRAWINGBORDER", "Corner of the drawing border: ", "Pick a corner"}};
    for (const auto& [typedFirst, prompt, complaint] : others)
    {
        talk(terminal, {{"", kPrompt}, {std::string(typedFirst) + "\r", prompt}});
        terminal.type("\tal\t\twi\t\r");
        const std::string typed = terminal.waitFor(complaint);
        EXPECT_EQ(typed.find("Window"), std::string::npos) << prompt << typed;
        EXPECT_EQ(typed.find("ALL"), std::string::npos) << prompt << typed;
        talk(terminal, {{"", prompt}, {kControlC, "was cancelled."}});
    }
    talk(terminal, {{"", kPrompt},
                    {"SELECT\r", "Select objects: "},
                    {"wi\t", "Window"},
                    {"\r", "First corner of the window: "},
                    {"-1,-1\r20,20\r", "1 selected"},
                    {"", "Select objects: "},
                    {"w\t", "WPolygon"},
                    {kControlC, "was cancelled."}});
}

// Nobody asks anything: Ctrl-C comes while commands work, of which there are enough for many seconds.
TEST_F(Console, StopsAMacroThatAsksNothing)
{
    std::vector<std::string> lines = {"TEXT A2 0|100 AcDbText|10 100|20 0|40 5|1 E12|100 AcDbText"};
    for (int i = 0; i < 30'000; ++i)
        lines.push_back("LINE " + std::to_string(100'000 + i) + " 0|100 AcDbLine|10 0|20 0|11 10|21 0");
    support::writeWholeFile(path(), support::drawingOf({lines}));
    support::PseudoTerminal terminal(command());
    std::string macro = "REGISTERCUSTOMAPPLICATION X";
    for (int i = 0; i < 1000; ++i)
        macro += " ENTITIES";
    terminal.waitFor(kPrompt);
    terminal.type(macro + "\r");
    terminal.waitFor(macro.substr(macro.size() - 20));
    terminal.waitFor("\n");
    terminal.type(kControlC);
    talk(terminal, {{"", "was cancelled."},
                    {"", kPrompt},
                    {"UNDO\r", "DONE: no"},
                    {"", kPrompt},
                    {"ENTITIES TYPE=TEXT\r", "OBJECTIDARRAY: A2"},
                    {"", "is done."}});
}

TEST_F(Console, CancelsTheCommandAndNotTheProgram)
{
    support::PseudoTerminal terminal(command());
    for (const std::string& cancel : {kEscape, kControlC})
    {
        talk(terminal,
             {{"", kPrompt}, {"BSYSTEMLABELTOJSON\r", "/Selected/"}, {"al" + cancel, "was cancelled."}, {"", kPrompt}});
        terminal.type("NOSUCH" + cancel);
    }
    talk(terminal, {{"", kPrompt}, {"UNDO\r", "DONE: no"}, {"", kPrompt}});
    terminal.type(kControlD);
    EXPECT_EQ(terminal.finish(), 0);
    EXPECT_EQ(terminal.shown().find("There is no command"), std::string::npos) << terminal.shown();
}

TEST_F(Console, KeepsAHistoryOfCommands)
{
    support::PseudoTerminal terminal(command());
    talk(terminal, {{"", kPrompt},
                    {"BSYSTEMLABELTOJSON\r", "/Selected/"},
                    {"all\r", "JSON: []"},
                    {"", kPrompt},
                    {"UNDO\r", "DONE: no"},
                    {"", kPrompt},
                    {kUp + kUp, "BSYSTEMLABELTOJSON"},
                    {"\r", "/Selected/"}});
}

TEST_F(Console, AsksBeforeChangesAreLost)
{
    support::PseudoTerminal terminal(command());
    talk(terminal, {{"", kPrompt}, {"REGISTERCUSTOMAPPLICATION NAME=\"\xD0\x96 x\"\r", "is done."}});
    for (const char* answer : {"no\r", "\r", "\x1b"})
    {
        talk(terminal, {{"", kPrompt}, {"quit\r", "Leave? [Yes/No/]<No>: "}});
        terminal.type(answer);
    }
    talk(terminal, {{"", kPrompt}, {"SAVE\r", "FILE: " + path()}, {"", kPrompt}});
    terminal.type("QUIT\r");
    EXPECT_EQ(terminal.finish(), 0);
    EXPECT_NE(support::readWholeFile(path()).find("\\U+0416 x"), std::string::npos);
}

TEST_F(Console, RunsTheLinesOfAFile)
{
    const support::Transcript good = support::transcriptOf(
        command(), "ENTITIES TYPE=TEXT TEXT=\"^E\"\r\nBSYSTEMLABELTOJSON\nall\n  \nquit\nNOSUCH\n");
    EXPECT_EQ(good.code, 0);
    EXPECT_EQ(good.output, "Command: ENTITIES TYPE=TEXT TEXT=\"^E\"\nOBJECTIDARRAY: A2\nCommand \"ENTITIES\" is done.\n"
                           "Command: BSYSTEMLABELTOJSON\nHandle of a label, or which labels "
                           "[aLl/Selected/Handle/Guid/Name] : all\nJSON: []\nCommand \"BSYSTEMLABELTOJSON\" is done.\n"
                           "Command:   \nCommand: quit\n");
    const support::Transcript bad = support::transcriptOf(
        command(), "NOSUCH\nERASE OBJECTIDARRAY=A1,FFF\nERASE OBJECTIDARRAY=A1\nBSYSTEMLABELTOJSON\n");
    EXPECT_EQ(bad.code, 1);
    EXPECT_NE(bad.output.find("There is no command \"NOSUCH\""), std::string::npos) << bad.output;
    EXPECT_NE(bad.output.find("no object with the handle \"FFF\""), std::string::npos) << bad.output;
    EXPECT_NE(bad.output.find("was cancelled."), std::string::npos) << "the input ends in a question: " << bad.output;
    EXPECT_NE(bad.errors.find("not saved"), std::string::npos) << bad.errors;
    EXPECT_EQ(support::transcriptOf({ZOLCAD_PROGRAM, "console", path() + "x"}, "").code, 3);
    EXPECT_EQ(support::transcriptOf({ZOLCAD_PROGRAM, "console"}, "").code, 0);
}

TEST(ConsoleWords, AreDividedByBlanks)
{
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"", {}},
        {"  SAVE\t ", {"SAVE"}},
        {"A N=\"E 12\" M={\"a\": [1, 2]}", {"A", "N=\"E 12\"", "M={\"a\": [1, 2]}"}},
        {"A \"x \\\" y\" z", {"A", "\"x \\\" y\"", "z"}},
        {"A {\"a }\": 1} b", {"A", "{\"a }\": 1}", "b"}},
        {"A ]] b", {"A", "]]", "b"}},
        {"A \"open b", {"A", "\"open b"}},
    };
    for (const auto& [line, words] : cases)
        EXPECT_EQ(cli::splitIntoWords(line), words) << line;
}

TEST(ConsoleWords, BecomeRequests)
{
    const std::pair<const char*, const char*> cases[] = {
        {"UNDO", R"({"command":"UNDO"})"},
        {"A x=1 y", R"({"command":"A x=1 y"})"},
        {"A \"x=1\"", R"({"command":"A \"x=1\""})"},
        {"A {\"x=\":1}", R"({"command":"A {\"x=\":1}"})"},
        {" A N=1 M=1.5 F=true G=a T=\"1\"",
         R"({"command":"A","parameters":{"N":1,"M":"1.5","F":true,"G":"a","T":"1"}})"},
        {"A OBJECTID=1E2", R"({"command":"A","parameters":{"OBJECTID":{"objectId":"1E2"}}})"},
        {"A objectIdArray=", R"({"command":"A","parameters":{"objectIdArray":{"objectIds":[]}}})"},
        {"A OBJECTIDARRAY={\"objectIds\":[\"1\"]}",
         R"({"command":"A","parameters":{"OBJECTIDARRAY":{"objectIds":["1"]}}})"},
        {"A JSON={\"a b\": [1]}", R"({"command":"A","parameters":{"JSON":"{\"a b\": [1]}"}})"},
        {"A json=[] JSON=\"[\\\"1\\\"]\"", R"({"command":"A","parameters":{"json":"[]","JSON":"[\"1\"]"}})"},
        {"A SELECTIONSET=1,2 VECTOR=1,-2.5,1e1",
         R"({"command":"A","parameters":{"SELECTIONSET":{"selectionSet":["1","2"]},"VECTOR":{"point":[1.0,-2.5,10.0]}}})"},
    };
    for (const auto& [line, request] : cases)
        EXPECT_EQ(cli::requestOf(line), request) << line;
}

TEST(ConsoleWords, AreCompleted)
{
    const std::vector<std::string> words = {"Save", "SaveAs", "select", "Ünder"};
    const std::tuple<const char*, const char*, std::size_t> cases[] = {
        {"", "", 4}, {"s", "S", 3}, {"SAVE", "Save", 2}, {"savea", "SaveAs", 1}, {"x", "", 0}, {"saveasx", "", 0}};
    for (const auto& [word, common, fitting] : cases)
    {
        const cli::Completion completion = cli::complete(word, words);
        EXPECT_EQ(completion.common, common) << word;
        EXPECT_EQ(completion.fitting.size(), fitting) << word;
    }
    using Words = std::vector<std::string>;
    EXPECT_EQ(cli::keywordsOf("Choose [aLl/Selected/]<aLl>:"), (Words{"aLl", "Selected"}));
    EXPECT_EQ(cli::keywordsOf("a [x] or [One/Two]"), (Words{"One", "Two"}));
    for (const char* prompt : {"", "none", "open [a/b", "] closed", "[]", "[//]"})
        EXPECT_EQ(cli::keywordsOf(prompt), Words()) << prompt;
}

} // namespace
