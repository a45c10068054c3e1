// Attacks the label commands: queries with erased labels and values of wrong kinds, creation with markers and failing
// hosts, the choice that users make.
#include "support/PluginTest.h"

#include <chrono>

using namespace plugintest;

namespace
{

OdResBufPtr allowDeleted()
{
    return CadCommands::SetParameterBool(L"ALLOWDELETED", true);
}

OdResBufPtr text(const OdChar* name, const OdString& value)
{
    return CadCommands::SetParameterOdString(name, value);
}

class LabelCommandsTest : public PluginTest
{
protected:
    void select(const OdChar* name, const std::vector<OdDbObjectId>& members)
    {
        const OdDbSelectionSetPtr selection = OdDbSelectionSet::createObject(db);
        selection->append(idArray(members));
        HostCommands::get().selections[name] = selection;
    }
    OdDbObjectId find(const OdChar* command, const OdResBufPtr& parameters)
    {
        const Outcome outcome = run(command, parameters);
        EXPECT_EQ(outcome.state, eCommandEnded) << outcome.fault;
        return outcome.id();
    }
    std::string textOf(OdDbObjectId label) { return odStringToUtf8(openLabel(label)->GetLabel()); }
};

/// A drawing with three labels, one of them erased, and something among them that is none.
class LabelQueriesTest : public LabelCommandsTest
{
protected:
    LabelQueriesTest()
        : lines(addLines(4)), c(addLabel({lines[2]}, L"ABC", L"cccc")), a(addLabel({lines[0]}, L"abc", L"aaaa")),
          gone(addLabel({lines[1]}, L"gone", L"bbbb"))
    {
        erase(gone);
        const OdDbDictionaryPtr dictionary = CBSystemLabel::GetDictionary(db);
        dictionary->upgradeOpen();
        dictionary->setAt(L"stranger", OdDbDictionary::createObject());
    }

