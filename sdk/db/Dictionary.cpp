// Dictionaries as programs use them.
#include "DbDictionary.h"

#include "DatabaseImpl.h"
#include "DictionaryCore.h"
#include "GroupsFiling.h"
#include "ObjectCore.h"
#include "OdError.h"
#include "RecordFields.h"
#include "RxObjectImpl.h"

using oddb::DictionaryCore;
using oddb::DictionaryEntries;
using oddb::DictionaryEntry;
using oddb::ObjectCore;

namespace
{

constexpr int kHardCode = 280;
constexpr int kMergeStyleCode = 281;

const oddb::RecordFields kFields(oddb::recordtables::kDictionary);

} // namespace

OdDbDictionary::OdDbDictionary() : m_entries(std::make_unique<DictionaryEntries>())
{
    ObjectCore::putGroups(*this, oddb::initialGroups(oddb::recordtables::kDictionary, {kMergeStyleCode}));
}

OdDbDictionary::~OdDbDictionary() = default;

// ---- Finding -------------------------------------------------------------------------------------------------------

OdDbObjectId OdDbDictionary::getAt(const OdString& name, OdResult* status) const
{
    assertReadEnabled();
    const std::uint32_t number = m_entries->find(odStringToUtf8(name));
    OdDbStub* object = number == DictionaryEntries::kNone ? nullptr : (*m_entries)[number].object;
    const bool erased = object && object->isErased();
    if (status)
        *status = !object ? eKeyNotFound : erased ? eWasErased : eOk;
    return erased && !status ? OdDbObjectId() : OdDbObjectId(object);
}

OdDbObjectPtr OdDbDictionary::getAt(const OdString& name, OdDb::OpenMode openMode) const
{
    const OdDbObjectId id = getAt(name);
    return id.isNull() ? OdDbObjectPtr() : id.safeOpenObject(openMode);
}

OdString OdDbDictionary::nameAt(const OdDbObjectId& objectId) const
{
    assertReadEnabled();
    const std::uint32_t number = m_entries->find(oddb::stubOf(objectId));
    return number == DictionaryEntries::kNone ? OdString() : odUtf8ToString((*m_entries)[number].name);
}

bool OdDbDictionary::has(const OdString& name) const
{
    return !getAt(name).isNull();
}

bool OdDbDictionary::has(const OdDbObjectId& objectId) const
{
    assertReadEnabled();
    return !objectId.isErased() && m_entries->find(oddb::stubOf(objectId)) != DictionaryEntries::kNone;
}

OdUInt32 OdDbDictionary::numEntries() const
{
    assertReadEnabled();
    OdUInt32 count = 0;
    for (std::uint32_t at = m_entries->first(); at != DictionaryEntries::kNone; at = m_entries->next(at))
        count += !(*m_entries)[at].object->isErased();
    return count;
}

// ---- Changing ------------------------------------------------------------------------------------------------------

namespace
{

void requireEntry(const OdDbDictionary& dictionary, const OdString& name, const OdDbObject* object)
{
    if (name.isEmpty())
        throw OdError(eInvalidKey);
    if (!object)
        throw OdError(eNullObjectPointer);
    if (!dictionary.isDBRO())
        throw OdError(eNotInDatabase);
    if (object->isDBRO() && object->database() != dictionary.database())
        throw OdError(eWrongDatabase);
}

// The object whose entry has to give way is erased, as nothing else leads to it.
void eraseDisplaced(const OdDbDictionary& dictionary, const OdDbStub* displaced)
{
    OdDbStub* stub = const_cast<OdDbStub*>(displaced);
    if (stub->isErased() || ObjectCore::owner(*stub->object) != ObjectCore::stub(dictionary))
        return;
    if (const OdResult result = OdDbObjectId(stub).safeOpenObject(OdDb::kForWrite)->erase(); result != eOk)
        throw OdError(result);
}

// While a file is read all entries are there already; objects that file themselves can only give theirs another name.
void loadEntry(OdDbDictionary& dictionary, DictionaryEntry entry)
{
    DictionaryEntries& entries = DictionaryCore::entries(dictionary);
    const std::uint32_t other = entries.find(entry.name);
    const std::uint32_t own = entries.find(entry.object);
    if (other != DictionaryEntries::kNone && entries[other].object != entry.object)
        return dictionary.database()->addRecoveryLine(
            oddb::describe(*entry.object, L"another object has its name in the dictionary"));
    if (own == DictionaryEntries::kNone)
        entries.append(std::move(entry));
    else if (entries[own].name != entry.name)
        entries.replace(own, {entry.name, entry.object, entries[own].hard});
}

} // namespace

