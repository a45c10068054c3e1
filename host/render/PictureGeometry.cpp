// Implements the painting of shapes.
#include "render/PictureGeometry.h"

#include <algorithm>
#include <cmath>

#include "Gi/GiClipBoundary.h"
#include "Gi/GiPolyline.h"
#include "Gi/GiRasterImage.h"
#include "Gi/GiShapedText.h"

namespace render
{

namespace
{

constexpr double kTwoPi = 6.28318530717958647692;
constexpr double kFar = 20000.0;         ///< pixels outside of the page that lines are cut at
constexpr double kDeviation = 0.1;       ///< of curves, in pixels
constexpr double kSmallest = 1.0;        ///< pixels below which a shape is a line
constexpr double kReadableText = 2.0;    ///< height in pixels below which texts become bars
constexpr double kBarPart = 0.4;         ///< of the height of a text, that such a bar is high
constexpr double kHighestText = 15000.0; ///< height in pixels above which no font is drawn

bool isFinite(const OdGePoint2d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// True for the size of what is within a pixel.
bool isTiny(const OdGeVector2d& size)
{
    return size.x < kSmallest && size.y < kSmallest && size.length() < kSmallest;
}

bool isNear(const OdGePoint2d& point)
{
    return std::fabs(point.x) < kFar && std::fabs(point.y) < kFar;
}

/// Cuts a line to the square of kFar around the page. False when nothing is left.
bool cutToReach(OdGePoint2d& from, OdGePoint2d& to)
{
    double first = 0.0;
    double last = 1.0;
    const OdGeVector2d along = to - from;
    const auto cut = [&](double start, double step)
    {
        if (step == 0.0)
            return std::fabs(start) <= kFar;
        const double low = (-kFar - start) / step;
        const double high = (kFar - start) / step;
        first = std::max(first, std::min(low, high));
        last = std::min(last, std::max(low, high));
        return first <= last;
    };
    if (!isFinite(from) || !isFinite(to) || !cut(from.x, along.x) || !cut(from.y, along.y))
        return false;
    to = from + along * last;
    from = from + along * first;
    return true;
}

} // namespace

/// A part of an ellipse on the page.
struct PictureGeometry::Ellipse
{
    OdGePoint2d center;
    OdGeVector2d major;
    OdGeVector2d minor;
    double start = 0.0;
    double sweep = 0.0;

    /// Where it is at an angle, and in which direction and how fast it runs there.
    struct Place
    {
        OdGePoint2d point;
        OdGeVector2d slope;
    };

