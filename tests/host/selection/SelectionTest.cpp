// Selecting from a script: shapes whose points are the input, handles, JSON, what was selected before, and what options
// leave out.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/DxfRecords.h"
#include "support/EntityDrawing.h"
#include "support/SessionClient.h"
#include "support/TemporaryFolder.h"

namespace
{

using support::Answer;
using support::SessionClient;

support::Content content()
{
    return {{
                "LINE A1 0|100 AcDbLine|10 0|20 0|11 10|21 0",
                "CIRCLE A2 0|100 AcDbCircle|10 50|20 50|40 10",
                "TEXT A3 0|100 AcDbText|10 100|20 0|40 5|1 E12|100 AcDbText",
                "TEXT A4 0|100 AcDbText|10 100|20 50|40 5|1 P3|100 AcDbText",
                "INSERT A5 0|100 AcDbBlockReference|2 PART7|10 200|20 0",
                "LINE A6 LOCKED|100 AcDbLine|10 300|20 0|11 310|21 0",
                "LINE A7 OFF|100 AcDbLine|10 300|20 0|11 310|21 0",
                "LINE A8 FROZEN|100 AcDbLine|10 300|20 0|11 310|21 0",
                "LINE A9 0|60 1|100 AcDbLine|10 300|20 0|11 310|21 0",
                "LINE B1 0|67 1|100 AcDbLine|10 0|20 0|11 10|21 0",
                "VIEWPORT B2 0|67 1|100 AcDbViewport|10 50|20 50|40 20|41 20|68 2|69 2",
            },
            {{"PART7", {"LINE E1 0|100 AcDbLine|10 0|20 0|11 10|21 10"}}}};
}

class Selection : public testing::Test
{
protected:
    void open(const support::Content& drawing)
    {
        support::writeWholeFile(m_folder.path("drawing.dxf"), support::drawingOf(drawing));
        m_session.emplace(m_folder.path("drawing.dxf"));
    }

    SessionClient& session()
    {
        if (!m_session)
            open(content());
        return *m_session;
    }

    Answer run(const std::string& command, const std::string& parameters, const std::string& input = "[]")
    {
        return session().send(R"({"command":")" + command + R"(","parameters":)" + parameters + R"(,"input":)" + input +
                              '}');
    }

    // "A1 A2", or the state when nothing was answered.
    static std::string selected(const Answer& answer)
    {
        if (!answer.has("/result/SELECTIONSET"))
            return answer.state() + ' ' + answer.text("/error/text");
        std::string handles;
        for (const std::string& handle : answer.handles("/result/SELECTIONSET"))
            handles += (handles.empty() ? "" : " ") + handle;
        return handles;
    }

    std::string stored(const std::string& name)
    {
        return selected(run("SELECTIONSETGET", R"({"SELECTIONSETNAME":")" + name + "\"}"));
    }

private:
    support::TemporaryFolder m_folder;
    std::optional<SessionClient> m_session;
};

TEST_F(Selection, IsMadeByShapes)
{
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"0", "[[5, 0]]", "A1", "Point on an object:"},
        {"0", R"(["5,0"])", "A1", "Point on an object:"},
        {"0", "[[5, 20]]", "", "Point on an object:"},
        {"1", "[[39, 39], [61, 61]]", "A2", "Opposite corner:"},
        {"1", "[[59, 61], [45, 10]]", "A2", "Opposite corner:"},
        {"1", "[[45, 61], [59, 10]]", "", "Opposite corner:"},
        {"2", "[[61, 61], [39, 39]]", "A2", "Opposite corner:"},
        {"3", "[[39, 39], [45, 45]]", "A2", "Opposite corner:"},
        {"4", R"([[5, 5], [5, -5], ""])", "A1", "Next point [Undo/]:"},
        {"4", R"([[5, 5], [5, -5], [50, -5], [50, 45], "undo", ""])", "A1", "Next point [Undo/]:"},
        {"4", R"([[5, 5], [50, 45], "U", "U", "U", [5, -5], ""])", "A1", "Next point [Undo/]:"},
        {"4", R"([[5, 5], ""])", "", "Next point [Undo/]:"},
        {"5", R"([[-1, -1], [11, -1], [5, 20], ""])", "A1", "Next corner [Undo/]:"},
        {"5", R"([[-1, -1], [11, -1], ""])", "", "Next corner [Undo/]:"},
        {"6", R"([[5, -1], [6, -1], [5, 20], ""])", "A1", "Next corner [Undo/]:"},
        {"2", R"([""])", "", "First corner of the window:"},
        {"2", R"([[0, 0], ""])", "", "Opposite corner:"},
    };
    for (const auto& [mode, picked, expected, lastPrompt] : cases)
    {
        const Answer answer = run("SELECTIONSELECTVISUAL", std::string(R"({"SELECTFUNCTION":)") + mode + "}", picked);
        EXPECT_EQ(selected(answer), expected) << mode << ' ' << picked;
        const rapidjson::Value* const output = answer.find("/output");
        ASSERT_TRUE(output != nullptr && !output->Empty()) << answer.line();
        EXPECT_STREQ((*output)[output->Size() - 1]["prompt"].GetString(), lastPrompt) << answer.line();
    }
}

