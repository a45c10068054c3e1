// Attacks the loading of modules: files that are missing, are none, are old, refuse to start.
#include "DynamicLinker.h"

#include <gtest/gtest.h>

#include <fstream>
#include <thread>

#include "OdaCommon.h"
#include "RxClass.h"
#include "RxObjectImpl.h"
#include "support/ErrorCode.h"

namespace
{

const OdString kFolder(ZOLCAD_TEST_MODULES);

class Listener : public OdRxDLinkerReactor
{
public:
    void rxAppWillBeLoaded(const OdString& name) override { heard += L"+" + name; }
    void rxAppLoaded(OdRxModule*) override { heard += L" loaded;"; }
    void rxAppLoadAborted(const OdString&) override { heard += L" aborted;"; }
    void rxAppWillBeUnloaded(OdRxModule*) override { heard += L" ending"; }
    void rxAppUnloaded(const OdString& name) override { heard += L" -" + name; }

    OdString heard;
};

class Linker : public testing::Test
{
protected:
    void SetUp() override { odrxDynamicLinker()->addSearchFolder(kFolder); }
    void TearDown() override
    {
        odrxDynamicLinker()->unloadUnreferenced();
        EXPECT_TRUE(odrxDynamicLinker()->loadedModules().isEmpty());
    }
};

TEST_F(Linker, LoadsOnceUnderAllItsNames)
{
    EXPECT_TRUE(odrxDynamicLinker()->lookupModule(L"GreetingModule.tx").isNull());
    EXPECT_EQ(odrxGetClass(L"Greeting"), nullptr);
    OdRxModulePtr module = odrxDynamicLinker()->loadApp(L"GreetingModule.tx", false);
    ASSERT_FALSE(module.isNull());
    EXPECT_TRUE(module->moduleName() == L"GreetingModule.tx");
    EXPECT_NE(module->sysData(), nullptr);
    EXPECT_EQ(module->numRefs(), 2) << "the linker's and ours: counting begins at 0";
    for (const OdChar* name : {L"greetingmodule.TX", L"GreetingModule_22.10_16.tx"})
        EXPECT_EQ(odrxDynamicLinker()->loadModule(name, false).get(), module.get());
    EXPECT_EQ(odrxDynamicLinker()->lookupModule(kFolder + L"/GreetingModule_22.10_16.tx").get(), module.get());
    EXPECT_FALSE(odrxSafeCreateObject(L"Greeting").isNull());
    EXPECT_FALSE(odrxDynamicLinker()->unloadModule(L"GreetingModule.tx")) << "it is referred to";
    EXPECT_FALSE(odrxDynamicLinker()->unloadUnreferenced());
    module.release();
    EXPECT_TRUE(odrxDynamicLinker()->unloadModule(L"GreetingModule.tx"));
    EXPECT_FALSE(odrxDynamicLinker()->unloadModule(L"GreetingModule.tx"));
    EXPECT_EQ(odrxGetClass(L"Greeting"), nullptr);
    module = odrxLoadModule(kFolder + L"/GreetingModule_22.10_16.tx");
    EXPECT_FALSE(module.isNull()) << "may be loaded again, by its path";
}

TEST_F(Linker, SaysWhyAModuleCannotBeLoaded)
{
    const OdString textFile = kFolder + L"/Text_22.10_16.tx";
    std::ofstream(odStringToUtf8(textFile)) << "no module at all";
    const struct
    {
        const OdChar* name;
        OdResult code;
        const OdChar* reason;
    } kCases[] = {
        {L"Missing.tx", eModuleNotFound, L"Missing.tx"},
        {L"/nowhere/Missing.tx", eModuleNotFound, L"/nowhere/Missing.tx"},
        {L"", eModuleNotFound, L"not found"},
        {L"Text.tx", eLoadFailed, L"Text_22.10_16.tx"},
        {L"SilentModule.tx", eLoadFailed, L"it has no odrxGetAPIVersion"},
        {L"EmptyHandedModule.tx", eLoadFailed, L"it made no module object"},
        {L"OldModule.tx", eModuleVersionMismatch, L"version 21.2"},
        {L"RefusingModule.tx", eClassAlreadyRegistered, L"refused"},
    };
    for (const auto& row : kCases)
    {
        const OdError caught = support::caught([&] { odrxDynamicLinker()->loadApp(row.name, false); });
        EXPECT_EQ(caught.code(), row.code) << odStringToUtf8(row.name);
        EXPECT_GE(caught.description().find(row.reason), 0) << odStringToUtf8(caught.description());
        EXPECT_TRUE(odrxDynamicLinker()->lookupModule(row.name).isNull());
        if (row.code == eClassAlreadyRegistered)
            continue;
        EXPECT_TRUE(odrxDynamicLinker()->loadApp(row.name, true).isNull());
    }
    EXPECT_EQ(support::codeOf([] { odrxDynamicLinker()->loadApp(L"RefusingModule.tx", true); }),
              eClassAlreadyRegistered)
        << "what a module throws is never hidden";
}

TEST_F(Linker, TellsItsReactors)
{
    const OdSmartPtr<Listener> listener = OdRxObjectImpl<Listener>::createObject();
    odrxDynamicLinker()->addReactor(listener);
    odrxDynamicLinker()->addReactor(listener);
    odrxLoadApp(L"GreetingModule.tx");
    odrxDynamicLinker()->unloadModule(L"GreetingModule.tx");
    odrxLoadApp(L"OldModule.tx");
    odrxDynamicLinker()->removeReactor(listener);
    odrxLoadApp(L"Missing.tx");
    EXPECT_TRUE(listener->heard == L"+GreetingModule.tx loaded; ending -GreetingModule.tx+OldModule.tx aborted;")
        << odStringToUtf8(listener->heard);
}

class StaticModule : public OdRxModule
{
public:
    void initApp() override { ++starts; }
    void uninitApp() override { ++ends; }
    static inline int starts = 0;
    static inline int ends = 0;
};

TEST_F(Linker, PrefersModulesOfTheProgram)
{
    odrxRegisterStaticModule(L"GreetingModule.tx", [](const OdString& name)
                             { return OdRxWin32Module<StaticModule>::createModule(nullptr, name); });
    const OdRxModule* module = odrxLoadApp(L"greetingMODULE.tx", false);
    EXPECT_NE(dynamic_cast<const StaticModule*>(module), nullptr);
    EXPECT_EQ(StaticModule::starts, 1);
    const auto copyPointers = [module]
    {
        for (int i = 0; i < 200000; ++i)
            const OdRxModulePtr copy(module);
    };
    std::thread other(copyPointers);
    copyPointers();
    other.join();
    EXPECT_EQ(module->numRefs(), 1);
    odrxDynamicLinker()->unloadUnreferenced();
    EXPECT_EQ(StaticModule::ends, 1);
    odrxRegisterStaticModule(L"GreetingModule.tx", nullptr);
    EXPECT_EQ(odrxGetClass(L"Greeting"), nullptr);
    odrxLoadApp(L"GreetingModule.tx", false);
    EXPECT_NE(odrxGetClass(L"Greeting"), nullptr);
}

} // namespace
