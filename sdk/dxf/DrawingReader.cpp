// Reads a drawing file, section by section.
//
//   0 SECTION 2 HEADER    settings                               0 ENDSEC
//   0 SECTION 2 CLASSES   classes of applications, since R13     0 ENDSEC
//   0 SECTION 2 TABLES    layers, linetypes, styles ...          0 ENDSEC
//   0 SECTION 2 BLOCKS    block definitions with their entities  0 ENDSEC
//   0 SECTION 2 ENTITIES  entities of model and paper space      0 ENDSEC
//   0 SECTION 2 OBJECTS   dictionaries and all other objects     0 ENDSEC
//   0 SECTION 2 ...       kept as it is                          0 ENDSEC
//   0 EOF
#include "DrawingReader.h"

#include "Failures.h"
#include "FileVersions.h"
#include "InputFile.h"
#include "KeptSections.h"
#include "Reading.h"
#include "Repair.h"
#include "Tables.h"

#include "OdCharMapper.h"

namespace dxf
{
namespace
{

struct SectionReader
{
    std::string_view name;
    void (*read)(Reading&);
};

constexpr SectionReader kSections[] = {
    {"HEADER", readHeaderSection}, {"CLASSES", readClassesSection},   {"TABLES", readTablesSection},
    {"BLOCKS", readBlocksSection}, {"ENTITIES", readEntitiesSection}, {"OBJECTS", readObjectsSection},
};

// Sets a flag of the database for as long as a file is read, whatever happens.
class LoadingMark
{
public:
    explicit LoadingMark(bool& loading) : m_loading(loading) { m_loading = true; }
    ~LoadingMark() { m_loading = false; }
    LoadingMark(const LoadingMark&) = delete;
    LoadingMark& operator=(const LoadingMark&) = delete;

private:
    bool& m_loading;
};

// The two settings that decide how everything else is read.
struct FileTraits
{
    std::string version;
    std::string codePage;
};

// Looks for them at the beginning of the file, in front of the second section.
FileTraits findTraits(std::string_view file)
{
    FaultLog ignored;
    TagScanner scanner(file, ignored);
    FileTraits traits;
    std::string* wanted = nullptr;
    int sections = 0;
    for (Tag tag; sections < 2 && scanner.next(tag); sections += tag.opens("SECTION"))
    {
        if (wanted != nullptr && tag.code != 9)
            *wanted = trimmed(tag.text);
        wanted = tag.is(9, "$ACADVER") ? &traits.version : tag.is(9, "$DWGCODEPAGE") ? &traits.codePage : nullptr;
    }
    return traits;
}

OdDb::DwgVersion understand(Reading& reading, const std::string& version)
{
    const OdDb::DwgVersion known = versionOf(version);
    if (known != OdDb::kDHL_Unknown)
        return known;
    const bool isNewer = version.substr(0, 2) == "AC" && version > "AC1032";
    const OdDb::DwgVersion taken = isNewer ? OdDb::vAC32 : OdDb::vAC12;
    reading.faults.add(version.empty() ? "the file does not say its version; it is read as AC1009"
                                       : "the version " + version + " is not known; the file is read as " +
                                             (isNewer ? "AC1032" : "AC1009"));
    return taken;
}

OdCodePageId understandCodePage(Reading& reading, const std::string& name)
{
    OdCodePageId page = CP_ANSI_1252;
    if (!name.empty() && OdCharMapper::getCodepageByDesc(odUtf8ToString(name), page) != eOk)
        reading.faults.add("the code page " + name + " is not known; ANSI_1252 is taken");
    return page == CP_UNDEFINED ? CP_ANSI_1252 : page;
}

void chooseDecoder(Reading& reading)
{
    const FileTraits traits = findTraits(reading.bytes);
    reading.version = understand(reading, traits.version);
    reading.records.setDecoder(
        isUtf8Version(reading.version) ? TextDecoder() : TextDecoder(understandCodePage(reading, traits.codePage)));
}

void readSection(Reading& reading)
{
    RecordReader& records = reading.records;
    const bool hasName = records.advance() && records.head().code == 2;
    const std::string name = hasName ? std::string(trimmed(records.head().text)) : std::string();
    if (!hasName)
        reading.faults.add(reading.scanner.place(), "a section without a name");
    reading.sectionStart = reading.scanner.position();
    if (hasName)
        records.advance();
    for (const SectionReader& section : kSections)
    {
        if (section.name != name)
            continue;
        section.read(reading);
        reading.lastSection = name;
        return;
    }
    keepSection(reading, name);
    reading.lastSection = name;
}

// Returns how many sections there were.
int readSections(Reading& reading)
{
    int count = 0;
    reading.records.skipToHead();
    while (!reading.records.atEnd() && !reading.records.atHead("EOF"))
    {
        if (reading.records.atHead("SECTION"))
        {
            readSection(reading);
            ++count;
            continue;
        }
        if (!reading.records.atHead("ENDSEC"))
            reading.faults.add(reading.scanner.place(), "a record outside of all sections is passed over");
        reading.records.skipToHead();
    }
    if (reading.records.atEnd())
        reading.faults.add("the file ends without its mark EOF");
    return count;
}

// The first fault that has a place in the file.
std::string firstFault(const Reading& reading)
{
    for (const std::string& line : reading.faults.lines())
        if (line.substr(0, 5) == "line " || line.substr(0, 5) == "byte ")
            return line;
    return "it has no sections";
}

void report(const Reading& reading)
{
    for (const std::string& line : reading.faults.lines())
        reading.database.recovery.append(odUtf8ToString(line));
}

void read(Reading& reading)
{
    const LoadingMark loading(reading.database.loading);
    chooseDecoder(reading);
    if (readSections(reading) == 0)
        refuse(reading.path, "is no drawing: " + firstFault(reading));
    repairDrawing(reading);
    reading.objects.fillWaiting();
    reading.database.fileVersion = reading.version;
    reading.database.fileType = reading.scanner.isBinary() ? OdDb::kDxb : OdDb::kDxf;
    report(reading);
}

} // namespace

Reading::Reading(OdDbDatabase& readInto, std::string fileName, std::string_view file)
    : database(readInto.impl()), path(std::move(fileName)), bytes(file), scanner(file, faults),
      records(database, scanner, faults), objects(database, records, faults, file)
{
    records.setRegistrar([this](std::string_view name) { return makeRecord(*this, oddb::SymbolTable::RegApp, name); });
}

void Reading::goToFirstRecord()
{
    if (!records.atEnd() && records.head().code != 0)
        records.skipToHead();
}

bool Reading::inSection()
{
    if (!records.atEndOfSection())
        return true;
    if (!records.atHead("ENDSEC"))
        faults.add(scanner.place(), "a section ends without ENDSEC");
    return false;
}

void keepSection(Reading& reading, std::string_view name)
{
    oddb::GroupsBuilder groups;
    for (; reading.inSection(); reading.records.advance())
        reading.records.append(groups, reading.records.head());
    keptSections(reading.database).push_back({std::string(name), reading.lastSection, groups.finish()});
}

void readDrawing(OdDbDatabase& database, const std::string& name, std::string_view file)
{
    Reading reading(database, name, file);
    read(reading);
}

void readDrawing(OdDbDatabase& database, const std::string& path)
{
    const InputFile file(path);
    readDrawing(database, path, file.bytes());
}

} // namespace dxf