OdDbObjectId OdDbDictionary::setAt(const OdString& name, OdDbObject* object)
{
    assertWriteEnabled(false, false);
    requireEntry(*this, name, object);
    if (database()->isUndoing())
        return object->objectId();
    DictionaryEntry entry{odStringToUtf8(name), ObjectCore::stub(*object), isTreatElementsAsHard()};
    if (database()->isLoading() && entry.object)
    {
        loadEntry(*this, std::move(entry));
        return object->objectId();
    }
    std::uint32_t other = m_entries->find(entry.name);
    if (other != DictionaryEntries::kNone && (*m_entries)[other].object != entry.object)
    {
        eraseDisplaced(*this, (*m_entries)[other].object);
        other = m_entries->find(entry.name);
    }
    if (!entry.object)
        entry.object = database()->addOdDbObject(object, objectId());
    OdDbStub* const stub = entry.object;
    const std::uint32_t own = m_entries->find(stub);
    if (own != DictionaryEntries::kNone)
    {
        if (other != DictionaryEntries::kNone && other != own)
            DictionaryCore::remove(*this, other);
        if ((*m_entries)[own].name != entry.name)
            DictionaryCore::replace(*this, own, std::move(entry));
    }
    else if (other != DictionaryEntries::kNone)
        DictionaryCore::replace(*this, other, std::move(entry));
    else
        DictionaryCore::add(*this, std::move(entry));
    DictionaryCore::adoptObject(*this, *stub);
    return stub;
}

bool OdDbDictionary::setName(const OdString& oldName, const OdString& newName)
{
    assertWriteEnabled(false, false);
    const std::uint32_t number = m_entries->find(odStringToUtf8(oldName));
    if (number == DictionaryEntries::kNone || newName.isEmpty() || !isDBRO() || database()->isUndoing())
        return false;
    const std::string utf8 = odStringToUtf8(newName);
    const std::uint32_t other = m_entries->find(utf8);
    if (other != DictionaryEntries::kNone && other != number)
    {
        if (!(*m_entries)[other].object->isErased())
            return false;
        DictionaryCore::remove(*this, other);
    }
    const DictionaryEntry before = (*m_entries)[number];
    if (before.name != utf8)
        DictionaryCore::replace(*this, number, {utf8, before.object, before.hard});
    return true;
}

OdDbObjectId OdDbDictionary::remove(const OdString& name)
{
    assertWriteEnabled(false, false);
    const std::uint32_t number = m_entries->find(odStringToUtf8(name));
    if (number == DictionaryEntries::kNone || !isDBRO() || database()->isUndoing() || database()->isLoading())
        return OdDbObjectId();
    OdDbStub* object = (*m_entries)[number].object;
    DictionaryCore::remove(*this, number);
    DictionaryCore::releaseObject(*this, *object);
    return object;
}

void OdDbDictionary::remove(const OdDbObjectId& objectId)
{
    assertWriteEnabled(false, false);
    if (isDBRO() && (database()->isUndoing() || database()->isLoading()))
        return;
    const std::uint32_t number = m_entries->find(oddb::stubOf(objectId));
    if (number == DictionaryEntries::kNone)
        throw OdError(eKeyNotFound);
    DictionaryCore::remove(*this, number);
    DictionaryCore::releaseObject(*this, *oddb::stubOf(objectId));
}

// ---- Settings ------------------------------------------------------------------------------------------------------

bool OdDbDictionary::isTreatElementsAsHard() const
{
    return kFields.integer(*this, kHardCode) != 0;
}

void OdDbDictionary::setTreatElementsAsHard(bool hard)
{
    kFields.setInteger(*this, kHardCode, hard);
}

OdDb::DuplicateRecordCloning OdDbDictionary::mergeStyle() const
{
    return static_cast<OdDb::DuplicateRecordCloning>(kFields.integer(*this, kMergeStyleCode));
}

void OdDbDictionary::setMergeStyle(OdDb::DuplicateRecordCloning style)
{
    kFields.setInteger(*this, kMergeStyleCode, style);
}

OdDbDictionaryWithDefault::OdDbDictionaryWithDefault()
{
    ObjectCore::putGroups(*this,
                          oddb::initialGroups(oddb::recordtables::kDictionaryWithDefault, {kMergeStyleCode, 340}));
}

OdDbObjectId OdDbDictionaryWithDefault::defaultId() const
{
    return oddb::RecordFields(oddb::recordtables::kDictionaryWithDefault).stub(*this, 340);
}

