// Attacks the module: what it registers and takes away, its store, the overrule, and what happens when it is not there.
#include "support/PartialContext.h"
#include "support/PluginTest.h"

#include "Gi/GiSubEntityTraitsData.h"
#include "RxSysRegistry.h"
#include "RxSystemServices.h"
#include "RxVariant.h"
#include "SelectionSetReactor.h"
#include "Trackers.h"
#include "framework/FunctionIO.h"
#include "module/registration/ClassTable.h"
#include "module/registration/DebugEntityDrawableOverrule.h"

using namespace plugintest;

namespace
{

class ModuleTest : public PluginTest
{
protected:
    CModuleServices& services() { return *CModuleServices::Find(); }
    // A module of somebody else's that goes by the name of ours.
    class Stranger : public OdRxModule
    {
    public:
        void initApp() override {}
        void uninitApp() override {}
    };
    static OdRxModule* createStranger(const OdString& name)
    {
        return OdRxWin32Module<Stranger>::createModule(nullptr, name);
    }
    static OdRxObjectPtr someObject() { return OdRxVariant::createObject(OdVariant(1.0)); }
};

// ---- Registration ---------------------------------------------------------------------------------------------------

constexpr const OdChar* kBorders = L"Quend.Zol.Cad.DrawingBorder";
constexpr const OdChar* kLabels = L"Quend.Zol.Cad.BSystemLabel";
constexpr const OdChar* kData = L"Quend.Zol.Cad.ExtendedData";
constexpr const OdChar* kTransactions = L"Quend.Zol.Cad.Transaction";

const struct
{
    const OdChar *group, *name;
    OdUInt32 flags;
    const char* function; ///< the class, of those whose frames are told here
} kCommands[] = {
    {kBorders, L"DEFINEDRAWINGBORDERCOLUMNLINES", 0x20000000, ""},
    {kBorders, L"DEFINEDRAWINGBORDER", 0x20000000, ""},
    {kBorders, L"DRAWINGBORDERGETDICTIONARYID", 0x11000000, ""},
    {kBorders, L"DRAWINGBORDERGETALLIDS", 0x11000000, ""},
    {kBorders, L"GETDRAWINGBORDER", 0x11000000, ""},
    {kLabels, L"BSYSTEMLABELCREATE", 0x30000000, "CCommandBSystemLabelCreate"},
    {kLabels, L"BSYSTEMLABELCREATEFROMSELECTION", 0x34000000, "CCommandBSystemLabelCreateFromSelection"},
    {kLabels, L"BSYSTEMLABELDELETE", 0x20000000, "CCommandBSystemLabelDelete"},
    {kLabels, L"BSYSTEMLABELDOLLY", 0x01000000, "CCommandBSystemLabelDolly"},
    {kLabels, L"BSYSTEMLABELGETALLIDS", 0x11000000, "CCommandBSystemLabelGetAllIds"},
    {kLabels, L"BSYSTEMLABELGETALLNAMES", 0x11000000, "CCommandBSystemLabelGetAllNames"},
    {kLabels, L"BSYSTEMLABELGETDICTIONARYID", 0x11000000, "CCommandBSystemLabelGetDictionaryId"},
    {kLabels, L"BSYSTEMLABELGETIDFROMGUID", 0x11000000, "CCommandBSystemLabelGetIdFromGuid"},
    {kLabels, L"BSYSTEMLABELGETIDFROMHANDLE", 0x11000000, "CCommandBSystemLabelGetIdFromHandle"},
    {kLabels, L"BSYSTEMLABELGETIDFROMNAME", 0x11000000, "CCommandBSystemLabelGetIdFromName"},
    {kLabels, L"BSYSTEMLABELGETSELECTEDIDS", 0x10000000, "CCommandBSystemLabelGetSelectedIds"},
    {kLabels, L"BSYSTEMLABELTOJSON", 0x11000000, "CCommandBSystemLabelToJson"},
    {kLabels, L"BSYSTEMLABELZOOM", 0x01000000, "CCommandBSystemLabelZoom"},
    {kData, L"REGISTERCUSTOMAPPLICATION", 0x21000000, "CCommandRegisterCustomApplication"},
    {kTransactions, L"TRANSACTIONSTART", 0x01000000, "CCommandStartTransaction"},
    {kTransactions, L"TRANSACTIONEND", 0x05000000, "CCommandEndTransaction"},
    {kTransactions, L"TRANSACTIONABORT", 0x01000000, "CCommandAbortTransaction"},
};

TEST_F(ModuleTest, CommandsHaveTheirGroupsAndFlags)
{
    for (const auto& row : kCommands)
    {
        const OdEdCommandPtr command = odedRegCmds()->lookupCmd(row.name, 17, row.group);
        ASSERT_TRUE(command) << odStringToUtf8(row.name);
        EXPECT_EQ(command->groupName(), row.group);
        EXPECT_EQ(command->globalName(), row.name);
        EXPECT_EQ(command->localName(), row.name);
        EXPECT_EQ(command->flags(), row.flags) << odStringToUtf8(row.name);
    }
}

TEST_F(ModuleTest, UnloadingTakesEverythingAwayAndLoadingBringsItBack)
{
    CModuleServices* const loaded = CModuleServices::Find();
    EXPECT_EQ(CreateModuleCad(kModuleName), static_cast<OdRxModule*>(loaded)) << "there is one module object";
    const CCommandHandlerPtr kept = CCommandHandler::createObject(L"X", db, host);
    EXPECT_FALSE(odrxDynamicLinker()->unloadModule(kModuleName)) << "a handler still uses the module";
    const_cast<CCommandHandlerPtr&>(kept).release();
    ASSERT_TRUE(odrxDynamicLinker()->unloadModule(kModuleName));
    for (const auto& row : kCommands)
        EXPECT_FALSE(odedRegCmds()->lookupCmd(row.name, 3));
    EXPECT_EQ(CBSystemLabel::desc(), nullptr);
    EXPECT_EQ(odrxGetClass(L"CBSystemLabel"), nullptr);
    EXPECT_EQ(CModuleServices::Find(), nullptr);
    EXPECT_EQ(thrownBy([&] { CCommandHandler::createObject(L"X", db, host); }).code, eClassNotRegistered);
    const auto tellReactors = [&] { CSelectionSetReactor::SelectionSetChanged(db, L"SET", {}, {}); };
    EXPECT_EQ(thrownBy(tellReactors).type, "OdError_ModuleInitialization");
    odrxRegisterStaticModule(kModuleName, &createStranger);
    ASSERT_TRUE(odrxDynamicLinker()->loadApp(kModuleName, false));
    EXPECT_EQ(thrownBy(tellReactors).type, "OdError_NotThatKindOfClass");
    ASSERT_TRUE(odrxDynamicLinker()->unloadModule(kModuleName));
    odrxRegisterStaticModule(kModuleName, &CreateModuleCad);
    ASSERT_TRUE(odrxDynamicLinker()->loadApp(kModuleName, false));
    EXPECT_TRUE(odedRegCmds()->lookupCmd(L"BSYSTEMLABELCREATE", 3));
}

TEST_F(ModuleTest, ClassesAreRegisteredAndDeletedOnce)
{
    EXPECT_EQ(thrownBy([] { RegisterClasses(); }).code, 313);
    CZolExtendedData::rxUninit();
    EXPECT_EQ(thrownBy([] { DeleteClasses(); }).code, 255);
    EXPECT_EQ(CBSystemLabel::desc(), nullptr) << "those before it are gone";
    EXPECT_NE(CDebugEntityDrawableOverrule::desc(), nullptr) << "those after it stay";
    for (const auto rxUninit :
         {&CDebugEntityDrawableOverrule::rxUninit, &CTracker::rxUninit, &CSelectionSetReactor::rxUninit})
        rxUninit();
    RegisterClasses();
    EXPECT_NE(CZolExtendedData::desc(), nullptr);
}

TEST_F(ModuleTest, UnknownCommandsWithoutHandlerAreErrors)
{
    EXPECT_EQ(support::caught([] { odedRegCmds()->executeCommand(L"NOBODY", nullptr); }).description(),
              odSystemServices()->formatMessage(904, L"NOBODY"));
}

// ---- The frames of commands -----------------------------------------------------------------------------------------

TEST_F(ModuleTest, FramesNameWhatIsMissing)
{
    OdStaticRxObject<PartialContext> context;
    OdStaticRxObject<ForeignFunctionIO> foreign;
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", db, host);
    for (const auto& row : kCommands)
    {
        if (*row.function == 0)
            continue;
        const bool isLabel = row.group == kLabels;
        const std::string function = std::string(row.function) + "::execute";
        const OdEdCommandPtr command = odedRegCmds()->lookupCmd(row.name, 3);
        const auto execute = [&](OdEdFunctionIO* functionIO, OdRxObject* database)
        {
            context.functionIO = functionIO;
            context.database = database;
            return thrownBy([&] { command->execute(&context); });
        };
        EXPECT_EQ(thrownBy([&] { command->execute(nullptr); }), argumentFault(417, "pEdCommandContext", function));
        const Fault noDatabase = valueFault(122, "pDb", function);
        EXPECT_EQ(execute(nullptr, nullptr), isLabel ? valueFault(417, "pIO", function) : noDatabase);
        EXPECT_EQ(execute(&foreign, nullptr), isLabel ? valueFault(417, "pFunctionIO", function) : noDatabase);
        EXPECT_EQ(execute(handler->funcIO(), nullptr), noDatabase);
        if (row.group == kData)
        {
            EXPECT_EQ(execute(nullptr, db), valueFault(417, "pFunctionIO", function));
        }
        EXPECT_EQ(db->numActiveTransactions(), 0);
    }
}

// ---- The store ------------------------------------------------------------------------------------------------------

TEST_F(ModuleTest, TheStoreKeepsOwnersApart)
{
    const int owners[2] = {};
    const OdRxObjectPtr object = someObject();
    services().setArbitraryData(L"KEY", object);
    services().setArbitraryData(&owners[0], L"KEY",
                                services().ArbitraryDataKey(&owners[0]).isEmpty() ? nullptr : object);
    EXPECT_FALSE(services().arbitraryData(&owners[1], L"KEY"));
    EXPECT_EQ(services().arbitraryData(&owners[0], L"KEY"), object);
    EXPECT_NE(services().GetArbitraryDataDictionary(&owners[0]), services().GetArbitraryDataDictionary(&owners[1]));
    services().RemoveArbitraryDataDictionary(&owners[1]);
    services().RemoveArbitraryDataDictionary(nullptr);
    EXPECT_EQ(services().arbitraryData(&owners[0], L"KEY"), object);
    services().RemoveArbitraryDataDictionary(&owners[0]);
    EXPECT_FALSE(services().arbitraryData(&owners[0], L"KEY"));
    EXPECT_EQ(services().arbitraryData(L"KEY"), object);
    services().setArbitraryData(L"KEY", nullptr);
    EXPECT_FALSE(services().arbitraryData(L"KEY"));
}

TEST_F(ModuleTest, TheStorePassesOverWhatHasNoName)
{
    const OdUInt32 before = services().GetArbitraryDataRootDictionary()->numEntries();
    services().setArbitraryData(L"", someObject());
    services().setArbitraryData(nullptr, L"KEY", someObject());
    services().setArbitraryData(L"NOTHING", nullptr);
    const int owner = 0;
    services().setArbitraryData(&owner, L"", someObject());
    EXPECT_FALSE(services().arbitraryData(&owner, L""));
    EXPECT_FALSE(services().arbitraryData(L""));
    EXPECT_FALSE(services().arbitraryData(nullptr, L"KEY"));
    EXPECT_FALSE(services().GetArbitraryDataDictionary(nullptr));
    EXPECT_EQ(services().GetArbitraryDataRootDictionary()->numEntries(), before);
    EXPECT_EQ(odrxSysRegistry()->getAt(L"QUEND_ZOL_ARBITRARY_DATA").get(),
              services().GetArbitraryDataRootDictionary().get());
}

TEST_F(ModuleTest, AStrangerInTheStoreIsAnError)
{
    const int owner = 0;
    const OdString key = services().ArbitraryDataKey(&owner);
    services().setArbitraryData(key, someObject());
    EXPECT_THROW(services().GetArbitraryDataDictionary(&owner), OdError_NotThatKindOfClass);
    EXPECT_THROW(services().arbitraryData(&owner, L"KEY"), OdError_NotThatKindOfClass);
    services().setArbitraryData(key, nullptr);
}

TEST_F(ModuleTest, AClosedDrawingLeavesNothing)
{
    OdDbDatabasePtr closing = OdDbDatabase::createObject();
    closing->initialize();
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"BSYSTEMLABELGETALLIDS", closing, host);
    handler->Execute();
    const OdString key = services().ArbitraryDataKey(closing);
    services().setArbitraryData(closing, L"KEY", someObject());
    EXPECT_TRUE(services().GetArbitraryDataRootDictionary()->has(key));
    closing.release();
    EXPECT_FALSE(services().GetArbitraryDataRootDictionary()->has(key));
}

