// Putting recorded states back. While this runs every other way of changing the database is shut, so that the outcome
// is the recorded state whatever objects do while they are read back.
#include <utility>

#include "DatabaseImpl.h"
#include "Journal.h"
#include "ObjectCore.h"
#include "ObjectImage.h"

namespace oddb
{

class Journal::ReplayScope
{
public:
    explicit ReplayScope(Journal& journal) : m_journal(journal), m_before(std::exchange(journal.m_replaying, true)) {}
    ReplayScope(const ReplayScope&) = delete;
    ReplayScope& operator=(const ReplayScope&) = delete;
    ~ReplayScope() { m_journal.m_replaying = m_before; }

private:
    Journal& m_journal;
    bool m_before;
};

// True for a step that holds the state which its object has now.
bool Journal::isState(const Step& step)
{
    if (step.kind != Kind::Groups && step.kind != Kind::Image)
        return false;
    const Groups recorded = Groups::share(static_cast<GroupsData*>(step.payload));
    OdDbObject& object = *step.stub->object;
    if (step.kind == Kind::Groups)
        return recorded == ObjectCore::groups(object);
    ReplayScope scope(*this);
    return hasState(object, recorded);
}

void Journal::replayBackward(std::size_t begin, std::size_t end)
{
    ReplayScope scope(*this);
    ReplayNews news(m_database.impl());
    for (std::size_t i = end; i > begin; --i)
        replay(m_steps[i - 1], false, news);
    finishReplay(news);
}

void Journal::replayForward(std::size_t begin, std::size_t end)
{
    ReplayScope scope(*this);
    ReplayNews news(m_database.impl());
    for (std::size_t i = begin; i < end; ++i)
        replay(m_steps[i], true, news);
    finishReplay(news);
}

// Nor may listeners change anything.
void Journal::finishReplay(ReplayNews& news)
{
    news.tell();
    restoreGuarded();
}

void Journal::replay(Step& step, bool forward, ReplayNews& news)
{
    if (step.kind == Kind::Change)
    {
        auto* change = static_cast<JournalChange*>(step.payload);
        change->replay(m_database, forward);
        if (OdDbStub* changed = change->changed())
            news.noteModified(*changed);
        return;
    }
    OdDbStub& stub = *step.stub;
    if (step.kind == Kind::Created)
    {
        stub.set(OdDbStub::kErased, !forward);
        stub.set(OdDbStub::kUndone, !forward);
        news.noteMade(stub, forward);
    }
    else if (step.kind == Kind::Erased)
    {
        replayErased(step);
        news.noteErased(stub, stub.has(OdDbStub::kErased));
    }
    else
    {
        replayState(step, forward);
        news.noteModified(stub);
    }
}

void Journal::replayState(Step& step, bool forward)
{
    OdDbObject& object = *step.stub->object;
    auto* other = static_cast<OdDbStub*>(step.payload);
    switch (step.kind)
    {
    case Kind::Groups:
        return replayGroups(step);
    case Kind::Image:
        return replayImage(step);
    case Kind::ReactorAdded:
        forward ? ObjectCore::putReactor(object, other) : ObjectCore::takeReactor(object, other);
        return;
    case Kind::ReactorRemoved:
        forward ? ObjectCore::takeReactor(object, other) : ObjectCore::putReactor(object, other);
        return;
    case Kind::ReactorPlace:
        if (!forward)
            ObjectCore::moveLastReactorBehind(object, other);
        return;
    case Kind::XData:
        return replayXData(step, object);
    case Kind::XDataPlace:
        if (!forward)
            ObjectCore::moveLastXDataTo(object, step.number);
        return;
    case Kind::ExtensionDictionary:
        step.payload = ObjectCore::extensionDictionary(object);
        return ObjectCore::putExtensionDictionary(object, other);
    case Kind::Owner:
        step.payload = ObjectCore::owner(object);
        return ObjectCore::putOwner(object, other);
    case Kind::Created:
    case Kind::Erased:
    case Kind::Change:
        return;
    }
}

void Journal::replayErased(Step& step)
{
    OdDbStub& stub = *step.stub;
    const bool withOwner = stub.has(OdDbStub::kErasedWithOwner);
    stub.set(OdDbStub::kErased, !stub.has(OdDbStub::kErased));
    stub.set(OdDbStub::kErasedWithOwner, step.flag);
    step.flag = withOwner;
}

void Journal::replayGroups(Step& step)
{
    OdDbObject& object = *step.stub->object;
    Groups present = ObjectCore::groups(object);
    ObjectCore::putGroups(object, Groups::adopt(static_cast<GroupsData*>(step.payload)));
    step.payload = present.detach();
}

void Journal::replayXData(Step& step, OdDbObject& object)
{
    OdDbStub* application = m_applications[step.number];
    std::optional<Groups> present = ObjectCore::xdata(object, application);
    Groups recorded = Groups::adopt(static_cast<GroupsData*>(step.payload));
    if (step.flag)
        ObjectCore::putXData(object, application, std::move(recorded));
    else
        ObjectCore::takeXData(object, application);
    step.flag = present.has_value();
    step.payload = present ? present->detach() : nullptr;
}

void Journal::replayImage(Step& step)
{
    const Groups recorded = Groups::adopt(static_cast<GroupsData*>(step.payload));
    step.payload = nullptr;
    try
    {
        step.payload = captureImage(*step.stub->object).detach();
    }
    catch (...)
    {
        m_database.addRecoveryLine(describe(*step.stub, L"could not write its state for redo"));
    }
    putBack(*step.stub, recorded);
}

// Some classes add what they read to what they have; such an object is replaced by a new one that has nothing yet.
void Journal::putBack(OdDbStub& stub, const Groups& image)
{
    m_replayed = stub.object;
    OdResult result = applyImage(*stub.object, image);
    if (result == eOk && !hasState(*stub.object, image))
        result = replaceObject(stub, image);
    m_replayed = nullptr;
    restoreGuarded();
    if (result != eOk)
        m_database.addRecoveryLine(describe(stub, L"could not read its recorded state"));
}

// An object that is changed while another one is read back gets its state back afterwards.
void Journal::guard(OdDbObject& object)
{
    if (&object == m_replayed || !ObjectCore::stub(object))
        return;
    for (const auto& [guarded, state] : m_guarded)
        if (guarded == &object)
            return;
    m_guarded.emplace_back(&object, object.keepsGroups() ? ObjectCore::groups(object) : captureImage(object));
}

void Journal::restoreGuarded()
{
    // Reading one back may guard more; each object is guarded once, so this comes to an end.
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (std::size_t i = 0; i < m_guarded.size(); ++i)
    {
        OdDbObject* object = m_guarded[i].first;
        const Groups state = m_guarded[i].second;
        m_replayed = object;
        if (object->keepsGroups())
            ObjectCore::putGroups(*object, state);
        else
            applyImage(*object, state);
    }
    m_replayed = nullptr;
    m_guarded.clear();
}

bool Journal::hasState(const OdDbObject& object, const Groups& image)
{
    try
    {
        return captureImage(object) == image;
    }
    catch (...)
    {
        return false;
    }
}

OdResult Journal::replaceObject(OdDbStub& stub, const Groups& image)
{
    if (ObjectCore::references(*stub.object) > 1)
        return eWasOpenForRead;
    OdDbObjectPtr fresh = OdDbObject::cast(stub.object->isA()->create());
    if (fresh.isNull())
        return eNotApplicable;
    ObjectCore::exchange(stub, fresh);
    m_replayed = stub.object;
    return applyImage(*stub.object, image);
}

} // namespace oddb
