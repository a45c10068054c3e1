// Attacks the running of command strings: names, macros, failures at every depth, and what is undone when.
#include "support/PluginTest.h"

#include <stdexcept>

using namespace plugintest;

namespace
{

constexpr const OdChar* kGroup = L"Test";

std::string g_heard; ///< what the commands of the test did

void hear(const char* text)
{
    g_heard += std::string(text) + " ";
}

OdDbDatabase* databaseOf(OdEdCommandContext* context)
{
    return OdDbCommandContext::cast(context)->database();
}

void addPoint(OdEdCommandContext* context)
{
    OdDbDatabase* db = databaseOf(context);
    const OdDbBlockTableRecordPtr space = db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
    space->appendOdDbEntity(OdDbLine::createObject());
}

void change(OdEdCommandContext* context)
{
    hear("change");
    addPoint(context);
}

void ask(OdEdCommandContext* context)
{
    hear(("[" + odStringToUtf8(context->userIO()->getString(L"What?")) + "]").c_str());
}

void fail(OdEdCommandContext* context)
{
    addPoint(context);
    throw OdError_InvalidValue(eInvalidInput, L"x", L"fail");
}

void failInTransactions(OdEdCommandContext* context)
{
    OdDbDatabase* db = databaseOf(context);
    db->startTransaction();
    addPoint(context);
    db->startTransaction();
    addPoint(context);
    throw std::runtime_error("standard");
}

void swallow(OdEdCommandContext* context)
{
    addPoint(context);
    const OdDbCommandContextPtr drawing = OdDbCommandContext::cast(context);
    drawing->database()->startTransaction();
    try
    {
        CadCommands::Execute(drawing, L"T_FAIL", kGroup, OdResBufPtr());
    }
    catch (const OdError&)
    {
        hear("swallowed");
    }
    addPoint(context);
    drawing->database()->endTransaction();
}

void cancelHandler(OdEdCommandContext* context)
{
    CCommandHandler::cast(context)->Cancel();
}

class HandlerTest : public PluginTest
{
protected:
    HandlerTest()
    {
        g_heard.clear();
        const std::tuple<const OdChar*, OdUInt32, OdEdCommandFunction*> rows[] = {
            {L"T_CHANGE", 0x40, &change},
            {L"T_QUIETCHANGE", 0x01000000, &change},
            {L"T_ASK", 0x80, &ask},
            {L"T_FAIL", 0, &fail},
            {L"T_FAILDEEP", 0, &failInTransactions},
            {L"T_CANCEL", 0, [](OdEdCommandContext*) { throw OdEdCancel(); }},
            {L"T_EMPTY", 0, [](OdEdCommandContext*) { throw OdEdEmptyInput(); }},
            {L"T_NUMBER", 0, [](OdEdCommandContext*) { throw 7; }},
            {L"T_OK", 0, [](OdEdCommandContext*) { throw OdError(eOk); }},
            {L"T_SWALLOW", 0, &swallow},
            {L"T_STOP", 0, &cancelHandler},
            {L"T_NEST", 0, [](OdEdCommandContext* context) { odedRegCmds()->executeCommand(L"T_CHANGE", context); }},
            {L"T_NESTUNKNOWN", 0, [](OdEdCommandContext* context) { odedRegCmds()->executeCommand(L"T_NO", context); }},
        };
        for (const auto& [name, flags, work] : rows)
            odedRegCmds()->addCommand(kGroup, name, L"", flags, work);
    }
    ~HandlerTest() override { odedRegCmds()->removeGroup(kGroup); }

