// Attacks the commands of drawing borders: their frame, where they take JSON from, which border they mean, and that a
// refusal leaves nothing behind.
#include "support/PartialContext.h"
#include "support/PluginTest.h"

#include "DbHostAppServices.h"
#include "DbXrecord.h"
#include "DrawingBorderData.h"
#include "StaticRxObject.h"

using namespace plugintest;

namespace
{

constexpr const OdChar* kDefine = L"DEFINEDRAWINGBORDER";
constexpr const OdChar* kDefineLists = L"DEFINEDRAWINGBORDERCOLUMNLINES";
constexpr const OdChar* kGet = L"GETDRAWINGBORDER";
constexpr const OdChar* kGetAll = L"DRAWINGBORDERGETALLIDS";

constexpr const char* kEmpty = R"({"ColumnLinesValid":false,"Columns":[],"Lines":[],"AreaValid":false,)"
                               R"("AreaFirst":{"X":0.0,"Y":0.0,"Z":0.0},"AreaSecond":{"X":0.0,"Y":0.0,"Z":0.0}})";
constexpr const wchar_t* kLists = LR"({"ColumnLinesValid": true, "Columns": ["1"], "Lines": ["A", "B"]})";
constexpr const wchar_t* kArea = LR"({"ColumnLinesValid": false, "Columns": ["no"], "Lines": [], "AreaValid": true,
    "AreaFirst": {"X": 10, "Y": 0}, "AreaSecond": {"Y": 20, "Z": 3}})";
constexpr const wchar_t* kBoth = LR"({"ColumnLinesValid": true, "Columns": ["7"], "Lines": ["Z"], "AreaValid": true,
    "AreaFirst": {"X": 1}, "AreaSecond": {"X": 2}})";

OdResBufPtr json(const OdString& text, const OdChar* name = L"JSON")
{
    return CadCommands::SetParameterOdString(name, text);
}

OdResBufPtr allowDeleted(bool allow = true)
{
    return CadCommands::SetParameterBool(L"ALLOWDELETED", allow);
}

class DrawingBorderCommandsTest : public PluginTest
{
protected:
    DrawingBorderCommandsTest() { db->setAppServices(&services()); }

    static OdDbHostAppServices& services()
    {
        static OdDbHostAppServices theServices;
        return theServices;
    }
    OdDbObjectId addBorder(const OdString& guid, const OdChar* line, bool deleted = false)
    {
        const CDrawingBorderDataPtr border = CDrawingBorderData::createObject();
        const OdDbObjectId id = border->Initialize(db, guid);
        OdStringArray lines;
        lines.append(line);
        border->SetColumnLineIds(lines, lines);
        border->Delete(deleted);
        return id;
    }
    std::string border(const OdResBufPtr& parameters = {}) { return run(kGet, parameters).json(); }
    OdUInt32 count() { return CDrawingBorderData::GetDictionary(db)->numEntries(); }
};

// ---- The frame ------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderCommandsTest, TheFrameNamesWhatIsMissing)
{
    OdStaticRxObject<ContextOfNoDrawing> other;
    OdStaticRxObject<OdEdUserIO> simpleUser;
    OdStaticRxObject<ForeignFunctionIO> foreign;
    const OdDbDatabasePtr bare = OdDbDatabase::createObject();
    bare->initialize();
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", db, host);
    const Fault wrongClass = {39, "OdError_NotThatKindOfClass", "", ""};
    const struct
    {
        const OdChar* command;
        const char* function;
        bool defines;
    } rows[] = {
        {kDefineLists, "CCommandDefineDrawingBorderColumnsLines", true},
        {kDefine, "CCommandDefineDrawingBorder", true},
        {L"DRAWINGBORDERGETDICTIONARYID", "CCommandDrawingBorderGetDictionaryId", false},
        {kGetAll, "CCommandDrawingBorderGetAllIds", false},
        {kGet, "CCommandDrawingBorderGetDrawingBorder", false},
    };
    for (const auto& row : rows)
    {
        const std::string function = std::string(row.function) + "::execute";
        const OdEdCommandPtr command = odedRegCmds()->lookupCmd(row.command, 3);
        OdStaticRxObject<PartialContext> context;
        const auto execute = [&] { return thrownBy([&] { command->execute(&context); }); };
        EXPECT_EQ(thrownBy([&] { command->execute(nullptr); }), argumentFault(417, "pEdCommandContext", function));
        EXPECT_EQ(thrownBy([&] { command->execute(&other); }), wrongClass);
        EXPECT_EQ(execute(), wrongClass);
        context.user = &simpleUser;
        EXPECT_EQ(execute(), wrongClass);
        context.user = handler->userIO();
        EXPECT_EQ(execute(), argumentFault(417, "pFunctionIO", function));
        context.functionIO = &foreign;
        EXPECT_EQ(execute(), argumentFault(417, "pFunctionIO", function));
        context.functionIO = handler->funcIO();
        EXPECT_EQ(execute(), argumentFault(122, "pDb", function));
        if (row.defines)
        {
            context.database = bare;
            EXPECT_EQ(execute(), argumentFault(417, "pHostAppServices", function));
        }
        EXPECT_EQ(bare->numActiveTransactions(), 0);
    }
}

