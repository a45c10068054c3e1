// Saving where it cannot succeed: the session says so and goes on, and the old drawing is whole.
#include <filesystem>
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

class SaveFailure : public testing::Test
{
protected:
    SaveFailure() { support::writeWholeFile(path("drawing.dxf"), support::drawing("AC1032")); }

    std::string path(const std::string& name) const { return m_folder.path(name); }

    support::TemporaryFolder m_folder;
};

TEST_F(SaveFailure, WhereThereIsNoPlace)
{
    std::filesystem::create_directory(path("folder"));
    support::writeWholeFile(path("file"), "not a folder");
    const std::string before = support::readWholeFile(path("drawing.dxf"));
    SessionClient session(path("drawing.dxf"));
    for (const std::string& name :
         {std::string("missing/new.dxf"), std::string("folder"), std::string("file/new.dxf"), std::string(300, 'x')})
    {
        const Answer refused = session.run("SAVE", R"({"FILE": ")" + path(name) + "\"}");
        EXPECT_EQ(refused.state(), "failed") << refused.line();
        EXPECT_NE(refused.text("/error/text").find(name), std::string::npos) << refused.line();
        EXPECT_EQ(support::readWholeFile(path("drawing.dxf")), before);
        EXPECT_EQ(m_folder.fileCount(), 3u) << "something was left behind";
        EXPECT_FALSE(session.entities().empty());
    }
    EXPECT_EQ(session.run("SAVE").state(), "ended");
    EXPECT_EQ(session.finish(), 1);
}

TEST_F(SaveFailure, OfADrawingWithoutAFile)
{
    SessionClient session;
    EXPECT_EQ(session.run("SAVE").state(), "failed");
    EXPECT_EQ(session.run("SAVE", R"({"FILE": ")" + path("first.dxf") + "\"}").text("/result/FILE"), path("first.dxf"));
    EXPECT_EQ(session.run("SAVE").text("/result/FILE"), path("first.dxf"));
}

} // namespace
