// Selecting by shapes on the screen.
#include "DbSSet.h"
#include "OdError.h"

OdSmartPtr<OdDbSelectionSet> OdDbSelectionSet::select(const OdDbObjectId&, int, const OdGePoint3d*,
                                                      OdDbVisualSelection::Mode,
                                                      OdDbVisualSelection::SubentSelectionMode, const OdRxObject*)
{
    throw OdError(eNotImplementedYet);
}
