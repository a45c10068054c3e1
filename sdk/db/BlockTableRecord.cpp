// Blocks: their entities, their frame, and what they say of themselves.
#include "DbBlockTableRecord.h"

#include <unordered_set>

#include "BlockCore.h"
#include "BlockReferences.h"
#include "DbBlockBegin.h"
#include "DbEntity.h"
#include "ErasingWithOwner.h"
#include "OdError.h"
#include "RecordFields.h"
#include "RxObjectImpl.h"
#include "SymbolTableCore.h"

using oddb::BlockCore;
using oddb::GroupsBuilder;
using oddb::ObjectCore;

namespace
{

const oddb::RecordFields kFields(oddb::recordtables::kBlock);

// What a BLOCK says; a block that is not resident has none.
struct BeginCodes
{
    static constexpr int kFlags = 70;
    static constexpr int kOrigin = 10;
    static constexpr int kName = 3;
    static constexpr int kPath = 1;
    static constexpr int kComments = 4;
};

constexpr const char* kBeginMarker = "AcDbBlockBegin";
constexpr const char* kEndMarker = "AcDbBlockEnd";
constexpr int kAnonymous = 1;
constexpr int kExternal = 4;
constexpr int kOverlay = 8;

oddb::Groups beginGroups(const OdDbBlockTableRecord& block)
{
    block.assertReadEnabled();
    const OdDbStub* begin = BlockCore::contents(block).begin;
    return begin && begin->object ? ObjectCore::groups(*begin->object) : oddb::Groups();
}

std::optional<oddb::GroupView> findInBegin(const oddb::Groups& groups, int code)
{
    static const oddb::Atom marker{std::string_view(kBeginMarker)};
    return groups.find(marker, code);
}

OdString beginText(const OdDbBlockTableRecord& block, int code)
{
    const oddb::Groups groups = beginGroups(block);
    const std::optional<oddb::GroupView> text = findInBegin(groups, code);
    return text ? odUtf8ToString(text->text()) : OdString();
}

bool beginFlag(const OdDbBlockTableRecord& block, int flag)
{
    const oddb::Groups groups = beginGroups(block);
    const std::optional<oddb::GroupView> flags = findInBegin(groups, BeginCodes::kFlags);
    return flags && (flags->integer() & flag) != 0;
}

// Puts other groups into the BLOCK in place of the one with this code, which every BLOCK has from its making.
void changeBegin(OdDbBlockTableRecord& block, int code, const GroupsBuilder& replacement)
{
    const oddb::DxfClass* cls = oddb::findDxfClass("BLOCK");
    const OdDbObjectPtr begin = block.getBlockBeginId().openObject(OdDb::kForWrite);
    if (!cls || begin.isNull())
        return;
    ObjectCore::changeGroups(
        *begin, oddb::withGroups(ObjectCore::groups(*begin), *cls, *cls->subclass(kBeginMarker), code, replacement));
}

bool isSpaceName(const OdString& name)
{
    return name.left(12).iCompare(L"*Model_Space") == 0 || name.left(12).iCompare(L"*Paper_Space") == 0;
}

} // namespace

OdDbBlockTableRecord::OdDbBlockTableRecord() : m_contents(std::make_unique<oddb::BlockContents>())
{
    // Copied rather than shared, for records of different drawings may be used by different threads.
    static const oddb::Groups initial = oddb::initialGroups(oddb::recordtables::kBlock, {2, 340, 70, 280, 281});
    ObjectCore::putGroups(*this, oddb::Groups::fromItems(initial.data()->bytes(), initial.byteSize()));
}

OdDbBlockTableRecord::~OdDbBlockTableRecord() = default;

void OdDbBlockTableRecord::setName(const OdString& name)
{
    OdDbSymbolTableRecord::setName(name);
    if (isDBRO() && !database()->isUndoing())
        BlockCore::nameFrame(*this);
}

// ---- Entities ------------------------------------------------------------------------------------------------------

OdDbObjectId OdDbBlockTableRecord::appendOdDbEntity(OdDbEntity* entity)
{
    assertWriteEnabled(false, false);
    if (!entity)
        throw OdError(eNullObjectPointer);
    if (!isDBRO())
        throw OdError(eNotInDatabase);
    const OdDbObjectId id = database()->addOdDbObject(entity, objectId());
    if (id.isNull())
        return id;
    assertWriteEnabled(false);
    m_contents->entities.push_back(id);
    return id;
}

namespace
{

class BlockIterator : public OdDbObjectIterator
{
public:
    explicit BlockIterator(const std::vector<OdDbStub*>& entities) : m_cursor(entities) {}

