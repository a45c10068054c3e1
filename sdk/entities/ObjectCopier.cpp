// Making copies: one object after the other, each with what it owns.
#include "entities/ObjectCopier.h"

#include "DbBlockBegin.h"
#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbDimension.h"
#include "DbEntity.h"
#include "DbLayout.h"
#include "DbRasterImage.h"
#include "DbSymbolTable.h"
#include "OdError.h"
#include "db/BlockCore.h"
#include "db/DatabaseImpl.h"
#include "db/MemoryFilers.h"
#include "db/ObjectCore.h"
#include "db/Proxies.h"
#include "db/SpeltNames.h"
#include "entities/Subentities.h"

namespace oddb
{

namespace
{

OdDbFiler::FilerType filerType(const OdDbIdMapping& mapping)
{
    return mapping.deepCloneContext() == OdDb::kDcWblock ? OdDbFiler::kWblockCloneFiler : OdDbFiler::kDeepCloneFiler;
}

// The table of blocks completes the first two characters of such a name.
bool isAnonymousBlock(const OdDbObject& object)
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(&object);
    return !block.isNull() && block->isAnonymous();
}

// The block through which a dimension or a table draws itself; null for anything else.
OdDbObjectId ownBlockOf(const OdDbObject& object)
{
    if (const OdDbDimensionPtr dimension = OdDbDimension::cast(&object); !dimension.isNull())
        return dimension->dimBlockId();
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(&object);
    const bool isTable = !reference.isNull() && reference->isKindOf(odrxGetClass(L"OdDbTable"));
    return isTable ? reference->blockTableRecord() : OdDbObjectId();
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
    OdDbObjectPtr made = OdDbObject::cast(source.isA()->create());
    if (made.isNull())
        throw OdError(eNotApplicable);
    nameProxy(*made, proxyDxfName(source));
    if (source.keepsGroups())
        ObjectCore::putGroups(*made, groupsOf(source));
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

// In another drawing a record may be spelt in another way than here, so names become references at once.
Groups ObjectCopier::groupsOf(const OdDbObject& source) const
{
    const Groups groups = ObjectCore::groups(source);
    const DxfClass* cls = intoOtherDrawing() ? dxfClassOf(source) : nullptr;
    return cls ? withReferences(*m_mapping.origDb(), *cls, groups, [](const OdDbStub&) { return true; }) : groups;
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
    {
        const OdDbSymbolTableRecordPtr record = OdDbSymbolTableRecord::cast(&copy);
        if (!intoOtherDrawing() && isAnonymousBlock(copy))
            record->setName(record->getName().left(2));
        table->add(record);
    }
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
    if (!OdDbDictionary::cast(&source).isNull())
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
    if (!intoOtherDrawing())
    {
        copyOwnBlock(source);
        copyImageReactor(source, copy);
    }
    const OdDbEntityPtr entity = OdDbEntity::cast(&source);
    const SubentityList* elements = entity.isNull() ? nullptr : entity->subentities();
    if (!elements || !elements->hasElements())
        return;
    visitSubentities(*elements, [&](const OdDbEntity& element) { this->copy(element, &copy, false); });
    copyFrame(elements->sequenceEnd(), OdDbEntity::cast(&copy)->subentities()->sequenceEnd());
}

void ObjectCopier::copyBlock(const OdDbBlockTableRecord& source, OdDbBlockTableRecord& copy)
{
    copyFrame(source.getBlockBeginId(), copy.getBlockBeginId());
    BlockCore::nameFrame(copy);
    copyFrame(source.getBlockEndId(), copy.getBlockEndId());
    for (OdDbObjectIteratorPtr entity = source.newIterator(); !entity->done(); entity->step())
        if (const OdDbEntityPtr opened = entity->entity(); !opened.isNull())
            this->copy(*opened, &copy, false);
}

// The copy of a block has its BLOCK and ENDBLK already, and a copy with vertices its SEQEND; they get the data of the
// originals.
void ObjectCopier::copyFrame(const OdDbObjectId& sourceId, const OdDbObjectId& copyId)
{
    const OdDbObjectPtr source = sourceId.openObject();
    const OdDbObjectPtr copy = copyId.openObject(OdDb::kForWrite);
    if (source.isNull() || copy.isNull())
        return;
    ObjectCore::putGroups(*copy, groupsOf(*source));
    assign(*source, copyId, true, false);
    m_toFollow.push_back(sourceId);
    copyCommon(*copy, *source);
}

// Each draws itself through a block of its own, or what is done to one would show in the other.
void ObjectCopier::copyOwnBlock(const OdDbObject& source)
{
    const OdDbObjectPtr block = ownBlockOf(source).openObject();
    if (block.isNull() || !isAnonymousBlock(*block))
        return;
    const OdDbObjectPtr table = m_mapping.destDb()->getBlockTableId().safeOpenObject(OdDb::kForWrite);
    copy(*block, table, false);
}

// Each image is known to its definition through a reactor of its own, which goes with the image when that is erased.
void ObjectCopier::copyImageReactor(const OdDbObject& source, OdDbObject& copy)
{
    const OdDbRasterImagePtr image = OdDbRasterImage::cast(&source);
    if (image.isNull())
        return;
    const OdDbObjectPtr reactor = image->reactorId().openObject();
    const OdDbObjectPtr definition = image->imageDefId().openObject(OdDb::kForWrite);
    if (!reactor.isNull() && !definition.isNull())
        definition->addPersistentReactor(this->copy(*reactor, &copy, false)->objectId());
}

// ---- What a copy cannot be without ----------------------------------------------------------------------------------

void ObjectCopier::requireCopyable(const OdDbObject& source)
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(&source);
    const bool isFrame = OdDbSymbolTable::cast(&source).get() || OdDbLayout::cast(&source).get() ||
                         OdDbBlockBegin::cast(&source).get() || OdDbBlockEnd::cast(&source).get() ||
                         source.objectId() == source.database()->getNamedObjectsDictionaryId();
    if (isFrame || (!block.isNull() && block->isLayout()))
        throw OdError(eNotApplicable);
}

void ObjectCopier::copyPrimary(const OdDbObject& source)
{
    if (!valueOf(source.objectId()).isNull())
        return;
    if (const OdDbEntityPtr whole = OdDbEntity::cast(source.ownerId().openObject()); !whole.isNull())
        return copyPrimary(*whole);
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
        for (OdDbStub* stub : neededBy(*source))
            need(stub);
    }
}

std::vector<OdDbStub*> ObjectCopier::neededBy(const OdDbObject& source) const
{
    const DxfClass* cls = dxfClassOf(source);
    std::vector<OdDbStub*> wanted =
        cls ? speltRecords(*m_mapping.origDb(), *cls, ObjectCore::groups(source)) : std::vector<OdDbStub*>();
    OdSmartPtr<MemoryDwgFiler> filer = MemoryDwgFiler::create(OdDbFiler::kIdFiler, m_mapping.origDb());
    source.dwgOutFields(filer);
    filer->visitIds(
        [&](OdDbStub* stub, OdDb::ReferenceType type)
        {
            if (type == OdDb::kHardPointerRef || type == OdDb::kHardOwnershipRef)
                wanted.push_back(stub);
        });
    if (const ObjectExtras* extras = ObjectCore::extras(source))
        for (std::size_t i = 0; i < extras->xdata.size(); ++i)
            wanted.push_back(extras->xdata[i].application);
    return wanted;
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