    int countEntities()
    {
        int count = 0;
        const OdDbBlockTableRecordPtr space = db->getModelSpaceId().safeOpenObject();
        for (OdDbObjectIteratorPtr entity = space->newIterator(); !entity->done(); entity->step())
            ++count;
        return count;
    }
};

TEST_F(HandlerTest, InitRefusesWhatIsMissing)
{
    const std::string function = "CCommandHandler::Init";
    const auto init = [&](const OdChar* command, OdRxObject* database, CCommandHandlerCallback* callback)
    { return thrownBy([&] { CCommandHandler::createObject(command, database, callback); }); };
    EXPECT_EQ(init(L"", nullptr, nullptr), argumentFault(904, "strCommand", function));
    EXPECT_EQ(init(L"X", nullptr, nullptr), argumentFault(122, "pDb", function));
    EXPECT_EQ(init(L"X", db.get(), nullptr), argumentFault(417, "pCallback", function));
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", static_cast<OdRxObject*>(host.get()), host);
    EXPECT_EQ(thrownBy([&] { handler->Execute(); }), valueFault(122, "pDb", "CCommandHandler::Execute"));
}

TEST_F(HandlerTest, StatesFlagsAndErrorsOfRuns)
{
    const struct
    {
        const OdChar* command;
        ECommandState state;
        int code;
        OdUInt32 flags;
        const char* heard;
        bool undo; ///< whether there is something to undo afterwards
    } rows[] = {
        {L"T_CHANGE", eCommandEnded, 0, 0x40, "change ", true},
        {L"t_change", eCommandEnded, 0, 0x40, "change ", true},
        {L"T_QUIETCHANGE", eCommandEnded, 0, 0x01000000, "change ", false},
        {L"T_NEST", eCommandEnded, 0, 0x40, "change ", true},
        {L"T_NO", eCommandNone, 904, 0, "", false},
        {L" T_CHANGE", eCommandNone, 904, 0, "", false},
        {L"   ", eCommandNone, 904, 0, "", false},
        {L"T_CHANGE \t\r\n ", eCommandEnded, 0, 0x40, "change ", true},
        {L"T_ASK answer", eCommandEnded, 0, 0x80, "[answer] ", false},
        {L"T_ASK \"two words\"", eCommandEnded, 0, 0x80, "[two words] ", false},
        {L"T_ASK \"\" T_ASK {\"a\": \"} ]\"} t_change", eCommandEnded, 0, 0xC0, "[] [{\"a\": \"} ]\"}] change ", true},
        {L"T_ASK", eCommandEnded, 0, 0x80, "[from host] ", false},
        {L"T_ASK  T_ASK", eCommandEnded, 0, 0x80, "[T_ASK] ", false},
        {L"T_CHANGE T_CHANGE", eCommandEnded, 0, 0x40, "change change ", true},
        {L"T_NO T_CHANGE", eCommandNone, 904, 0, "", false},
        {L"T_CHANGE T_NO T_CHANGE", eCommandFailed, 904, 0x40, "change ", false},
        {L"T_CHANGE \"\" T_CHANGE", eCommandFailed, 904, 0x40, "change ", false},
        {L"T_FAIL", eCommandFailed, 5, 0, "", false},
        {L"T_CHANGE T_FAIL T_CHANGE", eCommandFailed, 5, 0x40, "change ", false},
        {L"T_FAILDEEP", eCommandFailed, 3, 0, "", false},
        {L"T_NUMBER", eCommandFailed, 3, 0, "", false},
        {L"T_OK", eCommandFailed, 3, 0, "", false},
        {L"T_EMPTY", eCommandFailed, 3, 0, "", false},
        {L"T_CANCEL", eCommandCancelled, 0, 0, "", false},
        {L"T_CHANGE T_CANCEL T_CHANGE", eCommandCancelled, 0, 0x40, "change ", false},
        {L"T_SWALLOW", eCommandCancelled, 0, 0, "swallowed ", false},
        {L"T_CHANGE T_SWALLOW T_CHANGE", eCommandCancelled, 0, 0x40, "change swallowed ", false},
        {L"T_STOP T_CHANGE", eCommandCancelled, 0, 0, "", false},
        {L"T_NESTUNKNOWN", eCommandCancelled, 904, 0, "", false},
    };
    for (const auto& row : rows)
    {
        const std::string name = odStringToUtf8(row.command);
        db->clearUndo();
        g_heard.clear();
        host->messages.clear();
        host->answers = {L"from host"};
        const int before = countEntities();
        const Outcome outcome = run(row.command);
        EXPECT_EQ(outcome.state, row.state) << name;
        EXPECT_EQ(outcome.fault.code, row.code) << name;
        EXPECT_EQ(outcome.flags, row.flags) << name;
        EXPECT_EQ(g_heard, row.heard) << name;
        EXPECT_EQ(host->messages.size(), 1u) << name;
        EXPECT_EQ(db->hasUndo(), row.undo) << name;
        EXPECT_FALSE(db->hasRedo()) << name;
        EXPECT_EQ(db->numActiveTransactions(), 0) << name;
        EXPECT_FALSE(db->undoRecordingDisabled()) << name;
        if (row.state != eCommandEnded)
        {
            EXPECT_EQ(countEntities(), before) << name;
        }
    }
}

TEST_F(HandlerTest, AFailedRunLeavesEarlierRunsAndRedoAlone)
{
    run(L"T_CHANGE");
    run(L"T_CHANGE");
    const int before = countEntities();
    db->undo();
    for (const OdChar* failing : {L"T_FAIL", L"T_FAILDEEP", L"T_CHANGE T_CANCEL", L"T_NO"})
    {
        run(failing);
        EXPECT_EQ(countEntities(), before - 1) << odStringToUtf8(failing);
        EXPECT_TRUE(db->hasRedo()) << odStringToUtf8(failing);
    }
    db->redo();
    EXPECT_EQ(countEntities(), before);
    db->undo();
    db->undo();
    EXPECT_EQ(countEntities(), before - 2);
    EXPECT_FALSE(db->hasUndo());
}

TEST_F(HandlerTest, WithoutUndoThereIsNothingToTakeBack)
{
    run(L"T_CHANGE");
    const int before = countEntities();
    run(L"T_QUIETCHANGE T_FAIL");
    EXPECT_FALSE(db->undoRecordingDisabled());
    EXPECT_EQ(countEntities(), before + 2);
    EXPECT_TRUE(db->hasUndo());
    db->undo();
    EXPECT_EQ(countEntities(), before + 1);
}

TEST_F(HandlerTest, AFailedRunLeavesATransactionOfAnEarlierRunAsItWas)
{
    run(L"T_CHANGE");
    const int before = countEntities();
    run(L"TRANSACTIONSTART");
    ASSERT_EQ(db->numActiveTransactions(), 1);
    run(L"T_CHANGE");
    EXPECT_EQ(run(L"T_FAIL").state, eCommandFailed);
    EXPECT_EQ(run(L"T_FAILDEEP").state, eCommandFailed);
    EXPECT_EQ(run(L"T_CHANGE T_FAIL").state, eCommandFailed);
    EXPECT_EQ(run(L"T_CHANGE TRANSACTIONSTART T_CHANGE T_FAIL").state, eCommandFailed);
    EXPECT_EQ(db->numActiveTransactions(), 1);
    EXPECT_EQ(countEntities(), before + 1) << "what failed is taken back, the rest of the transaction stays";
    run(L"TRANSACTIONABORT");
    EXPECT_EQ(countEntities(), before);
    db->undo();
    EXPECT_EQ(countEntities(), before - 1);
}

TEST_F(HandlerTest, TransactionsThatAFailedRunLeftOpenAreAborted)
{
    const int before = countEntities();
    EXPECT_EQ(run(L"T_CHANGE TRANSACTIONSTART T_CHANGE T_FAIL").state, eCommandFailed);
    EXPECT_EQ(db->numActiveTransactions(), 0);
    EXPECT_EQ(countEntities(), before);
}

TEST_F(HandlerTest, TheErrorNamesWhereItWasThrown)
{
    EXPECT_EQ(run(L"T_FAIL").fault, valueFault(5, "x", "fail"));
    EXPECT_EQ(run(L"T_FAIL").result, nullptr);
    host->messages.clear();
    run(L"T_NO");
    run(L" ");
    EXPECT_EQ(host->messages, (std::vector<std::string>{
                                  "There is no command \"T_NO\". Command \"T_NO\" did not succeed.",
                                  "There is no command \"\". Command \"\" did not succeed.",
                              }));
}

TEST_F(HandlerTest, PartsOfTheCommandString)
{
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"zoom\t \"all of it\" ", db, host);
    EXPECT_EQ(handler->GetCommand(), L"zoom\t \"all of it\" ");
    EXPECT_EQ(handler->GetCommandName(), L"ZOOM");
    EXPECT_EQ(handler->GetMacro(), L"\"all of it\" ");
    handler->Cancel();
    handler->Execute();
    EXPECT_EQ(outcomeOf(*handler).state, eCommandCancelled);
}

