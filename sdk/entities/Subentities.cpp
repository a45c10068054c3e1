// Implements lists of owned vertices and attributes.
#include "entities/Subentities.h"

#include <algorithm>
#include <iterator>

#include "DbComplexEntity.h"
#include "DbDatabase.h"
#include "DbFiler.h"
#include "OdError.h"
#include "RxObjectImpl.h"
#include "db/ErasingWithOwner.h"
#include "db/ObjectState.h"

namespace oddb
{

namespace
{

class ListIterator : public OdDbObjectIterator
{
public:
    void show(const SubentityList& list)
    {
        m_list = &list;
        start(true, true);
    }

    void start(bool atBeginning, bool skipDeleted) override
    {
        m_index = atBeginning ? 0 : static_cast<std::ptrdiff_t>(elements().size()) - 1;
        if (!done() && skipDeleted && current()->isErased())
            step(atBeginning, true);
    }

    bool done() const override { return m_index < 0 || m_index >= static_cast<std::ptrdiff_t>(elements().size()); }

    OdDbObjectId objectId() const override { return done() ? OdDbObjectId() : OdDbObjectId(current()); }

    OdDbEntityPtr entity(OdDb::OpenMode openMode, bool openErasedEntity) const override
    {
        return OdDbEntity::cast(objectId().openObject(openMode, openErasedEntity));
    }

    void step(bool forward, bool skipDeleted) override
    {
        do
            m_index += forward ? 1 : -1;
        while (!done() && skipDeleted && current()->isErased());
    }

    bool seek(OdDbObjectId objectId) override
    {
        const auto found = std::find(elements().begin(), elements().end(), stubOf(objectId));
        if (found == elements().end())
            return false;
        m_index = found - elements().begin();
        return true;
    }

private:
    const std::vector<OdDbStub*>& elements() const { return m_list->elements(); }
    OdDbStub* current() const { return elements()[static_cast<std::size_t>(m_index)]; }

    const SubentityList* m_list = nullptr;
    std::ptrdiff_t m_index = 0;
};

void makeSequenceEnd(OdDbEntity& owner, SubentityList& list)
{
    OdDbSequenceEndPtr end = OdDbSequenceEnd::createObject();
    end->setPropertiesFrom(&owner, false);
    list.putSequenceEnd(owner.database()->addOdDbObject(end, owner.objectId()));
}

} // namespace

bool SubentityList::hasElements() const
{
    return !m_loose.empty() ||
           std::any_of(m_elements.begin(), m_elements.end(), [](const OdDbStub* stub) { return !stub->isErased(); });
}

bool SubentityList::isBusy() const
{
    return std::any_of(m_elements.begin(), m_elements.end(),
                       [](const OdDbStub* stub)
                       { return !stub->isErased() && ObjectCore::State::isWriting(*stub->object); });
}

OdResult SubentityList::eraseElements(bool erasing) const
{
    std::vector<OdDbStub*> all = m_elements;
    if (m_sequenceEnd)
        all.push_back(m_sequenceEnd);
    return eraseWithOwner(all, erasing);
}

OdDbObjectId appendSubentity(OdDbEntity& owner, SubentityList& list, OdDbEntity* element)
{
    if (!owner.database())
        throw OdError(eNotInDatabase);
    if (!element)
        throw OdError(eNullObjectPointer);
    if (element->database())
        throw OdError(eAlreadyInDb);
    owner.assertWriteEnabled();
    if (!list.sequenceEnd() || OdDbObjectId(list.sequenceEnd()).isErased())
        makeSequenceEnd(owner, list);
    const OdDbObjectId id = owner.database()->addOdDbObject(element, owner.objectId());
    list.append(id);
    return id;
}

void copySubentities(const OdDbEntity& source, OdDbEntity& copy)
{
    const SubentityList* from = source.subentities();
    if (SubentityList* old = copy.subentities())
    {
        if (const OdResult result = old->eraseElements(true); result != eOk)
            throw OdError(result);
        if (!copy.isDBRO())
            old->clear();
    }
    if (!from || !from->hasElements())
        return;
    SubentityList& list = copy.makeSubentities();
    visitSubentities(*from, [&](const OdDbEntity& element) { list.appendLoose(OdDbEntity::cast(element.clone())); });
    if (copy.isDBRO())
        attachSubentities(copy, list);
}

void attachSubentities(OdDbEntity& owner, SubentityList& list)
{
    for (const OdDbEntityPtr& element : list.takeLoose())
        appendSubentity(owner, list, element);
}

void writeSubentities(OdDbDwgFiler& filer, const SubentityList* list)
{
    std::vector<OdDbStub*> present;
    if (list)
        std::copy_if(list->elements().begin(), list->elements().end(), std::back_inserter(present),
                     [](const OdDbStub* stub) { return !stub->isErased(); });
    filer.wrInt32(static_cast<OdInt32>(present.size()));
    for (OdDbStub* stub : present)
        filer.wrHardOwnershipId(stub);
    if (!present.empty())
        filer.wrHardOwnershipId(list->sequenceEnd());
}

void readSubentities(OdDbDwgFiler& filer, OdDbEntity& owner)
{
    OdInt32 count = filer.rdInt32();
    if (count < 0)
        throw OdError(eDwgObjectImproperlyRead);
    if (SubentityList* old = owner.subentities())
        old->clear();
    if (count == 0)
        return;
    SubentityList& list = owner.makeSubentities();
    for (; count > 0; --count)
    {
        if (OdDbStub* element = stubOf(filer.rdHardOwnershipId()))
            list.append(element);
    }
    list.putSequenceEnd(stubOf(filer.rdHardOwnershipId()));
}

OdDbObjectIteratorPtr newIterator(const SubentityList& list)
{
    OdSmartPtr<ListIterator> iterator = OdRxObjectImpl<ListIterator>::createObject();
    iterator->show(list);
    return OdDbObjectIteratorPtr(iterator.get());
}

} // namespace oddb
