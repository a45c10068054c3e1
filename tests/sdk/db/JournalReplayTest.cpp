// Objects that do what they must not while their states are put back.
#include <gtest/gtest.h>

#include "CoreDrawing.h"
#include "OdError.h"

namespace
{

using namespace coretest;

class JournalReplay : public testing::Test
{
protected:
    JournalReplay()
    {
        drawing.db->disableUndoRecording(true);
        first = drawing.addLedger();
        second = drawing.addLedger();
        record = drawing.addRecord(3);
        second.safeOpenObject(OdDb::kForWrite)->addPersistentReactor(record);
        second.safeOpenObject(OdDb::kForWrite)->setXData(xdataChain(L"ONE", 1, L"a"));
        put(second, L"of the second");
        drawing.db->disableUndoRecording(false);
        before = drawing.snapshot();
        drawing.db->startUndoRecord();
        put(first, L"1");
        after = drawing.snapshot();
    }
    ~JournalReplay() override
    {
        Ledger::whileReading = nullptr;
        Ledger::whileErasing = nullptr;
    }

    static void put(const OdDbObjectId& id, const OdChar* line)
    {
        LedgerPtr(id.safeOpenObject(OdDb::kForWrite))->put(line);
    }

    CoreDrawing drawing;
    OdDbObjectId first, second, record;
    std::string before, after;
};

struct Scene
{
    CoreDrawing& drawing;
    Ledger& itself;
    OdDbObjectId other, record;

    LedgerPtr openOther() const { return other.safeOpenObject(OdDb::kForWrite); }
};

const std::pair<const char*, std::function<void(const Scene&)>> kMisdeeds[] = {
    {"adds a reactor to another object",
     [](const Scene& scene) { scene.openOther()->addPersistentReactor(scene.itself.objectId()); }},
    {"removes a reactor of another object",
     [](const Scene& scene) { scene.openOther()->removePersistentReactor(scene.record); }},
    {"sets XData of itself and of another",
     [](const Scene& scene)
     {
         scene.itself.setXData(xdataChain(L"TWO", 9, L"x"));
         scene.openOther()->setXData(xdataRemoval(L"ONE"));
     }},
    {"erases another object", [](const Scene& scene) { scene.openOther()->erase(); }},
    {"changes the fields of another object",
     [](const Scene& scene)
     {
         if (scene.itself.objectId() != scene.other)
             scene.openOther()->put(L"from outside");
     }},
    {"changes the groups of another object", [](const Scene& scene) { scene.drawing.setRecord(scene.record, 99); }},
    {"gives another object away", [](const Scene& scene) { scene.openOther()->setOwnerId(scene.itself.objectId()); }},
    {"makes an object",
     [](const Scene& scene) { EXPECT_TRUE(scene.drawing.db->addOdDbObject(Ledger::createObject()).isNull()); }},
};

TEST_F(JournalReplay, EndsInTheRecordedStateWhateverObjectsDo)
{
    for (const auto& misdeed : kMisdeeds)
    {
        SCOPED_TRACE(misdeed.first);
        Ledger::whileReading = [&](Ledger& ledger) { misdeed.second({drawing, ledger, second, record}); };
        drawing.db->undo();
        EXPECT_EQ(drawing.snapshot(), before);
        drawing.db->redo();
        EXPECT_EQ(drawing.snapshot(), after);
        EXPECT_EQ(drawing.journal().recordCount(), 1u);
    }
}

TEST_F(JournalReplay, ReadingObjectsThatAddToWhatTheyHave)
{
    {
        LedgerPtr ledger = first.safeOpenObject(OdDb::kForWrite);
        ledger->appendsOnReading = true;
        ledger->addPersistentReactor(second);
    }
    drawing.db->startUndoRecord();
    put(first, L"2");
    const std::string last = drawing.snapshot();
    drawing.db->undo();
    drawing.db->redo();
    EXPECT_EQ(drawing.snapshot(), last);
    drawing.db->undo();
    drawing.db->undo();
    EXPECT_EQ(drawing.snapshot(), before);
    EXPECT_EQ(drawing.db->recoveryReport().size(), 0u);
}

TEST_F(JournalReplay, AFailingObjectDoesNotKeepTheOthersBack)
{
    drawing.setRecord(record, 8);
    put(second, L"2");
    for (const bool throws : {true, false})
    {
        Ledger::whileReading = [&](Ledger& ledger)
        {
            if (ledger.objectId() == first && throws)
                throw OdError(eInvalidInput);
        };
        drawing.db->undo();
        EXPECT_EQ(LedgerPtr(second.safeOpenObject())->lines.size(), 1u);
        EXPECT_EQ(oddb::readableGroups(*record.safeOpenObject()), recordGroups(3));
        EXPECT_EQ(drawing.db->recoveryReport().size(), throws ? 1u : 2u); // one line for undo, one for redo
        if (throws)
            drawing.db->redo();
    }
    EXPECT_EQ(drawing.snapshot(), before);
}

TEST_F(JournalReplay, ClassesAreNotAskedWhetherErasingMayBeUndone)
{
    drawing.db->startUndoRecord();
    first.safeOpenObject(OdDb::kForWrite)->erase();
    Ledger::whileErasing = [](Ledger&, bool) -> OdResult { throw OdError(eDeletionNotAllowed); };
    drawing.db->undo();
    EXPECT_FALSE(first.isErased());
    drawing.db->redo();
    EXPECT_TRUE(first.isErased());
}

// Withdrawing marks from others while being erased, as labels do, is part of the run.
TEST_F(JournalReplay, WhatErasingDoesToOthersComesBackWithIt)
{
    Ledger::whileErasing = [&](Ledger& ledger, bool erasing)
    {
        OdDbObjectPtr other = second.safeOpenObject(OdDb::kForWrite);
        if (ledger.objectId() == first)
            other->setXData(erasing ? xdataRemoval(L"ONE") : xdataChain(L"ONE", 1, L"a"));
        return eOk;
    };
    drawing.db->startUndoRecord();
    first.safeOpenObject(OdDb::kForWrite)->erase();
    EXPECT_TRUE(second.safeOpenObject()->xData(L"ONE").isNull());
    drawing.db->undo();
    EXPECT_EQ(drawing.snapshot(), after);
}

} // namespace
