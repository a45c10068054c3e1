// The place where parts of a program that do not know each other leave objects for each other.
#pragma once

#include "RxDictionary.h"

/** The dictionary of the whole program; names are compared with regard to case. It is synchronised. It holds among
   others all registered classes ("ClassDictionary"). Never null. */
OdRxDictionary* odrxSysRegistry();
