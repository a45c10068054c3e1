// Small drawings as text.
#include "DrawingText.h"

#include <algorithm>
#include <cstdlib>

#include "DxfRecords.h"

namespace support
{

std::string groups(std::string_view text)
{
    std::string all;
    while (!text.empty())
    {
        const std::string_view item = text.substr(0, text.find('|'));
        all += group(std::atoi(item.data()), item.substr(item.find(' ') + 1));
        text.remove_prefix(std::min(item.size() + 1, text.size()));
    }
    return all;
}

std::string drawing(std::string_view version)
{
    std::string text = readWholeFile(ZOLCAD_TEST_DATA "/drawings/whole.dxf");
    const std::string_view written = "AC1032";
    return text.replace(text.find(written), written.size(), version);
}

std::string oldLine(std::string_view handle, double x, double y)
{
    const auto real = [](int code, double value) { return group(code, std::to_string(value)); };
    return group(0, "LINE") + (handle.empty() ? "" : group(5, handle)) + group(8, "0") + real(10, x) + real(20, y) +
           group(30, "0.0") + real(11, x + 1) + real(21, y) + group(31, "0.0");
}

std::string oldDrawing()
{
    return readWholeFile(ZOLCAD_TEST_DATA "/drawings/r12.dxf");
}

} // namespace support
