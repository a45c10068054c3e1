// Attacks the listeners to selections: doubled, unknown and strange ones, and those that change the list while told.
#include "ModuleServices.h"
#include "RxVariant.h"
#include "SelectionSetReactor.h"
#include "UserIOTest.h"

using namespace plugintest;

namespace
{

class Listener : public CSelectionSetReactor
{
public:
    void OnSelectionSetChanged(const OdString& name, const OdDbObjectIdArray& ids1,
                               const OdDbObjectIdArray& ids2) override
    {
        log().push_back(id + " " + odStringToUtf8(name) + " " + std::to_string(ids1.size()) + " " +
                        std::to_string(ids2.size()));
        if (whileTold)
            whileTold();
    }
    static std::vector<std::string>& log()
    {
        static std::vector<std::string> told;
        return told;
    }

    std::string id;
    std::function<void()> whileTold;
};
using ListenerPtr = OdSmartPtr<Listener>;

class ReactorTest : public PluginTest
{
protected:
    ReactorTest() { Listener::log().clear(); }
    ~ReactorTest() override { Listener::log().clear(); }

    static ListenerPtr listener(const char* id)
    {
        ListenerPtr made = OdRxObjectImpl<Listener>::createObject();
        made->id = id;
        return made;
    }
    std::vector<std::string> tell()
    {
        Listener::log().clear();
        CSelectionSetReactor::SelectionSetChanged(db, L"SET", idArray(addLines(2)), idArray(addLines(1)));
        return Listener::log();
    }
};

using Log = std::vector<std::string>;

TEST_F(ReactorTest, ListenersAreToldInTheirOrderAndOnce)
{
    const ListenerPtr a = listener("a"), b = listener("b");
    EXPECT_EQ(tell(), Log{});
    CSelectionSetReactor::RemoveReactor(db, a);
    EXPECT_FALSE(CModuleServices::Find()->arbitraryData(db, L"REACTORS_SELECTIONSET")) << "nothing is stored";
    CSelectionSetReactor::AddReactor(db, b);
    CSelectionSetReactor::AddReactor(db, a);
    CSelectionSetReactor::AddReactor(db, b);
    EXPECT_EQ(tell(), (Log{"b SET 2 1", "a SET 2 1"}));
    CSelectionSetReactor::RemoveReactor(db, b);
    EXPECT_EQ(tell(), Log{"a SET 2 1"});
    CSelectionSetReactor::RemoveReactor(db, a);
    CSelectionSetReactor::RemoveReactor(db, a);
    EXPECT_EQ(tell(), Log{});
}

TEST_F(ReactorTest, EachDrawingHasItsListenersAndTakesThemAlong)
{
    OdDbDatabasePtr other = OdDbDatabase::createObject();
    other->initialize();
    const ListenerPtr a = listener("a");
    CSelectionSetReactor::AddReactor(other, a);
    EXPECT_EQ(tell(), Log{});
    EXPECT_EQ(a->numRefs(), 2) << "the drawing keeps it";
    other.release();
    EXPECT_EQ(a->numRefs(), 1);
}

TEST_F(ReactorTest, ARoundIsNotDisturbed)
{
    const ListenerPtr a = listener("a"), b = listener("b"), c = listener("c");
    CSelectionSetReactor::AddReactor(db, a);
    CSelectionSetReactor::AddReactor(db, b);
    a->whileTold = [&]
    {
        CSelectionSetReactor::RemoveReactor(db, b);
        CSelectionSetReactor::AddReactor(db, c);
    };
    EXPECT_EQ(tell(), (Log{"a SET 2 1", "b SET 2 1"}));
    EXPECT_EQ(tell(), (Log{"a SET 2 1", "c SET 2 1"}));
}

TEST_F(ReactorTest, StrangersInTheStore)
{
    const ListenerPtr a = listener("a");
    CModuleServices& services = *CModuleServices::Find();
    const OdRxObjectPtrArray mixed = {OdRxObjectPtr(), OdRxObjectPtr(OdResBuf::newRb(1)), OdRxObjectPtr(a)};
    services.setArbitraryData(db, CSelectionSetReactor::m_strPath, OdRxVariantValue(mixed));
    EXPECT_EQ(tell(), Log{"a SET 2 1"});
    services.setArbitraryData(db, CSelectionSetReactor::m_strPath, OdResBuf::newRb(1));
    EXPECT_THROW(tell(), OdError_NotThatKindOfClass);
    EXPECT_THROW(CSelectionSetReactor::AddReactor(db, a), OdError_NotThatKindOfClass);
}

TEST_F(ReactorTest, NamesWhatIsMissing)
{
    const ListenerPtr a = listener("a");
    const std::string name = "CSelectionSetReactor::";
    EXPECT_EQ(thrownBy([&] { CSelectionSetReactor::AddReactor(nullptr, nullptr); }),
              argumentFault(122, "pDb", name + "AddReactor"));
    EXPECT_EQ(thrownBy([&] { CSelectionSetReactor::RemoveReactor(nullptr, a); }),
              argumentFault(122, "pDb", name + "RemoveReactor"));
    EXPECT_EQ(thrownBy([&] { CSelectionSetReactor::SelectionSetChanged(nullptr, L"", {}, {}); }),
              argumentFault(122, "pDb", name + "SelectionSetChanged"));
    EXPECT_EQ(thrownBy([&] { CSelectionSetReactor::AddReactor(db, nullptr); }),
              argumentFault(20, "pReactor", name + "AddReactor"));
    EXPECT_EQ(thrownBy([&] { CSelectionSetReactor::RemoveReactor(db, nullptr); }),
              argumentFault(20, "pReactor", name + "RemoveReactor"));
    struct Open : CSelectionSetReactor
    {
        using CSelectionSetReactor::GetReactors;
        using CSelectionSetReactor::SetReactors;
    };
    OdArray<OdRxObjectPtr> reactors;
    EXPECT_EQ(thrownBy([&] { Open::GetReactors(nullptr, reactors); }), argumentFault(122, "pDb", name + "GetReactors"));
    EXPECT_EQ(thrownBy([&] { Open::SetReactors(nullptr, reactors); }), argumentFault(122, "pDb", name + "SetReactors"));
}

} // namespace
