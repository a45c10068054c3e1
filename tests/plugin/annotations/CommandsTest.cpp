// Attacks the annotation commands: their frame, names of definitions, requests that fail half-way (seen from the
// command and from the handler), handles of all wrong kinds, undo, copies, and what the editor hears.
#include "AnnotationTest.h"
#include "DbIdMapping.h"
#include "EditorRefresher.h"
#include "StaticRxObject.h"
#include "framework/FunctionIO.h"
#include "support/PartialContext.h"

using namespace annotationtest;

namespace
{

class AnnotationCommandsTest : public AnnotationTest
{
protected:
    std::string handleOfLine() { return odStringToUtf8(addLine().getHandle().ascii()); }
    static std::string atHandle(const std::string& handle, const Changes& changes = {})
    {
        return stamp(with(handle, changes));
    }
};

// ---- The frame ------------------------------------------------------------------------------------------------------

TEST_F(AnnotationCommandsTest, FramesRefuseWhatIsMissing)
{
    const struct
    {
        const OdChar* command;
        const char* function;
        OdUInt32 flags;
        bool hasResult;
    } rows[] = {
        {L"CREATEANNOTATIONFROMJSON", "CCommandCreateAnnotation::execute", 0x34000000, true},
        {L"MODIFYANNOTATIONFROMJSON", "CCommandModifyAnnotation::execute", 0x34000000, true},
        {L"DELETEANNOTATIONFROMJSON", "CCommandDeleteAnnotation::execute", 0x24000000, false},
    };
    const Fault wrongKind = {eNotThatKindOfClass, "OdError_NotThatKindOfClass", "", ""};
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", db, host);
    handler->funcIO()->setParam(CadCommands::SetParameterOdString(L"JSON", L"[]").get());
    for (const auto& row : rows)
    {
        const OdEdCommandPtr command = odedRegCmds()->lookupCmd(row.command, 17, L"Quend.Zol.Cad.Annotation");
        ASSERT_FALSE(command.isNull());
        EXPECT_EQ(command->flags() & 0xFD000000, row.flags);
        OdStaticRxObject<PartialContext> context;
        const auto fault = [&] { return thrownBy([&] { command->execute(&context); }); };
        EXPECT_EQ(thrownBy([&] { command->execute(nullptr); }), wrongKind);
        EXPECT_EQ(fault(), wrongKind);
        context.user = handler->userIO();
        EXPECT_EQ(fault(), argumentFault(122, "pDb", row.function));
        context.database = db;
        host->answers = {L"[]", L"[]"};
        EXPECT_EQ(fault(), row.hasResult ? valueFault(417, "pFunctionIO", row.function) : Fault());
        context.functionIO = handler->funcIO();
        EXPECT_EQ(fault(), Fault());
    }
}

TEST_F(AnnotationCommandsTest, TheJsonIsAParameterOrAsked)
{
    const OdString json = wide(stamp());
    const auto text = [](const OdChar* name, const OdString& value)
    { return CadCommands::SetParameterOdString(name, value); };
    for (const OdResBufPtr& parameters :
         {text(L"json", json), text(L"ANYTHING", json), chain({text(L"OTHER", L"x"), text(L"JSON", json)}),
          chain({CadCommands::SetParameterInt32(L"N", 3), text(L"STAMPS", json)})})
    {
        const Outcome outcome = run(L"CREATEANNOTATIONFROMJSON", parameters);
        EXPECT_EQ(handlesOf(outcome).size(), 1u) << outcome.fault;
    }
    EXPECT_TRUE(host->prompts.empty());
    host->answers = {L"", json};
    EXPECT_EQ(handlesOf(run(L"CREATEANNOTATIONFROMJSON")).size(), 1u);
    EXPECT_EQ(host->prompts, std::vector<std::string>(2, "Annotations as JSON:"));
    EXPECT_EQ(host->promptOptions, (std::vector{3, 3}));
    EXPECT_EQ(host->errors, std::vector<std::string>{"Requires non-empty value!"});
    EXPECT_EQ(run(L"CREATEANNOTATIONFROMJSON").state, eCommandCancelled);
    EXPECT_EQ(run(L"CREATEANNOTATIONFROMJSON", CadCommands::SetParameterInt32(L"JSON", 3)).fault.code, 68);
    EXPECT_EQ(run(L"CREATEANNOTATIONFROMJSON", CadCommands::SetParameterInt32(L"N", 3)).fault.code, 926);
}

// ---- Whole requests -------------------------------------------------------------------------------------------------

TEST_F(AnnotationCommandsTest, EmptyRequestsChangeNothing)
{
    EXPECT_EQ(create({}).json(), "[]");
    EXPECT_EQ(modify({}).json(), "[]");
    EXPECT_EQ(remove({}).state, eCommandEnded);
    EXPECT_FALSE(db->hasUndo());
    EXPECT_FALSE(hasBlock(L"Annotation"));
}

TEST_F(AnnotationCommandsTest, ResultsComeInTheOrderOfTheRecords)
{
    const Outcome outcome = create({stamp({{"X", "3"}}), stamp({{"X", "1"}}), stamp({{"X", "2"}})});
    const std::vector<std::string> handles = handlesOf(outcome);
    ASSERT_EQ(handles.size(), 3u);
    EXPECT_EQ(reference(handles[0])->position().x, 3);
    EXPECT_EQ(reference(handles[1])->position().x, 1);
    const Outcome changed = modify({atHandle(handles[2]), atHandle(handles[0])});
    EXPECT_EQ(handlesOf(changed), (std::vector{handles[2], handles[0]}));
    EXPECT_EQ(run(L"BSYSTEMLABELGETALLIDS").flags & 0x20000000, 0u);
    EXPECT_EQ(outcome.flags, 0x34000000u);
}

TEST_F(AnnotationCommandsTest, DefinitionsAreNumberedFromTheFirstFreeNameOn)
{
    const auto nameOf = [&](const std::string& handle) { return odStringToUtf8(definition(handle)->getName()); };
    addBlock(L"annotation_3"); // names do not differ by case
    std::vector<std::string> names;
    for (const std::string& handle : handlesOf(create({stamp(), stamp(), stamp(), stamp()})))
        names.push_back(nameOf(handle));
    EXPECT_EQ(names, (std::vector<std::string>{"Annotation", "Annotation_2", "Annotation_4", "Annotation_5"}));
    EXPECT_EQ(nameOf(createOne()), "Annotation_6");
    // Behind any number of them.
    create(std::vector<std::string>(300, stamp()));
    EXPECT_EQ(nameOf(createOne()), "Annotation_307");
}

TEST_F(AnnotationCommandsTest, StampsBelongToTheCurrentLayout)
{
    db->setSysVar(L"TILEMODE", OdResBuf::newRb(70, OdInt16(0)));
    const std::string handle = createOne();
    EXPECT_EQ(reference(handle)->ownerId(), db->getActiveLayoutBTRId());
    EXPECT_NE(reference(handle)->ownerId(), db->getModelSpaceId());
}

// ---- Failing --------------------------------------------------------------------------------------------------------

TEST_F(AnnotationCommandsTest, InvalidRecordsLeaveEverythingAsItWas)
{
    const std::string handle = createOne();
    for (const std::string& bad :
         {stamp({{"Width", "0"}}), stamp({{"Text", "5"}}), stamp({{"OriginalImagePath", "\"/none.png\""}})})
    {
        EXPECT_NE(runBare(L"CREATEANNOTATIONFROMJSON", array({stamp(), bad})).code(), 0);
        EXPECT_NE(runBare(L"MODIFYANNOTATIONFROMJSON", array({atHandle(handle, {{"Text", "\"New\""}}), bad})).code(),
                  0);
        EXPECT_EQ(modelCount(), 1u);
        EXPECT_EQ(contents(handle), "\\fArial;Checked");
        EXPECT_FALSE(hasBlock(L"Annotation_2"));
    }
}

TEST_F(AnnotationCommandsTest, WhatCameBeforeAFailureStaysDoneByTheCommand)
{
    const std::vector<std::string> handles = handlesOf(create({stamp(), stamp(), stamp()}));
    const struct
    {
        std::string handle;
        Fault fault;
    } rows[] = {
        {handleOfLine(), {eNotThatKindOfClass, "OdError_NotThatKindOfClass", "", ""}},
        {"FFFFFF", {eNullObjectId, "OdError", "", ""}},
        {"no handle", {eNullObjectId, "OdError", "", ""}},
        {"", {eNullObjectId, "OdError", "", ""}},
    };
    int turn = 0;
    for (const auto& row : rows)
    {
        const std::string text = quoted("Turn " + std::to_string(++turn));
        const std::string request =
            array({atHandle(handles[0], {{"Text", text}}), stamp({{"Handle", quoted(row.handle)}}),
                   atHandle(handles[1], {{"Text", text}})});
        EXPECT_EQ(faultOf(runBare(L"MODIFYANNOTATIONFROMJSON", request)), row.fault) << row.handle;
        EXPECT_EQ(contents(handles[0]), "\\fArial;Turn " + std::to_string(turn));
        EXPECT_EQ(contents(handles[1]), "\\fArial;Checked");
    }
    const std::string deleting = array({atHandle(handles[2]), atHandle(handleOfLine()), atHandle(handles[1])});
    EXPECT_EQ(faultOf(runBare(L"DELETEANNOTATIONFROMJSON", deleting)), rows[0].fault);
    EXPECT_TRUE(idOf(handles[2]).isErased());
    EXPECT_FALSE(hasBlock(L"Annotation_3"));
    EXPECT_FALSE(idOf(handles[1]).isErased());
}

/// A record that fails while it is drawn, not before.
class Grumbler : public OdRxObject, public CEditorRefresher
{
public:
    void Refresh(const OdDbObjectId& id) override
    {
        heard.push_back(id);
        if (heard.size() == failAt)
            throw OdError(eNotApplicable);
    }

