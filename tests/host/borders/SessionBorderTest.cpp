// Drawing borders in damaged files: nothing of them is lost, and nothing is made of them.
#include <string>

#include <gtest/gtest.h>

#include "support/DxfRecords.h"
#include "support/SessionClient.h"
#include "support/TemporaryFolder.h"

namespace
{

using support::SessionClient;

constexpr const char* kDefineBoth =
    R"({"JSON": "{\"ColumnLinesValid\": true, \"Columns\": [\"1\", \"\\uD83D\\uDE00\"], \"Lines\": [\"A\"], )"
    R"(\"AreaValid\": true, \"AreaFirst\": {\"X\": 420}, \"AreaSecond\": {\"Y\": 297}}"})";
class SessionBorder : public testing::Test
{
protected:
    support::TemporaryFolder m_folder;
};

TEST_F(SessionBorder, DamagedOnesAreKeptAndReported)
{
    const std::string good = m_folder.path("good.dxf");
    SessionClient session;
    session.run("DEFINEDRAWINGBORDER", kDefineBoth);
    session.run("SAVE", R"({"FILE": ")" + good + "\"}");
    const std::string text = support::readWholeFile(good);
    const std::size_t object = text.find("CDrawingBorderData\n", text.find("\nCDRAWINGBORDERDATA\n  5"));
    ASSERT_NE(object, std::string::npos);
    const std::size_t version = text.find('\n', text.find(" 70\n", object)) + 1;
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
