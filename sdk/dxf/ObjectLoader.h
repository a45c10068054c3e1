// Makes the objects of a database out of the records of a drawing file.
#pragma once

#include "FaultLog.h"
#include "Record.h"
#include "RecordReader.h"
#include "db/DatabaseImpl.h"
#include "db/DxfClassTable.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class OdRxClass;

namespace dxf
{

/// Loads objects into one database: each becomes an object of its class, or a proxy that keeps its groups when nobody
/// has registered the class. Objects of classes that file themselves are filled by fillWaiting(), when everything they
/// may look for is there.
class ObjectLoader
{
public:
    ObjectLoader(oddb::DatabaseImpl& database, RecordReader& records, FaultLog& faults, std::string_view file);

    /// Makes the object of a record of the BLOCKS or ENTITIES section and ties it to its handle, or to a new one where
    /// the record has none or the handle is taken. The owner is the record's, or the given one when it has none.
    OdDbStub* loadEntity(Record& record, OdDbStub* owner) { return load(record, owner, Family::Entity); }

    /// As loadEntity, for a record of the TABLES or OBJECTS section.
    OdDbStub* loadObject(Record& record, OdDbStub* owner) { return load(record, owner, Family::Object); }

    /// Makes an object that is to be filled later, of the class with this name.
    OdDbStub* create(std::string_view className, std::uint64_t handle, OdDbStub* owner, Place place);

    /// Gives an object that exists what the record says of it.
    void fill(OdDbStub& stub, Record& record, OdDbStub* owner);

    /// Lets the objects that file themselves read their groups.
    void fillWaiting();

    /// Returns a stub for a handle of a file: the one asked for, or a new one when there is none or it is taken.
    OdDbStub* claimHandle(std::uint64_t handle, Place place);

private:
    enum class Family
    {
        Entity,
        Object,
    };

    /// What makes the objects of one name in files.
    struct Maker
    {
        const oddb::DxfClass* cls = nullptr;
        OdRxClass* runtimeClass = nullptr; // null when the object becomes a proxy
        bool sharesName = false;           // the groups decide between several classes
        bool makesObject = false;          // the class makes objects of a database
        bool makesEntity = false;          // and they are entities
    };

    struct Waiting
    {
        OdDbStub* stub;
        oddb::Groups groups;
    };

    OdDbStub* load(Record& record, OdDbStub* owner, Family family);
    const Maker& makerOf(std::string_view name);
    Maker findMaker(std::string_view name) const;
    const Maker& chooseMaker(const Record& record, const Maker& maker);
    static Maker makerWith(const oddb::DxfClass* cls, OdRxClass* runtimeClass);
    OdDbObjectPtr makeProxy(const std::string& name, bool isEntity) const;
    OdDbObjectPtr make(const Record& record, const Maker& maker, Family family) const;
    void putCommon(OdDbObject& object, const Record& record);
    void putData(OdDbStub& stub, Record& record);
    void fill(const Waiting& waiting);
    void replaceByProxy(const Waiting& waiting, const std::string& fault);
    void findHighestHandle();

    oddb::DatabaseImpl& m_database;
    RecordReader& m_records;
    FaultLog& m_faults;
    std::string_view m_file;
    std::unordered_map<std::string, Maker> m_makers;
    std::unordered_map<const oddb::DxfClass*, Maker> m_makersByClass; // for classes that share a name
    const Maker* m_lastMaker = nullptr;
    std::string m_lastName;
    std::vector<Waiting> m_waiting;
    bool m_knowsHighestHandle = false;
};

} // namespace dxf
