// Attacks the parameter protocol: the layout of every entry, values of wrong types, names in disguise, results read
// twice.
#include "support/PartialContext.h"
#include "support/PluginTest.h"

#include "RxVariant.h"
#include "framework/FunctionIO.h"

using namespace plugintest;

namespace
{

class ProtocolTest : public PluginTest
{
protected:
    ProtocolTest() : handler(CCommandHandler::createObject(L"X", db, host)) {}

    OdResBufPtr readResult(const OdResBufPtr& result, const OdChar* name)
    {
        handler->funcIO()->setResult(result);
        return CadCommands::GetValueFromResult(handler, name);
    }

    CCommandHandlerPtr handler;
};

std::string typesOf(const OdResBufPtr& chain)
{
    std::string types;
    for (OdResBufPtr element = chain; element; element = element->next())
        types += std::to_string(element->restype()) + " ";
    return types;
}

using Write = std::function<OdResBufPtr(const OdString& name)>;

TEST_F(ProtocolTest, WritesEveryKindOfEntryAndRefusesEmptyNames)
{
    const OdDbObjectId line = addLine();
    const OdRxObjectPtr object = OdRxVariant::createObject(OdVariant(1.5));
    const OdResBufPtr nested = OdResBuf::newRb(OdResBuf::kRtInt32, 1);
    const OdDbSelectionSetPtr selection = OdDbSelectionSet::createObject(db);
    const struct
    {
        const char* function;
        Write write;
        const char* types;
    } rows[] = {
        {"SetParameterOdString", [](auto& n) { return CadCommands::SetParameterOdString(n, L"v"); }, "5005 5005 "},
        {"SetParameterVoidPtr", [](auto& n) { return CadCommands::SetParameterVoidPtr(n, nullptr); }, "5005 160 "},
        {"SetParameterBool", [](auto& n) { return CadCommands::SetParameterBool(n, true); }, "5005 290 "},
        {"SetParameterInt32", [](auto& n) { return CadCommands::SetParameterInt32(n, -1); }, "5005 5010 "},
        {"SetParameterObjectId", [&](auto& n) { return CadCommands::SetParameterObjectId(n, line); }, "5005 330 "},
        {"SetParameterObjectIdArray",
         [&](auto& n) {
             return CadCommands::SetParameterObjectIdArray(n, idArray({line, line}));
         },
         "5005 330 330 "},
        {"SetParameterObjectIdArray", [](auto& n) { return CadCommands::SetParameterObjectIdArray(n, idArray({})); },
         "5005 "},
        {"SetParameterObjectPtr", [&](auto& n) { return CadCommands::SetParameterObjectPtr(n, nested); }, "5005 5023 "},
        {"SetParameterObjectPtr", [&](auto& n) { return CadCommands::SetParameterObjectPtr(n, object); }, "5005 160 "},
        {"SetParameterObjectPtr", [](auto& n) { return CadCommands::SetParameterObjectPtr(n, nullptr); }, "5005 160 "},
        {"SetParameterDbSelectionSet", [&](auto& n) { return CadCommands::SetParameterDbSelectionSet(n, selection); },
         "5005 5007 "},
        {"SetParameterOdGePoint3d", [](auto& n) { return CadCommands::SetParameterOdGePoint3d(n, OdGePoint3d()); },
         "5005 5009 "},
        {"SetParameterOdGeExtents3d",
         [](auto& n) { return CadCommands::SetParameterOdGeExtents3d(n, OdGeExtents3d()); }, "5005 5009 5009 "},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(typesOf(row.write(L"NAME")), row.types) << row.function;
        EXPECT_EQ(thrownBy([&] { row.write(L""); }),
                  argumentFault(106, "strName", std::string("CadCommands::") + row.function));
    }
    EXPECT_EQ(thrownBy([] { CadCommands::SetParameterDbSelectionSet(L"NAME", nullptr); }),
              argumentFault(20, "pSelectionSet", "CadCommands::SetParameterDbSelectionSet"));
    const OdInt64 bits = CadCommands::SetParameterObjectPtr(L"N", object)->next()->getInt64();
    EXPECT_EQ(bits, reinterpret_cast<OdIntPtr>(object.get()));
}

struct Values
{
    OdString text{L"before"};
    bool flag = true;
    OdDbObjectId id;
    OdDbObjectIdArray ids;
    OdDbSelectionSetPtr selection;
    OdGeExtents3d extents;
};
using Read = std::function<OdResBufPtr(const OdResBufPtr& element, OdDbDatabase* db, Values& values)>;

struct Reader
{
    const char* function;
    int type;
    bool needsDatabase;
    Read read;
};

const Reader kReaders[] = {
    {"ResBufGetOdString", 5005, false,
     [](auto& e, auto*, auto& v) { return CadCommands::ResBufGetOdString(e, v.text); }},
    {"ResBufGetBool", 290, false, [](auto& e, auto*, auto& v) { return CadCommands::ResBufGetBool(e, v.flag); }},
    {"ResBufGetObjectId", 330, true,
     [](auto& e, auto* db, auto& v) { return CadCommands::ResBufGetObjectId(e, db, v.id); }},
    {"ResBufGetDbSelectionSet", 5007, false,
     [](auto& e, auto*, auto& v) { return CadCommands::ResBufGetDbSelectionSet(e, v.selection); }},
    {"ResBufGetOdGeExtents3d", 5009, false,
     [](auto& e, auto*, auto& v) { return CadCommands::ResBufGetOdGeExtents3d(e, v.extents); }},
};

TEST_F(ProtocolTest, ReadersRefuseEveryOtherType)
{
    for (const Reader& reader : kReaders)
        for (const int type : {5005, 290, 330, 5007, 5009, 5010, 160, 5023, 1, -1})
        {
            if (type == reader.type)
                continue;
            Values values;
            EXPECT_EQ(thrownBy([&] { reader.read(OdResBuf::newRb(type), db, values); }),
                      argumentFault(68, "pResBuf", std::string("CadCommands::") + reader.function))
                << type;
        }
    // Elements made by hand: the right type with nothing, or something else, in it.
    for (const Reader& reader : kReaders)
        for (const bool filled : {false, true})
        {
            Values values;
            const OdResBufPtr element = OdResBuf::newRb(reader.type);
            if (filled)
                element->setDouble(1.5);
            EXPECT_EQ(thrownBy([&] { reader.read(element, db, values); }),
                      argumentFault(68, "pResBuf", std::string("CadCommands::") + reader.function));
        }
    Values values;
    const OdResBufPtr onePoint = OdResBuf::newRb(5009, OdGePoint3d());
    EXPECT_EQ(thrownBy([&] { CadCommands::ResBufGetOdGeExtents3d(onePoint, values.extents); }).code, 68);
    const OdResBufPtr noSet = OdResBuf::newRb(5007);
    noSet->setPickSet(onePoint);
    EXPECT_THROW(CadCommands::ResBufGetDbSelectionSet(noSet, values.selection), OdError_NotThatKindOfClass);
}

TEST_F(ProtocolTest, ReadersOfNothingGiveNothing)
{
    for (const Reader& reader : kReaders)
    {
        Values values;
        EXPECT_FALSE(reader.read(OdResBufPtr(), db, values)) << reader.function;
        EXPECT_TRUE(values.flag);
        EXPECT_EQ(values.text.isEmpty(), std::string(reader.function) == "ResBufGetOdString");
        if (reader.needsDatabase)
        {
            EXPECT_EQ(thrownBy([&] { reader.read(OdResBufPtr(), nullptr, values); }).code, 122);
        }
    }
    OdDbObjectIdArray ids = idArray({addLine()});
    EXPECT_FALSE(CadCommands::ResBufGetObjectIdArray(OdResBufPtr(), nullptr, ids));
    EXPECT_TRUE(ids.isEmpty());
    EXPECT_EQ(thrownBy([&] { CadCommands::ResBufGetObjectIdArray(OdResBuf::newRb(330), nullptr, ids); }),
              argumentFault(122, "pDb", "CadCommands::ResBufGetObjectIdArray"));
}

TEST_F(ProtocolTest, FindsResultsByNamesInDisguise)
{
    const OdResBufPtr number = CadCommands::SetParameterInt32(L"FIRST", 1);
    const struct
    {
        OdResBufPtr result;
        const OdChar* name;
        int value; ///< of the element found, 0 for none
    } rows[] = {
        {CadCommands::SetParameterInt32(L" 'json'\t\n\"", 5), L"JSON", 5},
        {CadCommands::SetParameterInt32(L"JSON", 5), L"json", 5},
        {CadCommands::SetParameterInt32(L"straße é", 5), L"STRAßE É", 5},
        {CadCommands::SetParameterInt32(L"JSON\r", 5), L"JSON", 0},
        {chain({number, CadCommands::SetParameterInt32(L"SECOND", 2)}), L"SECOND", 2},
        // A text that looks like the name is taken for it, and what follows for its value.
        {chain({CadCommands::SetParameterOdString(L"NOTE", L"second"), CadCommands::SetParameterInt32(L"SECOND", 2)}),
         L"SECOND", -1},
        {OdResBuf::newRb(5005, L"LAST"), L"LAST", 0},
        {chain({OdResBuf::newRb(5005), OdResBuf::newRb(5005, 1.5), CadCommands::SetParameterInt32(L"JSON", 5)}),
         L"JSON", 5},
        {number, L"OTHER", 0},
    };
    for (const auto& row : rows)
    {
        const OdResBufPtr value = readResult(row.result, row.name);
        if (row.value > 0)
        {
            ASSERT_TRUE(value) << odStringToUtf8(row.name);
            EXPECT_EQ(value->getInt32(), row.value);
        }
        else
            EXPECT_EQ(!value.isNull(), row.value < 0) << odStringToUtf8(row.name);
        EXPECT_FALSE(handler->funcIO()->result()) << "a result is read once";
    }
    handler->funcIO()->setResult(OdRxVariant::createObject(OdVariant(1.0)));
    EXPECT_FALSE(CadCommands::GetValueFromResult(handler, L"JSON"));
    EXPECT_FALSE(handler->funcIO()->result());
}

TEST_F(ProtocolTest, ExecuteRefusesBeforeItTouchesAnything)
{
    OdStaticRxObject<PartialContext> bare;
    const OdResBufPtr old = OdResBuf::newRb(1);
    handler->funcIO()->setParam(old);
    handler->funcIO()->setResult(old);
    const OdChar* const known = L"BSYSTEMLABELGETALLIDS";
    const auto execute = [&](OdDbCommandContext* context, const OdChar* command, const OdChar* group)
    { return thrownBy([&] { CadCommands::Execute(context, command, group, OdResBufPtr()); }); };
    const std::string function = "CadCommands::Execute";
    EXPECT_EQ(execute(nullptr, L"", L""), argumentFault(417, "pDbCommandContext", function));
    EXPECT_EQ(execute(handler, L"", L""), argumentFault(904, "strCommand", function));
    EXPECT_EQ(execute(handler, L"Nobody", L""), argumentFault(904, "Nobody", function));
    EXPECT_EQ(execute(handler, known, CommandGroup::kTransaction),
              argumentFault(904, "BSYSTEMLABELGETALLIDS", function));
    EXPECT_EQ(execute(&bare, L"Nobody", L""), argumentFault(904, "Nobody", function));
    EXPECT_EQ(execute(&bare, known, L""), valueFault(417, "pFunctionIO", function));
    EXPECT_EQ(handler->funcIO()->param(), old);
    EXPECT_EQ(handler->funcIO()->result(), old);
    const auto getValue = [](OdDbCommandContext* context)
    { return thrownBy([&] { CadCommands::GetValueFromResult(context, L"X"); }); };
    EXPECT_EQ(getValue(nullptr), argumentFault(417, "pDbCommandContext", "CadCommands::GetValueFromResult"));
    EXPECT_EQ(getValue(&bare), valueFault(417, "pFunctionIO", "CadCommands::GetValueFromResult"));
}

TEST_F(ProtocolTest, ExecuteLeavesItsParametersInstalled)
{
    const OdResBufPtr parameters = CadCommands::SetParameterBool(L"ALLOWDELETED", true);
    handler->funcIO()->setResult(OdResBuf::newRb(1));
    const OdResBufPtr result =
        CadCommands::Execute(handler, L"bsystemlabelgetallids", CommandGroup::kLabel, parameters);
    EXPECT_EQ(typesOf(result), "5005 ");
    EXPECT_EQ(handler->funcIO()->param(), parameters);
    const OdResBufPtr wrong = CadCommands::SetParameterInt32(L"ALLOWDELETED", 1);
    EXPECT_EQ(thrownBy([&] { CadCommands::Execute(handler, L"BSYSTEMLABELGETALLIDS", L"", wrong); }),
              argumentFault(68, "pResBuf", "CadCommands::ResBufGetBool"));
    EXPECT_EQ(handler->funcIO()->param(), wrong);
    EXPECT_FALSE(handler->funcIO()->result());
}

} // namespace
