// What all canvases need.
#include "render/Canvas.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "OdError.h"

namespace render
{

Path barPath(const OdGiTextBar& bar, const TextPlace& place, double slant)
{
    const OdGePoint2d& low = bar.minPoint();
    const OdGePoint2d& high = bar.maxPoint();
    const auto at = [&](double x, double y) { return place.origin + place.along * (x + slant * y) + place.up * y; };
    Path path;
    path.moveTo(at(low.x, low.y));
    path.lineTo(at(high.x, low.y));
    path.lineTo(at(high.x, high.y));
    path.lineTo(at(low.x, high.y));
    path.close();
    return path;
}

void writeFile(const std::string& file, const std::string& bytes)
{
    errno = 0;
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out || bytes.empty())
        throw OdError_FileWriteError(odUtf8ToString(file), odUtf8ToString(std::strerror(errno ? errno : ENOMEM)));
}

} // namespace render
