// Implements the registering of the classes of the drawing interface.
#include "gi/GiClasses.h"

#include "Gi/GiDrawableOverrule.h"
#include "Gi/GiWorldDraw.h"
#include "rx/Layers.h"

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
}

void unregisterClasses()
{
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
