// Long random histories against a plain model that keeps a copy of the whole drawing for every border.
#include <gtest/gtest.h>

#include <random>

#include "CoreDrawing.h"

namespace
{

using namespace coretest;

/// Does random things to a drawing and keeps beside it what every undo, redo and abort has to bring back.
class History
{
public:
    explicit History(unsigned seed) : m_random(seed)
    {
        m_drawing.db->disableUndoRecording(true);
        for (int i = 0; i < 4; ++i)
        {
            m_objects.push_back(m_drawing.addLedger());
            m_objects.push_back(m_drawing.addRecord(i));
        }
        m_drawing.db->disableUndoRecording(false);
    }

    void step()
    {
        switch (below(14))
        {
        case 0:
            return undo();
        case 1:
            return redo();
        case 2:
            return startRecord();
        case 3:
            return startTransaction();
        case 4:
            return endTransaction();
        case 5:
            return abortTransaction();
        case 6:
            return toggleRecording();
        default:
            return change();
        }
    }

    void finish()
    {
        while (!m_transactions.empty() && !testing::Test::HasFatalFailure())
            abortTransaction();
        while (!m_undo.empty() && !testing::Test::HasFatalFailure())
            undo();
        while (!m_redo.empty() && !testing::Test::HasFatalFailure())
            redo();
    }

private:
    struct Record
    {
        std::string before, after;
    };
    struct Transaction
    {
        std::string before;
        std::size_t records;
        bool changedUnrecorded = false;
    };

    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    OdDbObjectId any()
    {
        for (;;)
        {
            const OdDbObjectId id = m_objects[static_cast<std::size_t>(below(static_cast<int>(m_objects.size())))];
            if (!oddb::stubOf(id)->has(OdDbStub::kUndone))
                return id;
        }
    }
    std::string state() const { return m_drawing.snapshot(); }
    OdDbDatabase& db() { return *m_drawing.db; }

    void check()
    {
        if (!m_transactions.empty())
            return;
        ASSERT_EQ(db().hasUndo(), !m_undo.empty());
        ASSERT_EQ(db().hasRedo(), !m_redo.empty());
        ASSERT_EQ(db().isUndoRecordOpen(), m_open);
    }

    void undo()
    {
        if (!m_transactions.empty() || m_undo.empty())
            return;
        db().undo();
        m_open = false;
        ASSERT_TRUE(state() == m_undo.back().before) << state() << "EXPECTED\n" << m_undo.back().before;
        m_redo.push_back(m_undo.back());
        m_undo.pop_back();
        check();
    }

    void redo()
    {
        if (!m_transactions.empty() || m_redo.empty())
            return;
        db().redo();
        m_open = false;
        ASSERT_TRUE(state() == m_redo.back().after) << state() << "EXPECTED\n" << m_redo.back().after;
        m_undo.push_back(m_redo.back());
        m_redo.pop_back();
        check();
    }

    void startRecord()
    {
        db().startUndoRecord();
        m_open = false;
    }

    void startTransaction()
    {
        if (m_transactions.size() == 4)
            return;
        db().startTransaction();
        m_transactions.push_back({state(), m_undo.size()});
        m_redoBefore = m_transactions.size() == 1 ? m_redo : m_redoBefore;
    }

    void endTransaction()
    {
        if (m_transactions.empty())
            return;
        db().endTransaction();
        const Transaction ended = m_transactions.back();
        m_transactions.pop_back();
        if (!m_transactions.empty())
            m_transactions.back().changedUnrecorded |= ended.changedUnrecorded;
        check();
        if (m_transactions.empty() && ended.changedUnrecorded)
            forget();
    }

    // Changes outside of all records make the states of older ones unreachable for the model.
    void forget()
    {
        db().clearUndo();
        m_undo.clear();
        m_redo.clear();
        m_open = false;
    }

    void abortTransaction()
    {
        if (m_transactions.empty())
            return;
        db().abortTransaction();
        const Transaction aborted = m_transactions.back();
        m_transactions.pop_back();
        ASSERT_TRUE(state() == aborted.before) << state() << "EXPECTED\n" << aborted.before;
        if (m_undo.size() > aborted.records)
        {
            m_undo.resize(aborted.records);
            m_open = false;
        }
        if (!m_undo.empty())
            m_undo.back().after = aborted.before;
        if (m_transactions.empty())
            m_redo = m_redoBefore;
        check();
    }

    void toggleRecording()
    {
        const bool off = !db().undoRecordingDisabled();
        if (off && m_transactions.empty())
            return;
        db().disableUndoRecording(off);
    }

    void change()
    {
        if (m_transactions.empty())
            db().disableUndoRecording(false);
        const std::string before = state();
        act();
        const std::string after = state();
        if (before == after)
            return check();
        m_redo.clear();
        if (db().undoRecordingDisabled())
            m_transactions.back().changedUnrecorded = true;
        else if (!m_open)
            m_undo.push_back({before, after});
        else
            m_undo.back().after = after;
        m_open = m_open || !db().undoRecordingDisabled();
        check();
    }

    void act()
    {
        const OdDbObjectId id = any();
        const OdDbObjectPtr object = id.openObject(OdDb::kForWrite, true);
        switch (below(10))
        {
        case 0:
            m_objects.push_back(below(2) ? m_drawing.addLedger() : m_drawing.addRecord(++m_counter));
            return;
        case 1:
            object->erase(!object->isErased());
            return;
        case 2:
        case 3:
            object->addPersistentReactor(any());
            return;
        case 4:
            object->removePersistentReactor(any());
            return;
        case 5:
            object->setXData(xdataChain(below(2) ? L"ONE" : L"TWO", ++m_counter, L"x"));
            return;
        case 6:
            object->setXData(xdataRemoval(below(2) ? L"ONE" : L"TWO"));
            return;
        case 7:
            object->setOwnerId(below(4) ? any() : object->ownerId());
            return;
        case 8:
            object->assertWriteEnabled(); // announces a change of which nothing comes
            return;
        default:
            changeData(*object);
        }
    }

    void changeData(OdDbObject& object)
    {
        if (object.keepsGroups())
            oddb::ObjectCore::changeGroups(object, recordGroups(below(4) ? ++m_counter : m_counter));
        else
            static_cast<Ledger&>(object).put(L"line");
    }

    CoreDrawing m_drawing;
    std::mt19937 m_random;
    std::vector<OdDbObjectId> m_objects;
    std::vector<Record> m_undo, m_redo, m_redoBefore;
    std::vector<Transaction> m_transactions;
    bool m_open = false;
    int m_counter = 100;
};

TEST(JournalModel, RandomHistoriesComeBackExactly)
{
    for (unsigned seed = 1; seed <= 60; ++seed)
    {
        SCOPED_TRACE(seed);
        History history(seed);
        for (int i = 0; i < 400 && !testing::Test::HasFatalFailure(); ++i)
            history.step();
        history.finish();
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

} // namespace
