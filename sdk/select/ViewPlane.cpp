// Finds what a viewport shows and in which plane.
#include "select/ViewPlane.h"

#include <cmath>

#include "DbDatabase.h"
#include "DbLayout.h"
#include "DbViewport.h"
#include "DbViewportTableRecord.h"
#include "OdError.h"

namespace picking
{

namespace
{

bool isSame(const OdGeVector3d& first, const OdGeVector3d& second)
{
    return first.x == second.x && first.y == second.y && first.z == second.z;
}

/// The plane at right angles to the direction, with the axes that drawings use for planes in space, turned by the
/// twist.
ViewPlane planeFacing(const OdGeVector3d& direction, double twist)
{
    const double length = direction.length();
    const bool isUsable = std::isfinite(length) && length > 0.0;
    const OdGeVector3d towardsEye = isUsable ? direction / length : OdGeVector3d(0.0, 0.0, 1.0);
    const OdGeVector3d right = towardsEye.perpVector();
    const OdGeVector3d up = towardsEye.crossProduct(right);
    const double turn = std::isfinite(twist) ? twist : 0.0;
    if (turn == 0.0)
        return {right, up};
    const double cosine = std::cos(turn);
    const double sine = std::sin(turn);
    return {right * cosine - up * sine, right * sine + up * cosine};
}

} // namespace

bool ViewPlane::operator==(const ViewPlane& other) const
{
    return isSame(right, other.right) && isSame(up, other.up);
}

ViewedSpace viewedThrough(const OdDbObjectId& viewportId)
{
    const OdDbObjectPtr object = viewportId.safeOpenObject();
    if (const OdDbViewportTableRecordPtr view = OdDbViewportTableRecord::cast(object); !view.isNull())
        return {object->database()->getModelSpaceId(), planeFacing(view->viewDirection(), view->viewTwist()),
                view->height()};
    if (const OdDbViewportPtr viewport = OdDbViewport::cast(object); !viewport.isNull())
        return {viewport->ownerId(), ViewPlane(), viewport->height()};
    if (const OdDbLayoutPtr layout = OdDbLayout::cast(object); !layout.isNull())
        return {layout->getBlockTableRecordId(), ViewPlane(), 0.0};
    throw OdError(eNotApplicable, OdString(L"a selection needs a viewport to look through"));
}

} // namespace picking
