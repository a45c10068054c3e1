// The test drawing and its objects.
#include "CoreDrawing.h"

#include <gtest/gtest.h>

#include "OdError.h"
#include "RxInit.h"
#include "db/ObjectImage.h"

namespace coretest
{

ODDB_DEFINE_MEMBERS(Ledger, OdDbObject, DBOBJECT_CONSTR, nullptr);

std::function<void(Ledger&)> Ledger::whileReading;
std::function<OdResult(Ledger&, bool)> Ledger::whileErasing;

OdResult Ledger::dwgInFields(OdDbDwgFiler* filer)
{
    if (const OdResult result = OdDbObject::dwgInFields(filer); result != eOk)
        return result;
    if (!appendsOnReading)
        lines.clear();
    for (OdInt32 left = filer->rdInt32(); left > 0; --left)
        lines.push_back(filer->rdString());
    if (whileReading)
        whileReading(*this);
    return eOk;
}

void Ledger::dwgOutFields(OdDbDwgFiler* filer) const
{
    OdDbObject::dwgOutFields(filer);
    filer->wrInt32(static_cast<OdInt32>(lines.size()));
    for (const OdString& line : lines)
        filer->wrString(line);
}

OdResult Ledger::subErase(bool erasing)
{
    return whileErasing ? whileErasing(*this, erasing) : OdDbObject::subErase(erasing);
}

namespace
{

class SdkEnvironment : public testing::Environment
{
public:
    void SetUp() override
    {
        odInitialize();
        Ledger::rxInit();
    }
    void TearDown() override
    {
        Ledger::rxUninit();
        odUninitialize();
    }
};

const testing::Environment* const kEnvironment = testing::AddGlobalTestEnvironment(new SdkEnvironment);

std::string handleOf(OdDbStub* stub)
{
    return OdDbObjectId(stub).getHandle().text();
}

std::string hex(const oddb::Groups& bytes)
{
    std::string text;
    for (std::size_t i = 0; i < bytes.byteSize(); ++i)
    {
        text += "0123456789abcdef"[bytes.data()->bytes()[i] >> 4];
        text += "0123456789abcdef"[bytes.data()->bytes()[i] & 15];
    }
    return text;
}

std::string describeObject(const OdDbObject& object)
{
    using oddb::ObjectCore;
    std::string text = handleOf(ObjectCore::stub(object)) + (object.isErased() ? " erased" : " alive") + " owner " +
                       handleOf(ObjectCore::owner(object)) + " dictionary " +
                       handleOf(ObjectCore::extensionDictionary(object)) + " reactors";
    const oddb::ObjectExtras* extras = ObjectCore::extras(object);
    if (extras)
        extras->reactors.visit([&](OdDbStub* reactor) { text += " " + handleOf(reactor); });
    for (std::size_t i = 0; extras && i < extras->xdata.size(); ++i)
        text += " xdata " + handleOf(extras->xdata[i].application) + "=" + hex(extras->xdata[i].values);
    text += " data " + hex(object.keepsGroups() ? ObjectCore::groups(object) : oddb::captureImage(object));
    return text + "\n";
}

} // namespace

CoreDrawing::CoreDrawing() : db(OdDbDatabase::createObject())
{
    db->disableUndoRecording(true);
    db->impl().symbols[static_cast<int>(oddb::SymbolTable::RegApp)] = &applications;
    db->impl().symbols[static_cast<int>(oddb::SymbolTable::Layer)] = &layers;
    addNamed(oddb::SymbolTable::RegApp, "ONE");
    addNamed(oddb::SymbolTable::RegApp, "TWO");
    addNamed(oddb::SymbolTable::Layer, "WALLS");
    db->disableUndoRecording(false);
}

OdDbObjectId CoreDrawing::addNamed(oddb::SymbolTable table, const std::string& name)
{
    oddb::GroupsBuilder builder;
    builder.text(100, "AcDbSymbolTableRecord").text(2, name);
    OdDbProxyObjectPtr record = OdDbProxyObject::createObject();
    oddb::ObjectCore::putGroups(*record, builder.build());
    const OdDbObjectId id = db->addOdDbObject(record);
    Names& names = table == oddb::SymbolTable::RegApp ? applications : layers;
    names.m_records[name] = id;
    return id;
}

OdDbObjectId CoreDrawing::addLedger()
{
    return db->addOdDbObject(Ledger::createObject());
}

OdDbObjectId CoreDrawing::addRecord(int value)
{
    OdDbProxyObjectPtr record = OdDbProxyObject::createObject();
    oddb::ObjectCore::putGroups(*record, recordGroups(value));
    return db->addOdDbObject(record);
}

void CoreDrawing::setRecord(const OdDbObjectId& id, int value)
{
    OdDbObjectPtr record = id.safeOpenObject(OdDb::kForWrite);
    oddb::ObjectCore::changeGroups(*record, recordGroups(value));
}

std::string CoreDrawing::snapshot() const
{
    std::map<OdUInt64, std::string> objects;
    db->impl().stubs.visit(
        [&](OdDbStub& stub)
        {
            if (!stub.object || stub.has(OdDbStub::kUndone))
                return;
            const OdDbObjectPtr open = OdDbObjectId(&stub).safeOpenObject(OdDb::kForRead, true);
            objects[stub.handle] = describeObject(*open);
        });
    std::string text;
    for (const auto& [handle, described] : objects)
        text += described;
    return text;
}

oddb::Groups recordGroups(int value)
{
    oddb::GroupsBuilder builder;
    return builder.text(100, "AcDbRecord").integer(90, value).build();
}

OdResBufPtr xdataChain(const OdChar* application, int value, const OdChar* text)
{
    OdResBufPtr chain = xdataRemoval(application);
    chain->setNext(OdResBuf::newRb(1071, value))->setNext(OdResBuf::newRb(1000, text));
    return chain;
}

OdResBufPtr xdataRemoval(const OdChar* application)
{
    return OdResBuf::newRb(1001, application);
}

} // namespace coretest