    std::vector<OdDbObjectId> heard;
    std::size_t failAt = 0;
};

TEST_F(AnnotationCommandsTest, ARecordIsDrawnWhollyOrNotAtAll)
{
    const std::vector<std::string> handles = handlesOf(create({stamp(), stamp()}));
    const OdSmartPtr<Grumbler> editor = OdRxObjectImpl<Grumbler>::createObject();
    CModuleServices::Find()->setArbitraryData(db.get(), L"EDITOROBJECT", editor);
    const Changes changes = {{"Text", "\"New\""}, {"BorderShape", "6"}, {"X", "9"}};
    editor->failAt = 2;
    const OdError error =
        runBare(L"MODIFYANNOTATIONFROMJSON", array({atHandle(handles[0], changes), atHandle(handles[1], changes)}));
    EXPECT_EQ(error.code(), eNotApplicable);
    EXPECT_EQ(editor->heard, (std::vector{idOf(handles[0]), idOf(handles[1])}));
    EXPECT_EQ(contents(handles[0]), "\\fArial;New");
    EXPECT_EQ(contents(handles[1]), "\\fArial;Checked");
    EXPECT_EQ(the<OdDbPolyline>(handles[1])->numVerts(), 4u);
    EXPECT_EQ(reference(handles[1])->position(), OdGePoint3d());
    // Without somebody who listens nothing is missed.
    CModuleServices::Find()->setArbitraryData(db.get(), L"EDITOROBJECT", OdResBuf::newRb(70));
    EXPECT_EQ(modify({atHandle(handles[1], changes)}).state, eCommandEnded);
    CModuleServices::Find()->setArbitraryData(db.get(), L"EDITOROBJECT", nullptr);
    EXPECT_EQ(modify({atHandle(handles[1])}).state, eCommandEnded);
}

// ---- Deleting -------------------------------------------------------------------------------------------------------

TEST_F(AnnotationCommandsTest, DeletingTakesTheDefinitionToo)
{
    const std::vector<std::string> handles = handlesOf(create({stamp(), stamp()}));
    const OdDbObjectId block = definition(handles[0])->objectId();
    const std::vector<OdDbObjectId> content = contentOf(handles[0]);
    const std::string request = array({stamp({{"Width", "0"}}), atHandle(handles[0], {{"Nz", "0"}})});
    EXPECT_EQ(runJson(L"DELETEANNOTATIONFROMJSON", request).state, eCommandEnded);
    EXPECT_TRUE(idOf(handles[0]).isErased());
    EXPECT_TRUE(block.isErased());
    for (const OdDbObjectId& id : content)
        EXPECT_TRUE(id.isErased());
    EXPECT_FALSE(idOf(handles[1]).isErased());
    EXPECT_EQ(runJson(L"DELETEANNOTATIONFROMJSON", request).fault.code, eWasErased);
    EXPECT_EQ(modify({atHandle(handles[0])}).fault.code, eWasErased);
    EXPECT_EQ(odStringToUtf8(definition(createOne())->getName()), "Annotation");
}

TEST_F(AnnotationCommandsTest, TheSameHandleTwiceInARequest)
{
    const std::string handle = createOne();
    const Outcome twice = modify({atHandle(handle, {{"Text", "\"One\""}}), atHandle(handle, {{"Text", "\"Two\""}})});
    EXPECT_EQ(handlesOf(twice), (std::vector{handle, handle}));
    EXPECT_EQ(contents(handle), "\\fArial;Two");
    EXPECT_EQ(runBare(L"DELETEANNOTATIONFROMJSON", array({atHandle(handle), atHandle(handle)})).code(), eWasErased);
    EXPECT_TRUE(idOf(handle).isErased());
}

TEST_F(AnnotationCommandsTest, DefinitionsThatCopiesReferToStay)
{
    const std::string handle = createOne();
    OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    OdDbObjectIdArray ids;
    ids.append(idOf(handle));
    db->deepCloneObjects(ids, db->getModelSpaceId(), *mapping);
    OdDbIdPair pair(idOf(handle));
    ASSERT_TRUE(mapping->compute(pair));
    const std::string copy = odStringToUtf8(pair.value().getHandle().ascii());
    EXPECT_EQ(remove({atHandle(handle)}).state, eCommandEnded);
    EXPECT_TRUE(hasBlock(L"Annotation"));
    EXPECT_EQ(contentOf(copy).size(), 3u);
    EXPECT_EQ(remove({atHandle(copy)}).state, eCommandEnded);
    EXPECT_FALSE(hasBlock(L"Annotation"));
}

// ---- Undo -----------------------------------------------------------------------------------------------------------

TEST_F(AnnotationCommandsTest, EachRequestIsOneStep)
{
    const std::vector<std::string> handles = handlesOf(create({stamp(), stamp({{"Text", "\"B\""}}), stamp()}));
    modify({atHandle(handles[0], {{"Text", "\"A\""}, {"BorderShape", "3"}}), atHandle(handles[1])});
    remove({atHandle(handles[0]), atHandle(handles[2])});
    db->undo();
    EXPECT_EQ(contents(handles[0]), "\\fArial;A");
    EXPECT_EQ(contentOf(handles[2]).size(), 3u);
    db->undo();
    EXPECT_EQ(contents(handles[0]), "\\fArial;Checked");
    EXPECT_EQ(contents(handles[1]), "\\fArial;B");
    db->undo();
    EXPECT_EQ(modelCount(), 0u);
    EXPECT_FALSE(hasBlock(L"Annotation"));
    EXPECT_FALSE(db->hasUndo());
    for (int i = 0; i < 3; ++i)
        db->redo();
    EXPECT_EQ(modelCount(), 1u);
    EXPECT_EQ(contents(handles[1]), "\\fArial;Checked");
}

TEST_F(AnnotationCommandsTest, ManyStampsTakeLinearTime)
{
    const auto secondsFor = [&](std::size_t count)
    {
        const std::string json = array(std::vector<std::string>(count, stamp()));
        const std::clock_t start = std::clock();
        const Outcome outcome = runJson(L"CREATEANNOTATIONFROMJSON", json);
        std::vector<std::string> records;
        for (const std::string& handle : handlesOf(outcome))
            records.push_back(atHandle(handle));
        EXPECT_EQ(records.size(), count);
        EXPECT_EQ(modify(records).state, eCommandEnded);
        EXPECT_EQ(remove(records).state, eCommandEnded);
        return double(std::clock() - start) / CLOCKS_PER_SEC;
    };
    secondsFor(50);
    const double few = secondsFor(500);
    EXPECT_LT(secondsFor(4000), 8 * few * 3 + 0.05);
}

} // namespace
