// The pairs of one run of copying, in order and found by their originals.
#include "DbIdMapping.h"

#include <unordered_map>
#include <vector>

#include "OdError.h"
#include "RxObjectImpl.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbIdMappingIter, OdRxObject);
ODRX_CONS_DEFINE_MEMBERS(OdDbIdMapping, OdRxObject, RXIMPL_CONSTR);

struct OdDbIdMapping::Data
{
    std::vector<OdDbIdPair> pairs; ///< one with a null key was removed
    std::unordered_map<OdDbObjectId, std::size_t> places;
    OdDbDatabase* origin = nullptr;
    OdDbDatabase* destination = nullptr;
    OdDb::DeepCloneType context = OdDb::kDcCopy;
    OdDb::DuplicateRecordCloning duplicates = OdDb::kDrcIgnore;
};

class OdDbIdMappingPairs : public OdDbIdMappingIter
{
public:
    void show(const std::shared_ptr<OdDbIdMapping::Data>& data)
    {
        m_data = data;
        start();
    }

    void start() override
    {
        m_index = 0;
        passRemoved();
    }
    void next() override
    {
        ++m_index;
        passRemoved();
    }
    bool done() override { return m_index >= m_data->pairs.size(); }
    OdDbIdPair getMap() override
    {
        if (done())
            throw OdError(eInvalidIndex);
        return m_data->pairs[m_index];
    }

private:
    void passRemoved()
    {
        while (!done() && m_data->pairs[m_index].key().isNull())
            ++m_index;
    }

    std::shared_ptr<OdDbIdMapping::Data> m_data;
    std::size_t m_index = 0;
};

OdDbIdMapping::OdDbIdMapping() : m_data(std::make_shared<Data>()) {}

OdDbIdMapping::~OdDbIdMapping() = default;

void OdDbIdMapping::assign(const OdDbIdPair& idPair)
{
    const auto [place, isNew] = m_data->places.emplace(idPair.key(), m_data->pairs.size());
    if (isNew)
        m_data->pairs.push_back(idPair);
    else
        m_data->pairs[place->second] = idPair;
}

bool OdDbIdMapping::compute(OdDbIdPair& idPair) const
{
    const auto place = m_data->places.find(idPair.key());
    if (place == m_data->places.end())
        return false;
    idPair = m_data->pairs[place->second];
    return true;
}

bool OdDbIdMapping::del(const OdDbObjectId& key)
{
    const auto place = m_data->places.find(key);
    if (place == m_data->places.end())
        return false;
    m_data->pairs[place->second] = OdDbIdPair();
    m_data->places.erase(place);
    return true;
}

OdDbIdMappingIterPtr OdDbIdMapping::newIterator() const
{
    OdSmartPtr<OdDbIdMappingPairs> iterator = OdRxObjectImpl<OdDbIdMappingPairs>::createObject();
    iterator->show(m_data);
    return OdDbIdMappingIterPtr(iterator.get());
}

OdDbDatabase* OdDbIdMapping::destDb() const
{
    return m_data->destination;
}

void OdDbIdMapping::setDestDb(OdDbDatabase* database)
{
    m_data->destination = database;
}

OdDbDatabase* OdDbIdMapping::origDb() const
{
    return m_data->origin;
}

void OdDbIdMapping::setOrigDb(OdDbDatabase* database)
{
    m_data->origin = database;
}

OdDb::DeepCloneType OdDbIdMapping::deepCloneContext() const
{
    return m_data->context;
}

OdDb::DuplicateRecordCloning OdDbIdMapping::duplicateRecordCloning() const
{
    return m_data->duplicates;
}

void OdDbIdMapping::setContext(OdDb::DeepCloneType context, OdDb::DuplicateRecordCloning duplicates)
{
    m_data->context = context;
    m_data->duplicates = duplicates;
}
