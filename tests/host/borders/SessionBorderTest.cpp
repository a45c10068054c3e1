// Drawing borders as a session sees them: asked for, saved, written out into other drawings, kept without the plug-in.
#include <string>

#include <gtest/gtest.h>

#include "support/DrawingText.h"
#include "support/DxfRecords.h"
#include "support/SessionClient.h"
#include "support/TemporaryFolder.h"

namespace
{

using support::Answer;
using support::SessionClient;

constexpr const char* kDefineBoth =
    R"({"JSON": "{\"ColumnLinesValid\": true, \"Columns\": [\"1\", \"\\uD83D\\uDE00\"], \"Lines\": [\"A\"], )"
    R"(\"AreaValid\": true, \"AreaFirst\": {\"X\": 420}, \"AreaSecond\": {\"Y\": 297}}"})";
constexpr const char* kBoth = "{\"ColumnLinesValid\":true,\"Columns\":[\"1\",\"\xF0\x9F\x98\x80\"],\"Lines\":[\"A\"],"
                              R"("AreaValid":true,"AreaFirst":{"X":0.0,"Y":297.0,"Z":0.0},)"
                              R"("AreaSecond":{"X":420.0,"Y":0.0,"Z":0.0}})";

class SessionBorder : public testing::Test
{
protected:
    static std::string borderIn(SessionClient& session) { return session.run("GETDRAWINGBORDER").text("/result/JSON"); }

    support::TemporaryFolder m_folder;
};

TEST_F(SessionBorder, SurvivesSavingAndWritingOut)
{
    const std::string drawing = m_folder.path("drawing.dxf");
    support::writeWholeFile(drawing, support::drawing("AC1032"));
    SessionClient session(drawing);
    ASSERT_EQ(session.run("DEFINEDRAWINGBORDER", kDefineBoth).state(), "ended");
    EXPECT_EQ(borderIn(session), kBoth);
    EXPECT_EQ(session.run("UNDO").json("/result/DONE"), "true");
    EXPECT_EQ(session.run("REDO").json("/result/DONE"), "true");
    const std::string ids = session.run("DRAWINGBORDERGETALLIDS").json("/result/OBJECTIDARRAY");
    for (const char* format : {"ascii", "binary"})
        for (const char* version : {"R2000", "R2007", "R2018"})
        {
            const std::string file = m_folder.path(std::string(version) + format + ".dxf");
            session.run("SAVE",
                        R"({"FILE": ")" + file + R"(", "FORMAT": ")" + format + R"(", "VERSION": ")" + version + "\"}");
            SessionClient again(file);
            EXPECT_EQ(borderIn(again), kBoth) << file;
            EXPECT_EQ(again.run("DRAWINGBORDERGETALLIDS").json("/result/OBJECTIDARRAY"), ids) << file;
        }
    const std::string block = m_folder.path("block.dxf");
    const Answer written = session.run("WBLOCK", R"({"OBJECTIDARRAY": )" + ids + R"(, "FILE": ")" + block + "\"}");
    ASSERT_EQ(written.state(), "ended") << written.line();
    SessionClient other(block);
    EXPECT_EQ(borderIn(other), kBoth);
    EXPECT_TRUE(other.entities().empty());
}

TEST_F(SessionBorder, DamagedOnesAreKeptAndReported)
{
    const std::string good = m_folder.path("good.dxf");
    SessionClient session;
    session.run("DEFINEDRAWINGBORDER", kDefineBoth);
    session.run("SAVE", R"({"FILE": ")" + good + "\"}");
    const std::string text = support::readWholeFile(good);
    const std::size_t object = text.find("CDrawingBorderData\n", text.find("\nCDRAWINGBORDERDATA\n  5"));
    ASSERT_NE(object, std::string::npos);
    const std::size_t version = text.find("\n", text.find(" 70\n", object)) + 1;
    const std::tuple<std::size_t, std::size_t, const char*> rows[] = {
        {version, text.find('\n', version) - version, "2"},
        {object, std::string_view("CDrawingBorderData").size(), "Somebody"},
    };
    for (const auto& [place, length, instead] : rows)
    {
        std::string damaged = text;
        damaged.replace(place, length, instead);
        const std::string file = m_folder.path("damaged.dxf");
        support::writeWholeFile(file, damaged);
        SessionClient again(file);
        EXPECT_EQ(again.run("DRAWINGBORDERGETALLIDS").json("/result/OBJECTIDARRAY/objectIds"), "[]");
        again.run("SAVE", R"({"FILE": ")" + m_folder.path("kept.dxf") + "\"}");
        const support::DxfDifference difference =
            support::compareDxf(damaged, support::readWholeFile(m_folder.path("kept.dxf")));
        EXPECT_TRUE(difference.nothingLost()) << difference.summary();
    }
}

} // namespace
