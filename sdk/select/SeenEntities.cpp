// Looks at what entities say of themselves, and asks those that are made of parts to draw them.
#include "select/SeenEntities.h"

#include "DbBlockReference.h"
#include "DbDimension.h"
#include "DbShownEntities.h"
#include "DbViewport.h"
#include "entities/BlockClip.h"
#include "select/HitTester.h"

namespace picking
{

namespace
{

bool isSheet(const OdDbEntity& entity)
{
    const OdDbViewportPtr viewport = OdDbViewport::cast(&entity);
    return !viewport.isNull() && viewport->number() == 1;
}

} // namespace

bool isMadeOfParts(const OdDbEntity& entity)
{
    return entity.isKindOf(OdDbBlockReference::desc()) || entity.isKindOf(OdDbDimension::desc());
}

bool maySee(const OdDbEntity& entity, LayerStates& layers)
{
    return entity.visibility() == OdDb::kVisible && !layers.of(entity.layerId()).isFrozen && !isSheet(entity);
}

} // namespace picking

struct OdDbShownEntities::Looks
{
    bool isDrawn(const OdDbEntity& entity)
    {
        const picking::Answer& answer = tester.test(entity);
        return answer.isDrawn || answer.isIncomplete;
    }

    // References to one block show the same of it, but for clips and for the state of their layer, which what lies on
    // layer "0" in the block takes over. Attributes are each reference's own.
    bool isDrawn(const OdDbBlockReference& reference)
    {
        if (drawing::clipOf(reference))
            return isDrawn(static_cast<const OdDbEntity&>(reference));
        auto& blocks = layers.of(reference.layerId()).isOff ? ofLayersThatAreOff : ofLayersThatAreOn;
        OdDbStub* const block = reference.blockTableRecord();
        const auto known = blocks.find(block);
        const bool isPlain = reference.attributeIterator()->done();
        if (known != blocks.end() && (known->second || isPlain))
            return known->second;
        const bool isSeen = isDrawn(static_cast<const OdDbEntity&>(reference));
        if (isPlain)
            blocks.emplace(block, isSeen);
        return isSeen;
    }

    picking::LayerStates layers;
    const picking::Shape anywhere = picking::Shape::rectangle({0.0, 0.0}, {0.0, 0.0});
    const picking::ViewPlane plane = {};
    OdStaticRxObject<picking::HitTester> tester{picking::Question::kIsDrawn, anywhere, plane, layers};
    std::unordered_map<OdDbStub*, bool> ofLayersThatAreOn; ///< whether anything is drawn of a block
    std::unordered_map<OdDbStub*, bool> ofLayersThatAreOff;
};

OdDbShownEntities::OdDbShownEntities() : m_looks(std::make_unique<Looks>()) {}

OdDbShownEntities::~OdDbShownEntities() = default;

bool OdDbShownEntities::isShown(const OdDbEntity& entity)
{
    if (!picking::maySee(entity, m_looks->layers))
        return false;
    if (const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(&entity); !reference.isNull())
        return m_looks->isDrawn(*reference);
    return picking::isMadeOfParts(entity) ? m_looks->isDrawn(entity) : m_looks->layers.of(entity.layerId()).isShown();
}
