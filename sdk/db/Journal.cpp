// Recording changes, and the borders in the row of steps: undo records and transactions.
#include "Journal.h"

#include <utility>

#include "DatabaseImpl.h"
#include "ObjectCore.h"
#include "ObjectImage.h"

namespace oddb
{

Journal::~Journal()
{
    release(m_steps);
    if (m_setAside)
        release(m_setAside->steps);
}

// ---- Recording -----------------------------------------------------------------------------------------------------

bool Journal::isRecording() const
{
    return !m_disabled || !m_transactions.empty();
}

// True when the change at hand gets a step. A change that gets none because nothing is recorded ends redo all the same.
bool Journal::takesSteps()
{
    if (m_replaying || m_database.isLoading())
        return false;
    if (!isRecording())
        dropRedo();
    return isRecording();
}

// What is done to an object that was made under the same mark goes with its making.
bool Journal::isFresh(const OdDbStub& stub) const
{
    return stub.has(OdDbStub::kFresh) && stub.preimageMark == m_mark;
}

bool Journal::takesSteps(const OdDbStub& stub)
{
    return takesSteps() && !isFresh(stub);
}

void Journal::recordState(OdDbObject& object)
{
    if (m_replaying)
        return guard(object);
    OdDbStub& stub = *ObjectCore::stub(object);
    if (stub.preimageMark == m_mark || !takesSteps())
        return;
    Groups state = object.keepsGroups() ? ObjectCore::groups(object) : captureImage(object);
    push(object.keepsGroups() ? Kind::Groups : Kind::Image, &stub, state.data());
    state.detach();
    stub.preimageMark = m_mark;
    stub.set(OdDbStub::kFresh, false);
}

void Journal::recordCreated(OdDbStub& stub)
{
    if (!takesSteps())
        return;
    push(Kind::Created, &stub);
    stub.preimageMark = m_mark;
    stub.set(OdDbStub::kFresh, true);
}

void Journal::recordErased(OdDbStub& stub)
{
    if (takesSteps())
        push(Kind::Erased, &stub, nullptr, 0, stub.has(OdDbStub::kErasedWithOwner));
}

void Journal::recordReactorAdded(OdDbStub& stub, OdDbStub* reactor)
{
    if (takesSteps(stub))
        push(Kind::ReactorAdded, &stub, reactor);
}

void Journal::recordReactorRemoved(OdDbStub& stub, OdDbStub* reactor, OdDbStub* before)
{
    if (!takesSteps(stub))
        return;
    push(Kind::ReactorPlace, &stub, before);
    push(Kind::ReactorRemoved, &stub, reactor);
}

void Journal::recordXData(OdDbStub& stub, OdDbStub* application, std::optional<Groups> before)
{
    if (!takesSteps(stub))
        return;
    GroupsData* values = before ? before->data() : nullptr;
    push(Kind::XData, &stub, values, applicationNumber(application), before.has_value());
    if (before)
        before->detach();
}

void Journal::recordXDataRemoved(OdDbStub& stub, OdDbStub* application, Groups before, std::size_t place)
{
    if (!takesSteps(stub))
        return;
    push(Kind::XDataPlace, &stub, nullptr, static_cast<std::uint32_t>(place));
    push(Kind::XData, &stub, before.data(), applicationNumber(application), true);
    before.detach();
}

void Journal::recordExtensionDictionary(OdDbStub& stub, OdDbStub* before)
{
    if (takesSteps(stub))
        push(Kind::ExtensionDictionary, &stub, before);
}

void Journal::recordOwner(OdDbStub& stub, OdDbStub* before)
{
    if (takesSteps(stub))
        push(Kind::Owner, &stub, before);
}

void Journal::record(std::unique_ptr<JournalChange> change)
{
    if (!takesSteps())
        return;
    push(Kind::Change, nullptr, change.get());
    static_cast<void>(change.release());
}

void Journal::push(Kind kind, OdDbStub* stub, void* payload, std::uint32_t number, bool flag)
{
    setRedoAside();
    openRecordIfDue();
    m_steps.push_back({stub, payload, number, kind, flag, m_disabled});
    if (m_disabled)
        ++m_transientSteps;
}

void Journal::openRecordIfDue()
{
    if (m_disabled || m_recordOpen)
        return;
    m_records.push_back({m_steps.size(), m_nextNumber++});
    m_cursor = m_records.size();
    m_recordOpen = true;
}

std::uint32_t Journal::applicationNumber(OdDbStub* application)
{
    if (!m_applications.empty() && m_applications.back() == application)
        return static_cast<std::uint32_t>(m_applications.size() - 1);
    auto [place, isNew] =
        m_applicationNumbers.try_emplace(application, static_cast<std::uint32_t>(m_applications.size()));
    if (isNew)
        m_applications.push_back(application);
    return place->second;
}

void Journal::release(Step& step)
{
    if (step.kind == Kind::Groups || step.kind == Kind::Image || step.kind == Kind::XData)
        Groups::adopt(static_cast<GroupsData*>(step.payload));
    else if (step.kind == Kind::Change)
        delete static_cast<JournalChange*>(step.payload);
}

void Journal::release(Steps& steps)
{
    for (Step& step : steps)
        release(step);
    steps.clear();
}

// ---- What was undone -----------------------------------------------------------------------------------------------

void Journal::setRedoAside()
{
    if (m_cursor == m_records.size())
        return;
    SetAside aside;
    aside.begin = m_records[m_cursor].begin;
    const auto firstStep = m_steps.begin() + static_cast<std::ptrdiff_t>(aside.begin);
    const auto firstRecord = m_records.begin() + static_cast<std::ptrdiff_t>(m_cursor);
    aside.steps.assign(firstStep, m_steps.end());
    aside.records.assign(firstRecord, m_records.end());
    m_steps.erase(firstStep, m_steps.end());
    m_records.erase(firstRecord, m_records.end());
    dropSetAside();
    m_setAside = std::move(aside);
}

void Journal::dropSetAside()
{
    if (m_setAside)
        release(m_setAside->steps);
    m_setAside.reset();
}

void Journal::dropRedo()
{
    setRedoAside();
    dropSetAside();
}

// Decides what became of the last run: a record whose states are all as they were is none, and when nothing at all came
// behind what was undone, that can be redone again.
void Journal::settle()
{
    if (m_replaying)
        return;
    const bool beganBeforeTransaction =
        m_recordOpen && !m_transactions.empty() && m_records.back().begin < m_transactions.back();
    if (m_recordOpen && !beganBeforeTransaction && changesNothing(m_records.back().begin, m_steps.size()))
    {
        truncate(m_records.back().begin);
        newMark();
    }
    if (!m_transactions.empty() || !m_setAside || m_setAside->begin != m_steps.size())
        return;
    m_steps.insert(m_steps.end(), m_setAside->steps.begin(), m_setAside->steps.end());
    m_records.insert(m_records.end(), m_setAside->records.begin(), m_setAside->records.end());
    m_setAside.reset();
}

bool Journal::changesNothing(std::size_t begin, std::size_t end)
{
    for (std::size_t i = begin; i < end; ++i)
        if (!isState(m_steps[i]))
            return false;
    return true;
}

// ---- Undo records --------------------------------------------------------------------------------------------------

std::size_t Journal::recordEnd(std::size_t record) const
{
    return record + 1 < m_records.size() ? m_records[record + 1].begin : m_steps.size();
}

void Journal::startRecord()
{
    settle();
    m_recordOpen = false;
    newMark();
}

bool Journal::hasUndo()
{
    settle();
    return m_cursor > 0;
}

bool Journal::hasRedo()
{
    settle();
    return m_cursor < m_records.size();
}

OdUInt64 Journal::newestRecord()
{
    settle();
    return m_cursor ? m_records[m_cursor - 1].number : 0;
}

bool Journal::isRecordOpen()
{
    settle();
    return m_recordOpen;
}

bool Journal::undo()
{
    if (!hasUndo())
        return false;
    m_recordOpen = false;
    dropSetAside();
    replayBackward(m_records[m_cursor - 1].begin, recordEnd(m_cursor - 1));
    --m_cursor;
    newMark();
    return true;
}

bool Journal::redo()
{
    if (!hasRedo())
        return false;
    m_recordOpen = false;
    replayForward(m_records[m_cursor].begin, recordEnd(m_cursor));
    ++m_cursor;
    newMark();
    return true;
}

void Journal::clear()
{
    dropRedo();
    truncate(0);
    newMark();
}

// What was set aside is looked at only when the records are gone: then nothing may have come behind it.
void Journal::dropRecordsAfter(OdUInt64 number)
{
    const std::size_t inside = m_transactions.empty() ? 0 : m_transactions.back();
    while (m_cursor > 0 && m_cursor == m_records.size() && m_records.back().number > number &&
           m_records.back().begin >= inside)
    {
        const std::size_t begin = m_records.back().begin;
        replayBackward(begin, m_steps.size());
        truncate(begin);
        newMark();
    }
    settle();
}

void Journal::disable(bool disable)
{
    if (m_disabled == disable)
        return;
    m_disabled = disable;
    newMark();
}

// Drops the steps from there on, and the records that begin with them.
void Journal::truncate(std::size_t size)
{
    for (std::size_t i = size; i < m_steps.size(); ++i)
    {
        m_transientSteps -= m_steps[i].transient;
        release(m_steps[i]);
    }
    m_steps.resize(size);
    while (!m_records.empty() && m_records.back().begin >= size)
    {
        m_records.pop_back();
        m_recordOpen = false;
    }
    m_cursor = m_records.size();
}

// ---- Transactions --------------------------------------------------------------------------------------------------

void Journal::startTransaction()
{
    settle();
    setRedoAside();
    m_transactions.push_back(m_steps.size());
    newMark();
}

void Journal::endTransaction()
{
    const std::size_t begin = m_transactions.back();
    m_transactions.pop_back();
    if (m_transactions.empty())
        dropTransientSteps(begin);
    newMark();
}

void Journal::abortTransaction()
{
    const std::size_t begin = m_transactions.back();
    replayBackward(begin, m_steps.size());
    m_transactions.pop_back();
    truncate(begin);
    newMark();
}

void Journal::dropTransientSteps(std::size_t begin)
{
    if (m_transientSteps == 0)
        return;
    std::size_t kept = begin;
    auto record = m_records.begin();
    while (record != m_records.end() && record->begin < begin)
        ++record;
    for (std::size_t i = begin; i < m_steps.size(); ++i)
    {
        for (; record != m_records.end() && record->begin == i; ++record)
            record->begin = kept;
        if (m_steps[i].transient)
            release(m_steps[i]);
        else
            m_steps[kept++] = m_steps[i];
    }
    m_steps.resize(kept);
    m_transientSteps = 0;
    dropRedo();
}

} // namespace oddb
