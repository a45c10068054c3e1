// What the parts of the reader share while one drawing file is read.
#pragma once

#include "FaultLog.h"
#include "ObjectLoader.h"
#include "RecordReader.h"
#include "TableSeeds.h"
#include "TagScanner.h"

#include <string>
#include <string_view>

namespace dxf
{

/// The state of reading one file into one database.
struct Reading
{
    Reading(OdDbDatabase& readInto, std::string fileName, std::string_view file);

    oddb::DatabaseImpl& database;
    std::string path;
    std::string_view bytes;
    FaultLog faults;
    TagScanner scanner;
    RecordReader records;
    ObjectLoader objects;
    Record record; ///< the one that is being read
    OdDb::DwgVersion version = OdDb::vAC12;
    std::string lastSection;
    ScanPosition sectionStart; ///< behind the name of the section that is being read

    /// Adds a line on a fault of the record that was read last.
    void noteFault(std::string_view what) { faults.add(record.place, what); }

    /// Passes over groups in front of a section's first record.
    void goToFirstRecord();

    /// True while the records of the present section go on; says so when the section has no end of its own.
    bool inSection();
};

// One function for each section; each begins behind the section's name and ends at its ENDSEC, or where it should be.
void readHeaderSection(Reading& reading);
void readClassesSection(Reading& reading);
void readTablesSection(Reading& reading);
void readBlocksSection(Reading& reading);
void readEntitiesSection(Reading& reading);
void readObjectsSection(Reading& reading);

/// Keeps a section that none of the above reads.
void keepSection(Reading& reading, std::string_view name);

} // namespace dxf
