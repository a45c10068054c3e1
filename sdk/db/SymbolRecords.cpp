// Records of symbol tables: finding them by name, going over them, giving them other names.
#include "BlockReferences.h"
#include "DatabaseImpl.h"
#include "HeaderNames.h"
#include "ObjectCore.h"
#include "RecordTables.h"
#include "SpeltNames.h"
#include "SymbolTableCore.h"

namespace oddb
{

// ---- Finding -------------------------------------------------------------------------------------------------------

void SymbolRecords::indexNames() const
{
    for (; m_indexed < m_records.size(); ++m_indexed)
        m_index.add(nameHash(symbolName(m_records[m_indexed])), static_cast<std::uint32_t>(m_indexed));
}

void SymbolRecords::rename(const OdDbStub* record, std::string_view newName)
{
    indexNames();
    const std::uint32_t hash = nameHash(symbolName(record));
    const std::uint32_t number = m_index.find(hash, [&](std::uint32_t at) { return m_records[at] == record; });
    if (number == HashIndex::kNone)
        return;
    m_index.remove(hash, number);
    m_index.add(nameHash(newName), number);
}

void SymbolRecords::forgetNames()
{
    m_index.clear();
    m_indexed = 0;
}

// Several records may have one name: viewports do, and so do erased ones. The first one counts.
template<class Accept>
OdDbStub* SymbolRecords::find(std::string_view utf8Name, Accept accept) const
{
    indexNames();
    std::uint32_t first = HashIndex::kNone;
    m_index.find(nameHash(utf8Name),
                 [&](std::uint32_t number)
                 {
                     OdDbStub* record = m_records[number];
                     if (number < first && accept(*record) && isSameName(symbolName(record), utf8Name))
                         first = number;
                     return false;
                 });
    return first == HashIndex::kNone ? nullptr : m_records[first];
}

OdDbStub* SymbolRecords::findName(std::string_view utf8Name) const
{
    return find(utf8Name, [](const OdDbStub& record) { return !record.isErased(); });
}

OdDbStub* SymbolRecords::findErased(std::string_view utf8Name) const
{
    return find(utf8Name, [](const OdDbStub& record) { return record.isErased() && !record.has(OdDbStub::kUndone); });
}

void SymbolTableCore::append(OdDbStub& table, OdDbStub* record)
{
    SymbolRecords& records = SymbolTableCore::records(table);
    table.database->impl().symbols[static_cast<std::size_t>(records.kind)] = &records;
    records.append(record);
}

OdDbSymbolTable* SymbolTableCore::tableOf(const OdDbSymbolTableRecord& record)
{
    OdDbStub* owner = ObjectCore::owner(record);
    return owner ? dynamic_cast<OdDbSymbolTable*>(owner->object) : nullptr;
}

// ---- Names ---------------------------------------------------------------------------------------------------------

namespace
{

void noteNames(DatabaseImpl& database, SymbolTable table)
{
    if (table == SymbolTable::Block)
        BlockReferences::of(database).noteNames();
}

// A record gets its name back with its groups; the table only has to know.
class NameChange : public JournalChange
{
public:
    explicit NameChange(SymbolRecords& records) : m_records(records) {}
    void replay(OdDbDatabase& database, bool) override
    {
        m_records.forgetNames();
        noteNames(database.impl(), m_records.kind);
    }

private:
    SymbolRecords& m_records;
};

const DxfClass& tableClassOf(const OdDbObject& record)
{
    const DxfClass* cls = dxfClassOf(record);
    return cls ? *cls : recordtables::kRegApp;
}

} // namespace

void SymbolTableCore::changeName(OdDbSymbolTableRecord& record, std::string_view utf8Name)
{
    const DxfClass& cls = tableClassOf(record);
    OdDbSymbolTable* table = record.isDBRO() ? tableOf(record) : nullptr;
    record.assertWriteEnabled(false, false);
    if (table)
    {
        keepNamesOf(*ObjectCore::stub(record));
        databaseImpl(record)->journal.record(std::make_unique<NameChange>(records(*table)));
        renameInHeader(*databaseImpl(record), records(*table).kind, symbolName(ObjectCore::stub(record)), utf8Name);
        records(*table).rename(ObjectCore::stub(record), utf8Name);
        noteNames(*databaseImpl(record), records(*table).kind);
    }
    ObjectCore::changeGroups(record, withText(ObjectCore::groups(record), cls, *cls.subclasses.back(), 2, utf8Name));
}

// ---- StubCursor ----------------------------------------------------------------------------------------------------

void StubCursor::start(bool atBeginning, bool skipErased)
{
    m_at = atBeginning ? 0 : m_list.size() - 1;
    settle(atBeginning, skipErased);
}

void StubCursor::step(bool forward, bool skipErased)
{
    if (done())
        return;
    m_at = forward ? m_at + 1 : m_at - 1;
    settle(forward, skipErased);
}

void StubCursor::settle(bool forward, bool skipErased)
{
    while (!done() && (m_list[m_at]->has(OdDbStub::kUndone) || (skipErased && m_list[m_at]->isErased())))
        m_at = forward ? m_at + 1 : m_at - 1;
}

bool StubCursor::seek(const OdDbStub* stub)
{
    for (std::size_t i = 0; i < m_list.size(); ++i)
        if (m_list[i] == stub)
        {
            m_at = i;
            return true;
        }
    return false;
}

} // namespace oddb
