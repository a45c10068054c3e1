// Saving where it cannot succeed: the session says so and goes on, and the old drawing is whole.
#include <csignal>
#include <filesystem>
#include <string>

#include <sys/resource.h>
#include <unistd.h>

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

    // Tries to save, and shows that nothing came of it.
    void expectRefusal(SessionClient& session, const std::string& parameters, const std::string& file)
    {
        const std::string before = support::readWholeFile(path("drawing.dxf"));
        const std::size_t files = m_folder.fileCount();
        const Answer refused = session.run("SAVE", parameters);
        EXPECT_EQ(refused.state(), "failed") << refused.line();
        EXPECT_NE(refused.text("/error/text").find(file), std::string::npos) << refused.line();
        EXPECT_EQ(support::readWholeFile(path("drawing.dxf")), before);
        EXPECT_EQ(m_folder.fileCount(), files) << "something was left behind";
        EXPECT_FALSE(session.entities().empty());
    }

    support::TemporaryFolder m_folder;
};

TEST_F(SaveFailure, WhereThereIsNoPlace)
{
    std::filesystem::create_directory(path("folder"));
    support::writeWholeFile(path("file"), "not a folder");
    SessionClient session(path("drawing.dxf"));
    for (const char* name : {"missing/new.dxf", "folder", "file/new.dxf"})
        expectRefusal(session, R"({"FILE": ")" + path(name) + "\"}", name);
    expectRefusal(session, R"({"FILE": ")" + path(std::string(300, 'x')) + "\"}", "xxx");
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

TEST_F(SaveFailure, OnAFullDisk)
{
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "needs /dev/full";
    // A limit on the size of files takes the place of a full disk: the program inherits it.
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1000, old.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    SessionClient session(path("drawing.dxf"));
    ::setrlimit(RLIMIT_FSIZE, &old);
    expectRefusal(session, "{}", "drawing.dxf");
    expectRefusal(session, R"({"FORMAT": "binary"})", "drawing.dxf");
}

TEST_F(SaveFailure, WithoutPermission)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "nothing is forbidden to root";
    SessionClient session(path("drawing.dxf"));
    std::filesystem::permissions(m_folder.path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    expectRefusal(session, "{}", "drawing.dxf");
    std::filesystem::permissions(m_folder.path(), std::filesystem::perms::owner_all);
}

// Killed while it saves over and over: the file is always one of the drawings that were saved, from end to end.
TEST_F(SaveFailure, ByBeingKilled)
{
    const std::size_t size = support::readWholeFile(path("drawing.dxf")).size();
    for (int delay = 0; delay < 12; ++delay)
    {
        SessionClient session(path("drawing.dxf"));
        session.entities();
        for (int i = 0; i < 20; ++i)
            session.program().write("{\"command\":\"SAVE\"}\n");
        ::usleep(static_cast<useconds_t>(delay * 1500));
        session.program().kill(SIGKILL);
        EXPECT_EQ(session.finish(), -SIGKILL);
        const std::string file = support::readWholeFile(path("drawing.dxf"));
        EXPECT_GT(file.size(), size / 2);
        EXPECT_TRUE(file.ends_with("EOF\n") || file.ends_with("EOF\r\n")) << "cut after " << file.size() << " bytes";
    }
}

} // namespace
