// Draws the lines of trackers.
#include "Gi/GiGeometry.h"
#include "Gi/GiSubEntityTraits.h"
#include "Gi/GiWorldDraw.h"
#include "RxObjectImpl.h"
#include "Trackers.h"
#include "module/ground/ModuleName.h"

ODRX_DXF_DEFINE_MEMBERS(CTracker, OdRxObject, RXIMPL_CONSTR, 33, 55, 0, L"CTRACKER", kModuleName)

OdUInt32 CTracker::subSetAttributes(OdGiDrawableTraits* traits) const
{
    if (const OdSmartPtr<OdGiSubEntityTraits> pTraits = OdGiSubEntityTraits::cast(traits))
        pTraits->setColor(OdCmEntityColor::kACIforeground);
    return kDrawableNone;
}

bool CTracker::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    for (const OdGePoint3dArray& line : m_lines)
        worldDraw->geometry().polyline(static_cast<OdInt32>(line.size()), line.asArrayPtr());
    return true;
}
