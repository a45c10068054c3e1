// Implements the registering of the classes of the drawing interface.
#include "gi/GiClasses.h"

#include "Gi/GiDrawableOverrule.h"
#include "Gi/GiRasterImage.h"
#include "Gi/GiWorldDraw.h"
#include "Gs/Gs.h"
#include "RxRasterServices.h"
#include "rx/Layers.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdGiRasterImage, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdRxRasterServices, OdRxModule)
ODRX_NO_CONS_DEFINE_MEMBERS(OdGsModel, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdGsView, OdRxObject)

namespace gi
{

void registerClasses()
{
    OdGiDrawable::rxInit();
    OdGiDrawableTraits::rxInit();
    OdGiSubEntityTraits::rxInit();
    OdGiGeometry::rxInit();
    OdGiWorldDraw::rxInit();
    OdGiDrawableOverrule::rxInit();
    OdGsModel::rxInit();
    OdGsView::rxInit();
    OdGiRasterImage::rxInit();
    OdRxRasterServices::rxInit();
}

void unregisterClasses()
{
    OdRxRasterServices::rxUninit();
    OdGiRasterImage::rxUninit();
    OdGsView::rxUninit();
    OdGsModel::rxUninit();
    OdGiDrawableOverrule::rxUninit();
    OdGiWorldDraw::rxUninit();
    OdGiGeometry::rxUninit();
    OdGiSubEntityTraits::rxUninit();
    OdGiDrawableTraits::rxUninit();
    OdGiDrawable::rxUninit();
}

namespace
{

const odlayers::Registration kLayer(odlayers::kDrawing, &registerClasses, &unregisterClasses);

} // namespace

} // namespace gi
