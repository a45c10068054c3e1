// The frame of the host's commands.
#include "commands/HostCommand.h"

#include <memory>
#include <vector>

#include "DbCommandContext.h"
#include "Ed/EdCommandStack.h"
#include "OdError.h"
#include "StaticRxObject.h"
#include "commands/CommandTable.h"

namespace hostcommands
{

namespace
{

// Ends a transaction that was not ended as one that failed.
class Transaction
{
public:
    Transaction(OdDbDatabase& database, bool isWanted) : m_database(isWanted ? &database : nullptr)
    {
        if (m_database != nullptr)
            m_database->startTransaction();
    }
    ~Transaction()
    {
        if (m_database != nullptr)
            m_database->abortTransaction();
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void end()
    {
        if (m_database != nullptr)
            std::exchange(m_database, nullptr)->endTransaction();
    }

private:
    OdDbDatabase* m_database;
};

class HostCommand : public OdEdCommand
{
public:
    explicit HostCommand(const CommandRow& row) : m_row(row), m_group(row.group), m_name(row.name) {}

    OdString groupName() const override { return m_group; }
    OdString globalName() const override { return m_name; }
    OdUInt32 flags() const override { return m_row.flags; }

    void execute(OdEdCommandContext* context) override
    {
        OdDbCommandContext* const drawingContext = OdDbCommandContext::cast(context).get();
        if (drawingContext == nullptr)
            throw OdError(eNullPtr, OdString(L"the command ") + m_row.name + L" runs on a drawing only");
        OdDbDatabase* const database = drawingContext->database();
        if (database == nullptr)
            throw OdError(eNoDatabase);
        OdEdFunctionIO* const io = drawingContext->funcIO();
        if (io == nullptr)
            throw OdError(eNullPtr, OdString(L"the command ") + m_row.name + L" has no place for its results");
        const OdResBufPtr parameters = OdResBuf::cast(io->param());
        CommandRun run{*database, Parameters(parameters), drawingContext->dbUserIO(), Results()};
        Transaction transaction(*database, (m_row.flags & kInTransaction) != 0);
        m_row.run(run);
        transaction.end();
        io->setResult(run.results.chain());
    }

private:
    const CommandRow& m_row;
    const OdString m_group;
    const OdString m_name;
};

std::vector<std::unique_ptr<OdStaticRxObject<HostCommand>>>& commands()
{
    static std::vector<std::unique_ptr<OdStaticRxObject<HostCommand>>> all;
    return all;
}

} // namespace

OdDbUserIO& CommandRun::requireUser() const
{
    if (user == nullptr)
        throw OdError(eNullPtr, OdString(L"there is nobody to ask"));
    return *user;
}

void registerHostCommands()
{
    for (const CommandRow& row : commandTable())
    {
        auto command = std::make_unique<OdStaticRxObject<HostCommand>>(row);
        odedRegCmds()->addCommand(command.get());
        commands().push_back(std::move(command));
    }
}

void unregisterHostCommands()
{
    for (const auto& command : commands())
        odedRegCmds()->removeCmd(command.get());
    commands().clear();
}

} // namespace hostcommands
