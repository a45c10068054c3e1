// What the layers of a drawing show; each is looked at once.
#pragma once

#include <unordered_map>

#include "DbObjectId.h"

namespace picking
{

struct LayerState
{
    bool isOff = false;
    bool isFrozen = false;

    bool isShown() const { return !isOff && !isFrozen; }
};

class LayerStates
{
public:
    /// The state of a layer; that of an unknown one is to be shown.
    const LayerState& of(OdDbStub* layer);

private:
    std::unordered_map<OdDbStub*, LayerState> m_states;
    OdDbStub* m_last = nullptr; // entities that follow each other mostly lie on the same layer
    const LayerState* m_lastState = nullptr;
};

} // namespace picking
