// Undo records and transactions: their borders, what leaves none, and what is refused.
#include <gtest/gtest.h>

#include "CoreDrawing.h"
#include "OdError.h"

namespace
{

using namespace coretest;

class JournalRecords : public testing::Test
{
protected:
    JournalRecords()
    {
        drawing.db->disableUndoRecording(true);
        ledger = drawing.addLedger();
        record = drawing.addRecord(0);
        drawing.db->disableUndoRecording(false);
    }

    void put(const OdChar* line) { LedgerPtr(ledger.safeOpenObject(OdDb::kForWrite))->put(line); }
    std::size_t lineCount() { return LedgerPtr(ledger.safeOpenObject())->lines.size(); }
    // One run of a command that changes something.
    void run(const OdChar* line)
    {
        db().startUndoRecord();
        put(line);
    }
    OdDbDatabase& db() { return *drawing.db; }

    CoreDrawing drawing;
    OdDbObjectId ledger, record;
};

TEST_F(JournalRecords, AStateIsKeptOncePerRun)
{
    db().startUndoRecord();
    for (int i = 0; i < 10; ++i)
        put(L"x");
    EXPECT_EQ(drawing.journal().stepCount(), 1u);
    db().startTransaction();
    put(L"x");
    put(L"x");
    EXPECT_EQ(drawing.journal().stepCount(), 2u); // once more for the transaction
    db().endTransaction();
    const OdDbObjectId made = drawing.addLedger();
    LedgerPtr(made.safeOpenObject(OdDb::kForWrite))->put(L"new");
    made.safeOpenObject(OdDb::kForWrite)->addPersistentReactor(ledger);
    EXPECT_EQ(drawing.journal().stepCount(), 3u); // a new object needs its making only
    db().undo();
    EXPECT_TRUE(made.isErased());
    EXPECT_EQ(lineCount(), 0u);
    db().redo();
    EXPECT_FALSE(made.isErased());
    EXPECT_EQ(LedgerPtr(made.safeOpenObject())->lines.size(), 1u);
    EXPECT_TRUE(made.safeOpenObject()->hasPersistentReactor(ledger));
}

// In transactions and out of them.
TEST_F(JournalRecords, ChangesThatAreNotRecordedEndRedo)
{
    for (const bool inTransaction : {false, true})
    {
        run(L"1");
        db().undo();
        db().disableUndoRecording(true);
        if (inTransaction)
            db().startTransaction();
        put(L"2");
        if (inTransaction)
            db().endTransaction();
        db().disableUndoRecording(false);
        EXPECT_FALSE(db().hasRedo()) << inTransaction;
    }
}

TEST_F(JournalRecords, AFailedRunIsDroppedAndCostsNoRedo)
{
    run(L"1");
    run(L"2");
    db().undo();
    const OdUInt64 mark = db().undoMark();
    const std::string before = drawing.snapshot();
    run(L"fails");
    run(L"and a run inside of it");
    db().dropUndoRecordsAfter(mark);
    EXPECT_EQ(drawing.snapshot(), before);
    EXPECT_EQ(db().undoMark(), mark);
    EXPECT_TRUE(db().hasRedo());
    db().dropUndoRecordsAfter(mark); // nothing is later
    db().redo();
    EXPECT_EQ(lineCount(), 2u);
    db().dropUndoRecordsAfter(0);
    EXPECT_EQ(lineCount(), 0u);
    EXPECT_FALSE(db().hasUndo());
    EXPECT_FALSE(db().hasRedo());
    run(L"3");
    db().startTransaction();
    run(L"fails in the transaction");
    db().dropUndoRecordsAfter(0);
    EXPECT_EQ(lineCount(), 1u) << "what came before the transaction stays";
    db().abortTransaction();
    EXPECT_EQ(lineCount(), 1u);
}

TEST_F(JournalRecords, RecordingSwitchedOffLeavesTransactionsWhole)
{
    run(L"1");
    db().disableUndoRecording(true);
    const std::string before = drawing.snapshot();
    db().startTransaction();
    put(L"2");
    drawing.setRecord(record, 5);
    drawing.addLedger();
    db().abortTransaction();
    EXPECT_EQ(drawing.snapshot(), before);
    db().startTransaction();
    put(L"3");
    db().endTransaction();
    db().disableUndoRecording(false);
    EXPECT_EQ(drawing.journal().recordCount(), 1u);
    EXPECT_EQ(drawing.journal().stepCount(), 1u);
    db().undo(); // the record made before is still good
    EXPECT_EQ(lineCount(), 0u);
}

TEST_F(JournalRecords, RecordingSwitchedWithinATransaction)
{
    const std::string before = drawing.snapshot();
    for (const bool abort : {true, false})
    {
        db().startUndoRecord();
        db().startTransaction();
        db().disableUndoRecording(true);
        put(L"not recorded");
        db().disableUndoRecording(false);
        drawing.setRecord(record, 1);
        db().disableUndoRecording(true);
        put(L"not recorded either");
        db().disableUndoRecording(false);
        put(L"recorded");
        if (abort)
        {
            db().abortTransaction();
            EXPECT_EQ(drawing.snapshot(), before);
            EXPECT_FALSE(db().hasUndo());
        }
    }
    db().endTransaction();
    EXPECT_EQ(drawing.journal().stepCount(), 2u);
    db().undo();
    EXPECT_EQ(lineCount(), 2u);
    db().redo();
    EXPECT_EQ(lineCount(), 3u);
}

// A transaction that one run opens and a later one aborts takes the records in between with it.
TEST_F(JournalRecords, AbortAcrossRunsDropsTheirRecords)
{
    run(L"1");
    const OdUInt64 mark = db().undoMark();
    const std::string before = drawing.snapshot();
    db().disableUndoRecording(true);
    db().startTransaction();
    db().disableUndoRecording(false);
    run(L"2");
    run(L"3");
    EXPECT_EQ(codeOf([&] { db().undo(); }), eUndoOperationNotAvailable);
    EXPECT_EQ(codeOf([&] { db().redo(); }), eUndoOperationNotAvailable);
    EXPECT_EQ(codeOf([&] { db().clearUndo(); }), eUndoOperationNotAvailable);
    EXPECT_EQ(lineCount(), 3u);
    db().disableUndoRecording(true);
    db().abortTransaction();
    db().disableUndoRecording(false);
    EXPECT_EQ(drawing.snapshot(), before);
    EXPECT_EQ(db().undoMark(), mark);
    EXPECT_FALSE(db().isUndoRecordOpen());
    db().undo();
    EXPECT_EQ(lineCount(), 0u);
}

TEST_F(JournalRecords, EndAndAbortNeedATransaction)
{
    EXPECT_EQ(codeOf([&] { db().endTransaction(); }), eNoActiveTransactions);
    EXPECT_EQ(codeOf([&] { db().abortTransaction(); }), eNoActiveTransactions);
    db().startTransaction();
    db().startTransaction();
    EXPECT_EQ(db().numActiveTransactions(), 2);
    db().endTransaction();
    db().abortTransaction();
    EXPECT_EQ(codeOf([&] { db().endTransaction(); }), eNoActiveTransactions);
}

// An object that is held open meanwhile shows the states that come back.
TEST_F(JournalRecords, ObjectsMayBeOpenWhileTheirStatesComeBack)
{
    run(L"1");
    const LedgerPtr held = ledger.safeOpenObject(OdDb::kForWrite);
    db().undo();
    EXPECT_EQ(held->lines.size(), 0u);
    held->put(L"2");
    EXPECT_FALSE(db().hasRedo());
    db().undo();
    EXPECT_EQ(held->lines.size(), 0u);
}

TEST_F(JournalRecords, AHundredThousandReactorsOfOneObjectComeBackInOrder)
{
    constexpr int kCount = 100000;
    db().disableUndoRecording(true);
    std::vector<OdDbObjectId> reactors;
    for (int i = 0; i < kCount; ++i)
        reactors.push_back(db().getOdDbObjectId(OdDbHandle(0x100000 + i), true));
    {
        const OdDbObjectPtr object = ledger.safeOpenObject(OdDb::kForWrite);
        for (const OdDbObjectId& id : reactors)
            object->addPersistentReactor(id);
    }
    db().disableUndoRecording(false);
    const OdDbObjectIdArray before = ledger.safeOpenObject()->getPersistentReactors();
    db().startUndoRecord();
    {
        const OdDbObjectPtr object = ledger.safeOpenObject(OdDb::kForWrite);
        for (int i = 0; i < kCount; ++i) // from the middle, out of order
            object->removePersistentReactor(reactors[static_cast<std::size_t>((i * 7919ll + 31) % kCount)]);
        EXPECT_EQ(object->getPersistentReactors().size(), 0u);
    }
    db().undo();
    EXPECT_TRUE(ledger.safeOpenObject()->getPersistentReactors() == before);
    db().redo();
    EXPECT_EQ(ledger.safeOpenObject()->getPersistentReactors().size(), 0u);
}

} // namespace