// ---- The overrule ---------------------------------------------------------------------------------------------------

TEST_F(ModuleTest, TheOverrulePaintsMarkedEntities)
{
    const std::vector<OdDbObjectId> lines = addLines(5);
    addLabel({lines[1], lines[2]}, L"E");
    for (const OdDbObjectId& ignored : {lines[2], lines[3]})
    {
        const CZolExtendedDataPtr data = CZolExtendedData::Get(ignored, true, false);
        data->SetIgnoreOnCharacteristicSearch(true);
        data->Save();
    }
    const OdResBufPtr unreadable = OdResBuf::newRb(1001, L"terraSHAPING");
    unreadable->setNext(OdResBuf::newRb(1071, 9));
    lines[4].safeOpenObject(OdDb::kForWrite)->setXData(unreadable);

    const auto colors = [&]
    {
        std::vector<OdUInt32> all;
        for (const OdDbObjectId& line : lines)
        {
            OdStaticRxObject<OdGiSubEntityTraitsToData> traits;
            line.safeOpenObject()->setAttributes(&traits);
            all.push_back(traits.trueColor().isByColor() ? traits.trueColor().rgb() : 1);
        }
        return all;
    };
    const std::vector<OdUInt32> plain(5, 1);
    EXPECT_EQ(colors(), plain);
    ASSERT_FALSE(OdRxOverrule::isOverruling());
    OdRxObjectPtr overrule = odrxCreateObject(L"CDebugEntityDrawableOverrule");
    ASSERT_TRUE(overrule);
    EXPECT_TRUE(OdRxOverrule::isOverruling());
    EXPECT_EQ(colors(), (std::vector<OdUInt32>{1, 0x0000FF, 0x0000FF, 0x00FF00, 1}));
    OdRxObjectPtr second = odrxCreateObject(L"CDebugEntityDrawableOverrule");
    second.release();
    EXPECT_TRUE(OdRxOverrule::isOverruling()) << "as it was when the second one came";
    overrule.release();
    EXPECT_FALSE(OdRxOverrule::isOverruling());
    EXPECT_EQ(colors(), plain);
}

} // namespace
