// Short names of the looks in force.
#pragma once

#include "Gi/GiSubEntityTraitsData.h"

namespace gi
{

using TraitValues = OdGiSubEntityTraitsData;
using Traits = OdGiSubEntityTraitsToData;

} // namespace gi
