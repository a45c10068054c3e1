// How far that reaches what pictures show of a space.
#pragma once

#include <optional>

#include "DbObjectId.h"
#include "Ge/GeExtents2d.h"
#include "render/Recording.h"

namespace render
{

/// How far a space reaches.
struct SpaceBounds
{
    /// The box around all that is seen of a model or a sheet from above; invalid when nothing is. What lies absurdly
    /// far away does not count.
    OdGeExtents2d box;
    /// What the entities have told on the way, as far as they say the same when they are drawn. None when something
    /// other than them was drawn.
    std::optional<Recording> recording;
};

SpaceBounds boundsOf(const OdDbObjectId& blockId);

} // namespace render
