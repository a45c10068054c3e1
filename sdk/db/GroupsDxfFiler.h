// A DXF filer over rows of groups: what an object writes becomes a row, and it reads from a row as from a file.
#pragma once

#include <string>

#include "DbFiler.h"
#include "Groups.h"
#include "RxObjectImpl.h"

namespace oddb
{

class GroupsDxfFiler : public OdDbDxfFiler
{
public:
    /// A filer to write to; the row is then taken with finish().
    static OdSmartPtr<GroupsDxfFiler> create(OdDbDatabase* database, FilerType type = kFileFiler,
                                             OdDb::DwgVersion version = OdDb::kDHL_CURRENT);
    /// A filer to read the row from.
    static OdSmartPtr<GroupsDxfFiler> createReader(const Groups& groups, OdDbDatabase* database,
                                                   FilerType type = kFileFiler);

    /// The groups written so far; the filer is empty afterwards.
    Groups finish() { return m_builder.finish(); }
    /// The same without taking them; valid until the filer is used again.
    GroupSpan written() const { return m_builder.view(); }
    /// Writes a whole row.
    void wrGroups(const Groups& groups) { m_builder.append(groups); }
    /// Reads all groups that are left.
    Groups rdGroups();

    FilerType filerType() const override { return m_type; }
    OdDbDatabase* database() const override { return m_database; }
    OdDb::DwgVersion dwgVersion(OdDb::MaintReleaseVer* maintenance) const override;

    void rewindFiler() override;
    int nextItem() override;
    void pushBackItem() override;
    int currentGroupCode() const override;
    bool atEOF() override;
    bool atExtendedData() override;
    bool atSubclassData(const OdString& subClassName) override;

    OdString rdString() override;
    bool rdBool() override;
    OdInt8 rdInt8() override;
    OdInt16 rdInt16() override;
    OdInt32 rdInt32() override;
    OdInt64 rdInt64() override;
    OdUInt8 rdUInt8() override;
    OdUInt16 rdUInt16() override;
    OdUInt32 rdUInt32() override;
    OdUInt64 rdUInt64() override;
    OdDbHandle rdHandle() override;
    OdDbObjectId rdObjectId() override;
    double rdDouble() override;
    double rdAngle() override;
    void rdPoint2d(OdGePoint2d& point) override;
    void rdPoint3d(OdGePoint3d& point) override;
    void rdVector2d(OdGeVector2d& vector) override;
    void rdVector3d(OdGeVector3d& vector) override;
    void rdScale3d(OdGeScale3d& scale) override;
    void rdBinaryChunk(OdBinaryData& chunk) override;

    void wrName(const OdString& name) override;
    void wrString(int groupCode, const OdString& value) override;
    void wrSubclassMarker(const OdString& value) override;
    void wrBool(int groupCode, bool value) override;
    void wrInt8(int groupCode, OdInt8 value) override;
    void wrInt16(int groupCode, OdInt16 value) override;
    void wrInt32(int groupCode, OdInt32 value) override;
    void wrInt64(int groupCode, OdInt64 value) override;
    void wrUInt8(int groupCode, OdUInt8 value) override;
    void wrUInt16(int groupCode, OdUInt16 value) override;
    void wrUInt32(int groupCode, OdUInt32 value) override;
    void wrUInt64(int groupCode, OdUInt64 value) override;
    void wrHandle(int groupCode, OdDbHandle value) override;
    void wrObjectId(int groupCode, OdDbObjectId id) override;
    void wrDouble(int groupCode, double value, int precision) override;
    void wrAngle(int groupCode, double value, int precision) override;
    void wrPoint2d(int groupCode, const OdGePoint2d& value, int precision) override;
    void wrPoint3d(int groupCode, const OdGePoint3d& value, int precision) override;
    void wrVector2d(int groupCode, const OdGeVector2d& value, int precision) override;
    void wrVector3d(int groupCode, const OdGeVector3d& value, int precision) override;
    void wrScale3d(int groupCode, const OdGeScale3d& value, int precision) override;
    void wrBinaryChunk(int groupCode, const OdUInt8* buffer, OdUInt32 numBytes) override;

private:
    struct Triple
    {
        double x = 0, y = 0, z = 0;
    };
    const GroupView& current() const;
    const GroupView& current(GroupType type) const;
    template<class T>
    T readInteger() const;
    Triple readPoint() const;
    GroupIterator behind(GroupIterator at) const;

    FilerType m_type = kFileFiler;
    OdDbDatabase* m_database = nullptr;
    OdDb::DwgVersion m_version = OdDb::kDHL_CURRENT;
    GroupsBuilder m_builder;
    std::string m_text; ///< the last one that was written
    Groups m_groups;
    GroupIterator m_current; ///< end() before the first nextItem()
    GroupIterator m_next;
};

} // namespace oddb
