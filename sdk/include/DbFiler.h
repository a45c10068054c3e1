// How a database object reads and writes its own data: the two kinds of filer, one that
// carries a bare sequence of typed values and one that carries DXF groups.
#pragma once

#include "DbObjectId.h"
#include "DwgVersion.h"
#include "OdBinaryData.h"
#include "OdString.h"
#include "OdaCommon.h"
#include "RxObject.h"

class OdGePoint2d;
class OdGePoint3d;
class OdGeVector2d;
class OdGeVector3d;
class OdGeScale3d;

/** OdDbFiler is what both kinds of filer have in common: what they are for and for which database.
    A filer serves one thread and one object at a time. */
class OdDbFiler : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbFiler);

    /** What the data that passes through a filer is for. */
    enum FilerType : int
    {
        kFileFiler = 0,       ///< a drawing file
        kCopyFiler = 1,       ///< a copy made in memory
        kUndoFiler = 2,       ///< the change journal
        kBagFiler = 3,        ///< a chain of result buffers
        kIdXlateFiler = 4,    ///< replacing the ids of originals by those of their copies
        kPageFiler = 5,       ///< paging out of memory
        kDeepCloneFiler = 6,  ///< a copy with all that the object owns
        kIdFiler = 7,         ///< collecting the ids an object refers to
        kPurgeFiler = 8,      ///< collecting the ids that keep other objects from being purged
        kWblockCloneFiler = 9 ///< a copy into another drawing
    };

    virtual FilerType filerType() const = 0;

    /** The database whose objects are filed; null when there is none. */
    virtual OdDbDatabase* database() const;

    /** The file version that the data is for, and its maintenance release when asked for. */
    virtual OdDb::DwgVersion dwgVersion(OdDb::MaintReleaseVer* maintenance = nullptr) const;

    /** True when the filer wants to know references through addReference rather than through data. */
    virtual bool usesReferences() const;

    /** Tells the filer of a reference that the object holds but does not file as an id of its own. */
    virtual void addReference(OdDbObjectId id, OdDb::ReferenceType type);
};
using OdDbFilerPtr = OdSmartPtr<OdDbFiler>;

/** An OdDbDwgFiler carries values one after the other without names, so a reader asks for the same
    types in the same order in which they were written. Reading past the end or asking for another type
    throws OdError (eEndOfFile, eDwgObjectImproperlyRead); the position is then unchanged. */
class OdDbDwgFiler : public OdDbFiler
{
public:
    ODRX_DECLARE_MEMBERS(OdDbDwgFiler);

    enum SeekType : int
    {
        kSeekFromStart = 0,
        kSeekFromCurrent = 1,
        kSeekFromEnd = 2
    };

    /** Moves to a position that tell() gave before. Throws OdError eEndOfFile outside of the data. */
    virtual void seek(OdInt64 offset, SeekType seekType) = 0;
    virtual OdUInt64 tell() const = 0;

    virtual bool rdBool() = 0;
    virtual OdString rdString() = 0;
    virtual void rdBytes(void* buffer, OdUInt32 numBytes) = 0;
    virtual OdInt8 rdInt8() = 0;
    virtual OdUInt8 rdUInt8() { return static_cast<OdUInt8>(rdInt8()); }
    virtual OdInt16 rdInt16() = 0;
    virtual OdInt32 rdInt32() = 0;
    virtual OdInt64 rdInt64() = 0;
    virtual void* rdAddress();
    virtual double rdDouble() = 0;
    virtual OdDbHandle rdDbHandle() = 0;
    virtual OdDbObjectId rdSoftOwnershipId() = 0;
    virtual OdDbObjectId rdHardOwnershipId() = 0;
    virtual OdDbObjectId rdHardPointerId() = 0;
    virtual OdDbObjectId rdSoftPointerId() = 0;
    virtual OdGePoint2d rdPoint2d() = 0;
    virtual OdGePoint3d rdPoint3d() = 0;
    virtual OdGeVector2d rdVector2d() = 0;
    virtual OdGeVector3d rdVector3d() = 0;
    virtual OdGeScale3d rdScale3d() = 0;

    virtual void wrBool(bool value) = 0;
    virtual void wrString(const OdString& value) = 0;
    virtual void wrBytes(const void* buffer, OdUInt32 numBytes) = 0;
    virtual void wrInt8(OdInt8 value) = 0;
    virtual void wrUInt8(OdUInt8 value) { wrInt8(static_cast<OdInt8>(value)); }
    virtual void wrInt16(OdInt16 value) = 0;
    virtual void wrInt32(OdInt32 value) = 0;
    virtual void wrInt64(OdInt64 value) = 0;
    virtual void wrAddress(const void* value);
    virtual void wrDouble(double value) = 0;
    virtual void wrDbHandle(const OdDbHandle& value) = 0;
    virtual void wrSoftOwnershipId(const OdDbObjectId& id) = 0;
    virtual void wrHardOwnershipId(const OdDbObjectId& id) = 0;
    virtual void wrSoftPointerId(const OdDbObjectId& id) = 0;
    virtual void wrHardPointerId(const OdDbObjectId& id) = 0;
    virtual void wrPoint2d(const OdGePoint2d& value) = 0;
    virtual void wrPoint3d(const OdGePoint3d& value) = 0;
    virtual void wrVector2d(const OdGeVector2d& value) = 0;
    virtual void wrVector3d(const OdGeVector3d& value) = 0;
    virtual void wrScale3d(const OdGeScale3d& value) = 0;
};
using OdDbDwgFilerPtr = OdSmartPtr<OdDbDwgFiler>;

