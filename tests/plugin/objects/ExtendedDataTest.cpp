// Attacks the marks on objects: records of every version, damaged ones, ones that are too long, flags that depend on
// each other.
#include "support/PluginTest.h"

using namespace plugintest;

namespace
{

class ExtendedDataTest : public PluginTest
{
protected:
    ExtendedDataTest() : line(addLine()) { run(L"REGISTERCUSTOMAPPLICATION", OdResBuf::newRb(5005, L"")); }

    /// The values behind the application's name: texts for strings, numbers for 32-bit integers.
    void setMarks(const std::vector<std::string>& values, int numberType = OdResBuf::kDxfXdInteger32)
    {
        const OdResBufPtr head = OdResBuf::newRb(1001, L"terraSHAPING");
        for (const std::string& value : values)
        {
            const bool isNumber = !value.empty() && (std::isdigit(value[0]) || value[0] == '-');
            head->last()->setNext(isNumber ? OdResBuf::newRb(numberType, std::stoi(value))
                                           : OdResBuf::newRb(1000, OdString(value.c_str())));
        }
        line.safeOpenObject(OdDb::kForWrite)->setXData(head);
    }
    std::string marks()
    {
        std::string text;
        for (OdResBufPtr element = line.safeOpenObject()->xData(L"terraSHAPING"); element; element = element->next())
            text += element->restype() == 1071 ? std::to_string(element->getInt32()) + "|"
                                               : odStringToUtf8(element->getString()) + "|";
        return text;
    }
    CZolExtendedDataPtr get() { return CZolExtendedData::Get(line, false, false); }

