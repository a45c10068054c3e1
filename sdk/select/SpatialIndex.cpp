// Finds entities by where they lie.
#include "select/SpatialIndex.h"

#include <algorithm>
#include <cmath>

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

#include "DbEntity.h"
#include "db/BlockCore.h"
#include "select/BoundsCollector.h"

namespace picking
{

namespace bg = boost::geometry;
namespace bgi = boost::geometry::index;

namespace
{

using FloatPoint = bg::model::point<float, 2, bg::cs::cartesian>;
using FloatBox = bg::model::box<FloatPoint>;
using DoublePoint = bg::model::point<double, 2, bg::cs::cartesian>;

/// No box: nothing is drawn, or nothing that ends.
FloatBox noBox()
{
    constexpr float kNowhere = std::numeric_limits<float>::infinity();
    return {{kNowhere, kNowhere}, {-kNowhere, -kNowhere}};
}

bool isBox(const FloatBox& box)
{
    return box.min_corner().get<0>() <= box.max_corner().get<0>();
}

bool isSame(const FloatBox& first, const FloatBox& second)
{
    return first.min_corner().get<0>() == second.min_corner().get<0>() &&
           first.min_corner().get<1>() == second.min_corner().get<1>() &&
           first.max_corner().get<0>() == second.max_corner().get<0>() &&
           first.max_corner().get<1>() == second.max_corner().get<1>();
}

float roundedDown(double value)
{
    const auto rounded = static_cast<float>(value);
    return rounded > value ? std::nextafter(rounded, -std::numeric_limits<float>::infinity()) : rounded;
}

float roundedUp(double value)
{
    const auto rounded = static_cast<float>(value);
    return rounded < value ? std::nextafter(rounded, std::numeric_limits<float>::infinity()) : rounded;
}

FloatBox roundedOutwards(const OdGeExtents2d& box)
{
    return {{roundedDown(box.minPoint().x), roundedDown(box.minPoint().y)},
            {roundedUp(box.maxPoint().x), roundedUp(box.maxPoint().y)}};
}

OdGeExtents2d extentsOf(const FloatBox& box)
{
    return {OdGePoint2d(box.min_corner().get<0>(), box.min_corner().get<1>()),
            OdGePoint2d(box.max_corner().get<0>(), box.max_corner().get<1>())};
}

struct Entry
{
    FloatBox box;
    Place place;
};

struct BoxOfEntry
{
    using result_type = const FloatBox&;
    result_type operator()(const Entry& entry) const { return entry.box; }
};

struct SameEntry
{
    bool operator()(const Entry& first, const Entry& second) const
    {
        return first.place == second.place && isSame(first.box, second.box);
    }
};

constexpr std::size_t kEntriesOfNode = 16;
using Tree2d = bgi::rtree<Entry, bgi::quadratic<kEntriesOfNode>, BoxOfEntry, SameEntry>;

} // namespace

struct SpatialIndex::Tree
{
    Tree2d entries;
    std::vector<FloatBox> boxes; ///< by place, as they are in the tree
    std::unordered_set<Place> unbounded;
    BoundsCollector collector;

    FloatBox boxOf(Place place, OdDbStub* stub, const ViewPlane& plane)
    {
        const OdDbEntityPtr entity = OdDbEntity::cast(OdDbObjectId(stub).openObject(OdDb::kForRead, true));
        if (entity.isNull())
            return noBox();
        const OdGeExtents2d box = collector.boundsOf(*entity, plane);
        if (collector.isUnbounded())
            unbounded.insert(place);
        else
            unbounded.erase(place);
        return box.isValidExtents() ? roundedOutwards(box) : noBox();
    }

    void pack()
    {
        std::vector<Entry> packed;
        packed.reserve(boxes.size());
        for (Place place = 0; place < boxes.size(); ++place)
            if (isBox(boxes[place]))
                packed.push_back({boxes[place], place});
        entries = Tree2d(packed);
    }

