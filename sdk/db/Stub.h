// The place behind an object id: it ties a handle to an object and outlives the object's erasing.
#pragma once

#include <cstdint>

#include "DbObjectId.h"

class OdDbStub
{
public:
    enum Flag : std::uint32_t
    {
        kErased = 1,          ///< the object is erased
        kUndone = 2,          ///< erased because its making was undone
        kFresh = 4,           ///< made since the mark in preimageMark
        kMarked = 8,          ///< for the use of one algorithm at a time, which clears it
        kErasedWithOwner = 16 ///< erased as its owner was, and to be brought back with it
    };

    OdUInt64 handle = 0;
    OdDbObject* object = nullptr; ///< one reference is held by the stub
    OdDbDatabase* database = nullptr;
    std::uint32_t flags = 0;
    std::uint32_t preimageMark = 0; ///< the journal mark under which the object's state is recorded already

    bool has(Flag flag) const { return (flags & flag) != 0; }
    void set(Flag flag, bool on) { flags = on ? flags | flag : flags & ~flag; }
    bool isErased() const { return !object || has(kErased); }
};

namespace oddb
{
/// The present name of the record in UTF-8 or the object's own handle: for messages.
inline OdDbStub* stubOf(const OdDbObjectId& id)
{
    return static_cast<OdDbStub*>(id);
}
} // namespace oddb