TEST_F(Selection, IsCancelledOrComplainsAndAsksAgain)
{
    for (const char* input : {"[]", "[[0, 0]]", "[[0, 0], null]", R"(["x", "y"])"})
        EXPECT_EQ(run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":2})", input).state(), "cancelled") << input;
    const Answer stubborn = run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":0})", R"(["", "here"])");
    EXPECT_EQ(selected(stubborn), "");
    const Answer mended =
        run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":0})", R"(["here", "1,x", "5", ",1", "5,0"])");
    EXPECT_EQ(selected(mended), "A1");
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(mended.text(("/output/" + std::to_string(2 * i + 1) + "/error").c_str()), "Invalid point!")
            << mended.line();
    for (const char* parameters :
         {"{}", R"({"SELECTFUNCTION":7})", R"({"SELECTFUNCTION":-1})", R"({"SELECTFUNCTION":"2"})",
          R"({"SELECTFUNCTION":2,"SELECTOPTIONS":true})", R"({"SELECTFUNCTION":2,"FILTEROBJECT":3})"})
        EXPECT_EQ(run("SELECTIONSELECTVISUAL", parameters, "[[0,0],[1,1]]").state(), "failed") << parameters;
}

TEST_F(Selection, IsStoredUnderItsNameAndRemembered)
{
    EXPECT_EQ(selected(run("SELECTIONSELECTPREVIOUS", "{}")), "");
    run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":2,"SELECTIONSETNAME":"mine"})", "[[-1, -1], [61, 61]]");
    EXPECT_EQ(stored("MINE"), "A1 A2");
    EXPECT_EQ(stored(""), "");
    run("SELECTIONSELECTLASTVISIBLEENTITY", R"({"SELECTIONSETNAME":"","SELECTOPTIONS":256})");
    EXPECT_EQ(stored("PICKFIRST"), "A6");
    EXPECT_EQ(selected(run("SELECTIONSELECTPREVIOUS", R"({"SELECTIONSETNAME":"again","SELECTOPTIONS":256})")), "A6");
    EXPECT_EQ(stored("again"), "A6");
    run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":0})", "[[0, 500]]");
    EXPECT_EQ(selected(run("SELECTIONSELECTPREVIOUS", R"({"SELECTOPTIONS":256})")), "A6")
        << "selecting nothing changes nothing";
    run("SELECTIONSETUPDATE", R"({"SELECTIONSETNAME":"other","SELECTIONSET":{"selectionSet":["A1"]}})");
    EXPECT_EQ(selected(run("SELECTIONSELECTPREVIOUS", R"({"SELECTOPTIONS":256})")), "A6");
    run("SELECTIONSETUPDATE", R"({"SELECTIONSETNAME":"","SELECTIONSET":{"selectionSet":["A2","A1"]}})");
    run("ERASE", R"({"OBJECTIDARRAY":{"objectIds":["A2"]}})");
    EXPECT_EQ(selected(run("SELECTIONSELECTPREVIOUS", "{}")), "A1");
    run("UNDO", "{}");
    EXPECT_EQ(selected(run("SELECTIONSELECTPREVIOUS", "{}")), "A1") << "what was selected last is now A1";
    EXPECT_EQ(stored("mine"), "A1 A2");
}

TEST_F(Selection, TakesWhatIsShownAndMayBeChanged)
{
    const Answer all = run("SELECTIONSELECTALLVISIBLEENTITIES", "{}");
    EXPECT_EQ(selected(all), "A1 A2 A3 A4 A5");
    EXPECT_EQ(all.text("/output/0/text"), "1 object is left out: its layer is locked.");
    EXPECT_EQ(selected(run("SELECTIONSELECTALLVISIBLEENTITIES", R"({"SELECTOPTIONS":256})")), "A1 A2 A3 A4 A5 A6");
    EXPECT_EQ(selected(run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":3})", "[[299, -1], [311, 1]]")), "");
    EXPECT_EQ(
        selected(run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":3,"SELECTOPTIONS":256})", "[[299, -1], [311, 1]]")),
        "A6");
    EXPECT_EQ(selected(run("SELECTIONSELECTALLVISIBLEENTITIES", R"({"SELECTOPTIONS":2})")), "A1") << "a single entity";
}

