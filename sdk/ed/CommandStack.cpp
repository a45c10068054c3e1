// Runs commands and tells listeners what becomes of them.
#include "Ed/EdCommandStack.h"

#include <algorithm>

#include "Ed/EdException.h"
#include "RxObjectImpl.h"
#include "ed/CommandStackImpl.h"
#include "ed/CommandTable.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdEdCommandStack, OdRxObject)

namespace
{

/** A command made of a function. */
class FunctionCommand : public OdEdCommand
{
public:
    FunctionCommand(const OdString& groupName, const OdString& globalName, const OdString& localName, OdUInt32 flags,
                    OdEdCommandFunction* function)
        : m_groupName(groupName), m_globalName(globalName), m_localName(localName), m_flags(flags), m_function(function)
    {
    }

    OdString groupName() const override { return m_groupName; }
    OdString globalName() const override { return m_globalName; }
    OdString localName() const override { return m_localName.isEmpty() ? m_globalName : m_localName; }
    OdUInt32 flags() const override { return m_flags; }
    void execute(OdEdCommandContext* context) override { m_function(context); }

private:
    OdString m_groupName;
    OdString m_globalName;
    OdString m_localName;
    OdUInt32 m_flags;
    OdEdCommandFunction* m_function;
};

class CommandIterator : public OdRxIterator
{
public:
    explicit CommandIterator(std::vector<OdEdCommandPtr> commands) : m_commands(std::move(commands)) {}

    bool done() const override { return m_position == m_commands.size(); }
    bool next() override
    {
        if (!done())
            ++m_position;
        return !done();
    }
    OdRxObjectPtr object() const override { return done() ? OdRxObjectPtr() : OdRxObjectPtr(m_commands[m_position]); }

private:
    std::vector<OdEdCommandPtr> m_commands;
    std::size_t m_position = 0;
};

class CommandStack : public OdEdCommandStack
{
public:
    void addReactor(OdEdCommandStackReactor* reactor) override;
    void removeReactor(OdEdCommandStackReactor* reactor) override
    {
        std::erase_if(m_reactors, [reactor](const Attached& attached) { return attached.reactor == reactor; });
    }

    void addCommand(OdEdCommand* command) override { m_commands.add(command); }
    OdEdCommandPtr addCommand(const OdString& groupName, const OdString& globalName, const OdString& localName,
                              OdUInt32 flags, OdEdCommandFunction* function) override;
    OdEdCommandPtr lookupCmd(const OdString& commandName, OdUInt32 lookupFlags,
                             const OdString& groupName) const override
    {
        return m_commands.find(commandName, lookupFlags & kGlobal, lookupFlags & kLocal, groupName);
    }
    bool removeCmd(const OdEdCommand* command) override { return m_commands.remove(command); }
    bool removeCmd(const OdString& groupName, const OdString& globalName) override
    {
        return m_commands.remove(groupName, globalName);
    }
    bool removeGroup(const OdString& groupName) override { return m_commands.removeGroup(groupName); }
    OdRxIteratorPtr newIterator() const override
    {
        return OdRxObjectImpl<CommandIterator, OdRxIterator>::createObject(m_commands.all());
    }

    void executeCommand(OdEdCommand* command, OdEdCommandContext* context) override;
    void executeCommand(const OdString& commandName, OdEdCommandContext* context) override;

private:
    using Event = void (OdEdCommandStackReactor::*)(OdEdCommand*, OdEdCommandContext*);

    template<class Tell>
    void forEachReactor(Tell tell) const;
    void tell(Event event, OdEdCommand* command, OdEdCommandContext* context) const;
    void tellOfFailure(Event event, OdEdCommand* command, OdEdCommandContext* context) const noexcept;
    void runCommand(OdEdCommand* command, OdEdCommandContext* context) const;
    OdEdCommandPtr askForUnknown(const OdString& commandName, OdEdCommandContext* context) const;

    /** A listener, numbered in the order in which they came. */
    struct Attached
    {
        OdEdCommandStackReactor* reactor;
        OdUInt64 number;
    };

