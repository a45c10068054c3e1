// Writing drawings: the command SAVE.
#include "commands/DrawingFiles.h"

#include "OdError.h"
#include "commands/CommandTable.h"
#include "commands/FileVersions.h"

namespace hostcommands
{

namespace
{

struct FormatRow
{
    const OdChar* name;
    OdDb::SaveType type;
};
const FormatRow kFormats[] = {{L"ascii", OdDb::kDxf}, {L"binary", OdDb::kDxb}};

OdDb::SaveType formatFromName(const OdString& name)
{
    for (const FormatRow& row : kFormats)
        if (name.iCompare(row.name) == 0)
            return row.type;
    throw OdError(eInvalidInput, L"FORMAT is \"ascii\" or \"binary\", not \"" + name + L"\"");
}

OdString textOf(const CommandRun& run, const OdChar* name)
{
    return run.parameters.string(name).value_or(OdString());
}

} // namespace

void requireFileName(const OdString& file)
{
    if (file.find(L'\0') >= 0)
        throw OdError(eInvalidInput, OdString(L"FILE holds a null character"));
}

OdString writeDrawing(OdDbDatabase& database, const WriteOrder& order)
{
    OdString file = order.file.isEmpty() ? database.getFilename() : order.file;
    if (file.isEmpty())
        throw OdError(eInvalidInput, OdString(L"the drawing has no file yet: FILE is missing"));
    requireFileName(file);
    const OdDb::SaveType format = order.format.isEmpty() ? OdDb::kDxf : formatFromName(order.format);
    const OdDb::DwgVersion version =
        order.version.isEmpty() ? database.originalFileVersion() : versionFromName(order.version);
    database.writeFile(file, format, versionToWrite(version));
    return file;
}

void refuseInTransaction(const CommandRun& run, const OdChar* command)
{
    if (run.database.numActiveTransactions() > 0)
        throw OdError(eInvalidContext,
                      OdString(command) + L" has to wait until the open transaction is ended or aborted");
}

void save(CommandRun& run)
{
    refuseInTransaction(run, L"SAVE");
    const WriteOrder order{textOf(run, L"FILE"), textOf(run, L"VERSION"), textOf(run, L"FORMAT")};
    run.results.add(L"FILE", writeDrawing(run.database, order));
}

} // namespace hostcommands
