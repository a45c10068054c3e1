// Saving is whole or not at all.
#include "Drawings.h"

#include "dxf/OutputFile.h"
#include "support/DrawingText.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace
{

class Saving : public testing::Test
{
protected:
    void save(const std::string& path) { dxf::writeDrawing(*m_database, path, dxf::FileForm::Ascii, OdDb::vAC32); }

    support::TemporaryFolder m_folder;
    OdDbDatabasePtr m_database = openText(support::drawing("AC1032"));
};

// A drawing of some megabytes.
std::string largeDrawing(int count = 40000)
{
    std::string lines;
    for (int i = 0; i < count; ++i)
        lines += support::oldLine("", i, i);
    return support::headerSection("AC1009") + support::section("ENTITIES", lines) + support::endOfFile();
}

TEST_F(Saving, FailsWithTheFileAndTheReason)
{
    std::filesystem::create_directory(m_folder.path("folder"));
    struct Case
    {
        std::string path;
        const char* reason;
    };
    const Case cases[] = {{m_folder.path("missing/a.dxf"), "No such file or directory"},
                          {m_folder.path("folder"), "Is a directory"},
                          {"/dev/full", "No space left on device"}};
    for (const Case& failing : cases)
    {
        const std::string error = errorOf([&] { save(failing.path); });
        EXPECT_NE(error.find(failing.path), std::string::npos) << error;
        EXPECT_NE(error.find(failing.reason), std::string::npos) << error;
    }
    EXPECT_EQ(m_folder.fileCount(), 1u);
}

TEST_F(Saving, LeavesTheOldFileWhenThereIsNoRoom)
{
    m_database = openText(largeDrawing());
    const std::string path = m_folder.path("old.dxf");
    support::writeWholeFile(path, "old");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{1 << 20, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string error = errorOf([&] { save(path); });
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_NE(error.find("File too large"), std::string::npos) << error;
    EXPECT_EQ(support::readWholeFile(path), "old");
    EXPECT_EQ(m_folder.fileCount(), 1u);
    save(path);
    EXPECT_GT(support::readWholeFile(path).size(), std::size_t{1} << 20);
}

TEST_F(Saving, KeepsLinkAndPermissions)
{
    const std::string path = m_folder.path("real.dxf");
    support::writeWholeFile(path, "old");
    ::chmod(path.c_str(), 0640);
    std::filesystem::create_symlink("real.dxf", m_folder.path("link.dxf"));
    save(m_folder.path("link.dxf"));
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.path("link.dxf")));
    struct stat status
    {
    };
    ::stat(path.c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777u, 0640u);
    EXPECT_GT(status.st_size, 100);
}

TEST_F(Saving, RefusesAProtectedFileAndFolder)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "nothing is protected from root";
    const std::string path = m_folder.path("old.dxf");
    support::writeWholeFile(path, "old");
    ::chmod(path.c_str(), 0444);
    EXPECT_NE(errorOf([&] { save(path); }).find("Permission denied"), std::string::npos);
    ::chmod(m_folder.path().c_str(), 0555);
    EXPECT_NE(errorOf([&] { save(m_folder.path("new.dxf")); }).find("Permission denied"), std::string::npos);
    ::chmod(m_folder.path().c_str(), 0755);
}

TEST_F(Saving, OverTheFileThatWasRead)
{
    const std::string path = m_folder.path("own.dxf");
    const std::string before = support::drawing("AC1032");
    support::writeWholeFile(path, before);
    m_database = OdDbDatabase::createObject();
    dxf::readDrawing(*m_database, path);
    save(path);
    EXPECT_EQ(support::compareDxf(before, support::readWholeFile(path)).summary(), "lost 0 changed 0");
}

