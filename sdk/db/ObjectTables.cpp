// The groups of dictionaries, data of applications and layouts.
#include "RecordTables.h"
#include "TableRows.h"

namespace oddb::recordtables
{

using namespace tablerows;

namespace
{

constexpr DxfRow kDictionaryRows[] = {
    since(OdDb::vAC15, integer(280, "keeps its entries from being purged")),
    since(OdDb::vAC15, integer(281, "merge style", 1)),
    repeated(text(3, "name of an entry")),
    repeated(id(350, "entry")),
    repeated(id(360, "entry of a dictionary that keeps its entries")),
};

constexpr DxfRow kDictionaryWithDefaultRows[] = {
    id(340, "object of all other names"),
};

constexpr DxfRow kXrecordRows[] = {
    since(OdDb::vAC15, integer(280, "merge style", 1)),
};

constexpr DxfRow kPlotSettingsRows[] = {
    text(1, "page setup"),
    text(2, "device", "none_device"),
    text(4, "paper size"),
    text(6, "plot view"),
    real(40, "left margin"),
    real(41, "bottom margin"),
    real(42, "right margin"),
    real(43, "top margin"),
    real(44, "paper width"),
    real(45, "paper height"),
    real(46, "plot origin x"),
    real(47, "plot origin y"),
    real(48, "window left"),
    real(49, "window bottom"),
    real(140, "window right"),
    real(141, "window top"),
    real(142, "scale, paper", 1.0),
    real(143, "scale, drawing", 1.0),
    integer(70, "flags: model 1024"),
    integer(72, "unit of the paper", 1),
    integer(73, "rotation"),
    integer(74, "plot area", 5),
    text(7, "plot style table"),
    integer(75, "standard scale", 16),
    real(147, "scale factor", 1.0),
    integer(76, "shade mode"),
    integer(77, "shade resolution", 2),
    integer(78, "shade dots per inch", 300),
    real(148, "paper image origin x"),
    real(149, "paper image origin y"),
};

constexpr DxfRow kLayoutRows[] = {
    text(1, "name"),
    integer(70, "flags: paper space linetype scaling 1, limits 2", 1),
    integer(71, "tab order"),
    point2d(10, "lower left limit"),
    {11, "upper right limit", DxfKind::Point2d, 0.0},
    point3d(12, "insertion base"),
    {14, "lower corner of the extents", DxfKind::Point3d, 1e20},
    {15, "upper corner of the extents", DxfKind::Point3d, -1e20},
    real(146, "elevation"),
    point3d(13, "UCS origin"),
    point3d(16, "UCS direction of x"),
    point3d(17, "UCS direction of y"),
    integer(76, "UCS orthographic type"),
    id(330, "block"),
    id(331, "viewport used last"),
    id(345, "UCS"),
    id(346, "UCS base"),
};

constinit const DxfSubclass kDictionaryPart{"AcDbDictionary", kDictionaryRows};
constinit const DxfSubclass kDictionaryWithDefaultPart{"AcDbDictionaryWithDefault", kDictionaryWithDefaultRows};
constinit const DxfSubclass kXrecordPart{"AcDbXrecord", kXrecordRows};
constinit const DxfSubclass kPlotSettingsPart{"AcDbPlotSettings", kPlotSettingsRows};
constinit const DxfSubclass kLayoutPart{"AcDbLayout", kLayoutRows};

const DxfSubclass* const kDictionaryParts[] = {&kDictionaryPart};
const DxfSubclass* const kDictionaryWithDefaultParts[] = {&kDictionaryPart, &kDictionaryWithDefaultPart};
const DxfSubclass* const kXrecordParts[] = {&kXrecordPart};
const DxfSubclass* const kPlotSettingsParts[] = {&kPlotSettingsPart};
const DxfSubclass* const kLayoutParts[] = {&kPlotSettingsPart, &kLayoutPart};

} // namespace

constinit const DxfClass kDictionary{"DICTIONARY", "OdDbDictionary", kDictionaryParts, false};
constinit const DxfClass kDictionaryWithDefault{"ACDBDICTIONARYWDFLT", "OdDbDictionaryWithDefault",
                                                kDictionaryWithDefaultParts, false};
constinit const DxfClass kXrecord{"XRECORD", "OdDbXrecord", kXrecordParts, false};
constinit const DxfClass kPlotSettings{"PLOTSETTINGS", "OdDbPlotSettings", kPlotSettingsParts, false};
constinit const DxfClass kLayout{"LAYOUT", "OdDbLayout", kLayoutParts, false};

} // namespace oddb::recordtables
