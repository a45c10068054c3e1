// Lists of such values; they are declared with the values.
#pragma once

#include "Ge/GeVector3d.h"
