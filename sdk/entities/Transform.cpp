// Implements the mapping of an entity's groups by their roles.
#include "entities/Transform.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "OdError.h"
#include "entities/EntityClasses.h"
#include "entities/Fields.h"
#include "entities/Ocs.h"
#include "entities/RoleWalker.h"

namespace transform
{

namespace
{

using oddb::GroupIterator;
using oddb::Groups;
using oddb::GroupsBuilder;
using oddb::GroupType;
using oddb::GroupView;

constexpr int kNormalCode = 210;
constexpr int kElevationCode = 38;
constexpr int kDirectionCode = 11;
constexpr double kTolerance = 1e-9;

/// The plane of an entity before and after.
struct Plane
{
    ocs::Frame before;
    ocs::Frame after;
};

Plane planeOf(const OdGeVector3d& normal, const OdGeMatrix3d& xform)
{
    Plane plane;
    plane.before = ocs::frameOf(normal);
    // The images of both axes, so that a mirrored shape keeps its sense of rotation about the new normal.
    plane.after = ocs::frameOf((xform * plane.before.x).crossProduct(xform * plane.before.y));
    return plane;
}

/// Degrees in the plane before to degrees in the plane after.
double mapAngle(double degrees, const Plane& plane, const OdGeMatrix3d& xform)
{
    const OdGeVector3d turned = xform * plane.before.direction(OdaToRadian(degrees));
    const double angle = OdaToDegree(plane.after.angleOf(turned));
    // A direction that stays is kept to the last digit, whole turns included.
    const double change = std::remainder(angle - degrees, 360.0);
    if (std::fabs(change) < kTolerance)
        return degrees;
    return angle < 0.0 ? angle + 360.0 : angle;
}

class Mapper
{
public:
    Mapper(const OdGeMatrix3d& xform, const Plane& plane) : m_xform(xform), m_plane(plane)
    {
        m_scale = (xform * plane.before.x).length();
        // A mirrored shape keeps its sense of rotation, so its normal turns round and what stands on it with it.
        m_heightScale = (xform * plane.before.z).dotProduct(plane.after.z);
    }

    Groups map(const Groups& groups);
    bool sawRoles() const { return m_sawRoles; }
    bool sawOnlyAnyMatrix() const { return m_onlyAnyMatrix; }

private:
    void enter(const GroupView& group);
    GroupIterator mapPoint(GroupIterator at, GroupIterator end, Role role);
    GroupIterator mapMatrix(GroupIterator at, GroupIterator end);
    void mapNumber(const GroupView& group, Role role);
    OdGePoint3d mapInPlane(const OdGePoint3d& point, bool flat) const;

