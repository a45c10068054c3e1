// The groups that all entities share and those of curves.
#include "entities/EntityTables.h"
#include "entities/TableRows.h"

namespace entitytables
{

using namespace entityrows;

namespace
{

constexpr DxfRow kEntityRows[] = {
    integer(67, "paper space"),
    text(410, "layout name"),
    name(8, "layer", SymbolTable::Layer, "0"),
    name(6, "linetype", SymbolTable::Linetype, "ByLayer"),
    since(OdDb::vAC21, id(347, "material")),
    integer(62, "colour index", 256),
    since(OdDb::vAC18, integer(420, "true colour")),
    since(OdDb::vAC18, text(430, "colour name")),
    since(OdDb::vAC18, integer(440, "transparency")),
    real(48, "linetype scale", 1.0),
    integer(60, "invisible"),
    since(OdDb::vAC15, integer(370, "line weight", -1)),
    since(OdDb::vAC15, id(390, "plot style")),
    since(OdDb::vAC21, integer(284, "shadow mode")),
    since(OdDb::vAC24, id(348, "visual style")),
    integer(92, "size of proxy graphics"),
    since(OdDb::vAC24, integer(160, "size of proxy graphics")),
    repeated(binary(310, "proxy graphics")),
};

constexpr DxfRow kLineRows[] = {
    real(39, "thickness"),
    point3d(10, "start point"),
    point3d(11, "end point"),
    point3d(210, "normal"),
};

constexpr DxfRow kPointRows[] = {
    point3d(10, "position"),
    real(39, "thickness"),
    point3d(210, "normal"),
    angle(50, "angle of the symbol"),
};

constexpr DxfRow kCircleRows[] = {
    real(39, "thickness"),
    point3d(10, "centre"),
    real(40, "radius"),
    point3d(210, "normal"),
};

constexpr DxfRow kArcRows[] = {
    angle(50, "start angle"),
    angle(51, "end angle", 360.0),
};

constexpr DxfRow kEllipseRows[] = {
    point3d(10, "centre"),       point3d(11, "major axis"),
    point3d(210, "normal"),      real(40, "ratio of minor to major axis", 1.0),
    real(41, "start parameter"), real(42, "end parameter", 6.28318530717958647692),
};

constexpr DxfRow kSplineRows[] = {
    point3d(210, "normal of a flat spline"),
    integer(70, "flags: closed 1, periodic 2, rational 4, flat 8, straight 16"),
    integer(71, "degree", 3),
    integer(72, "number of knots"),
    integer(73, "number of control points"),
    integer(74, "number of fit points"),
    real(42, "knot tolerance", 1e-7),
    real(43, "control point tolerance", 1e-7),
    real(44, "fit tolerance", 1e-10),
    point3d(12, "start tangent"),
    point3d(13, "end tangent"),
    repeated(real(40, "knot")),
    repeated(real(41, "weight", 1.0)),
    repeated(point3d(10, "control point")),
    repeated(point3d(11, "fit point")),
};

constexpr DxfRow kXlineRows[] = {
    point3d(10, "base point"),
    point3d(11, "direction"),
};

constexpr DxfRow kPolylineRows[] = {
    integer(90, "number of vertices"),
    integer(70, "flags: closed 1, linetype runs through 128"),
    real(43, "constant width"),
    real(38, "elevation"),
    real(39, "thickness"),
    repeated(point2d(10, "vertex")),
    repeated(real(40, "start width")),
    repeated(real(41, "end width")),
    repeated(real(42, "bulge")),
    since(OdDb::vAC24, repeated(integer(91, "vertex number"))),
    point3d(210, "normal"),
};

constexpr DxfRow kLeaderRows[] = {
    name(3, "dimension style", SymbolTable::DimStyle, "Standard"),
    integer(71, "arrow head", 1),
    integer(72, "path: straight 0, spline 1"),
    integer(73, "annotation: text 0, tolerance 1, block 2, none 3", 3),
    integer(74, "hook line direction"),
    integer(75, "hook line"),
    real(40, "annotation height", 1.0),
    real(41, "annotation width", 1.0),
    integer(76, "number of vertices"),
    repeated(point3d(10, "vertex")),
    integer(77, "colour where the style says by block", 256),
    id(340, "annotation"),
    point3d(210, "normal"),
    point3d(211, "horizontal direction"),
    point3d(212, "offset to the block"),
    point3d(213, "offset to the annotation"),
};

constexpr DxfRow kMlineRows[] = {
    text(2, "style", "STANDARD"),
    id(340, "style"),
    real(40, "scale", 1.0),
    integer(70, "justification"),
    integer(71, "flags: vertices 1, closed 2, no caps 4 and 8", 1),
    integer(72, "number of vertices"),
    integer(73, "number of lines of the style"),
    point3d(10, "start point"),
    point3d(210, "normal"),
    repeated(point3d(11, "vertex")),
    repeated(point3d(12, "direction")),
    repeated(point3d(13, "mitre direction")),
    repeated(integer(74, "number of parameters")),
    repeated(real(41, "parameter")),
    repeated(integer(75, "number of fill parameters")),
    repeated(real(42, "fill parameter")),
};

} // namespace

const DxfSubclass kEntity{"AcDbEntity", kEntityRows};
const DxfSubclass kLine{"AcDbLine", kLineRows};
const DxfSubclass kPoint{"AcDbPoint", kPointRows};
const DxfSubclass kCircle{"AcDbCircle", kCircleRows};
const DxfSubclass kArc{"AcDbArc", kArcRows};
const DxfSubclass kEllipse{"AcDbEllipse", kEllipseRows};
const DxfSubclass kSpline{"AcDbSpline", kSplineRows};
const DxfSubclass kXline{"AcDbXline", kXlineRows};
const DxfSubclass kRay{"AcDbRay", kXlineRows};
const DxfSubclass kPolyline{"AcDbPolyline", kPolylineRows};
const DxfSubclass kLeader{"AcDbLeader", kLeaderRows};
const DxfSubclass kMline{"AcDbMline", kMlineRows};

} // namespace entitytables