    std::vector<OdDbObjectId> lines;
    OdDbObjectId c, a, gone;
};

TEST_F(LabelQueriesTest, SingleLabelsAreFoundByWhatIsKnownOfThem)
{
    const OdDbObjectId none;
    const OdString handle = a.getHandle().ascii();
    const std::tuple<const OdChar*, OdResBufPtr, OdDbObjectId> rows[] = {
        {L"BSYSTEMLABELGETIDFROMGUID", text(L"GUID", L" 'AAAA'\n"), a},
        {L"BSYSTEMLABELGETIDFROMGUID", text(L"guid", L"cccc"), c},
        {L"BSYSTEMLABELGETIDFROMGUID", text(L"GUID", L"bbbb"), none},
        {L"BSYSTEMLABELGETIDFROMGUID", chain({allowDeleted(), text(L"GUID", L"bbbb")}), gone},
        {L"BSYSTEMLABELGETIDFROMGUID", text(L"GUID", L"dddd"), none},
        {L"BSYSTEMLABELGETIDFROMGUID", text(L"GUID", L""), none},
        {L"BSYSTEMLABELGETIDFROMGUID", OdResBufPtr(), none},
        {L"BSYSTEMLABELGETIDFROMGUID", chain({text(L"OTHER", L"x"), text(L"GUID", L"aaaa")}), a},
        {L"BSYSTEMLABELGETIDFROMGUID", chain({text(L"OTHER", L"GUID"), text(L"GUID", L"aaaa")}), a},
        {L"BSYSTEMLABELGETIDFROMGUID", chain({text(L"OTHER", L"ALLOWDELETED"), text(L"GUID", L"bbbb")}), none},
        {L"BSYSTEMLABELGETIDFROMGUID", chain({ids({}), text(L"GUID", L"aaaa")}), a},
        {L"BSYSTEMLABELGETIDFROMGUID", chain({ids({lines[0], lines[1]}), text(L"GUID", L"aaaa")}), a},
        {L"BSYSTEMLABELGETIDFROMGUID", chain({OdResBuf::newRb(290, true), text(L"GUID", L"aaaa")}), a},
        {L"BSYSTEMLABELGETIDFROMHANDLE", text(L"HANDLE", L"\t\"" + handle + L"\" "), a},
        {L"BSYSTEMLABELGETIDFROMHANDLE", text(L"HANDLE", lines[0].getHandle().ascii()), none},
        {L"BSYSTEMLABELGETIDFROMHANDLE", text(L"HANDLE", gone.getHandle().ascii()), none},
        {L"BSYSTEMLABELGETIDFROMHANDLE", chain({text(L"HANDLE", gone.getHandle().ascii()), allowDeleted()}), gone},
        {L"BSYSTEMLABELGETIDFROMHANDLE", text(L"HANDLE", L"xyz"), none},
        {L"BSYSTEMLABELGETIDFROMHANDLE", text(L"HANDLE", L"FFFFFFFFFFFFFFFFFFFF"), none},
        {L"BSYSTEMLABELGETIDFROMHANDLE", text(L"HANDLE", L""), none},
        {L"BSYSTEMLABELGETIDFROMNAME", text(L"NAME", L" 'ABC' "), a},
        {L"BSYSTEMLABELGETIDFROMNAME", text(L"NAME", L"GONE"), none},
        {L"BSYSTEMLABELGETIDFROMNAME", chain({text(L"NAME", L"GONE"), allowDeleted()}), gone},
        {L"BSYSTEMLABELGETIDFROMNAME", text(L"NAME", L"ab"), none},
    };
    for (const auto& [command, parameters, found] : rows)
        EXPECT_EQ(find(command, parameters), found) << odStringToUtf8(command);
    EXPECT_TRUE(db->getOdDbObjectId(OdDbHandle(0xFFFFF)).isNull());
}

TEST_F(LabelQueriesTest, SelectedLabelsComeInTheOrderOfTheSelection)
{
    select(L"MINE", {c, lines[0], gone, a});
    EXPECT_EQ(run(L"BSYSTEMLABELGETSELECTEDIDS", text(L"SELECTIONSETNAME", L"MINE")).ids(), (std::vector{c, a}));
    EXPECT_EQ(run(L"BSYSTEMLABELGETSELECTEDIDS", chain({text(L"SELECTIONSETNAME", L"MINE"), allowDeleted()})).ids(),
              (std::vector{c, gone, a}));
    EXPECT_EQ(run(L"BSYSTEMLABELGETSELECTEDIDS", text(L"SELECTIONSETNAME", L"NONE")).fault,
              valueFault(20, "pDbSelectionSet", "CCommandBSystemLabelGetSelectedIds::execute"));
}

TEST_F(LabelQueriesTest, NamesAsJson)
{
    EXPECT_EQ(run(L"BSYSTEMLABELGETALLNAMES").json(), "[\"abc\",\"ABC\"]");
    EXPECT_EQ(run(L"BSYSTEMLABELGETALLNAMES", allowDeleted()).json(), "[\"abc\",\"gone\",\"ABC\"]");
    EXPECT_EQ(run(L"BSYSTEMLABELGETALLNAMES", ids({})).json(), "[]");
    EXPECT_EQ(run(L"BSYSTEMLABELGETALLNAMES", ids({c, gone, OdDbObjectId(), a})).json(), "[\"ABC\",\"abc\"]");
    EXPECT_EQ(run(L"BSYSTEMLABELGETALLNAMES", chain({ids({c, gone}), allowDeleted()})).json(), "[\"ABC\",\"gone\"]");
    EXPECT_EQ(run(L"BSYSTEMLABELGETALLNAMES", ids({a, lines[0]})).fault.type, "OdError_NotThatKindOfClass");
}

TEST_F(LabelQueriesTest, WrongKindsOfValuesAreRefusedAndUnknownNamesPassedOver)
{
    const Fault notBool = argumentFault(68, "pResBuf", "CadCommands::ResBufGetBool");
    const Fault notText = argumentFault(68, "pResBuf", "CadCommands::ResBufGetOdString");
    const Fault notId = argumentFault(68, "pResBuf", "CadCommands::ResBufGetObjectId");
    const auto number = [](const OdChar* name) { return CadCommands::SetParameterInt32(name, 1); };
    const std::tuple<const OdChar*, OdResBufPtr, Fault> rows[] = {
        {L"BSYSTEMLABELGETALLIDS", text(L"ALLOWDELETED", L"true"), notBool},
        {L"BSYSTEMLABELGETALLIDS", number(L"allowdeleted"), notBool},
        {L"BSYSTEMLABELGETALLIDS", number(L"NAME"), {}},
        {L"BSYSTEMLABELGETIDFROMNAME", number(L"NAME"), notText},
        {L"BSYSTEMLABELGETIDFROMNAME", number(L"GUID"), {}},
        {L"BSYSTEMLABELGETIDFROMGUID", number(L"GUID"), notText},
        {L"BSYSTEMLABELGETIDFROMHANDLE", number(L"HANDLE"), notText},
        {L"BSYSTEMLABELGETSELECTEDIDS", number(L"SELECTIONSETNAME"), notText},
        {L"BSYSTEMLABELGETDICTIONARYID", number(L"ALLOWDELETED"), {}},
        {L"BSYSTEMLABELGETALLNAMES", number(L"OBJECTIDARRAY"), {}},
        {L"BSYSTEMLABELCREATE", number(L"OBJECTID"), notId},
    };
    for (const auto& [command, parameters, fault] : rows)
        EXPECT_EQ(run(command, parameters).fault, fault) << odStringToUtf8(command);
}

TEST_F(LabelCommandsTest, QueriesOfADrawingWithoutLabels)
{
    EXPECT_TRUE(run(L"BSYSTEMLABELGETALLIDS").ids().empty());
    const OdDbObjectId dictionary = run(L"BSYSTEMLABELGETDICTIONARYID").id();
    EXPECT_EQ(dictionary, CBSystemLabel::GetDictionary(db)->objectId());
    EXPECT_EQ(run(L"BSYSTEMLABELGETALLNAMES").json(), "[]");
    EXPECT_EQ(run(L"BSYSTEMLABELTOJSON", ids({})).json(), "[]");
    EXPECT_FALSE(db->hasUndo());
}

// ---- The choice -----------------------------------------------------------------------------------------------------

TEST_F(LabelQueriesTest, UsersChooseByKeywordOrHandle)
{
    select(L"MINE", {c});
    select(L"", {a});
    const OdString handle = a.getHandle().ascii();
    const auto json = [&](const std::vector<OdDbObjectId>& labels)
    { return run(L"BSYSTEMLABELTOJSON", ids(labels)).json(); };
    const struct
    {
        std::deque<OdString> answers;
        OdResBufPtr parameters;
        std::string json;
        std::size_t prompts;
    } rows[] = {
        {{L"ALL"}, {}, json({a, c}), 1},
        {{L"l"}, allowDeleted(), "", 1},
        {{L"Selected"}, text(L"SELECTIONSETNAME", L"MINE"), json({c}), 1},
        {{L"s"}, {}, json({a}), 1},
        {{L"Handle", L" '" + handle + L"'"}, {}, json({a}), 2},
        {{L"h"}, text(L"HANDLE", handle), json({a}), 1},
        {{L"g", L"cccc"}, {}, json({c}), 2},
        {{L"Guid"}, text(L"GUID", L"none"), "[]", 1},
        {{L"n", L"abc"}, {}, json({a}), 2},
        {{L"Name"}, chain({text(L"NAME", L"ABC"), text(L"GUID", L"x")}), json({a}), 1},
        {{L"\"" + handle + L"\""}, {}, json({a}), 1},
        {{L"FFFFF"}, {}, "[]", 1},
        {{L"nonsense"}, {}, "[]", 1},
        {{L""}, {}, "[]", 1},
    };
    for (const auto& row : rows)
    {
        host->answers = row.answers;
        host->prompts.clear();
        const Outcome outcome = run(L"BSYSTEMLABELTOJSON", row.parameters);
        EXPECT_EQ(outcome.state, eCommandEnded) << outcome.fault;
        if (!row.json.empty())
        {
            EXPECT_EQ(outcome.json(), row.json) << odStringToUtf8(row.answers.front());
        }
        EXPECT_EQ(host->prompts.size(), row.prompts) << odStringToUtf8(row.answers.front());
    }
    EXPECT_NE(host->prompts[0].find("[aLl/Selected/Handle/Guid/Name] "), std::string::npos) << host->prompts[0];
    EXPECT_EQ(run(L"BSYSTEMLABELTOJSON all").json(), json({a, c})) << "answers may come with the command";
    EXPECT_EQ(run(L"BSYSTEMLABELTOJSON").state, eCommandCancelled);
    host->answers = {lines[0].getHandle().ascii()};
    EXPECT_EQ(run(L"BSYSTEMLABELTOJSON").fault.type, "OdError_NotThatKindOfClass");
    EXPECT_EQ(run(L"BSYSTEMLABELTOJSON Selected", text(L"SELECTIONSETNAME", L"NONE")).fault.name, "pDbSelectionSet");
}

// ---- Creation -------------------------------------------------------------------------------------------------------

TEST_F(LabelCommandsTest, LabelsSayWhatTheParserReads)
{
    const std::pair<const wchar_t*, const char*> rows[] = {
        {L"<inRect>E12</inRect>", "E12"},
        {L"<inCir>P3/<inCir>", "P3"},
        {L"<inCir>P3</inCir>", "P3</inCir>"},
        {L"<inOv>A/<inOv> <inOv>B</inOv>", "A B</inOv>"},
        {L"  two  blanks ", "  two  blanks "},
        {L"<INRECT>E", "<INRECT>E"},
        {L"<in<inRect>Rect>E", "<inRect>E"},
        {L"<in<inCir>Rect>E", "<inRect>E"},
        {L"", ""},
        {L"\U0001F600", "\xF0\x9F\x98\x80"},
    };
    for (const auto& [parsed, expected] : rows)
    {
        const OdDbObjectId line = addLine();
        HostCommands::get().parsedText = parsed;
        const OdDbObjectId label = find(L"BSYSTEMLABELCREATE", CadCommands::SetParameterObjectId(L"OBJECTID", line));
        EXPECT_EQ(textOf(label), expected);
        EXPECT_EQ(markOf(line), std::string(expected) + ", " + odStringToUtf8(openLabel(label)->GetGuid()));
    }
}

TEST_F(LabelCommandsTest, OnlyEntitiesWithoutALabelAreTaken)
{
    const std::vector<OdDbObjectId> lines = addLines(4);
    HostCommands::get().parsedText = L"E";
    const OdDbObjectId first =
        find(L"BSYSTEMLABELCREATE",
             chain({ids({lines[1], lines[0], lines[1]}), CadCommands::SetParameterObjectId(L"OBJECTID", lines[0])}));
    EXPECT_EQ(referencesOf(first), (std::vector{lines[1], lines[0]}));
    EXPECT_EQ(HostCommands::get().parsedIds, idArray({lines[1], lines[0], lines[1], lines[0]}));
    EXPECT_TRUE(find(L"BSYSTEMLABELCREATE", ids({lines[0], lines[1]})).isNull());
    EXPECT_TRUE(find(L"BSYSTEMLABELCREATE", OdResBufPtr()).isNull());
    EXPECT_TRUE(find(L"BSYSTEMLABELCREATE", ids({OdDbObjectId()})).isNull());
    const OdDbObjectId second = find(L"BSYSTEMLABELCREATE", ids({lines[0], lines[3], OdDbObjectId(), lines[2]}));
    EXPECT_EQ(referencesOf(second), (std::vector{lines[3], lines[2]}));
    openLabel(first, OdDb::kForWrite)->RemoveReferencedObjectId(lines[0]);
    EXPECT_FALSE(find(L"BSYSTEMLABELCREATE", ids({lines[0]})).isNull());
}

TEST_F(LabelCommandsTest, AnUndoneLabelIsNotFoundBeforeItIsRedone)
{
    const OdDbObjectId line = addLine();
    HostCommands::get().parsedText = L"E";
    run(L"BSYSTEMLABELGETDICTIONARYID");
    const OdDbObjectId label = find(L"BSYSTEMLABELCREATE", ids({line}));
    const OdString guid = openLabel(label)->GetGuid();
    const auto found = [&]
    {
        const OdResBufPtr what = chain(
            {allowDeleted(), text(L"GUID", guid), text(L"HANDLE", label.getHandle().ascii()), text(L"NAME", L"E")});
        int count = static_cast<int>(run(L"BSYSTEMLABELGETALLIDS", allowDeleted()).ids().size());
        for (const OdChar* command :
             {L"BSYSTEMLABELGETIDFROMGUID", L"BSYSTEMLABELGETIDFROMHANDLE", L"BSYSTEMLABELGETIDFROMNAME"})
            count += find(command, what) == label;
        return count;
    };
    EXPECT_EQ(found(), 4);
    db->undo();
    EXPECT_EQ(found(), 0);
    EXPECT_EQ(run(L"BSYSTEMLABELGETALLNAMES", chain({ids({label}), allowDeleted()})).json(), "[]");
    db->redo();
    EXPECT_EQ(found(), 4);
    EXPECT_EQ(markOf(line), "E, " + odStringToUtf8(guid));
}

TEST_F(LabelCommandsTest, SelectionsBecomeLabels)
{
    const std::vector<OdDbObjectId> lines = addLines(3);
    HostCommands::get().parsedText = L"E";
    select(L"MINE", {lines[2], lines[0]});
    const Outcome outcome = run(L"BSYSTEMLABELCREATEFROMSELECTION", text(L"SELECTIONSETNAME", L"MINE"));
    EXPECT_EQ(outcome.flags, 0x34000000u);
    EXPECT_EQ(referencesOf(outcome.id()), (std::vector{lines[2], lines[0]}));
    EXPECT_TRUE(find(L"BSYSTEMLABELCREATEFROMSELECTION", text(L"SELECTIONSETNAME", L"MINE")).isNull());
    const Fault none = valueFault(20, "pSelectionSet", "CCommandBSystemLabelCreateFromSelection::execute");
    EXPECT_EQ(run(L"BSYSTEMLABELCREATEFROMSELECTION", text(L"SELECTIONSETNAME", L"NONE")).fault, none);
    select(L"ASKED", {lines[1]});
    host->answers = {L"ASKED"};
    EXPECT_FALSE(find(L"BSYSTEMLABELCREATEFROMSELECTION", text(L"SELECTIONSETNAME", L"")).isNull());
    EXPECT_EQ(host->prompts.size(), 1u);
    EXPECT_EQ(run(L"BSYSTEMLABELCREATEFROMSELECTION").state, eCommandCancelled);
    select(L"EMPTY", {});
    EXPECT_TRUE(find(L"BSYSTEMLABELCREATEFROMSELECTION EMPTY", OdResBufPtr()).isNull());
}

TEST_F(LabelCommandsTest, FailuresLeaveNothingBehind)
{
    const std::vector<OdDbObjectId> lines = addLines(2);
    CBSystemLabel::GetDictionary(db);
    db->clearUndo();
    select(L"MINE", lines);
    HostCommands& commands = HostCommands::get();
    const struct
    {
        const char* what;
        std::function<void()> whileParsing;
        std::wstring parsed;
        int code;
    } rows[] = {
        {"the parser fails", [] { throw OdError(eInvalidInput); }, L"E", 5},
        {"the parser fails otherwise", [] { throw std::runtime_error("no"); }, L"E", 3},
        {"the text is too long", [] {}, std::wstring(17000, L'x'), 90},
        {"an entity goes while the parser reads", [&] { erase(lines[1]); }, L"E", 20},
    };
    for (const auto& row : rows)
        for (const OdChar* command : {L"BSYSTEMLABELCREATE", L"BSYSTEMLABELCREATEFROMSELECTION"})
        {
            commands.whileParsing = row.whileParsing;
            commands.parsedText = row.parsed;
            const Outcome outcome = run(command, chain({text(L"SELECTIONSETNAME", L"MINE"), ids(lines)}));
            EXPECT_EQ(outcome.state, eCommandFailed) << row.what;
            EXPECT_EQ(outcome.fault.code, row.code) << row.what;
            EXPECT_FALSE(lines[1].isErased()) << row.what;
            EXPECT_EQ(markOf(lines[0]), "") << row.what;
            EXPECT_EQ(lines[0].safeOpenObject()->getPersistentReactors().size(), 0u) << row.what;
            EXPECT_EQ(CBSystemLabel::GetDictionary(db)->numEntries(), 0u) << row.what;
            EXPECT_FALSE(db->hasUndo()) << row.what;
            EXPECT_EQ(db->numActiveTransactions(), 0) << row.what;
        }
}

TEST_F(LabelCommandsTest, CallingOthersLeavesTheCallersParametersAlone)
{
    const OdDbObjectId line = addLine();
    select(L"MINE", {line});
    const OdResBufPtr parameters = text(L"SELECTIONSETNAME", L"MINE");
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", db, host);
    handler->funcIO()->setParam(parameters);
    odedRegCmds()->executeCommand(L"BSYSTEMLABELCREATEFROMSELECTION", handler);
    EXPECT_EQ(handler->funcIO()->param(), parameters);
    HostCommands::get().whileParsing = [] { throw OdError(eInvalidInput); };
    select(L"MINE", {addLine()});
    EXPECT_THROW(odedRegCmds()->executeCommand(L"BSYSTEMLABELCREATEFROMSELECTION", handler), OdError);
    EXPECT_EQ(handler->funcIO()->param(), parameters) << "also when they fail";
}

// Far below what the product promises, so that a slow machine passes; above what a walk over all labels could reach.
TEST_F(LabelCommandsTest, QueriesByGuidDoNotDependOnTheNumberOfLabels)
{
    for (int i = 0; i < 20000; ++i)
        addLabel({}, L"x", OdString().format(L"%08d-0000-4000-8000-000000000000", i));
    const auto start = std::chrono::steady_clock::now();
    constexpr int kQueries = 2000;
    for (int i = 0; i < kQueries; ++i)
    {
        const OdString guid = OdString().format(L"%08d-0000-4000-8000-000000000000", i * 10);
        ASSERT_FALSE(run(L"BSYSTEMLABELGETIDFROMGUID", CadCommands::SetParameterOdString(L"GUID", guid)).id().isNull());
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    EXPECT_LT(seconds.count(), kQueries / 1000.0);
    RecordProperty("queries_per_second", static_cast<int>(kQueries / seconds.count()));
}

} // namespace