    Place placeAt(double t) const
    {
        const double c = std::cos(t);
        const double s = std::sin(t);
        return {center + major * c + minor * s, minor * c - major * s};
    }
    OdGePoint2d at(double t) const { return placeAt(t).point; }
    double reach() const { return major.length() + minor.length(); }
};

PictureGeometry::PictureGeometry(OdGiBaseVectorizer& vectorizer, Canvas& canvas, Looks& looks)
    : OdGiGeometrySimplifier(vectorizer), m_canvas(canvas), m_looks(looks)
{
}

void PictureGeometry::look(const PageMap& map, const OdGeExtents2d& area, double unitScale)
{
    m_map = map;
    m_nestedMap = m_map.within(toWorld());
    m_area = area;
    m_looks.setUnitScale(unitScale);
}

void PictureGeometry::pushModelTransform(const OdGeMatrix3d& xform)
{
    OdGiGeometrySimplifier::pushModelTransform(xform);
    m_nestedMap = m_map.within(toWorld());
}

void PictureGeometry::popModelTransform()
{
    OdGiGeometrySimplifier::popModelTransform();
    m_nestedMap = m_map.within(toWorld());
}

bool PictureGeometry::isSeen(const OdGeExtents2d& bounds) const
{
    constexpr double kMargin = 20.0; // the widest lines reach this far beyond their middle
    return bounds.isValidExtents() && bounds.maxPoint().x >= m_area.minPoint().x - kMargin &&
           bounds.minPoint().x <= m_area.maxPoint().x + kMargin &&
           bounds.maxPoint().y >= m_area.minPoint().y - kMargin && bounds.minPoint().y <= m_area.maxPoint().y + kMargin;
}

// ---- Lines ---------------------------------------------------------------------------------------------------------

void PictureGeometry::addSegment(OdGePoint2d from, OdGePoint2d to, Path& path) const
{
    const OdGePoint2d start = from;
    if (!isNear(from) || !isNear(to))
    {
        if (!cutToReach(from, to))
            return;
    }
    const bool goesOn = !path.empty() && from.x == start.x && from.y == start.y && path.lastPoint().x == from.x &&
                        path.lastPoint().y == from.y;
    if (!goesOn)
        path.moveTo(from);
    path.lineTo(to);
}

void PictureGeometry::addPolyline(const PageMap& map, OdInt32 numPoints, const OdGePoint3d* points, bool closed,
                                  Path& path) const
{
    OdGePoint2d last = map.at(points[0]);
    const OdGePoint2d first = last;
    for (OdInt32 i = 1; i < numPoints; ++i)
    {
        const OdGePoint2d next = map.at(points[i]);
        addSegment(last, next, path);
        last = next;
    }
    if (closed)
        addSegment(last, first, path);
}

void PictureGeometry::addEllipse(const Ellipse& ellipse, Path& path) const
{
    const auto [start, slopeAtStart] = ellipse.placeAt(ellipse.start);
    if (!isFinite(start) || !std::isfinite(ellipse.sweep) || !std::isfinite(ellipse.reach()))
        return;
    const double reach = ellipse.reach();
    if (reach > kFar || !isNear(ellipse.center))
    {
        // Too large for curves of the canvas: lines, of which those far away are cut off.
        const double step = std::max(std::sqrt(8.0 * kDeviation / std::max(reach, 1.0)), kTwoPi / 200000.0);
        const int steps = std::max(static_cast<int>(std::ceil(std::fabs(ellipse.sweep) / step)), 1);
        OdGePoint2d last = start;
        for (int i = 1; i <= steps; ++i)
        {
            const OdGePoint2d next = ellipse.at(ellipse.start + ellipse.sweep * i / steps);
            addSegment(last, next, path);
            last = next;
        }
        return;
    }
    // A curve that stands for a quarter of a circle is 0.00027 radii away from it; that falls with the angle's sixth
    // power.
    const double part = kDeviation / (0.00027 * std::max(reach, 1.0));
    const double quarter = kTwoPi / 4.0 * (part < 1.0 ? std::pow(part, 1 / 6.0) : 1.0);
    const int pieces = std::max(static_cast<int>(std::ceil(std::fabs(ellipse.sweep) / quarter - 1e-9)), 1);
    const double step = ellipse.sweep / pieces;
    const double handle = 4.0 / 3.0 * std::tan(step / 4.0);
    if (path.empty() || path.lastPoint().distanceTo(start) > 1e-3)
        path.moveTo(start);
    OdGePoint2d from = start;
    OdGeVector2d slope = slopeAtStart;
    for (int i = 1; i <= pieces; ++i)
    {
        // A quarter farther, the places lie where the slopes point to now.
        const auto [to, slopeAtEnd] = step == kTwoPi / 4.0
                                          ? Ellipse::Place{ellipse.center + slope, ellipse.center - from}
                                          : ellipse.placeAt(ellipse.start + step * i);
        path.curveTo(from + slope * handle, to - slopeAtEnd * handle, to);
        from = to;
        slope = slopeAtEnd;
    }
}

void PictureGeometry::drawLines(const Path& path, bool isClosed)
{
    if (path.empty())
        return;
    if (m_gathers)
        return m_lines.append(path);
    strokeLines(path, isClosed);
}

void PictureGeometry::strokeLines(const Path& path, bool isClosed)
{
    if (path.empty())
        return;
    const OdGeExtents2d bounds = path.bounds();
    if (!isSeen(bounds))
        return;
    const OdGiSubEntityTraitsData& traits = worldDraw().effectiveTraits();
    const Color color = m_looks.colorOf(traits);
    if (color.alpha == 0)
        return;
    const double width = m_looks.widthOf(traits);
    if (isTiny(bounds.diagonal()) && m_canvas.showsPixels())
    {
        // Within a pixel, nobody sees more than a line.
        Path line;
        line.moveTo(bounds.minPoint());
        line.lineTo(bounds.maxPoint());
        return m_canvas.stroke(line, color, width);
    }
    const LinePattern* pattern = m_looks.patternOf(traits);
    if (!pattern)
        return m_canvas.stroke(path, color, width);
    Path dashes;
    for (const std::vector<OdGePoint2d>& line : path.flattened(kDeviation))
        addDashes(line, isClosed, *pattern, dashes);
    m_canvas.stroke(dashes, color, width);
}

void PictureGeometry::drawDot(const OdGePoint2d& at)
{
    if (!isNear(at))
        return;
    Path path;
    path.moveTo(at);
    path.lineTo(at);
    const OdGiSubEntityTraitsData& traits = worldDraw().effectiveTraits();
    const Color color = m_looks.colorOf(traits);
    if (color.alpha > 0 && isSeen(path.bounds()))
        m_canvas.stroke(path, color, std::max(m_looks.widthOf(traits), 1.5));
}

void PictureGeometry::polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal)
{
    if (numPoints <= 0)
        return;
    const PageMap& map = this->map();
    const double thickness = normal ? worldDraw().traits().thickness() : 0.0;
    const OdGeVector2d height = thickness == 0.0 ? OdGeVector2d(0.0, 0.0) : map.along(normal->normal() * thickness);
    const bool isHigh = height.length() > 0.1;
    if (numPoints == 1 && !isHigh)
        return drawDot(map.at(points[0]));
    m_path.clear();
    addPolyline(map, numPoints, points, false, m_path);
    for (OdInt32 i = 0; isHigh && i < numPoints; ++i)
    {
        const OdGePoint2d at = map.at(points[i]);
        addSegment(at, at + height, m_path);
        if (i > 0)
            addSegment(map.at(points[i - 1]) + height, at + height, m_path);
    }
    drawLines(m_path, false);
}

void PictureGeometry::circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                                  const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType)
{
    OdGiGeometrySimplifier::circularArc(center, radius, normal, startVector, sweepAngle, arcType);
    const double thickness = worldDraw().traits().thickness();
    const OdGeVector2d height = thickness == 0.0 ? OdGeVector2d(0.0, 0.0) : map().along(normal.normal() * thickness);
    if (height.length() > 0.1)
        OdGiGeometrySimplifier::circularArc(center + normal.normal() * thickness, radius, normal, startVector,
                                            sweepAngle, arcType);
}

