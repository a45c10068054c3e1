// Takes a record apart.
//
//   0 NAME                                  head
//   5 handle                                105 in a DIMSTYLE
//   102 {ACAD_REACTORS 330... 102 }         listeners
//   102 {ACAD_XDICTIONARY 360 102 }         extension dictionary
//   330 owner
//   100 marker groups... 100 marker ...     the data of the class, part by part
//   1001 application 1000... 1001 ...       extended data
#include "RecordReader.h"

#include "Numbers.h"

namespace dxf
{
namespace
{

constexpr int kRecordCode = 0;
constexpr int kMarkerCode = 100;
constexpr int kApplicationGroupCode = 102;
constexpr int kOwnerCode = 330;
constexpr int kDictionaryCode = 360;
constexpr int kFirstXDataCode = 1000;
constexpr int kXDataApplicationCode = 1001;
constexpr std::string_view kUnknownEntity = "ACAD_PROXY_ENTITY";

// Markers and heads of application data go into a table of the whole program.
bool goesIntoSharedTable(int code)
{
    return code >= kMarkerCode && code <= kApplicationGroupCode;
}

bool isReference(int code)
{
    return valueKind(code) == ValueKind::Handle && code != 5 && code != 105;
}

} // namespace

RecordReader::RecordReader(oddb::DatabaseImpl& database, TagScanner& scanner, FaultLog& faults)
    : m_database(database), m_scanner(scanner), m_faults(faults), m_symbols(database.database)
{
}

RecordReader::RecordReader(oddb::DatabaseImpl& database, TagScanner& scanner, FaultLog& faults,
                           const KnownRecords& known)
    : m_database(database), m_scanner(scanner), m_faults(faults), m_symbols(database.database, known), m_known(&known)
{
}

bool RecordReader::advance()
{
    m_atEnd = m_atEnd || !m_scanner.next(m_tag);
    return !m_atEnd;
}

bool RecordReader::skipToHead()
{
    while (advance())
        if (m_tag.code == kRecordCode)
            return true;
    return false;
}

void RecordReader::seek(ScanPosition position)
{
    m_scanner.seek(position);
    m_atEnd = false;
}

void RecordReader::read(Record& record)
{
    record.clear();
    record.name = trimmed(m_tag.text);
    record.place = m_scanner.place();
    enterClass(record.name);
    advance();
    readHeader(record);
    while (!m_atEnd && m_tag.code != kRecordCode)
    {
        if (m_tag.code == kXDataApplicationCode)
            readXData(record);
        else
            readGroup(record);
    }
}

bool RecordReader::readAhead(Record& record)
{
    const std::size_t faultsBefore = m_faults.count();
    m_isLeft = false;
    read(record);
    return !m_isLeft && m_faults.count() == faultsBefore;
}

bool RecordReader::leaveToDatabase()
{
    m_isLeft = m_known != nullptr;
    return m_isLeft;
}

void RecordReader::enterClass(const std::string& name)
{
    m_subclass = nullptr;
    if (name == m_className)
        return;
    m_className = name;
    m_class = oddb::findDxfClass(name);
    if (m_class == nullptr)
        m_class = oddb::findDxfClass(kUnknownEntity); // all entities have a layer
}

void RecordReader::readHeader(Record& record)
{
    const int handleCode = record.name == "DIMSTYLE" ? 105 : 5;
    while (!m_atEnd && m_tag.code != kRecordCode && m_tag.code != kMarkerCode && m_tag.code < kFirstXDataCode)
    {
        if (m_tag.code == handleCode && record.handle == 0)
            readHandle(record);
        else if (m_tag.code == kOwnerCode && !record.hasOwner)
        {
            record.owner = referenceOf(m_tag);
            record.hasOwner = true;
            advance();
        }
        else
            readGroup(record);
    }
}

void RecordReader::readHandle(Record& record)
{
    OdDbHandle handle;
    if (!OdDbHandle::parse(m_tag.text, handle) || handle.isNull() || OdUInt64(handle) > kLargestHandle)
        m_faults.add(m_scanner.place(), "the handle makes no sense; the object gets a new one");
    else
        record.handle = handle;
    advance();
}

void RecordReader::readGroup(Record& record)
{
    if (m_isLeft)
    {
        advance();
        return;
    }
    switch (m_tag.code)
    {
    case kMarkerCode:
        return readMarker(record);
    case kApplicationGroupCode:
        return readApplicationGroup(record);
    default:
        if (m_tag.kind == ValueKind::Text && m_subclass != nullptr)
            return readText(record);
    }
    append(record.groups, m_tag);
    advance();
}

// The marker of a part that the class has needs not be looked for among all that files have.
void RecordReader::readMarker(Record& record)
{
    record.hasMarkers = true;
    m_subclass = m_class != nullptr ? m_class->subclass(trimmed(m_tag.text)) : nullptr;
    if (m_subclass != nullptr && m_tag.text == m_subclass->marker)
        record.groups.atom(kMarkerCode, m_subclass->atom());
    else
        append(record.groups, m_tag);
    advance();
}

void RecordReader::readText(Record& record)
{
    const oddb::DxfRow* const row = m_subclass->row(m_tag.code);
    const std::string_view text = m_decoder.decode(m_tag.text);
    OdDbStub* const named =
        row != nullptr && row->kind == oddb::DxfKind::Name ? m_symbols.find(row->table, text) : nullptr;
    const bool isSpelt = named == nullptr && row != nullptr && !text.empty() && row->kind == oddb::DxfKind::Name;
    if (named != nullptr)
        record.groups.name(m_tag.code, named);
    else if (!(isSpelt || goesIntoSharedTable(m_tag.code)) || !leaveToDatabase())
        record.groups.text(m_tag.code, text);
    if (isSpelt && !m_isLeft)
        m_database.hasSpeltNames = true;
    advance();
}

void RecordReader::append(oddb::GroupsBuilder& groups, const Tag& tag)
{
    switch (tag.kind)
    {
    case ValueKind::Real:
        groups.real(tag.code, tag.real);
        break;
    case ValueKind::Int16:
    case ValueKind::Int32:
    case ValueKind::Int64:
        groups.integer(tag.code, tag.integer);
        break;
    case ValueKind::Bool:
        groups.boolean(tag.code, tag.integer != 0);
        break;
    case ValueKind::Bytes:
        groups.binary(tag.code, m_scanner.bytes(tag));
        break;
    default:
        if (isReference(tag.code))
            groups.id(tag.code, referenceOf(tag));
        else if (!goesIntoSharedTable(tag.code) || !leaveToDatabase())
            groups.text(tag.code, m_decoder.decode(tag.text));
    }
}

OdDbStub* RecordReader::referenceOf(const Tag& tag)
{
    OdDbHandle handle;
    if (!OdDbHandle::parse(tag.text, handle) || OdUInt64(handle) > kLargestHandle)
    {
        m_faults.add(m_scanner.place(), "the reference is no handle; 0 is taken");
        return nullptr;
    }
    if (handle.isNull())
        return nullptr;
    // most records have the same owner as the one before
    if (m_lastReference != nullptr && m_lastReference->handle == OdUInt64(handle))
        return m_lastReference;
    if (m_known == nullptr)
    {
        m_database.noteHandle(handle);
        return m_lastReference = m_database.stubs.findOrCreate(handle);
    }
    OdDbStub* const known = m_known->find(OdUInt64(handle));
    if (known != nullptr)
        m_lastReference = known;
    else
        leaveToDatabase();
    return known;
}

void RecordReader::readApplicationGroup(Record& record)
{
    if (leaveToDatabase())
    {
        advance();
        return;
    }
    const std::string_view name = trimmed(m_tag.text);
    if (name == "{BLKREFS" && record.name == "BLOCK_RECORD")
        return skipApplicationGroup();
    if (!record.hasMarkers && name == "{ACAD_REACTORS")
        return readReactors(record);
    if (!record.hasMarkers && name == "{ACAD_XDICTIONARY")
        return readExtensionDictionary(record);
    const bool isOpening = name.substr(0, 1) == "{" && !record.hasMarkers;
    append(record.groups, m_tag);
    advance();
    if (!isOpening)
        return;
    // the references inside are not the object's owner
    for (bool inside = true; inside && !m_atEnd && m_tag.code != kRecordCode; advance())
    {
        inside = m_tag.code != kApplicationGroupCode;
        append(record.groups, m_tag);
    }
}

// Steps inside of {NAME ... }; false behind its end.
bool RecordReader::nextOfApplicationGroup()
{
    if (!advance() || m_tag.code == kRecordCode || m_tag.code == kMarkerCode)
        return false;
    if (m_tag.code != kApplicationGroupCode)
        return true;
    advance();
    return false;
}

void RecordReader::skipApplicationGroup()
{
    while (nextOfApplicationGroup())
        continue;
}

void RecordReader::readReactors(Record& record)
{
    while (nextOfApplicationGroup())
        if (OdDbStub* const reactor = m_tag.code == kOwnerCode ? referenceOf(m_tag) : nullptr)
            record.reactors.push_back(reactor);
}

void RecordReader::readExtensionDictionary(Record& record)
{
    while (nextOfApplicationGroup())
        if (m_tag.code == kDictionaryCode)
            record.extensionDictionary = referenceOf(m_tag);
}

void RecordReader::readXData(Record& record)
{
    if (leaveToDatabase())
    {
        advance();
        return;
    }
    OdDbStub* const application = findOrRegister(m_decoder.decode(m_tag.text));
    m_values.clear();
    while (advance() && m_tag.code >= kFirstXDataCode && m_tag.code != kXDataApplicationCode)
        append(m_values, m_tag);
    record.xdata.push_back({application, m_database.xdataPool.intern(m_values)});
}

OdDbStub* RecordReader::findOrRegister(std::string_view application)
{
    if (OdDbStub* const exact = m_symbols.find(oddb::SymbolTable::RegApp, application))
        return exact;
    if (OdDbStub* const known = oddb::findSymbol(m_database.database, oddb::SymbolTable::RegApp, application))
        return known;
    m_faults.add(m_scanner.place(), "the application " + std::string(application) + " is not registered; it is now");
    return m_register(application);
}

} // namespace dxf
