// Attacks the command stack: names that differ in case or group, listeners that come and go while they are told,
// commands that fail in every way and at every depth.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Ed/EdCommandStack.h"
#include "Ed/EdException.h"
#include "RxObjectImpl.h"
#include "support/SdkProgram.h"

namespace
{

std::string g_log;

class Listener : public OdEdCommandStackReactor
{
public:
    explicit Listener(const std::string& name) : m_name(name) { odedRegCmds()->addReactor(this); }
    ~Listener() override { odedRegCmds()->removeReactor(this); }

    OdEdCommandPtr unknownCommand(const OdString& name, OdEdCommandContext*) override
    {
        note("unknown " + odStringToUtf8(name));
        return instead;
    }
    void commandWillStart(OdEdCommand* command, OdEdCommandContext*) override { event("start", command); }
    void commandCancelled(OdEdCommand* command, OdEdCommandContext*) override { event("cancelled", command); }
    void commandFailed(OdEdCommand* command, OdEdCommandContext*) override { event("failed", command); }
    void commandEnded(OdEdCommand* command, OdEdCommandContext*) override { event("ended", command); }

    OdEdCommandPtr instead;
    std::function<void(const std::string&)> whileTold;

private:
    void note(const std::string& text) { g_log += m_name + ":" + text + " "; }
    void event(const std::string& what, OdEdCommand* command)
    {
        note(what + " " + odStringToUtf8(command->globalName()));
        if (whileTold)
            whileTold(what);
    }

    std::string m_name;
};
using ListenerPtr = OdSmartPtr<Listener>;

ListenerPtr listen(const std::string& name)
{
    return OdRxObjectImpl<Listener>::createObject(name);
}

class CommandStackTest : public ::testing::Test
{
protected:
    CommandStackTest() : stack(odedRegCmds()) { g_log.clear(); }
    ~CommandStackTest() override
    {
        stack->removeGroup(L"One");
        stack->removeGroup(L"Two");
    }

    void add(
        const OdChar* group, const OdChar* name, OdEdCommandFunction* work = [](OdEdCommandContext*) {},
        const OdChar* local = L"")
    {
        stack->addCommand(group, name, local, 0, work);
    }
    std::string runLogged(const OdChar* name)
    {
        g_log.clear();
        try
        {
            stack->executeCommand(name, nullptr);
        }
        catch (const OdEdCancel&)
        {
            g_log += "threw cancel";
        }
        catch (const OdError& error)
        {
            g_log += "threw " + std::to_string(error.code());
        }
        catch (const std::exception& error)
        {
            g_log += std::string("threw ") + error.what();
        }
        catch (int number)
        {
            g_log += "threw int " + std::to_string(number);
        }
        return g_log;
    }
    std::string groupOf(const OdChar* name, OdUInt32 flags, const OdChar* group)
    {
        const OdEdCommandPtr found = stack->lookupCmd(name, flags, group);
        return found ? odStringToUtf8(found->groupName()) : "none";
    }

