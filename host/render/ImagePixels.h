// The pixels of pictures as Cairo wants them.
#pragma once

#include <string>
#include <vector>

#include <cairo.h>

#include "Gi/GiRasterImage.h"
#include "render/Canvas.h"

namespace render
{

/// A surface with the picture's pixels. Lives as long as it needs to.
class ImagePixels
{
public:
    /// Throws OdError when the pixels cannot be read.
    ImagePixels(const OdGiRasterImage& image, const ImageLooks& looks);
    ~ImagePixels();
    ImagePixels(const ImagePixels&) = delete;
    ImagePixels& operator=(const ImagePixels&) = delete;

    cairo_surface_t* surface() const { return m_surface; }
    /// The bytes of a PNG file.
    std::string png() const;

private:
    std::vector<OdUInt8> m_pixels;
    cairo_surface_t* m_surface = nullptr;
};

} // namespace render
