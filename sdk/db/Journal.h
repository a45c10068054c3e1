// Every change of a drawing is recorded here, so that it can be taken back, brought again, or dropped with the
// transaction it belongs to.
//
//   steps    s0 s1 s2 | s3 s4 s5 s6 | s7 ...         24 bytes each, in the order of the changes
//   records  ^ 1       ^ 2            ^ 3             begin of each undo record in the row of steps
//   cursor             records before it can be undone, those behind it redone
//   marks              transactions remember where in the row they began
//
// A step holds the state on the other side of the change: undoing it puts that state into the object and keeps the
// present one, so that the same step redoes the change when it is replayed the other way.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "Groups.h"
#include "Stub.h"

class OdDbObject;
class OdDbDatabase;

namespace oddb
{

/// A change that has no step of its own kind, such as an entry of a dictionary or a setting of the drawing.
class JournalChange
{
public:
    virtual ~JournalChange() = default;

    /// Takes the change back (forward false) or brings it again (forward true) without recording anything.
    virtual void replay(OdDbDatabase& database, bool forward) = 0;
};

class Journal
{
public:
    explicit Journal(OdDbDatabase& database) : m_database(database) {}
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;
    ~Journal();

    // ---- Recording: each is called before the change is made ---------------------------------------------------

    /// True when changes are to be recorded now.
    bool isRecording() const;
    /// True while recorded states are put back.
    bool isReplaying() const { return m_replaying; }
    /// True when the object was made since the last mark, so that only its making counts.
    bool isFresh(const OdDbStub& stub) const;

    /// The whole state of the object, once per mark.
    void recordState(OdDbObject& object);
    void recordCreated(OdDbStub& stub);
    void recordErased(OdDbStub& stub);
    void recordReactorAdded(OdDbStub& stub, OdDbStub* reactor);
    void recordReactorRemoved(OdDbStub& stub, OdDbStub* reactor, OdDbStub* before);
    void recordXData(OdDbStub& stub, OdDbStub* application, Groups before, std::size_t place);
    void recordExtensionDictionary(OdDbStub& stub, OdDbStub* before);
    void recordOwner(OdDbStub& stub, OdDbStub* before);
    /// Any other change. Does nothing when changes are not recorded.
    void record(std::unique_ptr<JournalChange> change);
    /// A change is made that is not recorded: what was undone can no longer be redone.
    void noteChange();

    // ---- Undo records ------------------------------------------------------------------------------------------

    void startRecord();
    bool hasUndo() const { return m_cursor > 0; }
    bool hasRedo() const { return m_cursor < m_records.size(); }
    /// Both return false when there is nothing to do. No transaction may be open.
    bool undo();
    bool redo();
    void clear();
    void disable(bool disable);
    bool disabled() const { return m_disabled; }
    OdUInt64 mark() const { return m_cursor ? m_records[m_cursor - 1].number : 0; }
    bool isRecordOpen() const { return m_recordOpen; }

    // ---- Transactions ------------------------------------------------------------------------------------------

    void startTransaction();
    /// Both need an open transaction.
    void endTransaction();
    void abortTransaction();
    int transactions() const { return static_cast<int>(m_transactions.size()); }

    // ---- Measures ----------------------------------------------------------------------------------------------

    std::size_t stepCount() const { return m_steps.size(); }
    std::size_t recordCount() const { return m_records.size(); }

private:
    enum class Kind : std::uint8_t
    {
        Groups, ///< payload: groups of the object
        Image,  ///< payload: bytes the object wrote to an undo filer
        Created,
        Erased,
        ReactorAdded,        ///< payload: the reactor
        ReactorRemoved,      ///< payload: the reactor
        ReactorPlace,        ///< payload: what stood in front of the reactor that the next step removed
        XData,               ///< payload: values; number: application
        XDataPlace,          ///< number: the place of the application that the next step removed
        ExtensionDictionary, ///< payload: stub
        Owner,               ///< payload: stub
        Change               ///< payload: JournalChange
    };
    struct Step
    {
        OdDbStub* stub;
        void* payload;
        std::uint32_t number;
        Kind kind;
        bool transient; ///< recorded for the open transactions only, undo recording being off
    };
    static_assert(sizeof(Step) == 24);

    struct Record
    {
        std::size_t begin;
        OdUInt64 number;
    };

    void push(Kind kind, OdDbStub* stub, void* payload = nullptr, std::uint32_t number = 0);
    void openRecordIfDue();
    void dropRedo();
    void truncate(std::size_t size);
    void release(Step& step);
    void newMark() { ++m_currentMark; }
    std::size_t recordEnd(std::size_t record) const;
    void dropTransientSteps(std::size_t begin);
    std::uint32_t applicationNumber(OdDbStub* application);

    struct Replay;
    void replayBackward(std::size_t begin, std::size_t end);
    void replayForward(std::size_t begin, std::size_t end);
    void replay(Step& step, std::size_t index, bool forward);
    void swapImage(Step& step);
    void guard(OdDbObject& object);
    void restoreGuarded();

    OdDbDatabase& m_database;
    std::deque<Step> m_steps;
    std::vector<Record> m_records;
    std::size_t m_cursor = 0;
    struct Transaction
    {
        std::size_t begin;
    };
    std::vector<Transaction> m_transactions;
    std::vector<OdDbStub*> m_applications;
    OdUInt64 m_nextNumber = 1;
    std::uint32_t m_currentMark = 1;
    bool m_recordOpen = false;
    bool m_disabled = false;
    bool m_replaying = false;
    OdDbObject* m_replayed = nullptr;
    struct Guarded
    {
        OdDbObject* object;
        void* image;
    };
    std::vector<Guarded> m_guarded;
};

} // namespace oddb
