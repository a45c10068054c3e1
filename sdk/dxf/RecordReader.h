// Takes the records of a drawing file apart.
#pragma once

#include "Markers.h"
#include "Record.h"
#include "SymbolFinder.h"
#include "TagScanner.h"
#include "TextCoding.h"
#include "db/DatabaseImpl.h"
#include "db/DxfClassTable.h"

#include <functional>

namespace dxf
{

/// Reads one record after the other. Groups that the class table knows as names of table records become references to
/// these records.
class RecordReader
{
public:
    /// Higher handles count as garbage: there must be room for new ones above.
    static constexpr std::uint64_t kLargestHandle = ~std::uint64_t{0} >> 1;

    RecordReader(oddb::DatabaseImpl& database, TagScanner& scanner, FaultLog& faults);
    /// A reader for another thread than the database's: it looks at these records instead, and has only readAhead().
    RecordReader(oddb::DatabaseImpl& database, TagScanner& scanner, FaultLog& faults, const KnownRecords& known);

    /// Called for an application that has extended data but is not registered; returns its new record.
    using Registrar = std::function<OdDbStub*(std::string_view name)>;
    void setRegistrar(Registrar registrar) { m_register = std::move(registrar); }

    void setDecoder(const TextDecoder& decoder) { m_decoder = decoder; }
    TextDecoder& decoder() { return m_decoder; }

    /// The group 0 that begins the record to be read next.
    const Tag& head() const { return m_tag; }
    /// Reads on to the next group 0. Returns false at the end of the file.
    bool skipToHead();
    /// True when the head is there and is (0, name).
    bool atHead(std::string_view name) const { return !m_atEnd && m_tag.opens(name); }
    bool atEnd() const { return m_atEnd; }
    /// True where a section ends, or should have ended.
    bool atEndOfSection() const { return m_atEnd || atHead("ENDSEC") || atHead("SECTION") || atHead("EOF"); }
    /// Takes the next group, whatever it is. Returns false at the end of the file.
    bool advance();
    void seek(ScanPosition position);

    /// Reads the record that the head begins; the head is then that of the next one.
    void read(Record& record);

    /// As read(), without the database. Returns false when the record needs that, or when there is a fault in it: then
    /// the record is not whole and read() has to read it again.
    bool readAhead(Record& record);

    /// Gives groups without subclass markers, as old files have them, the markers of the class.
    void completeMarkers(oddb::GroupsBuilder& groups, const oddb::DxfClass& cls)
    {
        insertMarkers(groups, cls, m_symbols);
    }

    /// Appends the tag to the groups as its kind tells, without looking at what it means.
    void append(oddb::GroupsBuilder& groups, const Tag& tag);

private:
    /// Leaves the record to a reader that has the database. True when this one has not.
    bool leaveToDatabase();
    void enterClass(const std::string& name);
    void readHeader(Record& record);
    void readGroup(Record& record);
    void readText(Record& record);
    void readApplicationGroup(Record& record);
    void readReactors(Record& record);
    void readExtensionDictionary(Record& record);
    void skipApplicationGroup();
    bool nextOfApplicationGroup();
    void readXData(Record& record);
    void readHandle(Record& record);
    void readMarker(Record& record);
    OdDbStub* referenceOf(const Tag& tag);
    OdDbStub* findOrRegister(std::string_view application);

    oddb::DatabaseImpl& m_database;
    TagScanner& m_scanner;
    FaultLog& m_faults;
    TextDecoder m_decoder;
    SymbolFinder m_symbols;
    const KnownRecords* m_known = nullptr; // for the thread of another reader
    bool m_isLeft = false;                 // to that one
    Tag m_tag;
    bool m_atEnd = false;
    const oddb::DxfClass* m_class = nullptr; // of the record that was read last
    std::string m_className;                 // its name in files
    const oddb::DxfSubclass* m_subclass = nullptr;
    OdDbStub* m_lastReference = nullptr;
    oddb::GroupsBuilder m_values;
    Registrar m_register;
};

} // namespace dxf