// ---- Finding --------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderCommandsTest, QueriesOfADrawingWithoutBorders)
{
    EXPECT_EQ(border(), kEmpty);
    EXPECT_TRUE(run(kGetAll).ids().empty());
    const OdDbObjectId dictionary = run(L"DRAWINGBORDERGETDICTIONARYID").id();
    EXPECT_EQ(dictionary, CDrawingBorderData::GetDictionary(db)->objectId());
    EXPECT_EQ(count(), 0u);
    EXPECT_FALSE(db->hasUndo());
}

TEST_F(DrawingBorderCommandsTest, BordersComeInTheOrderOfTheDictionary)
{
    const OdDbObjectId gone = addBorder(L"zzzz", L"gone", true);
    const OdDbObjectId second = addBorder(L"bbbb", L"second");
    const OdDbObjectId first = addBorder(L"aaaa", L"first");
    const OdDbObjectId erased = addBorder(L"cccc", L"erased");
    erase(erased);
    const OdDbDictionaryPtr dictionary = CDrawingBorderData::GetDictionary(db);
    dictionary->upgradeOpen();
    dictionary->setAt(L"stranger", OdDbXrecord::createObject());
    dictionary->downgradeOpen();
    EXPECT_EQ(run(kGetAll).ids(), (std::vector{second, first}));
    EXPECT_EQ(run(kGetAll, allowDeleted()).ids(), (std::vector{gone, second, first}));
    EXPECT_EQ(run(kGetAll, chain({json(L"ALLOWDELETED", L"OTHER"), allowDeleted(false)})).ids(),
              (std::vector{second, first}));
    EXPECT_NE(border().find("second"), std::string::npos);
    EXPECT_NE(border(allowDeleted()).find("gone"), std::string::npos);
    for (const OdChar* command : {kGetAll, kGet})
        EXPECT_EQ(run(command, CadCommands::SetParameterInt32(L" 'allowdeleted'", 1)).fault,
                  argumentFault(68, "pResBuf", "CadCommands::ResBufGetBool"));
    run(kDefineLists, json(kLists));
    EXPECT_EQ(CDrawingBorderDataPtr(second.safeOpenObject())->GetLineIds().size(), 2u);
    EXPECT_EQ(CDrawingBorderDataPtr(gone.safeOpenObject())->GetLineIds().size(), 1u);
    EXPECT_EQ(CDrawingBorderDataPtr(first.safeOpenObject())->GetLineIds().size(), 1u);
}

