// The loops around a hatch, as its groups hold them between the number of loops (91) and the style (75):
//
//   loops  = 91 count, loop...
//   loop   = 92 type, polyline or edges, 97 count, 330 source object...
//   polyline (type has bit 2) = 72 has bulges, 73 closed, 93 count, { 10 20 [42 bulge] }
//   edges  = 93 count, edge...
//   edge   = 72 1  10 20 start  11 21 end
//          | 72 2  10 20 centre  40 radius  50 51 angles  73 counter-clockwise
//          | 72 3  10 20 centre  11 21 major axis  40 ratio  50 51 angles  73 counter-clockwise
//          | 72 4  94 degree  73 rational  74 periodic  95 96 counts  40 knot...  { 10 20 [42 weight] }
//                  [97 count  { 11 21 fit point }  12 22  13 23]
//
// Angles are in degrees, from the major axis; those of clockwise edges are measured clockwise.
#pragma once

#include <vector>

#include "db/Groups.h"
#include "entities/Drawing.h"
#include "entities/NurbsCurve.h"

namespace hatchloops
{

enum class EdgeKind
{
    Line = 1,
    Arc = 2,
    Ellipse = 3,
    Spline = 4
};

struct Edge
{
    EdgeKind kind = EdgeKind::Line;
    OdGePoint3d first;   ///< start or centre
    OdGePoint3d second;  ///< end, or the major axis
    double radius = 0.0; ///< or the ratio of the axes
    double startAngle = 0.0;
    double endAngle = 360.0;
    bool counterClockwise = true;
    nurbs::Curve spline;

    /// Where an arc or elliptical arc begins and ends, as the parameter t of centre + cos(t) major + sin(t) minor
    /// axis; the latter is greater.
    double firstParameter() const;
    double lastParameter() const;
};

struct Loop
{
    int type = 0;
    bool isPolyline() const { return (type & 2) != 0; }
    std::vector<drawing::BulgeVertex> vertices;
    std::vector<Edge> edges;
    const std::uint8_t* begin = nullptr; ///< its groups
    const std::uint8_t* end = nullptr;
};

/// The loops in the groups of a hatch; what is missing in a damaged one counts as zero.
std::vector<Loop> readLoops(const oddb::Groups& groups, oddb::Atom marker);

void drawLoop(OdGiWorldDraw& worldDraw, const Loop& loop, const ocs::Frame& frame, double elevation);

} // namespace hatchloops
