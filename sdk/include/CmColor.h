// Colours; all of them are declared together.
#pragma once

#include "CmColorBase.h"
