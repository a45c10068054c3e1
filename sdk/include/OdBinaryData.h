// A piece of bytes.
#pragma once

#include "OdArray.h"

using OdBinaryData = OdArray<OdUInt8, OdMemoryAllocator<OdUInt8>>;
