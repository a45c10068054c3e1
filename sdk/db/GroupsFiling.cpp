// Writing and reading rows of groups through filers.
#include "GroupsFiling.h"

#include <algorithm>
#include <string>
#include <vector>

#include "DatabaseImpl.h"
#include "DbHandle.h"
#include "DxfClassTable.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "GroupCodes.h"
#include "GroupsDxfFiler.h"
#include "MemoryFilers.h"
#include "OdError.h"
#include "Stub.h"

namespace oddb
{

namespace
{

constexpr OdInt16 kNoGroup = -32768;
constexpr std::size_t kPiece = 4096;
constexpr int kApplicationDataCode = 102;

// ---- DWG-style -----------------------------------------------------------------------------------------------------

void writeId(OdDbDwgFiler& filer, int code, OdDbStub* stub)
{
    switch (referenceType(code).value_or(OdDb::kSoftPointerRef))
    {
    case OdDb::kSoftPointerRef:
        return filer.wrSoftPointerId(stub);
    case OdDb::kHardPointerRef:
        return filer.wrHardPointerId(stub);
    case OdDb::kSoftOwnershipRef:
        return filer.wrSoftOwnershipId(stub);
    case OdDb::kHardOwnershipRef:
        return filer.wrHardOwnershipId(stub);
    }
}

OdDbStub* readId(OdDbDwgFiler& filer, int code)
{
    switch (referenceType(code).value_or(OdDb::kSoftPointerRef))
    {
    case OdDb::kHardPointerRef:
        return stubOf(filer.rdHardPointerId());
    case OdDb::kSoftOwnershipRef:
        return stubOf(filer.rdSoftOwnershipId());
    case OdDb::kHardOwnershipRef:
        return stubOf(filer.rdHardOwnershipId());
    default:
        return stubOf(filer.rdSoftPointerId());
    }
}

// In pieces, so that a length that is a lie costs no more memory than there are bytes.
void writeBytes(OdDbDwgFiler& filer, std::string_view bytes)
{
    filer.wrInt32(static_cast<OdInt32>(bytes.size()));
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), kPiece)))
        filer.wrBytes(bytes.data(), static_cast<OdUInt32>(std::min(bytes.size(), kPiece)));
}

std::string readBytes(OdDbDwgFiler& filer)
{
    const OdInt32 length = filer.rdInt32();
    if (length < 0)
        throw OdError(eDwgObjectImproperlyRead);
    std::string bytes;
    for (auto left = static_cast<std::size_t>(length); left > 0;)
    {
        const std::size_t piece = std::min(left, kPiece);
        bytes.resize(bytes.size() + piece);
        filer.rdBytes(bytes.data() + bytes.size() - piece, static_cast<OdUInt32>(piece));
        left -= piece;
    }
    return bytes;
}

void writeGroup(OdDbDwgFiler& filer, const GroupView& group)
{
    filer.wrInt16(static_cast<OdInt16>(group.code()));
    filer.wrUInt8(static_cast<OdUInt8>(group.type()));
    switch (group.type())
    {
    case GroupType::Text: // bytes, since a text need not be valid UTF-8
        return writeBytes(filer, group.text());
    case GroupType::Real:
        return filer.wrDouble(group.real());
    case GroupType::Integer:
        return filer.wrInt64(group.integer());
    case GroupType::Boolean:
        return filer.wrBool(group.boolean());
    case GroupType::Id:
        return writeId(filer, group.code(), group.stub());
    case GroupType::Name:
        return filer.wrHardPointerId(group.stub());
    case GroupType::Binary:
        return writeBytes(filer, group.binary());
    }
}

void readGroup(OdDbDwgFiler& filer, int code, GroupsBuilder& builder)
{
    switch (static_cast<GroupType>(filer.rdUInt8()))
    {
    case GroupType::Text:
        builder.text(code, readBytes(filer));
        return;
    case GroupType::Real:
        builder.real(code, filer.rdDouble());
        return;
    case GroupType::Integer:
        builder.integer(code, filer.rdInt64());
        return;
    case GroupType::Boolean:
        builder.boolean(code, filer.rdBool());
        return;
    case GroupType::Id:
        builder.id(code, readId(filer, code));
        return;
    case GroupType::Name:
        builder.name(code, stubOf(filer.rdHardPointerId()));
        return;
    case GroupType::Binary:
        builder.binary(code, readBytes(filer));
        return;
    }
    throw OdError(eDwgObjectImproperlyRead);
}

