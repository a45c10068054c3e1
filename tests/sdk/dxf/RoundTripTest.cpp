// What is read is written again: nothing lost, nothing changed, in both forms and all versions.
#include "Drawings.h"

#include "dxf/FileVersions.h"
#include "support/DrawingFiles.h"
#include "support/DrawingText.h"

#include <gtest/gtest.h>

namespace
{

using dxf::FileForm;

void expectNothingLost(const char* version)
{
    const std::string before = support::drawing(version);
    const OdDbDatabasePtr database = openText(before);
    EXPECT_EQ(reportOf(*database), "");
    for (const FileForm form : {FileForm::Ascii, FileForm::Binary})
    {
        const std::string after = savedText(*database, dxf::versionOf(version), form);
        EXPECT_EQ(support::compareDxf(before, after).summary(), "lost 0 changed 0");
        EXPECT_TRUE(support::compareDxf(before, after).added.empty());
        const OdDbDatabasePtr again = openText(after);
        EXPECT_EQ(reportOf(*again), "");
        EXPECT_EQ(savedText(*again, dxf::versionOf(version), form), after) << "a second save differs";
    }
}

TEST(RoundTrip, LosesNothing)
{
    for (const char* version : {"AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"})
        expectNothingLost(version);
}

TEST(Reading, KeepsUnknownSectionsInTheirPlace)
{
    const std::string strange = support::section("STRANGE", support::group(90, "1"));
    const std::string odd = support::section("ODD", support::group(0, "RECORD") + support::group(1, "x"));
    const std::string file =
        support::headerSection("AC1032") + strange + odd + support::section("ENTITIES", "") + support::endOfFile();
    const std::string saved = savedText(*openText(file), OdDb::vAC32);
    std::string order;
    bool isName = false;
    for (const auto& [code, value] : support::dxfGroups(saved))
    {
        if (isName)
            order += value + ' ';
        isName = code == 0 && value == "SECTION";
    }
    EXPECT_EQ(order, "HEADER STRANGE ODD CLASSES TABLES BLOCKS ENTITIES OBJECTS ");
}

TEST(Reading, DropsWhatTheVersionDoesNotHave)
{
    const std::string saved = savedText(*openText(support::drawing("AC1032")), OdDb::vAC15);
    EXPECT_EQ(support::dxfHeaderValue(saved, "$ACADVER"), "AC1015");
    const support::DxfRecords records = support::dxfRecords(saved);
    ASSERT_TRUE(records.contains("TEXT 51"));
    // texts are in the code page again, what it lacks is escaped
    EXPECT_NE(saved.find("W\xE4nde"), std::string::npos);
    EXPECT_NE(saved.find("\\U+D83D\\U+DE00"), std::string::npos);
    EXPECT_EQ(support::dxfGroups(saved).back(), (support::DxfGroup{0, "EOF"}));
}

// Handles and subclass markers come to old files, so only what they have can be compared: kinds and their numbers.
std::map<std::string, int> countKinds(std::string_view file)
{
    std::map<std::string, int> counts;
    for (const auto& [name, record] : support::dxfRecords(file))
        ++counts[record.front().second];
    return counts;
}

TEST(Reading, MakesTheNewestVersionOfOldFiles)
{
    const std::string old = support::oldDrawing();
    const OdDbDatabasePtr database = openText(old);
    EXPECT_EQ(reportOf(*database), "");
    const std::string saved = savedText(*database, database->originalFileVersion());
    EXPECT_EQ(support::dxfHeaderValue(saved, "$ACADVER"), "AC1032");
    std::map<std::string, int> counts = countKinds(saved);
    const std::pair<const char*, int> kExpected[] = {{"LINE", 2},   {"INSERT", 1}, {"ATTRIB", 1}, {"POLYLINE", 1},
                                                     {"VERTEX", 2}, {"TEXT", 1},   {"BLOCK", 3},  {"BLOCK_RECORD", 3},
                                                     {"LAYOUT", 2}, {"LAYER", 2}};
    for (const auto& [name, count] : kExpected)
        EXPECT_EQ(counts[name], count) << name;
    const OdDbDatabasePtr again = openText(saved);
    EXPECT_EQ(reportOf(*again), "");
    EXPECT_EQ(savedText(*again, OdDb::vAC32), saved);
}

void expectKindsKept(std::string_view before, std::string_view after, const std::string& path)
{
    std::map<std::string, int> kept = countKinds(after);
    for (const auto& [kind, count] : countKinds(before))
        EXPECT_GE(kept[kind], count) << path << ": " << kind;
}

TEST(OtherPrograms, LosesNothing)
{
    const std::vector<std::string> paths = support::realDrawings();
    if (paths.empty())
        GTEST_SKIP() << support::kNoRealDrawings;
    for (const std::string& path : paths)
    {
        const std::string before = support::readWholeFile(path);
        const OdDbDatabasePtr database = openText(before);
        const OdDb::DwgVersion version = database->originalFileVersion();
        for (const FileForm form : {FileForm::Ascii, FileForm::Binary})
        {
            const std::string after = savedText(*database, version, form);
            if (version >= OdDb::vAC13)
            {
                EXPECT_EQ(support::compareDxf(before, after).summary(), "lost 0 changed 0") << path;
            }
            expectKindsKept(before, after, path);
        }
    }
}

TEST(OtherPrograms, BrokenOnesAreMendedOrRefused)
{
    const std::vector<std::string> paths = support::realDrawings("broken");
    if (paths.empty())
        GTEST_SKIP() << support::kNoRealDrawings;
    for (const std::string& path : paths)
    {
        const std::string file = support::readWholeFile(path);
        OdDbDatabasePtr database;
        const std::string error = errorOf([&] { database = openText(file); });
        if (!error.empty())
        {
            EXPECT_NE(error.find("line "), std::string::npos) << path << ": " << error;
            continue;
        }
        const std::string saved = savedText(*database, database->originalFileVersion());
        expectKindsKept(file, saved, path);
        EXPECT_EQ(reportOf(*openText(saved)), "") << path << " is not mended for good";
    }
}

} // namespace