// ---- Defining -------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderCommandsTest, DefinitionsMakeOneBorderAndChangeIt)
{
    run(L"DRAWINGBORDERGETDICTIONARYID");
    EXPECT_EQ(run(kDefineLists, json(kLists)).fault, Fault());
    EXPECT_EQ(border(), R"({"ColumnLinesValid":true,"Columns":["1"],"Lines":["A","B"],"AreaValid":false,)"
                        R"("AreaFirst":{"X":0.0,"Y":0.0,"Z":0.0},"AreaSecond":{"X":0.0,"Y":0.0,"Z":0.0}})");
    const OdDbObjectId id = run(kGetAll).ids().front();
    EXPECT_EQ(CDrawingBorderData::GetDictionary(db)->nameAt(id).getLength(), 36);
    const std::string lists = border();

    const Outcome outcome = run(kDefine, json(kArea));
    EXPECT_FALSE(outcome.result);
    EXPECT_EQ(outcome.flags & 0x30000000u, 0x20000000u | (outcome.flags & 0x10000000u));
    EXPECT_EQ(border(), R"({"ColumnLinesValid":true,"Columns":["1"],"Lines":["A","B"],"AreaValid":true,)"
                        R"("AreaFirst":{"X":0.0,"Y":20.0,"Z":0.0},"AreaSecond":{"X":10.0,"Y":0.0,"Z":3.0}})");

    run(kDefine, json(kBoth));
    EXPECT_EQ(border(), R"({"ColumnLinesValid":true,"Columns":["7"],"Lines":["Z"],"AreaValid":true,)"
                        R"("AreaFirst":{"X":1.0,"Y":0.0,"Z":0.0},"AreaSecond":{"X":2.0,"Y":0.0,"Z":0.0}})");
    run(kDefineLists, json(LR"({"ColumnLinesValid": false, "Columns": [], "Lines": []})"));
    EXPECT_NE(border().find(R"("ColumnLinesValid":true,"Columns":[],"Lines":[])"), std::string::npos);
    EXPECT_EQ(run(kGetAll).ids(), std::vector{id});

    CDrawingBorderDataPtr(id.safeOpenObject(OdDb::kForWrite))->Delete(true);
    EXPECT_EQ(border(), kEmpty);
    run(kDefineLists, json(kLists));
    EXPECT_EQ(count(), 2u);
    EXPECT_EQ(border(), lists);
}

TEST_F(DrawingBorderCommandsTest, JsonIsFoundInTheChain)
{
    const Fault wrongKind = argumentFault(68, "pResBuf", "CadCommands::ResBufGetOdString");
    const Fault noJson = {926, "OdError", "", ""};
    const struct
    {
        OdResBufPtr parameters;
        Fault fault;
    } rows[] = {
        {json(kBoth), {}},
        {json(kBoth, L" 'json'"), {}},
        {json(OdString(L" \t\n\"'") + kBoth + L"'\" "), {}},
        {json(kBoth, L"ANYTHING"), {}},
        {chain({allowDeleted(false), json(kBoth, L"ANYTHING")}), {}},
        {chain({json(L"no JSON", L"FIRST"), json(kBoth)}), {}},
        {chain({json(kBoth), json(L"no JSON", L"SECOND")}), {}},
        {OdResBuf::newRb(5005, kBoth), {}},
        {chain({json(kBoth, L"FIRST"), json(L"no JSON")}), noJson},
        {chain({json(L"no JSON", L"FIRST"), json(kBoth, L"SECOND")}), noJson},
        {allowDeleted(false), noJson},
        {OdResBuf::newRb(1), noJson},
        {OdResBuf::newRb(5005, L"JSON"), noJson},
        {CadCommands::SetParameterBool(L"JSON", true), wrongKind},
    };
    for (const OdChar* command : {kDefine, kDefineLists})
        for (std::size_t i = 0; i < std::size(rows); ++i)
        {
            db->clearUndo();
            const OdUInt32 before = count();
            EXPECT_EQ(run(command, rows[i].parameters).fault, rows[i].fault) << i;
            EXPECT_EQ(count(), before + (rows[i].fault.code == 0)) << i;
            EXPECT_EQ(db->hasUndo(), rows[i].fault.code == 0) << i;
            for (const OdDbObjectId& id : run(kGetAll).ids())
                erase(id);
        }
}

TEST_F(DrawingBorderCommandsTest, TheAreaHasToBeThere)
{
    run(kDefine, json(kBoth));
    const std::string before = border();
    const struct
    {
        const wchar_t* json;
        int code;
        const char* key;
    } rows[] = {
        {LR"({"ColumnLinesValid": false, "Columns": [], "Lines": []})", 925, "AreaValid"},
        {LR"({"ColumnLinesValid": false, "Columns": [], "Lines": [], "AreaValid": false,
              "AreaFirst": {}, "AreaSecond": {}})",
         925, "AreaValid"},
        {LR"({"ColumnLinesValid": false, "Columns": [], "Lines": [], "AreaValid": null})", 925, "AreaValid"},
        {LR"({"ColumnLinesValid": false, "Columns": [], "Lines": [], "AreaValid": true, "AreaSecond": {}})", 925,
         "AreaFirst"},
        {LR"({"ColumnLinesValid": false, "Columns": [], "Lines": [], "AreaValid": true, "AreaFirst": {}})", 925,
         "AreaSecond"},
        {LR"({"AreaValid": true, "AreaFirst": {}, "AreaSecond": {}})", 925, "Columns"},
        {LR"([])", 924, ""},
    };
    for (const auto& row : rows)
    {
        const CCommandHandlerPtr handler = CCommandHandler::createObject(kDefine, db, host);
        handler->funcIO()->setParam(json(row.json));
        handler->Execute();
        EXPECT_EQ(outcomeOf(*handler).fault, (Fault{row.code, "OdError", "", ""}));
        EXPECT_EQ(border(), before);
        EXPECT_EQ(db->numActiveTransactions(), 0);
    }
}

