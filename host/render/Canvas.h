// What pictures are painted on: an image in memory, a page of PDF, an SVG file.
#pragma once

#include <memory>
#include <string>

#include "Gi/GiShapedText.h"
#include "render/Color.h"
#include "render/Path.h"

class OdGiRasterImage;

namespace render
{

/// A line of text on a page: where its base line starts, and how one drawing unit along and above it is seen.
struct TextPlace
{
    OdGePoint2d origin;
    OdGeVector2d along;
    OdGeVector2d up;
};

/// The outline of a bar that belongs to a text.
Path barPath(const OdGiTextBar& bar, const TextPlace& place, double slant);

/// Where a picture is shown: its upper left corner, and how its width and its height are seen.
struct ImagePlace
{
    OdGePoint2d origin;
    OdGeVector2d across;
    OdGeVector2d down;
};

/// How a picture is to look.
struct ImageLooks
{
    bool isTransparent = false; ///< its transparent pixels are so
    OdUInt8 alpha = 255;        ///< of the whole
    double brightness = 50.0;   ///< from 0 to 100
    double contrast = 50.0;     ///< from 0 to 100
    double fade = 0.0;          ///< from 0 to 100, towards the background
    Color background;
};

/// Paints in the order of the calls, as far as that is seen. Coordinates are pixels from the upper left corner of the
/// page.
class Canvas
{
public:
    virtual ~Canvas() = default;

    /// With evenOdd, what lies within an even number of outlines is left out; else what is inside of any is filled.
    virtual void fill(const Path& path, const Color& color, bool evenOdd) = 0;
    virtual void stroke(const Path& path, const Color& color, double width) = 0;
    /// Fills a quadrilateral without corners that point inward; of such shapes there may be many.
    virtual void fillBar(const Path& quadrilateral, const Color& color) { fill(quadrilateral, color, false); }
    virtual void text(const OdGiShapedText& text, const TextPlace& place, const Color& color) = 0;
    virtual void image(const OdGiRasterImage& image, const ImagePlace& place, const ImageLooks& looks) = 0;

    /// Cuts off what lies outside of the path, until its pop.
    virtual void pushClip(const Path& path) = 0;
    virtual void popClip() = 0;

    /// Writes the file. Throws OdError_FileWriteError.
    virtual void finish() = 0;

    /// The least width that lines are drawn with.
    virtual double thinnestLine() const = 0;
    /// True when texts that are too small to read are better drawn as bars.
    virtual bool showsPixels() const = 0;
};

/// The size of a page in pixels, of which there are 96 in an inch.
struct PageSize
{
    int width = 0;
    int height = 0;
};

/// Writes a file. Throws OdError_FileWriteError, also when there are no bytes.
void writeFile(const std::string& file, const std::string& bytes);

/// Pixels, where there are some, are zero and so many as the page has, with four bytes each.
std::unique_ptr<Canvas> makePngCanvas(const std::string& file, const PageSize& size, const Color& background,
                                      std::unique_ptr<unsigned char[]> pixels = nullptr);
std::unique_ptr<Canvas> makePdfCanvas(const std::string& file, const PageSize& size, const Color& background);
std::unique_ptr<Canvas> makeSvgCanvas(const std::string& file, const PageSize& size, const Color& background);

} // namespace render
