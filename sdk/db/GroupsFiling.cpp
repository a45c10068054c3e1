// Writing and reading rows of groups through filers.
#include "GroupsFiling.h"

#include <algorithm>
#include <string>

#include "DbHandle.h"
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

void readPoint(OdDbDxfFiler& filer, int code, GroupsBuilder& builder)
{
    OdGePoint3d point;
    filer.rdPoint3d(point);
    builder.point(code, point.x, point.y, point.z);
}

void readGroup(OdDbDxfFiler& filer, int code, GroupsBuilder& builder)
{
    switch (groupValue(code))
    {
    case GroupValue::Point:
        return readPoint(filer, code, builder);
    case GroupValue::Real:
        builder.real(code, filer.rdDouble());
        return;
    case GroupValue::Int16:
        builder.integer(code, filer.rdInt16());
        return;
    case GroupValue::Int32:
        builder.integer(code, filer.rdInt32());
        return;
    case GroupValue::Int64:
        builder.integer(code, filer.rdInt64());
        return;
    case GroupValue::Boolean:
        builder.boolean(code, filer.rdBool());
        return;
    case GroupValue::Handle:
        builder.id(code, stubOf(filer.rdObjectId()));
        return;
    case GroupValue::Binary:
        return readBinary(filer, code, builder);
    case GroupValue::Text:
    case GroupValue::None:
        builder.text(code, odStringToUtf8(filer.rdString()));
        return;
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

Groups readGroups(OdDbDxfFiler& filer)
{
    if (auto* memory = dynamic_cast<GroupsDxfFiler*>(&filer))
        return memory->rdGroups();
    GroupsBuilder builder;
    while (!filer.atEOF())
    {
        const int code = filer.nextItem();
        readGroup(filer, code, builder);
    }
    return builder.build();
}

} // namespace oddb
