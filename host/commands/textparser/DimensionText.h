// The text of a dimension that has no block definition to show it.
#pragma once

#include "OdString.h"

class OdDbDimension;

namespace textparser
{

// The dimension's own text, in which "<>" stands for the measurement; the measurement when it has none.
OdString dimensionText(const OdDbDimension& dimension);

} // namespace textparser
