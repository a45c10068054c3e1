// Implements the reading of the box of a proxy's picture.
#include "entities/ProxyGraphics.h"

#include <cstring>
#include <string>
#include <string_view>

namespace proxygraphics
{

namespace
{

constexpr std::int32_t kExtents = 1;
constexpr std::size_t kHead = 2 * sizeof(std::int32_t);

template<class T>
T load(std::string_view bytes, std::size_t at)
{
    T value;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

std::string pictureOf(const oddb::Groups& groups)
{
    std::string picture;
    int sections = 0;
    for (const oddb::GroupView& group : groups)
    {
        sections += group.beginsSection() ? 1 : 0;
        if (sections > 1)
            break;
        if (group.code() == 310)
            picture += group.binary();
    }
    return picture;
}

OdGeExtents3d readBox(std::string_view data)
{
    double c[6];
    if (data.size() < sizeof c)
        return {};
    std::memcpy(c, data.data(), sizeof c);
    const OdGeExtents3d box(OdGePoint3d(c[0], c[1], c[2]), OdGePoint3d(c[3], c[4], c[5]));
    return box;
}

} // namespace

OdGeExtents3d boxOf(const oddb::Groups& groups)
{
    const std::string picture = pictureOf(groups);
    const std::string_view bytes = picture;
    for (std::size_t at = kHead; at + kHead <= bytes.size();)
    {
        const auto size = load<std::int32_t>(bytes, at);
        if (size < static_cast<std::int32_t>(kHead) || static_cast<std::size_t>(size) > bytes.size() - at)
            break;
        if (load<std::int32_t>(bytes, at + sizeof(std::int32_t)) == kExtents)
            return readBox(bytes.substr(at + kHead, static_cast<std::size_t>(size) - kHead));
        at += static_cast<std::size_t>(size);
    }
    return {};
}

} // namespace proxygraphics
