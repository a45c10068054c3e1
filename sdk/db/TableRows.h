// Short ways to write the rows of the group tables of classes, so that a table reads as a list: code, meaning,
// default, and only where it differs, the first file version and that the group may repeat.
#pragma once

#include "DxfClassTable.h"

namespace oddb::tablerows
{

constexpr DxfRow text(int code, const char* meaning, const char* standard = "")
{
    return {code, meaning, DxfKind::Text, 0.0, standard};
}
constexpr DxfRow real(int code, const char* meaning, double standard = 0.0)
{
    return {code, meaning, DxfKind::Real, standard};
}
constexpr DxfRow angle(int code, const char* meaning, double standard = 0.0)
{
    return {code, meaning, DxfKind::Angle, standard};
}
constexpr DxfRow integer(int code, const char* meaning, int standard = 0)
{
    return {code, meaning, DxfKind::Integer, static_cast<double>(standard)};
}
constexpr DxfRow boolean(int code, const char* meaning, bool standard = false)
{
    return {code, meaning, DxfKind::Boolean, standard ? 1.0 : 0.0};
}
constexpr DxfRow point2d(int code, const char* meaning)
{
    return {code, meaning, DxfKind::Point2d};
}
constexpr DxfRow point3d(int code, const char* meaning)
{
    return {code, meaning, DxfKind::Point3d};
}
constexpr DxfRow id(int code, const char* meaning)
{
    return {code, meaning, DxfKind::Id};
}
constexpr DxfRow name(int code, const char* meaning, SymbolTable table, const char* standard = "")
{
    return {code, meaning, DxfKind::Name, 0.0, standard, table};
}
constexpr DxfRow binary(int code, const char* meaning)
{
    return {code, meaning, DxfKind::Binary};
}

constexpr DxfRow since(OdDb::DwgVersion version, DxfRow row)
{
    row.since = version;
    return row;
}
constexpr DxfRow repeated(DxfRow row)
{
    row.repeats = true;
    return row;
}

} // namespace oddb::tablerows