// Whenever the program dies, the file is the old drawing or the new one.
TEST_F(Saving, SurvivesBeingKilledAtAnyMoment)
{
    const std::string path = m_folder.path("drawing.dxf");
    m_database = openText(largeDrawing());
    save(path);
    const std::string whole = support::readWholeFile(path);
    for (int attempt = 0; attempt < 40; ++attempt)
    {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
        {
            for (;;)
                save(path);
        }
        ::usleep(static_cast<useconds_t>(1000 + attempt * 2500));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_EQ(support::readWholeFile(path), whole) << "attempt " << attempt;
    }
    save(path);
    EXPECT_EQ(m_folder.fileCount(), 1u) << "nothing of what was begun is left";
}

TEST_F(Saving, RemovesOnlyWhatOthersLeftBehind)
{
    const std::string path = m_folder.path("drawing.dxf");
    for (const char* left : {"drawing.dxf.1-0.tmp", "drawing.dxf.999999999-12.tmp"})
        support::writeWholeFile(m_folder.path(left), "cut off");
    const char* const others[] = {"drawing.dxf.tmp",       "drawing.dxf.1-.tmp",  "drawing.dxf.1-0.tmp.bak",
                                  "drawing.dxf.a-0.tmp",   "drawing.dxf-1-0.tmp", "Drawing.dxf.1-0.tmp",
                                  "my.drawing.dxf.1-0.tmp"};
    for (const char* other : others)
        support::writeWholeFile(m_folder.path(other), "of somebody else");
    std::filesystem::create_symlink("drawing.dxf.tmp", m_folder.path("drawing.dxf.3-3.tmp"));
    std::filesystem::create_directory(m_folder.path("drawing.dxf.4-4.tmp"));
    {
        dxf::OutputFile busy(path);
        busy.write("still being written");
        save(path);
        EXPECT_EQ(m_folder.fileCount(), std::size(others) + 4)
            << "with the two that look so, the busy one, the drawing";
        busy.commit();
    }
    EXPECT_EQ(support::readWholeFile(path), "still being written");
    for (const char* other : others)
        EXPECT_EQ(support::readWholeFile(m_folder.path(other)), "of somebody else");
    EXPECT_EQ(m_folder.fileCount(), std::size(others) + 3);
}

TEST_F(Saving, FollowsLinksToWhereNothingIsYet)
{
    std::filesystem::create_directory(m_folder.path("folder"));
    std::filesystem::create_symlink("folder/second", m_folder.path("first"));
    std::filesystem::create_symlink("../real.dxf", m_folder.path("folder/second"));
    std::filesystem::create_symlink("circle", m_folder.path("circle"));
    save(m_folder.path("first"));
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.path("first")));
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.path("folder/second")));
    EXPECT_TRUE(std::filesystem::is_regular_file(m_folder.path("real.dxf")));
    EXPECT_NE(errorOf([&] { save(m_folder.path("circle")); }).find("symbolic links"), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.path("circle")));
}

// Another program writes into the file without replacing it, also while it is read.
TEST_F(Saving, DoesNotCareWhatBecomesOfTheFileThatWasRead)
{
    const std::string path = m_folder.path("drawing.dxf");
    const std::string file = largeDrawing(6000);
    support::writeWholeFile(path, file);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0)
    {
        const int other = ::open(path.c_str(), O_RDWR);
        for (;;)
        {
            [[maybe_unused]] const int cut = ::ftruncate(other, 1000);
            [[maybe_unused]] const ssize_t count = ::pwrite(other, file.data(), file.size(), 0);
        }
    }
    for (int attempt = 0; attempt < 20; ++attempt)
        errorOf(
            [&]
            {
                m_database = OdDbDatabase::createObject();
                dxf::readDrawing(*m_database, path);
            });
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);

    support::writeWholeFile(path, file);
    m_database = OdDbDatabase::createObject();
    dxf::readDrawing(*m_database, path);
    save(m_folder.path("before.dxf"));
    ::truncate(path.c_str(), 0);
    save(m_folder.path("behind.dxf"));
    EXPECT_TRUE(support::readWholeFile(m_folder.path("behind.dxf")) ==
                support::readWholeFile(m_folder.path("before.dxf")));
}

} // namespace
