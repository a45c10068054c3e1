// The lists of block references.
#include "BlockReferences.h"

#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "ObjectCore.h"

namespace oddb
{

namespace
{

constexpr const char* kAttachment = "db.blockReferences";
constexpr int kBlockCode = 2;

bool isReference(const OdDbObject& object)
{
    return object.isKindOf(OdDbBlockReference::desc());
}

// What a reference says of its block, whatever the subclass is called that has it.
struct BlockName
{
    OdDbStub* block = nullptr;
    bool isText = false;
};

BlockName blockOf(const OdDbStub& reference)
{
    const Groups groups = ObjectCore::groups(*reference.object);
    const std::optional<GroupView> name = groups.findAny(kBlockCode);
    if (!name)
        return {};
    if (name->type() == GroupType::Text)
        return {findSymbol(*reference.database, SymbolTable::Block, name->text()), true};
    return {name->stub(), false};
}

} // namespace

BlockReferences& BlockReferences::of(DatabaseImpl& database)
{
    BlockReferences& references = database.attachment<BlockReferences>(kAttachment);
    if (!references.m_database)
    {
        references.m_database = &database;
        // In front of all others, who may ask when they are told.
        database.reactors.insert(database.reactors.begin(), &references);
    }
    return references;
}

const OdDbObjectIdArray& BlockReferences::find(OdDbStub& block)
{
    // While a file is read nobody tells of new references.
    if (m_database->loading)
        m_built = false;
    bringUpToDate();
    List& list = m_lists[&block];
    if (list.hasLeavers)
        removeLeavers(block, list);
    return list.ids;
}

// References go with the block that they are in, and are told of themselves then.
void BlockReferences::note(const OdDbObject& object)
{
    if (!m_built)
        return;
    if (isReference(object))
        m_changed.push_back(ObjectCore::stub(object));
    else if (object.isKindOf(OdDbBlockTableRecord::desc()))
        noteNames();
}

void BlockReferences::bringUpToDate()
{
    if (!m_built)
        return build();
    if (m_namesChanged)
        m_changed.insert(m_changed.end(), m_named.begin(), m_named.end());
    m_namesChanged = false;
    for (OdDbStub* reference : m_changed)
        file(*reference);
    m_changed.clear();
}

void BlockReferences::build()
{
    m_lists.clear();
    m_filed.clear();
    m_changed.clear();
    m_named.clear();
    m_namesChanged = false;
    m_database->stubs.visit(
        [&](OdDbStub& stub)
        {
            if (!stub.isErased() && isReference(*stub.object))
                file(stub);
        });
    m_built = true;
}

void BlockReferences::file(OdDbStub& reference)
{
    const BlockName name = blockOf(reference);
    const OdDbStub* block = OdDbObjectId(&reference).isEffectivelyErased() ? nullptr : name.block;
    if (name.isText)
        m_named.insert(&reference);
    else
        m_named.erase(&reference);
    const OdDbStub*& filed = m_filed[&reference];
    if (filed == block)
        return;
    if (filed)
        m_lists[filed].hasLeavers = true;
    if (block)
    {
        // The reference may have been in the list before.
        List& list = m_lists[block];
        if (list.hasLeavers)
            removeLeavers(*block, list);
        list.ids.append(OdDbObjectId(&reference));
    }
    filed = block;
}

void BlockReferences::removeLeavers(const OdDbStub& block, List& list)
{
    OdDbObjectIdArray kept;
    for (const OdDbObjectId& id : std::as_const(list.ids))
    {
        auto found = m_filed.find(stubOf(id));
        if (found != m_filed.end() && found->second == &block)
            kept.append(id);
    }
    list.ids = kept;
    list.hasLeavers = false;
}

namespace
{

class BlockChange : public JournalChange
{
public:
    explicit BlockChange(OdDbStub& reference) : m_reference(reference) {}
    void replay(OdDbDatabase& database, bool) override { BlockReferences::of(database.impl()).noteChange(m_reference); }

private:
    OdDbStub& m_reference;
};

} // namespace

void recordBlockChange(OdDbObject& reference)
{
    OdDbStub* stub = ObjectCore::stub(reference);
    if (!stub || stub->database->isLoading() || stub->database->isUndoing())
        return;
    DatabaseImpl& database = stub->database->impl();
    database.journal.record(std::make_unique<BlockChange>(*stub));
    BlockReferences::of(database).noteChange(*stub);
}

} // namespace oddb
