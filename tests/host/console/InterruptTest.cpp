// Ctrl-C while a command works: no further command starts, whoever runs it, and the run is undone.
#include <gtest/gtest.h>

#include "DbBlockTableRecord.h"
#include "DbCommandContext.h"
#include "DbLine.h"
#include "Ed/EdCommandStack.h"
#include "RxObjectImpl.h"
#include "cli/console/InterruptReactor.h"
#include "session/HostServices.h"
#include "session/OpenDrawing.h"
#include "session/RunCommand.h"

namespace
{

constexpr const OdChar* kGroup = L"Test.Interrupts";

class Lines : public cli::LineSource
{
public:
    cli::Input read(const Question&, std::string&) override { return cli::Input::kEnd; }
    bool isPerson() const override { return true; }
    bool isInterrupted() const override { return hasInterrupt; }

    bool hasInterrupt = false;
};

Lines* g_lines = nullptr;
std::string g_ran;

void addLine(OdEdCommandContext* context)
{
    g_ran += "+";
    const OdDbDatabasePtr database = OdDbDatabase::cast(OdDbCommandContext::cast(context)->baseDatabase());
    const OdDbBlockTableRecordPtr model = database->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
    model->appendOdDbEntity(OdDbLine::createObject());
}

void addLineAndPressControlC(OdEdCommandContext* context)
{
    addLine(context);
    g_lines->hasInterrupt = true;
}

void nest(OdEdCommandContext* context)
{
    addLineAndPressControlC(context);
    odedRegCmds()->executeCommand(L"T_ADD", context);
    addLine(context);
}

class Interrupts : public testing::Test
{
protected:
    Interrupts()
    {
        g_lines = &m_lines;
        odedRegCmds()->addCommand(kGroup, L"T_ADD", L"", 0, &addLine);
        odedRegCmds()->addCommand(kGroup, L"T_PRESS", L"", 0, &addLineAndPressControlC);
        odedRegCmds()->addCommand(kGroup, L"T_NEST", L"", 0, &nest);
    }
    ~Interrupts() override { odedRegCmds()->removeGroup(kGroup); }

    /// "+++ ended 3": what ran, how it ended, and the lines that are there then.
    std::string run(const OdChar* macro)
    {
        g_ran.clear();
        m_lines.forgetInterrupt();
        m_lines.hasInterrupt = false;
        const session::OpenDrawing drawing;
        const OdSmartPtr<session::CommandUser> user = OdRxObjectImpl<session::CommandUser>::createObject();
        session::Response response;
        session::runCommand(drawing.database(), macro, OdResBufPtr(), *user, response);
        const OdDbBlockTableRecordPtr model = drawing.database().getModelSpaceId().safeOpenObject();
        int lines = 0;
        for (OdDbObjectIteratorPtr walk = model->newIterator(); !walk->done(); walk->step())
            ++lines;
        return g_ran + " " + response.state + " " + std::to_string(lines);
    }

    Lines m_lines;

private:
    session::HostServices m_services{session::Plugin::kLoaded};
};

TEST_F(Interrupts, StopTheRun)
{
    const std::pair<const OdChar*, const char*> rows[] = {
        {L"T_ADD T_ADD", "++ ended 2"},
        {L"T_PRESS T_ADD", "+ cancelled 0"},
        {L"T_ADD T_PRESS T_ADD T_ADD", "++ cancelled 0"},
        {L"T_NEST", "+ cancelled 0"},
        {L"T_ADD T_NEST T_ADD", "++ cancelled 0"},
        {L"T_PRESS", "+ ended 1"},
        {L"T_ADD T_PRESS", "++ ended 2"},
    };
    const cli::InterruptReactor reactor(m_lines);
    for (const auto& [macro, outcome] : rows)
        EXPECT_EQ(run(macro), outcome) << odStringToUtf8(macro);
}

TEST_F(Interrupts, AreNoticedByNobodyElse)
{
    {
        const cli::InterruptReactor reactor(m_lines);
    }
    EXPECT_EQ(run(L"T_PRESS T_ADD"), "++ ended 2");
}

} // namespace
