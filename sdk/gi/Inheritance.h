// What looks "by layer" and "by block" come to: the looks of layers, and of the block references around what is drawn.
#pragma once

#include <unordered_map>
#include <vector>

#include "gi/Traits.h"

namespace gi
{

/// What a layer gives to what is on it.
struct LayerLooks
{
    OdCmEntityColor color;
    OdDbStub* linetype = nullptr; ///< null for one without pattern
    OdDb::LineWeight lineWeight = OdDb::kLnWtByLwDefault;
    OdCmTransparency transparency;
    bool isOff = false;
    bool isFrozen = false;
};

class Inheritance
{
public:
    /// The looks of what comes next, until leave, are within a drawable of these looks.
    void enter(const TraitValues& outer);
    void leave();
    bool isNested() const { return !m_outer.empty(); }

    /// The layer of what names this one: that of the block reference around for layer "0".
    OdDbStub* layerOf(OdDbStub* layer);

    /// The values with nothing by layer and by block; their layer is taken as it is.
    const TraitValues& effective(const Traits& traits);

    const LayerLooks& looksOf(OdDbStub* layer);

private:
    enum class Linetype
    {
        kByLayer,
        kByBlock,
        kPlain,
        kPattern
    };

    struct Outer
    {
        TraitValues values;
        bool isResolved = false;
    };

    const TraitValues& outer();
    void resolve(TraitValues& values, const TraitValues* outer);
    Linetype kindOf(OdDbStub* linetype);

    std::vector<Outer> m_outer; ///< what is being drawn, outermost first
    std::unordered_map<OdDbStub*, LayerLooks> m_layers;
    OdDbStub* m_lastLayer = nullptr; ///< most of what is drawn is on the layer of what was drawn before
    const LayerLooks* m_lastLooks = nullptr;
    std::unordered_map<OdDbStub*, Linetype> m_linetypes;
    std::unordered_map<OdDbStub*, bool> m_layerZeros;
    TraitValues m_effective;
    OdUInt64 m_effectiveAt = 0;
    std::size_t m_effectiveDepth = 0;
    bool m_isKept = false;
};

} // namespace gi
