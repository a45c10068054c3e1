// Lists of numbers.
#pragma once

#include "OdArray.h"

using OdGeDoubleArray = OdArray<double, OdMemoryAllocator<double>>;
