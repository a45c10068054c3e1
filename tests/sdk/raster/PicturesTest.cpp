// Reads pictures of every format, and attacks the reading with what is none.
#include <gtest/gtest.h>

#include <fstream>
#include <vector>

#include "DynamicLinker.h"
#include "OdError.h"
#include "RxInit.h"
#include "RxRasterServices.h"
#include "support/TemporaryFolder.h"

namespace
{

class PicturesTest : public ::testing::Test
{
protected:
    PicturesTest()
    {
        odInitialize();
        odrxDynamicLinker()->addSearchFolder(ZOLCAD_MODULES);
        services = OdRxRasterServices::cast(odrxDynamicLinker()->loadApp(RX_RASTER_SERVICES_APPNAME, false));
    }

    OdGiRasterImagePtr load(const std::string& name) const
    {
        return services->loadRasterImage(OdString((std::string(ZOLCAD_TEST_DATA "/pictures/") + name).c_str()));
    }
    /// What the error says, empty when there is none.
    std::string refusal(const std::string& path) const
    {
        try
        {
            services->loadRasterImage(OdString(path.c_str()));
        }
        catch (const OdError_FileException& error)
        {
            return odStringToUtf8(error.description());
        }
        return {};
    }

    OdRxRasterServicesPtr services;
};

struct Pixel
{
    int blue, green, red, alpha;
};

Pixel pixelOf(const OdGiRasterImage& picture, OdUInt32 x, OdUInt32 y)
{
    std::vector<OdUInt8> row(picture.scanLineSize());
    picture.scanLines(row.data(), y);
    const OdUInt8* bytes = &row[std::size_t{4} * x];
    return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

void expectNear(const Pixel& pixel, const Pixel& expected, int tolerance, const std::string& where)
{
    EXPECT_NEAR(pixel.blue, expected.blue, tolerance) << where;
    EXPECT_NEAR(pixel.green, expected.green, tolerance) << where;
    EXPECT_NEAR(pixel.red, expected.red, tolerance) << where;
    EXPECT_NEAR(pixel.alpha, expected.alpha, 0) << where;
}

TEST_F(PicturesTest, EveryFormatGivesSizeResolutionAndPixels)
{
    // Names, the tolerance of their compression, dots per inch.
    const std::tuple<std::string, int, double> rows[] = {{"shades.png", 0, 300},
                                                         {"shades.bmp", 0, 300},
                                                         {"shades.tif", 0, 300},
                                                         {"shades.jpg", 90, 300},
                                                         {"shades.gif", 12, 0}};
    for (const auto& [name, tolerance, dotsPerInch] : rows)
    {
        const OdGiRasterImagePtr picture = load(name);
        EXPECT_EQ(picture->pixelWidth(), 12u) << name;
        EXPECT_EQ(picture->pixelHeight(), 8u) << name;
        double x = 0, y = 0;
        const OdGiRasterImage::Units units = picture->defaultResolution(x, y);
        if (dotsPerInch > 0)
        {
            EXPECT_EQ(units, OdGiRasterImage::kInch) << name;
            EXPECT_NEAR(x, dotsPerInch, 0.5) << name;
            EXPECT_NEAR(y, dotsPerInch, 0.5) << name;
        }
        expectNear(pixelOf(*picture, 0, 0), {255, 0, 0, 255}, tolerance, name + " top left");
        expectNear(pixelOf(*picture, 5, 3), {0, 0, 100, 255}, tolerance, name + " inside");
        expectNear(pixelOf(*picture, 11, 7), {0, 255, 0, 255}, tolerance, name + " bottom right");
    }
}

TEST_F(PicturesTest, OtherDepthsBecomeFourBytes)
{
    EXPECT_EQ(pixelOf(*load("transparent.png"), 11, 0).alpha, 0);
    EXPECT_EQ(pixelOf(*load("transparent.png"), 10, 0).alpha, 255);
    for (const char* name : {"bilevel.png", "cmyk.jpg", "grey16.png"})
    {
        const OdGiRasterImagePtr picture = load(name);
        EXPECT_EQ(picture->pixelWidth(), 12u) << name;
        EXPECT_EQ(pixelOf(*picture, 3, 3).alpha, 255) << name;
    }
    const Pixel green = pixelOf(*load("cmyk.jpg"), 6, 7);
    EXPECT_GT(green.green, 128);
    EXPECT_LT(green.red, 128);
}

TEST_F(PicturesTest, RowsThatAreNotThereAreRefused)
{
    const OdGiRasterImagePtr picture = load("shades.png");
    std::vector<OdUInt8> rows(std::size_t{9} * picture->scanLineSize(), 0xCD);
    EXPECT_THROW(picture->scanLines(rows.data(), 8), OdError);
    EXPECT_THROW(picture->scanLines(rows.data(), 7, 2), OdError);
    EXPECT_THROW(picture->scanLines(rows.data(), 1, 0xFFFFFFFF), OdError);
    picture->scanLines(rows.data(), 8, 0);
    EXPECT_EQ(rows[0], 0xCD);
}

TEST_F(PicturesTest, FilesThatAreNoPicturesAreNamed)
{
    const support::TemporaryFolder folder;
    const auto write = [&](const std::string& name, const std::string& bytes)
    {
        std::string path = folder.path() + "/" + name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    };
    std::ifstream source(ZOLCAD_TEST_DATA "/pictures/shades.png", std::ios::binary);
    const std::string whole((std::istreambuf_iterator<char>(source)), {});
    // A header of 2^31 - 1 by 2^31 - 1 pixels, with its checksum left wrong.
    std::string huge = whole;
    huge.replace(16, 8, std::string("\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF", 8));
    for (const std::string& path :
         {folder.path() + "/none.png", folder.path(), write("empty.png", ""), write("text.png", "no picture"),
          write("short.png", whole.substr(0, 20)), write("huge.png", huge), write("drawing.dxf", "0\nSECTION\n")})
        EXPECT_NE(refusal(path).find(path), std::string::npos) << path << ": " << refusal(path);
    // Its name does not matter.
    EXPECT_EQ(refusal(write("picture.txt", whole)), "");
}

TEST_F(PicturesTest, PicturesThatAreCutOffAreFilledUpOrRefused)
{
    const support::TemporaryFolder folder;
    for (const std::string name : {"shades.png", "shades.bmp", "shades.tif", "shades.jpg", "shades.gif"})
    {
        std::ifstream source(ZOLCAD_TEST_DATA "/pictures/" + name, std::ios::binary);
        const std::string whole((std::istreambuf_iterator<char>(source)), {});
        for (std::size_t length = 0; length < whole.size(); length += 31)
        {
            const std::string path = folder.path(name);
            std::ofstream(path, std::ios::binary) << whole.substr(0, length);
            try
            {
                const OdGiRasterImagePtr picture = services->loadRasterImage(OdString(path.c_str()));
                std::vector<OdUInt8> rows(std::size_t{picture->scanLineSize()} * picture->pixelHeight());
                picture->scanLines(rows.data(), 0, picture->pixelHeight());
            }
            catch (const OdError_FileException& error)
            {
                EXPECT_NE(odStringToUtf8(error.description()).find(path), std::string::npos) << length;
            }
        }
    }
}

} // namespace
