// What is written as PNG is read back by another library as it was.
#include "render/PngFile.h"

#include <cstdint>
#include <functional>
#include <vector>

#include "PaintedPicture.h"

namespace
{

using namespace rendertest;

/// Words of alpha, red, green and blue.
using PixelAt = std::function<std::uint32_t(int x, int y)>;

TEST(PngFileTest, ImagesOfAllKindsAndSizesStayAsTheyAre)
{
    const PixelAt few = [](int x, int y) { return 0xFF000000u | static_cast<std::uint32_t>((x * 7 + y / 3) % 200); };
    const PixelAt even = [](int, int) { return 0xFFFFFFFFu; };
    const PixelAt fullPalette = [](int x, int y) { return 0xFF102000u | static_cast<std::uint32_t>((x + y) % 256); };
    const PixelAt oneTooMany = [](int x, int y) { return 0xFF102000u | static_cast<std::uint32_t>((x + y) % 257); };
    const PixelAt noise = [](int x, int y)
    { return 0xFF000000u | (static_cast<std::uint32_t>(x * 977 + y) * 2654435761u >> 8); };
    const PixelAt seenThrough = [](int x, int y)
    {
        const auto alpha = static_cast<std::uint32_t>((x + y) % 256);
        return alpha << 24 | alpha << 16 | alpha / 2 << 8 | alpha / 3;
    };
    const struct
    {
        const char* what;
        int width, height;
        bool isOpaque;
        PixelAt pixelAt;
    } rows[] = {
        {"a pixel", 1, 1, true, few},
        {"a column, less than a band", 1, 3001, true, few},
        {"some bands", 701, 901, true, few},
        {"rows that four bands do not divide", 1021, 1151, true, even},
        {"as many colours as a palette has", 800, 700, true, fullPalette},
        {"one colour more", 800, 700, true, oneTooMany},
        {"noise, which does not get smaller", 911, 700, true, noise},
        {"alpha", 600, 517, false, seenThrough},
        {"few rows", 30000, 3, false, seenThrough},
    };
    const support::TemporaryFolder folder;
    for (const auto& row : rows)
    {
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < row.height; ++y)
            for (int x = 0; x < row.width; ++x)
                pixels.push_back(row.pixelAt(x, y));
        const std::string file = folder.path("image.png");
        support::writeWholeFile(file, render::encodePng({reinterpret_cast<const unsigned char*>(pixels.data()),
                                                         row.width, row.height, row.width * 4, row.isOpaque}));
        const Pixels read(file);
        ASSERT_EQ(read.width(), row.width) << row.what;
        ASSERT_EQ(read.height(), row.height) << row.what;
        int wrong = 0;
        for (int i = 0; i < row.width * row.height; ++i)
        {
            const render::Color color = read.at(i % row.width, i / row.width);
            const std::uint32_t pixel = pixels[static_cast<std::size_t>(i)];
            wrong += pixel != (std::uint32_t(color.alpha) << 24 | std::uint32_t(color.red) << 16 |
                               std::uint32_t(color.green) << 8 | std::uint32_t(color.blue));
        }
        EXPECT_EQ(wrong, 0) << row.what;
    }
}

} // namespace
