// Short names of the classes that clients of shapes within the SDK derive from.
#pragma once

#include "Gi/GiBaseVectorizer.h"
#include "Gi/GiGeometrySimplifier.h"

namespace gi
{

using Geometry = OdGiGeometrySimplifier;
using WorldDraw = OdGiBaseVectorizer;

} // namespace gi