    void exchange(Place place, const FloatBox& box)
    {
        if (isBox(boxes[place]))
            entries.remove({boxes[place], place});
        if (isBox(box))
            entries.insert({box, place});
        boxes[place] = box;
    }
};

SpatialIndex::SpatialIndex(OdDbStub& block, const ViewPlane& plane)
    : m_block(block), m_plane(plane), m_tree(std::make_unique<Tree>())
{
}

SpatialIndex::~SpatialIndex() = default;

OdDbStub* SpatialIndex::entityAt(Place place) const
{
    return oddb::BlockCore::contents(m_block).entities[place];
}

void SpatialIndex::noteChangeOfClass(const OdRxClass& entityClass)
{
    const std::vector<OdDbStub*>& entities = oddb::BlockCore::contents(m_block).entities;
    for (Place place = 0; place < m_tree->boxes.size(); ++place)
        if (OdRxClass* const known = OdDbObjectId(entities[place]).objectClass();
            known != nullptr && known->isDerivedFrom(&entityClass))
            noteChange(*entities[place]);
}

void SpatialIndex::bringUpToDate()
{
    exchangeChanged();
    addNew();
}

void SpatialIndex::addNew()
{
    const std::vector<OdDbStub*>& entities = oddb::BlockCore::contents(m_block).entities;
    std::vector<FloatBox>& boxes = m_tree->boxes;
    const std::size_t known = boxes.size();
    if (known == entities.size())
        return;
    boxes.reserve(entities.size());
    for (std::size_t i = known; i < entities.size(); ++i)
        boxes.push_back(m_tree->boxOf(static_cast<Place>(i), entities[i], m_plane));
    if (entities.size() - known > known / 4)
        return m_tree->pack();
    for (std::size_t i = known; i < boxes.size(); ++i)
        if (isBox(boxes[i]))
            m_tree->entries.insert({boxes[i], static_cast<Place>(i)});
}

void SpatialIndex::exchangeChanged()
{
    if (m_changed.empty())
        return;
    std::vector<std::pair<Place, FloatBox>> moved;
    for (OdDbStub* const stub : m_changed)
    {
        const Place place = placeOf(*stub);
        if (place >= m_tree->boxes.size())
            continue;
        const FloatBox box = m_tree->boxOf(place, stub, m_plane);
        if (!isSame(box, m_tree->boxes[place]))
            moved.emplace_back(place, box);
    }
    m_changed.clear();
    if (moved.size() > m_tree->boxes.size() / 8)
    {
        for (const auto& [place, box] : moved)
            m_tree->boxes[place] = box;
        return m_tree->pack();
    }
    for (const auto& [place, box] : moved)
        m_tree->exchange(place, box);
}

// Entities behind the last known place are new and looked at anyway.
Place SpatialIndex::placeOf(OdDbStub& entity)
{
    const std::vector<OdDbStub*>& entities = oddb::BlockCore::contents(m_block).entities;
    const std::size_t known = m_tree->boxes.size();
    if (m_places.size() < known)
    {
        for (std::size_t i = m_places.size(); i < known; ++i)
            m_places.emplace_back(entities[i], static_cast<Place>(i));
        std::sort(m_places.begin(), m_places.end());
    }
    const auto found = std::lower_bound(m_places.begin(), m_places.end(), std::pair<OdDbStub*, Place>(&entity, 0));
    const bool isKnown = found != m_places.end() && found->first == &entity;
    return isKnown ? found->second : std::numeric_limits<Place>::max();
}

// ---- Questions
// -------------------------------------------------------------------------------------------------------

void SpatialIndex::findIn(const OdGeExtents2d& rectangle, const Visit& visit) const
{
    const auto report = [&](const Entry& entry) { visit(entry.place, extentsOf(entry.box)); };
    m_tree->entries.query(bgi::intersects(roundedOutwards(rectangle)), boost::make_function_output_iterator(report));
    for (const Place place : m_tree->unbounded)
        visit(place, OdGeExtents2d());
}

void SpatialIndex::findAlong(const OdGePoint2d& start, const OdGePoint2d& end, const Visit& visit) const
{
    const bg::model::segment<DoublePoint> segment({start.x, start.y}, {end.x, end.y});
    const auto report = [&](const Entry& entry) { visit(entry.place, extentsOf(entry.box)); };
    m_tree->entries.query(bgi::intersects(segment), boost::make_function_output_iterator(report));
    for (const Place place : m_tree->unbounded)
        visit(place, OdGeExtents2d());
}

} // namespace picking