    void start(bool atBeginning, bool skipDeleted) override { m_cursor.start(atBeginning, skipDeleted); }
    bool done() const override { return m_cursor.done(); }
    OdDbObjectId objectId() const override { return m_cursor.current(); }
    OdDbEntityPtr entity(OdDb::OpenMode openMode, bool openErasedEntity) const override
    {
        return OdDbEntity::cast(objectId().openObject(openMode, openErasedEntity));
    }
    void step(bool forward, bool skipDeleted) override { m_cursor.step(forward, skipDeleted); }
    bool seek(OdDbObjectId objectId) override { return m_cursor.seek(objectId); }

private:
    oddb::StubCursor m_cursor;
};

} // namespace

OdDbObjectIteratorPtr OdDbBlockTableRecord::newIterator(bool atBeginning, bool skipDeleted) const
{
    assertReadEnabled();
    OdDbObjectIteratorPtr iterator =
        OdRxObjectImpl<BlockIterator, OdDbObjectIterator>::createObject(m_contents->entities);
    iterator->start(atBeginning, skipDeleted);
    return iterator;
}

bool OdDbBlockTableRecord::hasAttributeDefinitions() const
{
    assertReadEnabled();
    const OdRxClass* definition = odrxGetClass(L"OdDbAttributeDefinition");
    for (const OdDbStub* entity : m_contents->entities)
        if (!entity->isErased() && entity->object->isKindOf(definition))
            return true;
    return false;
}

// ---- References ----------------------------------------------------------------------------------------------------

namespace
{

// Goes from the block to the blocks that hold references to it, and so on; blocks may hold each other.
void collectNested(oddb::BlockReferences& references, OdDbStub& first, OdDbObjectIdArray& ids)
{
    std::vector<OdDbStub*> waiting{&first};
    std::unordered_set<const OdDbStub*> seen{&first};
    while (!waiting.empty())
    {
        OdDbStub* block = waiting.back();
        waiting.pop_back();
        const OdDbObjectIdArray direct = references.find(*block);
        ids.append(direct);
        for (const OdDbObjectId& id : direct)
            if (OdDbStub* owner = ObjectCore::owner(*oddb::stubOf(id)->object); owner && seen.insert(owner).second)
                waiting.push_back(owner);
    }
}

} // namespace

OdResult OdDbBlockTableRecord::getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly, bool) const
{
    assertReadEnabled();
    ids = OdDbObjectIdArray();
    if (!isDBRO())
        return eOk;
    oddb::BlockReferences& references = oddb::BlockReferences::of(database()->impl());
    if (directOnly)
        ids = references.find(*ObjectCore::stub(*this));
    else
        collectNested(references, *ObjectCore::stub(*this), ids);
    return eOk;
}

// ---- The frame -----------------------------------------------------------------------------------------------------

OdDbObjectId OdDbBlockTableRecord::getBlockBeginId() const
{
    assertReadEnabled();
    return m_contents->begin;
}

OdDbObjectId OdDbBlockTableRecord::getBlockEndId() const
{
    assertReadEnabled();
    return m_contents->end;
}

OdDbBlockBeginPtr OdDbBlockTableRecord::openBlockBegin(OdDb::OpenMode openMode) const
{
    const OdDbObjectId id = getBlockBeginId();
    return id.isNull() ? OdDbBlockBeginPtr() : OdDbBlockBeginPtr(id.safeOpenObject(openMode));
}

OdDbBlockEndPtr OdDbBlockTableRecord::openBlockEnd(OdDb::OpenMode openMode) const
{
    const OdDbObjectId id = getBlockEndId();
    return id.isNull() ? OdDbBlockEndPtr() : OdDbBlockEndPtr(id.safeOpenObject(openMode));
}

static void appendEntityPart(GroupsBuilder& groups, OdDbStub* layer)
{
    static const oddb::Atom marker{std::string_view("AcDbEntity")};
    groups.atom(100, marker);
    if (layer)
        groups.name(8, layer);
    else
        groups.text(8, "0");
}

void BlockCore::makeFrame(OdDbBlockTableRecord& block)
{
    static const oddb::Atom beginMarker{std::string_view(kBeginMarker)};
    static const oddb::Atom endMarker{std::string_view(kEndMarker)};
    BlockContents& contents = *block.m_contents;
    OdDbDatabase& database = *block.database();
    OdDbStub* const layer = oddb::findSymbol(database, oddb::SymbolTable::Layer, "0");
    GroupsBuilder groups;
    if (!contents.begin)
    {
        const OdDbBlockBeginPtr begin = OdDbBlockBegin::createObject();
        appendEntityPart(groups, layer);
        const std::string_view name = oddb::symbolName(ObjectCore::stub(block));
        groups.atom(100, beginMarker).name(2, ObjectCore::stub(block));
        groups.integer(BeginCodes::kFlags, name.starts_with('*') && !isSpaceName(block.getName()) ? kAnonymous : 0);
        groups.point(BeginCodes::kOrigin, 0.0, 0.0, 0.0).text(BeginCodes::kName, name).text(BeginCodes::kPath, "");
        ObjectCore::putGroups(*begin, groups.finish());
        contents.begin = database.addOdDbObject(begin, block.objectId());
    }
    if (!contents.end)
    {
        const OdDbBlockEndPtr end = OdDbBlockEnd::createObject();
        appendEntityPart(groups, layer);
        groups.atom(100, endMarker);
        ObjectCore::putGroups(*end, groups.finish());
        contents.end = database.addOdDbObject(end, block.objectId());
    }
}