    oded::CommandTable m_commands;
    std::vector<Attached> m_reactors;
    OdUInt64 m_nextNumber = 0;
};

void CommandStack::addReactor(OdEdCommandStackReactor* reactor)
{
    if (!reactor)
        throw OdError(eNullPtr);
    if (std::none_of(m_reactors.begin(), m_reactors.end(),
                     [reactor](const Attached& attached) { return attached.reactor == reactor; }))
        m_reactors.push_back({reactor, m_nextNumber++});
}

OdEdCommandPtr CommandStack::addCommand(const OdString& groupName, const OdString& globalName,
                                        const OdString& localName, OdUInt32 flags, OdEdCommandFunction* function)
{
    if (!function)
        throw OdError(eNullPtr);
    OdEdCommandPtr command =
        OdRxObjectImpl<FunctionCommand, OdEdCommand>::createObject(groupName, globalName, localName, flags, function);
    m_commands.add(command);
    return command;
}

// Listeners may come and go while they are told. Their numbers ascend: this goes on behind the one that was told last,
// and ends in front of those that came meanwhile.
template<class Tell>
void CommandStack::forEachReactor(Tell tell) const
{
    const OdUInt64 end = m_nextNumber;
    for (OdUInt64 next = 0; next < end;)
    {
        const auto attached = std::ranges::lower_bound(m_reactors, next, {}, &Attached::number);
        if (attached == m_reactors.end() || attached->number >= end)
            return;
        next = attached->number + 1;
        tell(OdEdCommandStackReactorPtr(attached->reactor));
    }
}

void CommandStack::tell(Event event, OdEdCommand* command, OdEdCommandContext* context) const
{
    forEachReactor([&](const OdEdCommandStackReactorPtr& reactor) { (reactor.get()->*event)(command, context); });
}

void CommandStack::tellOfFailure(Event event, OdEdCommand* command, OdEdCommandContext* context) const noexcept
{
    forEachReactor(
        [&](const OdEdCommandStackReactorPtr& reactor)
        {
            try
            {
                (reactor.get()->*event)(command, context);
            }
            catch (...)
            {
                // What went wrong with the command matters more to its caller.
            }
        });
}

void CommandStack::runCommand(OdEdCommand* command, OdEdCommandContext* context) const
{
    tell(&OdEdCommandStackReactor::commandWillStart, command, context);
    command->execute(context);
}

void CommandStack::executeCommand(OdEdCommand* command, OdEdCommandContext* context)
{
    if (!command)
        throw OdError(eNullPtr);
    const OdEdCommandPtr kept = command;
    const OdEdCommandStackPtr keptStack = this;
    try
    {
        runCommand(command, context);
    }
    catch (const OdEdCancel&)
    {
        tellOfFailure(&OdEdCommandStackReactor::commandCancelled, command, context);
        throw;
    }
    catch (...)
    {
        tellOfFailure(&OdEdCommandStackReactor::commandFailed, command, context);
        throw;
    }
    tell(&OdEdCommandStackReactor::commandEnded, command, context);
}

OdEdCommandPtr CommandStack::askForUnknown(const OdString& commandName, OdEdCommandContext* context) const
{
    if (m_reactors.empty())
        throw OdError(eUnknownCommand);
    OdEdCommandPtr command;
    forEachReactor(
        [&](const OdEdCommandStackReactorPtr& reactor)
        {
            if (!command)
                command = reactor->unknownCommand(commandName, context);
        });
    return command;
}

void CommandStack::executeCommand(const OdString& commandName, OdEdCommandContext* context)
{
    OdEdCommandPtr command = m_commands.find(commandName, true, true, OdString());
    if (!command)
        command = askForUnknown(commandName, context);
    if (command)
        executeCommand(command.get(), context);
}

OdEdCommandStackPtr& programStack()
{
    static auto* const stack = new OdEdCommandStackPtr;
    return *stack;
}

} // namespace

namespace oded
{

void createCommandStack()
{
    programStack() = OdRxObjectImpl<CommandStack, OdEdCommandStack>::createObject();
}

void releaseCommandStack()
{
    programStack().release();
}

} // namespace oded

OdEdCommandStackPtr odedRegCmds()
{
    return programStack();
}
