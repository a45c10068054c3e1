// Cuts what is drawn at the outlines of clips.
#include "select/Clips.h"

#include <algorithm>
#include <cmath>

namespace picking
{

namespace
{

std::vector<Run> commonPart(const std::vector<Run>& first, const std::vector<Run>& second)
{
    std::vector<Run> common;
    for (const Run& one : first)
        for (const Run& other : second)
            if (const Run run{std::max(one.from, other.from), std::min(one.to, other.to)}; run.from < run.to)
                common.push_back(run);
    return common;
}

/// The direction upright to an outline, as long as the largest triangle at its first corner; zero for one that is not
/// wide.
OdGeVector3d uprightTo(const SpaceOutline& outline)
{
    OdGeVector3d upright(0.0, 0.0, 0.0);
    for (std::size_t i = 2; i < outline.size(); ++i)
    {
        const OdGeVector3d turned = (outline[i - 1] - outline[0]).crossProduct(outline[i] - outline[0]);
        if (turned.lengthSqrd() > upright.lengthSqrd())
            upright = turned;
    }
    return upright;
}

} // namespace

// ---- Areas ---------------------------------------------------------------------------------------------------------

FlatArea::FlatArea(const std::vector<SpaceOutline>& outlines, const OdGeVector3d& x, const OdGeVector3d& y)
    : m_origin(outlines.front().front()), m_x(x), m_y(y), m_shape(Shape::area(flattened(outlines)))
{
}

std::vector<std::vector<OdGePoint2d>> FlatArea::flattened(const std::vector<SpaceOutline>& outlines) const
{
    std::vector<std::vector<OdGePoint2d>> flat;
    for (const SpaceOutline& outline : outlines)
    {
        std::vector<OdGePoint2d>& corners = flat.emplace_back();
        for (const OdGePoint3d& corner : outline)
            corners.push_back(at(corner));
    }
    return flat;
}

std::optional<FlatArea> FlatArea::within(const std::vector<SpaceOutline>& outlines)
{
    const OdGeVector3d upright = outlines.empty() ? OdGeVector3d(0.0, 0.0, 0.0) : uprightTo(outlines.front());
    const double size = upright.length();
    if (!std::isfinite(size) || size == 0.0)
        return std::nullopt;
    const SpaceOutline& outline = outlines.front();
    const auto isElsewhere = [&](const OdGePoint3d& corner) { return corner.distanceTo(outline[0]) > 0.0; };
    const OdGeVector3d x = (*std::find_if(outline.begin(), outline.end(), isElsewhere) - outline[0]).normal();
    return FlatArea(outlines, x, (upright / size).crossProduct(x));
}

OdGePoint2d FlatArea::at(const OdGePoint3d& place) const
{
    const OdGeVector3d from = place - m_origin;
    return {m_x.dotProduct(from), m_y.dotProduct(from)};
}

std::optional<OdGePoint3d> FlatArea::meet(const OdGePoint3d& onLine, const OdGeVector3d& direction) const
{
    constexpr double kAlong = 1e-9;
    const OdGeVector3d upright = m_x.crossProduct(m_y);
    const double rise = upright.dotProduct(direction);
    if (std::fabs(rise) <= kAlong * direction.length())
        return std::nullopt;
    return onLine + direction * (upright.dotProduct(m_origin - onLine) / rise);
}

// ---- Clips ---------------------------------------------------------------------------------------------------------

OdGePoint2d Clips::Clip::at(const OdGePoint3d& world) const
{
    const OdGePoint3d place = fromWorld * world;
    return {place.x, place.y};
}

OdGeVector2d Clips::Clip::along(const OdGeVector3d& world) const
{
    const OdGeVector3d vector = fromWorld * world;
    return {vector.x, vector.y};
}

std::vector<Run> Clips::Clip::runsOf(const SpaceSegment& segment) const
{
    return outline.runsOf(Segment{at(segment.start), at(segment.end)});
}

std::vector<Run> Clips::Clip::runsOf(const SpaceArc& arc) const
{
    return outline.runsOf(EllipticArc{at(arc.center), along(arc.major), along(arc.minor), arc.start, arc.sweep});
}

std::optional<Clips::Clip> Clips::clipOf(const OdGiClipBoundary& boundary, const OdGeMatrix3d& toWorld)
{
    if (boundary.m_Points.size() < 2 || toWorld.isSingular() || boundary.m_xToClipSpace.isSingular())
        return std::nullopt;
    std::vector<OdGePoint2d> corners(boundary.m_Points.begin(), boundary.m_Points.end());
    const OdGeMatrix3d fromClipSpace = toWorld * boundary.m_xToClipSpace.inverse();
    return Clip{fromClipSpace.inverse(), fromClipSpace,
                corners.size() == 2 ? Shape::rectangle(corners[0], corners[1]) : Shape::polygon(std::move(corners))};
}

void Clips::push(const OdGiClipBoundary& boundary, const OdGeMatrix3d& toWorld)
{
    m_clips.push_back(clipOf(boundary, toWorld));
}

void Clips::pop()
{
    if (!m_clips.empty())
        m_clips.pop_back();
}

template<class Curve>
std::vector<Run> Clips::runsWithin(const Curve& curve, std::vector<Run> runs, const Clip* besides) const
{
    for (const std::optional<Clip>& clip : m_clips)
        if (clip && &*clip != besides && !runs.empty())
            runs = commonPart(runs, clip->runsOf(curve));
    return runs;
}

std::vector<Run> Clips::runsOf(const SpaceSegment& segment) const
{
    return runsWithin(segment, {{0.0, 1.0}}, nullptr);
}

std::vector<Run> Clips::runsOf(const SpaceArc& arc) const
{
    return runsWithin(arc, {{arc.start, arc.start + arc.sweep}}, nullptr);
}

bool Clips::hold(const OdGePoint3d& place) const
{
    return std::all_of(m_clips.begin(), m_clips.end(),
                       [&](const std::optional<Clip>& clip) { return !clip || clip->outline.holds(clip->at(place)); });
}

std::optional<Run> Clips::reachOf(const SpaceSegment& line) const
{
    for (const std::optional<Clip>& clip : m_clips)
    {
        const OdGeVector2d along = clip ? clip->along(line.end - line.start) : OdGeVector2d(0.0, 0.0);
        const double squared = along.lengthSqrd();
        if (squared == 0.0 || !std::isfinite(squared))
            continue;
        const OdGeExtents2d& box = clip->outline.box();
        const double middle = (box.center() - clip->at(line.start)).dotProduct(along) / squared;
        const double half = box.diagonal().length() / std::sqrt(squared);
        return Run{middle - half, middle + half};
    }
    return std::nullopt;
}

std::vector<SpaceSegment> Clips::edgesOf(const FlatArea& area) const
{
    std::vector<SpaceSegment> edges;
    for (const std::optional<Clip>& clip : m_clips)
    {
        if (!clip)
            continue;
        const auto onArea = [&](const OdGePoint2d& corner)
        {
            return area.meet(clip->toWorld * OdGePoint3d(corner.x, corner.y, 0.0),
                             clip->toWorld * OdGeVector3d(0.0, 0.0, 1.0));
        };
        for (const Segment& edge : clip->outline.edges())
        {
            const std::optional<OdGePoint3d> start = onArea(edge.start);
            const std::optional<OdGePoint3d> end = onArea(edge.end);
            if (!start || !end)
                break;
            const SpaceSegment whole{*start, *end};
            for (const Run& run : runsWithin(whole, area.runsOf(whole), &*clip))
                edges.push_back({whole.at(run.from), whole.at(run.to)});
        }
    }
    return edges;
}

} // namespace picking
