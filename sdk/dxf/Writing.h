// What the parts of the writer share while one drawing file is written.
#pragma once

#include "GroupPrinter.h"
#include "ObjectPrinter.h"
#include "OutputFile.h"
#include "db/DatabaseImpl.h"

namespace dxf
{

/// The state of writing one database into one file.
struct Writing
{
    Writing(OdDbDatabase& drawing, OutputFile& file, FileForm fileForm, OdDb::DwgVersion fileVersion);

    oddb::DatabaseImpl& database;
    FileForm form;
    OdDb::DwgVersion version;
    TagPrinter tags;
    GroupPrinter groups;
    ObjectKinds kinds;
    ObjectPrinter objects;
};

// One function for each section; each writes what stands between the section's name and its ENDSEC.
void writeHeaderSection(Writing& writing);
void writeClassesSection(Writing& writing);
void writeTablesSection(Writing& writing);
void writeBlocksSection(Writing& writing);
void writeEntitiesSection(Writing& writing);
void writeObjectsSection(Writing& writing);

} // namespace dxf