    const OdGeMatrix3d& m_xform;
    const Plane& m_plane;
    double m_scale = 1.0;
    double m_heightScale = 1.0;
    double m_elevation = 0.0;
    RoleWalker m_walker;
    bool m_sawRoles = false;
    bool m_onlyAnyMatrix = true;
    GroupsBuilder m_out;
};

void Mapper::enter(const GroupView& group)
{
    if (!m_walker.enter(group) || !m_walker.section())
        return;
    m_sawRoles = true;
    m_onlyAnyMatrix = m_onlyAnyMatrix && m_walker.section()->anyMatrix;
}

OdGePoint3d Mapper::mapInPlane(const OdGePoint3d& point, bool flat) const
{
    const OdGePoint3d local = flat ? OdGePoint3d(point.x, point.y, m_elevation) : point;
    return m_plane.after.fromWorld(m_xform * m_plane.before.toWorld(local));
}

GroupIterator Mapper::mapPoint(GroupIterator at, GroupIterator end, Role role)
{
    const int code = at->code();
    const Coordinates value(at, end);
    OdGePoint3d result = value.point();
    if (role == Role::Place || role == Role::UnseenPlace)
        result = m_xform * value.point();
    else if (role == Role::Direction)
        result = OdGePoint3d() + m_xform * value.vector();
    else if (role == Role::PlaneDirection)
        result = OdGePoint3d() + m_plane.after.z;
    else if (role == Role::PlacePlane)
        result = mapInPlane(value.point(), value.count == 2);
    else if (role == Role::ElevationPoint)
        result.z = mapInPlane(OdGePoint3d(0.0, 0.0, result.z), false).z;
    const double coordinates[3] = {result.x, result.y, result.z};
    for (int i = 0; i < value.count; ++i)
        m_out.real(code + 10 * i, coordinates[i]);
    return at;
}

GroupIterator Mapper::mapMatrix(GroupIterator at, GroupIterator end)
{
    constexpr int kNumbers = 16;
    const int code = at->code();
    OdGeMatrix3d matrix;
    GroupIterator behind = at;
    for (int i = 0; i < kNumbers; ++i, ++behind)
    {
        if (behind == end || behind->code() != code)
        {
            m_out.append(*at);
            return ++at;
        }
        matrix[i / 4][i % 4] = behind->real();
    }
    matrix = m_xform * matrix;
    for (int i = 0; i < kNumbers; ++i)
        m_out.real(code, matrix[i / 4][i % 4]);
    return behind;
}

void Mapper::mapNumber(const GroupView& group, Role role)
{
    double value = group.real();
    if (role == Role::Length)
        value *= m_scale;
    else if (role == Role::Thickness)
        value *= m_heightScale;
    else if (role == Role::Elevation)
        value = mapInPlane(OdGePoint3d(0.0, 0.0, value), false).z;
    else
        value = mapAngle(value, m_plane, m_xform);
    m_out.real(group.code(), value);
}

bool isPointRole(Role role)
{
    return role == Role::Place || role == Role::UnseenPlace || role == Role::Direction ||
           role == Role::PlaneDirection || role == Role::PlacePlane || role == Role::ElevationPoint;
}

Groups Mapper::map(const Groups& groups)
{
    if (const auto elevation = groups.findAny(kElevationCode))
        m_elevation = elevation->real();
    for (GroupIterator at = groups.begin(); at != groups.end();)
    {
        enter(*at);
        const RoleRow* row = m_walker.roleOf(*at);
        if (!row)
        {
            m_out.append(*at);
            ++at;
        }
        else if (row->role == Role::Matrix)
            at = mapMatrix(at, groups.end());
        else if (isPointRole(row->role))
            at = mapPoint(at, groups.end(), row->role);
        else
        {
            mapNumber(*at, row->role);
            ++at;
        }
    }
    return m_out.finish();
}

/// The subclass of the class that lists the code, null when none does.
const oddb::DxfSubclass* subclassWith(const oddb::DxfClass& dxfClass, const Groups& groups, int code)
{
    for (const oddb::DxfSubclass* subclass : dxfClass.subclasses)
    {
        const oddb::DxfRow* row = subclass->row(code);
        if (row && row->code == code && groups.hasSection(subclass->atom()))
            return subclass;
    }
    return nullptr;
}

bool hasDirection(const RoleSection& section)
{
    return std::any_of(section.rows.begin(), section.rows.end(),
                       [](const RoleRow& row) { return row.code == kDirectionCode && row.role == Role::Direction; });
}

/// The subclass whose angle is missing and was zero; null when the class has no such angle or gives it otherwise.
const oddb::DxfSubclass* missingTurn(const oddb::DxfClass& dxfClass, const Groups& groups, int& code)
{
    for (const oddb::DxfSubclass* subclass : dxfClass.subclasses)
    {
        const RoleSection* section = findRoles(subclass->marker, "");
        for (const RoleRow& row : section ? section->rows : std::span<const RoleRow>())
        {
            if (row.role != Role::TurnPlane || groups.find(subclass->atom(), row.code))
                continue;
            code = row.code;
            return hasDirection(*section) && groups.find(subclass->atom(), kDirectionCode) ? nullptr : subclass;
        }
    }
    return nullptr;
}

/// Groups that stood for their default by being absent and now have another value.
Groups withMissing(Groups groups, const OdDbEntity& entity, const Plane& plane, const OdGeMatrix3d& xform)
{
    const oddb::DxfClass& dxfClass = entityfields::classOf(entity);
    const OdGeVector3d& z = plane.after.z;
    const oddb::DxfSubclass* subclass = subclassWith(dxfClass, groups, kNormalCode);
    if (subclass && !groups.findAny(kNormalCode) && (z.x != 0.0 || z.y != 0.0 || z.z <= 0.0))
        groups = oddb::withPoint(groups, dxfClass, *subclass, kNormalCode, {z.x, z.y, z.z});
    subclass = subclassWith(dxfClass, groups, kElevationCode);
    const double elevation = plane.after.fromWorld(xform * OdGePoint3d()).z;
    if (subclass && !groups.findAny(kElevationCode) && elevation != 0.0)
        groups = oddb::withReal(groups, dxfClass, *subclass, kElevationCode, elevation);
    int turnCode = 0;
    const oddb::DxfSubclass* turning = missingTurn(dxfClass, groups, turnCode);
    const double turn = mapAngle(0.0, plane, xform);
    if (turning && turn != 0.0)
        groups = oddb::withReal(groups, dxfClass, *turning, turnCode, turn);
    return groups;
}

/// Sets mapped only for eOk.
OdResult mapGroups(const OdDbEntity& entity, const Plane& plane, const OdGeMatrix3d& xform, Groups& mapped)
{
    Mapper mapper(xform, plane);
    Groups result = mapper.map(entityfields::groupsOf(entity));
    if (!mapper.sawRoles())
        return eNotImplementedYet;
    if (!mapper.sawOnlyAnyMatrix() && !isSimilarity(xform))
        return eCannotScaleNonUniformly;
    mapped = std::move(result);
    return eOk;
}

OdResult mapGroups(OdDbEntity& entity, const Plane& plane, const OdGeMatrix3d& xform)
{
    Groups mapped;
    if (const OdResult result = mapGroups(entity, plane, xform, mapped); result != eOk)
        return result;
    if (entityclasses::classOf(entity.isA()))
        mapped = withMissing(std::move(mapped), entity, plane, xform);
    oddb::ObjectCore::changeGroups(entity, std::move(mapped));
    return eOk;
}

double relativeDot(const OdGeVector3d& a, const OdGeVector3d& b)
{
    return std::fabs(a.dotProduct(b)) / (a.length() * b.length());
}

void axesOf(const OdGeMatrix3d& xform, OdGeVector3d& x, OdGeVector3d& y, OdGeVector3d& z)
{
    x = xform * OdGeVector3d(1.0, 0.0, 0.0);
    y = xform * OdGeVector3d(0.0, 1.0, 0.0);
    z = xform * OdGeVector3d(0.0, 0.0, 1.0);
}

} // namespace

OdGeVector3d normalOf(const Groups& groups)
{
    for (GroupIterator at = groups.begin(); at != groups.end(); ++at)
    {
        if (at->code() != kNormalCode)
            continue;
        double z[3] = {0.0, 0.0, 0.0};
        for (int i = 0; i < 3 && at != groups.end() && at->code() == kNormalCode + 10 * i; ++i, ++at)
            z[i] = at->real();
        return OdGeVector3d(z[0], z[1], z[2]);
    }
    return OdGeVector3d(0.0, 0.0, 1.0);
}

bool areOrthogonal(const OdGeVector3d& x, const OdGeVector3d& y, const OdGeVector3d& z)
{
    if (x.length() == 0.0 || y.length() == 0.0 || z.length() == 0.0)
        return false;
    return relativeDot(x, y) < kTolerance && relativeDot(y, z) < kTolerance && relativeDot(x, z) < kTolerance;
}

bool isSimilarity(const OdGeMatrix3d& xform)
{
    OdGeVector3d x, y, z;
    axesOf(xform, x, y, z);
    const double scale = x.length();
    return areOrthogonal(x, y, z) && std::fabs(y.length() - scale) <= kTolerance * scale &&
           std::fabs(z.length() - scale) <= kTolerance * scale;
}

bool isTranslation(const OdGeMatrix3d& xform)
{
    for (int row = 0; row < 3; ++row)
    {
        for (int column = 0; column < 3; ++column)
        {
            if (xform[row][column] != (row == column ? 1.0 : 0.0))
                return false;
        }
    }
    return true;
}

OdResult transformGroups(OdDbEntity& entity, const OdGeMatrix3d& xform)
{
    return mapGroups(entity, planeOf(normalOf(entityfields::groupsOf(entity)), xform), xform);
}

OdResult transformGroupsInPlane(OdDbEntity& entity, const OdGeVector3d& normal, const OdGeMatrix3d& xform)
{
    return mapGroups(entity, planeOf(normal, xform), xform);
}

OdResult checkGroupsInPlane(const OdDbEntity& entity, const OdGeVector3d& normal, const OdGeMatrix3d& xform)
{
    Groups mapped;
    return mapGroups(entity, planeOf(normal, xform), xform, mapped);
}

} // namespace transform
