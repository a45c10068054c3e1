// Implements the keeping of what entities have told.
#include "render/Recording.h"

#include <algorithm>

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

OdGePoint3d pointOf(const OdGeVector3d& vector)
{
    return {vector.x, vector.y, vector.z};
}

} // namespace

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
           m_looks.size() * sizeof(OdGiSubEntityTraitsData) + m_styles.size() * sizeof(OdGiTextStyle);
}

void Recording::beginEntity(const OdGiSubEntityTraitsData& looks)
{
    m_isBegun = true;
    m_begin = sizes();
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

void Recording::addPolyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal)
{
    const auto count = static_cast<std::size_t>(std::max<OdInt32>(numPoints, 0));
    add(normal ? Kind::kExtrudedPolyline : Kind::kPolyline, count, 0);
    m_points.insert(m_points.end(), points, points + count);
    if (normal)
        m_points.push_back(pointOf(*normal));
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
    add(Kind::kArc, 0, static_cast<std::uint32_t>(arcType));
    addPoints({center, pointOf(normal), pointOf(startVector), {radius, sweepAngle, 0.0}});
}

void Recording::addEllipse(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                           double startAngle, double endAngle)
{
    add(Kind::kEllipse, 0, 0);
    addPoints({center, pointOf(majorAxis), pointOf(minorAxis), {startAngle, endAngle, 0.0}});
}

void Recording::addFlatPolyline(const OdGiPolyline& polyline)
{
    add(Kind::kFlatPolyline, polyline.vertices.size(),
        (polyline.isClosed ? kClosed : 0u) | (polyline.hasPlinegen ? kPlinegen : 0u));
    addPoints({polyline.origin, pointOf(polyline.xAxis), pointOf(polyline.yAxis), pointOf(polyline.normal)});
    m_vertices.insert(m_vertices.end(), polyline.vertices.begin(), polyline.vertices.end());
}

void Recording::addText(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                        const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle)
{
    const auto count = static_cast<std::size_t>(std::max<OdInt32>(length, 0));
    add(raw ? Kind::kRawText : Kind::kText, count, textStyle ? numberOf(*textStyle) : kNoStyle);
    addPoints({position, pointOf(normal), pointOf(direction)});
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
        m_isBegun = false;
    }
    m_parts.push_back({entity, 0, 0});
}

// ---- Telling -------------------------------------------------------------------------------------------------------

void Recording::Teller::tell(const Part& part, OdGiGeometry& geometry, OdGiSubEntityTraitsToData& traits)
{
    const auto vectorAt = [](const OdGePoint3d& point) { return OdGeVector3d(point.x, point.y, point.z); };
    for (std::uint32_t i = 0; i < part.shapes; ++i)
    {
        const Shape& shape = m_recording.m_shapes[m_shape++];
        const auto count = static_cast<OdInt32>(shape.count);
        const OdGePoint3d* points = m_recording.m_points.data() + m_point;
        switch (shape.kind)
        {
        case Kind::kLooks:
            traits.setValues(m_recording.m_looks[shape.detail]);
            break;
        case Kind::kPolyline:
            geometry.polyline(count, points);
            m_point += shape.count;
            break;
        case Kind::kExtrudedPolyline:
        {
            const OdGeVector3d normal = vectorAt(points[shape.count]);
            geometry.polyline(count, points, &normal);
            m_point += shape.count + 1;
            break;
        }
        case Kind::kPolygon:
            geometry.polygon(count, points);
            m_point += shape.count;
            break;
        case Kind::kArc:
            geometry.circularArc(points[0], points[3].x, vectorAt(points[1]), vectorAt(points[2]), points[3].y,
                                 static_cast<OdGiArcType>(shape.detail));
            m_point += 4;
            break;
        case Kind::kEllipse:
            geometry.ellipArc(points[0], vectorAt(points[1]), vectorAt(points[2]), points[3].x, points[3].y);
            m_point += 4;
            break;
        case Kind::kFlatPolyline:
            m_polyline.origin = points[0];
            m_polyline.xAxis = vectorAt(points[1]);
            m_polyline.yAxis = vectorAt(points[2]);
            m_polyline.normal = vectorAt(points[3]);
            m_point += 4;
            tellFlatPolyline(shape.count, (shape.detail & kClosed) != 0, (shape.detail & kPlinegen) != 0, geometry);
            break;
        case Kind::kText:
        case Kind::kRawText:
            geometry.text(points[0], vectorAt(points[1]), vectorAt(points[2]),
                          m_recording.m_characters.data() + m_character, count, shape.kind == Kind::kRawText,
                          shape.detail == kNoStyle ? nullptr : &m_recording.m_styles[shape.detail]);
            m_point += 3;
            m_character += shape.count;
            break;
        }
    }
}

void Recording::Teller::tellFlatPolyline(std::size_t count, bool isClosed, bool hasPlinegen, OdGiGeometry& geometry)
{
    const auto first = m_recording.m_vertices.begin() + static_cast<std::ptrdiff_t>(m_vertex);
    m_polyline.vertices.assign(first, first + static_cast<std::ptrdiff_t>(count));
    m_polyline.isClosed = isClosed;
    m_polyline.hasPlinegen = hasPlinegen;
    m_vertex += count;
    geometry.pline(m_polyline);
}

} // namespace render
