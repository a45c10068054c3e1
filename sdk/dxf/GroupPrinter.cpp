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
    const int code = group.code();
    switch (valueKind(code))
    {
    case ValueKind::Real:
        return m_tags.real(code, group.real());
    case ValueKind::Int16:
    case ValueKind::Int32:
    case ValueKind::Int64:
    case ValueKind::Bool:
        return m_tags.integer(code, group.integer());
    case ValueKind::Bytes:
        return m_tags.bytes(code, group.binary());
    default:
        referenceOrText(code, group);
    }
}

void GroupPrinter::referenceOrText(int code, const oddb::GroupView& group)
{
    switch (group.storage())
    {
    case oddb::Storage::Atom:
        return atom(code, group.atom());
    case oddb::Storage::Id:
        return m_tags.handle(code, group.stub() != nullptr ? group.stub()->handle : 0);
    case oddb::Storage::Name:
        return m_tags.text(code, nameOf(group.stub()));
    default:
        text(code, group.text());
    }
}

// Whether the text of an atom needs encoding is found out once.
void GroupPrinter::atom(int code, oddb::Atom atom)
{
    if (atom.index() >= m_plainAtoms.size())
        m_plainAtoms.resize(atom.index() + std::size_t{1});
    std::string_view& plain = m_plainAtoms[atom.index()];
    if (plain.empty())
    {
        const std::string_view encoded = m_encoder.encode(atom.text());
        if (encoded.data() != atom.text().data())
            return m_tags.text(code, encoded);
        plain = encoded;
    }
    m_tags.text(code, plain);
}

const std::string& GroupPrinter::nameOf(const OdDbStub* record)
{
    PrintedName& name = m_names[std::hash<const OdDbStub*>()(record) / sizeof(OdDbStub) % m_names.size()];
    if (name.record != record || name.age != m_age)
        name = {record, m_age, std::string(m_encoder.encode(oddb::symbolName(record)))};
    return name.text;
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
