// SVG files:
//
//   <svg width height viewBox>
//     <rect> background
//     <path d fill | stroke stroke-width [-opacity]>     neighbouring lines of one look share a path
//     <text transform font-family font-size textLength>  characters, not outlines
//     <image transform href>                             the picture itself, as PNG in base 64
//     <g clip-path="url(#c1)"> ... </g>                  what is cut off, with its <clipPath id="c1">
//
// Coordinates have two decimals, that is, hundredths of a pixel.
#include <charconv>
#include <cmath>

#include "render/Canvas.h"
#include "render/ImagePixels.h"

namespace render
{

namespace
{

constexpr std::size_t kMostKept = 20000; ///< steps of paths that share an element

void appendNumber(std::string& out, double number, int decimals = 2)
{
    char digits[64];
    const std::to_chars_result end =
        std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, decimals);
    if (end.ec != std::errc() || !std::isfinite(number))
    {
        out += '0';
        return;
    }
    std::string_view text(digits, static_cast<std::size_t>(end.ptr - digits));
    while (text.back() == '0')
        text.remove_suffix(1);
    if (text.back() == '.')
        text.remove_suffix(1);
    out += text == "-0" ? "0" : text;
}

void appendPoint(std::string& out, const OdGePoint2d& point)
{
    appendNumber(out, point.x);
    out += ' ';
    appendNumber(out, point.y);
}

void appendPath(std::string& out, const Path& path)
{
    const OdGePoint2d* point = path.points().data();
    for (const Step step : path.steps())
    {
        switch (step)
        {
        case Step::kMove:
        case Step::kLine:
            out += step == Step::kMove ? 'M' : 'L';
            appendPoint(out, *point++);
            break;
        case Step::kCurve:
            out += 'C';
            for (int i = 0; i < 3; ++i)
            {
                out += i > 0 ? " " : "";
                appendPoint(out, *point++);
            }
            break;
        case Step::kClose:
            out += 'Z';
            break;
        }
    }
}

void appendColor(std::string& out, std::string_view attribute, const Color& color)
{
    constexpr char kDigits[] = "0123456789abcdef";
    out += ' ';
    out += attribute;
    out += "=\"#";
    for (const OdUInt8 part : {color.red, color.green, color.blue})
    {
        out += kDigits[part >> 4];
        out += kDigits[part & 15];
    }
    out += '"';
    if (color.isOpaque())
        return;
    out += ' ';
    out += attribute;
    out += "-opacity=\"";
    appendNumber(out, color.alpha / 255.0, 3);
    out += '"';
}

/// A character that XML may hold.
bool isAllowed(wchar_t c)
{
    return c == L'\t' || (c >= 0x20 && c < 0xD800) || (c >= 0xE000 && c < 0xFFFE) || (c > 0xFFFF && c <= 0x10FFFF);
}

std::string escaped(std::wstring_view text)
{
    std::wstring allowed;
    for (const wchar_t character : text)
        allowed.push_back(isAllowed(character) ? character : static_cast<wchar_t>(0xFFFD));
    std::string out;
    for (const char c : odStringToUtf8(std::wstring_view(allowed)))
    {
        switch (c)
        {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

std::string base64(const std::string& bytes)
{
    constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    out.reserve(bytes.size() / 3 * 4 + 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3)
    {
        OdUInt32 three = 0;
        for (std::size_t k = 0; k < 3; ++k)
            three = three << 8 | (i + k < bytes.size() ? static_cast<OdUInt8>(bytes[i + k]) : 0);
        for (std::size_t k = 0; k < 4; ++k)
            out += i + k <= bytes.size() ? kDigits[three >> (18 - 6 * k) & 63] : '=';
    }
    return out;
}

class SvgCanvas : public Canvas
{
public:
    SvgCanvas(std::string file, const PageSize& size, const Color& background) : m_file(std::move(file))
    {
        const std::string width = std::to_string(size.width);
        const std::string height = std::to_string(size.height);
        m_out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
                "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"" +
                width + "\" height=\"" + height + "\" viewBox=\"0 0 " + width + " " + height +
                "\" stroke-linecap=\"round\" stroke-linejoin=\"round\" fill=\"none\">\n";
        if (background.alpha == 0)
            return;
        m_out += "<rect width=\"" + width + "\" height=\"" + height + "\"";
        appendColor(m_out, "fill", background);
        m_out += "/>\n";
    }

    void fill(const Path& path, const Color& color, bool evenOdd) override
    {
        flush();
        m_out += "<path";
        appendColor(m_out, "fill", color);
        m_out += evenOdd ? " fill-rule=\"evenodd\" d=\"" : " d=\"";
        appendPath(m_out, path);
        m_out += "\"/>\n";
    }

    void stroke(const Path& path, const Color& color, double width) override
    {
        if (m_kept > 0 && (color != m_strokeColor || width != m_strokeWidth || !color.isOpaque() || m_kept > kMostKept))
            flush();
        m_strokeColor = color;
        m_strokeWidth = width;
        m_kept += path.steps().size();
        appendPath(m_strokes, path);
    }

    void text(const OdGiShapedText& text, const TextPlace& place, const Color& color) override;
    void image(const OdGiRasterImage& image, const ImagePlace& place, const ImageLooks& looks) override;

    void pushClip(const Path& path) override
    {
        flush();
        const std::string id = "c" + std::to_string(++m_clips);
        m_out += "<clipPath id=\"" + id + "\"><path d=\"";
        appendPath(m_out, path);
        m_out += "\"/></clipPath>\n<g clip-path=\"url(#" + id + ")\">\n";
    }

    void popClip() override
    {
        flush();
        m_out += "</g>\n";
    }

    void finish() override
    {
        flush();
        m_out += "</svg>\n";
        writeFile(m_file, m_out);
    }

    double thinnestLine() const override { return 0.5; }
    bool showsPixels() const override { return false; }

private:
    void flush()
    {
        if (m_kept == 0)
            return;
        m_out += "<path";
        appendColor(m_out, "stroke", m_strokeColor);
        m_out += " stroke-width=\"";
        appendNumber(m_out, m_strokeWidth);
        m_out += "\" d=\"" + m_strokes + "\"/>\n";
        m_strokes.clear();
        m_kept = 0;
    }

    void appendMatrix(const OdGeVector2d& across, const OdGeVector2d& down, const OdGePoint2d& origin)
    {
        m_out += " transform=\"matrix(";
        for (const double number : {across.x, across.y, down.x, down.y})
        {
            appendNumber(m_out, number, 6);
            m_out += ' ';
        }
        appendPoint(m_out, origin);
        m_out += ")\"";
    }

    std::string m_file;
    std::string m_out;
    std::string m_strokes;
    Color m_strokeColor;
    double m_strokeWidth = 0.0;
    std::size_t m_kept = 0;
    int m_clips = 0;
};

// The element is as wide as the line is; so it stays in place also where other fonts are installed. Its own pixels are
// tenths of the height, as viewers do not like very small fonts.
void SvgCanvas::text(const OdGiShapedText& text, const TextPlace& place, const Color& color)
{
    flush();
    if (text.fonts.empty())
        return;
    const OdGiGlyphFont& font = text.fonts.front();
    const double unit = font.emSize / 10.0;
    const double width = text.width / (unit * font.widthPart);
    if (!(width > 0.0) || !std::isfinite(width))
        return;
    m_out += "<text";
    appendMatrix(place.along * (unit * font.widthPart), (place.up + place.along * font.slant) * -unit, place.origin);
    appendColor(m_out, "fill", color);
    m_out += " font-size=\"10\" font-family=\"'" + font.file->family + "', sans-serif\"";
    m_out += font.file->bold ? " font-weight=\"bold\"" : "";
    m_out += font.file->italic ? " font-style=\"italic\"" : "";
    m_out += " textLength=\"";
    appendNumber(m_out, width);
    m_out += "\" lengthAdjust=\"spacingAndGlyphs\" xml:space=\"preserve\">" + escaped(text.text) + "</text>\n";
    for (const OdGiTextBar& bar : text.bars)
        fill(barPath(bar, place, font.slant), color, false);
}

void SvgCanvas::image(const OdGiRasterImage& image, const ImagePlace& place, const ImageLooks& looks)
{
    flush();
    const std::string png = ImagePixels(image, looks).png();
    m_out += "<image width=\"1\" height=\"1\" preserveAspectRatio=\"none\"";
    appendMatrix(place.across, place.down, place.origin);
    if (looks.alpha < 255)
    {
        m_out += " opacity=\"";
        appendNumber(m_out, looks.alpha / 255.0, 3);
        m_out += '"';
    }
    m_out += " xlink:href=\"data:image/png;base64," + base64(png) + "\"/>\n";
}

} // namespace

std::unique_ptr<Canvas> makeSvgCanvas(const std::string& file, const PageSize& size, const Color& background)
{
    return std::make_unique<SvgCanvas>(file, size, background);
}

} // namespace render