// ---- DXF -----------------------------------------------------------------------------------------------------------

void writeText(OdDbDxfFiler& filer, const GroupView& group)
{
    const OdString text = odUtf8ToString(group.text());
    group.code() == 100 ? filer.wrSubclassMarker(text) : filer.wrString(group.code(), text);
}

void writeInteger(OdDbDxfFiler& filer, const GroupView& group)
{
    const std::int64_t value = group.integer();
    switch (groupValue(group.code()))
    {
    case GroupValue::Int16:
        return filer.wrInt16(group.code(), static_cast<OdInt16>(value));
    case GroupValue::Int64:
        return filer.wrInt64(group.code(), value);
    case GroupValue::Boolean:
        return filer.wrBool(group.code(), value != 0);
    default:
        return filer.wrInt32(group.code(), static_cast<OdInt32>(value));
    }
}

void writeBinary(OdDbDxfFiler& filer, const GroupView& group)
{
    const std::string_view bytes = group.binary();
    filer.wrBinaryChunk(group.code(), reinterpret_cast<const OdUInt8*>(bytes.data()),
                        static_cast<OdUInt32>(bytes.size()));
}

void writeGroup(OdDbDxfFiler& filer, const GroupView& group)
{
    switch (group.type())
    {
    case GroupType::Text:
        return writeText(filer, group);
    case GroupType::Real:
        return filer.wrDouble(group.code(), group.real());
    case GroupType::Integer:
        return writeInteger(filer, group);
    case GroupType::Boolean:
        return filer.wrBool(group.code(), group.boolean());
    case GroupType::Id:
        return filer.wrObjectId(group.code(), group.stub());
    case GroupType::Name:
        return filer.wrString(group.code(), odUtf8ToString(group.text()));
    case GroupType::Binary:
        return writeBinary(filer, group);
    }
}

GroupIterator writePoint(OdDbDxfFiler& filer, GroupIterator at, GroupIterator end)
{
    const int code = at->code();
    double coordinates[3] = {};
    int count = 0;
    for (; count < 3 && at != end && at->code() == code + 10 * count; ++count, ++at)
        coordinates[count] = at->real();
    if (count == 1)
        filer.wrDouble(code, coordinates[0]);
    else if (count == 2)
        filer.wrPoint2d(code, OdGePoint2d(coordinates[0], coordinates[1]));
    else
        filer.wrPoint3d(code, OdGePoint3d(coordinates[0], coordinates[1], coordinates[2]));
    return at;
}

void readBinary(OdDbDxfFiler& filer, int code, GroupsBuilder& builder)
{
    OdBinaryData chunk;
    filer.rdBinaryChunk(chunk);
    builder.binary(code, {reinterpret_cast<const char*>(chunk.asArrayPtr()), chunk.size()});
}

// Reads the groups of an object one by one. The table of its class tells points of two coordinates from others, which a
// filer cannot, and names of records from other texts.
class DxfGroupReader
{
public:
    DxfGroupReader(OdDbDxfFiler& filer, const DxfClass* cls) : m_filer(filer), m_class(cls) {}

    /// Reads the group that the filer stands at.
    void read(int code);
    Groups finish() { return m_builder.finish(); }

private:
    void readPoint(int code);
    void readText(int code);
    bool isFlat(int code);

    OdDbDxfFiler& m_filer;
    const DxfClass* m_class;
    const DxfSubclass* m_part = nullptr;
    std::vector<int> m_points; // their codes in the present part
    GroupsBuilder m_builder;
};

// Where a class has a code in two rows, the first one is for the first point and the other one for those that follow.
bool DxfGroupReader::isFlat(int code)
{
    const bool isFirst = std::find(m_points.begin(), m_points.end(), code) == m_points.end();
    m_points.push_back(code);
    const DxfRow* found = nullptr;
    for (const DxfRow& row : m_part ? m_part->rows : std::span<const DxfRow>())
        if (row.code == code && !(found && isFirst))
            found = &row;
    return found && found->kind == DxfKind::Point2d;
}

