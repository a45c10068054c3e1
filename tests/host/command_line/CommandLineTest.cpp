// The program as people start it: its subcommands, what they print, and how they end.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/DrawingText.h"
#include "support/DxfRecords.h"
#include "support/TemporaryFolder.h"

namespace
{

support::Transcript run(std::vector<std::string> arguments, const std::string& folder = {})
{
    arguments.insert(arguments.begin(), ZOLCAD_PROGRAM);
    return support::transcriptOf(arguments, {}, folder);
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

class CommandLine : public testing::Test
{
protected:
    CommandLine()
    {
        support::writeWholeFile(path("new.dxf"), support::drawing("AC1027"));
        support::writeWholeFile(path("old.dxf"), support::oldDrawing());
    }

    std::string path(const std::string& name) const { return m_folder.path(name); }
    std::string folder() const { return m_folder.path(); }

private:
    support::TemporaryFolder m_folder;
};

TEST_F(CommandLine, EndsWithTheCodeOfWhatHappened)
{
    support::writeWholeFile(path("rubbish.dxf"), "this is no drawing\nat all\n");
    support::writeWholeFile(path("empty.dxf"), "");
    const std::pair<std::vector<std::string>, int> cases[] = {
        {{}, 2},
        {{"nonsense"}, 2},
        {{"session", "a.dxf", "b.dxf"}, 2},
        {{"session", "--nonsense"}, 2},
        {{"session", ""}, 2},
        {{"run", "", "ENTITIES"}, 2},
        {{"info"}, 2},
        {{"--help"}, 0},
        {{"session", "--help"}, 0},
        {{"commands"}, 0},
        {{"session"}, 0},
        {{"session", path("new.dxf")}, 0},
        {{"info", path("new.dxf")}, 0},
        {{"session", path("missing.dxf")}, 3},
        {{"session", path("rubbish.dxf")}, 3},
        {{"session", path("empty.dxf")}, 3},
        {{"session", folder()}, 3},
        {{"info", path("rubbish.dxf")}, 3},
        {{"run", path("new.dxf"), "ENTITIES", "TYPE=LINE"}, 0},
        {{"run", path("new.dxf"), "NOSUCHCOMMAND"}, 1},
        {{"run", path("new.dxf"), "ENTITIES", "TYPE"}, 2},
        {{"run", path("new.dxf"), "BSYSTEMLABELGETIDFROMHANDLE", "HANDLE=1E2"}, 0},
        {{"session", path("two\nlines.dxf")}, 3},
        {{"save", path("new.dxf"), path("nowhere/new.dxf")}, 1},
        {{"save", path("new.dxf"), path("x.dxf"), "--version", "R99"}, 1},
    };
    for (const auto& [arguments, code] : cases)
    {
        const support::Transcript outcome = run(arguments);
        std::string what;
        for (const std::string& argument : arguments)
            what += argument + ' ';
        EXPECT_EQ(outcome.code, code) << what << outcome.errors;
        if (code == 3)
        {
            const std::string file = arguments[1].substr(arguments[1].rfind('/') + 1);
            EXPECT_TRUE(contains(outcome.errors, file.substr(file.find('\n') + 1))) << what << outcome.errors;
            EXPECT_EQ(outcome.errors.find('\n'), outcome.errors.size() - 1) << "more than one line: " << outcome.errors;
            EXPECT_EQ(outcome.output, "");
        }
    }
}

TEST_F(CommandLine, EndsASessionThatNobodyHears)
{
    support::ChildProcess shell(
        {"/bin/sh", "-c", "echo '{\"command\":\"ENTITIES\"}' | \"$0\" session >/dev/full", ZOLCAD_PROGRAM});
    EXPECT_EQ(shell.finish(), 1);
}

TEST_F(CommandLine, ListsEveryCommandWithHelp)
{
    const support::Transcript outcome = run({"commands"});
    for (const char* part : {"Quend.Zol.Cad.BSystemLabel", "BSYSTEMLABELCREATE ", "0x30000000", "Quend.Zol.Cad.Host",
                             "SAVE", "TEXTPARSERSORT", "SELECTIONSELECTALLVISIBLEENTITIES", "TRANSACTIONABORT"})
        EXPECT_TRUE(contains(outcome.output, part)) << part;
    // Each line of a command goes on behind its flags.
    for (std::size_t at = outcome.output.find("  0x"); at != std::string::npos;
         at = outcome.output.find("  0x", at + 1))
        EXPECT_TRUE(contains(outcome.output.substr(at + 12, 4), "  ") && outcome.output[at + 14] != '\n')
            << outcome.output.substr(at > 60 ? at - 60 : 0, 90);
}

TEST_F(CommandLine, DescribesADrawing)
{
    const support::Transcript fresh = run({"info", path("new.dxf")});
    for (const char* part : {"R2013 (AC1027)", "Entities", "LINE", "Layers", "Labels: 0"})
        EXPECT_TRUE(contains(fresh.output, part)) << part << '\n' << fresh.output;
    EXPECT_FALSE(contains(fresh.output, "will be saved as"));
    const support::Transcript old = run({"info", path("old.dxf")});
    EXPECT_TRUE(contains(old.output, "R12 (AC1009)")) << old.output;
    EXPECT_TRUE(contains(old.output, "will be saved as R2018")) << old.output;
}

TEST_F(CommandLine, FindsThePluginFromAnyFolder)
{
    EXPECT_EQ(run({"run", path("new.dxf"), "BSYSTEMLABELGETALLIDS"}, "/").code, 0);
    EXPECT_EQ(run({"run", "new.dxf", "BSYSTEMLABELGETALLIDS"}, folder()).code, 0);
}

// Labels are proxies where the plug-in is not there, and labels again where it is.
TEST_F(CommandLine, KeepsLabelsWithoutThePlugin)
{
    const std::string texts = run({"run", path("new.dxf"), "ENTITIES", "TYPE=TEXT,MTEXT,LINE,CIRCLE"}).output;
    const std::size_t handle = texts.find('"', texts.find("objectIds") + 10);
    ASSERT_NE(handle, std::string::npos) << texts;
    const std::string first = texts.substr(handle + 1, texts.find('"', handle + 1) - handle - 1);
    const support::Transcript made = run({"run", path("new.dxf"), "BSYSTEMLABELCREATE",
                                          "OBJECTID={\"objectId\":\"" + first + "\"}", "--save", path("labelled.dxf")});
    ASSERT_EQ(made.code, 0) << made.output << made.errors;
    EXPECT_TRUE(contains(run({"info", path("labelled.dxf")}).output, "Labels: 1"));

    const support::Transcript without = run({"info", "--without-plugin", path("labelled.dxf")});
    EXPECT_TRUE(contains(without.output, "BSYSTEMLABEL in /ZOL_BSYSTEM_LABELS")) << without.output;
    ASSERT_EQ(run({"save", "--without-plugin", path("labelled.dxf"), path("again.dxf")}).code, 0);
    const support::DxfDifference difference =
        support::compareDxf(support::readWholeFile(path("labelled.dxf")), support::readWholeFile(path("again.dxf")));
    EXPECT_TRUE(difference.nothingLost()) << difference.summary();
    EXPECT_TRUE(contains(run({"info", path("again.dxf")}).output, "Labels: 1"));
}

TEST_F(CommandLine, SavesInTheVersionAndFormAskedFor)
{
    const std::tuple<std::vector<std::string>, const char*, bool> cases[] = {
        {{path("new.dxf"), path("out.dxf")}, "AC1027", false},
        {{path("new.dxf"), path("out.dxf"), "--version", "R2000"}, "AC1015", false},
        {{path("new.dxf"), path("out.dxf"), "--version", "ac1032", "--format", "BINARY"}, "AC1032", true},
        {{path("new.dxf"), path("out.dxf"), "--version", "2010"}, "AC1024", false},
        {{path("new.dxf"), path("out.dxf"), "--version", "R12"}, "AC1032", false},
        {{path("old.dxf"), path("out.dxf")}, "AC1032", false},
    };
    for (const auto& [given, version, isBinary] : cases)
    {
        std::vector<std::string> arguments = given;
        arguments.insert(arguments.begin(), "save");
        const support::Transcript saved = run(arguments);
        ASSERT_EQ(saved.code, 0) << saved.errors;
        const std::string file = support::readWholeFile(path("out.dxf"));
        EXPECT_EQ(file.starts_with("AutoCAD Binary DXF"), isBinary);
        EXPECT_TRUE(contains(file.substr(0, 2000), version)) << arguments.back();
    }
}

} // namespace
