// Finds the entities of a space that may have a part within a rectangle of a view's plane, in time that grows with how
// many there are and not with how many the space has.
//
// The tree holds a box for each entity, rounded outwards to single precision. It is packed at once when it is made;
// entities that change are exchanged one by one, or by packing it anew when they are many. An entity is known by its
// place among those of its block, which it keeps for good; erased ones stay in the tree.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <unordered_set>
#include <vector>

#include "DbObjectId.h"
#include "Ge/GeExtents2d.h"
#include "select/ViewPlane.h"

namespace picking
{

/// A place among the entities of a block.
using Place = std::uint32_t;

class SpatialIndex
{
public:
    SpatialIndex(OdDbStub& block, const ViewPlane& plane);
    ~SpatialIndex();

    OdDbStub& block() const { return m_block; }
    const ViewPlane& plane() const { return m_plane; }

    /// Notes that entities of the block, erased or not, may lie elsewhere now. New ones are found without being noted.
    void noteChange(OdDbStub& entity) { m_changed.insert(&entity); }
    /// The same for all that are of the class or one derived from it.
    void noteChangeOfClass(const OdRxClass& entityClass);

    /// Looks at what is new and what has changed. Called before questions.
    void bringUpToDate();

    /// Called for each entity whose box meets the rectangle, or for each segment's: once for each place. isInside is
    /// true when the box lies within the rectangle. Entities without bounds come too.
    using Visit = std::function<void(Place place, const OdGeExtents2d& box)>;
    void findIn(const OdGeExtents2d& rectangle, const Visit& visit) const;
    void findAlong(const OdGePoint2d& start, const OdGePoint2d& end, const Visit& visit) const;

    OdDbStub* entityAt(Place place) const;

private:
    struct Tree;

    void addNew();
    void exchangeChanged();
    Place placeOf(OdDbStub& entity);

    OdDbStub& m_block;
    ViewPlane m_plane;
    std::unique_ptr<Tree> m_tree;
    std::unordered_set<OdDbStub*> m_changed;
    std::vector<std::pair<OdDbStub*, Place>> m_places; ///< sorted; made when the first change comes
};

} // namespace picking
