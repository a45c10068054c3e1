// Every change of a drawing is recorded here, so that it can be taken back, brought again, or dropped with the
// transaction it belongs to.
//
//   steps    s0 s1 s2 | s3 s4 s5 s6 | s7 ...    24 bytes each, in the order of the changes
//   records  ^ 1        ^ 2           ^ 3       where each undo record begins in the row of steps
//   cursor              ^                       records before it can be undone, those from it on redone
//   transactions           ^     ^              where each open one began
//   mark                                        a number that is new after each border of the above
//
// A step holds the state on the other side of its change: replaying it puts that state into the object and keeps the
// present one, so that the same step serves for undo and for redo. An object's state as a whole is held once per mark.
//
// What was undone is set aside when the next change comes, and is there again as soon as nothing is left behind it: a
// run that only announced changes, or whose changes were taken back, leaves no record and costs no redo.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "Groups.h"
#include "ReplayNews.h"
#include "Stub.h"

namespace oddb
{

/// A change that has no step of its own kind, such as an entry of a dictionary or a setting of the drawing.
class JournalChange
{
public:
    virtual ~JournalChange() = default;

    /// Takes the change back (forward false) or brings it again (forward true) without recording anything.
    virtual void replay(OdDbDatabase& database, bool forward) = 0;

    /// The object that has another state then, for its listeners; null when there is none.
    virtual OdDbStub* changed() const { return nullptr; }
};

class Journal
{
public:
    explicit Journal(OdDbDatabase& database) : m_database(database) {}
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;
    ~Journal();

    // ---- Recording: each is called before its change is made, and only when the change is a real one -----------

    /// True while recorded states are put back: nothing but the journal may change anything then.
    bool isReplaying() const { return m_replaying; }

    /// The whole state of the object, once per mark; what comes after need not be a change.
    void recordState(OdDbObject& object);
    void recordCreated(OdDbStub& stub);
    void recordErased(OdDbStub& stub);
    void recordReactorAdded(OdDbStub& stub, OdDbStub* reactor);
    /// before: the reactor in front of it, null for the first one.
    void recordReactorRemoved(OdDbStub& stub, OdDbStub* reactor, OdDbStub* before);
    /// before: the values up to now, none when the object had no such application.
    void recordXData(OdDbStub& stub, OdDbStub* application, std::optional<Groups> before);
    void recordXDataRemoved(OdDbStub& stub, OdDbStub* application, Groups before, std::size_t place);
    void recordExtensionDictionary(OdDbStub& stub, OdDbStub* before);
    void recordOwner(OdDbStub& stub, OdDbStub* before);
    /// Any other change.
    void record(std::unique_ptr<JournalChange> change);

    // ---- Undo records ------------------------------------------------------------------------------------------

    void startRecord();
    bool hasUndo();
    bool hasRedo();
    /// Both return false when there is nothing to do. No transaction may be open.
    bool undo();
    bool redo();
    void clear();
    /// Takes back and drops all records later than the one of that number that the innermost open transaction holds.
    void dropRecordsAfter(OdUInt64 number);
    void disable(bool disable);
    bool disabled() const { return m_disabled; }
    /// The number of the newest record that can be undone, 0 when there is none.
    OdUInt64 newestRecord();
    bool isRecordOpen();

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
        Image,  ///< payload: bytes that the object wrote to an undo filer
        Created,
        Erased,              ///< flag: whether it was erased with its owner
        ReactorAdded,        ///< payload: the reactor
        ReactorRemoved,      ///< payload: the reactor
        ReactorPlace,        ///< payload: what stood in front of the reactor that the next step removes
        XData,               ///< payload: values, flag: whether there are any; number: application
        XDataPlace,          ///< number: place of the application that the next step removes
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
        bool flag;
        bool transient; ///< for the open transactions only, as undo recording is switched off
    };
    static_assert(sizeof(Step) == 24);
    using Steps = std::deque<Step>;

    struct Record
    {
        std::size_t begin;
        OdUInt64 number;
    };

    // What was undone, set aside because something has changed since.
    struct SetAside
    {
        std::size_t begin = 0; ///< the number of steps in front of it
        Steps steps;
        std::vector<Record> records;
    };

    class ReplayScope;

    bool isRecording() const;
    bool takesSteps();
    bool takesSteps(const OdDbStub& stub);
    bool isFresh(const OdDbStub& stub) const;
    void push(Kind kind, OdDbStub* stub, void* payload = nullptr, std::uint32_t number = 0, bool flag = false);
    void openRecordIfDue();
    void setRedoAside();
    void dropSetAside();
    void dropRedo();
    void settle();
    bool changesNothing(std::size_t begin, std::size_t end);
    bool isState(const Step& step);
    void truncate(std::size_t size);
    void dropTransientSteps(std::size_t begin);
    static void release(Step& step);
    static void release(Steps& steps);
    std::size_t recordEnd(std::size_t record) const;
    std::uint32_t applicationNumber(OdDbStub* application);
    void newMark() { ++m_mark; }

    void replayBackward(std::size_t begin, std::size_t end);
    void replayForward(std::size_t begin, std::size_t end);
    void replay(Step& step, bool forward, ReplayNews& news);
    void replayState(Step& step, bool forward);
    static void replayErased(Step& step);
    void finishReplay(ReplayNews& news);
    void replayGroups(Step& step);
    void replayImage(Step& step);
    void replayXData(Step& step, OdDbObject& object);
    void putBack(OdDbStub& stub, const Groups& image);
    static bool hasState(const OdDbObject& object, const Groups& image);
    OdResult replaceObject(OdDbStub& stub, const Groups& image);
    void guard(OdDbObject& object);
    void restoreGuarded();

    OdDbDatabase& m_database;
    Steps m_steps;
    std::vector<Record> m_records;
    std::size_t m_cursor = 0;
    std::optional<SetAside> m_setAside;
    std::vector<std::size_t> m_transactions;
    std::size_t m_transientSteps = 0;
    std::vector<OdDbStub*> m_applications;
    std::unordered_map<OdDbStub*, std::uint32_t> m_applicationNumbers;
    OdUInt64 m_nextNumber = 1;
    std::uint32_t m_mark = 1;
    bool m_recordOpen = false;
    bool m_disabled = false;
    bool m_replaying = false;
    OdDbObject* m_replayed = nullptr;                      ///< the object that is being read back
    std::vector<std::pair<OdDbObject*, Groups>> m_guarded; ///< others that it tried to change, with their state
};

} // namespace oddb
