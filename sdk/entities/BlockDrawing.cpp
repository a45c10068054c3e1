// Draws the entities of block definitions within references to them. Definitions may be nested to any number of
// levels and may refer to themselves by mistake; neither lets the drawing run away: recursion ends at a definition that
// is being drawn, and extents of drawings with very many nested entities fall back on the boxes of definitions.
#include <algorithm>
#include <unordered_map>
#include <vector>

#include "DbAttributeDefinition.h"
#include "DbBlockTableRecord.h"
#include "entities/BlockContents.h"
#include "entities/Drawing.h"
#include "gi/ExtentsCollector.h"

namespace drawing
{

namespace
{

/// Entities that one extents calculation visits one by one before it takes the boxes of whole definitions.
constexpr std::size_t kExactEntities = 500000;

/// What is going on in this thread below one outermost reference.
struct State
{
    std::vector<OdDbStub*> open; ///< definitions that are being drawn, outermost first
    std::size_t drawn = 0;
    std::unordered_map<OdDbStub*, OdGeExtents3d> boxes;
};

State& state()
{
    thread_local State current;
    return current;
}

class OpenBlock
{
public:
    explicit OpenBlock(OdDbStub* block) { state().open.push_back(block); }
    OpenBlock(const OpenBlock&) = delete;
    OpenBlock& operator=(const OpenBlock&) = delete;
    ~OpenBlock()
    {
        State& current = state();
        current.open.pop_back();
        if (current.open.empty())
            current = State();
    }
};

bool mayOpen(OdDbStub* block)
{
    const std::vector<OdDbStub*>& open = state().open;
    return open.size() < kDeepestNesting && std::find(open.begin(), open.end(), block) == open.end();
}

/// Attribute definitions of a block are what its references ask for; those of a space are seen themselves.
bool isPartOf(const OdDbEntity& entity, bool inSpace)
{
    if (inSpace)
        return true;
    const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::cast(&entity);
    return definition.isNull() || definition->isConstant();
}

void drawEntities(OdGiWorldDraw& worldDraw, OdDbObjectId blockId, bool inSpace)
{
    // Where only the reach is of interest, the order is not, nor are the looks, from which others learn what is
    // invisible.
    const bool isReach = worldDraw.regenType() == kOdGiForExtents;
    std::size_t& drawn = state().drawn;
    const auto draw = [&](const OdDbEntity& entity)
    {
        ++drawn;
        if (isPartOf(entity, inSpace) && !(isReach && entity.visibility() == OdDb::kInvisible))
            worldDraw.geometry().draw(&entity);
        return !worldDraw.regenAbort();
    };
    isReach ? visitBlock(blockId, draw) : visitBlockAsDrawn(blockId, draw);
}

const OdGeExtents3d& boxOf(OdDbObjectId blockId)
{
    const auto known = state().boxes.find(blockId);
    if (known != state().boxes.end())
        return known->second;
    OdStaticRxObject<gi::ExtentsCollector> collector;
    drawEntities(collector, blockId, false);
    return state().boxes.insert_or_assign(blockId, collector.extents()).first->second;
}

void drawBox(OdGiGeometry& geometry, const OdGeExtents3d& box)
{
    if (!box.isValidExtents())
        return;
    const OdGePoint3d low = box.minPoint();
    const OdGePoint3d high = box.maxPoint();
    OdGePoint3d corners[8];
    for (int i = 0; i < 8; ++i)
        corners[i] = OdGePoint3d(i & 1 ? high.x : low.x, i & 2 ? high.y : low.y, i & 4 ? high.z : low.z);
    geometry.polyline(8, corners);
}

} // namespace

void drawBlock(OdGiWorldDraw& worldDraw, OdDbObjectId blockId)
{
    OdDbStub* id = blockId;
    if (!id || !mayOpen(id))
        return;
    const OpenBlock opened(id);
    if (worldDraw.regenType() == kOdGiForExtents && state().drawn > kExactEntities)
        drawBox(worldDraw.geometry(), boxOf(blockId));
    else
        drawEntities(worldDraw, blockId, false);
}

} // namespace drawing

bool OdDbBlockTableRecord::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    assertReadEnabled();
    const drawing::OpenBlock opened(objectId());
    drawing::drawEntities(*worldDraw, objectId(), isLayout());
    return true;
}
