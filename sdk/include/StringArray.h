// Lists of texts.
#pragma once

#include "OdArray.h"
#include "OdString.h"

using OdStringArray = OdArray<OdString>;
