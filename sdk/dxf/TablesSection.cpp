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
    OdDbStub* m_table = nullptr;
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
        const oddb::SymbolTableKind* const kind = findTableKind(seed.table);
        if (kind == nullptr)
            continue;
        findOrMakeTable(m_reading, kind->table, seed.handle);
        for (const RecordSeed& record : seed.records)
            if (record.kind == kind->dxfName)
                m_records.push_back(makeRecord(m_reading, kind->table, record.name, record.handle));
    }
}

void TableReader::readTable()
{
    Record& record = m_reading.record;
    m_kind = findTableKind(trimmed(record.text(2)));
    if (m_kind == nullptr)
        return m_reading.noteFault("an unknown table is passed over");
    m_table = findOrMakeTable(m_reading, m_kind->table);
    m_reading.objects.fill(*m_table, record, nullptr);
}

void TableReader::readRecord()
{
    const bool belongs = m_kind != nullptr && m_reading.record.name == m_kind->dxfName;
    if (!belongs || m_next == m_records.size())
        return m_reading.noteFault("a " + m_reading.record.name + " is not in its table and is passed over");
    OdDbStub& record = *m_records[m_next++];
    m_reading.objects.fill(record, m_reading.record, m_table);
    if (oddb::ObjectCore::owner(*record.object) == m_table)
        return;
    m_reading.noteFault("the record names another owner than its table");
    oddb::ObjectCore::putOwner(*record.object, m_table);
}

} // namespace

void readTablesSection(Reading& reading)
{
    TableReader(reading).read();
}

} // namespace dxf
