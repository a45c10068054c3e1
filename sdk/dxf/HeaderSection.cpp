// HEADER: the settings of the drawing.
//
//   9 $NAME group...   9 $NAME group...
#include "HeaderSection.h"

#include "FileVersions.h"
#include "Reading.h"
#include "Writing.h"

#include "OdCharMapper.h"
#include "db/HeaderVariables.h"

namespace dxf
{
namespace
{

using oddb::HeaderVariable;
using oddb::HeaderVariables;

constexpr int kNameCode = 9;
constexpr std::string_view kVersion = "ACADVER";
constexpr std::string_view kNextHandle = "HANDSEED";
constexpr std::string_view kCodePage = "DWGCODEPAGE";

// Names of settings begin with "$" in files.
std::string nameOf(Reading& reading)
{
    std::string_view name = trimmed(reading.records.head().text);
    name.remove_prefix(name.substr(0, 1) == "$");
    return std::string(name);
}

void readVariable(Reading& reading)
{
    const std::string name = nameOf(reading);
    oddb::GroupsBuilder values;
    while (reading.records.advance() && reading.records.head().code != kNameCode && reading.records.head().code != 0)
        reading.records.append(values, reading.records.head());
    HeaderVariables::of(reading.database).put(name, values.finish());
}

void noteNextHandle(Reading& reading)
{
    OdDbHandle handle;
    const oddb::Groups values = HeaderVariables::of(reading.database).find(kNextHandle);
    const bool isHandle = !values.empty() && OdDbHandle::parse(values.begin()->text(), handle);
    if (isHandle && !handle.isNull() && OdUInt64(handle) <= RecordReader::kLargestHandle)
        reading.database.noteHandle(OdUInt64(handle) - 1);
}

void writeVariable(Writing& writing, std::string_view name, const oddb::Groups& values)
{
    writing.groups.text(kNameCode, "$" + std::string(name));
    if (name == kVersion)
        writing.groups.text(1, versionName(writing.version));
    else if (name == kNextHandle)
        writing.groups.handle(5, writing.database.nextHandle());
    else
        writing.groups.groups(values);
}

bool isOfVersion(const Writing& writing, const HeaderVariable& variable)
{
    const oddb::HeaderRow* const row = oddb::findHeaderRow(variable.name);
    return row == nullptr || row->since <= writing.version || writing.version >= writing.database.fileVersion;
}

} // namespace

OdCodePageId codePageOf(oddb::DatabaseImpl& database)
{
    OdCodePageId page = CP_ANSI_1252;
    const oddb::Groups values = HeaderVariables::of(database).find(kCodePage);
    if (!values.empty())
        OdCharMapper::getCodepageByDesc(odUtf8ToString(values.begin()->text()), page);
    return page == CP_UNDEFINED ? CP_ANSI_1252 : page;
}

void readHeaderSection(Reading& reading)
{
    while (reading.inSection())
    {
        if (reading.records.head().code == kNameCode)
        {
            readVariable(reading);
            continue;
        }
        reading.faults.add(reading.scanner.place(), "a group among the settings that belongs to none is passed over");
        reading.records.advance();
    }
    noteNextHandle(reading);
}

// A reader has to know the version before it meets the first text.
void writeHeaderSection(Writing& writing)
{
    const HeaderVariables& variables = HeaderVariables::of(writing.database);
    writeVariable(writing, kVersion, {});
    bool hasNextHandle = false;
    for (const HeaderVariable& variable : variables.all())
    {
        hasNextHandle = hasNextHandle || variable.name == kNextHandle;
        if (variable.name != kVersion && isOfVersion(writing, variable))
            writeVariable(writing, variable.name, variable.values);
    }
    if (!hasNextHandle)
        writeVariable(writing, kNextHandle, {});
}

} // namespace dxf
