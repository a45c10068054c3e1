// Implements the drawing of the pictures of unknown entities. Whatever the bytes are, nothing is read beyond them.
#include "entities/ProxyPainter.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "Gi/GiTextStyle.h"
#include "entities/ProxyGraphics.h"

namespace proxygraphics
{

namespace
{

enum Kind : std::int32_t
{
    kCircle = 2,
    kArc = 4,
    kPolyline = 6,
    kPolygon = 7,
    kText = 10,
    kStyledText = 11,
    kXline = 12,
    kRay = 13,
    kColor = 14,
    kFill = 20,
    kTrueColor = 22,
    kLineWeight = 23,
    kLinetypeScale = 24,
    kPushOtherMatrix = 30,
    kPolylineWithNormal = 32,
    kWideText = 36,
    kWideStyledText = 38
};

OdString wideText(std::string_view bytes)
{
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        if (low == 0 && high == 0)
            break;
        text.push_back(static_cast<wchar_t>(low | high << 8));
    }
    return OdString(text);
}

/// Takes values off the front of bytes; those that are not there are zero.
class Bytes
{
public:
    explicit Bytes(std::string_view bytes) : m_rest(bytes) {}

    bool isComplete() const { return m_isComplete; }
    std::string_view rest() const { return m_rest; }

    template<class T>
    T take()
    {
        T value{};
        m_isComplete = m_isComplete && m_rest.size() >= sizeof value;
        if (m_isComplete)
        {
            std::memcpy(&value, m_rest.data(), sizeof value);
            m_rest.remove_prefix(sizeof value);
        }
        return value;
    }
    std::int32_t integer() { return take<std::int32_t>(); }
    double real()
    {
        const double value = take<double>();
        m_isComplete = m_isComplete && std::isfinite(value);
        return value;
    }
    OdGePoint3d point()
    {
        const double x = real();
        const double y = real();
        const double z = real();
        return OdGePoint3d(x, y, z);
    }
    OdGeVector3d vector() { return point().asVector(); }
    std::vector<OdGePoint3d> points()
    {
        const std::int32_t count = integer();
        m_isComplete =
            m_isComplete && count >= 0 && static_cast<std::size_t>(count) <= m_rest.size() / (3 * sizeof(double));
        std::vector<OdGePoint3d> points;
        for (std::int32_t i = 0; m_isComplete && i < count; ++i)
            points.push_back(point());
        return points;
    }
    /// Characters that are filled up to four bytes.
    OdString characters(bool isWide)
    {
        const std::size_t width = isWide ? 2 : 1;
        std::size_t size = 0;
        while (size + width <= m_rest.size() && m_rest.substr(size, width) != std::string_view("\0\0", width))
            size += width;
        const std::string_view text = m_rest.substr(0, size);
        size = (size + width + 3) / 4 * 4;
        m_isComplete = m_isComplete && size <= m_rest.size();
        m_rest.remove_prefix(std::min(size, m_rest.size()));
        return isWide ? wideText(text) : odUtf8ToString(text);
    }
    OdGeMatrix3d matrix()
    {
        OdGeMatrix3d matrix;
        for (auto& row : matrix.entry)
        {
            for (double& entry : row)
                entry = real();
        }
        return matrix;
    }

private:
    std::string_view m_rest;
    bool m_isComplete = true;
};

class Painter
{
public:
    explicit Painter(OdGiWorldDraw& worldDraw) : m_geometry(worldDraw.geometry()), m_traits(worldDraw.subEntityTraits())
    {
    }
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;
    ~Painter()
    {
        for (; m_matrices > 0; --m_matrices)
            m_geometry.popModelTransform();
    }

    void draw(std::int32_t kind, std::string_view data);
    bool hasDrawn() const { return m_hasDrawn; }

private:
    void drawShape(std::int32_t kind, Bytes& bytes);
    void drawCircle(Bytes& bytes);
    void drawArc(Bytes& bytes);
    void drawPoints(Bytes& bytes, std::int32_t kind);
    void drawText(Bytes& bytes, bool isWide);
    void drawStyledText(Bytes& bytes, bool isWide);
    void pushMatrix(Bytes& bytes);

