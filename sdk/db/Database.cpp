// The public operations of a database, in front of its insides.
#include "DbDatabase.h"

#include <algorithm>

#include "DatabaseImpl.h"
#include "ObjectCore.h"
#include "OdError.h"

using oddb::ObjectCore;
using oddb::SymbolTable;

OdDbDatabase::OdDbDatabase() : m_impl(new oddb::DatabaseImpl(*this)) {}

OdDbDatabase::~OdDbDatabase()
{
    m_impl->notifyGoodbye();
    delete m_impl;
}

OdDbHostAppServices* OdDbDatabase::appServices() const
{
    return m_impl->services;
}

void OdDbDatabase::setAppServices(OdDbHostAppServices* services)
{
    m_impl->services = services;
}

// ---- Objects -------------------------------------------------------------------------------------------------------

OdDbObjectId OdDbDatabase::addOdDbObject(OdDbObject* object, OdDbObjectId ownerId, OdDbHandle handle)
{
    if (!object)
        throw OdError(eNullObjectPointer);
    if (object->isDBRO())
        throw OdError(eAlreadyInDb);
    if (isUndoing())
        return OdDbObjectId();
    OdDbStub* stub = m_impl->newStub(handle);
    m_impl->journal.recordCreated(*stub);
    m_impl->knownEdits.shareRow(*object);
    ObjectCore::attach(*object, *stub, ownerId);
    ObjectCore::beginNew(*object);
    ObjectCore::callSubMadeResident(*object);
    m_impl->notifyAppended(*object);
    return stub;
}

OdDbObjectId OdDbDatabase::getOdDbObjectId(const OdDbHandle& handle, bool createIfNotFound)
{
    if (handle.isNull())
        return OdDbObjectId();
    return createIfNotFound ? m_impl->stubs.findOrCreate(handle) : m_impl->stubs.find(handle);
}

OdDbHandle OdDbDatabase::handseed() const
{
    return m_impl->nextHandle();
}

void OdDbDatabase::setHandseed(OdDbHandle handle)
{
    m_impl->handseed = std::max<OdUInt64>(m_impl->handseed, handle);
}

OdUInt64 OdDbDatabase::approxNumObjects() const
{
    return m_impl->stubs.size();
}

// ---- Tables and dictionaries ---------------------------------------------------------------------------------------

static OdDbObjectId tableId(const oddb::DatabaseImpl& impl, SymbolTable table)
{
    return impl.tables[static_cast<std::size_t>(table)];
}

OdDbObjectId OdDbDatabase::getNamedObjectsDictionaryId() const
{
    return m_impl->namedObjects;
}

OdDbObjectId OdDbDatabase::getBlockTableId() const
{
    return tableId(*m_impl, SymbolTable::Block);
}

OdDbObjectId OdDbDatabase::getLayerTableId() const
{
    return tableId(*m_impl, SymbolTable::Layer);
}

OdDbObjectId OdDbDatabase::getTextStyleTableId() const
{
    return tableId(*m_impl, SymbolTable::TextStyle);
}

OdDbObjectId OdDbDatabase::getLinetypeTableId() const
{
    return tableId(*m_impl, SymbolTable::Linetype);
}

OdDbObjectId OdDbDatabase::getViewTableId() const
{
    return tableId(*m_impl, SymbolTable::View);
}

OdDbObjectId OdDbDatabase::getUCSTableId() const
{
    return tableId(*m_impl, SymbolTable::Ucs);
}

OdDbObjectId OdDbDatabase::getViewportTableId() const
{
    return tableId(*m_impl, SymbolTable::Viewport);
}

OdDbObjectId OdDbDatabase::getRegAppTableId() const
{
    return tableId(*m_impl, SymbolTable::RegApp);
}

OdDbObjectId OdDbDatabase::getDimStyleTableId() const
{
    return tableId(*m_impl, SymbolTable::DimStyle);
}

OdDbObjectId OdDbDatabase::getModelSpaceId() const
{
    return m_impl->modelSpace;
}

OdDbObjectId OdDbDatabase::getPaperSpaceId() const
{
    return m_impl->paperSpace;
}

OdDbObjectId OdDbDatabase::getActiveLayoutBTRId() const
{
    if (m_impl->activeLayout)
        return m_impl->activeLayout;
    return getTILEMODE() || !m_impl->paperSpace ? m_impl->modelSpace : m_impl->paperSpace;
}

// ---- Files ---------------------------------------------------------------------------------------------------------

void OdDbDatabase::readFile(const OdString& fileName)
{
    if (!oddb::fileFormat().read)
        throw OdError(eNotInitializedYet);
    oddb::fileFormat().read(*this, fileName);
}

void OdDbDatabase::writeFile(const OdString& fileName, OdDb::SaveType fileType, OdDb::DwgVersion version)
{
    if (!oddb::fileFormat().write)
        throw OdError(eNotInitializedYet);
    oddb::fileFormat().write(*this, fileName, fileType, version);
}

OdString OdDbDatabase::getFilename() const
{
    return m_impl->fileName;
}

void OdDbDatabase::setFilename(const OdString& fileName)
{
    m_impl->fileName = fileName;
}

OdDb::DwgVersion OdDbDatabase::originalFileVersion() const
{
    return m_impl->fileVersion;
}

OdDb::SaveType OdDbDatabase::originalFileType() const
{
    return m_impl->fileType;
}

bool OdDbDatabase::isLoading() const
{
    return m_impl->loading;
}

const OdArray<OdString>& OdDbDatabase::recoveryReport() const
{
    return m_impl->recovery;
}

void OdDbDatabase::addRecoveryLine(const OdString& line)
{
    m_impl->recovery.append(line);
}

// ---- Reactors ------------------------------------------------------------------------------------------------------

void OdDbDatabase::addReactor(OdDbDatabaseReactor* reactor) const
{
    if (!reactor)
        throw OdError(eNullObjectPointer);
    auto& reactors = m_impl->reactors;
    if (std::find(reactors.begin(), reactors.end(), reactor) == reactors.end())
        reactors.push_back(reactor);
}

void OdDbDatabase::removeReactor(OdDbDatabaseReactor* reactor) const
{
    std::erase(m_impl->reactors, reactor);
}
