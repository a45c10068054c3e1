// Writes a drawing file, section by section; DrawingReader.cpp draws the whole.
#include "DrawingWriter.h"

#include "FileVersions.h"
#include "HeaderSection.h"
#include "KeptSections.h"
#include "Writing.h"

#include <map>
#include <vector>

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

/// Writes the sections that were kept as they were, each once behind one of those that it stood behind: one of the
/// writer's own or another kept one. Files may have many of one name, also in a circle.
class KeptSectionsWriter
{
public:
    explicit KeptSectionsWriter(Writing& writing) : m_writing(writing)
    {
        for (const KeptSection& section : keptSections(writing.database))
            m_sections[section.behind].push_back(&section);
    }

    void write(std::string_view behind)
    {
        std::vector<const KeptSection*> waiting;
        takeBehind(behind, waiting);
        while (!waiting.empty())
        {
            const KeptSection& section = *waiting.back();
            waiting.pop_back();
            if (!isSectionOf(section.name, m_writing.version))
                continue;
            beginSection(m_writing, section.name);
            m_writing.groups.groups(section.groups);
            endSection(m_writing);
            takeBehind(section.name, waiting);
        }
    }

private:
    // The first of them comes last, as the next to be written.
    void takeBehind(std::string_view name, std::vector<const KeptSection*>& waiting)
    {
        const auto found = m_sections.find(name);
        if (found == m_sections.end())
            return;
        waiting.insert(waiting.end(), found->second.rbegin(), found->second.rend());
        m_sections.erase(found);
    }

    Writing& m_writing;
    std::map<std::string_view, std::vector<const KeptSection*>> m_sections; ///< by the name in front of them
};

void writeFile(Writing& writing)
{
    writing.tags.beginFile();
    KeptSectionsWriter kept(writing);
    kept.write("");
    for (const SectionWriter& section : kSections)
    {
        beginSection(writing, section.name);
        section.write(writing);
        endSection(writing);
        kept.write(section.name);
    }
    writing.groups.text(0, "EOF");
}

} // namespace

Writing::Writing(OdDbDatabase& drawing, OutputFile& file, FileForm fileForm, OdDb::DwgVersion fileVersion)
    : database(drawing.impl()), form(fileForm), version(fileVersion), tags(file, form),
      groups(tags, encoderFor(database, version)), objects(groups, kinds, drawing, version)
{
    if (version < database.fileVersion)
        groups.dropNewerThan(version);
}

void writeDrawing(OdDbDatabase& database, const std::string& path, FileForm form, OdDb::DwgVersion version)
{
    OutputFile file(path);
    Writing writing(database, file, form, writtenVersion(version));
    writeFile(writing);
    file.commit();
}

} // namespace dxf
