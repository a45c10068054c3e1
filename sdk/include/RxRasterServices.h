// The module that reads pictures.
#pragma once

#include "Gi/GiRasterImage.h"
#include "OdString.h"
#include "RxModule.h"

/** The name that the module is loaded by. */
#define RX_RASTER_SERVICES_APPNAME L"RxRasterServices"

/** The OdRxRasterServices are the module object: OdRxRasterServices::cast(odrxDynamicLinker()->loadApp(
    RX_RASTER_SERVICES_APPNAME, false)). */
class OdRxRasterServices : public OdRxModule
{
public:
    ODRX_DECLARE_MEMBERS(OdRxRasterServices);

    /** The picture in a PNG, JPEG, BMP, GIF or TIFF file; what it is the file itself says, not its name. Of several
        pictures in a file it is the first. Throws OdError_FileNotFound when there is no such file,
       OdError_CantOpenFile, with the reason, for one that cannot be read or holds no such picture. */
    virtual OdGiRasterImagePtr loadRasterImage(const OdString& fileName) = 0;
};
using OdRxRasterServicesPtr = OdSmartPtr<OdRxRasterServices>;
