// The bits in which an object keeps how it is open and what happened to it since.
#pragma once

#include "ObjectCore.h"

namespace oddb
{

/// A view of OdDbObject::m_state.
///   bits 0..1 mode   2..7 flags   8..15 depth of nested write openings   16..31 references at the opening for write
struct ObjectCore::State
{
    enum Mode : OdUInt32
    {
        kClosed = 0,
        kNotify = 1,
        kRead = 2,
        kWrite = 3
    };
    enum Flag : OdUInt32
    {
        kNew = 1u << 2,
        kModified = 1u << 3,
        kXDataModified = 1u << 4,
        kEraseToggled = 1u << 5,
        kClosing = 1u << 6,
        kWriterGone = 1u << 7 ///< perhaps: as many pointers are left as there were before it was opened for write
    };

    static Mode mode(const OdDbObject& object) { return static_cast<Mode>(object.m_state & 3u); }
    static void setMode(OdDbObject& object, Mode mode) { object.m_state = (object.m_state & ~3u) | mode; }
    static bool has(const OdDbObject& object, Flag flag) { return (object.m_state & flag) != 0; }
    static void set(OdDbObject& object, Flag flag) { object.m_state |= flag; }
    static void clear(OdDbObject& object, Flag flag) { object.m_state &= ~static_cast<OdUInt32>(flag); }

    static OdUInt32 depth(const OdDbObject& object) { return object.m_state >> 8 & 0xFFu; }
    static void setDepth(OdDbObject& object, OdUInt32 depth)
    {
        object.m_state = (object.m_state & ~0xFF00u) | (depth > 0xFF ? 0xFF : depth) << 8;
    }

    static OdUInt32 base(const OdDbObject& object) { return object.m_state >> 16; }
    static void setBase(OdDbObject& object, OdUInt32 references)
    {
        object.m_state = (object.m_state & 0xFFFFu) | (references > 0xFFFF ? 0xFFFF : references) << 16;
    }

    static bool isWriting(const OdDbObject& object) { return mode(object) == kWrite && !has(object, kWriterGone); }
};

} // namespace oddb