// What is drawn decides, not where the reference itself lies: in every way to select the same.
TEST_F(Selection, TakesBlocksByWhatIsDrawnOfThem)
{
    const auto insert = [](const char* handle, const char* layer, const char* block)
    { return std::string("INSERT ") + handle + " " + layer + "|100 AcDbBlockReference|2 " + block + "|10 0|20 0"; };
    open({{
              insert("B1", "0", "MIXED"),
              insert("B2", "OFF", "MIXED"),
              insert("B3", "FROZEN", "MIXED"),
              insert("B4", "0", "HIDDEN"),
              insert("B5", "OFF", "PLAIN"),
              insert("B6", "0", "PLAIN"),
              "DIMENSION B7 OFF|100 AcDbDimension|2 *D1|10 0|20 0|70 32|100 AcDbAlignedDimension",
              "DIMENSION B8 0|100 AcDbDimension|2 *D2|10 0|20 0|70 32|100 AcDbAlignedDimension",
              insert("B9", "0", "HIDDEN"),
          },
          {{"MIXED", {"LINE E1 0|100 AcDbLine|10 0|20 0|11 9|21 0", "LINE E2 LOCKED|100 AcDbLine|10 0|20 5|11 9|21 5"}},
           {"HIDDEN", {"LINE E3 FROZEN|100 AcDbLine|10 0|20 0|11 9|21 0"}},
           {"PLAIN", {"LINE E4 0|100 AcDbLine|10 0|20 0|11 9|21 0"}},
           {"*D1", {"LINE E5 LOCKED|100 AcDbLine|10 0|20 0|11 9|21 0"}},
           {"*D2", {"LINE E6 OFF|100 AcDbLine|10 0|20 0|11 9|21 0"}}}});
    const std::string shown = "B1 B2 B6 B7";
    EXPECT_EQ(selected(run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":3})", "[[99, 99], [-99, -99]]")), shown);
    EXPECT_EQ(selected(run("SELECTIONSELECTALLVISIBLEENTITIES", "{}")), shown);
    EXPECT_EQ(selected(run("SELECTIONSELECTLASTVISIBLEENTITY", "{}")), "B7");
    EXPECT_EQ(selected(run("SELECTIONSELECTBYJSON", "{}", R"(["{}"])")), shown);
    EXPECT_EQ(selected(run("SELECTIONSELECTBYJSON", "{}", R"(["{\"Types\": [\"INSERT\"]}"])")), "B1 B2 B6");
    EXPECT_EQ(selected(run("SELECT", "{}", R"(["ALL", ""])")), shown);
}

TEST_F(Selection, TakesWhatTheSheetShows)
{
    support::Content drawing = content();
    drawing.header = support::group(9, "$TILEMODE") + support::group(70, "0");
    open(drawing);
    EXPECT_EQ(selected(run("SELECTIONSELECTALLVISIBLEENTITIES", "{}")), "B1");
    EXPECT_EQ(selected(run("SELECTIONSELECTALLVISIBLEENTITIES", R"({"SELECTOPTIONS":512})")), "B1 B2");
    EXPECT_EQ(
        selected(run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":2,"SELECTOPTIONS":512})", "[[-1, -1], [61, 61]]")),
        "B1 B2");
    EXPECT_EQ(selected(run("SELECTIONSELECTVISUAL", R"({"SELECTFUNCTION":2})", "[[99, -1], [200, 61]]")), "");
}