    OdGiGeometry& m_geometry;
    OdGiSubEntityTraits& m_traits;
    int m_matrices = 0;
    bool m_hasDrawn = false;
};

void Painter::draw(std::int32_t kind, std::string_view data)
{
    Bytes bytes(data);
    switch (kind)
    {
    case kColor:
        return m_traits.setColor(static_cast<OdUInt16>(std::min(std::max(bytes.integer(), 0), 256)));
    case kFill:
        return m_traits.setFillType(bytes.integer() == kOdGiFillAlways ? kOdGiFillAlways : kOdGiFillNever);
    case kTrueColor:
        if (const auto value = bytes.take<std::uint32_t>(); value >> 24 == OdCmEntityColor::kByColor)
            m_traits.setTrueColor(OdCmEntityColor(static_cast<OdUInt8>(value >> 16), static_cast<OdUInt8>(value >> 8),
                                                  static_cast<OdUInt8>(value)));
        return;
    case kLineWeight:
        return m_traits.setLineWeight(static_cast<OdDb::LineWeight>(std::min(std::max(bytes.integer(), -3), 211)));
    case kLinetypeScale:
        if (const double scale = bytes.real(); scale > 0.0)
            m_traits.setLineTypeScale(scale);
        return;
    case kPushMatrix:
    case kPushOtherMatrix:
        return pushMatrix(bytes);
    case kPopMatrix:
        if (m_matrices > 0)
        {
            m_geometry.popModelTransform();
            --m_matrices;
        }
        return;
    default:
        return drawShape(kind, bytes);
    }
}

void Painter::drawShape(std::int32_t kind, Bytes& bytes)
{
    switch (kind)
    {
    case kCircle:
        return drawCircle(bytes);
    case kArc:
        return drawArc(bytes);
    case kPolyline:
    case kPolygon:
    case kPolylineWithNormal:
        return drawPoints(bytes, kind);
    case kText:
    case kWideText:
        return drawText(bytes, kind == kWideText);
    case kStyledText:
    case kWideStyledText:
        return drawStyledText(bytes, kind == kWideStyledText);
    case kXline:
    case kRay:
    {
        const OdGePoint3d first = bytes.point();
        const OdGePoint3d second = bytes.point();
        if (bytes.isComplete())
            kind == kRay ? m_geometry.ray(first, second) : m_geometry.xline(first, second);
        return;
    }
    default:
        return;
    }
}

void Painter::drawCircle(Bytes& bytes)
{
    const OdGePoint3d center = bytes.point();
    const double radius = bytes.real();
    const OdGeVector3d normal = bytes.vector();
    if (!bytes.isComplete() || normal.length() == 0.0)
        return;
    m_geometry.circle(center, radius, normal);
    m_hasDrawn = true;
}

void Painter::drawArc(Bytes& bytes)
{
    const OdGePoint3d center = bytes.point();
    const double radius = bytes.real();
    const OdGeVector3d normal = bytes.vector();
    const OdGeVector3d start = bytes.vector();
    const double sweep = bytes.real();
    if (!bytes.isComplete() || normal.length() == 0.0 || start.length() == 0.0)
        return;
    m_geometry.circularArc(center, radius, normal, start.normal(), sweep);
    m_hasDrawn = true;
}

void Painter::drawPoints(Bytes& bytes, std::int32_t kind)
{
    const std::vector<OdGePoint3d> points = bytes.points();
    if (!bytes.isComplete() || points.empty())
        return;
    const auto count = static_cast<OdInt32>(points.size());
    kind == kPolygon ? m_geometry.polygon(count, points.data()) : m_geometry.polyline(count, points.data());
    m_hasDrawn = true;
}

void Painter::drawText(Bytes& bytes, bool isWide)
{
    const OdGePoint3d start = bytes.point();
    const OdGeVector3d normal = bytes.vector();
    const OdGeVector3d direction = bytes.vector();
    const double height = bytes.real();
    const double width = bytes.real();
    const double oblique = bytes.real();
    if (!bytes.isComplete() || normal.length() == 0.0 || direction.length() == 0.0 || !(height > 0.0))
        return;
    const std::string_view text = bytes.rest();
    const OdString message = isWide ? wideText(text) : odUtf8ToString(text.substr(0, text.find('\0')));
    m_geometry.text(start, normal.normal(), direction.normal(), height, width > 0.0 ? width : 1.0, oblique, message);
    m_hasDrawn = true;
}

void Painter::drawStyledText(Bytes& bytes, bool isWide)
{
    const OdGePoint3d start = bytes.point();
    const OdGeVector3d normal = bytes.vector();
    const OdGeVector3d direction = bytes.vector();
    const OdString message = bytes.characters(isWide);
    bytes.integer(); // their number, which is known
    const bool isRaw = bytes.integer() != 0;
    OdGiTextStyle style;
    style.setTextSize(bytes.real());
    const double width = bytes.real();
    style.setXScale(width > 0.0 ? width : 1.0);
    style.setObliquingAngle(bytes.real());
    const double tracking = bytes.real();
    style.setTrackingPercent(tracking > 0.0 ? tracking : 1.0);
    const bool isBackward = bytes.integer() != 0;
    const bool isUpsideDown = bytes.integer() != 0;
    style.setVertical(bytes.integer() != 0);
    style.setUnderlined(bytes.integer() != 0);
    style.setOverlined(bytes.integer() != 0);
    const bool isBold = bytes.integer() != 0;
    const bool isItalic = bytes.integer() != 0;
    bytes.integer(); // the character set,
    bytes.integer(); // and the pitch, which the font has itself
    const OdString typeface = bytes.characters(isWide);
    style.setFileName(bytes.characters(isWide));
    style.setBigFontFileName(bytes.characters(isWide));
    if (!typeface.isEmpty())
        style.setFont(typeface, isBold, isItalic);
    if (!bytes.isComplete() || normal.length() == 0.0 || direction.length() == 0.0 || !(style.textSize() > 0.0))
        return;
    m_geometry.text(start, normal.normal() * (isBackward != isUpsideDown ? -1.0 : 1.0),
                    direction.normal() * (isBackward ? -1.0 : 1.0), message.c_str(), message.getLength(), isRaw,
                    &style);
    m_hasDrawn = true;
}

void Painter::pushMatrix(Bytes& bytes)
{
    const OdGeMatrix3d matrix = bytes.matrix();
    if (!bytes.isComplete() || matrix.isPerspective())
        return;
    m_geometry.pushModelTransform(matrix);
    ++m_matrices;
}

} // namespace

bool draw(const oddb::Groups& groups, OdGiWorldDraw& worldDraw)
{
    Painter painter(worldDraw);
    visitPieces(pictureOf(groups),
                [&painter](std::int32_t kind, std::string_view data)
                {
                    painter.draw(kind, data);
                    return true;
                });
    return painter.hasDrawn();
}

} // namespace proxygraphics
