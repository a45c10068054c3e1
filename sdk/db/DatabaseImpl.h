// The insides of a database, for the SDK's own sources.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "DbDatabase.h"
#include "DbDatabaseReactor.h"
#include "DbObjectReactor.h"
#include "Journal.h"
#include "KnownEdits.h"
#include "StubTable.h"
#include "SymbolNames.h"
#include "XData.h"

namespace oddb
{

/// What a drawing's CLASSES section says of one class.
struct FileClass
{
    std::string dxfName;
    std::string className;
    std::string application;
    int proxyFlags = 0;
    int instanceCount = 0; ///< as read; -1 in files that have none
    bool wasProxy = false;
    bool isEntity = false;
};

class DatabaseImpl
{
public:
    explicit DatabaseImpl(OdDbDatabase& database);
    ~DatabaseImpl();
    DatabaseImpl(const DatabaseImpl&) = delete;
    DatabaseImpl& operator=(const DatabaseImpl&) = delete;

    OdDbDatabase& database;
    StubTable stubs;
    Journal journal;
    OdUInt64 handseed = 1;
    GroupsPool xdataPool; ///< values of XData that were set lately
    KnownEdits knownEdits;

    std::array<OdDbStub*, kSymbolTableCount> tables{};           ///< by SymbolTable
    std::array<const SymbolIndex*, kSymbolTableCount> symbols{}; ///< by SymbolTable
    OdDbStub* namedObjects = nullptr;
    OdDbStub* modelSpace = nullptr;
    OdDbStub* paperSpace = nullptr;
    OdDbStub* activeLayout = nullptr; ///< the block of the current layout; when null, that of TILEMODE

    std::vector<std::unique_ptr<FileClass>> fileClasses;
    /// The file class with this DXF name, null when there is none.
    const FileClass* fileClass(std::string_view dxfName) const;

    OdString fileName;
    OdDb::DwgVersion fileVersion = OdDb::kDHL_CURRENT;
    OdDb::SaveType fileType = OdDb::kDxf;
    bool loading = false;
    /// True when objects may name records by texts that are spelt in another way than the records (SpeltNames.h).
    bool hasSpeltNames = false;
    OdArray<OdString> recovery;
    OdDbHostAppServices* services = nullptr;

    /// Parts of the database that other folders keep in it; destroyed with it, in reverse order of their making.
    std::unordered_map<std::string, std::shared_ptr<void>> attachments;
    /// The attachment with this key, made when there is none.
    template<class T>
    T& attachment(const char* key)
    {
        std::shared_ptr<void>& place = attachments[key];
        if (!place)
            place = std::make_shared<T>();
        return *static_cast<T*>(place.get());
    }

    std::vector<OdDbDatabaseReactor*> reactors;
    std::unordered_map<const OdDbStub*, std::vector<OdDbObjectReactor*>> objectReactors;
    /// True while the listener is attached: one that is told may have withdrawn another.
    bool hasReactor(const OdDbDatabaseReactor* reactor) const;
    bool hasReactor(const OdDbStub& stub, const OdDbObjectReactor* reactor) const;

    /// The stub for a new object: the given handle, which must be free, or the next one.
    OdDbStub* newStub(OdUInt64 handle);
    /// The next handle that is free.
    OdUInt64 nextHandle();
    /// Raises the next handle above one that a file uses.
    void noteHandle(OdUInt64 handle)
    {
        if (handle >= handseed && handle < kLastHandle)
            handseed = handle + 1;
    }

    /// Ties an object that was read from a file to its stub: no journal, no reactors, the object closed.
    void adopt(OdDbStub& stub, OdDbObject* object, OdDbStub* owner);

    void notifyErased(const OdDbObject& object, bool erased);
    void notifyModified(const OdDbObject& object);
    void notifyAppended(const OdDbObject& object);
    void notifyCopied(const OdDbObject& object, const OdDbObject& copy);
    /// Called when the database ends, while its objects are there.
    void notifyGoodbye();
    /// Opens each persistent reactor of the object for notification and calls tell with it.
    void tellPersistentReactors(const OdDbObject& object, const std::function<void(OdDbObject&)>& tell);

private:
    static constexpr OdUInt64 kLastHandle = ~OdUInt64(0);

    template<class Tell>
    void tellReactors(const Tell& tell);
    template<class Tell>
    void tellObjectReactors(const OdDbObject& object, const Tell& tell);
};

/// A line for the recovery report: what is the matter with the object.
OdString describe(const OdDbStub& stub, const OdChar* fault);

/// How files are read and written; the layer of the file format registers itself at the start of the program.
struct FileFormat
{
    std::function<void(OdDbDatabase&, const OdString&)> read;
    std::function<void(OdDbDatabase&, const OdString&, OdDb::SaveType, OdDb::DwgVersion)> write;
};
FileFormat& fileFormat();

/// The insides of the database an object is resident in, null when it is in none.
DatabaseImpl* databaseImpl(const OdDbObject& object);
DatabaseImpl* databaseImpl(const OdDbStub* stub);

} // namespace oddb
