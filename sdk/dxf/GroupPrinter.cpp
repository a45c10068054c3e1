// Prints groups. The code decides how a value is printed, whatever the group holds: in the binary form a value of
// another width would make all that follows unreadable.
#include "GroupPrinter.h"

#include "db/Stub.h"

namespace dxf
{

void GroupPrinter::group(const oddb::GroupView& group)
{
    switch (valueKind(group.code()))
    {
    case ValueKind::Real:
        return m_tags.real(group.code(), group.real());
    case ValueKind::Int16:
    case ValueKind::Int32:
    case ValueKind::Int64:
    case ValueKind::Bool:
        return m_tags.integer(group.code(), group.integer());
    case ValueKind::Bytes:
        return m_tags.bytes(group.code(), group.binary());
    default:
        referenceOrText(group);
    }
}

void GroupPrinter::referenceOrText(const oddb::GroupView& group)
{
    if (group.type() != oddb::GroupType::Id)
        return text(group.code(), group.text());
    const OdDbStub* const stub = group.stub();
    m_tags.handle(group.code(), stub != nullptr ? stub->handle : 0);
}

void GroupPrinter::groups(oddb::GroupIterator begin, oddb::GroupIterator end)
{
    for (; begin != end; ++begin)
        group(*begin);
}

void GroupPrinter::groupsOf(const oddb::DxfClass* cls, oddb::GroupIterator begin, oddb::GroupIterator end)
{
    if (!m_drops || cls == nullptr)
        return groups(begin, end);
    const oddb::DxfSubclass* subclass = nullptr;
    for (; begin != end; ++begin)
    {
        if (begin->beginsSection())
            subclass = cls->subclass(begin->text());
        const oddb::DxfRow* const row = subclass != nullptr ? subclass->row(begin->code()) : nullptr;
        if (row == nullptr || row->since <= m_version)
            group(*begin);
    }
}

} // namespace dxf
