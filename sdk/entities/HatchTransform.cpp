// Implements the mapping of a hatch. Its groups are walked once; where the walk stands (in front of the loops, in a
// loop, in an edge, behind the loops) decides what a code means. The map is one of the plane: a turn, a factor and an
// offset, for the new plane is chosen so that nothing is mirrored within it.
#include "entities/HatchTransform.h"

#include <cmath>

#include "entities/Fields.h"
#include "entities/HatchLoops.h"
#include "entities/Ocs.h"
#include "entities/Transform.h"

namespace transform
{

namespace
{

using hatchloops::EdgeKind;
using oddb::GroupIterator;
using oddb::Groups;
using oddb::GroupsBuilder;

/// A similarity of the plane.
struct PlaneMap
{
    OdGePoint3d origin; ///< the image of the plane's origin at the hatch's elevation
    double c = 1.0;
    double s = 0.0; ///< cosine and sine of the turn, times the factor
    double factor = 1.0;
    double turn = 0.0; ///< degrees

    OdGePoint3d place(double x, double y) const
    {
        return OdGePoint3d(origin.x + c * x - s * y, origin.y + s * x + c * y, origin.z);
    }
    OdGePoint3d direction(double x, double y) const { return OdGePoint3d(c * x - s * y, s * x + c * y, 0.0); }
};

PlaneMap planeMapOf(const ocs::Frame& before, const ocs::Frame& after, double elevation, const OdGeMatrix3d& xform)
{
    const OdGeVector3d x = after.fromWorld(xform * before.x);
    PlaneMap map;
    map.origin = after.fromWorld(xform * before.toWorld(OdGePoint3d(0.0, 0.0, elevation)));
    map.c = x.x;
    map.s = x.y;
    map.factor = std::hypot(x.x, x.y);
    map.turn = OdaToDegree(std::atan2(x.y, x.x));
    return map;
}

class HatchMapper
{
public:
    HatchMapper(const PlaneMap& map, const OdGeVector3d& normal) : m_map(map), m_normal(normal) {}

    Groups map(const Groups& groups, oddb::Atom marker);

private:
    enum class Part
    {
        Head,
        Loops,
        Pattern
    };

    void step(GroupIterator& at, const GroupIterator& end);
    void stepInHead(GroupIterator& at, const GroupIterator& end);
    void stepInLoops(GroupIterator& at, const GroupIterator& end);
    void stepInPattern(GroupIterator& at, const GroupIterator& end);
    void mapAngles(GroupIterator& at, const GroupIterator& end);
    void mapPlace(GroupIterator& at, const GroupIterator& end) { mapPair(at, end, true, 10); }
    void mapDirection(GroupIterator& at, const GroupIterator& end, int stride = 10) { mapPair(at, end, false, stride); }
    void mapPair(GroupIterator& at, const GroupIterator& end, bool place, int stride);
    void copy(GroupIterator& at) { m_out.append(*at++); }
    void scale(GroupIterator& at)
    {
        m_out.real(at->code(), at->real() * m_map.factor);
        ++at;
    }
    void turn(GroupIterator& at)
    {
        m_out.real(at->code(), at->real() + m_map.turn);
        ++at;
    }

