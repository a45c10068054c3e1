// Damaged files are mended with a word on each fault, or refused with the place of it; they never harm the program.
#include "Drawings.h"

#include "support/DrawingText.h"

#include <random>

#include <gtest/gtest.h>

namespace
{

using support::endOfFile;
using support::group;
using support::headerSection;
using support::oldLine;
using support::section;

class Recovery : public testing::Test
{
protected:
    SdkSession m_session;
};

std::string replaced(std::string text, std::string_view what, std::string_view by)
{
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), by);
}

struct FaultCase
{
    const char* what;
    std::string file;
    const char* report;   ///< a part of the line in the report
    const char* kept;     ///< the kind of a record that has to be there all the same
    bool isMended = true; ///< false when the record stays as it is, which is said each time
};

std::vector<FaultCase> faultCases()
{
    const std::string good = support::drawing("AC1032");
    const std::string lostLayer = group(0, "LAYER") + group(5, "F10") + group(330, "2") +
                                  group(100, "AcDbSymbolTableRecord") + group(100, "AcDbLayerTableRecord") +
                                  group(2, "LOST") + group(70, "0") + group(62, "7") + group(6, "Continuous");
    const std::string handle50 = group(0, "LINE") + group(5, "50");
    return {
        {"a handle twice", replaced(good, group(0, "TEXT") + group(5, "51"), group(0, "TEXT") + group(5, "50")),
         "the handle 50 is taken", "TEXT"},
        {"a handle of zero", replaced(good, handle50, group(0, "LINE") + group(5, "0")), "the handle makes no sense",
         "LINE"},
        {"no digits", replaced(good, handle50, group(0, "LINE") + group(5, "XYZ")), "the handle makes no sense",
         "LINE"},
        {"an empty handle", replaced(good, handle50, group(0, "LINE") + group(5, "")), "the handle makes no sense",
         "LINE"},
        {"a handle too large", replaced(good, handle50, group(0, "LINE") + group(5, "FFFFFFFFFFFFFFFF")),
         "the handle makes no sense", "LINE"},
        {"a reference that is none", replaced(good, group(340, "50"), group(340, "?")), "the reference is no handle",
         "FANTASYOBJECT"},
        {"an owner that is no block",
         replaced(good, group(0, "TEXT") + group(5, "51") + group(330, "1F"),
                  group(0, "TEXT") + group(5, "51") + group(330, "C")),
         "the owner of the entity is no block", "TEXT"},
        {"another owner inside a block",
         replaced(good, group(0, "LINE") + group(5, "42") + group(330, "40"),
                  group(0, "LINE") + group(5, "42") + group(330, "1F")),
         "another owner", "LINE"},
        {"a record that is its own owner",
         replaced(good, group(0, "LAYER") + group(5, "10") + group(330, "2"),
                  group(0, "LAYER") + group(5, "10") + group(330, "10")),
         "another owner than its table", "LAYER"},
        {"a record behind its table",
         replaced(good, group(0, "TABLE") + group(2, "LAYER"), lostLayer + group(0, "TABLE") + group(2, "LAYER")),
         "the LAYER stands outside of its table", "LAYER"},
        {"a record in another table",
         replaced(good, group(0, "STYLE") + group(5, "11"), lostLayer + group(0, "STYLE") + group(5, "11")),
         "the LAYER stands outside of its table", "LAYER"},
        {"an object of a dictionary without owner",
         replaced(good, group(0, "LAYOUT") + group(5, "1E") + group(330, "1A"), group(0, "LAYOUT") + group(5, "1E")),
         "the object has no owner", "LAYOUT"},
        {"an object whose owner is not there",
         replaced(good, group(0, "LAYOUT") + group(5, "1E") + group(330, "1A"),
                  group(0, "LAYOUT") + group(5, "1E") + group(330, "ABCDE")),
         "the object has no owner", "LAYOUT"},
        {"a table missing", replaced(good, group(2, "STYLE"), group(2, "STOLEN")), "an unknown table", "TEXT"},
        {"a SEQEND missing", replaced(good, group(0, "SEQEND") + group(5, "55"), group(0, "POINT") + group(5, "55")),
         "a SEQEND is missing", "ATTRIB"},
        {"a SEQEND too many", replaced(good, handle50, group(0, "SEQEND") + group(5, "77") + handle50), "ends nothing",
         "LINE"},
        {"a vertex alone", replaced(good, group(0, "POLYLINE"), group(0, "POINT")), "a VERTEX without", "VERTEX",
         false},
        {"a block without name",
         replaced(replaced(support::oldDrawing(), group(2, "PART"), group(2, "")), group(3, "PART"), group(3, "")),
         "the block has no name", "BLOCK"},
        {"an application not registered",
         replaced(good, group(1001, "TEST") + group(1000, "text"), group(1001, "NEW") + group(1000, "text")),
         "the application NEW is not registered", "APPID"},
        {"a layout without block", replaced(good, group(71, "0") + group(330, "1B"), group(71, "0") + group(330, "0")),
         "the layout names no block", "LAYOUT"},
        {"a block without layout", replaced(good, group(340, "1E"), group(340, "0")),
         "the block does not name its layout", "BLOCK_RECORD"},
        {"no end of a section",
         replaced(good, group(0, "ENDSEC") + group(0, "SECTION") + group(2, "OBJECTS"),
                  group(0, "SECTION") + group(2, "OBJECTS")),
         "without ENDSEC", "LAYOUT"},
        {"no EOF", good.substr(0, good.size() - endOfFile().size()), "without its mark EOF", "LAYOUT"},
        {"a line too many", replaced(good, group(0, "TEXT"), "rubbish\n" + group(0, "TEXT")),
         "'rubbish' is no group code", "TEXT"},
        {"a number that is none", replaced(good, group(40, "2.5"), group(40, "two")), "'two' is no number", "TEXT"},
        {"junk behind the end", good + "junk\nmore\n", "", "LAYOUT"},
        {"an unknown version", replaced(good, "AC1032", "AC1077"), "the version AC1077 is not known", "LINE"},
        {"no sections but entities", group(0, "SECTION") + group(2, "ENTITIES") + oldLine("", 1, 1), "", "LINE"},
        {"a root dictionary missing",
         replaced(good, group(0, "DICTIONARY") + group(5, "C"), group(0, "DICT") + group(5, "C")),
         "lacks tables, records or dictionaries", "LINE"},
    };
}