void BlockCore::nameFrame(OdDbBlockTableRecord& block)
{
    GroupsBuilder shown;
    changeBegin(block, BeginCodes::kName, shown.text(BeginCodes::kName, odStringToUtf8(block.getName())));
}

OdGePoint3d OdDbBlockTableRecord::origin() const
{
    static const oddb::Atom marker{std::string_view(kBeginMarker)};
    static constexpr oddb::DxfRow kOriginRow{BeginCodes::kOrigin, "base point", oddb::DxfKind::Point3d};
    const oddb::Coordinates at = oddb::readPoint(beginGroups(*this), marker, kOriginRow);
    return OdGePoint3d(at.x, at.y, at.z);
}

void OdDbBlockTableRecord::setOrigin(const OdGePoint3d& origin)
{
    assertWriteEnabled(false, false);
    if (!isDBRO())
        throw OdError(eNotInDatabase);
    for (const double coordinate : {origin.x, origin.y, origin.z})
        oddb::requireFinite(coordinate);
    GroupsBuilder point;
    changeBegin(*this, BeginCodes::kOrigin, point.point(BeginCodes::kOrigin, origin.x, origin.y, origin.z));
}

OdString OdDbBlockTableRecord::comments() const
{
    return beginText(*this, BeginCodes::kComments);
}

bool OdDbBlockTableRecord::isFromExternalReference() const
{
    return beginFlag(*this, kExternal) || isFromOverlayReference();
}

bool OdDbBlockTableRecord::isFromOverlayReference() const
{
    return beginFlag(*this, kOverlay);
}

OdString OdDbBlockTableRecord::pathName() const
{
    return beginText(*this, BeginCodes::kPath);
}

// ---- The record ----------------------------------------------------------------------------------------------------

bool OdDbBlockTableRecord::isAnonymous() const
{
    const OdString name = getName();
    return !name.isEmpty() && name[0] == L'*' && !isLayout();
}

bool OdDbBlockTableRecord::isLayout() const
{
    return !getLayoutId().isErased() || isSpaceName(getName());
}

OdDbObjectId OdDbBlockTableRecord::getLayoutId() const
{
    return kFields.stub(*this, 340);
}

void OdDbBlockTableRecord::setLayoutId(OdDbObjectId layoutId)
{
    kFields.setId(*this, 340, layoutId);
}

bool OdDbBlockTableRecord::explodable() const
{
    return kFields.integer(*this, 280) != 0;
}

void OdDbBlockTableRecord::setExplodable(bool explodable)
{
    kFields.setInteger(*this, 280, explodable);
}

// ---- Erasing -------------------------------------------------------------------------------------------------------

namespace
{

std::vector<OdDbStub*> everythingIn(const oddb::BlockContents& contents)
{
    std::vector<OdDbStub*> all = contents.entities;
    for (OdDbStub* frame : {contents.begin, contents.end})
        if (frame)
            all.push_back(frame);
    return all;
}

// Undoes what was done so far when one of the entities cannot be erased.
class AllOrNothing
{
public:
    explicit AllOrNothing(OdDbDatabase& database) : m_database(database) { database.startTransaction(); }
    ~AllOrNothing() { m_done ? m_database.endTransaction() : m_database.abortTransaction(); }
    AllOrNothing(const AllOrNothing&) = delete;
    AllOrNothing& operator=(const AllOrNothing&) = delete;
    void done() { m_done = true; }

private:
    OdDbDatabase& m_database;
    bool m_done = false;
};

} // namespace

OdResult OdDbBlockTableRecord::subErase(bool erasing)
{
    if (erasing && !getLayoutId().isErased())
        return eCannotBeErasedByCaller;
    if (const OdResult result = OdDbSymbolTableRecord::subErase(erasing); result != eOk || !isDBRO())
        return result;
    AllOrNothing change(*database());
    const OdResult result = oddb::eraseWithOwner(everythingIn(*m_contents), erasing);
    if (result == eOk)
        change.done();
    return result;
}
