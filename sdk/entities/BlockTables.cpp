// The groups of block references, of dimensions, and of the entities that frame a block definition.
#include "entities/EntityTables.h"
#include "entities/TableRows.h"

namespace entitytables
{

using namespace entityrows;

namespace
{

constexpr DxfRow kBlockReferenceRows[] = {
    integer(66, "attributes follow"),
    name(2, "block", SymbolTable::Block),
    point3d(10, "position"),
    real(41, "scale factor along x", 1.0),
    real(42, "scale factor along y", 1.0),
    real(43, "scale factor along z", 1.0),
    angle(50, "rotation"),
    integer(70, "number of columns", 1),
    integer(71, "number of rows", 1),
    real(44, "column spacing"),
    real(45, "row spacing"),
    point3d(210, "normal"),
};

constexpr DxfRow kTableRows[] = {
    integer(280, "version"),
    id(342, "table style"),
    id(343, "block"),
    point3d(11, "horizontal direction"),
    integer(90, "flags"),
    integer(91, "number of rows"),
    integer(92, "number of columns"),
    integer(93, "flags of overrides"),
};

constexpr DxfRow kBlockBeginRows[] = {
    name(2, "block", SymbolTable::Block),
    integer(70, "flags: anonymous 1, attributes 2, external 4, overlay 8"),
    point3d(10, "base point"),
    text(3, "name"),
    text(1, "external file"),
    text(4, "description"),
};

constexpr DxfRow kDimensionRows[] = {
    since(OdDb::vAC24, integer(280, "version")),
    name(2, "block", SymbolTable::Block),
    point3d(10, "definition point"),
    point3d(11, "middle of the text"),
    point3d(12, "offset of the block"),
    integer(70, "kind, and flags: block of its own 32, along x 64, text placed by the user 128"),
    text(1, "text"),
    since(OdDb::vAC15, integer(71, "attachment point", 5)),
    since(OdDb::vAC15, integer(72, "line spacing style", 1)),
    since(OdDb::vAC15, real(41, "line spacing factor", 1.0)),
    since(OdDb::vAC15, real(42, "measurement", -1.0)),
    since(OdDb::vAC21, integer(73, "unknown")),
    since(OdDb::vAC21, integer(74, "first arrow turned")),
    since(OdDb::vAC21, integer(75, "second arrow turned")),
    angle(53, "text rotation"),
    angle(51, "horizontal direction"),
    point3d(210, "normal"),
    name(3, "dimension style", SymbolTable::DimStyle, "STANDARD"),
};

constexpr DxfRow kLinearDimensionRows[] = {
    point3d(12, "insertion point of a copy"),
    point3d(13, "first extension line"),
    point3d(14, "second extension line"),
    angle(50, "rotation"),
    angle(52, "oblique angle"),
};

constexpr DxfRow kOrdinateDimensionRows[] = {
    point3d(13, "defining point"),
    point3d(14, "end of the leader"),
};

constexpr DxfRow kRadialDimensionRows[] = {
    point3d(15, "point on the curve"),
    real(40, "leader length"),
};

constexpr DxfRow kRadialDimensionLargeRows[] = {
    point3d(13, "point shown as centre"),
    point3d(14, "jog"),
    point3d(15, "point on the curve"),
    real(40, "jog angle"),
};

constexpr DxfRow kAngularDimensionRows[] = {
    point3d(13, "first extension line"),
    point3d(14, "second extension line"),
    point3d(15, "start of the second line, or centre"),
    point3d(16, "place of the arc"),
};

constexpr DxfRow kArcDimensionRows[] = {
    point3d(13, "first extension line"),
    point3d(14, "second extension line"),
    point3d(15, "centre"),
    integer(70, "part of an arc"),
    real(40, "start angle in radians"),
    real(41, "end angle in radians"),
    integer(71, "leader"),
    point3d(16, "first leader point"),
    point3d(17, "second leader point"),
};

} // namespace

const DxfSubclass kBlockReference{"AcDbBlockReference", kBlockReferenceRows};
const DxfSubclass kMInsertBlock{"AcDbMInsertBlock", kBlockReferenceRows};
const DxfSubclass kTable{"AcDbTable", kTableRows};
const DxfSubclass kBlockBegin{"AcDbBlockBegin", kBlockBeginRows};
const DxfSubclass kBlockEnd{"AcDbBlockEnd", {}};
const DxfSubclass kDimension{"AcDbDimension", kDimensionRows};
const DxfSubclass kAlignedDimension{"AcDbAlignedDimension", kLinearDimensionRows};
const DxfSubclass kRotatedDimension{"AcDbRotatedDimension", {}};
const DxfSubclass kOrdinateDimension{"AcDbOrdinateDimension", kOrdinateDimensionRows};
const DxfSubclass kRadialDimension{"AcDbRadialDimension", kRadialDimensionRows};
const DxfSubclass kRadialDimensionLarge{"AcDbRadialDimensionLarge", kRadialDimensionLargeRows};
const DxfSubclass kDiametricDimension{"AcDbDiametricDimension", kRadialDimensionRows};
const DxfSubclass k2LineAngularDimension{"AcDb2LineAngularDimension", kAngularDimensionRows};
const DxfSubclass k3PointAngularDimension{"AcDb3PointAngularDimension", kAngularDimensionRows};
const DxfSubclass kArcDimension{"AcDbArcDimension", kArcDimensionRows};

} // namespace entitytables
