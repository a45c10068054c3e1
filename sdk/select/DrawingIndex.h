// The spatial indexes of one drawing. Each is made when it is first asked for and follows what happens to the drawing
// from then on: changes, new and erased entities, undo and redo, and changes of the blocks, styles, clips and settings
// of points that entities are drawn with. Changes are only noted; they are looked at when the next question comes.
#pragma once

#include <memory>
#include <unordered_set>
#include <vector>

#include "DbDatabaseReactor.h"
#include "StaticRxObject.h"
#include "select/SpatialIndex.h"

class OdDbBlockTableRecord;

namespace picking
{

/// The settings of a drawing that say how large points are drawn.
struct PointLooks
{
    OdInt16 mode = 0;
    double size = 0.0;

    bool operator==(const PointLooks& other) const { return mode == other.mode && size == other.size; }
};

class DrawingIndex : public OdStaticRxObject<OdDbDatabaseReactor>
{
public:
    static DrawingIndex& of(OdDbDatabase& database);

    /// The index of a space in a plane, up to date; valid until the next call.
    SpatialIndex& find(const ViewedSpace& space);

    void objectAppended(const OdDbDatabase*, const OdDbObject* object) override { note(*object); }
    void objectUnAppended(const OdDbDatabase*, const OdDbObject* object) override { note(*object); }
    void objectReAppended(const OdDbDatabase*, const OdDbObject* object) override { note(*object); }
    void objectModified(const OdDbDatabase*, const OdDbObject* object) override { note(*object); }
    void objectErased(const OdDbDatabase*, const OdDbObject* object, bool) override { note(*object); }

private:
    void note(const OdDbObject& object);
    void noteOwned(const OdDbObject& changed);
    void noteBlock(const OdDbBlockTableRecord& block);
    void noteReferencesToChangedBlocks();
    void noteReferencesTo(OdDbStub& block, std::vector<OdDbStub*>& reached);
    bool noteIn(OdDbStub* owner, OdDbStub& entity);

    bool m_isAttached = false;
    PointLooks m_pointLooks;                              ///< that the indexes were made with
    std::vector<std::unique_ptr<SpatialIndex>> m_indexes; ///< the one asked for last stands first
    std::unordered_set<OdDbStub*> m_changedBlocks;
};

} // namespace picking