    OdEdCommandStackPtr stack;
};

/// A command that has no name to show.
class UnnamedCommand : public OdEdCommand
{
public:
    OdString groupName() const override { return L"One"; }
    OdString globalName() const override { return L"A"; }
    OdString localName() const override { return L""; }
    void execute(OdEdCommandContext*) override { g_log += "ran "; }
};

TEST_F(CommandStackTest, AnEmptyNameNamesNothing)
{
    stack->addCommand(OdRxObjectImpl<UnnamedCommand, OdEdCommand>::createObject());
    EXPECT_FALSE(stack->lookupCmd(L"", OdEdCommandStack::kGlobal | OdEdCommandStack::kLocal));
    const ListenerPtr listener = listen("l");
    EXPECT_EQ(runLogged(L""), "l:unknown  ");
}

TEST_F(CommandStackTest, FindsByNameInAnyCaseWithinTheGroup)
{
    add(L"One", L"ÉCLAIR");
    add(L"Two", L"éclair");
    add(
        L"Two", L"ЖУК", [](OdEdCommandContext*) {}, L"Beetle");
    const std::tuple<const OdChar*, OdUInt32, const OdChar*, const char*> rows[] = {
        {L"éclair", 17, L"", "One"},    {L"éCLAIR", 21, L"", "One"},
        {L"ÉCLAIR", 17, L"TWO", "Two"}, {L"ÉCLAIR", 17, L"Three", "none"},
        {L"жук", 3, L"", "Two"},        {L"BEETLE", 3, L"", "Two"},
        {L"beetle", 2, L"", "Two"},     {L"beetle", 17, L"", "none"},
        {L"жук", 17, L"One", "none"},   {L"", 3, L"", "none"},
        {L"éclair ", 3, L"", "none"},   {L"éclair", 16, L"", "none"},
    };
    for (const auto& [name, flags, group, found] : rows)
        EXPECT_EQ(groupOf(name, flags, group), found) << odStringToUtf8(name) << flags;
}

TEST_F(CommandStackTest, RefusesCommandsThatCannotBeFound)
{
    add(L"One", L"A");
    EXPECT_THROW(add(L"ONE", L"a"), OdError);
    EXPECT_THROW(add(L"", L"B"), OdError);
    EXPECT_THROW(add(L"One", L""), OdError);
    EXPECT_THROW(stack->addCommand(nullptr), OdError);
    EXPECT_THROW(stack->executeCommand(static_cast<OdEdCommand*>(nullptr), nullptr), OdError);
    EXPECT_NO_THROW(add(L"Two", L"A"));
}

TEST_F(CommandStackTest, RemovingUncoversTheNextOfThatName)
{
    add(L"One", L"A");
    add(L"Two", L"A");
    EXPECT_TRUE(stack->removeCmd(L"one", L"a"));
    EXPECT_FALSE(stack->removeCmd(L"one", L"a"));
    EXPECT_EQ(groupOf(L"A", 3, L""), "Two");
    EXPECT_TRUE(stack->removeGroup(L"TWO"));
    EXPECT_FALSE(stack->removeGroup(L"TWO"));
    EXPECT_EQ(groupOf(L"A", 3, L""), "none");
}

TEST_F(CommandStackTest, IteratorSeesTheCommandsOfItsTime)
{
    add(L"One", L"A");
    add(L"Two", L"B");
    add(L"One", L"C");
    std::string names;
    const OdRxIteratorPtr all = stack->newIterator();
    for (stack->removeGroup(L"Two"); !all->done(); all->next())
        names += odStringToUtf8(OdEdCommand::cast(all->object())->globalName());
    EXPECT_NE(names.find("ACB"), std::string::npos) << names;
}

TEST_F(CommandStackTest, TellsHowACommandCameToItsEnd)
{
    add(L"One", L"FINE");
    add(L"One", L"CANCEL", [](OdEdCommandContext*) { throw OdEdCancel(); });
    add(L"One", L"EMPTY", [](OdEdCommandContext*) { throw OdEdEmptyInput(); });
    add(L"One", L"FAIL", [](OdEdCommandContext*) { throw OdError(eInvalidInput); });
    add(L"One", L"STD", [](OdEdCommandContext*) { throw std::runtime_error("std"); });
    add(L"One", L"INT", [](OdEdCommandContext*) { throw 7; });
    add(L"One", L"OUTER", [](OdEdCommandContext* context) { odedRegCmds()->executeCommand(L"FAIL", context); });
    add(L"One", L"SWALLOW",
        [](OdEdCommandContext* context)
        {
            try
            {
                odedRegCmds()->executeCommand(L"STD", context);
            }
            catch (const std::exception&)
            {
            }
        });
    const ListenerPtr listener = listen("L");
    const std::pair<const OdChar*, const char*> rows[] = {
        {L"fine", "L:start FINE L:ended FINE "},
        {L"CANCEL", "L:start CANCEL L:cancelled CANCEL threw cancel"},
        {L"EMPTY", "L:start EMPTY L:failed EMPTY threw 3"},
        {L"FAIL", "L:start FAIL L:failed FAIL threw 5"},
        {L"STD", "L:start STD L:failed STD threw std"},
        {L"INT", "L:start INT L:failed INT threw int 7"},
        {L"OUTER", "L:start OUTER L:start FAIL L:failed FAIL L:failed OUTER threw 5"},
        {L"SWALLOW", "L:start SWALLOW L:start STD L:failed STD L:ended SWALLOW "},
        {L"nobody", "L:unknown nobody "},
    };
    for (const auto& [name, log] : rows)
        EXPECT_EQ(runLogged(name), log);
}

TEST_F(CommandStackTest, UnknownCommandsGoToTheFirstListenerThatHasOne)
{
    EXPECT_EQ(runLogged(L"NOBODY"), "threw 904");
    add(L"One", L"FINE");
    const ListenerPtr first = listen("1");
    const ListenerPtr second = listen("2");
    const ListenerPtr third = listen("3");
    second->instead = stack->lookupCmd(L"FINE", 3);
    EXPECT_EQ(runLogged(L"NOBODY"), "1:unknown NOBODY 2:unknown NOBODY 1:start FINE 2:start FINE 3:start FINE "
                                    "1:ended FINE 2:ended FINE 3:ended FINE ");
}

TEST_F(CommandStackTest, ListenersMayLeaveAndJoinWhileTold)
{
    add(L"One", L"FINE");
    const ListenerPtr first = listen("1");
    ListenerPtr second = listen("2");
    ListenerPtr late;
    first->whileTold = [&](const std::string& what)
    {
        if (what != "start")
            return;
        second.release();
        late = listen("late");
    };
    EXPECT_EQ(runLogged(L"FINE"), "1:start FINE 1:ended FINE late:ended FINE ");
}

TEST_F(CommandStackTest, AListenerThatEndsItselfIsAliveUntilItIsTold)
{
    add(L"One", L"FINE");
    ListenerPtr only = listen("1");
    Listener* raw = only.get();
    raw->whileTold = [&](const std::string&) { only.release(); };
    EXPECT_EQ(runLogged(L"FINE"), "1:start FINE ");
}

TEST_F(CommandStackTest, ListenersThatThrow)
{
    add(L"One", L"FINE");
    add(L"One", L"FAIL", [](OdEdCommandContext*) { throw OdError(eInvalidInput); });
    const ListenerPtr first = listen("1");
    const ListenerPtr second = listen("2");
    std::string when;
    first->whileTold = [&](const std::string& what)
    {
        if (what == when)
            throw OdError(eDiskFull);
    };
    when = "start";
    EXPECT_EQ(runLogged(L"FINE"), "1:start FINE 1:failed FINE 2:failed FINE threw 88");
    when = "failed";
    EXPECT_EQ(runLogged(L"FAIL"), "1:start FAIL 2:start FAIL 1:failed FAIL 2:failed FAIL threw 5");
    when = "ended";
    EXPECT_EQ(runLogged(L"FINE"), "1:start FINE 2:start FINE 1:ended FINE threw 88");
}

TEST_F(CommandStackTest, ACommandMayTakeItselfOffTheStack)
{
    add(L"One", L"LAST",
        [](OdEdCommandContext*)
        {
            odedRegCmds()->removeGroup(L"One");
            g_log += "worked ";
        });
    EXPECT_EQ(runLogged(L"LAST"), "worked ");
    EXPECT_EQ(groupOf(L"LAST", 3, L""), "none");
}

} // namespace
