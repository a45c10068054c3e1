// The discipline of opening and closing, and what outlives what.
#include <gtest/gtest.h>

#include "CoreDrawing.h"
#include "OdError.h"

namespace
{

using namespace coretest;

enum class Held
{
    Nothing,
    Read,
    Write,
    Notify,
    Upgraded,
    Downgraded
};

OdDbObjectPtr hold(const OdDbObjectId& id, Held held)
{
    if (held == Held::Nothing)
        return OdDbObjectPtr();
    const bool writes = held == Held::Write || held == Held::Downgraded;
    OdDbObjectPtr object = id.safeOpenObject(writes                 ? OdDb::kForWrite
                                             : held == Held::Notify ? OdDb::kForNotify
                                                                    : OdDb::kForRead);
    if (held == Held::Upgraded)
        object->upgradeOpen();
    if (held == Held::Downgraded)
        object->downgradeOpen();
    return object;
}

constexpr std::tuple<Held, OdDb::OpenMode, OdResult> kOpenCases[] = {
    {Held::Nothing, OdDb::kForRead, eOk},
    {Held::Nothing, OdDb::kForWrite, eOk},
    {Held::Nothing, OdDb::kForNotify, eOk},
    {Held::Nothing, OdDb::kNotOpen, eInvalidOpenMode},
    {Held::Read, OdDb::kForRead, eOk},
    {Held::Read, OdDb::kForWrite, eOk},
    {Held::Read, OdDb::kForNotify, eOk},
    {Held::Write, OdDb::kForRead, eOk},
    {Held::Write, OdDb::kForWrite, eWasOpenForWrite},
    {Held::Write, OdDb::kForNotify, eOk},
    {Held::Notify, OdDb::kForRead, eOk},
    {Held::Notify, OdDb::kForWrite, eOk},
    {Held::Upgraded, OdDb::kForWrite, eWasOpenForWrite},
    {Held::Downgraded, OdDb::kForWrite, eOk},
};

TEST(OpenClose, WhoMayOpenWhatIsHeld)
{
    CoreDrawing drawing;
    const OdDbObjectId id = drawing.addLedger();
    for (const auto& [first, mode, result] : kOpenCases)
    {
        const OdDbObjectPtr held = hold(id, first);
        EXPECT_EQ(codeOf([&, how = mode] { id.safeOpenObject(how); }), result) << int(first) << " then " << mode;
        EXPECT_EQ(id.openObject(mode).isNull(), result != eOk);
    }
    // Nothing is left open by any of these.
    EXPECT_EQ(codeOf([&] { id.safeOpenObject(OdDb::kForWrite); }), eOk);
}

struct AccessCase
{
    Held held;
    OdResult reading, writing, notifying, upgrading;
};

constexpr AccessCase kAccessCases[] = {
    {Held::Read, eOk, eNotOpenForWrite, eOk, eOk},
    {Held::Write, eOk, eOk, eOk, eOk},
    {Held::Notify, eNotOpenForRead, eNotOpenForWrite, eOk, eNotOpenForRead},
    {Held::Upgraded, eOk, eOk, eOk, eOk},
    {Held::Downgraded, eOk, eNotOpenForWrite, eOk, eOk},
};

TEST(OpenClose, WhatAnOpenObjectAllows)
{
    CoreDrawing drawing;
    const OdDbObjectId id = drawing.addLedger();
    for (const AccessCase& test : kAccessCases)
    {
        const OdDbObjectPtr object = hold(id, test.held);
        EXPECT_EQ(codeOf([&] { object->assertReadEnabled(); }), test.reading) << int(test.held);
        EXPECT_EQ(codeOf([&] { object->assertWriteEnabled(); }), test.writing) << int(test.held);
        EXPECT_EQ(codeOf([&] { object->assertNotifyEnabled(); }), test.notifying) << int(test.held);
        EXPECT_EQ(object->isReadEnabled(), test.reading == eOk);
        EXPECT_EQ(object->isWriteEnabled(), test.writing == eOk);
        EXPECT_EQ(codeOf([&] { object->upgradeOpen(); }), test.upgrading) << int(test.held);
    }
}

TEST(OpenClose, AClosedObjectRefusesWhoeverKeptItsAddress)
{
    CoreDrawing drawing;
    OdDbObject* object = drawing.addLedger().safeOpenObject().get();
    EXPECT_EQ(codeOf([&] { object->assertReadEnabled(); }), eNotOpenForRead);
    EXPECT_EQ(codeOf([&] { object->assertNotifyEnabled(); }), eNotOpenForRead);
    EXPECT_EQ(codeOf([&] { object->upgradeOpen(); }), eNotOpenForRead);
    EXPECT_EQ(codeOf([&] { object->downgradeOpen(); }), eNotOpenForWrite);
    EXPECT_EQ(codeOf([&] { object->erase(); }), eNotOpenForWrite);
    EXPECT_EQ(codeOf([&] { object->setXData(xdataChain(L"ONE", 1, L"")); }), eNotOpenForWrite);
    EXPECT_EQ(codeOf([&] { object->addPersistentReactor(object->objectId()); }), eNotOpenForWrite);
    EXPECT_EQ(codeOf([&] { object->setOwnerId(OdDbObjectId()); }), eNotOpenForWrite);
}

TEST(OpenClose, WritersInsideOfReaders)
{
    CoreDrawing drawing;
    const OdDbObjectId id = drawing.addLedger();
    const OdDbObjectPtr outer = id.safeOpenObject();
    for (int i = 0; i < 3; ++i) // one after the other, while the reader stays
    {
        LedgerPtr writer = id.safeOpenObject(OdDb::kForWrite);
        writer->put(L"line");
        EXPECT_EQ(codeOf([&] { id.safeOpenObject(OdDb::kForWrite); }), eWasOpenForWrite);
    }
    outer->upgradeOpen();
    outer->upgradeOpen();
    outer->downgradeOpen();
    EXPECT_TRUE(outer->isWriteEnabled());
    outer->downgradeOpen();
    EXPECT_FALSE(outer->isWriteEnabled());
    EXPECT_EQ(codeOf([&] { outer->downgradeOpen(); }), eNotOpenForWrite);
}

TEST(OpenClose, TheSamePointerMayTakeTheWriterFromTheReader)
{
    CoreDrawing drawing;
    const OdDbObjectId id = drawing.addLedger();
    OdDbObjectPtr object = id.safeOpenObject(OdDb::kForRead);
    object = id.safeOpenObject(OdDb::kForWrite);
    EXPECT_EQ(codeOf([&] { object->assertWriteEnabled(); }), eOk);
    object.release();
    EXPECT_EQ(codeOf([&] { id.safeOpenObject(OdDb::kForWrite); }), eOk);
}

TEST(OpenClose, NewObjectsAreOpenForTheirMakerUntilReleased)
{
    CoreDrawing drawing;
    LedgerPtr made = Ledger::createObject();
    made->put(L"before it is resident");
    made->upgradeOpen();
    made->downgradeOpen();
    EXPECT_TRUE(made->isWriteEnabled());
    const OdDbObjectId id = drawing.db->addOdDbObject(made);
    EXPECT_TRUE(made->isNewObject());
    made->put(L"while it is new");
    EXPECT_EQ(codeOf([&] { drawing.db->addOdDbObject(made); }), eAlreadyInDb);
    made.release();
    EXPECT_FALSE(id.safeOpenObject()->isNewObject());
    EXPECT_EQ(codeOf([&] { drawing.db->addOdDbObject(nullptr); }), eNullObjectPointer);
    EXPECT_EQ(codeOf([&] { drawing.db->addOdDbObject(Ledger::createObject(), OdDbObjectId(), id.getHandle()); }),
              eHandleExists);
}

TEST(OpenClose, IdsWithoutObject)
{
    CoreDrawing drawing;
    const OdDbObjectId null, dangling = drawing.db->getOdDbObjectId(0x7777, true);
    EXPECT_EQ(codeOf([&] { null.safeOpenObject(); }), eNullObjectId);
    EXPECT_EQ(codeOf([&] { dangling.safeOpenObject(); }), eInvalidObjectId);
    EXPECT_TRUE(null.openObject().isNull());
    EXPECT_TRUE(dangling.openObject(OdDb::kForRead, true).isNull());
    EXPECT_FALSE(dangling.isValid());
    EXPECT_TRUE(dangling.isErased());
    EXPECT_FALSE(dangling.isNull());
    EXPECT_TRUE(drawing.db->getOdDbObjectId(0x7778, false).isNull());
    EXPECT_TRUE(drawing.db->getOdDbObjectId(0, true).isNull());
    // The object that comes for the handle later is found under the same id, and no new object gets its number.
    drawing.db->setHandseed(0x7777);
    EXPECT_NE(drawing.addLedger().getHandle(), dangling.getHandle());
    EXPECT_EQ(drawing.db->addOdDbObject(Ledger::createObject(), OdDbObjectId(), 0x7777), dangling);
    EXPECT_TRUE(dangling.isValid());
}

TEST(OpenClose, TheNextHandleStaysFreeAtTheEndOfAllNumbers)
{
    CoreDrawing drawing;
    const OdDbObjectId last = drawing.db->addOdDbObject(Ledger::createObject(), OdDbObjectId(), 0xFFFFFFFFFFFFFFFFull);
    drawing.db->setHandseed(0xFFFFFFFFFFFFFFFFull);
    const OdDbObjectId next = drawing.addLedger();
    EXPECT_NE(next, last);
    EXPECT_FALSE(next.getHandle().isNull());
}

TEST(OpenClose, ErasingAsksTheClassAndIsSeenThroughTheId)
{
    CoreDrawing drawing;
    const OdDbObjectId id = drawing.addLedger();
    Ledger::whileErasing = [](Ledger&, bool) { return eDeletionNotAllowed; };
    EXPECT_EQ(id.safeOpenObject(OdDb::kForWrite)->erase(), eDeletionNotAllowed);
    EXPECT_FALSE(id.isErased());
    Ledger::whileErasing = [](Ledger&, bool) -> OdResult { throw OdError(eInvalidInput); };
    EXPECT_EQ(codeOf([&] { id.safeOpenObject(OdDb::kForWrite)->erase(); }), eInvalidInput);
    EXPECT_FALSE(id.isErased());
    Ledger::whileErasing = nullptr;
    EXPECT_EQ(id.safeOpenObject(OdDb::kForWrite)->erase(), eOk);
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(id.isValid());
    EXPECT_EQ(codeOf([&] { id.safeOpenObject(); }), eWasErased);
    EXPECT_TRUE(id.openObject(OdDb::kForRead).isNull());
    const OdDbObjectPtr erased = id.safeOpenObject(OdDb::kForWrite, true);
    EXPECT_EQ(erased->erase(true), eOk);
    EXPECT_EQ(erased->erase(false), eOk);
    EXPECT_FALSE(id.isErased());
}

TEST(OpenClose, ObjectsMayOutliveTheirDatabase)
{
    LedgerPtr ledger;
    OdDbObjectPtr record;
    {
        CoreDrawing drawing;
        ledger = drawing.addLedger().safeOpenObject(OdDb::kForWrite);
        ledger->put(L"kept");
        ledger->addPersistentReactor(ledger->objectId());
        ledger->setXData(xdataChain(L"ONE", 1, L"x"));
        const OdDbObjectId layer = drawing.layers.m_records["WALLS"];
        oddb::GroupsBuilder named;
        record = drawing.addRecord(1).safeOpenObject(OdDb::kForWrite);
        oddb::ObjectCore::changeGroups(*record, named.name(8, layer).finish());
        EXPECT_EQ(oddb::readableGroups(*record).findAny(8)->text(), "WALLS");
    }
    EXPECT_FALSE(ledger->isDBRO());
    EXPECT_TRUE(ledger->objectId().isNull());
    EXPECT_EQ(ledger->getPersistentReactors().size(), 0u);
    EXPECT_TRUE(ledger->xData().isNull());
    EXPECT_EQ(ledger->lines.size(), 1u);
    EXPECT_EQ(oddb::readableGroups(*record).findAny(8)->text(), "");
}

} // namespace
