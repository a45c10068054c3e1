// Writes a drawing file, section by section; DrawingReader.cpp draws the whole.
#include "DrawingWriter.h"

#include "FileVersions.h"
#include "HeaderSection.h"
#include "KeptSections.h"
#include "Writing.h"

#include "DbDatabase.h"

namespace dxf
{
namespace
{

struct SectionWriter
{
    std::string_view name;
    void (*write)(Writing&);
};

constexpr SectionWriter kSections[] = {
    {"HEADER", writeHeaderSection}, {"CLASSES", writeClassesSection},   {"TABLES", writeTablesSection},
    {"BLOCKS", writeBlocksSection}, {"ENTITIES", writeEntitiesSection}, {"OBJECTS", writeObjectsSection},
};

TextEncoder encoderFor(oddb::DatabaseImpl& database, OdDb::DwgVersion version)
{
    return isUtf8Version(version) ? TextEncoder() : TextEncoder(codePageOf(database));
}

void beginSection(Writing& writing, std::string_view name)
{
    writing.groups.text(0, "SECTION");
    writing.groups.text(2, name);
}

void endSection(Writing& writing)
{
    writing.groups.text(0, "ENDSEC");
}

struct SectionVersion
{
    std::string_view name;
    OdDb::DwgVersion since;
};

constexpr SectionVersion kSectionVersions[] = {{"ACDSDATA", OdDb::vAC27}};

// True when files of the version may have the section.
bool isSectionOf(std::string_view name, OdDb::DwgVersion version)
{
    for (const SectionVersion& section : kSectionVersions)
        if (section.name == name)
            return section.since <= version;
    return true;
}

void writeSections(Writing& writing)
{
    writeKeptSections(writing, "");
    for (const SectionWriter& section : kSections)
    {
        beginSection(writing, section.name);
        section.write(writing);
        endSection(writing);
        writeKeptSections(writing, section.name);
    }
    writing.groups.text(0, "EOF");
}

} // namespace

Writing::Writing(OdDbDatabase& drawing, OutputFile& file, FileForm form, OdDb::DwgVersion fileVersion)
    : database(drawing.impl()), version(fileVersion), tags(file, form), groups(tags, encoderFor(database, version)),
      objects(groups, drawing, version)
{
    if (version < database.fileVersion)
        groups.dropNewerThan(version);
}

// Another kept section may have stood behind a kept one; those of one name are written once each.
void writeKeptSections(Writing& writing, std::string_view behind)
{
    for (const KeptSection& section : keptSections(writing.database))
    {
        if (section.behind != behind || !isSectionOf(section.name, writing.version))
            continue;
        beginSection(writing, section.name);
        writing.groups.groups(section.groups);
        endSection(writing);
        if (section.name != behind)
            writeKeptSections(writing, section.name);
    }
}

void writeDrawing(OdDbDatabase& database, const std::string& path, FileForm form, OdDb::DwgVersion version)
{
    OutputFile file(path);
    Writing writing(database, file, form, writtenVersion(version));
    writeSections(writing);
    file.commit();
}

} // namespace dxf
