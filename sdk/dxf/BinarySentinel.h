// The first bytes of a binary DXF file, which tell it from an ASCII one.
#pragma once

#include <string_view>

namespace dxf
{

constexpr std::string_view kBinarySentinel("AutoCAD Binary DXF\r\n\x1A\0", 22);

} // namespace dxf
