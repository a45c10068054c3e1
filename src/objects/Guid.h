// GUIDs as text: 36 characters without braces.
#pragma once

#include "OdString.h"

/** True for the GUID of zeros, which stands for none. */
bool IsNullGuid(const OdString& strGuid);

/** A new GUID. */
OdString CreateGuid();
