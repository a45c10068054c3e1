// Damaged files are mended with a word on each fault, or refused with the place of it; they never harm the program.
#include "Drawings.h"

#include "support/DrawingText.h"

#include <random>

#include <gtest/gtest.h>

namespace
{

using support::endOfFile;
using support::group;
using support::groups;
using support::headerSection;
using support::oldLine;
using support::section;

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

/// Groups of a whole drawing that stand there as others.
constexpr struct
{
    const char *what, *before, *now, *report, *kept;
    bool isMended = true;
} kFaults[] = {
    {"a handle twice", "0 TEXT|5 51", "0 TEXT|5 50", "the handle 50 is taken", "TEXT"},
    {"a handle of zero", "0 LINE|5 50", "0 LINE|5 0", "the handle makes no sense", "LINE"},
    {"no digits", "0 LINE|5 50", "0 LINE|5 XYZ", "the handle makes no sense", "LINE"},
    {"an empty handle", "0 LINE|5 50", "0 LINE|5 ", "the handle makes no sense", "LINE"},
    {"a handle too large", "0 LINE|5 50", "0 LINE|5 FFFFFFFFFFFFFFFF", "the handle makes no sense", "LINE"},
    {"a reference that is none", "340 50", "340 ?", "the reference is no handle", "FANTASYOBJECT"},
    {"an owner that is no block", "0 TEXT|5 51|330 1F", "0 TEXT|5 51|330 C", "the owner of the entity is no block",
     "TEXT"},
    {"another owner inside a block", "0 LINE|5 42|330 40", "0 LINE|5 42|330 1F", "another owner", "LINE"},
    {"a record that is its own owner", "0 LAYER|5 10|330 2", "0 LAYER|5 10|330 10", "another owner than its table",
     "LAYER"},
    {"an object of a dictionary without owner", "0 LAYOUT|5 1E|330 1A", "0 LAYOUT|5 1E", "the object has no owner",
     "LAYOUT"},
    {"an object whose owner is not there", "0 LAYOUT|5 1E|330 1A", "0 LAYOUT|5 1E|330 ABCDE", "the object has no owner",
     "LAYOUT"},
    {"a table missing", "2 STYLE", "2 STOLEN", "an unknown table", "TEXT"},
    {"a SEQEND missing", "0 SEQEND|5 55", "0 POINT|5 55", "a SEQEND is missing", "ATTRIB"},
    {"a SEQEND too many", "0 LINE|5 50", "0 SEQEND|5 77|0 LINE|5 50", "ends nothing", "LINE"},
    {"a vertex alone", "0 POLYLINE", "0 POINT", "a VERTEX without", "VERTEX", false},
    {"an application not registered", "1001 TEST|1000 text", "1001 NEW|1000 text",
     "the application NEW is not registered", "APPID"},
    {"a layout without block", "71 0|330 1B", "71 0|330 0", "the layout names no block", "LAYOUT"},
    {"a block without layout", "340 1E", "340 0", "the block does not name its layout", "BLOCK_RECORD"},
    {"no end of a section", "0 ENDSEC|0 SECTION|2 OBJECTS", "0 SECTION|2 OBJECTS", "without ENDSEC", "LAYOUT"},
    {"a number that is none", "40 2.5", "40 two", "'two' is no number", "TEXT"},
    {"a root dictionary missing", "0 DICTIONARY|5 C", "0 DICT|5 C", "lacks tables, records or dictionaries", "LINE"},
};

std::vector<FaultCase> faultCases()
{
    const std::string good = support::drawing("AC1032");
    const std::string lostLayer =
        groups("0 LAYER|5 F10|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 LOST|"
               "70 0|62 7|6 Continuous");
    std::vector<FaultCase> cases = {
        {"a record behind its table", replaced(good, groups("0 TABLE|2 LAYER"), lostLayer + groups("0 TABLE|2 LAYER")),
         "the LAYER stands outside of its table", "LAYER"},
        {"a record in another table", replaced(good, groups("0 STYLE|5 11"), lostLayer + groups("0 STYLE|5 11")),
         "the LAYER stands outside of its table", "LAYER"},
        {"a block without name",
         replaced(replaced(support::oldDrawing(), group(2, "PART"), group(2, "")), group(3, "PART"), group(3, "")),
         "the block has no name", "BLOCK"},
        {"no EOF", good.substr(0, good.size() - endOfFile().size()), "without its mark EOF", "LAYOUT"},
        {"a line too many", replaced(good, group(0, "TEXT"), "rubbish\n" + group(0, "TEXT")),
         "'rubbish' is no group code", "TEXT"},
        {"junk behind the end", good + "junk\nmore\n", "", "LAYOUT"},
        {"an unknown version", replaced(good, "AC1032", "AC1077"), "the version AC1077 is not known", "LINE"},
        {"no sections but entities", groups("0 SECTION|2 ENTITIES") + oldLine("", 1, 1), "", "LINE"},
    };
    for (const auto& row : kFaults)
        cases.push_back(
            {row.what, replaced(good, groups(row.before), groups(row.now)), row.report, row.kept, row.isMended});
    return cases;
}

// Mended files are whole: when they are read again there is nothing to say.
TEST(Recovery, MendsEachFaultWithOneLine)
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

TEST(Recovery, RefusesWhatIsNoDrawing)
{
    const std::pair<std::string, const char*> cases[] = {
        {"", "test.dxf: is no drawing"},
        {"EXTENTS,1\n0.0,8.0\n", "test.dxf: is no drawing: line 1: 'EXTENTS,1' is no group code"},
        {std::string(1000, '\0'), "test.dxf: is no drawing: line 1"},
        {"0\nEOF\n", "test.dxf: is no drawing"},
        {"AutoCAD Binary DXF\r\n\x1A" + std::string(3, '\0'), "test.dxf: is no drawing: byte 22"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(errorOf([&] { openText(row.first); }).substr(0, std::string_view(row.second).size()), row.second);
}

// Owners in a circle, and owners without end.
TEST(Recovery, SurvivesStructuresWithoutEnd)
{
    std::string circle = groups("0 DICTIONARY|5 C|330 0|100 AcDbDictionary");
    for (int i = 0; i < 20000; ++i)
    {
        const std::string handle = std::to_string(1000 + i);
        const std::string owner = std::to_string(1000 + (i + 1) % 20000);
        circle += group(0, "DICTIONARY") + group(5, handle) + group(330, owner) + groups("100 AcDbDictionary|3 next") +
                  group(360, owner);
    }
    const OdDbDatabasePtr database =
        openText(headerSection("AC1032") + section("ENTITIES", "") + section("OBJECTS", circle) + endOfFile());
    EXPECT_NE(savedText(*database, OdDb::vAC32).find("DICTIONARY"), std::string::npos);
}

TEST(Recovery, BlocksThatReferToThemselves)
{
    const std::string block = groups("0 BLOCK|2 A|0 INSERT|2 A|10 0|20 0|0 ENDBLK");
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

TEST(Recovery, SurvivesRecordsInSectionsThatAreNotTheirs)
{
    for (const char* name :
         {"TABLE",       "LAYER",    "STYLE",  "VPORT",     "BLOCK_RECORD",     "BLOCK",   "ENDBLK",
          "SEQEND",      "VERTEX",   "ATTRIB", "DIMENSION", "INSERT",           "LAYOUT",  "DICTIONARY",
          "CLASS",       "VIEWPORT", "IMAGE",  "IMAGEDEF",  "IMAGEDEF_REACTOR", "XRECORD", "SORTENTSTABLE",
          "BSYSTEMLABEL"})
        for (const char* kind : {"TABLES", "BLOCKS", "ENTITIES", "OBJECTS"})
            for (const char* marker : {"", "|100 AcDbSymbolTable", "|100 AcDbEntity|8 0"})
            {
                SCOPED_TRACE(std::string(name) + " in " + kind + marker);
                expectHarmless(headerSection("AC1032") +
                               section(kind, groups("0 " + std::string(name) + "|5 1F0|330 1" + marker)) + endOfFile());
            }
}

TEST(Recovery, KeepsSectionsOfUnknownNamesOnceEach)
{
    std::string file = headerSection("AC1032");
    const std::vector<const char*> names = {"A", "", "B", "A", "A", "ENTITIES", "B", "A", "B", ""};
    for (std::size_t i = 0; i < names.size(); ++i)
        file += section(names[i], std::string(names[i]) == "ENTITIES" ? "" : group(0, "KEPT" + std::to_string(i)));
    for (int i = 0; i < 20000; ++i)
        file += section("N" + std::to_string(i), "");
    const std::string saved = savedText(*openText(file + endOfFile()), OdDb::vAC32);
    for (std::size_t i = 0; i < names.size(); ++i)
        if (std::string(names[i]) != "ENTITIES")
        {
            const std::size_t at = saved.find("KEPT" + std::to_string(i));
            ASSERT_NE(at, std::string::npos) << i;
            EXPECT_EQ(saved.find("KEPT" + std::to_string(i), at + 1), std::string::npos) << i;
        }
    EXPECT_NE(saved.find("N19999"), std::string::npos);
}

TEST(Recovery, SurvivesTruncation)
{
    const std::string ascii = support::drawing("AC1032");
    const std::string binary = savedText(*openText(ascii), OdDb::vAC32, dxf::FileForm::Binary);
    const std::string old = support::oldDrawing();
    for (const std::string& file : {ascii, binary, old})
        for (std::size_t length = 0; length < file.size(); length += 1 + length % 61)
            expectHarmless(file.substr(0, length));
}

TEST(Recovery, SurvivesFlippedBits)
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
