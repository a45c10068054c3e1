// Saving is whole or not at all.
#include "Drawings.h"

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

    SdkSession m_session;
    support::TemporaryFolder m_folder;
    OdDbDatabasePtr m_database = openText(support::drawing("AC1032"));
};

// A drawing of some megabytes.
std::string largeDrawing()
{
    std::string lines;
    for (int i = 0; i < 40000; ++i)
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
}

} // namespace
