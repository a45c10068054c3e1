// Goes through the given entities and the blocks that they use, and puts all texts and frames into the layout's plane.
#pragma once

#include "DbObjectId.h"
#include "commands/textparser/FoundTexts.h"

namespace textparser
{

// Throws OdError(eOutOfRange) when blocks within blocks amount to more than can be drawn.
FoundTexts placeTexts(const OdDbObjectIdArray& entities);

} // namespace textparser