void OdDbDictionaryWithDefault::setDefaultId(OdDbObjectId id)
{
    oddb::RecordFields(oddb::recordtables::kDictionaryWithDefault).setId(*this, 340, id);
}

// ---- Going over the entries ----------------------------------------------------------------------------------------

namespace
{

class DictionaryIterator : public OdDbDictionaryIterator
{
public:
    explicit DictionaryIterator(DictionaryEntries::Snapshot entries) : m_entries(std::move(entries)) { settle(); }

    bool done() const override { return m_at >= m_entries->size(); }
    bool next() override
    {
        if (!done())
            ++m_at;
        settle();
        return !done();
    }
    OdRxObjectPtr object() const override { return getObject(OdDb::kForRead, false); }
    OdUInt32 id() const override { return done() ? OdRxDictionary::kInvalidId : static_cast<OdUInt32>(m_at); }

    OdString name() const override { return done() ? OdString() : odUtf8ToString((*m_entries)[m_at].name); }
    OdDbObjectId objectId() const override { return done() ? OdDbObjectId() : OdDbObjectId((*m_entries)[m_at].object); }
    OdDbObjectPtr getObject(OdDb::OpenMode openMode, bool openErased) const override
    {
        return objectId().openObject(openMode, openErased);
    }
    bool setPosition(OdDbObjectId objectId) override
    {
        for (std::size_t i = 0; i < m_entries->size(); ++i)
            if (OdDbObjectId((*m_entries)[i].object) == objectId)
            {
                m_at = i;
                return true;
            }
        return false;
    }
    void start(bool skipErased) override
    {
        m_at = 0;
        m_skipErased = skipErased;
        settle();
    }

private:
    bool isPassedOver(const OdDbStub& object) const
    {
        return !object.object || object.has(OdDbStub::kUndone) || (m_skipErased && object.isErased());
    }
    void settle()
    {
        while (!done() && isPassedOver(*(*m_entries)[m_at].object))
            ++m_at;
    }

    DictionaryEntries::Snapshot m_entries;
    std::size_t m_at = 0;
    bool m_skipErased = true;
};

} // namespace

OdDbDictionaryIteratorPtr OdDbDictionary::newIterator(OdRx::DictIterType type) const
{
    assertReadEnabled();
    return OdRxObjectImpl<DictionaryIterator, OdDbDictionaryIterator>::createObject(
        type == OdRx::kDictSorted ? m_entries->byName() : m_entries->inOrder());
}

// ---- Filing --------------------------------------------------------------------------------------------------------

// Copies get their entries from those who copy the objects.
static bool filesEntries(const OdDbFiler& filer)
{
    return filer.filerType() == OdDbFiler::kFileFiler || filer.filerType() == OdDbFiler::kIdFiler ||
           filer.filerType() == OdDbFiler::kPurgeFiler;
}

OdResult OdDbDictionary::dwgInFields(OdDbDwgFiler* filer)
{
    if (const OdResult result = OdDbObject::dwgInFields(filer); result != eOk || !filesEntries(*filer))
        return result;
    m_entries->clear();
    for (OdInt32 left = filer->rdInt32(); left > 0; --left)
    {
        const std::string name = odStringToUtf8(filer->rdString());
        const bool hard = filer->rdBool();
        OdDbStub* object = oddb::stubOf(hard ? filer->rdHardOwnershipId() : filer->rdSoftOwnershipId());
        if (object)
            m_entries->append({name, object, hard});
    }
    return eOk;
}

void OdDbDictionary::dwgOutFields(OdDbDwgFiler* filer) const
{
    OdDbObject::dwgOutFields(filer);
    if (!filesEntries(*filer))
        return;
    const DictionaryEntries::Snapshot entries = m_entries->inOrder();
    filer->wrInt32(static_cast<OdInt32>(entries->size()));
    for (const DictionaryEntry& entry : *entries)
    {
        filer->wrString(odUtf8ToString(entry.name));
        filer->wrBool(entry.hard);
        entry.hard ? filer->wrHardOwnershipId(entry.object) : filer->wrSoftOwnershipId(entry.object);
    }
}

OdResult OdDbDictionary::dxfInFields(OdDbDxfFiler* filer)
{
    DictionaryCore::loadGroups(*this, oddb::readGroups(*filer));
    return eOk;
}

void OdDbDictionary::dxfOutFields(OdDbDxfFiler* filer) const
{
    oddb::writeGroups(*filer, DictionaryCore::savedGroups(*this));
}