void PictureGeometry::ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                               double startAngle, double endAngle)
{
    const PageMap& map = this->map();
    const double sweep = std::clamp(endAngle - startAngle, -kTwoPi, kTwoPi);
    m_path.clear();
    addEllipse({map.at(center), map.along(majorAxis), map.along(minorAxis), startAngle, sweep}, m_path);
    const bool isWhole = std::fabs(sweep) > kTwoPi - 1e-9;
    if (isWhole && !m_path.empty())
        m_path.close();
    if (isWhole && worldDraw().traits().fillType() == kOdGiFillAlways)
        fillArea(m_path, true);
    drawLines(m_path, isWhole);
}

void PictureGeometry::drawEndless(const OdGePoint3d& first, const OdGePoint3d& second, bool isOpenAtStart)
{
    const PageMap& map = this->map();
    OdGePoint2d from = map.at(first);
    const OdGeVector2d along = map.along(second - first);
    const double length = along.length();
    if (!(length > 0.0) || !isFinite(from))
        return;
    const OdGePoint2d middle = m_area.center();
    const double reach = from.distanceTo(middle) + m_area.diagonal().length();
    const OdGeVector2d far = along * (reach / length);
    m_path.clear();
    addSegment(isOpenAtStart ? from - far : from, from + far, m_path);
    drawLines(m_path, false);
}

void PictureGeometry::xline(const OdGePoint3d& first, const OdGePoint3d& second)
{
    drawEndless(first, second, true);
}

void PictureGeometry::ray(const OdGePoint3d& first, const OdGePoint3d& second)
{
    drawEndless(first, second, false);
}

// ---- Areas ---------------------------------------------------------------------------------------------------------

void PictureGeometry::fillArea(const Path& path, bool evenOdd)
{
    if (path.empty() || !isSeen(path.bounds()))
        return;
    const Color color = m_looks.colorOf(worldDraw().effectiveTraits());
    if (color.alpha > 0)
        m_canvas.fill(path, color, evenOdd);
}

