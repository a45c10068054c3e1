// Whatever labels were made and entities erased: when all of it is undone and saved, the drawing is what it was, record
// by record.
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/DrawingText.h"
#include "support/DxfRecords.h"
#include "support/SessionClient.h"
#include "support/TemporaryFolder.h"

namespace
{

using support::Answer;
using support::SessionClient;

class UndoEverything : public testing::TestWithParam<int>
{
protected:
    UndoEverything() : m_random(static_cast<unsigned>(GetParam())) {}

    std::size_t below(std::size_t bound) { return std::uniform_int_distribution<std::size_t>(0, bound - 1)(m_random); }

    std::vector<std::string> someOf(std::vector<std::string> handles)
    {
        std::shuffle(handles.begin(), handles.end(), m_random);
        handles.resize(std::min<std::size_t>(handles.size(), 1 + below(4)));
        return handles;
    }

    std::string idsOf(const std::vector<std::string>& handles)
    {
        return R"({"OBJECTIDARRAY": {"objectIds": )" + support::handleList(handles) + "}}";
    }

    // One random step. What it does does not matter, only that it can be undone.
    void step(SessionClient& session)
    {
        const std::vector<std::string> entities = session.entities();
        const std::vector<std::string> labels = session.run("BSYSTEMLABELGETALLIDS").handles("/result/OBJECTIDARRAY");
        const std::string chosen = support::handleList(someOf(entities));
        switch (below(13))
        {
        case 0:
        case 1:
            session.run("BSYSTEMLABELCREATE", idsOf(someOf(entities)));
            break;
        case 2:
            session.run("SELECTIONSETUPDATE",
                        R"({"SELECTIONSETNAME": "", "SELECTIONSET": {"selectionSet": )" + chosen + "}}");
            session.run("BSYSTEMLABELCREATEFROMSELECTION", R"({"SELECTIONSETNAME": "PICKFIRST"})");
            break;
        case 3:
            session.run("ERASE", idsOf(someOf(entities)));
            break;
        case 4:
            if (!labels.empty())
                session.run("ERASE", idsOf(someOf(labels)));
            break;
        case 5:
            session.run("COPY",
                        R"({"OBJECTIDARRAY": {"objectIds": )" + chosen + R"(}, "VECTOR": {"point": [5, 6, 7]}})");
            break;
        case 6:
            session.run("UNDO");
            break;
        case 7:
            session.run("REDO");
            break;
        case 8:
            inTransaction(session, entities);
            break;
        case 9:
            session.run("BSYSTEMLABELDELETE", idsOf(labels.empty() ? entities : someOf(labels)));
            break;
        case 10:
            session.run(below(2) == 0 ? "BSYSTEMLABELZOOM" : "BSYSTEMLABELDOLLY", idsOf(labels));
            break;
        case 11:
        case 12:
            session.run(below(2) == 0 ? "DEFINEDRAWINGBORDER" : "DEFINEDRAWINGBORDERCOLUMNLINES", border());
            break;
        }
    }

    std::string border()
    {
        const auto number = [this] { return std::to_string(below(3)); };
        const auto point = [&] { return R"({\"X\": )" + number() + R"(, \"Y\": )" + number() + "}"; };
        return R"({"JSON": "{\"ColumnLinesValid\": true, \"Columns\": [\")" + number() + R"(\"], \"Lines\": [\")" +
               number() + R"(\"], \"AreaValid\": true, \"AreaFirst\": )" + point() + R"(, \"AreaSecond\": )" + point() +
               "}\"}";
    }

    // The view is no part of what is undone, so it is the same before and after.
    void lookAtAll(SessionClient& session)
    {
        const Answer answer = session.run("ZOOMEXTENTS", R"({"EXTENTS": {"extents": [[0, 0, 0], [1, 100, 0]]}})");
        ASSERT_EQ(answer.state(), "ended") << answer.line();
    }

    void inTransaction(SessionClient& session, const std::vector<std::string>& entities)
    {
        session.run("TRANSACTIONSTART");
        session.run("BSYSTEMLABELCREATE", idsOf(someOf(entities)));
        session.run("ERASE", idsOf(someOf(entities)));
        session.run("BSYSTEMLABELGETALLNAMES", idsOf(someOf(entities))); // fails: they are no labels
        session.run(below(2) == 0 ? "TRANSACTIONEND" : "TRANSACTIONABORT");
    }

private:
    std::mt19937 m_random;
};

TEST_P(UndoEverything, LeavesTheDrawingAsItWas)
{
    support::TemporaryFolder folder;
    support::writeWholeFile(folder.path("drawing.dxf"), support::drawing("AC1032"));
    SessionClient session(folder.path("drawing.dxf"));
    // What runs without undo by design comes first: the empty dictionaries, the application.
    session.run("REGISTERCUSTOMAPPLICATION");
    session.run("BSYSTEMLABELGETDICTIONARYID");
    session.run("DRAWINGBORDERGETDICTIONARYID");
    lookAtAll(session);
    session.run("SAVE", R"({"FILE": ")" + folder.path("before.dxf") + "\"}");
    const bool hadRecord = session.run("UNDO").json("/result/DONE") == "true";
    if (hadRecord)
        session.run("REDO");

    for (int i = 0; i < 80; ++i)
        step(session);
    session.run("BSYSTEMLABELCREATE", idsOf(session.entities()));
    session.run("SAVE", R"({"FILE": ")" + folder.path("changed.dxf") + "\"}");
    int undone = 0;
    while (session.run("UNDO").json("/result/DONE") == "true" && undone < 100)
        ++undone;
    ASSERT_LT(undone, 100);
    if (hadRecord)
        session.run("REDO");

    lookAtAll(session);
    const Answer saved = session.run("SAVE", R"({"FILE": ")" + folder.path("after.dxf") + "\"}");
    ASSERT_EQ(saved.state(), "ended") << saved.line();
    const std::string before = support::readWholeFile(folder.path("before.dxf"));
    const std::string after = support::readWholeFile(folder.path("after.dxf"));
    const support::DxfDifference difference = support::compareDxf(before, after);
    EXPECT_TRUE(difference.nothingLost() && difference.added.empty()) << difference.summary();
    EXPECT_GT(undone, 2);
    const support::DxfDifference made = support::compareDxf(before, support::readWholeFile(folder.path("changed.dxf")));
    EXPECT_FALSE(made.nothingLost() && made.added.empty()) << "there was something to undo";
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoEverything, testing::Range(1, 9));

} // namespace
