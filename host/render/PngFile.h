// Writes images as PNG files.
#pragma once

#include <string>

namespace render
{

/// An image in memory, of words of alpha, red, green and blue; colours are multiplied by alpha.
struct Image
{
    const unsigned char* pixels;
    int width;
    int height;
    int stride; ///< bytes from row to row
    bool isOpaque;
};

/// The bytes of a PNG file. An opaque image of few colours has a palette. Throws std::bad_alloc.
std::string encodePng(const Image& image);

} // namespace render