// Mended files are whole: when they are read again there is nothing to say.
TEST_F(Recovery, MendsEachFaultWithOneLine)
{
    for (const FaultCase& fault : faultCases())
    {
        OdDbDatabasePtr database;
        ASSERT_EQ(errorOf([&] { database = openText(fault.file); }), "") << fault.what;
        EXPECT_NE(reportOf(*database).find(fault.report), std::string::npos) << fault.what << '\n'
                                                                             << reportOf(*database);
        const std::string saved = savedText(*database, database->originalFileVersion());
        EXPECT_NE(saved.find(std::string("\n") + fault.kept + '\n'), std::string::npos) << fault.what;
        EXPECT_EQ(reportOf(*openText(saved)).empty(), fault.isMended) << fault.what << reportOf(*openText(saved));
    }
}

TEST_F(Recovery, RefusesWhatIsNoDrawing)
{
    const std::pair<std::string, const char*> cases[] = {
        {"", "test.dxf: is no drawing"},
        {"EXTENTS,1\n0.0,8.0\n", "test.dxf: is no drawing: line 1: 'EXTENTS,1' is no group code"},
        {std::string(1000, '\0'), "test.dxf: is no drawing: line 1"},
        {"0\nEOF\n", "test.dxf: is no drawing"},
        {"AutoCAD Binary DXF\r\n\x1A" + std::string(3, '\0'), "test.dxf: is no drawing: byte 22"},
    };
    for (const auto& [file, message] : cases)
        EXPECT_EQ(errorOf([&] { openText(file); }).substr(0, std::string_view(message).size()), message);
}

// Owners in a circle, and owners without end.
TEST_F(Recovery, SurvivesStructuresWithoutEnd)
{
    std::string circle = group(0, "DICTIONARY") + group(5, "C") + group(330, "0") + group(100, "AcDbDictionary");
    for (int i = 0; i < 20000; ++i)
    {
        const std::string handle = std::to_string(1000 + i);
        const std::string owner = std::to_string(1000 + (i + 1) % 20000);
        circle += group(0, "DICTIONARY") + group(5, handle) + group(330, owner) + group(100, "AcDbDictionary") +
                  group(3, "next") + group(360, owner);
    }
    const OdDbDatabasePtr database =
        openText(headerSection("AC1032") + section("ENTITIES", "") + section("OBJECTS", circle) + endOfFile());
    EXPECT_NE(savedText(*database, OdDb::vAC32).find("DICTIONARY"), std::string::npos);
}

TEST_F(Recovery, BlocksThatReferToThemselves)
{
    const std::string block = group(0, "BLOCK") + group(2, "A") + group(0, "INSERT") + group(2, "A") + group(10, "0") +
                              group(20, "0") + group(0, "ENDBLK");
    const OdDbDatabasePtr database =
        openText(headerSection("AC1009") + section("BLOCKS", block) + section("ENTITIES", "") + endOfFile());
    EXPECT_NE(savedText(*database, OdDb::vAC32).find("INSERT"), std::string::npos);
}

// Whatever is cut off or flipped: an error in words, or a drawing that can be saved and read again.
void expectHarmless(const std::string& file)
{
    OdDbDatabasePtr database;
    const std::string error = errorOf([&] { database = openText(file); });
    if (!error.empty())
    {
        EXPECT_NE(error.find("test.dxf: is no drawing"), std::string::npos) << error;
        return;
    }
    const std::string saved = savedText(*database, database->originalFileVersion());
    EXPECT_EQ(errorOf([&] { openText(saved); }), "");
}

TEST_F(Recovery, SurvivesTruncation)
{
    const std::string ascii = support::drawing("AC1032");
    const std::string binary = savedText(*openText(ascii), OdDb::vAC32, dxf::FileForm::Binary);
    const std::string old = support::oldDrawing();
    for (const std::string& file : {ascii, binary, old})
        for (std::size_t length = 0; length < file.size(); length += 1 + length % 61)
            expectHarmless(file.substr(0, length));
}

TEST_F(Recovery, SurvivesFlippedBits)
{
    const std::string ascii = support::drawing("AC1032");
    const std::string binary = savedText(*openText(ascii), OdDb::vAC32, dxf::FileForm::Binary);
    std::mt19937 random(17);
    for (const std::string& file : {ascii, binary, support::oldDrawing()})
        for (int attempt = 0; attempt < 200; ++attempt)
        {
            std::string damaged = file;
            for (unsigned flips = 1 + random() % 8; flips > 0; --flips)
                damaged[random() % damaged.size()] ^= static_cast<char>(1 << random() % 8);
            expectHarmless(damaged);
        }
}

} // namespace
