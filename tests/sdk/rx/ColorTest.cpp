// Attacks colours: methods and numbers that there are not, colours between the numbered ones.
#include "CmColorBase.h"

#include <gtest/gtest.h>

#include "support/ErrorCode.h"

namespace
{

TEST(Color, NumberedColoursAreTheUsualOnes)
{
    const std::pair<OdUInt8, OdUInt32> kColors[] = {
        {0, 0},          {1, 0xFF0000},  {5, 0x0000FF},  {7, 0xFFFFFF},  {10, 0xFF0000},  {11, 0xFFAAAA},
        {20, 0xFF3F00},  {30, 0xFF7F00}, {50, 0xFFFF00}, {90, 0x00FF00}, {130, 0x00FFFF}, {170, 0x0000FF},
        {210, 0xFF00FF}, {12, 0xBD0000}, {13, 0xBD7E7E}, {19, 0x4F3535}, {250, 0x333333}, {255, 0xFFFFFF}};
    for (const auto& [index, rgb] : kColors)
        EXPECT_EQ(OdCmEntityColor::lookUpRGB(index), rgb) << int(index);
}

TEST(Color, TheNearestNumberOfANumberedColourIsAsGoodAsItsOwn)
{
    for (int index = 1; index < 256; ++index)
    {
        OdCmEntityColor color;
        color.setColorIndex(static_cast<OdUInt16>(index));
        EXPECT_EQ(color.colorIndex(), index);
        const OdUInt8 nearest = OdCmEntityColor::lookUpACI(color.red(), color.green(), color.blue());
        EXPECT_EQ(OdCmEntityColor::lookUpRGB(nearest), color.rgb()) << index;
        EXPECT_LE(nearest, index);
    }
}

TEST(Color, MethodsAndNumbersThatThereAreNotAreRefused)
{
    OdCmColor color(OdCmEntityColor(1, 2, 3));
    for (const OdUInt32 packed : {0u, 0xBFFFFFFFu, 0xC9000000u, 0xFFFFFFFFu})
        EXPECT_EQ(support::codeOf([&] { color.setColor(packed); }), eInvalidInput) << packed;
    for (const OdUInt16 index : {258, 512, 65535})
        EXPECT_EQ(support::codeOf([&] { color.setColorIndex(index); }), eInvalidInput) << index;
    EXPECT_TRUE(color == OdCmColor(OdCmEntityColor(1, 2, 3)));
    const std::pair<OdUInt16, OdCmColorBase::ColorMethod> kSpecial[] = {{0, OdCmColorBase::kByBlock},
                                                                        {256, OdCmColorBase::kByLayer},
                                                                        {257, OdCmColorBase::kNone},
                                                                        {3, OdCmColorBase::kByACI}};
    for (const auto& [number, method] : kSpecial)
    {
        color.setColorIndex(number);
        EXPECT_EQ(color.colorMethod(), method);
        EXPECT_EQ(color.colorIndex(), number);
    }
    color.setRed(9);
    EXPECT_TRUE(color.isByColor() && color.red() == 9 && color.green() == 255) << "what it looked like before is kept";
}

TEST(Color, TransparencySurvivesBeingStored)
{
    for (const OdUInt32 stored : {0u, 0x01000000u, 0x0200007Fu, 0x020000FFu})
    {
        OdCmTransparency transparency;
        transparency.serializeIn(stored);
        EXPECT_EQ(transparency.serializeOut(), stored);
        EXPECT_FALSE(transparency.isInvalid());
    }
    OdCmTransparency transparency;
    transparency.serializeIn(0x07000000u);
    EXPECT_TRUE(transparency.isInvalid());
}

} // namespace