void DxfGroupReader::readPoint(int code)
{
    if (isFlat(code))
    {
        OdGePoint2d flat;
        m_filer.rdPoint2d(flat);
        m_builder.point(code, flat.x, flat.y);
        return;
    }
    OdGePoint3d point;
    m_filer.rdPoint3d(point);
    m_builder.point(code, point.x, point.y, point.z);
}

void DxfGroupReader::readText(int code)
{
    const std::string text = odStringToUtf8(m_filer.rdString());
    OdDbDatabase* database = m_filer.database();
    const DxfRow* row = m_part && database ? m_part->row(code) : nullptr;
    if (code == 100)
    {
        m_part = m_class ? m_class->subclass(text) : nullptr;
        m_points.clear();
    }
    if (!row || row->kind != DxfKind::Name || text.empty())
    {
        m_builder.text(code, text);
        return;
    }
    OdDbStub* record = findSymbol(*database, row->table, text);
    if (record && symbolName(record) == text)
    {
        m_builder.name(code, record);
        return;
    }
    m_builder.text(code, text);
    database->impl().hasSpeltNames = true;
}

void DxfGroupReader::read(int code)
{
    switch (groupValue(code))
    {
    case GroupValue::Point:
        return readPoint(code);
    case GroupValue::Real:
        m_builder.real(code, m_filer.rdDouble());
        return;
    case GroupValue::Int16:
        m_builder.integer(code, m_filer.rdInt16());
        return;
    case GroupValue::Int32:
        m_builder.integer(code, m_filer.rdInt32());
        return;
    case GroupValue::Int64:
        m_builder.integer(code, m_filer.rdInt64());
        return;
    case GroupValue::Boolean:
        m_builder.boolean(code, m_filer.rdBool());
        return;
    case GroupValue::Handle:
        m_builder.id(code, stubOf(m_filer.rdObjectId()));
        return;
    case GroupValue::Binary:
        return readBinary(m_filer, code, m_builder);
    case GroupValue::Text:
    case GroupValue::None:
        return readText(code);
    }
}

} // namespace

void writeGroups(OdDbDwgFiler& filer, const Groups& groups)
{
    auto* memory = dynamic_cast<MemoryDwgFiler*>(&filer);
    if (memory && filer.filerType() != OdDbFiler::kFileFiler)
        return memory->wrGroups(groups);
    for (const GroupView& group : groups)
        writeGroup(filer, group);
    filer.wrInt16(kNoGroup);
}

Groups readGroups(OdDbDwgFiler& filer)
{
    auto* memory = dynamic_cast<MemoryDwgFiler*>(&filer);
    if (memory && filer.filerType() != OdDbFiler::kFileFiler)
        return memory->rdGroups();
    GroupsBuilder builder;
    for (OdInt16 code = filer.rdInt16(); code != kNoGroup; code = filer.rdInt16())
    {
        if (code < -8 || code > 2039)
            throw OdError(eDwgObjectImproperlyRead);
        readGroup(filer, code, builder);
    }
    return builder.build();
}

void writeGroups(OdDbDxfFiler& filer, const Groups& groups)
{
    if (auto* memory = dynamic_cast<GroupsDxfFiler*>(&filer))
        return memory->wrGroups(groups);
    for (GroupIterator at = groups.begin(); at != groups.end();)
    {
        if (at->type() == GroupType::Real && groupValue(at->code()) == GroupValue::Point)
            at = writePoint(filer, at, groups.end());
        else
            writeGroup(filer, *at++);
    }
}

Groups readGroups(OdDbDxfFiler& filer, const DxfClass* cls)
{
    if (auto* memory = dynamic_cast<GroupsDxfFiler*>(&filer))
        return memory->rdGroups();
    DxfGroupReader reader(filer, cls);
    while (!filer.atEOF())
        reader.read(filer.nextItem());
    return reader.finish();
}

Groups readApplicationData(OdDbDxfFiler& filer)
{
    DxfGroupReader reader(filer, nullptr);
    reader.read(filer.currentGroupCode());
    for (bool inside = true; inside && !filer.atEOF();)
    {
        const int code = filer.nextItem();
        reader.read(code);
        inside = code != kApplicationDataCode;
    }
    return reader.finish();
}

} // namespace oddb
