// The session as scripts see it: what goes in as a line comes out as a line. The program runs as a child.
#include <chrono>
#include <string>

#include <gtest/gtest.h>

#include "support/DxfRecords.h"
#include "support/EntityDrawing.h"
#include "support/SessionClient.h"
#include "support/TemporaryFolder.h"

namespace
{

using support::Answer;
using support::SessionClient;

// A drawing with a text in a rectangle, a circle with a text, and two lines on layers of their own.
const support::Content kSmallDrawing = {{
    "TEXT A1 TEXTS|100 AcDbText|10 0|20 100|40 2.5|1 E12",
    "LWPOLYLINE A2 FRAMES|100 AcDbPolyline|90 4|70 1|10 -2|20 98|10 20|20 98|10 20|20 104|10 -2|20 104",
    "TEXT A3 TEXTS|100 AcDbText|10 1|20 50|40 2.5|1 P3",
    "CIRCLE A4 FRAMES|100 AcDbCircle|10 3|20 51|40 8",
    "LINE A5 LINES|100 AcDbLine|10 0|20 10|11 50|21 10",
    "LINE A6 OFF|100 AcDbLine|10 0|20 20|11 50|21 20",
}};

class Session : public testing::Test
{
protected:
    Session()
    {
        support::writeWholeFile(m_folder.path("drawing.dxf"), support::drawingOf(kSmallDrawing));
        m_session.emplace(m_folder.path("drawing.dxf"));
    }

