// Erasing objects and bringing them back.
#include "DatabaseImpl.h"
#include "DbObject.h"
#include "ErasingWithOwner.h"
#include "ObjectState.h"

using State = oddb::ObjectCore::State;

OdResult OdDbObject::erase(bool eraseIt)
{
    assertWriteEnabled(false, false);
    if (!m_stub)
        return eNotInDatabase;
    if (isErased() == eraseIt || isUndoing())
        return eOk;
    if (const OdResult result = subErase(eraseIt); result != eOk)
        return result;
    // subErase may have erased the object through another way already.
    if (isErased() == eraseIt)
        return eOk;
    oddb::DatabaseImpl& impl = m_stub->database->impl();
    impl.journal.recordErased(*m_stub);
    m_stub->set(OdDbStub::kErased, eraseIt);
    m_stub->set(OdDbStub::kErasedWithOwner, false);
    State::set(*this, State::kModified);
    State::set(*this, State::kEraseToggled);
    impl.notifyErased(*this, eraseIt);
    impl.tellPersistentReactors(*this, [&](OdDbObject& reactor) { reactor.erased(this, eraseIt); });
    return eOk;
}

bool OdDbObject::isErased() const
{
    return m_stub && m_stub->has(OdDbStub::kErased);
}

bool OdDbObject::isEraseStatusToggled() const
{
    return State::has(*this, State::kEraseToggled);
}

OdResult OdDbObject::subErase(bool)
{
    return eOk;
}

void OdDbObject::modified(const OdDbObject*) {}

void OdDbObject::erased(const OdDbObject*, bool) {}

namespace oddb
{

namespace
{

bool isConcerned(const OdDbStub& stub, bool erasing)
{
    return stub.object && stub.isErased() != erasing && !stub.has(OdDbStub::kUndone) &&
           (erasing || stub.has(OdDbStub::kErasedWithOwner));
}

} // namespace

OdResult eraseWithOwner(std::span<OdDbStub* const> owned, bool erasing)
{
    for (const OdDbStub* stub : owned)
        if (isConcerned(*stub, erasing) && State::isWriting(*stub->object))
            return eWasOpenForWrite;
    for (OdDbStub* stub : owned)
    {
        if (!isConcerned(*stub, erasing))
            continue;
        const OdResult result = OdDbObjectId(stub).safeOpenObject(OdDb::kForWrite, true)->erase(erasing);
        if (result != eOk)
            return result;
        stub->set(OdDbStub::kErasedWithOwner, erasing);
    }
    return eOk;
}

} // namespace oddb
