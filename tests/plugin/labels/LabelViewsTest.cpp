// Attacks zooming and panning to labels: viewers that answer nothing, nonsense or points, and that nothing but the view
// is touched.
#include "support/PluginTest.h"

using namespace plugintest;

namespace
{

OdResBufPtr extents(const OdGePoint3d& least, const OdGePoint3d& greatest)
{
    return CadCommands::SetParameterOdGeExtents3d(L"EXTENTS", OdGeExtents3d(least, greatest));
}

class LabelViewsTest : public PluginTest
{
protected:
    LabelViewsTest() : label(addLabel(addLines(2), L"A", L"aaaa")), other(addLabel(addLines(1), L"B", L"bbbb")) {}

    std::vector<std::string>& calls() { return HostCommands::get().viewerCalls; }

    OdDbObjectId label, other;
};

TEST_F(LabelViewsTest, WhatTheViewerAnswersDecides)
{
    const Fault wrongKind = argumentFault(68, "pResBuf", "CadCommands::ResBufGetOdGeExtents3d");
    // What the viewer answers, what it is told then, empty for nothing, and faults.
    const std::tuple<OdResBufPtr, std::string, std::string, Fault> rows[] = {
        {extents({0, 0, 0}, {4, 2, 1}),
         "zoom " + shown({0, 0, 0}) + ", " + shown({4, 2, 1}),
         "dolly " + shown({2, 1, 0.5}),
         {}},
        {extents({-3, 5, 7}, {-3, 5, 7}),
         "zoom " + shown({-3, 5, 7}) + ", " + shown({-3, 5, 7}),
         "dolly " + shown({-3, 5, 7}),
         {}},
        {chain({CadCommands::SetParameterBool(L"OTHER", true), extents({1, 1, 1}, {1, 1, 2})}),
         "zoom " + shown({1, 1, 1}) + ", " + shown({1, 1, 2}),
         "dolly " + shown({1, 1, 1.5}),
         {}},
        {extents({0, 0, 0}, {4, 2, -1}), "", "", {}},
        {extents({5, 0, 0}, {4, 2, 1}), "", "", {}},
        {extents({0, NAN, 0}, {4, 2, 1}), "", "", {}},
        {CadCommands::SetParameterOdGeExtents3d(L"EXTENTS", OdGeExtents3d()), "", "", {}},
        {OdResBufPtr(), "", "", {}},
        {OdResBuf::newRb(5005, L"EXTENTS"), "", "", {}},
        {CadCommands::SetParameterBool(L"OTHER", true), "", "", {}},
        {CadCommands::SetParameterOdString(L"EXTENTS", L"all"), "", "", wrongKind},
        {CadCommands::SetParameterOdGePoint3d(L"EXTENTS", {1, 2, 3}), "", "", wrongKind},
    };
    const std::string asked =
        "extents of " + odStringToUtf8(other.getHandle().ascii()) + " " + odStringToUtf8(label.getHandle().ascii());
    for (const auto& [answer, zoom, dolly, fault] : rows)
        for (const bool zooms : {true, false})
        {
            HostCommands::get().viewerAnswer = answer;
            calls().clear();
            const Outcome outcome = run(zooms ? L"BSYSTEMLABELZOOM" : L"BSYSTEMLABELDOLLY", ids({other, label}));
            EXPECT_EQ(outcome.fault, fault);
            EXPECT_FALSE(outcome.result);
            std::vector<std::string> expected = {asked};
            if (const std::string& call = zooms ? zoom : dolly; !call.empty())
                expected.push_back(call);
            EXPECT_EQ(calls(), expected);
        }
}

TEST_F(LabelViewsTest, HistoryAndParametersStayAsTheyWere)
{
    HostCommands::get().viewerAnswer = extents({0, 0, 0}, {4, 2, 1});
    const OdUInt64 mark = db->undoMark();
    for (const OdChar* command : {L"BSYSTEMLABELZOOM", L"BSYSTEMLABELDOLLY"})
    {
        EXPECT_EQ(run(command, ids({label})).flags & 0x21000000u, 0x01000000u);
        EXPECT_EQ(db->undoMark(), mark);
        const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", db, host);
        const OdResBufPtr parameters = ids({label});
        handler->funcIO()->setParam(parameters);
        odedRegCmds()->executeCommand(command, handler);
        EXPECT_EQ(handler->funcIO()->param(), parameters);
        EXPECT_FALSE(handler->funcIO()->result());
    }
}

} // namespace