void PictureGeometry::polygon(OdInt32 numPoints, const OdGePoint3d* points)
{
    if (numPoints < 1)
        return;
    const PageMap& map = this->map();
    m_path.clear();
    if (worldDraw().traits().fillType() != kOdGiFillAlways)
    {
        addPolyline(map, numPoints, points, numPoints > 2, m_path);
        return drawLines(m_path, true);
    }
    Path& path = m_gathers ? m_areas : m_path;
    if (!std::all_of(points, points + numPoints, [&](const OdGePoint3d& point) { return isFinite(map.at(point)); }))
        return;
    for (OdInt32 i = 0; i < numPoints; ++i)
    {
        const OdGePoint2d point = map.at(points[i]);
        // Far corners are moved nearer, which is not seen.
        const OdGePoint2d near(std::clamp(point.x, -1e6, 1e6), std::clamp(point.y, -1e6, 1e6));
        i == 0 ? path.moveTo(near) : path.lineTo(near);
    }
    path.close();
    if (!m_gathers)
        fillArea(m_path, true);
}

void PictureGeometry::shell(OdInt32 numVertices, const OdGePoint3d* vertices, OdInt32 faceListSize,
                            const OdInt32* faceList)
{
    if (worldDraw().traits().fillType() != kOdGiFillAlways)
        return OdGiGeometrySimplifier::shell(numVertices, vertices, faceListSize, faceList);
    const PageMap& map = this->map();
    m_path.clear();
    for (OdInt32 at = 0; at < faceListSize;)
    {
        if (faceList[at] >= 0 && !m_path.empty())
        {
            fillArea(m_path, true);
            m_path.clear();
        }
        bool isFirst = true;
        const OdInt32 count = std::abs(faceList[at++]);
        for (const OdInt32 end = std::min(at + count, faceListSize); at < end; ++at)
        {
            const bool isKnown = faceList[at] >= 0 && faceList[at] < numVertices;
            const OdGePoint2d point = isKnown ? map.at(vertices[faceList[at]]) : OdGePoint2d();
            if (!isKnown || !isFinite(point))
                continue;
            const OdGePoint2d near(std::clamp(point.x, -1e6, 1e6), std::clamp(point.y, -1e6, 1e6));
            isFirst ? m_path.moveTo(near) : m_path.lineTo(near);
            isFirst = false;
        }
        if (!isFirst)
            m_path.close();
    }
    fillArea(m_path, true);
}

void PictureGeometry::pline(const OdGiPolyline& polyline)
{
    const PageMap& map = this->map();
    const double scale = std::max(map.along(polyline.xAxis).length(), map.along(polyline.yAxis).length());
    double widest = 0.0;
    for (const OdGiPolyline::Vertex& vertex : polyline.vertices)
        widest = std::max({widest, vertex.startWidth, vertex.endWidth});
    if (widest > 0.0 && widest * scale < m_canvas.thinnestLine())
    {
        // Strips that are thinner than any line are lines.
        OdGiPolyline thin = polyline;
        for (OdGiPolyline::Vertex& vertex : thin.vertices)
            vertex.startWidth = vertex.endWidth = 0.0;
        return pline(thin);
    }
    m_lines.clear();
    m_areas.clear();
    m_gathers = true;
    OdGiGeometrySimplifier::pline(polyline);
    m_gathers = false;
    // The strips run around in one direction, so that they are filled together, without seams.
    fillArea(m_areas, false);
    if (polyline.hasPlinegen || !m_looks.patternOf(worldDraw().effectiveTraits()))
        return strokeLines(m_lines, polyline.isClosed);
    // The pattern begins anew at each vertex.
    for (const Path& segment : m_lines.segments())
        strokeLines(segment, false);
}

// ---- Texts and pictures --------------------------------------------------------------------------------------------

