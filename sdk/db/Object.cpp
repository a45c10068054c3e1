// Database objects: their lives, who they are, and how they are opened and closed.
#include "DbObject.h"

#include "DatabaseImpl.h"
#include "ObjectState.h"
#include "OdError.h"

using oddb::ObjectCore;
using State = oddb::ObjectCore::State;

OdDbObject::OdDbObject() = default;

OdDbObject::~OdDbObject()
{
    oddb::Groups::adopt(m_groups);
    delete m_extras;
}

void OdDbObject::addRef()
{
    ++m_refs;
}

// The last reference to a resident object is its stub's: whoever used the object is through with it then.
void OdDbObject::release()
{
    if (--m_refs == 0)
        delete this;
    else if (!m_stub)
        return;
    else if (m_refs == 1)
        ObjectCore::close(*this);
    else if (State::mode(*this) == State::kWrite && m_refs <= State::base(*this))
        State::set(*this, State::kWriterGone);
}

long OdDbObject::numRefs() const
{
    return static_cast<long>(m_refs);
}

// ---- Identity ------------------------------------------------------------------------------------------------------

OdDbObjectId OdDbObject::objectId() const
{
    return m_stub;
}

OdDbHandle OdDbObject::objectHandle() const
{
    return m_stub ? m_stub->handle : 0;
}

OdDbObjectId OdDbObject::ownerId() const
{
    return m_owner;
}

void OdDbObject::setOwnerId(OdDbObjectId ownerId)
{
    assertWriteEnabled(false);
    OdDbStub* owner = ownerId;
    if (owner == m_owner || isUndoing())
        return;
    if (m_stub)
        m_stub->database->impl().journal.recordOwner(*m_stub, m_owner);
    m_owner = owner;
}

OdDbDatabase* OdDbObject::database() const
{
    return m_stub ? m_stub->database : nullptr;
}

bool OdDbObject::isDBRO() const
{
    return m_stub != nullptr;
}

OdDbStub* OdDbObject::id() const
{
    return m_stub;
}

bool OdDbObject::isUndoing() const
{
    return m_stub && m_stub->database->isUndoing();
}

// ---- Opening -------------------------------------------------------------------------------------------------------

void OdDbObject::upgradeOpen()
{
    if (!m_stub)
        return;
    if (State::mode(*this) < State::kRead)
        throw OdError(eNotOpenForRead);
    const bool nested = State::isWriting(*this);
    State::setDepth(*this, nested ? State::depth(*this) + 1 : 1);
    if (nested)
        return;
    State::setMode(*this, State::kWrite);
    State::clear(*this, State::kWriterGone);
    State::setBase(*this, m_refs - 1);
}

void OdDbObject::downgradeOpen()
{
    if (!m_stub)
        return;
    if (State::mode(*this) != State::kWrite)
        throw OdError(eNotOpenForWrite);
    State::setDepth(*this, State::depth(*this) - 1);
    if (State::depth(*this) == 0)
        State::setMode(*this, State::kRead);
}

// While states are put back or a file is read, objects are used without being opened.
static bool isBeingRestored(const OdDbStub& stub)
{
    return stub.database->isUndoing() || stub.database->isLoading();
}

void OdDbObject::assertReadEnabled() const
{
    if (m_stub && State::mode(*this) < State::kRead && !isBeingRestored(*m_stub))
        throw OdError(eNotOpenForRead);
}

void OdDbObject::assertWriteEnabled(bool autoUndo, bool recordModified)
{
    if (!m_stub)
        return;
    if (State::mode(*this) != State::kWrite && !isBeingRestored(*m_stub))
        throw OdError(eNotOpenForWrite);
    if (autoUndo)
        m_stub->database->impl().journal.recordState(*this);
    if (recordModified)
        State::set(*this, State::kModified);
}

void OdDbObject::assertNotifyEnabled() const
{
    if (m_stub && State::mode(*this) == State::kClosed && !isBeingRestored(*m_stub))
        throw OdError(eNotOpenForRead);
}

bool OdDbObject::isReadEnabled() const
{
    return !m_stub || State::mode(*this) >= State::kRead;
}

