// Colours: what numbered colours stand for, and which number is nearest to a colour.
//
//     1 - 9      fixed colours
//     10 - 249   24 hues, 15 degrees apart, in 5 brightnesses, each full (even) and pale (odd)
//     250 - 255  greys
#include "CmColorBase.h"

#include <algorithm>
#include <array>
#include <climits>

#include "OdError.h"

namespace
{

constexpr OdUInt32 pack(int red, int green, int blue)
{
    return (static_cast<OdUInt32>(red) << 16) | (static_cast<OdUInt32>(green) << 8) | static_cast<OdUInt32>(blue);
}

constexpr OdUInt32 kFixedColors[] = {0,        0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                     0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
constexpr OdUInt32 kGreys[] = {0x333333, 0x505050, 0x696969, 0x828282, 0xBEBEBE, 0xFFFFFF};
constexpr int kBrightnesses[] = {255, 189, 129, 104, 79};

// How much of one of red, green and blue (0, 8 and 16 hues away) a hue has, out of 255.
constexpr int shareOf(int hue, int channelHue)
{
    constexpr int kSteps[] = {255, 255, 255, 255, 255, 191, 127, 63, 0};
    int distance = (hue - channelHue + 24) % 24;
    distance = distance > 12 ? 24 - distance : distance;
    return distance > 8 ? 0 : kSteps[distance];
}

constexpr int channelOf(int hue, int channelHue, int brightness, bool isPale)
{
    const int least = isPale ? (2 * brightness + 1) / 3 : 0;
    return least + (brightness - least) * shareOf(hue, channelHue) / 255;
}

constexpr OdUInt32 colorOf(int index)
{
    if (index < 10)
        return kFixedColors[index];
    if (index >= 250)
        return kGreys[index - 250];
    const int hue = index / 10 - 1;
    const int brightness = kBrightnesses[index % 10 / 2];
    const bool isPale = index % 2 != 0;
    return pack(channelOf(hue, 0, brightness, isPale), channelOf(hue, 8, brightness, isPale),
                channelOf(hue, 16, brightness, isPale));
}

constexpr std::array<OdUInt32, 256> makeColors()
{
    std::array<OdUInt32, 256> colors{};
    for (int i = 0; i < 256; ++i)
        colors[static_cast<std::size_t>(i)] = colorOf(i);
    return colors;
}

constexpr std::array<OdUInt32, 256> kColors = makeColors();

/// Red, green and blue of the numbered colours apart, for the search of the nearest one.
struct Components
{
    std::array<int, 256> red{};
    std::array<int, 256> green{};
    std::array<int, 256> blue{};
};

constexpr Components componentsOf(const std::array<OdUInt32, 256>& colors)
{
    Components components;
    for (std::size_t i = 0; i < colors.size(); ++i)
    {
        components.red[i] = static_cast<int>(colors[i] >> 16 & 255);
        components.green[i] = static_cast<int>(colors[i] >> 8 & 255);
        components.blue[i] = static_cast<int>(colors[i] & 255);
    }
    return components;
}

constexpr Components kComponents = componentsOf(kColors);

/// The number of the nearest colour: of the least squared distance, and of two such the lower one.
OdUInt8 findNearest(int red, int green, int blue)
{
    int nearest = INT_MAX;
    for (std::size_t i = 1; i < kColors.size(); ++i)
    {
        const int r = kComponents.red[i] - red;
        const int g = kComponents.green[i] - green;
        const int b = kComponents.blue[i] - blue;
        nearest = std::min(nearest, (r * r + g * g + b * b) << 8 | static_cast<int>(i));
    }
    return static_cast<OdUInt8>(nearest);
}

/// A colour that was looked up, and its number; 0 for none.
struct LookedUp
{
    OdUInt32 color = 0;
    OdUInt8 number = 0;
};

} // namespace

OdUInt32 OdCmEntityColor::lookUpRGB(OdUInt8 colorIndex)
{
    return kColors[colorIndex];
}

// The colours of a drawing are few and come again and again.
OdUInt8 OdCmEntityColor::lookUpACI(OdUInt8 red, OdUInt8 green, OdUInt8 blue)
{
    thread_local std::array<LookedUp, 64> known;
    const OdUInt32 wanted = pack(red, green, blue);
    LookedUp& place = known[(wanted * 0x9E3779B1u) >> 26];
    if (place.number == 0 || place.color != wanted)
        place = {wanted, findNearest(red, green, blue)};
    return place.number;
}

void OdCmEntityColor::setColor(OdUInt32 color)
{
    const OdUInt32 method = color >> 24;
    if (method < kByLayer || method > kNone)
        odThrow(eInvalidInput);
    m_color = color;
}

OdUInt32 OdCmEntityColor::rgb() const
{
    switch (colorMethod())
    {
    case OdCmColorBase::kByColor:
        return m_color & 0xFFFFFF;
    case OdCmColorBase::kByACI:
        return lookUpRGB(static_cast<OdUInt8>(m_color));
    case OdCmColorBase::kForeground:
        return lookUpRGB(kACIforeground);
    default:
        return 0;
    }
}

OdUInt16 OdCmEntityColor::colorIndex() const
{
    switch (colorMethod())
    {
    case OdCmColorBase::kByLayer:
        return kACIbyLayer;
    case OdCmColorBase::kByBlock:
        return kACIbyBlock;
    case OdCmColorBase::kByColor:
        return lookUpACI(red(), green(), blue());
    case OdCmColorBase::kByACI:
        return static_cast<OdUInt16>(m_color & 0xFF);
    case OdCmColorBase::kForeground:
        return kACIforeground;
    default:
        return kACInone;
    }
}

void OdCmEntityColor::setColorIndex(OdUInt16 colorIndex)
{
    if (colorIndex > kACInone)
        odThrow(eInvalidInput);
    switch (colorIndex)
    {
    case kACIbyBlock:
        m_color = OdUInt32(kByBlock) << 24;
        break;
    case kACIbyLayer:
        m_color = OdUInt32(kByLayer) << 24;
        break;
    case kACInone:
        m_color = OdUInt32(kNone) << 24;
        break;
    default:
        m_color = (OdUInt32(kByACI) << 24) | colorIndex;
    }
}

bool OdCmEntityColor::isForeground() const
{
    return colorMethod() == kForeground || (isByACI() && colorIndex() == kACIforeground);
}

OdCmColor::OdCmColor(const OdCmColorBase& source)
{
    *this = source;
}

OdCmColor& OdCmColor::operator=(const OdCmColorBase& source)
{
    m_color.setColor(source.color());
    m_colorName = source.colorName();
    m_bookName = source.bookName();
    return *this;
}

bool OdCmColor::setNames(const OdString& colorName, const OdString& bookName)
{
    m_colorName = colorName;
    m_bookName = bookName;
    return true;
}

bool OdCmColor::operator==(const OdCmColor& other) const
{
    return m_color == other.m_color && m_colorName == other.m_colorName && m_bookName == other.m_bookName;
}