// ---- Transactions and applications ----------------------------------------------------------------------------------

TEST_F(HandlerTest, TransactionsThatAreNotOpenEndInPeace)
{
    for (const OdChar* command : {L"TRANSACTIONEND", L"TRANSACTIONABORT"})
    {
        EXPECT_EQ(run(command).state, eCommandEnded);
        EXPECT_EQ(db->numActiveTransactions(), 0);
    }
}

std::vector<std::string> applicationsOf(OdDbDatabase& db)
{
    std::vector<std::string> names;
    const OdDbSymbolTablePtr table = db.getRegAppTableId().safeOpenObject();
    for (OdDbSymbolTableIteratorPtr record = table->newIterator(); !record->done(); record->step())
        names.push_back(odStringToUtf8(record->getRecord()->getName()));
    return names;
}

TEST_F(HandlerTest, RegistersApplications)
{
    const std::vector<std::string> before = applicationsOf(*db);
    // Parameters and the application that they add, empty for none.
    const std::pair<OdResBufPtr, const char*> rows[] = {
        {OdResBuf::newRb(5005, L"OTHER"), "terraSHAPING"},
        {OdResBuf::newRb(5005, L"NAME"), ""},
        {CadCommands::SetParameterOdString(L"OTHER", L"NAME"), ""},
        {CadCommands::SetParameterOdString(L" 'name'", L"\t 'Mixed Case' \n"), "Mixed Case"},
        {CadCommands::SetParameterOdString(L"NAME", L"MIXED CASE"), ""},
        {CadCommands::SetParameterOdString(L"NAME", L" \"\" "), ""},
    };
    std::vector<std::string> expected = before;
    for (const auto& [parameters, added] : rows)
    {
        EXPECT_EQ(run(L"REGISTERCUSTOMAPPLICATION", parameters).state, eCommandEnded);
        if (*added)
            expected.push_back(added);
        EXPECT_EQ(applicationsOf(*db), expected);
    }
    EXPECT_FALSE(db->hasUndo());
    host->answers = {L"\"asked\" "};
    EXPECT_EQ(run(L"REGISTERCUSTOMAPPLICATION").state, eCommandEnded);
    EXPECT_EQ(applicationsOf(*db).back(), "asked");
    EXPECT_EQ(run(L"REGISTERCUSTOMAPPLICATION").state, eCommandCancelled);
    EXPECT_EQ(db->numActiveTransactions(), 0);
    EXPECT_EQ(run(L"REGISTERCUSTOMAPPLICATION", CadCommands::SetParameterInt32(L"NAME", 1)).fault,
              argumentFault(68, "pResBuf", "CadCommands::ResBufGetOdString"));
}

} // namespace
