// The view as a session shows it: extents of what has some, requests that make no sense, histories and saved drawings.
#include <string>

#include <gtest/gtest.h>

#include "support/DrawingText.h"
#include "support/DxfRecords.h"
#include "support/SessionClient.h"
#include "support/TemporaryFolder.h"

namespace
{

using support::Answer;
using support::SessionClient;

class SessionView : public testing::Test
{
protected:
    SessionView()
    {
        support::writeWholeFile(m_folder.path("drawing.dxf"), support::drawing("AC1032"));
        m_session = std::make_unique<SessionClient>(m_folder.path("drawing.dxf"));
    }

    static std::string ids(const std::vector<std::string>& handles)
    {
        return R"({"OBJECTIDARRAY": {"objectIds": )" + support::handleList(handles) + "}}";
    }
    std::string view() { return m_session->run("VIEWERGETVIEW").json("/result/EXTENTS/extents"); }
    std::string label(const std::vector<std::string>& entities)
    {
        return m_session->run("BSYSTEMLABELCREATE", ids(entities)).text("/result/OBJECTID/objectId");
    }

    support::TemporaryFolder m_folder;
    std::unique_ptr<SessionClient> m_session;
};

TEST_F(SessionView, ExtentsAreThoseOfWhatIsThere)
{
    const std::string line = "[[0.0,0.0,0.0],[10.0,0.0,0.0]]"; // 50
    const std::string part = "[[6.0,1.0,0.0],[8.5,7.0,0.0]]";  // 53, a reference to a line in a block
    const std::string ofBlock = label({"50"});
    const std::string ofBoth = label({"53", "5A"});
    const std::string ofErased = label({"56"});
    m_session->run("ERASE", ids({"56"}));
    // Handles and their extents, "(none)" for no answer.
    const std::pair<std::vector<std::string>, std::string> rows[] = {
        {{}, "(none)"},
        {{"50"}, line},
        {{"50", "50", "0"}, line},
        {{ofBlock}, line},
        {{"10", "C", "62", "50"}, line},
        {{"10", "C", "62"}, "(none)"},
        {{"5A"}, "(none)"},
        {{"56"}, "(none)"},
        {{ofErased}, "(none)"},
        {{ofErased, "50"}, line},
    };
    for (const auto& [handles, extents] : rows)
    {
        const Answer answer = m_session->run("VIEWERGETEXTENTS", ids(handles));
        EXPECT_EQ(answer.state(), "ended") << answer.line();
        EXPECT_EQ(answer.json("/result/EXTENTS/extents"), extents) << support::handleList(handles);
    }
    const std::string attribute = m_session->run("VIEWERGETEXTENTS", ids({"53"})).json("/result/EXTENTS/extents");
    EXPECT_EQ(m_session->run("VIEWERGETEXTENTS", ids({ofBoth})).json("/result/EXTENTS/extents"), attribute);
    EXPECT_EQ(m_session->run("VIEWERGETEXTENTS").json("/result"), "null");
}

TEST_F(SessionView, RequestsThatMakeNoSenseChangeNothing)
{
    const std::string before = view();
    const std::tuple<const char*, const char*, int> rows[] = {
        {"ZOOMEXTENTS", "{}", 5},
        {"ZOOMEXTENTS", R"({"EXTENTS": {"point": [0, 0, 0]}})", 68},
        {"ZOOMEXTENTS", R"({"EXTENTS": "all"})", 68},
        {"ZOOMEXTENTS", R"({"EXTENTS": {"extents": [[1, 0, 0], [0, 1, 0]]}})", 60},
        {"ZOOMEXTENTS", R"({"EXTENTS": {"extents": [[-1e308, 0, 0], [1e308, 1, 0]]}})", 5},
        {"DOLLY", "{}", 5},
        {"DOLLY", R"({"POINT": {"extents": [[0, 0, 0], [1, 1, 1]]}})", 68},
        {"DOLLY", R"({"POINT": 7})", 68},
        {"VIEWERGETEXTENTS", R"({"OBJECTIDARRAY": true})", 68},
        {"BSYSTEMLABELZOOM", R"({"OBJECTIDARRAY": {"objectIds": ["10"]}})", -1},
        {"BSYSTEMLABELDOLLY", R"({"OBJECTIDARRAY": {"objectIds": []}})", -1},
    };
    for (const auto& [command, parameters, code] : rows)
    {
        const Answer answer = m_session->run(command, parameters);
        EXPECT_EQ(answer.number("/error/code"), code) << answer.line();
        EXPECT_EQ(answer.state(), code < 0 ? "ended" : "failed") << answer.line();
        EXPECT_EQ(view(), before) << parameters;
    }
}

TEST_F(SessionView, ZoomingAndPanningAreNoSteps)
{
    const std::string made = label({"50"});
    const std::string before = view();
    m_session->run("BSYSTEMLABELZOOM", ids({made}));
    const std::string zoomed = view();
    EXPECT_EQ(zoomed, "[[-0.5,-3.666666666666667,0.0],[10.5,3.666666666666667,0.0]]");
    EXPECT_NE(zoomed, before);
    m_session->run("DOLLY", R"({"POINT": {"point": [100, 200, 7]}})");
    m_session->run("BSYSTEMLABELDOLLY", ids({made}));
    EXPECT_EQ(view(), zoomed) << "panning back to the label";
    EXPECT_EQ(m_session->run("UNDO").json("/result/DONE"), "true");
    EXPECT_EQ(view(), zoomed) << "undo takes back the label, not the view";
    EXPECT_EQ(m_session->run("BSYSTEMLABELGETALLIDS").json("/result/OBJECTIDARRAY/objectIds"), "[]");
    EXPECT_EQ(m_session->run("UNDO").json("/result/DONE"), "false");
}

} // namespace
