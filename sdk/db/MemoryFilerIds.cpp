// Ids in memory filers: reading them with replacements, and visiting all of them.
#include <cstring>

#include "GroupCodes.h"
#include "MemoryFilers.h"
#include "OdError.h"

namespace oddb
{

namespace
{

// Names refer to table records, which must stay as long as they are named.
OdDb::ReferenceType typeOf(int code, GroupType type)
{
    return type == GroupType::Name ? OdDb::kHardPointerRef : referenceType(code).value_or(OdDb::kSoftPointerRef);
}

} // namespace

OdDbObjectId MemoryDwgFiler::readId(Tag tag, OdDb::ReferenceType type)
{
    auto* stub = read<OdDbStub*>(tag);
    return stub && m_translate ? m_translate(stub, type) : stub;
}

void MemoryDwgFiler::writeId(Tag tag, const OdDbObjectId& id)
{
    write(tag, static_cast<OdDbStub*>(id));
}

OdDbObjectId MemoryDwgFiler::rdSoftOwnershipId()
{
    return readId(Tag::SoftOwner, OdDb::kSoftOwnershipRef);
}

OdDbObjectId MemoryDwgFiler::rdHardOwnershipId()
{
    return readId(Tag::HardOwner, OdDb::kHardOwnershipRef);
}

OdDbObjectId MemoryDwgFiler::rdHardPointerId()
{
    return readId(Tag::HardPointer, OdDb::kHardPointerRef);
}

OdDbObjectId MemoryDwgFiler::rdSoftPointerId()
{
    return readId(Tag::SoftPointer, OdDb::kSoftPointerRef);
}

void MemoryDwgFiler::wrSoftOwnershipId(const OdDbObjectId& id)
{
    writeId(Tag::SoftOwner, id);
}

void MemoryDwgFiler::wrHardOwnershipId(const OdDbObjectId& id)
{
    writeId(Tag::HardOwner, id);
}

void MemoryDwgFiler::wrSoftPointerId(const OdDbObjectId& id)
{
    writeId(Tag::SoftPointer, id);
}

void MemoryDwgFiler::wrHardPointerId(const OdDbObjectId& id)
{
    writeId(Tag::HardPointer, id);
}

void MemoryDwgFiler::wrGroups(const Groups& groups)
{
    write(Tag::Groups, static_cast<std::uint32_t>(m_groups.size()));
    m_groups.push_back(groups);
}

Groups MemoryDwgFiler::rdGroups()
{
    std::uint32_t index;
    std::memcpy(&index, peek(Tag::Groups, sizeof index), sizeof index);
    if (index >= m_groups.size())
        throw OdError(eDwgObjectImproperlyRead);
    m_position += 1 + sizeof index;
    if (!m_translate)
        return m_groups[index];
    return m_groups[index].translated([this](int code, OdDbStub* stub, GroupType type)
                                      { return m_translate(stub, typeOf(code, type)); });
}

std::size_t MemoryDwgFiler::valueSize(std::size_t position) const
{
    static constexpr std::uint8_t kSizes[] = {0, 1, 1, 2, 4, 8, 8, 8, 0, 0, 8, 8, 8, 8, 16, 24, 4};
    const auto tag = static_cast<Tag>(m_source[position]);
    if (tag != Tag::String && tag != Tag::Bytes)
        return 1 + kSizes[static_cast<int>(tag)];
    std::uint32_t length;
    std::memcpy(&length, m_source.data() + position + 1, sizeof length);
    return 1 + sizeof length + length;
}

void MemoryDwgFiler::visitIds(const std::function<void(OdDbStub*, OdDb::ReferenceType)>& visit) const
{
    static constexpr OdDb::ReferenceType kTypes[] = {OdDb::kSoftPointerRef, OdDb::kHardPointerRef,
                                                     OdDb::kSoftOwnershipRef, OdDb::kHardOwnershipRef};
    for (std::size_t at = 0; at < m_written.size(); at += valueSize(at))
    {
        const auto tag = static_cast<Tag>(m_written[at]);
        if (tag < Tag::SoftPointer || tag > Tag::HardOwner)
            continue;
        OdDbStub* stub;
        std::memcpy(&stub, m_written.data() + at + 1, sizeof stub);
        if (stub)
            visit(stub, kTypes[static_cast<int>(tag) - static_cast<int>(Tag::SoftPointer)]);
    }
    for (const Groups& groups : m_groups)
        groups.visitStubs([&](int code, OdDbStub* stub, GroupType type) { visit(stub, typeOf(code, type)); });
}

} // namespace oddb
