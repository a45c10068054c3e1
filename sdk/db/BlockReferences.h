// Which block references draw which block: found by going over the drawing once and kept up to date from then on.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "DatabaseImpl.h"
#include "DbDatabaseReactor.h"
#include "StaticRxObject.h"

namespace oddb
{

/// The block references of one drawing by block. Changes are only noted; they are looked at when the next question
/// comes.
class BlockReferences : public OdStaticRxObject<OdDbDatabaseReactor>
{
public:
    static BlockReferences& of(DatabaseImpl& database);

    /// The references to the block that are not effectively erased. Shared until the next change.
    const OdDbObjectIdArray& find(OdDbStub& block);

    /// Called after a reference was made to draw another block.
    void noteChange(OdDbStub& reference) { m_changed.push_back(&reference); }
    /// Called when there is another block, or one has another name: files may have names of blocks that they lack.
    void noteNames() { m_namesChanged = true; }

    void objectAppended(const OdDbDatabase*, const OdDbObject* object) override { note(*object); }
    void objectUnAppended(const OdDbDatabase*, const OdDbObject* object) override { note(*object); }
    void objectReAppended(const OdDbDatabase*, const OdDbObject* object) override { note(*object); }
    void objectErased(const OdDbDatabase*, const OdDbObject* object, bool) override { note(*object); }

private:
    struct List
    {
        OdDbObjectIdArray ids;
        bool hasLeavers = false; // some of the ids do not belong to it any more
    };

    void note(const OdDbObject& object);
    void bringUpToDate();
    void build();
    void file(OdDbStub& reference);
    void removeLeavers(const OdDbStub& block, List& list);

    DatabaseImpl* m_database = nullptr;
    bool m_built = false;
    bool m_namesChanged = false;
    std::vector<OdDbStub*> m_changed;
    std::unordered_set<OdDbStub*> m_named;             // references that keep the name of their block as text
    std::unordered_map<const OdDbStub*, List> m_lists; // by block
    std::unordered_map<const OdDbStub*, const OdDbStub*> m_filed; // references and the block whose list has them
};

/// Records that a block reference, whose groups are about to change, draws another block from now on.
void recordBlockChange(OdDbObject& reference);

} // namespace oddb
