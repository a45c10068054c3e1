// Listeners of objects: the persistent ones, which are saved, and those of the running program.
#include <algorithm>

#include "DatabaseImpl.h"
#include "DbObject.h"
#include "ObjectCore.h"
#include "OdError.h"

using oddb::ObjectCore;

// ---- Persistent reactors -------------------------------------------------------------------------------------------

// Who listens to an object is no news for its listeners, all of which would have to be opened to hear of each new one.
void OdDbObject::addPersistentReactor(const OdDbObjectId& objectId)
{
    assertWriteEnabled(false, false);
    OdDbStub* reactor = objectId;
    if (!reactor)
        throw OdError(eNullObjectId);
    if (isUndoing() || hasPersistentReactor(objectId))
        return;
    if (m_stub)
        m_stub->database->impl().journal.recordReactorAdded(*m_stub, reactor);
    ObjectCore::putReactor(*this, reactor);
}

void OdDbObject::removePersistentReactor(const OdDbObjectId& objectId)
{
    assertWriteEnabled(false, false);
    OdDbStub* reactor = objectId;
    if (isUndoing() || !hasPersistentReactor(objectId))
        return;
    if (m_stub)
        m_stub->database->impl().journal.recordReactorRemoved(*m_stub, reactor, m_extras->reactors.before(reactor));
    ObjectCore::takeReactor(*this, reactor);
}

bool OdDbObject::hasPersistentReactor(const OdDbObjectId& objectId) const
{
    return m_extras && m_extras->reactors.contains(objectId);
}

OdDbObjectIdArray OdDbObject::getPersistentReactors() const
{
    assertReadEnabled();
    OdDbObjectIdArray ids;
    if (m_extras)
        m_extras->reactors.visit([&](OdDbStub* reactor) { ids.append(OdDbObjectId(reactor)); });
    return ids;
}

// ---- Transient reactors --------------------------------------------------------------------------------------------

void OdDbObject::addReactor(OdDbObjectReactor* reactor) const
{
    if (!reactor)
        throw OdError(eNullObjectPointer);
    if (!m_stub)
        throw OdError(eNotInDatabase);
    auto& reactors = m_stub->database->impl().objectReactors[m_stub];
    if (std::find(reactors.begin(), reactors.end(), reactor) == reactors.end())
        reactors.push_back(reactor);
}

void OdDbObject::removeReactor(OdDbObjectReactor* reactor) const
{
    if (!m_stub)
        return;
    auto& all = m_stub->database->impl().objectReactors;
    auto found = all.find(m_stub);
    if (found == all.end())
        return;
    std::erase(found->second, reactor);
    if (found->second.empty())
        all.erase(found);
}

void OdDbObjectReactor::modified(const OdDbObject*) {}
void OdDbObjectReactor::erased(const OdDbObject*, bool) {}
void OdDbObjectReactor::copied(const OdDbObject*, const OdDbObject*) {}
void OdDbObjectReactor::unappended(const OdDbObject*) {}
void OdDbObjectReactor::reappended(const OdDbObject*) {}
void OdDbObjectReactor::xDataModified(const OdDbObject*) {}
void OdDbObjectReactor::goodbye(const OdDbObject*) {}

void OdDbDatabaseReactor::objectAppended(const OdDbDatabase*, const OdDbObject*) {}
void OdDbDatabaseReactor::objectUnAppended(const OdDbDatabase*, const OdDbObject*) {}
void OdDbDatabaseReactor::objectReAppended(const OdDbDatabase*, const OdDbObject*) {}
void OdDbDatabaseReactor::objectModified(const OdDbDatabase*, const OdDbObject*) {}
void OdDbDatabaseReactor::objectErased(const OdDbDatabase*, const OdDbObject*, bool) {}
void OdDbDatabaseReactor::goodbye(const OdDbDatabase*) {}

// ---- What few objects have -----------------------------------------------------------------------------------------

namespace oddb
{

ObjectExtras& ObjectCore::makeExtras(OdDbObject& object)
{
    if (!object.m_extras)
        object.m_extras = new ObjectExtras;
    return *object.m_extras;
}

void ObjectCore::dropExtras(OdDbObject& object)
{
    delete object.m_extras;
    object.m_extras = nullptr;
}

void ObjectCore::trimExtras(OdDbObject& object)
{
    if (object.m_extras && object.m_extras->empty())
        dropExtras(object);
}

bool ObjectCore::putReactor(OdDbObject& object, OdDbStub* reactor)
{
    return makeExtras(object).reactors.add(reactor);
}

bool ObjectCore::takeReactor(OdDbObject& object, OdDbStub* reactor)
{
    if (!object.m_extras || !object.m_extras->reactors.remove(reactor))
        return false;
    trimExtras(object);
    return true;
}

void ObjectCore::moveLastReactorBehind(OdDbObject& object, const OdDbStub* behind)
{
    if (!object.m_extras || object.m_extras->reactors.empty())
        return;
    ReactorSet& reactors = object.m_extras->reactors;
    OdDbStub* last = reactors.last();
    if (reactors.before(last) == behind)
        return;
    reactors.remove(last);
    reactors.addBehind(last, behind);
}

std::optional<Groups> ObjectCore::xdata(const OdDbObject& object, const OdDbStub* application)
{
    const XDataEntry* entry = object.m_extras ? object.m_extras->xdata.find(application) : nullptr;
    return entry ? std::optional<Groups>(entry->values) : std::nullopt;
}

void ObjectCore::putXData(OdDbObject& object, OdDbStub* application, Groups values)
{
    makeExtras(object).xdata.put(application, std::move(values));
}

void ObjectCore::takeXData(OdDbObject& object, const OdDbStub* application)
{
    if (!object.m_extras)
        return;
    object.m_extras->xdata.remove(application);
    trimExtras(object);
}

void ObjectCore::moveLastXDataTo(OdDbObject& object, std::size_t place)
{
    if (!object.m_extras || object.m_extras->xdata.empty())
        return;
    XDataList& list = object.m_extras->xdata;
    const XDataEntry last = list[list.size() - 1];
    list.remove(last.application);
    list.insert(place, last.application, last.values);
}

void ObjectCore::putExtensionDictionary(OdDbObject& object, OdDbStub* dictionary)
{
    makeExtras(object).extensionDictionary = dictionary;
    trimExtras(object);
}

} // namespace oddb
