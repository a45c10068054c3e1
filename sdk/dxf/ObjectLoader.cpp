// From records to objects.
#include "ObjectLoader.h"

#include "TagScanner.h"

#include "DbDictionary.h"
#include "DbEntity.h"
#include "OdError.h"
#include "db/GroupsDxfFiler.h"
#include "db/ObjectCore.h"
#include "db/Proxies.h"
#include "entities/EntityClasses.h"

namespace dxf
{
namespace
{

using oddb::DxfClass;
using oddb::ObjectCore;

constexpr std::string_view kProxyNames = "ACAD_PROXY_";

std::string messageOf(const OdError& error)
{
    return odStringToUtf8(error.description());
}

OdRxClass* runtimeClassOf(const DxfClass& cls)
{
    return odrxGetClass(odUtf8ToString(cls.className));
}

} // namespace

ObjectLoader::ObjectLoader(oddb::DatabaseImpl& database, RecordReader& records, FaultLog& faults, std::string_view file)
    : m_database(database), m_records(records), m_faults(faults), m_file(file)
{
}

// ---- Handles
// ---------------------------------------------------------------------------------------------------------

OdDbStub* ObjectLoader::claimHandle(std::uint64_t handle, Place place)
{
    OdDbStub* const wanted = handle != 0 ? m_database.stubs.findOrCreate(handle) : nullptr;
    if (wanted != nullptr && wanted->object == nullptr)
    {
        m_database.noteHandle(handle);
        return wanted;
    }
    findHighestHandle();
    OdDbStub* const made = m_database.newStub(0);
    if (wanted != nullptr)
        m_faults.add(place, "the handle " + OdDbHandle(handle).text() + " is taken; the object gets the handle " +
                                OdDbHandle(made->handle).text());
    return made;
}

// A new handle must not be one that the file uses further on.
void ObjectLoader::findHighestHandle()
{
    if (m_knowsHighestHandle)
        return;
    m_knowsHighestHandle = true;
    FaultLog ignored;
    TagScanner scanner(m_file, ignored);
    for (Tag tag; scanner.next(tag);)
    {
        OdDbHandle handle;
        if (tag.kind == ValueKind::Handle && OdDbHandle::parse(tag.text, handle) &&
            OdUInt64(handle) <= RecordReader::kLargestHandle)
            m_database.noteHandle(handle);
    }
}

// ---- Classes
// ---------------------------------------------------------------------------------------------------------

const ObjectLoader::Maker& ObjectLoader::makerOf(std::string_view name)
{
    if (m_lastMaker != nullptr && m_lastName == name)
        return *m_lastMaker;
    m_lastName = name;
    auto [place, isNew] = m_makers.try_emplace(m_lastName);
    if (isNew)
        place->second = findMaker(name);
    m_lastMaker = &place->second;
    return place->second;
}

ObjectLoader::Maker ObjectLoader::makerWith(const DxfClass* cls, OdRxClass* runtimeClass)
{
    Maker maker;
    maker.cls = cls;
    maker.runtimeClass = runtimeClass;
    maker.makesObject = runtimeClass != nullptr && runtimeClass->constructor() != nullptr &&
                        runtimeClass->isDerivedFrom(OdDbObject::desc());
    maker.makesEntity = maker.makesObject && runtimeClass->isDerivedFrom(OdDbEntity::desc());
    return maker;
}

ObjectLoader::Maker ObjectLoader::findMaker(std::string_view name) const
{
    const DxfClass* const cls = oddb::findDxfClass(name);
    // the SDK's own proxy classes have names in files too, yet each proxy keeps the name that it came with
    const bool isProxy = name.substr(0, kProxyNames.size()) == kProxyNames;
    OdRxClass* const runtimeClass = isProxy          ? nullptr
                                    : cls != nullptr ? runtimeClassOf(*cls)
                                                     : odrxGetClassByDxfName(odUtf8ToString(name));
    Maker maker = makerWith(cls, runtimeClass);
    for (const std::string_view shared : {"POLYLINE", "VERTEX", "DIMENSION", "INSERT"})
        maker.sharesName = maker.sharesName || name == shared;
    return maker;
}

const ObjectLoader::Maker& ObjectLoader::chooseMaker(const Record& record, const Maker& maker)
{
    if (!maker.sharesName)
        return maker;
    const DxfClass* const cls = entityclasses::classFor(record.name, record.groups.build());
    if (cls == nullptr)
        return maker;
    const auto [place, isNew] = m_makersByClass.try_emplace(cls);
    if (isNew)
        place->second = makerWith(cls, runtimeClassOf(*cls));
    return place->second;
}

// A file of more names than the table of names can hold gets one name for the rest.
OdDbObjectPtr ObjectLoader::makeProxy(const std::string& name, bool isEntity) const
{
    OdDbObjectPtr proxy = oddb::makeProxy(m_database, name, isEntity);
    if (oddb::proxyDxfName(*proxy).empty())
        oddb::nameProxy(*proxy, isEntity ? "ACAD_PROXY_ENTITY" : "ACAD_PROXY_OBJECT");
    return proxy;
}

OdDbObjectPtr ObjectLoader::make(const Record& record, const Maker& maker, Family family) const
{
    const bool isEntity = family == Family::Entity;
    if (!maker.makesObject || maker.makesEntity != isEntity)
        return makeProxy(record.name, isEntity);
    const OdRxObjectPtr made = maker.runtimeClass->create();
    if (made.isNull()) // a class that only others derive from, as that of all tables
        return makeProxy(record.name, isEntity);
    return OdDbObjectPtr(static_cast<OdDbObject*>(made.get()));
}

// ---- Loading
// ---------------------------------------------------------------------------------------------------------

OdDbStub* ObjectLoader::load(Record& record, OdDbStub* owner, Family family)
{
    const Maker& maker = chooseMaker(record, makerOf(record.name));
    if (maker.cls != nullptr && !record.hasMarkers)
        m_records.completeMarkers(record.groups, *maker.cls);
    const OdDbObjectPtr object = make(record, maker, family);
    OdDbStub* const stub = claimHandle(record.handle, record.place);
    m_database.adopt(*stub, object, record.hasOwner ? record.owner : owner);
    putCommon(*object, record);
    putData(*stub, record);
    return stub;
}

OdDbStub* ObjectLoader::create(std::string_view className, std::uint64_t handle, OdDbStub* owner, Place place)
{
    const OdDbObjectPtr object = OdDbObject::cast(odrxSafeCreateObject(odUtf8ToString(className)));
    OdDbStub* const stub = claimHandle(handle, place);
    m_database.adopt(*stub, object, owner);
    return stub;
}

void ObjectLoader::fill(OdDbStub& stub, Record& record, OdDbStub* owner)
{
    const Maker& maker = makerOf(record.name);
    if (maker.cls != nullptr && !record.hasMarkers)
        m_records.completeMarkers(record.groups, *maker.cls);
    ObjectCore::putOwner(*stub.object, record.hasOwner ? record.owner : owner);
    putCommon(*stub.object, record);
    putData(stub, record);
}

void ObjectLoader::putCommon(OdDbObject& object, const Record& record)
{
    for (OdDbStub* const reactor : record.reactors)
        ObjectCore::putReactor(object, reactor);
    if (record.extensionDictionary != nullptr)
        ObjectCore::putExtensionDictionary(object, record.extensionDictionary);
    for (const RecordXData& data : record.xdata)
        ObjectCore::putXData(object, data.application, data.values);
}

void ObjectLoader::putData(OdDbStub& stub, Record& record)
{
    OdDbObject& object = *stub.object;
    if (object.isKindOf(OdDbDictionary::desc()))
        return fill({&stub, record.groups.finish()});
    if (object.keepsGroups())
        ObjectCore::putGroups(object, record.groups.finish());
    else
        m_waiting.push_back({&stub, record.groups.finish()});
}

// ---- Objects that file themselves
// ------------------------------------------------------------------------------------

void ObjectLoader::fillWaiting()
{
    for (const Waiting& waiting : m_waiting)
        fill(waiting);
    m_waiting.clear();
}

void ObjectLoader::fill(const Waiting& waiting)
{
    std::string fault;
    try
    {
        const OdDbObjectPtr object = OdDbObjectId(waiting.stub).safeOpenObject(OdDb::kForWrite);
        const auto filer = oddb::GroupsDxfFiler::createReader(waiting.groups, &m_database.database);
        const OdResult result = object->dxfInFields(filer);
        if (result == eOk)
            return;
        fault = messageOf(OdError(result));
    }
    catch (const OdError& error)
    {
        fault = messageOf(error);
    }
    catch (const std::exception& error)
    {
        fault = error.what();
    }
    replaceByProxy(waiting, fault);
}

void ObjectLoader::replaceByProxy(const Waiting& waiting, const std::string& fault)
{
    oddb::replaceByProxy(m_database, *waiting.stub, waiting.groups);
    m_faults.addForObject(waiting.stub->handle, "cannot be read and is kept as it is: " + fault);
}

} // namespace dxf
