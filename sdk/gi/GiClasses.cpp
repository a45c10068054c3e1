// Implements the registering of the classes of the drawing interface.
#include "gi/GiClasses.h"

#include "Gi/GiDrawableOverrule.h"
#include "Gi/GiRasterImage.h"
#include "Gi/GiWorldDraw.h"
#include "Gs/Gs.h"
#include "RxRasterServices.h"
#include "rx/ClassRows.h"
#include "rx/Layers.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdGiRasterImage, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdRxRasterServices, OdRxModule)
ODRX_NO_CONS_DEFINE_MEMBERS(OdGsModel, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdGsView, OdRxObject)

namespace gi
{

namespace
{

constexpr auto kClasses =
    odlayers::rowsOf<OdGiDrawable, OdGiDrawableTraits, OdGiSubEntityTraits, OdGiGeometry, OdGiWorldDraw,
                     OdGiDrawableOverrule, OdGsModel, OdGsView, OdGiRasterImage, OdRxRasterServices>();

} // namespace

void registerClasses()
{
    odlayers::startClasses(kClasses);
}

void unregisterClasses()
{
    odlayers::endClasses(kClasses);
}

namespace
{

const odlayers::Registration kLayer(odlayers::kDrawing, &registerClasses, &unregisterClasses);

} // namespace

} // namespace gi
