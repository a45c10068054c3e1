// Goes through the given entities and the blocks that they use, and puts all texts and frames into the layout's plane.
#include "commands/textparser/PlaceTexts.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "OdError.h"
#include "commands/textparser/BlockContent.h"

namespace textparser
{

namespace
{

constexpr std::size_t kDeepestNesting = 100;
constexpr std::size_t kMostPlacements = 5'000'000; // within blocks

OdGePoint2d flatten(const OdGePoint3d& point)
{
    return OdGePoint2d(point.x, point.y);
}

OdGeVector2d flatten(const OdGeVector3d& vector)
{
    return OdGeVector2d(vector.x, vector.y);
}

Box boxOf(const Place& place, const OdGeMatrix3d& toLayout)
{
    return Box{flatten(toLayout * place.center), flatten(toLayout * place.along), flatten(toLayout * place.across)};
}

bool isFinite(const Box& box)
{
    return std::isfinite(box.left()) && std::isfinite(box.halfWidth()) && std::isfinite(box.bottom()) &&
           std::isfinite(box.halfHeight());
}

// A circle stretched by its block is an oval, and the other way round.
FrameKind kindOfEllipse(const Frame& frame)
{
    const double along = std::hypot(frame.along.x, frame.along.y);
    const double across = std::hypot(frame.across.x, frame.across.y);
    const double product = frame.along.x * frame.across.x + frame.along.y * frame.across.y;
    const double tolerance = 1e-4 * std::max(along, across);
    const bool isCircle = std::abs(along - across) <= tolerance && std::abs(product) <= tolerance * along;
    return isCircle ? FrameKind::kCircle : FrameKind::kOval;
}

class Placer
{
public:
    explicit Placer(FoundTexts& found) : m_found(found) {}

    void placeEntities(const OdDbObjectIdArray& entities)
    {
        const BlockContent content = m_reader.readEntities(entities);
        placeScope(content, {}, OdGeMatrix3d::kIdentity, OdGeMatrix3d::kIdentity);
    }

private:
    struct Definition
    {
        BlockContent content;
        bool isOpen = false; // it is being read or placed: what it holds of itself is not followed
        bool hasTexts = true;
    };

    // Places a content with the attributes of the reference that draws it.
    void placeScope(const BlockContent& content, const std::vector<PlacedText>& attributes,
                    const OdGeMatrix3d& ownerToLayout, const OdGeMatrix3d& toLayout)
    {
        Scope scope;
        scope.firstText = m_found.texts.size();
        for (const PlacedText& attribute : attributes)
            placeText(attribute, ownerToLayout);
        for (const PlacedText& text : content.texts)
            placeText(text, toLayout);
        for (const PlacedBlock& block : content.blocks)
            placeBlock(block, toLayout);
        scope.endText = m_found.texts.size();
        if (scope.firstText == scope.endText)
            return;
        for (const PlacedFrame& frame : content.frames)
            placeFrame(frame, toLayout, scope);
        if (!scope.frames.empty())
            m_found.scopes.push_back(std::move(scope));
    }

    void placeText(const PlacedText& text, const OdGeMatrix3d& toLayout)
    {
        countPlacement();
        const Box box = boxOf(text.place, toLayout);
        if (isFinite(box))
            m_found.texts.push_back(FoundText{text.characters, box});
    }

    void placeFrame(const PlacedFrame& placed, const OdGeMatrix3d& toLayout, Scope& scope)
    {
        countPlacement();
        const Box box = boxOf(placed.place, toLayout);
        if (!isFinite(box))
            return;
        Frame frame;
        frame.kind = placed.kind;
        frame.outline = placed.outline;
        frame.center = box.center;
        frame.along = box.along;
        frame.across = box.across;
        if (frame.outline == Frame::kEllipse)
            frame.kind = kindOfEllipse(frame);
        scope.frames.push_back(frame);
    }

    void placeBlock(const PlacedBlock& block, const OdGeMatrix3d& toLayout)
    {
        Definition& definition = definitionOf(block.block);
        const bool isFollowed = !definition.isOpen && definition.hasTexts && m_depth < kDeepestNesting;
        if (!isFollowed)
        {
            placeScope(BlockContent(), block.attributes, toLayout, toLayout);
            return;
        }
        definition.isOpen = true;
        ++m_depth;
        placeCells(block, definition.content, toLayout);
        --m_depth;
        definition.isOpen = false;
    }

    void placeCells(const PlacedBlock& block, const BlockContent& content, const OdGeMatrix3d& toLayout)
    {
        for (std::size_t row = 0; row < block.rows; ++row)
        {
            for (std::size_t column = 0; column < block.columns; ++column)
            {
                countPlacement();
                const bool isFirst = row == 0 && column == 0;
                const OdGeVector3d step = block.columnStep * double(column) + block.rowStep * double(row);
                const OdGeMatrix3d cell = toLayout * OdGeMatrix3d::translation(step) * block.transform;
                placeScope(content, isFirst ? block.attributes : std::vector<PlacedText>(), toLayout, cell);
            }
        }
    }

    Definition& definitionOf(OdDbObjectId block)
    {
        const auto [entry, isNew] = m_definitions.try_emplace(block);
        Definition& definition = entry->second;
        if (!isNew)
            return definition;
        definition.content = m_reader.readDefinition(block);
        definition.isOpen = true;
        ++m_depth;
        definition.hasTexts = holdsTexts(definition.content);
        --m_depth;
        definition.isOpen = false;
        return definition;
    }

    bool holdsTexts(const BlockContent& content)
    {
        if (!content.texts.empty() || m_depth >= kDeepestNesting)
            return true;
        const auto holdsText = [this](const PlacedBlock& block)
        {
            if (!block.attributes.empty())
                return true;
            const Definition& definition = definitionOf(block.block);
            return definition.isOpen || definition.hasTexts;
        };
        return std::any_of(content.blocks.begin(), content.blocks.end(), holdsText);
    }

    void countPlacement()
    {
        if (m_depth != 0 && ++m_placements > kMostPlacements)
            throw OdError(eOutOfRange, OdString(L"blocks within blocks amount to more texts than can be gathered"));
    }

    struct IdHash
    {
        std::size_t operator()(const OdDbObjectId& id) const
        {
            return std::hash<const void*>()(static_cast<OdDbStub*>(id));
        }
    };

    FoundTexts& m_found;
    ContentReader m_reader;
    std::unordered_map<OdDbObjectId, Definition, IdHash> m_definitions; // references to its values stay good
    std::size_t m_depth = 0;
    std::size_t m_placements = 0;
};

} // namespace

FoundTexts placeTexts(const OdDbObjectIdArray& entities)
{
    FoundTexts found;
    Placer(found).placeEntities(entities);
    return found;
}

} // namespace textparser
