// One table per kind of record, and the list of all.
#include "RecordTables.h"

#include <algorithm>

#include "DbBlockTableRecord.h"
#include "DbDimStyleTableRecord.h"
#include "DbLayerTableRecord.h"
#include "DbLinetypeTableRecord.h"
#include "DbRegAppTableRecord.h"
#include "DbTextStyleTableRecord.h"
#include "DbUCSTableRecord.h"
#include "DbViewTableRecord.h"
#include "DbViewportTableRecord.h"
#include "TableRows.h"

namespace oddb
{

namespace recordtables
{

using namespace tablerows;

namespace
{

constexpr DxfRow kBlockRows[] = {
    text(2, "name"),
    since(OdDb::vAC15, id(340, "layout")),
    since(OdDb::vAC21, integer(70, "unit of lengths")),
    since(OdDb::vAC21, integer(280, "may be exploded", 1)),
    since(OdDb::vAC21, integer(281, "has to be scaled uniformly")),
    since(OdDb::vAC15, repeated(binary(310, "preview"))),
};

constexpr DxfRow kLayerRows[] = {
    text(2, "name"),
    integer(70, "flags: frozen 1, frozen in new viewports 2, locked 4"),
    integer(62, "colour, negative when the layer is off", 7),
    since(OdDb::vAC18, integer(420, "true colour")),
    since(OdDb::vAC18, text(430, "colour name")),
    name(6, "linetype", SymbolTable::Linetype, "Continuous"),
    since(OdDb::vAC15, boolean(290, "is plotted", true)),
    since(OdDb::vAC15, integer(370, "line weight", -3)),
    since(OdDb::vAC15, id(390, "plot style")),
    since(OdDb::vAC21, id(347, "material")),
    since(OdDb::vAC24, id(348, "visual style")),
};

constexpr DxfRow kLinetypeRows[] = {
    text(2, "name"),
    integer(70, "flags"),
    text(3, "description"),
    integer(72, "alignment", 65),
    integer(73, "number of dashes"),
    real(40, "length of the pattern"),
    repeated(real(49, "length of a dash")),
    repeated(integer(74, "kind of element")),
    repeated(integer(75, "number of the shape")),
    repeated(id(340, "text style")),
    repeated(real(46, "scale")),
    repeated(angle(50, "rotation")),
    repeated(real(44, "offset along x")),
    repeated(real(45, "offset along y")),
    repeated(text(9, "text")),
};

constexpr DxfRow kTextStyleRows[] = {
    text(2, "name"),
    integer(70, "flags: shape file 1, vertical 4"),
    real(40, "height"),
    real(41, "width factor", 1.0),
    angle(50, "oblique angle"),
    integer(71, "flags: mirrored along x 2, along y 4"),
    real(42, "height used last", 2.5),
    text(3, "font file", "txt"),
    text(4, "big font file"),
};

constexpr DxfRow kRegAppRows[] = {
    text(2, "name"),
    integer(70, "flags"),
};

constexpr DxfRow kUcsRows[] = {
    text(2, "name"),
    integer(70, "flags"),
    point3d(10, "origin"),
    point3d(11, "direction of x"),
    point3d(12, "direction of y"),
    integer(79, "unknown"),
    real(146, "elevation"),
    id(346, "base"),
};

constexpr DxfRow kViewRows[] = {
    text(2, "name"),
    integer(70, "flags"),
    real(40, "height", 1.0),
    point2d(10, "centre"),
    real(41, "width", 1.0),
    point3d(11, "direction"),
    point3d(12, "target"),
    real(42, "lens length", 50.0),
    real(43, "front clipping"),
    real(44, "back clipping"),
    angle(50, "twist"),
    integer(71, "view mode"),
    integer(281, "render mode"),
    integer(72, "has a coordinate system"),
};

constexpr DxfRow kViewportRows[] = {
    text(2, "name"),
    integer(70, "flags"),
    point2d(10, "lower left corner"),
    {11, "upper right corner", DxfKind::Point2d, 1.0},
    point2d(12, "centre"),
    point2d(13, "snap base"),
    {14, "snap spacing", DxfKind::Point2d, 10.0},
    {15, "grid spacing", DxfKind::Point2d, 10.0},
    point3d(16, "direction"),
    point3d(17, "target"),
    real(40, "height", 1000.0),
    real(41, "aspect ratio", 1.34),
    real(42, "lens length", 50.0),
    real(43, "front clipping"),
    real(44, "back clipping"),
    angle(50, "snap rotation"),
    angle(51, "twist"),
    integer(71, "view mode"),
    integer(72, "circle sides", 1000),
    integer(73, "fast zoom", 1),
    integer(74, "UCS icon", 3),
    integer(75, "snap is on"),
    integer(76, "grid is on"),
    integer(77, "snap style"),
    integer(78, "snap isopair"),
};

constexpr DxfRow kDimStyleRows[] = {
    text(2, "name"),
    integer(70, "flags"),
    text(3, "suffix"),
    text(4, "suffix of alternate units"),
    real(40, "scale", 1.0),
    real(41, "arrow size", 2.5),
    real(42, "extension line offset", 0.625),
    real(43, "dimension line increment", 3.75),
    real(44, "extension beyond the line", 1.25),
    real(45, "rounding"),
    real(46, "line extension"),
    real(47, "upper tolerance"),
    real(48, "lower tolerance"),
    real(140, "text height", 2.5),
    real(141, "centre mark", 2.5),
    real(142, "tick size"),
    real(143, "alternate scale", 0.03937007874016),
    real(144, "length scale", 1.0),
    real(145, "vertical text position"),
    real(146, "tolerance text scale", 1.0),
    real(147, "gap", 0.625),
    integer(71, "tolerances"),
    integer(72, "limits"),
    integer(73, "text inside horizontal"),
    integer(74, "text outside horizontal"),
    integer(75, "first extension line off"),
    integer(76, "second extension line off"),
    integer(77, "text above the line", 1),
    integer(78, "zeros", 8),
    integer(170, "alternate units"),
    integer(171, "alternate decimals", 3),
    integer(172, "line between far texts", 1),
    integer(173, "separate arrows"),
    integer(174, "text forced inside"),
    integer(175, "no arrows outside"),
    integer(176, "line colour"),
    integer(177, "extension line colour"),
    integer(178, "text colour"),
    integer(271, "decimals", 2),
    integer(272, "tolerance decimals", 2),
    integer(274, "alternate tolerance decimals", 3),
    integer(278, "decimal separator", 44),
    integer(283, "tolerance position"),
    integer(284, "tolerance zeros", 8),
    id(340, "text style"),
    id(341, "leader arrow"),
    id(342, "arrow"),
    id(343, "first arrow"),
    id(344, "second arrow"),
};

constexpr DxfRow kTableRows[] = {
    integer(70, "number of records"),
};

constinit const DxfSubclass kRecordPart{"AcDbSymbolTableRecord", {}};
constinit const DxfSubclass kBlockPart{"AcDbBlockTableRecord", kBlockRows};
constinit const DxfSubclass kLayerPart{"AcDbLayerTableRecord", kLayerRows};
constinit const DxfSubclass kLinetypePart{"AcDbLinetypeTableRecord", kLinetypeRows};
constinit const DxfSubclass kTextStylePart{"AcDbTextStyleTableRecord", kTextStyleRows};
constinit const DxfSubclass kDimStylePart{"AcDbDimStyleTableRecord", kDimStyleRows};
constinit const DxfSubclass kRegAppPart{"AcDbRegAppTableRecord", kRegAppRows};
constinit const DxfSubclass kUcsPart{"AcDbUCSTableRecord", kUcsRows};
constinit const DxfSubclass kViewPart{"AcDbViewTableRecord", kViewRows};
constinit const DxfSubclass kViewportPart{"AcDbViewportTableRecord", kViewportRows};
constinit const DxfSubclass kTablePart{"AcDbSymbolTable", kTableRows};

const DxfSubclass* const kBlockParts[] = {&kRecordPart, &kBlockPart};
const DxfSubclass* const kLayerParts[] = {&kRecordPart, &kLayerPart};
const DxfSubclass* const kLinetypeParts[] = {&kRecordPart, &kLinetypePart};
const DxfSubclass* const kTextStyleParts[] = {&kRecordPart, &kTextStylePart};
const DxfSubclass* const kDimStyleParts[] = {&kRecordPart, &kDimStylePart};
const DxfSubclass* const kRegAppParts[] = {&kRecordPart, &kRegAppPart};
const DxfSubclass* const kUcsParts[] = {&kRecordPart, &kUcsPart};
const DxfSubclass* const kViewParts[] = {&kRecordPart, &kViewPart};
const DxfSubclass* const kViewportParts[] = {&kRecordPart, &kViewportPart};
const DxfSubclass* const kTableParts[] = {&kTablePart};

} // namespace

constinit const DxfClass kBlock{"BLOCK_RECORD", "OdDbBlockTableRecord", kBlockParts, false};
constinit const DxfClass kLayer{"LAYER", "OdDbLayerTableRecord", kLayerParts, false};
constinit const DxfClass kLinetype{"LTYPE", "OdDbLinetypeTableRecord", kLinetypeParts, false};
constinit const DxfClass kTextStyle{"STYLE", "OdDbTextStyleTableRecord", kTextStyleParts, false};
constinit const DxfClass kDimStyle{"DIMSTYLE", "OdDbDimStyleTableRecord", kDimStyleParts, false};
constinit const DxfClass kRegApp{"APPID", "OdDbRegAppTableRecord", kRegAppParts, false};
constinit const DxfClass kUcs{"UCS", "OdDbUCSTableRecord", kUcsParts, false};
constinit const DxfClass kView{"VIEW", "OdDbViewTableRecord", kViewParts, false};
constinit const DxfClass kViewport{"VPORT", "OdDbViewportTableRecord", kViewportParts, false};
constinit const DxfClass kTable{"TABLE", "OdDbSymbolTable", kTableParts, false};

} // namespace recordtables

// ---- Kinds of tables -----------------------------------------------------------------------------------------------

const SymbolTableKind& symbolTableKind(SymbolTable table)
{
    static constexpr SymbolTableKind kKinds[] = {
        {SymbolTable::None, "", "", "", nullptr},
        {SymbolTable::Block, "BLOCK_RECORD", "OdDbBlockTable", "OdDbBlockTableRecord", &OdDbBlockTableRecord::desc},
        {SymbolTable::Layer, "LAYER", "OdDbLayerTable", "OdDbLayerTableRecord", &OdDbLayerTableRecord::desc},
        {SymbolTable::TextStyle, "STYLE", "OdDbTextStyleTable", "OdDbTextStyleTableRecord",
         &OdDbTextStyleTableRecord::desc},
        {SymbolTable::Linetype, "LTYPE", "OdDbLinetypeTable", "OdDbLinetypeTableRecord",
         &OdDbLinetypeTableRecord::desc},
        {SymbolTable::View, "VIEW", "OdDbViewTable", "OdDbViewTableRecord", &OdDbViewTableRecord::desc},
        {SymbolTable::Ucs, "UCS", "OdDbUCSTable", "OdDbUCSTableRecord", &OdDbUCSTableRecord::desc},
        {SymbolTable::Viewport, "VPORT", "OdDbViewportTable", "OdDbViewportTableRecord",
         &OdDbViewportTableRecord::desc},
        {SymbolTable::RegApp, "APPID", "OdDbRegAppTable", "OdDbRegAppTableRecord", &OdDbRegAppTableRecord::desc},
        {SymbolTable::DimStyle, "DIMSTYLE", "OdDbDimStyleTable", "OdDbDimStyleTableRecord",
         &OdDbDimStyleTableRecord::desc},
    };
    return kKinds[static_cast<std::size_t>(table)];
}

// ---- New objects ---------------------------------------------------------------------------------------------------

static void appendDefault(GroupsBuilder& groups, const DxfRow& row)
{
    switch (row.kind)
    {
    case DxfKind::Text:
    case DxfKind::Name:
        groups.text(row.code, row.text);
        return;
    case DxfKind::Real:
    case DxfKind::Angle:
        groups.real(row.code, row.number);
        return;
    case DxfKind::Point2d:
        groups.point(row.code, row.number, row.number);
        return;
    case DxfKind::Point3d:
        groups.point(row.code, row.number, row.number, row.number);
        return;
    case DxfKind::Integer:
        groups.integer(row.code, static_cast<std::int64_t>(row.number));
        return;
    case DxfKind::Boolean:
        groups.boolean(row.code, row.number != 0.0);
        return;
    case DxfKind::Id:
        groups.id(row.code, nullptr);
        return;
    case DxfKind::Binary:
        return;
    }
}

Groups initialGroups(const DxfClass& cls, std::initializer_list<int> codes)
{
    GroupsBuilder groups;
    for (const DxfSubclass* part : cls.subclasses)
    {
        groups.atom(100, part->atom());
        for (const DxfRow& row : part->rows)
            if (std::find(codes.begin(), codes.end(), row.code) != codes.end())
                appendDefault(groups, row);
    }
    return groups.build();
}

void registerRecordTables()
{
    using namespace recordtables;
    static const DxfClass kClasses[] = {
        kBlock,   kLayer,        kLinetype, kTextStyle, kDimStyle,   kRegApp,
        kUcs,     kView,         kViewport, kTable,     kDictionary, kDictionaryWithDefault,
        kXrecord, kPlotSettings, kLayout,
    };
    registerDxfClasses(kClasses);
}

} // namespace oddb
