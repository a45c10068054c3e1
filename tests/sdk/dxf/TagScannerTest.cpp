// Groups out of files of both forms, whole and damaged.
#include "dxf/TagScanner.h"
#include "dxf/OutputFile.h"
#include "dxf/TagPrinter.h"
#include "support/DxfRecords.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace
{

using dxf::FaultLog;
using dxf::Tag;
using dxf::TagScanner;
using dxf::ValueKind;

// The groups as "code=value" joined by blanks, then the faults.
std::string scan(std::string_view file)
{
    FaultLog faults;
    TagScanner scanner(file, faults);
    std::string result;
    for (Tag tag; scanner.next(tag);)
    {
        result += std::to_string(tag.code) + '=';
        char digits[dxf::kLongestNumber];
        if (tag.kind == ValueKind::Real)
            result.append(digits, dxf::printReal(tag.real, digits));
        else if (dxf::isInteger(tag.kind))
            result.append(digits, dxf::printInteger(tag.integer, digits));
        else if (tag.kind == ValueKind::Bytes)
            result += std::to_string(scanner.bytes(tag).size()) + " bytes";
        else
            result += tag.text;
        result += '|';
    }
    for (const std::string& line : faults.lines())
        result += "\n" + line;
    return result;
}

struct ScanCase
{
    const char* what;
    std::string_view file;
    const char* expected;
};

const ScanCase kAsciiCases[] = {
    {"LF, blanks around codes and numbers", "  0\nLINE\n 10 \n  1.50\n\t70\n   -3 \n", "0=LINE|10=1.5|70=-3|"},
    {"CR LF", "  0\r\nLINE\r\n  8\r\nA B \r\n", "0=LINE|8=A B |"},
    {"CR alone", "0\rLINE\r8\rX\r", "0=LINE|8=X|"},
    {"last line without end", "0\nEOF", "0=EOF|"},
    {"an empty text", "1\n\n0\nEOF\n", "1=|0=EOF|"},
    {"comments", "999\nhello\n0\nEOF\n999\nbye\n", "0=EOF|"},
    {"byte order mark", "\xEF\xBB\xBF  0\nEOF\n", "0=EOF|"},
    {"blank lines in place of a code", "0\nEOF\n\n  \n\n", "0=EOF|"},
    {"a file that ends after a code", "0\nLINE\n10\n", "0=LINE|\nline 3: the file ends after a group code"},
    {"a line too many", "0\nLINE\nrubbish\n10\n1.0\n0\nCIRCLE\n40\n2\n",
     "0=LINE|0=CIRCLE|40=2.0|\nline 3: 'rubbish' is no group code; reading goes on at line 6"},
    {"a line too many, nothing behind", "0\nLINE\nrubbish\n10\n1.0\n",
     "0=LINE|\nline 3: 'rubbish' is no group code, and no record follows"},
    {"codes out of range", "0\nLINE\n2040\n1\n0\nEOF\n",
     "0=LINE|0=EOF|\nline 3: '2040' is no group code; reading goes on at line 5"},
    {"numbers of all spellings", "40\n+1.5\n40\n1e3\n40\n.5\n40\n5.\n40\n-0\n70\n+7\n160\n9223372036854775807\n",
     "40=1.5|40=1000.0|40=0.5|40=5.0|40=-0.0|70=7|160=9223372036854775807|"},
    {"numbers that are none", "40\nabc\n40\n\n40\nnan\n40\ninf\n40\n1e999\n70\n1.0\n70\nx\n",
     "40=0.0|40=0.0|40=0.0|40=0.0|40=1.7976931348623157e+308|70=1|70=0|"
     "\nline 1: group 40: 'abc' is no number of its kind, 0.0 is taken"
     "\nline 3: group 40: '' is no number of its kind, 0.0 is taken"
     "\nline 5: group 40: 'nan' is no number of its kind, 0.0 is taken"
     "\nline 7: group 40: 'inf' is no number of its kind, 0.0 is taken"
     "\nline 9: group 40: '1e999' is no number of its kind, 1.7976931348623157e+308 is taken"
     "\nline 11: group 70: '1.0' is no number of its kind, 1 is taken"
     "\nline 13: group 70: 'x' is no number of its kind, 0 is taken"},
    {"bytes", "310\n00ff7F\n310\n0G11\n",
     "310=3 bytes|310=0 bytes|\nline 3: the bytes are no hexadecimal digits from character 1 on"},
    {"nothing", "", ""},
};

using namespace std::string_view_literals;

#define SENTINEL "AutoCAD Binary DXF\r\n\x1A\0"
const ScanCase kBinaryCases[] = {
    {"codes of two bytes", SENTINEL "\0\0LINE\0\x46\0\x03\0\x0a\0\0\0\0\0\0\0\xf0\x3f\x22\x01\x01"sv,
     "0=LINE|70=3|10=1.0|290=1|"},
    {"codes of one byte", SENTINEL "\0LINE\0\x3e\x03\0\xff\x2f\x04\x01\0\0\0"sv, "0=LINE|62=3|1071=1|"},
    {"a comment first", SENTINEL "\xe7\x03hi\0\0\0EOF\0"sv, "0=EOF|"},
    {"bytes", SENTINEL "\0\0X\0\x36\x01\x02\x61\x62\0\0EOF\0"sv, "0=X|310=2 bytes|0=EOF|"},
    {"a value that is cut off", SENTINEL "\0\0LINE\0\x0a\0\0\0"sv,
     "0=LINE|\nbyte 29: no group stands here, and no record follows"},
    {"a code that is none", SENTINEL "\0\0LINE\0\xff\x7f\x01\x02\0\0CIRCLE\0"sv,
     "0=LINE|0=CIRCLE|\nbyte 29: no group stands here; reading goes on at byte 33"},
    {"a real that is not finite", SENTINEL "\0\0LINE\0\x28\0\0\0\0\0\0\0\xf0\x7f"sv,
     "0=LINE|40=0.0|\nbyte 29: group 40: the real is not finite, 0.0 is taken"},
    {"nothing", SENTINEL ""sv, ""},
};

TEST(TagScanner, CutsAsciiFiles)
{
    for (const ScanCase& scanCase : kAsciiCases)
        EXPECT_EQ(scan(scanCase.file), scanCase.expected) << scanCase.what;
}

TEST(TagScanner, CutsBinaryFiles)
{
    for (const ScanCase& scanCase : kBinaryCases)
        EXPECT_EQ(scan(scanCase.file), scanCase.expected) << scanCase.what;
}

TEST(TagScanner, GoesBackToAPlace)
{
    FaultLog faults;
    TagScanner scanner("0\nA\n0\nB\n", faults);
    Tag tag;
    ASSERT_TRUE(scanner.next(tag));
    const dxf::ScanPosition second = scanner.position();
    ASSERT_TRUE(scanner.next(tag));
    EXPECT_FALSE(scanner.next(tag));
    scanner.seek(second);
    ASSERT_TRUE(scanner.next(tag));
    EXPECT_TRUE(tag.opens("B"));
    EXPECT_EQ(dxf::placeName(scanner.place()), "line 3");
}

TEST(FaultLog, DoesNotGrowWithoutEnd)
{
    FaultLog faults;
    for (int i = 0; i < 5000; ++i)
        faults.add("fault");
    EXPECT_EQ(faults.lines().size(), FaultLog::kMostLines + 1);
    EXPECT_EQ(faults.lines().back(), "and 4000 more faults");
}

// Whatever the printer writes, the scanner reads.
class Printed : public testing::TestWithParam<dxf::FileForm>
{
};

TEST_P(Printed, ReadsBackAsItWas)
{
    const support::TemporaryFolder folder;
    const std::string path = folder.path("printed.dxf");
    const std::string longText(300000, 'x');
    const std::string bytes(700, '\xAB');
    {
        dxf::OutputFile file(path);
        dxf::TagPrinter printer(file, GetParam());
        printer.beginFile();
        printer.text(0, "SECTION");
        printer.text(1, longText);
        printer.real(40, 0.1);
        printer.real(40, -1e300);
        printer.integer(70, -32768);
        printer.integer(70, 65535);
        printer.integer(90, 2147483647);
        printer.integer(160, INT64_MIN);
        printer.integer(290, 1);
        printer.handle(330, 0xFFFFFFFFFFFFFFFFu);
        printer.handle(5, 0);
        printer.bytes(310, bytes);
        printer.bytes(1004, "");
        printer.text(1000, "end");
        file.commit();
    }
    const std::string seventy = GetParam() == dxf::FileForm::Ascii ? "70=65535|" : "70=-1|";
    const std::string expected = "0=SECTION|1=" + longText + "|40=0.1|40=-1e+300|70=-32768|" + seventy +
                                 "90=2147483647|160=-9223372036854775808|290=1|330=FFFFFFFFFFFFFFFF|5=0|"
                                 "310=127 bytes|310=127 bytes|310=127 bytes|310=127 bytes|310=127 bytes|310=65 bytes|"
                                 "1004=0 bytes|1000=end|";
    EXPECT_EQ(scan(support::readWholeFile(path)), expected);
}

INSTANTIATE_TEST_SUITE_P(BothForms, Printed, testing::Values(dxf::FileForm::Ascii, dxf::FileForm::Binary));

} // namespace
