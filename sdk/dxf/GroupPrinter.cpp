// Prints groups. The code decides how a value is printed, whatever the group holds: in the binary form a value of
// another width would make all that follows unreadable.
#include "GroupPrinter.h"

#include "db/Stub.h"
#include "db/SymbolNames.h"

#include <functional>

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
    switch (group.type())
    {
    case oddb::GroupType::Id:
        return m_tags.handle(group.code(), group.stub() != nullptr ? group.stub()->handle : 0);
    case oddb::GroupType::Name:
        return m_tags.text(group.code(), nameOf(group.stub()));
    default:
        text(group.code(), group.text());
    }
}

const std::string& GroupPrinter::nameOf(const OdDbStub* record)
{
    PrintedName& name = m_names[std::hash<const OdDbStub*>()(record) / sizeof(OdDbStub) % m_names.size()];
    if (name.record != record)
        name = {record, std::string(m_encoder.encode(oddb::symbolName(record)))};
    return name.text;
}

void GroupPrinter::forgetNames()
{
    for (PrintedName& name : m_names)
        name.record = nullptr;
}

void GroupPrinter::groups(oddb::GroupSpan groups)
{
    for (const oddb::GroupView& group : groups)
        this->group(group);
}

void GroupPrinter::groupsOf(const oddb::DxfClass* cls, oddb::GroupSpan groups)
{
    if (!m_drops || cls == nullptr)
        return this->groups(groups);
    const oddb::DxfSubclass* subclass = nullptr;
    for (const oddb::GroupView& group : groups)
    {
        if (group.beginsSection())
            subclass = cls->subclass(group.text());
        const oddb::DxfRow* const row = subclass != nullptr ? subclass->row(group.code()) : nullptr;
        if (row == nullptr || row->since <= m_version)
            this->group(group);
    }
}

} // namespace dxf
