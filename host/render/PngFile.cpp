// Implements the writing of PNG files. An image is compressed in bands side by side, which takes most of the time.
#include "render/PngFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <future>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include <zlib.h>

namespace render
{

namespace
{

using Bytes = std::string;

void appendNumber(Bytes& bytes, std::size_t number)
{
    for (const int shift : {24, 16, 8, 0})
        bytes += static_cast<char>(number >> shift);
}

/// Colours of a file are not multiplied by alpha.
void copyRow(const unsigned char* from, const Image& image, unsigned char* to)
{
    for (int x = 0; x < image.width; ++x, from += 4)
    {
        const unsigned int alpha = from[3];
        const bool isPlain = image.isOpaque || alpha == 255 || alpha == 0;
        for (int part = 2; part >= 0; --part)
            *to++ = static_cast<unsigned char>(isPlain ? from[part] : (from[part] * 255u + alpha / 2) / alpha);
        if (!image.isOpaque)
            *to++ = static_cast<unsigned char>(alpha);
    }
}

/// The colours of an opaque image, as long as they are no more than one byte can number.
class Palette
{
public:
    explicit Palette(const Image& image)
    {
        m_indices.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
        unsigned char* index = m_indices.data();
        for (int y = 0; y < image.height && m_isUsable; ++y, index += image.width)
            numberRow(image.pixels + static_cast<std::ptrdiff_t>(y) * image.stride, image.width, index);
    }

    bool isUsable() const { return m_isUsable; }
    /// Red, green and blue of each.
    const Bytes& colors() const { return m_colors; }
    /// The numbers of all pixels' colours, row by row.
    const unsigned char* indices() const { return m_indices.data(); }

private:
    /// Colours become known with this. Nearly all are where they are looked for first.
    void numberRow(const unsigned char* pixel, int width, unsigned char* index)
    {
        for (int x = 0; x < width; ++x, pixel += 4)
        {
            std::uint32_t color;
            std::memcpy(&color, pixel, sizeof color);
            const std::size_t place = placeOf(color);
            index[x] = m_places[place].color == color ? m_places[place].index : indexFarther(place, color, pixel);
        }
    }

    static std::size_t placeOf(std::uint32_t color) { return (color * 2654435761u) >> (32 - kBits); }

    /// Looks behind the place where a colour was looked for first.
    unsigned char indexFarther(std::size_t place, std::uint32_t color, const unsigned char* pixel)
    {
        while (m_places[place].color != kNone && m_places[place].color != color)
            place = (place + 1) % m_places.size();
        if (m_places[place].color == kNone)
            add(place, color, pixel);
        return m_places[place].index;
    }

    void add(std::size_t place, std::uint32_t color, const unsigned char* pixel)
    {
        const std::size_t count = m_colors.size() / 3;
        m_isUsable = m_isUsable && count < 256;
        if (!m_isUsable)
            return;
        m_places[place] = {color, static_cast<unsigned char>(count)};
        for (const int part : {2, 1, 0})
            m_colors += static_cast<char>(pixel[part]);
    }

    static constexpr std::uint32_t kNone = 0; ///< has no alpha: no pixel of an opaque image

    struct Place
    {
        std::uint32_t color = kNone;
        unsigned char index = 0;
    };

    static constexpr int kBits = 11;
    std::array<Place, std::size_t(1) << kBits> m_places;
    Bytes m_colors;
    std::vector<unsigned char> m_indices;
    bool m_isUsable = true;
};

/// What a file holds of an image, row by row.
class Rows
{
public:
    explicit Rows(const Image& image) : m_image(image)
    {
        if (image.isOpaque)
            m_palette.emplace(image);
        if (m_palette && !m_palette->isUsable())
            m_palette.reset();
    }

    const Palette* palette() const { return m_palette ? &*m_palette : nullptr; }
    int count() const { return m_image.height; }
    /// The bytes of a row: how it is filtered, and its pixels.
    std::size_t size() const { return 1 + static_cast<std::size_t>(m_image.width) * bytesOfPixel(); }

    /// Lines on an even ground need no filters.
    void write(int y, unsigned char* to) const
    {
        constexpr unsigned char kUnfiltered = 0;
        *to++ = kUnfiltered;
        if (m_palette)
            std::memcpy(to, m_palette->indices() + static_cast<std::ptrdiff_t>(y) * m_image.width, size() - 1);
        else
            copyRow(m_image.pixels + static_cast<std::ptrdiff_t>(y) * m_image.stride, m_image, to);
    }

private:
    std::size_t bytesOfPixel() const { return m_palette ? 1 : m_image.isOpaque ? 3 : 4; }