bool OdDbObject::isWriteEnabled() const
{
    return !m_stub || State::mode(*this) == State::kWrite;
}

bool OdDbObject::isNotifyEnabled() const
{
    return !m_stub || State::mode(*this) != State::kClosed;
}

bool OdDbObject::isNewObject() const
{
    return State::has(*this, State::kNew);
}

bool OdDbObject::isModified() const
{
    return State::has(*this, State::kModified);
}

bool OdDbObject::isModifiedXData() const
{
    return State::has(*this, State::kXDataModified);
}

OdResult OdDbObject::subOpen(OdDb::OpenMode)
{
    return eOk;
}

void OdDbObject::subClose() {}

namespace oddb
{

namespace
{

void beginWriting(OdDbObject& object)
{
    State::setMode(object, State::kWrite);
    State::clear(object, State::kWriterGone);
    State::setDepth(object, 1);
    State::setBase(object, ObjectCore::references(object));
}

} // namespace

OdResult ObjectCore::open(OdDbObject& object, OdDb::OpenMode mode)
{
    if (mode != OdDb::kForRead && mode != OdDb::kForWrite && mode != OdDb::kForNotify)
        return eInvalidOpenMode;
    if (mode == OdDb::kForWrite && State::isWriting(object))
        return eWasOpenForWrite;
    if (const OdResult result = object.subOpen(mode); result != eOk)
        return result;
    if (mode == OdDb::kForWrite)
        beginWriting(object);
    else if (mode == OdDb::kForRead && State::mode(object) < State::kRead)
        State::setMode(object, State::kRead);
    else if (State::mode(object) == State::kClosed)
        State::setMode(object, State::kNotify);
    object.addRef();
    return eOk;
}

// Listeners and overrides may open the object once more while it is being closed, so the state is cleared last.
void ObjectCore::close(OdDbObject& object) noexcept
{
    if (State::mode(object) == State::kClosed || State::has(object, State::kClosing))
        return;
    State::set(object, State::kClosing);
    try
    {
        object.subClose();
        if (State::has(object, State::kModified))
            object.m_stub->database->impl().notifyModified(object);
    }
    catch (...)
    {
        // A listener that fails must not keep the object open.
    }
    object.m_state = 0;
}

void ObjectCore::attach(OdDbObject& object, OdDbStub& stub, OdDbStub* owner)
{
    object.m_stub = &stub;
    object.m_owner = owner;
    stub.object = &object;
    object.addRef();
}

void ObjectCore::beginNew(OdDbObject& object)
{
    beginWriting(object);
    State::setBase(object, 1);
    State::set(object, State::kNew);
}

void ObjectCore::detach(OdDbObject& object)
{
    object.m_stub = nullptr;
    object.m_state = 0;
}

void ObjectCore::orphan(OdDbObject& object)
{
    detach(object);
    dropExtras(object);
    object.m_owner = nullptr;
    if (object.m_refs > 1)
        putGroups(object, groups(object).translated([](int, OdDbStub*, GroupType) { return nullptr; }));
    object.release();
}

void ObjectCore::exchange(OdDbStub& stub, OdDbObject* object)
{
    OdDbObject& old = *stub.object;
    OdDbStub* owner = old.m_owner;
    std::swap(old.m_extras, object->m_extras);
    object->m_state = old.m_state;
    detach(old);
    attach(*object, stub, owner);
    old.release();
}

void ObjectCore::putGroups(OdDbObject& object, Groups groups)
{
    Groups::adopt(object.m_groups);
    object.m_groups = groups.detach();
}

void ObjectCore::changeGroups(OdDbObject& object, Groups groups)
{
    if (ObjectCore::groups(object) == groups)
        return object.assertWriteEnabled(false, false);
    object.assertWriteEnabled();
    putGroups(object, std::move(groups));
}

DatabaseImpl* databaseImpl(const OdDbStub* stub)
{
    return stub ? &stub->database->impl() : nullptr;
}

DatabaseImpl* databaseImpl(const OdDbObject& object)
{
    return databaseImpl(ObjectCore::stub(object));
}

} // namespace oddb