    const PlaneMap& m_map;
    const OdGeVector3d& m_normal;
    Part m_part = Part::Head;
    bool m_polyline = false;
    EdgeKind m_edge = EdgeKind::Line;
    GroupsBuilder m_out;
};

void HatchMapper::mapPair(GroupIterator& at, const GroupIterator& end, bool place, int stride)
{
    const int code = at->code();
    const double x = (at++)->real();
    if (at == end || at->code() != code + stride)
    {
        m_out.real(code, x);
        return;
    }
    const double y = (at++)->real();
    const OdGePoint3d mapped = place ? m_map.place(x, y) : m_map.direction(x, y);
    m_out.real(code, mapped.x).real(code + stride, mapped.y);
}

void HatchMapper::stepInHead(GroupIterator& at, const GroupIterator& end)
{
    if (at->code() == 30)
    {
        m_out.real(30, m_map.origin.z);
        ++at;
    }
    else if (at->code() == 210)
    {
        m_out.point(210, m_normal.x, m_normal.y, m_normal.z);
        for (int code = 210; at != end && at->code() == code && code <= 230; code += 10)
            ++at;
    }
    else
        copy(at);
}

/// The angles of an arc turn with the plane. Whether they are measured clockwise stands behind them.
void HatchMapper::mapAngles(GroupIterator& at, const GroupIterator& end)
{
    bool counterClockwise = true;
    GroupIterator ahead = at;
    for (int i = 0; i < 3 && ahead != end; ++i, ++ahead)
        counterClockwise = ahead->code() == 73 ? ahead->boolean() : counterClockwise;
    for (; at != end && (at->code() == 50 || at->code() == 51); ++at)
        m_out.real(at->code(), at->real() + (counterClockwise ? m_map.turn : -m_map.turn));
}

void HatchMapper::stepInLoops(GroupIterator& at, const GroupIterator& end)
{
    const int code = at->code();
    if (code == 92)
        m_polyline = (at->integer() & 2) != 0;
    else if (code == 72 && !m_polyline)
        m_edge = static_cast<EdgeKind>(at->integer());
    const bool edge = !m_polyline;
    if (code == 10)
        mapPlace(at, end);
    else if (edge && code == 11)
        m_edge == EdgeKind::Ellipse ? mapDirection(at, end) : mapPlace(at, end);
    else if (edge && (code == 12 || code == 13))
        mapDirection(at, end);
    else if (edge && code == 40 && m_edge == EdgeKind::Arc)
        scale(at);
    else if (edge && code == 50 && m_edge == EdgeKind::Arc)
        mapAngles(at, end);
    else
        copy(at);
}

void HatchMapper::stepInPattern(GroupIterator& at, const GroupIterator& end)
{
    switch (at->code())
    {
    case 10:
        return mapPlace(at, end);
    case 43:
        return mapPair(at, end, true, 1);
    case 45:
        return mapDirection(at, end, 1);
    case 41:
    case 47:
    case 49:
        return scale(at);
    case 52:
    case 53:
        return turn(at);
    default:
        return copy(at);
    }
}

void HatchMapper::step(GroupIterator& at, const GroupIterator& end)
{
    if (m_part == Part::Head && at->code() == 91)
        m_part = Part::Loops;
    else if (m_part == Part::Loops && at->code() == 75)
        m_part = Part::Pattern;
    if (m_part == Part::Head)
        stepInHead(at, end);
    else if (m_part == Part::Loops)
        stepInLoops(at, end);
    else
        stepInPattern(at, end);
}

Groups HatchMapper::map(const Groups& groups, oddb::Atom marker)
{
    bool inside = false;
    for (GroupIterator at = groups.begin(); at != groups.end();)
    {
        if (at->beginsSection())
            inside = at->code() == 100 && at->atom() == marker;
        inside ? step(at, groups.end()) : copy(at);
    }
    return m_out.finish();
}

} // namespace

OdResult transformHatch(OdDbHatch& hatch, const OdGeMatrix3d& xform)
{
    if (!isSimilarity(xform))
        return eCannotScaleNonUniformly;
    const entityfields::Reader fields = entityfields::read<entitytables::kHatch>(hatch);
    const ocs::Frame before = ocs::frameOf(fields.normal());
    const ocs::Frame after = ocs::frameOf((xform * before.x).crossProduct(xform * before.y));
    const PlaneMap map = planeMapOf(before, after, hatch.elevation(), xform);
    const bool turned = after.z.x != 0.0 || after.z.y != 0.0 || after.z.z < 0.0;
    const bool missing = turned && !fields.has(210);
    oddb::ObjectCore::changeGroups(hatch, HatchMapper(map, after.z).map(fields.groups(), fields.atom()));
    if (missing)
        hatch.setNormal(after.z);
    return eOk;
}

} // namespace transform
