// Moving, turning, mirroring and scaling of hatches, whose groups mean different things in different places.
#pragma once

#include "DbHatch.h"

namespace transform
{

/// Returns eOk, or eCannotScaleNonUniformly with nothing changed.
OdResult transformHatch(OdDbHatch& hatch, const OdGeMatrix3d& xform);

} // namespace transform
