// Which entities of a space are seen as a whole, and of which only parts may be.
#pragma once

#include "select/LayerStates.h"

class OdDbEntity;

namespace picking
{

/// Entities whose parts may lie on layers of their own.
bool isMadeOfParts(const OdDbEntity& entity);

/// False for what is not seen whatever it draws: what is invisible, what lies on a frozen layer, and the viewport that
/// stands for the sheet itself.
bool maySee(const OdDbEntity& entity, LayerStates& layers);

} // namespace picking