    OdDbObjectId line;
};

TEST_F(ExtendedDataTest, ReadsEveryVersionAndWritesTheNewest)
{
    const Fault unreadable = valueFault(68, "pResult", "CZolExtendedData::Get");
    // The values, how they are refused, what is saved after the name was set to "new".
    const std::tuple<std::vector<std::string>, Fault, const char*> rows[] = {
        {{"1", "4097", "256"}, {}, "terraSHAPING|3|4097|256|||new|"},
        {{"1", "2", "0", "link", "guid", "name"}, {}, "terraSHAPING|3|2|0|||new|"},
        {{"0", "2", "0"}, {}, "terraSHAPING|3|2|0|||new|"},
        {{"2", "2", "0", "F1", "guid"}, {}, "terraSHAPING|3|2|0|F1|guid|new|"},
        {{"3", "8192", "0", "", "guid", "name"}, {}, "terraSHAPING|3|8192|0||guid|new|"},
        {{"3", "2", "0", "F1", "guid", "name", "more"}, {}, "terraSHAPING|3|2|0|F1|guid|new|"},
        {{"4", "2", "0", "F1", "guid", "name"}, unreadable, ""},
        {{"-1", "2", "0", "F1", "guid", "name"}, unreadable, ""},
        {{"x"}, unreadable, ""},
        {{"1"}, unreadable, ""},
        {{"1", "2"}, unreadable, ""},
        {{"1", "2", "x"}, unreadable, ""},
        {{"2", "2", "0", "F1"}, unreadable, ""},
        {{"2", "2", "0", "F1", "7"}, unreadable, ""},
        {{"3", "2", "0", "F1", "guid"}, unreadable, ""},
        {{"3", "2", "0", "F1", "guid", "7"}, unreadable, ""},
    };
    for (const auto& [values, fault, saved] : rows)
    {
        setMarks(values);
        const std::string before = marks();
        EXPECT_TRUE(CZolExtendedData::ObjectHasData(line, false));
        EXPECT_EQ(thrownBy([&] { get(); }), fault) << before;
        if (fault.code != 0)
            continue;
        const CZolExtendedDataPtr data = get();
        data->Save();
        EXPECT_EQ(marks(), before) << "nothing was changed yet";
        data->SetName(L"new");
        data->Save();
        EXPECT_EQ(marks(), saved);
        EXPECT_EQ(data->DataReadFromObject(), line);
    }
    setMarks({"1", "2", "0"}, OdResBuf::kDxfXdInteger16);
    EXPECT_EQ(thrownBy([&] { get(); }), unreadable);
}

TEST_F(ExtendedDataTest, FlagsDependOnEachOtherOneWay)
{
    const CZolExtendedDataPtr data = CZolExtendedData::Get(line, true, false);
    data->Save();
    EXPECT_FALSE(CZolExtendedData::ObjectHasData(line, false)) << "an empty record saves nothing";
    data->SetIsCustomLabel(true);
    data->SetIgnoreOnCharacteristicSearch(false);
    EXPECT_TRUE(data->IgnoreOnCharacteristicSearch());
    data->SetIgnoreOnCharacteristicSearch(true);
    data->SetIsCustomLabel(false);
    EXPECT_TRUE(data->IgnoreOnCharacteristicSearch());
    data->SetIgnoreOnCharacteristicSearch(false);
    EXPECT_FALSE(data->IgnoreOnCharacteristicSearch());
    data->SetIsTable(true);
    data->SetIsCreatedObject(true);
    data->SetExtendedCharacteristicFlags(EZolExtendedCharacteristicFlags(0x11));
    data->SetIsRoughnessValue(true);
    data->Save();
    EXPECT_EQ(marks(), "terraSHAPING|3|8194|273||||");
    data->SetIsRoughnessValue(false);
    EXPECT_EQ(data->GetExtendedCharacteristicFlags(), 0x11);
    data->Reset();
    data->Save();
    EXPECT_EQ(marks(), "terraSHAPING|3|0|0||||");
    EXPECT_FALSE(data->IsTable() || data->IsCreatedObject());
}

TEST_F(ExtendedDataTest, UnchangedValuesAreNotSaved)
{
    setMarks({"2", "4096", "256", "", "guid"});
    const CZolExtendedDataPtr data = get();
    data->SetIsCustomLabel(true);
    data->SetIsTable(false);
    data->SetGuid(L"guid");
    data->SetName(L"");
    data->SetIsRoughnessValue(true);
    data->Save();
    EXPECT_EQ(marks(), "terraSHAPING|2|4096|256||guid|");
}

TEST_F(ExtendedDataTest, LinksObjectsByHandle)
{
    const OdDbObjectId other = addLine();
    const CZolExtendedDataPtr data = CZolExtendedData::Get(line, true, false);
    EXPECT_TRUE(data->GetLinkedObject().isNull());
    EXPECT_EQ(thrownBy([&] { data->SetLinkedObject(OdDbObjectId()); }),
              argumentFault(398, "value", "CZolExtendedData::SetLinkedObject"));
    data->SetLinkedObject(other);
    data->Save();
    EXPECT_EQ(get()->GetLinkedObject(), other);
    setMarks({"2", "0", "0", "FFFFFF", "guid"});
    EXPECT_TRUE(get()->GetLinkedObject().isNull()) << "no object is made up for a handle";
    EXPECT_TRUE(db->getOdDbObjectId(OdDbHandle(0xFFFFFF), false).isNull());
}

TEST_F(ExtendedDataTest, RefusesWhatCannotBeOpened)
{
    const OdDbObjectId none;
    const CZolExtendedDataPtr data = CZolExtendedData::Get(line, true, false);
    EXPECT_FALSE(CZolExtendedData::ObjectHasData(none, true));
    EXPECT_EQ(thrownBy([&] { CZolExtendedData::Get(none, true, true); }),
              argumentFault(398, "id", "CZolExtendedData::Get"));
    EXPECT_EQ(thrownBy([&] { data->SaveTo(none); }), argumentFault(398, "id", "CZolExtendedData::SaveTo"));
    EXPECT_EQ(thrownBy([&] { data->RemoveFrom(none); }), valueFault(20, "pObject", "CZolExtendedData::RemoveFrom"));
    data->SetName(L"x");
    const OdDbObjectPtr writer = line.safeOpenObject(OdDb::kForWrite);
    EXPECT_EQ(thrownBy([&] { data->Save(); }), valueFault(20, "pObject", "CZolExtendedData::SaveTo"));
    EXPECT_EQ(thrownBy([&] { data->Remove(); }), valueFault(20, "pObject", "CZolExtendedData::RemoveFrom"));
}

TEST_F(ExtendedDataTest, ErasedObjectsAreReadOnRequest)
{
    setMarks({"1", "2", "0"});
    erase(line);
    EXPECT_FALSE(CZolExtendedData::ObjectHasData(line, false));
    EXPECT_TRUE(CZolExtendedData::ObjectHasData(line, true));
    EXPECT_FALSE(CZolExtendedData::Get(line, false, false));
    EXPECT_TRUE(CZolExtendedData::Get(line, false, true)->IsCreatedObject());
}

TEST_F(ExtendedDataTest, TextsThatDoNotFitChangeNothing)
{
    setMarks({"1", "2", "0"});
    const CZolExtendedDataPtr data = get();
    data->SetName(OdString(L'x', 17 * 1024));
    EXPECT_EQ(thrownBy([&] { data->Save(); }).code, eXdataSizeExceeded);
    EXPECT_EQ(marks(), "terraSHAPING|1|2|0|");
}

TEST_F(ExtendedDataTest, RemovingLeavesOtherApplicationsAlone)
{
    run(L"REGISTERCUSTOMAPPLICATION", CadCommands::SetParameterOdString(L"NAME", L"OTHER"));
    const OdResBufPtr others = OdResBuf::newRb(1001, L"OTHER");
    others->setNext(OdResBuf::newRb(1000, L"kept"));
    line.safeOpenObject(OdDb::kForWrite)->setXData(others);
    setMarks({"1", "2", "0"});
    get()->Remove();
    EXPECT_EQ(marks(), "");
    EXPECT_FALSE(CZolExtendedData::ObjectHasData(line, false));
    EXPECT_TRUE(line.safeOpenObject()->xData(L"OTHER"));
}

TEST(ExtendedData, RegistersItsApplicationWhenItIsMissing)
{
    const OdDbDatabasePtr db = OdDbDatabase::createObject();
    db->initialize();
    const OdDbBlockTableRecordPtr space = db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
    const OdDbLinePtr line = OdDbLine::createObject();
    const OdDbObjectId id = space->appendOdDbEntity(line);
    const CZolExtendedDataPtr data = CZolExtendedData::Get(id, true, false);
    data->SetIsTable(true);
    EXPECT_EQ(thrownBy([&] { data->Save(); }).code, eNullObjectPointer) << "the line is still open for write";
    line->downgradeOpen();
    EXPECT_EQ(thrownBy([&] { data->Save(); }).code, 0);
    EXPECT_TRUE(CZolExtendedData::Get(id, false, false)->IsTable());
}

} // namespace
