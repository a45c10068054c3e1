// What a dimension style says of arrows and lines, with what an object overrides of it.
#pragma once

#include "DbEntity.h"

namespace dimensionlooks
{

struct Looks
{
    double arrowSize = 0.0;          ///< in drawing units, the overall scale included
    OdDbStub* leaderArrow = nullptr; ///< the block of a leader's arrow, null for a filled triangle
    OdUInt16 lineColor = 0;          ///< 0 for the entity's own
};

/// The looks of an object of this style; those of a new drawing when there is no style. An object overrides groups of
/// its style in its extended data:
///
///   1001 "ACAD" ... 1000 "DSTYLE" 1002 "{" { 1070 code, value } 1002 "}"
Looks looksOf(const OdDbEntity& object, OdDbStub* style);

} // namespace dimensionlooks
