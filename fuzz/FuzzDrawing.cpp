// Reads any bytes as a drawing file, with the plug-in there so that labels, borders and marked entities are read and
// drawn by their own classes; asks what is in model space for its extents, saves it as text and in binary form and
// reads both again. Refusing the bytes with an error is fine; crashing is not, nor saving what cannot be read.
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbEntity.h"
#include "DbObjectIterator.h"
#include "DynamicLinker.h"
#include "Ge/GeExtents3d.h"
#include "MemoryFile.h"
#include "OdError.h"
#include "RxInit.h"
#include "StaticRxObject.h"
#include "module/ground/ModuleName.h"
#include "module/registration/ModuleCad.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
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
    const std::string name = "fuzz-drawing-" + std::to_string(getpid()) + ".dxf";
    const std::string path = std::filesystem::temp_directory_path() / name;
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

bool loadPlugIn()
{
    odInitialize();
    odrxRegisterStaticModule(kModuleName, &CreateModuleCad);
    return odrxDynamicLinker()->loadApp(kModuleName, false).get() != nullptr;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool isReady = loadPlugIn();
    if (!isReady)
        std::abort();
    const MemoryFile file(data, size);
    tryDrawing(file.path());
    return 0;
}
