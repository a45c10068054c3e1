// Starting and ending the use of the SDK.
#pragma once

#include "RxSystemServices.h"

/** Registers all classes of the SDK and takes the services into use, or those that the SDK brings for null. Calls may
   be nested: only the first has an effect. Throws OdError when a class cannot be registered; the SDK is not initialised
    then. */
void odInitialize(OdRxSystemServices* systemServices = nullptr, OdUInt32 initFlags = 0);

/** Ends the use: unloads all modules and withdraws all classes. Only the call that matches the first odInitialize has
   an effect. No object of the SDK may be left, except plain values. */
void odUninitialize();

/** As odInitialize and odUninitialize, for the runtime classes alone: no database, no geometry. */
void odrxInitialize(OdRxSystemServices* systemServices = nullptr);
void odrxUninitialize();
