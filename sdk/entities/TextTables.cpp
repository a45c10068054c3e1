// The groups of texts.
#include "entities/EntityTables.h"
#include "entities/TableRows.h"

namespace entitytables
{

using namespace entityrows;

namespace
{

constexpr DxfRow kTextRows[] = {
    real(39, "thickness"),
    point3d(10, "position"),
    real(40, "height", 1.0),
    text(1, "text"),
    angle(50, "rotation"),
    real(41, "width factor", 1.0),
    angle(51, "oblique angle"),
    name(7, "text style", SymbolTable::TextStyle, "STANDARD"),
    integer(71, "flags: backward 2, upside down 4"),
    integer(72, "horizontal alignment"),
    point3d(11, "alignment point"),
    point3d(210, "normal"),
};

constexpr DxfRow kTextEndRows[] = {
    integer(73, "vertical alignment"),
};

constexpr DxfRow kAttributeRows[] = {
    since(OdDb::vAC24, integer(280, "version")),
    text(2, "tag"),
    integer(70, "flags: invisible 1, constant 2, verified 4, preset 8"),
    integer(73, "field length"),
    integer(74, "vertical alignment"),
    since(OdDb::vAC21, repeated(integer(280, "position locked"))),
};

constexpr DxfRow kAttributeDefinitionRows[] = {
    since(OdDb::vAC24, integer(280, "version")),
    text(3, "prompt"),
    text(2, "tag"),
    integer(70, "flags: invisible 1, constant 2, verified 4, preset 8"),
    integer(73, "field length"),
    integer(74, "vertical alignment"),
    since(OdDb::vAC21, repeated(integer(280, "position locked"))),
};

constexpr DxfRow kMTextRows[] = {
    point3d(10, "location"),
    real(40, "text height", 1.0),
    real(41, "width"),
    since(OdDb::vAC21, real(46, "defined height")),
    integer(71, "attachment point", 1),
    integer(72, "flow direction", 1),
    repeated(text(3, "contents, all parts of 250 characters but the last")),
    text(1, "contents, last part"),
    name(7, "text style", SymbolTable::TextStyle, "STANDARD"),
    point3d(210, "normal"),
    point3d(11, "direction"),
    real(42, "width of what is drawn"),
    real(43, "height of what is drawn"),
    angle(50, "rotation"),
    integer(73, "line spacing style", 1),
    real(44, "line spacing factor", 1.0),
    since(OdDb::vAC18, integer(90, "background fill")),
    since(OdDb::vAC18, integer(63, "background colour index")),
    since(OdDb::vAC18, integer(421, "background true colour")),
    since(OdDb::vAC18, text(431, "background colour name")),
    since(OdDb::vAC18, real(45, "border of the background", 1.5)),
    since(OdDb::vAC18, integer(441, "background transparency")),
};

constexpr DxfRow kToleranceRows[] = {
    name(3, "dimension style", SymbolTable::DimStyle, "STANDARD"),
    point3d(10, "location"),
    text(1, "text"),
    point3d(210, "normal"),
    point3d(11, "direction"),
};

constexpr DxfRow kShapeRows[] = {
    real(39, "thickness"), point3d(10, "position"),       real(40, "size", 1.0),      text(2, "shape name"),
    angle(50, "rotation"), real(41, "width factor", 1.0), angle(51, "oblique angle"), point3d(210, "normal"),
};

} // namespace

const DxfSubclass kText{"AcDbText", kTextRows};
const DxfSubclass kTextEnd{"AcDbText", kTextEndRows};
const DxfSubclass kAttribute{"AcDbAttribute", kAttributeRows};
const DxfSubclass kAttributeDefinition{"AcDbAttributeDefinition", kAttributeDefinitionRows};
const DxfSubclass kMText{"AcDbMText", kMTextRows};
const DxfSubclass kTolerance{"AcDbFcf", kToleranceRows};
const DxfSubclass kShape{"AcDbShape", kShapeRows};

} // namespace entitytables
