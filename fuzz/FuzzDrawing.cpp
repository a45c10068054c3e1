// Reads any bytes as a drawing file, asks what is in model space for its extents, saves it as text and in binary form
// and reads both again. Refusing the bytes with an error is fine; crashing is not, nor saving what cannot be read.
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbEntity.h"
#include "DbObjectIterator.h"
#include "Ge/GeExtents3d.h"
#include "MemoryFile.h"
#include "OdError.h"
#include "RxInit.h"
#include "StaticRxObject.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace
{
void measureEntities(OdDbDatabase* database)
{
    OdDbBlockTableRecordPtr space = database->getModelSpaceId().openObject();
    if (space.isNull())
        return;
    for (OdDbObjectIteratorPtr it = space->newIterator(); !it->done(); it->step())
    {
        OdGeExtents3d extents;
        if (OdDbEntityPtr entity = it->entity(); !entity.isNull())
            entity->getGeomExtents(extents);
    }
}

void readAgain(const std::string& path)
{
    OdDbDatabasePtr database = OdDbDatabase::createObject();
    try
    {
        database->readFile(odUtf8ToString(path));
    }
    catch (const OdError& error)
    {
        std::fprintf(stderr, "a saved drawing cannot be read: %s\n", odStringToUtf8(error.description()).c_str());
        std::abort();
    }
}

void saveAndReadAgain(OdDbDatabase* database, OdDb::SaveType type)
{
    const std::string path = "/tmp/fuzz-drawing-" + std::to_string(getpid()) + ".dxf";
    try
    {
        database->writeFile(odUtf8ToString(path), type);
    }
    catch (const OdError&)
    {
        return;
    }
    readAgain(path);
    unlink(path.c_str());
}

void tryDrawing(const std::string& path)
{
    OdDbDatabasePtr database = OdDbDatabase::createObject();
    try
    {
        database->readFile(odUtf8ToString(path));
        measureEntities(database);
    }
    catch (const OdError&)
    {
        return;
    }
    saveAndReadAgain(database, OdDb::kDxf);
    saveAndReadAgain(database, OdDb::kDxb);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool initialised = (odInitialize(), true);
    (void)initialised;
    const MemoryFile file(data, size);
    tryDrawing(file.path());
    return 0;
}
