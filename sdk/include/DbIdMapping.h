// Which copy belongs to which original.
#pragma once

#include <memory>

#include "DbDictionary.h"
#include "DbObjectId.h"
#include "RxObject.h"

namespace OdDb
{
/** What copies are made for. */
enum DeepCloneType : int
{
    kDcCopy = 0,
    kDcExplode = 1,
    kDcBlock = 2,
    kDcXrefBind = 3,
    kDcSymTableMerge = 4,
    kDcInsert = 6,
    kDcWblock = 7,
    kDcObjects = 8
};
} // namespace OdDb

/** An OdDbIdPair names an original and what stands for it. */
class OdDbIdPair
{
public:
    OdDbIdPair() = default;
    explicit OdDbIdPair(const OdDbObjectId& key) : m_key(key) {}
    OdDbIdPair(const OdDbObjectId& key, const OdDbObjectId& value, bool isCloned = false, bool isPrimary = false,
               bool isOwnerXlated = true)
        : m_key(key), m_value(value), m_cloned(isCloned), m_primary(isPrimary), m_ownerXlated(isOwnerXlated)
    {
    }

    /** The original. */
    OdDbObjectId key() const { return m_key; }
    /** What stands for it: its copy, or an object that was there before. */
    OdDbObjectId value() const { return m_value; }
    /** True when value is a copy that was made of key. */
    bool isCloned() const { return m_cloned; }
    /** True when the copy was asked for, false when another copy needed it. */
    bool isPrimary() const { return m_primary; }
    /** True when the owner of the copy is known for good. */
    bool isOwnerXlated() const { return m_ownerXlated; }

    void setKey(const OdDbObjectId& key) { m_key = key; }
    void setValue(const OdDbObjectId& value) { m_value = value; }
    void setCloned(bool isCloned) { m_cloned = isCloned; }
    void setPrimary(bool isPrimary) { m_primary = isPrimary; }
    void setOwnerXlated(bool isOwnerXlated) { m_ownerXlated = isOwnerXlated; }

private:
    OdDbObjectId m_key;
    OdDbObjectId m_value;
    bool m_cloned = false;
    bool m_primary = false;
    bool m_ownerXlated = true;
};

/** An OdDbIdMappingIter goes over the pairs of a mapping in the order in which they were added. */
class OdDbIdMappingIter : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbIdMappingIter);

    virtual void start() = 0;
    virtual void next() = 0;
    virtual bool done() = 0;
    /** The current pair. Throws OdError(eInvalidIndex) behind the last. */
    virtual OdDbIdPair getMap() = 0;
};
using OdDbIdMappingIterPtr = OdSmartPtr<OdDbIdMappingIter>;

/** An OdDbIdMapping holds the pairs of one run of copying and says what the run is for. Finding a pair takes the same
   time for any number of them. */
class OdDbIdMapping : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbIdMapping);
    ~OdDbIdMapping() override;

    /** Adds a pair, in place of the one with the same key. */
    void assign(const OdDbIdPair& idPair);
    /** Completes a pair whose key is set. Returns false, with the pair unchanged, when there is none for the key. */
    bool compute(OdDbIdPair& idPair) const;
    /** Removes the pair of the key. Returns false when there is none. */
    bool del(const OdDbObjectId& key);

    OdDbIdMappingIterPtr newIterator() const;

    /** The database that copies go to, and the one of the originals. */
    OdDbDatabase* destDb() const;
    void setDestDb(OdDbDatabase* database);
    OdDbDatabase* origDb() const;
    void setOrigDb(OdDbDatabase* database);

    OdDb::DeepCloneType deepCloneContext() const;
    OdDb::DuplicateRecordCloning duplicateRecordCloning() const;
    void setContext(OdDb::DeepCloneType context, OdDb::DuplicateRecordCloning duplicates);

protected:
    OdDbIdMapping();

private:
    struct Data;
    friend class OdDbIdMappingPairs;
    std::shared_ptr<Data> m_data;
};
using OdDbIdMappingPtr = OdSmartPtr<OdDbIdMapping>;
