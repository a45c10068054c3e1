// Extended data: by application, shared, limited.
#include <utility>

#include <gtest/gtest.h>

#include "CoreDrawing.h"
#include "Ge/GePoint3d.h"
#include "OdError.h"

namespace
{

using namespace coretest;

std::string print(const OdResBufPtr& chain)
{
    std::string text;
    for (OdResBufPtr element = chain; !element.isNull(); element = element->next())
    {
        text += std::to_string(element->restype()) + '=';
        if (element->restype() == 1071 || element->restype() == 1070)
            text += std::to_string(element->getInt32());
        else if (element->restype() >= 1040)
            text += std::to_string(element->getDouble());
        else if (element->restype() >= 1010)
            text += std::to_string(element->getPoint3d().y);
        else if (element->restype() == 1005)
            text += element->getHandle().text();
        else
            text += odStringToUtf8(element->getString());
        text += ' ';
    }
    return text;
}

class XData : public testing::Test
{
protected:
    XData() : id(drawing.addLedger()), object(id.safeOpenObject(OdDb::kForWrite)) {}

    CoreDrawing drawing;
    OdDbObjectId id;
    OdDbObjectPtr object;
};

TEST_F(XData, IsKeptByApplication)
{
    object->setXData(xdataChain(L"ONE", 1, L"a"));
    object->setXData(xdataChain(L"TWO", 2, L"b"));
    EXPECT_EQ(print(object->xData(L"one")), "1001=ONE 1071=1 1000=a ");
    EXPECT_EQ(print(object->xData()), "1001=ONE 1071=1 1000=a 1001=TWO 1071=2 1000=b ");
    object->setXData(xdataChain(L"ONE", 3, L"c")); // it keeps its place
    EXPECT_EQ(print(object->xData()), "1001=ONE 1071=3 1000=c 1001=TWO 1071=2 1000=b ");
    object->setXData(xdataRemoval(L"ONE"));
    EXPECT_TRUE(object->xData(L"ONE").isNull());
    EXPECT_EQ(print(object->xData()), "1001=TWO 1071=2 1000=b ");
    object->setXData(nullptr);
    EXPECT_FALSE(object->xData().isNull());
    EXPECT_TRUE(object->xData(L"NOBODY").isNull());
}

TEST_F(XData, OneChainMayCarrySeveralApplications)
{
    object->setXData(xdataChain(L"ONE", 1, L"a"));
    OdResBufPtr chain = xdataRemoval(L"ONE");
    chain->last()->setNext(xdataChain(L"TWO", 2, L"b"));
    object->setXData(chain);
    EXPECT_EQ(print(object->xData()), "1001=TWO 1071=2 1000=b ");
}

TEST_F(XData, CarriesEveryKindOfValue)
{
    OdResBufPtr chain = xdataRemoval(L"ONE");
    OdResBufPtr last = chain;
    auto add = [&](const OdResBufPtr& element) { last = last->setNext(element); };
    add(OdResBuf::newRb(1002, L"{"));
    add(OdResBuf::newRb(1003, L"WALLS"));
    add(OdResBuf::newRb(1003, L"no such layer"));
    OdResBufPtr handle = OdResBuf::newRb(1005);
    handle->setHandle(0xBEEF);
    add(handle);
    add(OdResBuf::newRb(1010, OdGePoint3d(1, 2, 3)));
    add(OdResBuf::newRb(1040, 2.5));
    add(OdResBuf::newRb(1070, OdInt16(-7)));
    add(OdResBuf::newRb(1000, L"\u00e9\u0416\U0001F600"));
    add(OdResBuf::newRb(1002, L"}"));
    object->setXData(chain);
    EXPECT_EQ(print(object->xData()),
              "1001=ONE 1002={ 1003=WALLS 1003=no such layer 1005=BEEF 1010=2.000000 1040=2.500000 1070=-7 "
              "1000=\u00e9\u0416\U0001F600 1002=} ");
    // A layer is known by its record, so it follows a new name.
    oddb::GroupsBuilder renamed;
    OdDbObjectPtr layer = OdDbObjectId(drawing.layers.m_records["WALLS"]).safeOpenObject(OdDb::kForWrite);
    oddb::ObjectCore::changeGroups(*layer, renamed.text(2, "DOORS").finish());
    EXPECT_NE(print(object->xData()).find("1003=DOORS"), std::string::npos);
}

TEST_F(XData, RefusesWhatIsNoneAndChangesNothing)
{
    object->setXData(xdataChain(L"TWO", 2, L"b"));
    const auto before = [](const OdResBufPtr& tail)
    {
        OdResBufPtr chain = xdataChain(L"TWO", 9, L"");
        chain->last()->setNext(tail);
        return chain;
    };
    const std::pair<OdResBufPtr, OdResult> cases[] = {
        {OdResBuf::newRb(1000, L"no name first"), eInvalidResBuf},
        {xdataChain(L"NOBODY", 1, L""), eRegappIdNotFound},
        {before(OdResBuf::newRb(40, 1.0)), eInvalidResBuf},
        {before(OdResBuf::newRb(1000, 1.0)), eInvalidResBuf},
        {before(OdResBuf::newRb(1072, 1)), eInvalidResBuf},
        {before(xdataChain(L"NOBODY", 1, L"")), eRegappIdNotFound},
    };
    for (const auto& test : cases)
    {
        EXPECT_EQ(codeOf([&] { object->setXData(test.first); }), test.second);
        EXPECT_EQ(print(object->xData()), "1001=TWO 1071=2 1000=b ");
    }
    EXPECT_EQ(codeOf([] { Ledger::createObject()->setXData(xdataChain(L"ONE", 1, L"")); }), eNoDatabase);
}

OdResBufPtr longChain(const OdChar* application, int strings, std::size_t length)
{
    OdResBufPtr chain = xdataRemoval(application), last = chain;
    for (int i = 0; i < strings; ++i)
        last = last->setNext(OdResBuf::newRb(1000, OdString(std::wstring(length, L'x').c_str())));
    return chain;
}

TEST_F(XData, AtMostSixteenKilobytesOfAllApplicationsTogether)
{
    // A text takes four bytes more than its characters, an application ten.
    EXPECT_EQ(codeOf([&] { object->setXData(longChain(L"ONE", 63, 255)); }), eOk);
    EXPECT_EQ(codeOf([&] { object->setXData(longChain(L"ONE", 64, 255)); }), eXdataSizeExceeded);
    EXPECT_EQ(object->xData()->numElements(), 64u);
    EXPECT_EQ(codeOf([&] { object->setXData(longChain(L"TWO", 1, 16384 - 10 - 63 * 259 - 10 - 4)); }), eOk);
    EXPECT_EQ(codeOf([&] { object->setXData(longChain(L"TWO", 1, 16384 - 10 - 63 * 259 - 10 - 3)); }),
              eXdataSizeExceeded);
    EXPECT_EQ(codeOf([&] { object->setXData(xdataRemoval(L"ONE")); }), eOk);
    EXPECT_EQ(codeOf([&] { object->setXData(longChain(L"TWO", 60, 255)); }), eOk);
}

TEST_F(XData, EqualValuesOfManyObjectsAreStoredOnce)
{
    const oddb::GroupsData* shared = nullptr;
    OdDbStub* application = drawing.applications.m_records["ONE"];
    for (int i = 0; i < 100; ++i)
    {
        OdDbObjectPtr other = drawing.addLedger().safeOpenObject(OdDb::kForWrite);
        other->setXData(xdataChain(L"ONE", 7, L"the same"));
        const oddb::GroupsData* data = oddb::ObjectCore::xdata(*other, application)->data();
        EXPECT_TRUE(!shared || shared == data);
        shared = data;
    }
}

// What was read from one chain is used again for the next; that must show nowhere but in time.
TEST_F(XData, ChainsThatAreSetAgainMeanWhatTheyMeanNow)
{
    const OdResBufPtr chain = xdataChain(L"ONE", 7, L"a");
    object->setXData(chain);
    chain->next()->setInt32(8); // the caller's chain may change after it was set
    object->setXData(chain);
    EXPECT_EQ(print(object->xData(L"ONE")), "1001=ONE 1071=8 1000=a ");

    OdDbStub* one = std::exchange(drawing.applications.m_records["ONE"], nullptr);
    EXPECT_EQ(codeOf([&] { object->setXData(chain); }), eRegappIdNotFound);
    drawing.applications.m_records["ONE"] = drawing.applications.m_records["TWO"]; // registered again
    const OdDbObjectPtr second = drawing.addLedger().safeOpenObject(OdDb::kForWrite);
    second->setXData(chain);
    EXPECT_EQ(print(second->xData()), "1001=TWO 1071=8 1000=a ");
    drawing.applications.m_records["ONE"] = one;
    const OdDbObjectPtr third = drawing.addLedger().safeOpenObject(OdDb::kForWrite);
    third->setXData(chain);
    EXPECT_EQ(print(third->xData()), "1001=ONE 1071=8 1000=a ");
    chain->last()->setNext(OdResBuf::newRb(1000, L"longer"));
    third->setXData(chain);
    EXPECT_EQ(print(third->xData()), "1001=ONE 1071=8 1000=a 1000=longer ");
    third->setXData(xdataChain(L"ONE", 8, L"a")); // shorter than the last one
    EXPECT_EQ(print(third->xData()), "1001=ONE 1071=8 1000=a ");
    const OdResBufPtr close = xdataRemoval(L"ONE");
    close->setNext(OdResBuf::newRb(1010, OdGePoint3d(0, 1, 0)));
    third->setXData(close);
    close->next()->setPoint3d(OdGePoint3d(0, 1 + 1e-13, 0));
    third->setXData(close);
    EXPECT_EQ(third->xData()->next()->getPoint3d().y, 1 + 1e-13);
}

TEST_F(XData, AnApplicationWithoutValuesOfAFileStays)
{
    oddb::ObjectCore::putXData(*object, drawing.applications.m_records["ONE"], oddb::Groups());
    EXPECT_EQ(print(object->xData()), "1001=ONE ");
    object->setXData(xdataRemoval(L"ONE"));
    EXPECT_TRUE(object->xData().isNull());
    EXPECT_TRUE(drawing.db->hasUndo());
    object.release();
    drawing.db->undo(); // the whole run, with the object itself
}

TEST_F(XData, HandlesOfAChainAreFoundInTheDatabaseThatIsAsked)
{
    CoreDrawing other;
    const OdDbObjectId id = drawing.addLedger();
    OdResBufPtr element = OdResBuf::newRb(1005);
    element->setHandle(id.getHandle());
    EXPECT_EQ(element->getObjectId(drawing.db), id);
    EXPECT_NE(element->getObjectId(other.db), id);
    EXPECT_EQ(codeOf([&] { element->getObjectId(); }), eInvalidResBuf);
    element->setHandle(OdDbHandle(0xFFFFFF));
    EXPECT_TRUE(element->getObjectId(drawing.db).isNull()) << "asking makes nothing";
    element->setObjectId(id);
    EXPECT_EQ(element->getObjectId(other.db), id) << "ids know their database";
}

} // namespace
