// What extended data says of the place of its entity goes with the entity.
#include <cmath>

#include "db/ObjectCore.h"
#include "db/XData.h"
#include "entities/RoleWalker.h"
#include "entities/Transform.h"

namespace transform
{

namespace
{

using oddb::GroupIterator;
using oddb::Groups;
using oddb::GroupsBuilder;
using oddb::GroupType;

enum Code
{
    kPlace = 1011,
    kDisplacement = 1012,
    kDirection = 1013,
    kDistance = 1041,
    kFactor = 1042
};

bool isPoint(int code)
{
    return code == kPlace || code == kDisplacement || code == kDirection;
}

bool isLength(int code)
{
    return code == kDistance || code == kFactor;
}

/// How much longer lengths become on the average of all directions.
double scaleOf(const OdGeMatrix3d& xform)
{
    return std::cbrt(std::fabs(xform.det()));
}

OdGePoint3d mapped(int code, const Coordinates& value, const OdGeMatrix3d& xform)
{
    if (code == kPlace)
        return xform * value.point();
    OdGeVector3d vector = xform * value.vector();
    const double length = vector.length();
    if (code == kDirection && length > 0.0)
        vector = vector * (value.vector().length() / length);
    return OdGePoint3d() + vector;
}

Groups mapped(const Groups& values, const OdGeMatrix3d& xform)
{
    GroupsBuilder builder;
    for (GroupIterator at = values.begin(); at != values.end();)
    {
        const int code = at->code();
        if (at->type() != GroupType::Real || !(isPoint(code) || isLength(code)))
        {
            builder.append(*at);
            ++at;
        }
        else if (isLength(code))
        {
            builder.real(code, at->real() * scaleOf(xform));
            ++at;
        }
        else
        {
            const OdGePoint3d point = mapped(code, Coordinates(at, values.end()), xform);
            builder.point(code, point.x, point.y, point.z);
        }
    }
    return builder.build();
}

} // namespace

void transformXData(OdDbEntity& entity, const OdGeMatrix3d& xform)
{
    const oddb::ObjectExtras* extras = oddb::ObjectCore::extras(entity);
    if (!extras)
        return;
    for (std::size_t i = 0; i < extras->xdata.size(); ++i)
    {
        const oddb::XDataEntry entry = extras->xdata[i];
        const Groups values = mapped(entry.values, xform);
        if (!(values == entry.values))
            oddb::changeXData(entity, {entry.application, values});
    }
}

} // namespace transform
