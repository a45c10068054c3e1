// Implements the keeping of what entities have told.
#include "render/Recording.h"

#include <algorithm>
#include <array>
#include <bit>

namespace render
{

namespace
{

constexpr std::size_t kLooked = 8; ///< looks and styles that are compared with a new one; most are those of the last

/// The place of a value among the last ones of a row, which it is added to when it is not there.
template<class Value>
std::uint32_t placeOf(std::vector<Value>& row, const Value& value)
{
    const std::size_t farthest = row.size() - std::min(row.size(), kLooked);
    for (std::size_t i = row.size(); i > farthest; --i)
    {
        if (row[i - 1] == value)
            return static_cast<std::uint32_t>(i - 1);
    }
    row.push_back(value);
    return static_cast<std::uint32_t>(row.size() - 1);
}

/// The same to the last bit, so that what is told again is what was told.
template<class Coordinates>
bool isSame(const Coordinates& first, const Coordinates& second)
{
    using Bits = std::array<std::uint64_t, sizeof(Coordinates) / sizeof(double)>;
    return std::bit_cast<Bits>(first) == std::bit_cast<Bits>(second);
}

} // namespace

// Room that is not used takes no memory, but growing would copy what is there time and again.
Recording::Recording()
{
    constexpr std::size_t kRoom = std::size_t{1} << 20;
    m_shapes.reserve(kRoom);
    m_points.reserve(kRoom);
    m_vertices.reserve(kRoom / 4);
    m_characters.reserve(kRoom);
}

// ---- Keeping -------------------------------------------------------------------------------------------------------

std::uint32_t Recording::numberOf(const OdGiSubEntityTraitsData& looks)
{
    return placeOf(m_looks, looks);
}

std::uint32_t Recording::numberOf(const OdGiTextStyle& style)
{
    return placeOf(m_styles, style);
}

std::size_t Recording::bytes() const
{
    return m_shapes.size() * sizeof(Shape) + m_points.size() * sizeof(OdGePoint3d) +
           m_vertices.size() * sizeof(OdGiPolyline::Vertex) + m_characters.size() * sizeof(wchar_t) +
           m_frames.size() * sizeof(Frame) + m_looks.size() * sizeof(OdGiSubEntityTraitsData) +
           m_styles.size() * sizeof(OdGiTextStyle);
}

void Recording::beginEntity(const OdGiSubEntityTraitsData& looks)
{
    m_isBegun = true;
    m_begin = sizes();
    m_frameAtBegin = m_lastFrame;
    m_firstLooks = numberOf(looks);
    m_goesOn = !m_parts.empty() && !m_parts.back().asked && m_parts.back().looks == m_firstLooks;
    if (!m_goesOn)
        m_lastLooks = m_firstLooks;
    else if (m_lastLooks != m_firstLooks)
        setLooks(looks);
}

void Recording::setLooks(const OdGiSubEntityTraitsData& looks)
{
    const std::uint32_t number = numberOf(looks);
    if (number == m_lastLooks)
        return;
    add(Kind::kLooks, 0, number);
    m_lastLooks = number;
}

void Recording::add(Kind kind, std::size_t count, std::uint32_t detail)
{
    m_shapes.push_back({kind, static_cast<std::uint32_t>(count), detail});
}

void Recording::setFrame(const Frame& frame)
{
    m_lastFrame = static_cast<std::uint32_t>(m_frames.size());
    m_frames.push_back(frame);
    add(Kind::kFrame, 0, m_lastFrame);
}

void Recording::setFrame(const OdGeVector3d& normal, const OdGeVector3d& x)
{
    if (!isSame(frame().normal, normal) || !isSame(frame().x, x))
        setFrame({frame().origin, x, frame().y, normal});
}

void Recording::addPolyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal)
{
    const auto count = static_cast<std::size_t>(std::max<OdInt32>(numPoints, 0));
    if (normal)
        setFrame(*normal, frame().x);
    add(normal ? Kind::kExtrudedPolyline : Kind::kPolyline, count, 0);
    m_points.insert(m_points.end(), points, points + count);
}

void Recording::addPolygon(OdInt32 numPoints, const OdGePoint3d* points)
{
    const auto count = static_cast<std::size_t>(std::max<OdInt32>(numPoints, 0));
    add(Kind::kPolygon, count, 0);
    m_points.insert(m_points.end(), points, points + count);
}

void Recording::addArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                       const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType)
{
    setFrame(normal, startVector);
    add(Kind::kArc, 0, static_cast<std::uint32_t>(arcType));
    addPoints({center, {radius, sweepAngle, 0.0}});
}

