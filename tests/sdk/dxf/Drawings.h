// Opening and saving drawings for the tests of this folder.
#pragma once

#include "DbDatabase.h"
#include "dxf/DrawingReader.h"
#include "dxf/DrawingWriter.h"
#include "support/DxfRecords.h"
#include "support/ErrorCode.h"
#include "support/SdkProgram.h"
#include "support/TemporaryFolder.h"

#include <string>

inline OdDbDatabasePtr openText(std::string_view file)
{
    OdDbDatabasePtr database = OdDbDatabase::createObject();
    dxf::readDrawing(*database, "test.dxf", file);
    return database;
}

inline std::string savedText(OdDbDatabase& database, OdDb::DwgVersion version,
                             dxf::FileForm form = dxf::FileForm::Ascii)
{
    const support::TemporaryFolder folder;
    dxf::writeDrawing(database, folder.path("saved.dxf"), form, version);
    return support::readWholeFile(folder.path("saved.dxf"));
}

/// The lines of the recovery report, each ended by a line feed.
inline std::string reportOf(const OdDbDatabase& database)
{
    std::string report;
    for (const OdString& line : database.recoveryReport())
        report += odStringToUtf8(line) + '\n';
    return report;
}

/// What an operation throws in words, empty when it throws nothing.
template<class Operation>
std::string errorOf(Operation operation)
{
    const OdError error = support::caught(operation);
    return error.code() == eOk ? "" : odStringToUtf8(error.description());
}
