// Moving, turning, mirroring and scaling of entities by tables: each group that holds a place, a direction, a length or
// an angle is listed with its role, and one walk over the groups maps them all.
#pragma once

#include "DbEntity.h"
#include "Ge/GeMatrix3d.h"
#include "db/Groups.h"

namespace transform
{

/// Maps the groups of an entity that is open for write. Returns eOk, eCannotScaleNonUniformly, or eNotImplementedYet
/// for a class without roles; nothing is changed then.
OdResult transformGroups(OdDbEntity& entity, const OdGeMatrix3d& xform);

/// As transformGroups, for an entity whose flat points lie in the plane of another one: a vertex of a flat polyline.
OdResult transformGroupsInPlane(OdDbEntity& entity, const OdGeVector3d& normal, const OdGeMatrix3d& xform);

/// What transformGroupsInPlane would return.
OdResult checkGroupsInPlane(const OdDbEntity& entity, const OdGeVector3d& normal, const OdGeMatrix3d& xform);

/// Maps what the extended data of an entity says of places (1011), displacements (1012), directions (1013), distances
/// (1041) and factors (1042). A change that is recorded.
void transformXData(OdDbEntity& entity, const OdGeMatrix3d& xform);

/// True when no two of the vectors are skew to each other and none is zero.
bool areOrthogonal(const OdGeVector3d& x, const OdGeVector3d& y, const OdGeVector3d& z);

/// True for a matrix that scales all directions alike.
bool isSimilarity(const OdGeMatrix3d& xform);

/// True for a matrix that only moves.
bool isTranslation(const OdGeMatrix3d& xform);

/// The normal among the groups, the world's z axis when there is none.
OdGeVector3d normalOf(const oddb::Groups& groups);

} // namespace transform
