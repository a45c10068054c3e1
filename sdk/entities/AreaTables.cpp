// The groups of hatches, filled areas, faces, pictures and viewports.
#include "entities/EntityTables.h"
#include "entities/TableRows.h"

namespace entitytables
{

using namespace entityrows;

namespace
{

// The groups of loops and pattern lines stand between 91 and 75 and behind 78; see HatchLoops.h.
constexpr DxfRow kHatchRows[] = {
    point3d(10, "elevation, as the third coordinate"),
    point3d(210, "normal"),
    text(2, "pattern"),
    integer(70, "solid fill"),
    integer(71, "associative"),
    integer(91, "number of loops"),
    integer(75, "style: normal 0, outer 1, ignore 2"),
    integer(76, "pattern kind: user 0, predefined 1, custom 2", 1),
    angle(52, "pattern angle"),
    real(41, "pattern scale", 1.0),
    integer(77, "double pattern"),
    integer(78, "number of pattern lines"),
    real(47, "pixel size"),
    integer(98, "number of seed points"),
    since(OdDb::vAC18, integer(450, "gradient")),
    since(OdDb::vAC18, integer(451, "reserved")),
    since(OdDb::vAC18, real(460, "gradient angle in radians")),
    since(OdDb::vAC18, real(461, "gradient shift")),
    since(OdDb::vAC18, integer(452, "gradient of one colour")),
    since(OdDb::vAC18, real(462, "gradient tint")),
    since(OdDb::vAC18, integer(453, "number of gradient colours")),
    since(OdDb::vAC18, repeated(real(463, "gradient value"))),
    since(OdDb::vAC18, repeated(integer(63, "gradient colour index"))),
    since(OdDb::vAC18, repeated(integer(421, "gradient true colour"))),
    since(OdDb::vAC18, text(470, "gradient name")),
    repeated(point2d(10, "corner of a loop, start or centre of an edge, seed point")),
    repeated(point2d(11, "end of an edge, major axis of an elliptical one")),
};

constexpr DxfRow kTraceRows[] = {
    point3d(10, "first corner"),  point3d(11, "second corner"), point3d(12, "third corner"),
    point3d(13, "fourth corner"), real(39, "thickness"),        point3d(210, "normal"),
};

constexpr DxfRow kFaceRows[] = {
    point3d(10, "first corner"),  point3d(11, "second corner"),   point3d(12, "third corner"),
    point3d(13, "fourth corner"), integer(70, "invisible edges"),
};

constexpr DxfRow kRasterImageRows[] = {
    integer(90, "version"),
    point3d(10, "origin"),
    point3d(11, "width of a pixel"),
    point3d(12, "height of a pixel"),
    point2d(13, "size in pixels"),
    id(340, "image definition"),
    integer(70, "show 1, show unaligned 2, clip 4, transparent 8", 7),
    integer(280, "clipping"),
    integer(281, "brightness", 50),
    integer(282, "contrast", 50),
    integer(283, "fade"),
    id(360, "image definition reactor"),
    integer(71, "clipping outline: rectangle 1, polygon 2", 1),
    integer(91, "number of outline points"),
    repeated(point2d(14, "outline point in pixels")),
    since(OdDb::vAC24, integer(290, "shown outside of the outline")),
};

constexpr DxfRow kRasterImageDefRows[] = {
    integer(90, "version"),        text(1, "file"),
    point2d(10, "size in pixels"), point2d(11, "size of a pixel in millimetres"),
    integer(280, "loaded"),        integer(281, "units: none 0, centimetre 2, inch 5"),
};

constexpr DxfRow kRasterImageDefReactorRows[] = {
    integer(90, "version", 2),
    id(330, "image"),
};

constexpr DxfRow kRasterVariablesRows[] = {
    integer(90, "version"),
    integer(70, "frame: off 0, above 1, below 2"),
    integer(71, "quality: draft 0, high 1", 1),
    integer(72, "unit of a pixel"),
};

// Group 40 stands for the front plane, and after group 73 for two matrices; see SpatialFilter.cpp.
constexpr DxfRow kSpatialFilterRows[] = {
    integer(70, "number of points"),
    repeated(point2d(10, "point")),
    point3d(210, "normal"),
    point3d(11, "origin"),
    integer(71, "clipping", 1),
    integer(72, "clipping in front"),
    repeated(real(40, "distance of the front plane; matrices")),
    integer(73, "clipping behind"),
    real(41, "distance of the back plane"),
};

constexpr DxfRow kViewportRows[] = {
    point3d(10, "centre"),
    real(40, "width"),
    real(41, "height"),
    integer(68, "on, and place in the stack"),
    integer(69, "number"),
    point2d(12, "view centre"),
    point2d(13, "snap base point"),
    point2d(14, "snap spacing"),
    point2d(15, "grid spacing"),
    point3d(16, "view direction"),
    point3d(17, "view target"),
    real(42, "lens length", 50.0),
    real(43, "front clipping plane"),
    real(44, "back clipping plane"),
    real(45, "view height"),
    angle(50, "snap angle"),
    angle(51, "twist angle"),
    integer(72, "circle zoom", 100),
    repeated(id(331, "frozen layer")),
    integer(90, "flags"),
    id(340, "clipping entity"),
    text(1, "plot style sheet"),
    integer(281, "render mode"),
    integer(71, "own coordinate system"),
    integer(74, "icon at the origin"),
    point3d(110, "origin of the coordinate system"),
    point3d(111, "x axis of the coordinate system"),
    point3d(112, "y axis of the coordinate system"),
    id(345, "named coordinate system"),
    id(346, "base coordinate system"),
    integer(79, "orthographic kind"),
    real(146, "elevation"),
    since(OdDb::vAC18, integer(170, "shade plot")),
    since(OdDb::vAC21, integer(61, "lines per main grid line", 5)),
};

} // namespace

const DxfSubclass kHatch{"AcDbHatch", kHatchRows};
const DxfSubclass kTrace{"AcDbTrace", kTraceRows};
const DxfSubclass kFace{"AcDbFace", kFaceRows};
const DxfSubclass kRasterImage{"AcDbRasterImage", kRasterImageRows};
const DxfSubclass kWipeout{"AcDbWipeout", kRasterImageRows};
const DxfSubclass kRasterImageDef{"AcDbRasterImageDef", kRasterImageDefRows};
const DxfSubclass kRasterImageDefReactor{"AcDbRasterImageDefReactor", kRasterImageDefReactorRows};
const DxfSubclass kRasterVariables{"AcDbRasterVariables", kRasterVariablesRows};
const DxfSubclass kFilter{"AcDbFilter", {}};
const DxfSubclass kSpatialFilter{"AcDbSpatialFilter", kSpatialFilterRows};
const DxfSubclass kViewport{"AcDbViewport", kViewportRows};

} // namespace entitytables