    const Image& m_image;
    std::optional<Palette> m_palette;
};

/// Compressed rows, and the sum that tells whether they are whole.
struct Band
{
    std::vector<unsigned char> bytes;
    std::size_t size = 0; ///< of the rows
    uLong sum = 0;
};

/// Hardly anything gets smaller by more effort than the least; of numbers of colours, only runs are worth looking for.
Band compress(const Rows& rows, int first, int last)
{
    constexpr int kLevel = 1;
    constexpr int kWithoutFrame = -15;
    constexpr int kMemory = 9;
    z_stream stream{};
    if (deflateInit2(&stream, kLevel, Z_DEFLATED, kWithoutFrame, kMemory,
                     rows.palette() ? Z_RLE : Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::bad_alloc();
    const std::unique_ptr<z_stream, decltype(&deflateEnd)> end(&stream, &deflateEnd);
    Band band{{}, rows.size() * static_cast<std::size_t>(last - first), adler32(0, nullptr, 0)};
    std::vector<unsigned char> row(rows.size());
    const auto put = [&](int flush)
    {
        do
        {
            if (stream.avail_out == 0)
            {
                stream.avail_out = static_cast<uInt>(std::max<std::size_t>(band.bytes.size(), 65536));
                band.bytes.resize(band.bytes.size() + stream.avail_out);
            }
            stream.next_out = band.bytes.data() + band.bytes.size() - stream.avail_out;
            deflate(&stream, flush);
        } while (stream.avail_out == 0);
    };
    for (int y = first; y < last; ++y)
    {
        rows.write(y, row.data());
        band.sum = adler32(band.sum, row.data(), static_cast<uInt>(row.size()));
        stream.next_in = row.data();
        stream.avail_in = static_cast<uInt>(row.size());
        put(Z_NO_FLUSH);
    }
    put(last == rows.count() ? Z_FINISH : Z_SYNC_FLUSH);
    band.bytes.resize(band.bytes.size() - stream.avail_out);
    return band;
}

/// All rows as one compressed stream.
Bytes compress(const Rows& rows)
{
    constexpr int kMostBands = 4; // the same everywhere, so that a picture is the same file everywhere
    constexpr std::size_t kLeastBand = 1 << 18;
    const std::size_t size = rows.size() * static_cast<std::size_t>(rows.count());
    const int bands = std::clamp(static_cast<int>(std::min<std::size_t>(size / kLeastBand, kMostBands)), 1,
                                 std::max(rows.count(), 1));
    const auto bandAt = [&](int i) { return compress(rows, rows.count() * i / bands, rows.count() * (i + 1) / bands); };
    std::vector<std::future<Band>> later;
    for (int i = 1; i < bands; ++i)
        later.push_back(std::async(std::launch::async | std::launch::deferred, bandAt, i)); // deferred without threads
    Bytes stream("\x78\x01");                                                               // its head names the method
    uLong sum = adler32(0, nullptr, 0);
    const auto append = [&](const Band& band)
    {
        stream.append(band.bytes.begin(), band.bytes.end());
        sum = adler32_combine(sum, band.sum, static_cast<z_off_t>(band.size));
    };
    append(bandAt(0));
    for (std::future<Band>& band : later)
        append(band.get());
    appendNumber(stream, sum);
    return stream;
}

void appendChunk(Bytes& file, std::string_view name, std::string_view content)
{
    appendNumber(file, content.size());
    const std::size_t start = file.size();
    file += name;
    file += content;
    appendNumber(
        file, crc32_z(crc32(0, nullptr, 0), reinterpret_cast<const Bytef*>(file.data()) + start, file.size() - start));
}

Bytes headOf(const Image& image, const Palette* palette)
{
    enum Kind : char
    {
        kColors = 2,
        kNumbers = 3,
        kColorsWithAlpha = 6
    };
    constexpr char kBits = 8;
    Bytes head;
    appendNumber(head, static_cast<std::size_t>(image.width));
    appendNumber(head, static_cast<std::size_t>(image.height));
    head += {kBits, palette ? kNumbers : image.isOpaque ? kColors : kColorsWithAlpha, 0, 0, 0};
    return head;
}

Bytes resolution()
{
    constexpr std::size_t kPixelsPerMetre = 3780; // 96 to the inch
    constexpr char kMetre = 1;
    Bytes content;
    appendNumber(content, kPixelsPerMetre);
    appendNumber(content, kPixelsPerMetre);
    return content + kMetre;
}

} // namespace

std::string encodePng(const Image& image)
{
    const Rows rows(image);
    Bytes file("\x89PNG\r\n\x1a\n");
    appendChunk(file, "IHDR", headOf(image, rows.palette()));
    appendChunk(file, "pHYs", resolution());
    if (rows.palette())
        appendChunk(file, "PLTE", rows.palette()->colors());
    appendChunk(file, "IDAT", compress(rows));
    appendChunk(file, "IEND", {});
    return file;
}

} // namespace render
