// Implements the writing of PNG files. An image is compressed in bands side by side, which takes most of the time.
#include "render/PngFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <future>
#include <memory>
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

/// Colours of opaque pixels, as long as they are no more than one byte can number.
class Colors
{
public:
    bool isUsable() const { return m_isUsable; }
    /// In the order in which they became known.
    const std::vector<std::uint32_t>& all() const { return m_all; }

    /// Colours become known with this. Most pixels have the colour of the one before, and nearly all colours are where
    /// they are looked for first.
    void numberRow(const unsigned char* pixel, int width, unsigned char* number)
    {
        std::uint32_t last = kNone;
        unsigned char lastNumber = 0;
        for (int x = 0; x < width && m_isUsable; ++x, pixel += 4)
        {
            std::uint32_t color;
            std::memcpy(&color, pixel, sizeof color);
            if (color != last)
                lastNumber = numberOf(last = color);
            number[x] = lastNumber;
        }
    }

    unsigned char numberOf(std::uint32_t color)
    {
        std::size_t place = (color * 2654435761u) >> (32 - kBits);
        while (m_places[place].color != color)
        {
            if (m_places[place].color == kNone)
                return add(place, color);
            place = (place + 1) % m_places.size();
        }
        return m_places[place].number;
    }

private:
    unsigned char add(std::size_t place, std::uint32_t color)
    {
        constexpr std::size_t kMost = 256;
        const auto number = static_cast<unsigned char>(m_all.size());
        m_isUsable = m_isUsable && m_all.size() < kMost;
        if (m_isUsable)
        {
            m_places[place] = {color, number};
            m_all.push_back(color);
        }
        return number;
    }

    static constexpr std::uint32_t kNone = 0; ///< has no alpha: no pixel of an opaque image

    struct Place
    {
        std::uint32_t color = kNone;
        unsigned char number = 0;
    };

    static constexpr int kBits = 11;
    std::array<Place, std::size_t(1) << kBits> m_places;
    std::vector<std::uint32_t> m_all;
    bool m_isUsable = true;
};

/// The colours of an opaque image, if they are few. Parts of the image are numbered side by side.
class Palette
{
public:
    explicit Palette(const Image& image)
        : m_image(image), m_numbers(new unsigned char[sizeOf(image.width) * sizeOf(image.height)])
    {
        const auto numberPart = [this](int i) { number(m_parts[static_cast<std::size_t>(i)], i); };
        std::vector<std::future<void>> later;
        for (int i = 1; i < kParts; ++i)
            later.push_back(std::async(std::launch::async | std::launch::deferred, numberPart, i));
        numberPart(0);
        for (std::future<void>& part : later)
            part.get();
        for (Part& part : m_parts)
            merge(part);
    }

    bool isUsable() const { return m_hasRoom && m_colors.isUsable(); }

    /// Red, green and blue of each colour.
    Bytes colors() const
    {
        Bytes colors;
        for (const std::uint32_t color : m_colors.all())
            for (const int shift : {16, 8, 0})
                colors += static_cast<char>(color >> shift);
        return colors;
    }

    /// The numbers of the colours of a row.
    void write(int y, unsigned char* to) const
    {
        const unsigned char* const from = rowOfNumbers(y);
        const auto isBefore = [](int row, const Part& part) { return row < part.end; };
        const Part& part = *std::upper_bound(m_parts.begin(), m_parts.end(), y, isBefore);
        for (int x = 0; x < m_image.width; ++x)
            to[x] = part.numbers[from[x]];
    }

private:
    struct Part
    {
        int end = 0; ///< behind its last row
        Colors colors;
        std::array<unsigned char, 256> numbers{}; ///< in the image, by those in the part
    };

    static std::size_t sizeOf(int count) { return static_cast<std::size_t>(count); }
    unsigned char* rowOfNumbers(int y) const { return m_numbers.get() + sizeOf(y) * sizeOf(m_image.width); }

    void number(Part& part, int i)
    {
        part.end = static_cast<int>(std::int64_t{m_image.height} * (i + 1) / kParts);
        for (int y = static_cast<int>(std::int64_t{m_image.height} * i / kParts); y < part.end; ++y)
            part.colors.numberRow(m_image.pixels + static_cast<std::ptrdiff_t>(y) * m_image.stride, m_image.width,
                                  rowOfNumbers(y));
    }

    /// A part without room for its own colours has none for those of others.
    void merge(Part& part)
    {
        std::size_t i = 0;
        for (const std::uint32_t color : part.colors.all())
            part.numbers[i++] = m_colors.numberOf(color);
        m_hasRoom = m_hasRoom && part.colors.isUsable();
    }

    static constexpr int kParts = 4;
    const Image& m_image;
    std::unique_ptr<unsigned char[]> m_numbers; ///< in their parts, of all pixels
    std::array<Part, kParts> m_parts;
    Colors m_colors;
    bool m_hasRoom = true;
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
            m_palette->write(y, to);
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
