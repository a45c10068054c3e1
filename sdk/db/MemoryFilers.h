// A filer that keeps what is written to it in memory, each value with a tag that says its type.
//
//   bytes  = value...
//   value  = tag payload
//   tag    = one byte: Tag, see below
//   payload: Bool, Int8 1 byte; Int16 2; Int32 4; Int64, Double, Handle 8; String and Bytes uint32 length and the UTF-8
//            text or bytes; the four Ids 8 bytes OdDbStub*; Point2d 16; Point3d 24; Groups uint32 index of a shared row
//
// It serves the change journal, copies in memory, the collecting and replacing of ids, and the binary form of objects.
#pragma once

#include <cstdint>
#include <cstring>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "DbFiler.h"
#include "Groups.h"
#include "RxObjectImpl.h"

namespace oddb
{

class MemoryDwgFiler : public OdDbDwgFiler
{
public:
    /// Gives the id to be read in place of the one that was written; null is never asked for.
    using Translate = std::function<OdDbStub*(OdDbStub*, OdDb::ReferenceType)>;

    static OdSmartPtr<MemoryDwgFiler> create(FilerType type, OdDbDatabase* database);

    /// Empties the filer and makes it one of this type, for writing.
    void begin(FilerType type, OdDbDatabase* database);
    /// Goes back to the first value and makes the filer one of this type, for reading what was written.
    void beginReading(FilerType type, OdDbDatabase* database, Translate translate = {});
    /// Reads foreign bytes, which must stay as long as they are read and hold no rows of groups.
    void setBytes(std::span<const std::uint8_t> bytes);

    std::span<const std::uint8_t> bytes() const { return m_source; }
    bool atEnd() const { return m_position == m_source.size(); }

    /// Calls visit(stub, type) for every id that is not null, those inside of rows of groups included.
    void visitIds(const std::function<void(OdDbStub*, OdDb::ReferenceType)>& visit) const;

    /// A row of groups as one value.
    void wrGroups(const Groups& groups);
    Groups rdGroups();

    FilerType filerType() const override { return m_type; }
    OdDbDatabase* database() const override { return m_database; }
    void seek(OdInt64 offset, SeekType seekType) override;
    OdUInt64 tell() const override { return m_position; }

    bool rdBool() override;
    OdString rdString() override;
    void rdBytes(void* buffer, OdUInt32 numBytes) override;
    OdInt8 rdInt8() override;
    OdInt16 rdInt16() override;
    OdInt32 rdInt32() override;
    OdInt64 rdInt64() override;
    double rdDouble() override;
    OdDbHandle rdDbHandle() override;
    OdDbObjectId rdSoftOwnershipId() override;
    OdDbObjectId rdHardOwnershipId() override;
    OdDbObjectId rdHardPointerId() override;
    OdDbObjectId rdSoftPointerId() override;
    OdGePoint2d rdPoint2d() override;
    OdGePoint3d rdPoint3d() override;
    OdGeVector2d rdVector2d() override;
    OdGeVector3d rdVector3d() override;
    OdGeScale3d rdScale3d() override;

    void wrBool(bool value) override;
    void wrString(const OdString& value) override;
    void wrBytes(const void* buffer, OdUInt32 numBytes) override;
    void wrInt8(OdInt8 value) override;
    void wrInt16(OdInt16 value) override;
    void wrInt32(OdInt32 value) override;
    void wrInt64(OdInt64 value) override;
    void wrDouble(double value) override;
    void wrDbHandle(const OdDbHandle& value) override;
    void wrSoftOwnershipId(const OdDbObjectId& id) override;
    void wrHardOwnershipId(const OdDbObjectId& id) override;
    void wrSoftPointerId(const OdDbObjectId& id) override;
    void wrHardPointerId(const OdDbObjectId& id) override;
    void wrPoint2d(const OdGePoint2d& value) override;
    void wrPoint3d(const OdGePoint3d& value) override;
    void wrVector2d(const OdGeVector2d& value) override;
    void wrVector3d(const OdGeVector3d& value) override;
    void wrScale3d(const OdGeScale3d& value) override;

private:
    enum class Tag : std::uint8_t
    {
        Bool = 1,
        Int8,
        Int16,
        Int32,
        Int64,
        Double,
        Handle,
        String,
        Bytes,
        SoftPointer,
        HardPointer,
        SoftOwner,
        HardOwner,
        Point2d,
        Point3d,
        Groups
    };

    template<class T>
    void write(Tag tag, const T& value);
    template<class T>
    T read(Tag tag);
    void put(const void* bytes, std::size_t size);
    const std::uint8_t* peek(Tag tag, std::size_t size) const;
    std::string_view readText(Tag tag);
    void writeText(Tag tag, std::string_view text);
    OdDbObjectId readId(Tag tag, OdDb::ReferenceType type);
    void writeId(Tag tag, const OdDbObjectId& id);
    std::size_t valueSize(std::size_t position) const;

    FilerType m_type = kCopyFiler;
    OdDbDatabase* m_database = nullptr;
    std::vector<std::uint8_t> m_written;
    std::span<const std::uint8_t> m_source; ///< m_written, or foreign bytes
    std::size_t m_position = 0;
    std::vector<Groups> m_groups;
    Translate m_translate;
};

template<class T>
void MemoryDwgFiler::write(Tag tag, const T& value)
{
    std::uint8_t bytes[1 + sizeof(T)] = {static_cast<std::uint8_t>(tag)};
    std::memcpy(bytes + 1, &value, sizeof(T));
    put(bytes, sizeof bytes);
}

template<class T>
T MemoryDwgFiler::read(Tag tag)
{
    T value;
    std::memcpy(&value, peek(tag, sizeof(T)), sizeof(T));
    m_position += 1 + sizeof(T);
    return value;
}

} // namespace oddb
