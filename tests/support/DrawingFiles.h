// Drawings in files: read, saved and read again, and those of other programs that the developer has at hand.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "DbDatabase.h"
#include "support/TemporaryFolder.h"

namespace support
{

inline OdDbDatabasePtr readDrawing(const std::string& path)
{
    OdDbDatabasePtr database = OdDbDatabase::createObject();
    database->readFile(odUtf8ToString(path));
    return database;
}

/// The drawing as it is there again after saving, with nothing to mend.
inline OdDbDatabasePtr savedAndRead(OdDbDatabase& database, OdDb::SaveType type = OdDb::kDxf)
{
    const TemporaryFolder folder;
    database.writeFile(odUtf8ToString(folder.path("saved.dxf")), type);
    OdDbDatabasePtr read = readDrawing(folder.path("saved.dxf"));
    EXPECT_TRUE(read->recoveryReport().isEmpty());
    return read;
}

/// The drawings in the folder that the environment variable ZOLCAD_DRAWINGS names, or in one below it; none without it.
inline std::vector<std::string> realDrawings(const std::string& below = {})
{
    std::vector<std::string> paths;
    if (const char* folder = std::getenv("ZOLCAD_DRAWINGS"))
        for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(folder) / below))
            if (entry.path().extension() == ".dxf")
                paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end()); // not as the file system has them
    return paths;
}

constexpr const char* kNoRealDrawings = "ZOLCAD_DRAWINGS names no folder of drawings";

} // namespace support