TEST_F(Selection, IsMadeByHandles)
{
    EXPECT_EQ(selected(run("SELECTIONSELECTBYHANDLE", "{}", R"(["a2, A1;;  a2"])")), "A2 A1");
    EXPECT_EQ(selected(run("SELECTIONSELECTBYHANDLE", "{}", R"([" , "])")), "");
    EXPECT_EQ(selected(run("SELECTIONSELECTBYHANDLE", "{}", R"([""])")), "");
    EXPECT_EQ(selected(run("SELECTIONSELECTBYHANDLE", R"({"SELECTOPTIONS":384})", R"(["A7 A9 B1 A6"])")),
              "A7 A9 B1 A6");
    EXPECT_EQ(selected(run("SELECTIONSELECTBYHANDLE", "{}", R"(["A7 B1 A6"])")), "A7");
    run("ERASE", R"({"OBJECTIDARRAY":{"objectIds":["A2"]}})");
    const Answer complaints =
        run("SELECTIONSELECTBYHANDLE", "{}", R"(["A2", "A1 G", "1", "0", "FFFFFFFFFFFFFFFFF", [1, 2], "A1"])");
    EXPECT_EQ(selected(complaints), "A1");
    const char* const named[] = {"A2", "G", "1", "0", "FFFFFFFFFFFFFFFFF", "1,2,0"};
    for (int i = 0; i < 5; ++i)
        EXPECT_NE(complaints.text(("/output/" + std::to_string(2 * i + 1) + "/error").c_str())
                      .find('"' + std::string(named[i]) + '"'),
                  std::string::npos)
            << complaints.line();
    EXPECT_EQ(run("SELECTIONSELECTBYHANDLE", "{}", R"(["zz", "zz"])").state(), "cancelled");
}

TEST_F(Selection, IsMadeByJson)
{
    const std::pair<const char*, const char*> cases[] = {
        {"{}", "A1 A2 A3 A4 A5"},
        {R"({'Types': ['text', 'CIRCLE']})", "A2 A3 A4"},
        {R"({'Types': []})", "A1 A2 A3 A4 A5"},
        {R"({'Types': ['TEXT'], 'Text': '^E\\d+$'})", "A3"},
        {R"({'Text': '\\d'})", "A3 A4"},
        {R"({'Block': '^PART'})", "A5"},
        {R"({'Block': 'part'})", ""},
        {R"({'Handles': ['a1', 'A3', 'A7']})", "A1 A3"},
        {R"({'Handles': ['A1', 'A3'], 'Text': '.'})", "A3"},
        {R"({'Handles': []})", ""},
        {R"({'Window': [[61, 61], [-1, -1]]})", "A1 A2"},
        {R"({'Window': [[-1, -1, 7], [61, 61]], 'Types': ['LINE']})", "A1"},
        {R"({'Layers': ['nosuch', '0'], 'Types': ['INSERT']})", "A5"},
        {R"({'Layers': ['OFF', 'FROZEN', 'LOCKED']})", ""},
    };
    const auto inputOf = [](const std::string& json)
    {
        // Written with single quotes; as a JSON string, quotes and backslashes are escaped.
        std::string text = "[\"";
        for (const char character : json)
            text += character == '\'' ? "\\\"" : character == '\\' ? "\\\\" : std::string(1, character);
        return text + "\"]";
    };
    for (const auto& [filter, expected] : cases)
        EXPECT_EQ(selected(run("SELECTIONSELECTBYJSON", "{}", inputOf(filter))), expected) << filter;
    const struct
    {
        const char *json, *complaint;
    } refused[] = {
        {"nonsense", "JSON"},
        {"{", "JSON"},
        {"[]", "object"},
        {"{'types': []}", "types"},
        {"{'Types': 'TEXT'}", "Types"},
        {"{'Types': [1]}", "Types"},
        {"{'Text': ['x']}", "Text"},
        {"{'Text': '(['}", "(["},
        {"{'Block': '*'}", "*"},
        {"{'Handles': ['FFFF']}", "FFFF"},
        {"{'Handles': ['x y']}", "x y"},
        {"{'Window': [[0, 0]]}", "Window"},
        {"{'Window': [[0, 0], [1]]}", "Window"},
        {"{'Window': [[0, 0], [1, '1']]}", "Window"},
        {"{'Window': [[0, 0], [1, 1e999]]}", "JSON"},
        {"{'Text': '\\ud800'}", "JSON"},
    };
    for (const auto& each : refused)
    {
        const Answer answer = run("SELECTIONSELECTBYJSON", "{}", inputOf(each.json));
        EXPECT_EQ(answer.state(), "cancelled") << answer.line();
        EXPECT_NE(answer.text("/output/1/error").find(each.complaint), std::string::npos) << answer.line();
    }
    const Answer deep = run("SELECTIONSELECTBYJSON", "{}", "[\"" + std::string(100'000, '[') + "\"]");
    EXPECT_EQ(deep.state(), "cancelled");
    const Answer macro = session().send(R"({"command":"SELECTIONSELECTBYJSON {\"Types\": [\"CIRCLE\"]}"})");
    EXPECT_EQ(selected(macro), "A2");
    EXPECT_EQ(macro.json("/output"), "[]");
}

// The plug-in asks, and the host selects: a pick, a box, and the twelve keywords.
TEST_F(Selection, IsMadeByPointingAndKeywords)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"([""])", ""},
        {R"([[5, 0], ""])", "A1"},
        {R"([[5, 0], "40,50", [5, 0], ""])", "A1 A2"},
        {R"([[39, 39], [61, 61], ""])", "A2"},
        {R"([[61, 61], [45, 45], [5, 0], ""])", "A2 A1"},
        {R"(["point", [5, 0], ""])", "A1"},
        {R"(["BOX", [39, 39], [61, 61], ""])", "A2"},
        {R"(["w", [-1, -1], [61, 61], ""])", "A1 A2"},
        {R"(["C", [5, -1], [45, 61], ""])", "A1 A2"},
        {R"(["Fence", [5, 5], [5, -5], "", ""])", "A1"},
        {R"(["WP", [-1, -1], [11, -1], [5, 20], "", ""])", "A1"},
        {R"(["cp", [5, -1], [6, -1], [5, 20], "", ""])", "A1"},
        {R"(["ALL", ""])", "A1 A2 A3 A4 A5"},
        {R"(["ALL", "previous", ""])", "A1 A2 A3 A4 A5"},
        {R"(["w", [-1, -1], [61, 61], "H", "A5", ""])", "A1 A2 A5"},
        {R"(["json", "{\"Types\": [\"TEXT\"]}", ""])", "A3 A4"},
        {R"(["rubbish", "last", ""])", ""}, // its layer is locked
        {R"(["w", [0, 500], [1, 501], ""])", ""},
    };
    for (const auto& [picked, expected] : cases)
    {
        EXPECT_EQ(selected(run("SELECT", "{}", picked)), expected) << picked;
        EXPECT_EQ(stored("PICKFIRST"), expected) << picked;
    }
    run("SELECT", "{}", R"([[5, 0], ""])");
    for (const char* input : {R"(["ALL"])", R"(["ALL", null])", R"(["w", [0, 0], null])", R"([[300, 300], null])"})
    {
        EXPECT_EQ(run("SELECT", "{}", input).state(), "cancelled") << input;
        EXPECT_EQ(stored("PICKFIRST"), "A1") << input;
    }
    EXPECT_EQ(selected(run("SELECT", R"({"SELECTOPTIONS": 256})", R"(["last", ""])")), "A6");
    const Answer macro = session().send(R"({"command": "SELECT w -1,-1 61,61 \"\" BSYSTEMLABELTOJSON s"})");
    EXPECT_EQ(macro.text("/result/JSON"), "[]") << macro.line();
    EXPECT_EQ(macro.line().find("prompt"), std::string::npos) << macro.line();
}

