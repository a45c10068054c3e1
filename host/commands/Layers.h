// What layers say of the entities on them; each is looked at once.
#pragma once

#include <unordered_map>

#include "DbObjectId.h"

namespace hostcommands
{

struct LayerState
{
    bool isLocked = false;
};

class Layers
{
public:
    const LayerState& of(const OdDbObjectId& layer);

private:
    std::unordered_map<OdDbStub*, LayerState> m_states;
};

} // namespace hostcommands