void PictureGeometry::text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                           const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle)
{
    const OdGiTextStyle usual;
    const OdGiTextStyle& style = textStyle ? *textStyle : usual;
    const PageMap& map = this->map();
    const TextPlace place{map.at(position), map.along(direction), map.along(normal.crossProduct(direction))};
    const double height = place.up.length() * style.textSize();
    const double width = place.along.length() * std::fabs(style.textSize() * style.xScale());
    const double room = height * (length + 2.0) * 3.0 + width * length * 3.0;
    if (!isFinite(place.origin) || !std::isfinite(room) || !(height < kHighestText))
        return;
    if (!isSeen(OdGeExtents2d(place.origin - OdGeVector2d(room, room), place.origin + OdGeVector2d(room, room))))
        return;
    const Color color = m_looks.colorOf(worldDraw().effectiveTraits());
    if (color.alpha == 0)
        return;
    if (height < kReadableText && m_canvas.showsPixels())
        return drawTextBar(odgiTextInk(style, message, length, raw), place, color);
    const OdGiShapedText shaped = odgiShapeText(style, message, length, raw);
    if (!shaped.ink.isValidExtents() || shaped.fonts.empty())
        return;
    if (shaped.fonts.front().file->path.empty())
        return drawTextBar({shaped.ink, shaped.fonts.front().slant}, place, color);
    m_canvas.text(shaped, place, color);
}

/// A bar, as dark as letters are, stands for what cannot be read, and for what there is no font for.
void PictureGeometry::drawTextBar(const OdGiTextInk& ink, const TextPlace& place, const Color& color)
{
    OdGeExtents2d bar = ink.box;
    if (!bar.isValidExtents())
        return;
    const double middle = bar.center().y;
    const double half = (bar.maxPoint().y - bar.minPoint().y) * kBarPart / 2.0;
    bar.set({bar.minPoint().x, middle - half}, {bar.maxPoint().x, middle + half});
    const double pixels = half * 2.0 * place.up.length();
    if (pixels <= kSmallest)
    {
        m_path.clear();
        addSegment(place.origin + place.along * bar.minPoint().x + place.up * middle,
                   place.origin + place.along * bar.maxPoint().x + place.up * middle, m_path);
        if (isSeen(m_path.bounds()))
            m_canvas.stroke(m_path, color, pixels);
        return;
    }
    const Path path = barPath(bar, place, ink.slant);
    if (isSeen(path.bounds()))
        m_canvas.fillBar(path, color);
}

void PictureGeometry::rasterImageDc(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v,
                                    const OdGiRasterImage* image, const OdGePoint2d* uvBoundary, OdUInt32 numBoundPts,
                                    bool transparency, double brightness, double contrast, double fade)
{
    const PageMap& map = this->map();
    const ImagePlace place{map.at(origin + v), map.along(u), map.along(v) * -1.0};
    OdGeExtents2d bounds;
    for (const OdGeVector2d& corner : {OdGeVector2d(0.0, 0.0), place.across, place.down, place.across + place.down})
        bounds.addPoint(place.origin + corner);
    const Color color = m_looks.colorOf(worldDraw().effectiveTraits());
    if (!isSeen(bounds) || color.alpha == 0)
        return;
    Path outline;
    for (OdUInt32 i = 0; uvBoundary && i < numBoundPts; ++i)
    {
        const OdGePoint2d point = place.origin + place.across * (uvBoundary[i].x / image->pixelWidth()) +
                                  place.down * (uvBoundary[i].y / image->pixelHeight());
        i == 0 ? outline.moveTo(point) : outline.lineTo(point);
    }
    if (!outline.empty())
        m_canvas.pushClip(outline);
    m_canvas.image(*image, place, {transparency, color.alpha, brightness, contrast, fade, m_looks.background()});
    if (!outline.empty())
        m_canvas.popClip();
}

void PictureGeometry::pushClipBoundary(const OdGiClipBoundary& boundary)
{
    Path path;
    OdGeMatrix3d fromClipSpace = boundary.m_xToClipSpace;
    if (!fromClipSpace.isSingular())
    {
        const PageMap map = this->map().within(fromClipSpace.inverse());
        std::vector<OdGePoint2d> corners(boundary.m_Points.begin(), boundary.m_Points.end());
        if (corners.size() == 2)
            corners = {corners[0], {corners[1].x, corners[0].y}, corners[1], {corners[0].x, corners[1].y}};
        for (std::size_t i = 0; i < corners.size(); ++i)
        {
            const OdGePoint2d point = map.at(OdGePoint3d(corners[i].x, corners[i].y, 0.0));
            i == 0 ? path.moveTo(point) : path.lineTo(point);
        }
        if (!path.empty())
            path.close();
    }
    m_canvas.pushClip(path);
}

void PictureGeometry::popClipBoundary()
{
    m_canvas.popClip();
}

} // namespace render
