// Making copies: one object after the other, each with what it owns.
#include "entities/ObjectCopier.h"

#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbEntity.h"
#include "DbLayout.h"
#include "DbSymbolTable.h"
#include "OdError.h"
#include "db/DatabaseImpl.h"
#include "db/MemoryFilers.h"
#include "db/ObjectCore.h"
#include "db/Proxies.h"
#include "entities/Subentities.h"

namespace oddb
{

namespace
{

OdDbFiler::FilerType filerType(const OdDbIdMapping& mapping)
{
    return mapping.deepCloneContext() == OdDb::kDcWblock ? OdDbFiler::kWblockCloneFiler : OdDbFiler::kDeepCloneFiler;
}

OdString freeName(const OdDbDictionary& dictionary, const OdString& wanted)
{
    OdString name = wanted;
    for (int number = 2; dictionary.has(name); ++number)
        name.format(L"%ls_%d", wanted.c_str(), number);
    return name;
}

} // namespace

OdDbObjectId ObjectCopier::valueOf(const OdDbObjectId& key) const
{
    OdDbIdPair pair(key);
    return m_mapping.compute(pair) ? pair.value() : OdDbObjectId();
}

void ObjectCopier::assign(const OdDbObject& source, const OdDbObjectId& value, bool isCloned, bool isPrimary)
{
    m_mapping.assign(OdDbIdPair(source.objectId(), value, isCloned, isPrimary));
}

OdDbObjectPtr ObjectCopier::copy(const OdDbObject& source, OdDbObject* owner, bool isPrimary)
{
    if (const OdDbObjectId done = valueOf(source.objectId()); !done.isNull())
        return done.safeOpenObject();
    OdDbObjectPtr made = OdDbObjectPtr(source.isA()->create());
    nameProxy(*made, proxyDxfName(source));
    if (source.keepsGroups())
        ObjectCore::putGroups(*made, ObjectCore::groups(source));
    place(*made, owner, source);
    assign(source, made->objectId(), true, isPrimary);
    m_toFollow.push_back(source.objectId());
    if (!source.keepsGroups())
        readFields(*made, source);
    copyCommon(*made, source);
    copyOwned(source, *made);
    oddb::databaseImpl(source)->notifyCopied(source, *made);
    return made;
}

// ---- Giving a copy to its owner -----------------------------------------------------------------------------------

void ObjectCopier::place(OdDbObject& copy, OdDbObject* owner, const OdDbObject& source)
{
    OdDbEntity* entity = OdDbEntity::cast(&copy).get();
    if (OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(owner); !block.isNull() && entity)
        block->appendOdDbEntity(entity);
    else if (OdDbEntityPtr complex = OdDbEntity::cast(owner); !complex.isNull() && entity)
        appendSubentity(*complex, complex->makeSubentities(), entity);
    else if (OdDbSymbolTablePtr table = OdDbSymbolTable::cast(owner); !table.isNull())
        table->add(OdDbSymbolTableRecord::cast(&copy));
    else if (OdDbDictionaryPtr dictionary = OdDbDictionary::cast(owner); !dictionary.isNull())
        placeInDictionary(copy, *dictionary, source);
    else
        m_mapping.destDb()->addOdDbObject(&copy, owner ? owner->objectId() : OdDbObjectId());
}

// An object that files itself by its own name, as its class wishes, is entered only when that did not happen.
void ObjectCopier::placeInDictionary(OdDbObject& copy, OdDbDictionary& dictionary, const OdDbObject& source)
{
    const OdDbDictionaryPtr from = OdDbDictionary::cast(source.ownerId().openObject());
    const OdString name = from.isNull() ? OdString() : from->nameAt(source.objectId());
    if (!copy.keepsGroups())
    {
        m_mapping.destDb()->addOdDbObject(&copy, dictionary.objectId());
        readFields(copy, source);
        if (dictionary.has(copy.objectId()))
            return;
    }
    dictionary.setAt(freeName(dictionary, name.isEmpty() ? copy.objectHandle().ascii() : name), &copy);
}

void ObjectCopier::readFields(OdDbObject& copy, const OdDbObject& source)
{
    if (OdDbDictionary::cast(&source).get())
        return;
    OdSmartPtr<MemoryDwgFiler> filer = MemoryDwgFiler::create(filerType(m_mapping), m_mapping.origDb());
    source.dwgOutFields(filer);
    filer->beginReading(filerType(m_mapping), m_mapping.destDb());
    const ObjectCore::KeptCommon kept(copy);
    if (const OdResult result = copy.dwgInFields(filer); result != eOk)
        throw OdError(result);
}

// ---- What belongs to an object --------------------------------------------------------------------------------------

void ObjectCopier::copyCommon(OdDbObject& copy, const OdDbObject& source)
{
    const ObjectExtras* extras = ObjectCore::extras(source);
    if (!extras)
        return;
    for (std::size_t i = 0; i < extras->xdata.size(); ++i)
        ObjectCore::putXData(copy, extras->xdata[i].application, extras->xdata[i].values);
    const OdDbObjectPtr dictionary = OdDbObjectId(extras->extensionDictionary).openObject();
    if (!dictionary.isNull())
        ObjectCore::putExtensionDictionary(copy, this->copy(*dictionary, &copy, false)->objectId());
}

void ObjectCopier::copyOwned(const OdDbObject& source, OdDbObject& copy)
{
    if (const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(&source); !block.isNull())
        return copyBlock(*block, *OdDbBlockTableRecord::cast(&copy));
    if (const OdDbDictionaryPtr dictionary = OdDbDictionary::cast(&source); !dictionary.isNull())
    {
        for (OdDbDictionaryIteratorPtr entry = dictionary->newIterator(OdRx::kDictSorted); !entry->done();
             entry->next())
            if (const OdDbObjectPtr object = entry->getObject(); !object.isNull())
                this->copy(*object, &copy, false);
        return;
    }
    if (const OdDbEntityPtr entity = OdDbEntity::cast(&source); !entity.isNull() && entity->subentities())
        visitSubentities(*entity->subentities(), [&](const OdDbEntity& element) { this->copy(element, &copy, false); });
}

void ObjectCopier::copyBlock(const OdDbBlockTableRecord& source, OdDbBlockTableRecord& copy)
{
    copy.setOrigin(source.origin());
    for (OdDbObjectIteratorPtr entity = source.newIterator(); !entity->done(); entity->step())
        if (const OdDbEntityPtr opened = entity->entity(); !opened.isNull())
            this->copy(*opened, &copy, false);
}

// ---- What a copy cannot be without ----------------------------------------------------------------------------------

void ObjectCopier::copyPrimary(const OdDbObject& source)
{
    if (!valueOf(source.objectId()).isNull())
        return;
    OdDbObjectPtr owner;
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(source.ownerId().openObject());
    if (!block.isNull())
        owner = (block->isLayout() && block->objectId() != m_mapping.origDb()->getModelSpaceId()
                     ? m_mapping.destDb()->getPaperSpaceId()
                     : m_mapping.destDb()->getModelSpaceId())
                    .safeOpenObject(OdDb::kForWrite);
    else
        owner = neededOwner(source.ownerId());
    if (owner.isNull())
        throw OdError(eNotApplicable);
    if (!block.isNull() || !standsInTarget(source, *owner))
        copy(source, owner, true);
}

void ObjectCopier::copyNeeded()
{
    while (!m_toFollow.empty())
    {
        const OdDbObjectPtr source = m_toFollow.back().openObject();
        m_toFollow.pop_back();
        if (source.isNull())
            continue;
        OdSmartPtr<MemoryDwgFiler> filer = MemoryDwgFiler::create(OdDbFiler::kIdFiler, m_mapping.origDb());
        source->dwgOutFields(filer);
        std::vector<OdDbStub*> wanted;
        filer->visitIds(
            [&](OdDbStub* stub, OdDb::ReferenceType type)
            {
                if (type == OdDb::kHardPointerRef || type == OdDb::kHardOwnershipRef)
                    wanted.push_back(stub);
            });
        if (const ObjectExtras* extras = ObjectCore::extras(*source))
            for (std::size_t i = 0; i < extras->xdata.size(); ++i)
                wanted.push_back(extras->xdata[i].application);
        for (OdDbStub* stub : wanted)
            need(stub);
    }
}

void ObjectCopier::need(const OdDbObjectId& id)
{
    if (!valueOf(id).isNull())
        return;
    const OdDbObjectPtr source = id.openObject();
    if (source.isNull() || OdDbLayout::cast(source).get() || OdDbSymbolTable::cast(source).get())
        return;
    const OdDbObjectPtr owner = neededOwner(source->ownerId());
    if (!owner.isNull() && valueOf(id).isNull() && !standsInTarget(*source, *owner))
        copy(*source, owner, false);
}

/// What will own the copy of an object of this owner: spaces, tables and dictionaries of the target stand for those of
/// the original drawing; a dictionary that the target lacks is made.
OdDbObjectPtr ObjectCopier::neededOwner(const OdDbObjectId& ownerId)
{
    if (const OdDbObjectId known = valueOf(ownerId); !known.isNull())
        return known.safeOpenObject(OdDb::kForWrite);
    const OdDbDictionaryPtr dictionary = OdDbDictionary::cast(ownerId.openObject());
    if (dictionary.isNull())
    {
        need(ownerId);
        const OdDbObjectId made = valueOf(ownerId);
        return made.isNull() ? OdDbObjectPtr() : made.safeOpenObject();
    }
    const OdDbDictionaryPtr above = OdDbDictionary::cast(neededOwner(dictionary->ownerId()));
    if (above.isNull())
        return {};
    const OdDbDictionaryPtr parent = OdDbDictionary::cast(dictionary->ownerId().openObject());
    const OdString name = parent.isNull() ? OdString() : parent->nameAt(ownerId);
    if (name.isEmpty())
        return {};
    OdDbObjectPtr there = above->getAt(name, OdDb::kForWrite);
    if (there.isNull())
    {
        there = OdDbDictionary::createObject();
        above->setAt(name, there);
    }
    assign(*dictionary, there->objectId(), false, false);
    return there;
}

/// True when the target has an object of the same name, which then stands for the copy.
bool ObjectCopier::standsInTarget(const OdDbObject& source, OdDbObject& owner)
{
    OdDbObjectId there;
    if (const OdDbSymbolTableRecordPtr record = OdDbSymbolTableRecord::cast(&source); !record.isNull())
    {
        const OdDbSymbolTablePtr table = OdDbSymbolTable::cast(&owner);
        if (!table.isNull())
            there = table->getAt(record->getName());
    }
    else if (const OdDbDictionaryPtr dictionary = OdDbDictionary::cast(&owner); !dictionary.isNull())
    {
        const OdDbDictionaryPtr from = OdDbDictionary::cast(source.ownerId().openObject());
        if (!from.isNull())
            there = dictionary->getAt(from->nameAt(source.objectId()));
    }
    if (there.isNull())
        return false;
    assign(source, there, false, false);
    return true;
}

// ---- References of the copies ---------------------------------------------------------------------------------------

OdDbStub* ObjectCopier::translated(OdDbStub* stub) const
{
    const OdDbObjectId value = valueOf(stub);
    if (!value.isNull())
        return value;
    return intoOtherDrawing() && OdDbObjectId(stub).database() != m_mapping.destDb() ? nullptr : stub;
}

void ObjectCopier::translate()
{
    for (OdDbIdMappingIterPtr pairs = m_mapping.newIterator(); !pairs->done(); pairs->next())
    {
        const OdDbIdPair pair = pairs->getMap();
        if (!pair.isCloned())
            continue;
        const OdDbObjectPtr made = pair.value().safeOpenObject(OdDb::kForWrite);
        made->assertWriteEnabled(false);
        const OdDbObjectPtr source = pair.key().safeOpenObject();
        if (made->keepsGroups())
            translateGroups(*made);
        else
            translateFields(*made);
        translateCommon(*made, *source);
    }
}

void ObjectCopier::translateGroups(OdDbObject& copy) const
{
    ObjectCore::putGroups(
        copy, ObjectCore::groups(copy).translated([this](int, OdDbStub* stub, GroupType) { return translated(stub); }));
}

void ObjectCopier::translateFields(OdDbObject& copy) const
{
    OdSmartPtr<MemoryDwgFiler> filer = MemoryDwgFiler::create(OdDbFiler::kIdXlateFiler, m_mapping.destDb());
    copy.dwgOutFields(filer);
    filer->beginReading(OdDbFiler::kIdXlateFiler, m_mapping.destDb(),
                        [this](OdDbStub* stub, OdDb::ReferenceType) { return translated(stub); });
    const ObjectCore::KeptCommon kept(copy);
    if (const OdResult result = copy.dwgInFields(filer); result != eOk)
        throw OdError(result);
}

/// Extended data keeps its applications, which the target gets where it lacks them; of the listeners, those that were
/// copied too go on listening.
void ObjectCopier::translateCommon(OdDbObject& copy, const OdDbObject& source) const
{
    const ObjectExtras* extras = ObjectCore::extras(source);
    if (!extras)
        return;
    extras->reactors.visit(
        [&](OdDbStub* reactor)
        {
            if (const OdDbObjectId value = valueOf(reactor); !value.isNull())
                ObjectCore::putReactor(copy, value);
        });
    if (!intoOtherDrawing())
        return;
    for (std::size_t i = 0; i < extras->xdata.size(); ++i)
    {
        OdDbStub* const application = extras->xdata[i].application;
        const OdDbObjectId value = valueOf(application);
        ObjectCore::takeXData(copy, application);
        if (!value.isNull())
            ObjectCore::putXData(copy, value,
                                 extras->xdata[i].values.translated([this](int, OdDbStub* stub, GroupType)
                                                                    { return translated(stub); }));
    }
}

} // namespace oddb
