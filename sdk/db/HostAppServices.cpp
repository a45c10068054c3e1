// What a program does for the database, as far as a program without a screen can.
#include "DbHostAppServices.h"

#include <filesystem>

#include "OdError.h"
#include "RxObjectImpl.h"

OdDbDatabasePtr OdDbHostAppServices::createDatabase(bool createDefault, bool metric)
{
    OdDbDatabasePtr database = OdDbDatabase::createObject();
    database->setAppServices(this);
    if (createDefault)
        database->initialize(metric);
    return database;
}

OdDbDatabasePtr OdDbHostAppServices::readFile(const OdString& fileName)
{
    const OdString path = findFile(fileName);
    if (path.isEmpty())
        throw OdError_FileNotFound(fileName);
    OdDbDatabasePtr database = createDatabase(false);
    database->readFile(path);
    return database;
}

OdString OdDbHostAppServices::findFile(const OdString& fileName, OdDbDatabase* database, FindFileHint)
{
    namespace fs = std::filesystem;
    std::error_code ignored;
    const fs::path name(odStringToUtf8(fileName));
    if (fs::is_regular_file(name, ignored))
        return fileName;
    if (!database || name.is_absolute())
        return OdString();
    const fs::path beside = fs::path(odStringToUtf8(database->getFilename())).parent_path() / name;
    return fs::is_regular_file(beside, ignored) ? odUtf8ToString(beside.native()) : OdString();
}

bool OdDbHostAppServices::getFILEDIA() const
{
    return true;
}

OdString OdDbHostAppServices::fileDialog(int, const OdString&, const OdString&, const OdString&, const OdString&)
{
    return L"*unsupported*";
}

OdString OdDbHostAppServices::program()
{
    return L"zolcad";
}

OdString OdDbHostAppServices::product()
{
    return program();
}

OdString OdDbHostAppServices::companyName()
{
    return OdString();
}

OdString OdDbHostAppServices::versionString()
{
    OdString version;
    return version.format(L"%d.%d", TD_MAJOR_VERSION, TD_MINOR_VERSION);
}

OdString OdDbHostAppServices::getAlternateFontName() const
{
    return L"txt";
}
