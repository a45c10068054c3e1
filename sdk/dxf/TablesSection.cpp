// TABLES: the symbol tables.
//
//   0 TABLE 2 name 5 handle 70 count   0 record...   0 ENDTAB      for each table
#include "Reading.h"
#include "Tables.h"

#include "db/ObjectCore.h"

namespace dxf
{
namespace
{

class TableReader
{
public:
    explicit TableReader(Reading& reading) : m_reading(reading) {}

    void read();

private:
    void makeRecordsToCome();
    void readTable();
    void readRecord();

    Reading& m_reading;
    const oddb::SymbolTableKind* m_kind = nullptr;
    std::vector<OdDbStub*> m_records; // of all tables, in the order of the file
    std::size_t m_next = 0;
};

void TableReader::read()
{
    makeRecordsToCome();
    m_reading.goToFirstRecord();
    while (m_reading.inSection())
    {
        m_reading.records.read(m_reading.record);
        if (m_reading.record.name == "TABLE")
            readTable();
        else if (m_reading.record.name == "ENDTAB")
            m_kind = nullptr;
        else
            readRecord();
    }
}

void TableReader::makeRecordsToCome()
{
    FaultLog ignored;
    TagScanner ahead(m_reading.bytes, ignored);
    ahead.seek(m_reading.sectionStart);
    for (const TableSeed& seed : collectTables(ahead, m_reading.records.decoder()))
    {
        if (const oddb::SymbolTableKind* const kind = findTableKind(seed.table))
            findOrMakeTable(m_reading, kind->table, seed.handle);
        for (const RecordSeed& record : seed.records)
            if (const oddb::SymbolTableKind* const kind = findTableKind(record.kind))
                m_records.push_back(makeRecord(m_reading, kind->table, record.name, record.handle));
    }
}

void TableReader::readTable()
{
    Record& record = m_reading.record;
    m_kind = findTableKind(trimmed(record.text(2)));
    if (m_kind == nullptr)
        return m_reading.noteFault("an unknown table is passed over");
    m_reading.objects.fill(*findOrMakeTable(m_reading, m_kind->table), record, nullptr);
}

// The kind of a record says which table it belongs to, wherever it stands.
void TableReader::readRecord()
{
    const std::string& name = m_reading.record.name;
    const oddb::SymbolTableKind* const kind = findTableKind(name);
    if (kind == nullptr || m_next == m_records.size())
        return m_reading.noteFault("a " + name + " is no record of a table and is passed over");
    OdDbStub& record = *m_records[m_next++];
    OdDbStub* const table = findOrMakeTable(m_reading, kind->table);
    m_reading.objects.fill(record, m_reading.record, table);
    if (kind != m_kind)
        m_reading.noteFault("the " + name + " stands outside of its table; it is taken into it");
    else if (oddb::ObjectCore::owner(*record.object) != table)
        m_reading.noteFault("the record names another owner than its table");
    oddb::ObjectCore::putOwner(*record.object, table);
}

} // namespace

void readTablesSection(Reading& reading)
{
    TableReader(reading).read();
}

} // namespace dxf
