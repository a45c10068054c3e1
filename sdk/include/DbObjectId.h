// The name under which objects refer to each other while a drawing is in memory.
#pragma once

#include <functional>

#include "DbHandle.h"
#include "DwgVersion.h"
#include "OdArray.h"
#include "SmartPtr.h"

class OdDbStub;
class OdDbObject;
class OdDbDatabase;
class OdRxClass;

/** A smart pointer to an open object. Releasing the last one closes the object. */
using OdDbObjectPtr = OdSmartPtr<OdDbObject>;

/** An OdDbObjectId names one object of one open database: a pointer-sized value that stays good as
    long as the database lives, also when the object is erased. It is a plain value and not thread-safe. */
class OdDbObjectId
{
public:
    constexpr OdDbObjectId() = default;
    constexpr OdDbObjectId(OdDbStub* stub) : m_stub(stub) {}

    /** The null id, which names nothing. */
    static const OdDbObjectId kNull;

    bool isNull() const { return m_stub == nullptr; }
    void setNull() { m_stub = nullptr; }

    /** True for an id whose object exists, erased or not. False for the null id and for an id that
        stands for a handle that names nothing. */
    bool isValid() const;

    /** True for an erased object and for an id that has no object. */
    bool isErased() const;

    /** As isErased(), and also true when an owner of the object is erased. */
    bool isEffectivelyErased() const;

    /** The database that made this id; null for the null id. */
    OdDbDatabase* database() const;
    OdDbDatabase* originalDatabase() const { return database(); }

    /** The handle of the object; the null handle for the null id. */
    OdDbHandle getHandle() const;
    OdDbHandle getNonForwardedHandle() const { return getHandle(); }

    /** The runtime class of the object, null when there is no object. */
    OdRxClass* objectClass() const;

    /** Opens the object. Returns null for the null id, for an id without object, for an erased object
        unless openErased, and for an object that cannot be opened in this mode now. */
    OdDbObjectPtr openObject(OdDb::OpenMode openMode = OdDb::kForRead, bool openErased = false) const;

    /** Opens the object. Throws OdError: eNullObjectId for the null id, eInvalidObjectId without object,
        eWasErased for an erased object unless openErased, ePermanentlyErased for one whose making was undone,
        eWasOpenForWrite when the object is open for
        write already and is asked for once more. Nothing is changed on failure. */
    OdDbObjectPtr safeOpenObject(OdDb::OpenMode openMode = OdDb::kForRead, bool openErased = false) const;

    bool operator==(const OdDbObjectId& other) const { return m_stub == other.m_stub; }
    bool operator!=(const OdDbObjectId& other) const { return m_stub != other.m_stub; }
    bool operator<(const OdDbObjectId& other) const { return std::less<>()(m_stub, other.m_stub); }
    bool operator>(const OdDbObjectId& other) const { return other < *this; }
    bool operator!() const { return isNull(); }
    explicit operator bool() const { return !isNull(); }

    operator OdDbStub*() const { return m_stub; }

private:
    OdDbStub* m_stub = nullptr;
};

using OdDbObjectIdArray = OdArray<OdDbObjectId>;
using OdDbSoftPointerId = OdDbObjectId;
using OdDbHardPointerId = OdDbObjectId;
using OdDbSoftOwnershipId = OdDbObjectId;
using OdDbHardOwnershipId = OdDbObjectId;

namespace std
{
template<>
struct hash<OdDbObjectId>
{
    size_t operator()(const OdDbObjectId& id) const { return hash<OdDbStub*>()(static_cast<OdDbStub*>(id)); }
};
} // namespace std
