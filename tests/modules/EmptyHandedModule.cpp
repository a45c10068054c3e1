// A module that makes no module object.
#include "RxModule.h"

ODRX_MODULE_EXPORT OdRxModule* odrxCreateModuleObject(HINSTANCE)
{
    return nullptr;
}

ODRX_MODULE_EXPORT void odrxGetAPIVersion(int& majorVersion, int& minorVersion, int& majorBuild, int& minorBuild)
{
    majorVersion = TD_MAJOR_VERSION;
    minorVersion = TD_MINOR_VERSION;
    majorBuild = minorBuild = 0;
}