void Recording::addEllipse(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                           double startAngle, double endAngle)
{
    add(Kind::kEllipse, 0, 0);
    addPoints({center, majorAxis.asPoint(), minorAxis.asPoint(), {startAngle, endAngle, 0.0}});
}

void Recording::addFlatPolyline(const OdGiPolyline& polyline)
{
    const Frame plane{polyline.origin, polyline.xAxis, polyline.yAxis, polyline.normal};
    if (!isSame(frame(), plane))
        setFrame(plane);
    add(Kind::kFlatPolyline, polyline.vertices.size(),
        (polyline.isClosed ? kClosed : 0u) | (polyline.hasPlinegen ? kPlinegen : 0u));
    m_vertices.insert(m_vertices.end(), polyline.vertices.begin(), polyline.vertices.end());
}

void Recording::addText(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                        const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle)
{
    const auto count = static_cast<std::size_t>(std::max<OdInt32>(length, 0));
    setFrame(normal, direction);
    add(raw ? Kind::kRawText : Kind::kText, count, textStyle ? numberOf(*textStyle) : kNoStyle);
    m_points.push_back(position);
    m_characters.append(message, count);
}

void Recording::keepEntity()
{
    if (!m_goesOn)
        m_parts.push_back({nullptr, m_firstLooks, 0});
    m_parts.back().shapes += static_cast<std::uint32_t>(m_shapes.size() - m_begin.shapes);
    m_isBegun = false;
    m_isFull = m_isFull || bytes() > kMostBytes;
}

void Recording::askEntity(OdDbStub* entity)
{
    if (m_isBegun)
    {
        m_shapes.resize(m_begin.shapes);
        m_points.resize(m_begin.points);
        m_vertices.resize(m_begin.vertices);
        m_characters.resize(m_begin.characters);
        m_lastFrame = m_frameAtBegin;
        m_isBegun = false;
    }
    m_parts.push_back({entity, 0, 0});
}

// ---- Telling -------------------------------------------------------------------------------------------------------

void Recording::Teller::tell(const Part& part, OdGiGeometry& geometry, OdGiSubEntityTraitsToData& traits)
{
    for (std::uint32_t i = 0; i < part.shapes; ++i)
    {
        const Shape& shape = m_recording.m_shapes[m_shape++];
        const auto count = static_cast<OdInt32>(shape.count);
        const OdGePoint3d* points = m_recording.m_points.data() + m_point;
        const Frame& frame = m_recording.m_frames[m_frame];
        switch (shape.kind)
        {
        case Kind::kLooks:
            traits.setValues(m_recording.m_looks[shape.detail]);
            break;
        case Kind::kFrame:
            m_frame = shape.detail;
            break;
        case Kind::kPolyline:
        case Kind::kExtrudedPolyline:
            geometry.polyline(count, points, shape.kind == Kind::kPolyline ? nullptr : &frame.normal);
            m_point += shape.count;
            break;
        case Kind::kPolygon:
            geometry.polygon(count, points);
            m_point += shape.count;
            break;
        case Kind::kArc:
            geometry.circularArc(points[0], points[1].x, frame.normal, frame.x, points[1].y,
                                 static_cast<OdGiArcType>(shape.detail));
            m_point += 2;
            break;
        case Kind::kEllipse:
            geometry.ellipArc(points[0], points[1].asVector(), points[2].asVector(), points[3].x, points[3].y);
            m_point += 4;
            break;
        case Kind::kFlatPolyline:
            tellFlatPolyline(shape, geometry);
            break;
        case Kind::kText:
        case Kind::kRawText:
            geometry.text(points[0], frame.normal, frame.x, m_recording.m_characters.data() + m_character, count,
                          shape.kind == Kind::kRawText,
                          shape.detail == kNoStyle ? nullptr : &m_recording.m_styles[shape.detail]);
            ++m_point;
            m_character += shape.count;
            break;
        }
    }
}

void Recording::Teller::tellFlatPolyline(const Shape& shape, OdGiGeometry& geometry)
{
    const Frame& plane = m_recording.m_frames[m_frame];
    m_polyline.origin = plane.origin;
    m_polyline.xAxis = plane.x;
    m_polyline.yAxis = plane.y;
    m_polyline.normal = plane.normal;
    const auto first = m_recording.m_vertices.begin() + static_cast<std::ptrdiff_t>(m_vertex);
    m_polyline.vertices.assign(first, first + static_cast<std::ptrdiff_t>(shape.count));
    m_polyline.isClosed = (shape.detail & kClosed) != 0;
    m_polyline.hasPlinegen = (shape.detail & kPlinegen) != 0;
    m_vertex += shape.count;
    geometry.pline(m_polyline);
}

} // namespace render