TEST_F(DrawingBorderCommandsTest, ListsAreAskedForWithoutParameters)
{
    host->answers = {kLists};
    EXPECT_EQ(run(kDefineLists).fault, Fault());
    EXPECT_EQ(host->prompts.size(), 1u);
    const std::string lists = border();
    EXPECT_NE(lists.find(R"("Lines":["A","B"])"), std::string::npos);
    EXPECT_EQ(run(OdString(kDefineLists) + L" " + kLists).fault, Fault()) << "the text may come with the command";
    EXPECT_EQ(run(kDefineLists).state, eCommandCancelled);
    host->answers = {L""};
    EXPECT_EQ(run(kDefineLists).fault.code, 926);
    EXPECT_EQ(border(), lists);
}

/// A user who types points, and who is shown what follows the pointer.
class TypingUser : public Host
{
public:
    OdGePoint3d getPoint(const OdString& prompt, int options, OdEdPointTracker* tracker) override
    {
        trackers.push_back(tracker != nullptr);
        throw OdEdOtherInput(getString(prompt, options, nullptr));
    }
    std::vector<bool> trackers;
};

TEST_F(DrawingBorderCommandsTest, TheAreaIsAskedForWithoutParameters)
{
    const struct
    {
        std::deque<OdString> answers;
        ECommandState state;
        const char* area; ///< empty when it stays
        std::vector<bool> trackers;
        std::size_t errors;
    } rows[] = {
        {{L"10,0,5", L"0,20"},
         eCommandEnded,
         R"("AreaFirst":{"X":0.0,"Y":20.0,"Z":0.0},"AreaSecond":{"X":10.0,"Y":0.0,"Z":5.0})",
         {false, true},
         0},
        {{L"here", L"1,1", L"7", L"2,2"},
         eCommandEnded,
         R"("AreaFirst":{"X":1.0,"Y":2.0,"Z":0.0},"AreaSecond":{"X":2.0,"Y":1.0,"Z":0.0})",
         {false, false, true, true},
         2},
        {{}, eCommandCancelled, "", {false}, 0},
        {{L"1,1"}, eCommandCancelled, "", {false, true}, 0},
    };
    for (const auto& row : rows)
    {
        const auto user = OdRxObjectImpl<TypingUser>::createObject();
        host = user.get();
        host->answers = row.answers;
        const std::string before = border();
        EXPECT_EQ(run(kDefine).state, row.state);
        EXPECT_EQ(user->trackers, row.trackers);
        EXPECT_EQ(user->errors.size(), row.errors);
        EXPECT_TRUE(user->answers.empty());
        if (*row.area)
        {
            EXPECT_NE(border().find(row.area), std::string::npos) << border();
        }
        else
        {
            EXPECT_EQ(border(), before);
        }
        EXPECT_EQ(db->numActiveTransactions(), 0);
    }
    EXPECT_EQ(run(OdString(kDefine) + L" 3,3 4,4").state, eCommandEnded) << "the points may come with the command";
    EXPECT_NE(border().find(R"("AreaFirst":{"X":3.0,"Y":4.0,"Z":0.0})"), std::string::npos) << border();
}

TEST_F(DrawingBorderCommandsTest, AStrangerInPlaceOfTheDictionaryOrABorder)
{
    const OdDbDictionaryPtr named = db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite);
    named->setAt(CDrawingBorderData::m_strDictionaryName, OdDbXrecord::createObject());
    db->clearUndo();
    for (const OdChar* command : {kGet, kGetAll, L"DRAWINGBORDERGETDICTIONARYID"})
        EXPECT_EQ(run(command).fault.type, "OdError_NotThatKindOfClass");
    EXPECT_EQ(run(kDefine, json(kBoth)).fault.type, "OdError_NotThatKindOfClass");
    EXPECT_FALSE(db->hasUndo());
}

} // namespace