TEST_F(Selection, IsMergedByOptions)
{
    const std::tuple<const char*, const char*, int, const char*> cases[] = {
        {R"("A2","A1")", R"("A3","A1")", 0, "A3 A1 A2"},
        {R"("A2","A1")", R"("A3")", 2, "A3 A2"},
        {R"("A2","A1")", "", 4 | 8 | 16 | 64, "A2 A1"},
        {R"("A2","A1")", R"("A3","A1")", 32, "A3"},
        {R"("A6")", R"("A6","A1")", 32, "A1"},
        {R"("A6","A1")", "", 0, "A1"},
        {R"("A6","A1")", "", 256, "A6 A1"},
        {R"("A7","A8","A9")", "", 0, "A7 A8 A9"},
        {R"("B1","B2","A1")", "", 0, "A1"},
        {R"("B1","B2","A1")", "", 128, "B1 A1"},
        {R"("B1","B2","A1")", "", 128 | 512, "B1 B2 A1"},
        {R"("E1")", "", 0, "E1"},
    };
    for (const auto& [source, destination, options, expected] : cases)
    {
        const Answer merged = run("SELECTIONSETMERGE", std::string(R"({"SOURCE":{"selectionSet":[)") + source +
                                                           R"(]},"DESTINATION":{"selectionSet":[)" + destination +
                                                           R"(]},"OPTIONS":)" + std::to_string(options) + "}");
        EXPECT_EQ(selected(merged), expected) << source << ' ' << options;
    }
    for (const char* parameters :
         {"{}", R"({"SOURCE":{"selectionSet":[]}})", R"({"SOURCE":1,"DESTINATION":{"selectionSet":[]}})"})
        EXPECT_EQ(run("SELECTIONSETMERGE", parameters).state(), "failed") << parameters;
}

} // namespace