    SessionClient& session() { return *m_session; }
    std::string path(const std::string& name) const { return m_folder.path(name); }

private:
    support::TemporaryFolder m_folder;
    std::optional<SessionClient> m_session;
};

TEST_F(Session, LabelsWhatIsWrittenInFramesAndFindsItAgain)
{
    const Answer made = session().run("BSYSTEMLABELCREATE", R"({"OBJECTIDARRAY": {"objectIds": ["A1", "A2"]}})");
    EXPECT_EQ(made.state(), "ended") << made.line();
    EXPECT_EQ(made.number("/flags"), 0x30000000) << made.line();
    const std::string label = made.text("/result/OBJECTID/objectId");
    EXPECT_EQ(session().run("BSYSTEMLABELGETALLNAMES").text("/result/JSON"), R"(["E12"])");
    const Answer found = session().send(
        R"({"id": 7, "command": "bsystemlabelgetidfromname", "parameters": {"NAME": " 'e12' ", "ALLOWDELETED": false}})");
    EXPECT_EQ(found.number("/id"), 7);
    EXPECT_EQ(found.text("/command"), "bsystemlabelgetidfromname");
    EXPECT_EQ(found.number("/flags"), 285212672);
    EXPECT_EQ(found.text("/result/OBJECTID/objectId"), label);
    EXPECT_TRUE(found.has("/message"));
    EXPECT_FALSE(found.has("/error"));
    EXPECT_EQ(found.json("/output"), "[]");
    EXPECT_EQ(session().finish(), 0);
}

TEST_F(Session, LabelsASelectionThatIsKeptByName)
{
    const Answer stored = session().run(
        "SELECTIONSETUPDATE",
        R"({"SELECTIONSETNAME": "Mine", "SELECTIONSET": {"selectionSet": ["A4", "A3"]}, "HIGHLIGHT": true})");
    EXPECT_EQ(stored.json("/result/SELECTIONSET"), R"({"selectionSet":["A4","A3"]})");
    const Answer made = session().run("BSYSTEMLABELCREATEFROMSELECTION", R"({"SELECTIONSETNAME": "MINE"})");
    EXPECT_EQ(made.state(), "ended") << made.line();
    EXPECT_EQ(made.number("/flags"), 0x34000000);
    EXPECT_EQ(session().run("BSYSTEMLABELGETALLNAMES").text("/result/JSON"), R"(["P3"])");
    EXPECT_EQ(session().run("SELECTIONSETGET", R"({"SELECTIONSETNAME": " 'mine'\t"})").json("/result"),
              stored.json("/result"))
        << "names are trimmed";
    const Answer none = session().run("BSYSTEMLABELCREATEFROMSELECTION", R"({"SELECTIONSETNAME": "nobody's"})");
    EXPECT_EQ(none.state(), "failed");
    EXPECT_EQ(none.number("/error/code"), 20);
    EXPECT_EQ(none.text("/error/type"), "OdError_InvalidValue");
    EXPECT_EQ(none.text("/error/name"), "pSelectionSet");
    EXPECT_EQ(none.text("/error/function"), "CCommandBSystemLabelCreateFromSelection::execute");
    EXPECT_EQ(none.json("/result"), "null");
    EXPECT_EQ(session().finish(), 1);
}

TEST_F(Session, AsksTheUserWithTheInput)
{
    session().run("SELECTIONSETUPDATE", R"({"SELECTIONSETNAME": "a set", "SELECTIONSET": {"selectionSet": ["A1"]}})");
    const Answer asked = session().send(
        R"({"command": "BSYSTEMLABELCREATEFROMSELECTION", "parameters": {}, "input": ["a set", "left over"]})");
    EXPECT_EQ(asked.state(), "ended") << asked.line();
    EXPECT_TRUE(asked.has("/output/0/prompt")) << asked.line();
    EXPECT_FALSE(asked.has("/output/1/prompt")) << asked.line();
    for (const char* input : {"[]", "[null]"})
    {
        const Answer cancelled = session().send(
            std::string(R"({"command": "BSYSTEMLABELCREATEFROMSELECTION", "parameters": {}, "input": )") + input + "}");
        EXPECT_EQ(cancelled.state(), "cancelled") << cancelled.line();
    }
    const Answer json = session().run("BSYSTEMLABELGETALLNAMES");
    EXPECT_EQ(json.text("/result/JSON"), R"(["E12"])");
}

TEST_F(Session, FindsEntities)
{
    const struct
    {
        const char* parameters;
        const char* handles;
    } cases[] = {
        {R"({})", R"(["A1","A2","A3","A4","A5","A6"])"},
        {R"({"TYPE": "text"})", R"(["A1","A3"])"},
        {R"({"TYPE": " CIRCLE , LINE,"})", R"(["A4","A5","A6"])"},
        {R"({"TYPE": "MTEXT"})", R"([])"},
        {R"({"LAYER": "frames"})", R"(["A2","A4"])"},
        {R"({"TYPE": "LINE", "LAYER": "OFF"})", R"(["A6"])"},
        {R"({"TEXT": "^E\\d+$"})", R"(["A1"])"},
        {R"({"TEXT": "\\d"})", R"(["A1","A3"])"},
        {R"({"TEXT": "e12"})", R"([])"},
        {R"({"TEXT": ""})", R"(["A1","A2","A3","A4","A5","A6"])"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(session().run("ENTITIES", each.parameters).json("/result/OBJECTIDARRAY/objectIds"), each.handles)
            << each.parameters;
    for (const char* pattern : {"(", "[a", "*", "a{2,1}", "(?=x)", "\\\\"})
    {
        const Answer refused =
            session().run("ENTITIES", std::string(R"({"TEXT": ")") + (pattern[0] == '\\' ? "\\\\" : pattern) + "\"}");
        EXPECT_EQ(refused.state(), "failed") << refused.line();
        EXPECT_NE(refused.text("/error/text").find(pattern[0] == '\\' ? "\\" : pattern), std::string::npos)
            << refused.line();
    }
}

TEST_F(Session, DoesNotExplodeOnAPattern)
{
    const auto begin = std::chrono::steady_clock::now();
    session().run("ENTITIES", R"({"TEXT": "(a*)*b"})");
    session().run("ENTITIES", R"({"TEXT": "((((E?){30}){30}){30}){30}"})");
    session().run("ENTITIES", R"({"TEXT": ")" + std::string(100'000, '(') + "\"}");
    EXPECT_EQ(session().entities(R"({"TYPE": "TEXT"})").size(), 2u);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST_F(Session, ErasesCopiesUndoesAndRedoes)
{
    const Answer copied = session().run(
        "COPY", R"({"OBJECTIDARRAY": {"objectIds": ["A1", "A5", "A1"]}, "VECTOR": {"point": [0, -200, 0]}})");
    const std::vector<std::string> copies = copied.handles("/result/OBJECTIDARRAY");
    ASSERT_EQ(copies.size(), 2u) << copied.line();
    EXPECT_EQ(session()
                  .run("TEXTPARSERSORT", R"({"OBJECTIDARRAY": {"objectIds": [")" + copies[0] + R"(", "A3", "A1"]}})")
                  .text("/result/TEXT"),
              "E12 P3 E12");
    EXPECT_EQ(session().run("ERASE", R"({"OBJECTIDARRAY": {"objectIds": ["A1", "A1", "A2"]}})").state(), "ended");
    EXPECT_EQ(session().entities().size(), 6u);
    const Answer twice = session().run("ERASE", R"({"OBJECTIDARRAY": {"objectIds": ["A5", "A1"]}})");
    EXPECT_EQ(twice.state(), "failed") << twice.line();
    EXPECT_EQ(session().entities().size(), 6u) << "what was erased before the fault stays erased";
    const char* const expected[] = {"8", "6"};
    for (const char* count : expected)
    {
        EXPECT_EQ(session().run("UNDO").json("/result/DONE"), "true");
        EXPECT_EQ(std::to_string(session().entities().size()), count);
    }
    EXPECT_EQ(session().run("UNDO").json("/result/DONE"), "false");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(session().run("REDO").json("/result/DONE"), "true");
    EXPECT_EQ(session().run("REDO").json("/result/DONE"), "false");
    EXPECT_EQ(session().entities().size(), 6u);
}

TEST_F(Session, DoesNotEraseWhatHoldsTheDrawingTogether)
{
    for (const char* handle : {"C0", "1F"})
    {
        const Answer refused =
            session().run("ERASE", std::string(R"({"OBJECTIDARRAY": {"objectIds": [")") + handle + "\"]}}");
        EXPECT_TRUE(refused.has("/error")) << refused.line();
    }
    EXPECT_EQ(session().entities(R"({"LAYER": "OFF"})").size(), 1u);
}

TEST_F(Session, WritesABlockThatIsADrawingOfItsOwn)
{
    session().run("BSYSTEMLABELCREATE", R"({"OBJECTIDARRAY": {"objectIds": ["A1"]}})");
    const Answer written = session().run("WBLOCK", R"({"OBJECTIDARRAY": {"objectIds": ["A3", "A6"]}, "FILE": ")" +
                                                       path("block.dxf") + "\"}");
    EXPECT_EQ(written.state(), "ended") << written.line();
    SessionClient block(path("block.dxf"));
    EXPECT_EQ(block.entities().size(), 2u);
    EXPECT_EQ(block.entities(R"({"TEXT": "P3"})").size(), 1u);
    EXPECT_EQ(block.entities(R"({"LAYER": "OFF"})").size(), 1u);
    EXPECT_EQ(session().entities().size(), 6u);
}

// ---- What cannot be run ---------------------------------------------------------------------------------------------

struct RefusedCase
{
    const char* parameters;
    const char* text; // part of what is said
};

TEST_F(Session, RefusesValuesThatAreNone)
{
    const RefusedCase cases[] = {
        {R"({"OBJECTID": {"objectId": "FFFF"}})", "FFFF"},
        {R"({"OBJECTID": {"objectId": "XYZ"}})", "XYZ"},
        {R"({"OBJECTID": {"objectId": ""}})", "handle"},
        {R"({"OBJECTID": {"objectId": "10000000000000000"}})", "handle"},
        {R"({"OBJECTID": {"objectId": 12}})", "handle"},
        {R"({"OBJECTID": {"objectid": "A1"}})", "objectid"},
        {R"({"OBJECTID": {"objectId": "A1", "more": 1}})", "OBJECTID"},
        {R"({"OBJECTID": {}})", "OBJECTID"},
        {R"({"OBJECTIDARRAY": {"objectIds": "A1"}})", "OBJECTIDARRAY"},
        {R"({"OBJECTIDARRAY": {"objectIds": ["A1", "FFFF"]}})", "FFFF"},
        {R"({"OBJECTIDARRAY": ["A1"]})", "OBJECTIDARRAY"},
        {R"({"NAME": null})", "NAME"},
        {R"({"N": 2147483648})", "32 bits"},
        {R"({"N": -2147483649})", "32 bits"},
        {R"({"N": 1.5})", "32 bits"},
        {R"({"N": 1e3})", "32 bits"},
        {R"({"P": {"point": [1, 2]}})", "point"},
        {R"({"P": {"point": [1, 2, "3"]}})", "point"},
        {R"({"P": {"extents": [[1, 2, 3]]}})", "extents"},
        {R"({"P": {"extents": [[1, 2, 3], [1, 2]]}})", "point"},
        {R"({"S": {"selectionSet": ["0"]}})", "null id"},
        {R"({"S": {"object": {}}})", "null"},
        {R"({"S": {"pointer": true}})", "pointer"},
        {R"({"S": {"chain": {}}})", "chain"},
    };
    for (const RefusedCase& each : cases)
    {
        const Answer refused = session().run("BSYSTEMLABELGETALLIDS", each.parameters);
        EXPECT_EQ(refused.state(), "none") << each.parameters;
        EXPECT_EQ(refused.text("/error/type"), "request") << refused.line();
        EXPECT_NE(refused.text("/error/text").find(each.text), std::string::npos) << refused.line();
        EXPECT_EQ(refused.json("/result"), "null");
    }
    EXPECT_EQ(session().run("BSYSTEMLABELGETALLIDS").json("/result/OBJECTIDARRAY"), R"({"objectIds":[]})");
    EXPECT_EQ(session().finish(), 1);
}

struct FailedCase
{
    const char* request;
    const char* state;
    int code;
    const char* type = nullptr; // of the error; nothing: any
    const char* name = nullptr;
};

TEST_F(Session, SaysWhatWentWrongInACommand)
{
    const FailedCase cases[] = {
        {R"({"command": "NOSUCHCOMMAND"})", "none", 904},
        {R"({"command": " SAVE"})", "none", 904},
        {R"({"command": ""})", "none", 904, "OdError_InvalidArgument", "strCommand"},
        {R"({"command": "BSYSTEMLABELGETIDFROMNAME", "parameters": {"NAME": 12}})", "failed", 68,
         "OdError_InvalidArgument", "pResBuf"},
        {R"({"command": "BSYSTEMLABELGETALLIDS", "parameters": {"ALLOWDELETED": "yes"}})", "failed", 68,
         "OdError_InvalidArgument", "pResBuf"},
        {R"({"command": "BSYSTEMLABELGETALLNAMES", "parameters": {"OBJECTIDARRAY": {"objectIds": ["A5"]}}})", "failed",
         39},
        {R"({"command": "SAVE", "parameters": {"FILE": 12}})", "failed", 68},
        {R"({"command": "SAVE", "parameters": {"VERSION": "R99"}})", "failed", 5},
        {R"({"command": "SAVE", "parameters": {"FORMAT": "dwg"}})", "failed", 5},
        {R"({"command": "ERASE", "parameters": {}})", "failed", 5},
        {R"({"command": "SAVE", "parameters": {"FILE": "cut\u0000short.dxf"}})", "failed", 5},
        {R"({"command": "COPY"})", "failed", 5},
        {R"({"command": "COPY", "parameters": {"OBJECTIDARRAY": {"objectIds": ["A5"]}, "VECTOR": {"extents": [[0, 0, 0], [1, 1, 1]]}}})",
         "failed", 68},
        {R"({"command": "COPY", "parameters": {"OBJECTIDARRAY": {"objectIds": ["A5"]}, "VECTOR": {"point": [1e300, 0, 0]}}})",
         "failed", 5},
        {R"({"command": "WBLOCK", "parameters": {"FILE": "x.dxf"}})", "failed", 5},
        {R"({"command": "SELECTIONSETUPDATE", "parameters": {"SELECTIONSET": true}})", "failed", 68},
        {R"({"command": "TEXTPARSERSORT", "parameters": {"OBJECTIDARRAY": 7}})", "failed", 68},
    };
    for (const FailedCase& each : cases)
    {
        const Answer failed = session().send(each.request);
        EXPECT_EQ(failed.state(), each.state) << failed.line();
        EXPECT_EQ(failed.number("/error/code"), each.code) << failed.line();
        EXPECT_EQ(failed.json("/result"), "null") << failed.line();
        EXPECT_NE(failed.text("/error/text"), "(none)") << failed.line();
        EXPECT_EQ(failed.text("/error/text").find(".."), failed.text("/error/text").find("...")) << failed.line();
        EXPECT_EQ(failed.text("/error/type"), each.type ? each.type : failed.text("/error/type")) << failed.line();
        EXPECT_EQ(failed.text("/error/name"), each.name ? each.name : failed.text("/error/name")) << failed.line();
    }
    EXPECT_EQ(session().finish(), 1);
}

TEST_F(Session, AnswersEveryLineOfRubbishAndGoesOn)
{
    const std::string lines[] = {std::string(),
                                 "x",
                                 "{",
                                 "[]",
                                 "\"\"",
                                 "{}",
                                 "\xFF\xFE",
                                 std::string("\0\0", 2),
                                 std::string(10'000'000, '['),
                                 "{\"command\":\"" + std::string(10'000'000, 'X') + "\"}",
                                 R"({"command":"SAVE","parameters":{"A":)" + std::string(100'000, '[') + "}}",
                                 R"({"command":"ENTITIES","input":[true]})",
                                 R"({"command":"ENTITIES","input":[[1]]})"};
    for (const std::string& line : lines)
    {
        const Answer refused = session().send(line);
        EXPECT_TRUE(refused.has("/error")) << line.substr(0, 100);
    }
    const Answer next = session().send("{\"id\":\"\xF0\x9F\x98\x80\\u0000\",\"command\":\"ENTITIES\"}\r");
    EXPECT_EQ(next.state(), "ended");
    EXPECT_EQ(next.text("/id"), std::string("\xF0\x9F\x98\x80\0", 5));
    EXPECT_EQ(session().finish(), 1);
}

TEST_F(Session, AnswersWithTheTextsThatWereSent)
{
    const struct
    {
        const char* sent;
        const char* text;
    } kTexts[] = {
        {R"(A\"B\\C/D)", "A\"B\\C/D"},
        {R"(A\u007f\")", "A\x7F\""},
        {R"(\u0001\u001F\"\\)", "\x01\x1F\"\\"},
        {R"(\u00e9\")", "\xC3\xA9\""},
        {R"(\\\ud83d\ude00)", "\\\xF0\x9F\x98\x80"},
    };
    for (const auto& [sent, text] : kTexts)
        EXPECT_EQ(session().send(std::string(R"({"command": ")") + sent + "\"}").text("/command"), text);
}

TEST_F(Session, AnswersALastLineWithoutALineFeed)
{
    SessionClient fresh;
    fresh.program().write(R"({"id": 1, "command": "ENTITIES"})");
    EXPECT_EQ(fresh.finish(), 0);
    EXPECT_NE(fresh.program().output().find("\"id\":1,"), std::string::npos);
    EXPECT_EQ(fresh.program().errors(), "");
}

TEST_F(Session, GoesOnWhereThereIsNoPlaceToSave)
{
    SessionClient fresh;
    EXPECT_EQ(fresh.run("SAVE").state(), "failed") << "no file yet";
    for (const std::string& name : {std::string("missing/new.dxf"), std::string(300, 'x')})
    {
        const Answer refused = fresh.run("SAVE", R"({"FILE": ")" + path(name) + "\"}");
        EXPECT_EQ(refused.state(), "failed") << refused.line();
        EXPECT_NE(refused.text("/error/text").find(name), std::string::npos) << refused.line();
    }
    for (const std::string& parameters : {R"({"FILE": ")" + path("first.dxf") + "\"}", std::string("{}")})
        EXPECT_EQ(fresh.run("SAVE", parameters).text("/result/FILE"), path("first.dxf"));
}

// ---- Transactions that last longer than a request -------------------------------------------------------------------

TEST_F(Session, RefusesToSaveAndUndoInAnOpenTransaction)
{
    const std::string before = support::readWholeFile(path("drawing.dxf"));
    session().run("ERASE", R"({"OBJECTIDARRAY": {"objectIds": ["A6"]}})");
    session().run("TRANSACTIONSTART");
    session().run("ERASE", R"({"OBJECTIDARRAY": {"objectIds": ["A5"]}})");
    for (const char* command : {"SAVE", "UNDO", "REDO"})
    {
        const Answer refused = session().run(command);
        EXPECT_EQ(refused.state(), "failed") << refused.line();
        EXPECT_NE(refused.text("/error/text").find(command), std::string::npos) << refused.line();
    }
    EXPECT_EQ(support::readWholeFile(path("drawing.dxf")), before);
    EXPECT_EQ(session().entities().size(), 4u);
    session().run("TRANSACTIONABORT");
    EXPECT_EQ(session().entities().size(), 5u);
    EXPECT_EQ(session().run("UNDO").json("/result/DONE"), "true") << "the record of before the transaction";
    EXPECT_EQ(session().entities().size(), 6u);
    EXPECT_EQ(session().run("UNDO").json("/result/DONE"), "false") << "those inside were dropped";
}

TEST_F(Session, KeepsWhatATransactionEnded)
{
    session().run("TRANSACTIONSTART");
    session().run("TRANSACTIONSTART");
    session().run("BSYSTEMLABELCREATE", R"({"OBJECTIDARRAY": {"objectIds": ["A1"]}})");
    session().run("TRANSACTIONEND");
    EXPECT_EQ(session().run("SAVE").state(), "failed");
    session().run("TRANSACTIONEND");
    session().run("TRANSACTIONEND"); // nothing is open any more
    EXPECT_EQ(session().run("BSYSTEMLABELGETALLNAMES").text("/result/JSON"), R"(["E12"])");
    EXPECT_EQ(session().run("SAVE").state(), "ended");
    SessionClient again(path("drawing.dxf"));
    EXPECT_EQ(again.run("BSYSTEMLABELGETALLNAMES").text("/result/JSON"), R"(["E12"])");
}

TEST_F(Session, EndsWithATransactionOpen)
{
    session().run("TRANSACTIONSTART");
    session().run("BSYSTEMLABELCREATE", R"({"OBJECTIDARRAY": {"objectIds": ["A1"]}})");
    EXPECT_EQ(session().finish(), 0);
}

} // namespace
