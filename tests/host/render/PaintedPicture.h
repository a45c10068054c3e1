// Pictures as tests look at them: pixels by the drawing's own coordinates.
#pragma once

#include <cmath>
#include <cstdlib>
#include <ostream>
#include <string>

#include <cairo.h>
#include <gtest/gtest.h>

#include "OdError.h"
#include "render/Picture.h"
#include "session/HostServices.h"
#include "session/OpenDrawing.h"
#include "support/ChildProcess.h"
#include "support/DxfRecords.h"
#include "support/EntityDrawing.h"
#include "support/TemporaryFolder.h"

namespace rendertest
{

inline void PrintTo(const render::Color& color, std::ostream* out)
{
    *out << int(color.red) << "," << int(color.green) << "," << int(color.blue) << "," << int(color.alpha);
}

/// The pixels of a PNG file.
class Pixels
{
public:
    explicit Pixels(const std::string& file) : m_surface(cairo_image_surface_create_from_png(file.c_str()))
    {
        EXPECT_EQ(cairo_surface_status(m_surface), CAIRO_STATUS_SUCCESS) << file;
    }
    ~Pixels() { cairo_surface_destroy(m_surface); }
    Pixels(const Pixels&) = delete;
    Pixels& operator=(const Pixels&) = delete;

    int width() const { return cairo_image_surface_get_width(m_surface); }
    int height() const { return cairo_image_surface_get_height(m_surface); }

    render::Color at(int x, int y) const
    {
        const unsigned char* pixel = cairo_image_surface_get_data(m_surface) +
                                     std::ptrdiff_t{y} * cairo_image_surface_get_stride(m_surface) +
                                     std::ptrdiff_t{4} * x;
        const bool isOpaque = cairo_image_surface_get_format(m_surface) == CAIRO_FORMAT_RGB24;
        return {pixel[2], pixel[1], pixel[0], isOpaque ? OdUInt8(255) : pixel[3]};
    }

    /// The box around all pixels that are not white, in pixels; invalid when there are none.
    OdGeExtents2d ink() const
    {
        OdGeExtents2d box;
        for (int y = 0; y < height(); ++y)
        {
            for (int x = 0; x < width(); ++x)
            {
                const render::Color color = at(x, y);
                if (color.red < 128 || color.green < 128 || color.blue < 128)
                    box.addPoint({double(x), double(y)}).addPoint({x + 1.0, y + 1.0});
            }
        }
        return box;
    }

    int count(const render::Color& color) const
    {
        int found = 0;
        for (int y = 0; y < height(); ++y)
        {
            for (int x = 0; x < width(); ++x)
                found += at(x, y) == color ? 1 : 0;
        }
        return found;
    }

private:
    cairo_surface_t* m_surface;
};

constexpr render::Color kWhite{255, 255, 255, 255};
constexpr render::Color kBlack{0, 0, 0, 255};
constexpr render::Color kRed{255, 0, 0, 255};
constexpr render::Color kGreen{0, 255, 0, 255};
constexpr render::Color kBlue{0, 0, 255, 255};
constexpr render::Color kMagenta{255, 0, 255, 255};

class PictureTest : public testing::Test
{
protected:
    PictureTest()
    {
        order.file = path("picture.png");
        order.window = OdGeExtents2d({0, 0}, {100, 100});
        order.size = render::PageSize{400, 400};
    }

    std::string path(const std::string& name) const { return m_folder.path(name); }

    /// Paints a drawing of these entities with the order at hand.
    void paint(const support::Content& content) { paintFile(support::drawingOf(content)); }
    void paintFile(const std::string& text)
    {
        support::writeWholeFile(path("drawing.dxf"), text);
        const session::OpenDrawing drawing(odUtf8ToString(path("drawing.dxf")));
        render::paintPicture(drawing.database(), order);
    }

    /// The pixel at a place of the drawing, where all of the window from (0, 0) to (100, 100) is seen.
    static render::Color colorAt(const Pixels& pixels, double x, double y)
    {
        return pixels.at(static_cast<int>(x * pixels.width() / 100),
                         static_cast<int>((100 - y) * pixels.height() / 100));
    }

    render::PictureOrder order;

private:
    session::HostServices m_services{session::Plugin::kLeftOut};
    support::TemporaryFolder m_folder;
};

/// A filled square of side 10 with its lower left corner there, on a layer, with further groups of the common part.
inline std::string square(const std::string& handle, const std::string& layer, double x, double y,
                          const std::string& looks = {})
{
    const auto corner = [](int code, double cornerX, double cornerY)
    {
        return "|" + std::to_string(code) + " " + std::to_string(cornerX) + "|" + std::to_string(code + 10) + " " +
               std::to_string(cornerY);
    };
    return "SOLID " + handle + " " + layer + (looks.empty() ? "" : "|" + looks) + "|100 AcDbTrace" + corner(10, x, y) +
           corner(11, x + 10, y) + corner(12, x, y + 10) + corner(13, x + 10, y + 10);
}

} // namespace rendertest
