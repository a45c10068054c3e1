// Object ids: what a stub says of its object, and opening the object through it.
#include "DbObjectId.h"

#include "DatabaseImpl.h"
#include "ObjectCore.h"
#include "OdError.h"

const OdDbObjectId OdDbObjectId::kNull;

bool OdDbObjectId::isValid() const
{
    return m_stub && m_stub->object;
}

bool OdDbObjectId::isErased() const
{
    return !m_stub || m_stub->isErased();
}

bool OdDbObjectId::isEffectivelyErased() const
{
    constexpr int kDeepestOwner = 1000; // owners of a damaged drawing may go in circles
    OdDbStub* stub = m_stub;
    for (int depth = 0; stub && depth < kDeepestOwner; ++depth)
    {
        if (stub->isErased())
            return true;
        stub = oddb::ObjectCore::owner(*stub->object);
    }
    return !m_stub;
}

OdDbDatabase* OdDbObjectId::database() const
{
    return m_stub ? m_stub->database : nullptr;
}

OdDbHandle OdDbObjectId::getHandle() const
{
    return m_stub ? m_stub->handle : 0;
}

OdRxClass* OdDbObjectId::objectClass() const
{
    return isValid() ? m_stub->object->isA() : nullptr;
}

namespace
{

OdResult open(OdDbStub* stub, OdDb::OpenMode mode, bool openErased)
{
    if (!stub)
        return eNullObjectId;
    if (!stub->object)
        return eInvalidObjectId;
    if (stub->isErased() && !openErased)
        return eWasErased;
    if (stub->has(OdDbStub::kUndone) && !stub->database->isUndoing())
        return ePermanentlyErased;
    return oddb::ObjectCore::open(*stub->object, mode);
}

} // namespace

OdDbObjectPtr OdDbObjectId::openObject(OdDb::OpenMode openMode, bool openErased) const
{
    if (open(m_stub, openMode, openErased) != eOk)
        return OdDbObjectPtr();
    return OdDbObjectPtr(m_stub->object, kOdRxObjAttach);
}

OdDbObjectPtr OdDbObjectId::safeOpenObject(OdDb::OpenMode openMode, bool openErased) const
{
    if (const OdResult result = open(m_stub, openMode, openErased); result != eOk)
        throw OdError(result);
    return OdDbObjectPtr(m_stub->object, kOdRxObjAttach);
}
