// The outline that an entity draws, as a path on a page.
#pragma once

#include "DbEntity.h"
#include "render/PageMap.h"
#include "render/Path.h"

namespace render
{

/// Lines and curves that follow each other, closed; empty when the entity draws none.
Path collectOutline(const OdDbEntity& entity, const PageMap& map);

} // namespace render
