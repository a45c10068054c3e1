// The plane of what a user looks at: shapes on the screen are shapes in it, whatever lies behind whatever.
#pragma once

#include "DbObjectId.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"

namespace picking
{

/// Two axes at right angles, to the right and upwards, in world coordinates.
struct ViewPlane
{
    OdGeVector3d right{1.0, 0.0, 0.0};
    OdGeVector3d up{0.0, 1.0, 0.0};

    OdGePoint2d at(const OdGePoint3d& world) const
    {
        const OdGeVector3d from = world.asVector();
        return {right.dotProduct(from), up.dotProduct(from)};
    }
    OdGeVector2d along(const OdGeVector3d& world) const { return {right.dotProduct(world), up.dotProduct(world)}; }
    bool operator==(const ViewPlane& other) const;
};

/// What a viewport shows: a space, seen in a plane, over a height in drawing units (0 when it is not known).
struct ViewedSpace
{
    OdDbObjectId block;
    ViewPlane plane;
    double height = 0.0;
};

/// viewportId is a record of the viewport table, which shows the model, or a viewport of a sheet or its layout, which
/// show the sheet, straight from above. Throws OdError: eNullObjectId, eNotApplicable for an object of another kind.
ViewedSpace viewedThrough(const OdDbObjectId& viewportId);

} // namespace picking