/** An OdDbDxfFiler carries groups, each a code and a value whose type the code gives.
    A reader steps with nextItem() and then asks for the value; asking for a type that the group does not
    have throws OdError (eInvalidGroupCode), and stepping past the end throws OdError (eEndOfFile). */
class OdDbDxfFiler : public OdDbFiler
{
public:
    ODRX_DECLARE_MEMBERS(OdDbDxfFiler);

    /** Goes back to the first group of the object. */
    virtual void rewindFiler() = 0;

    /** Steps to the next group and returns its code; a point is one group. */
    virtual int nextItem() = 0;

    /** Makes the next nextItem() return the current group once more. */
    virtual void pushBackItem() = 0;

    /** The code of the current group. */
    virtual int currentGroupCode() const = 0;

    /** True when no group of the object is left, extended data not counted. */
    virtual bool atEOF() = 0;

    /** True when the groups that are left are extended data. */
    virtual bool atExtendedData() = 0;

    /** True when the next group is the subclass marker with this name, which is then passed over. */
    virtual bool atSubclassData(const OdString& subClassName) = 0;

    /** True when the object is read to its end. */
    virtual bool atEndOfObject() { return atEOF(); }

    virtual OdString rdString() = 0;
    virtual bool rdBool() = 0;
    virtual OdInt8 rdInt8() = 0;
    virtual OdInt16 rdInt16() = 0;
    virtual OdInt32 rdInt32() = 0;
    virtual OdInt64 rdInt64() = 0;
    virtual OdUInt8 rdUInt8() = 0;
    virtual OdUInt16 rdUInt16() = 0;
    virtual OdUInt32 rdUInt32() = 0;
    virtual OdUInt64 rdUInt64() = 0;
    virtual OdDbHandle rdHandle() = 0;
    virtual OdDbObjectId rdObjectId() = 0;
    virtual double rdDouble() = 0;

    /** An angle that the file has in degrees, in radians. */
    virtual double rdAngle() = 0;
    virtual void rdPoint2d(OdGePoint2d& point) = 0;
    virtual void rdPoint3d(OdGePoint3d& point) = 0;
    virtual void rdVector2d(OdGeVector2d& vector) = 0;
    virtual void rdVector3d(OdGeVector3d& vector) = 0;
    virtual void rdScale3d(OdGeScale3d& scale) = 0;
    virtual void rdBinaryChunk(OdBinaryData& chunk) = 0;

    /** Writes the group 0 that begins an object. */
    virtual void wrName(const OdString& name) = 0;
    virtual void wrString(int groupCode, const OdString& value) = 0;

    /** Writes the group unless the text is empty and defaults are left out. */
    virtual void wrStringOpt(int groupCode, const OdString& value);
    virtual void wrSubclassMarker(const OdString& value) = 0;
    virtual void wrBool(int groupCode, bool value) = 0;
    virtual void wrInt8(int groupCode, OdInt8 value) = 0;
    virtual void wrInt16(int groupCode, OdInt16 value) = 0;
    virtual void wrInt32(int groupCode, OdInt32 value) = 0;
    virtual void wrInt64(int groupCode, OdInt64 value) = 0;
    virtual void wrUInt8(int groupCode, OdUInt8 value) = 0;
    virtual void wrUInt16(int groupCode, OdUInt16 value) = 0;
    virtual void wrUInt32(int groupCode, OdUInt32 value) = 0;
    virtual void wrUInt64(int groupCode, OdUInt64 value) = 0;
    virtual void wrHandle(int groupCode, OdDbHandle value) = 0;
    virtual void wrObjectId(int groupCode, OdDbObjectId id) = 0;
    virtual void wrDouble(int groupCode, double value, int precision = kDfltPrec) = 0;

    /** Writes an angle given in radians in degrees. */
    virtual void wrAngle(int groupCode, double value, int precision = kDfltPrec) = 0;
    virtual void wrPoint2d(int groupCode, const OdGePoint2d& value, int precision = kDfltPrec) = 0;
    virtual void wrPoint3d(int groupCode, const OdGePoint3d& value, int precision = kDfltPrec) = 0;
    virtual void wrVector2d(int groupCode, const OdGeVector2d& value, int precision = kDfltPrec) = 0;
    virtual void wrVector3d(int groupCode, const OdGeVector3d& value, int precision = kDfltPrec) = 0;
    virtual void wrScale3d(int groupCode, const OdGeScale3d& value, int precision = kDfltPrec) = 0;
    virtual void wrBinaryChunk(int groupCode, const OdUInt8* buffer, OdUInt32 numBytes) = 0;

    /** True when values that equal their default are written too. */
    virtual bool includesDefaultValues() const { return false; }

    enum
    {
        kDfltPrec = -1,
        kMaxPrec = 16
    };
};
using OdDbDxfFilerPtr = OdSmartPtr<OdDbDxfFiler>;
