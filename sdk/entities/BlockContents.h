// What drawing wants to know of a block definition.
#pragma once

#include <functional>

#include "DbEntity.h"

namespace drawing
{

/// The point of the definition that references place; the origin when there is no such definition.
OdGePoint3d basePointOf(OdDbObjectId blockId);

/// Opens each entity of the definition that is not erased and hands it on until visit returns false. Returns false when
/// there is no such definition.
bool visitBlock(OdDbObjectId blockId, const std::function<bool(const OdDbEntity&)>& visit);

/// The same in the order in which the entities are drawn, which a table beside the block may change.
bool visitBlockAsDrawn(OdDbObjectId blockId, const std::function<bool(const OdDbEntity&)>& visit);

} // namespace drawing
