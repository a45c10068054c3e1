// A module that was built for an earlier version of the SDK.
#include "RxModule.h"

ODRX_MODULE_EXPORT OdRxModule* odrxCreateModuleObject(HINSTANCE)
{
    return nullptr;
}

ODRX_MODULE_EXPORT void odrxGetAPIVersion(int& majorVersion, int& minorVersion, int& majorBuild, int& minorBuild)
{
    majorVersion = 21;
    minorVersion = 2;
    majorBuild = minorBuild = 0;
}
