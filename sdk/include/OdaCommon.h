// What nearly every source of the SDK and of its users needs: basic types, results, strings, errors, runtime objects.
#pragma once

#include "OdError.h"
#include "OdPlatform.h"
#include "OdResult.h"
#include "OdString.h"
#include "OdaDefs.h"
#include "RxObject.h"
#include "SmartPtr.h"
