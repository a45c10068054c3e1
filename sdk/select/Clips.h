// What clips leave of the lines, arcs and areas that are drawn into them. A clip is an outline in a plane, which cuts
// on both sides of it; clips may stand in each other.
#pragma once

#include <limits>
#include <optional>
#include <vector>

#include "Ge/GeMatrix3d.h"
#include "Gi/GiClipBoundary.h"
#include "select/Shape.h"

namespace picking
{

/// A straight piece in world coordinates.
struct SpaceSegment
{
    OdGePoint3d start;
    OdGePoint3d end;

    OdGePoint3d at(double parameter) const { return start + (end - start) * parameter; }
};

/// The same as EllipticArc, in world coordinates.
struct SpaceArc
{
    OdGePoint3d center;
    OdGeVector3d major;
    OdGeVector3d minor;
    double start = 0.0;
    double sweep = 0.0;
};

using SpaceOutline = std::vector<OdGePoint3d>;

/// What an odd number of flat outlines hold.
class FlatArea
{
public:
    /// Nothing for outlines that are not wide.
    static std::optional<FlatArea> within(const std::vector<SpaceOutline>& outlines);

    /// Where a line in the direction meets the plane of the area, nothing when it runs along it.
    std::optional<OdGePoint3d> meet(const OdGePoint3d& onLine, const OdGeVector3d& direction) const;
    /// For places in the plane of the area.
    bool holds(const OdGePoint3d& place) const { return m_shape.holds(at(place)); }
    std::vector<Run> runsOf(const SpaceSegment& segment) const
    {
        return m_shape.runsOf(Segment{at(segment.start), at(segment.end)});
    }

private:
    FlatArea(const std::vector<SpaceOutline>& outlines, const OdGeVector3d& x, const OdGeVector3d& y);
    std::vector<std::vector<OdGePoint2d>> flattened(const std::vector<SpaceOutline>& outlines) const;
    OdGePoint2d at(const OdGePoint3d& place) const;

    OdGePoint3d m_origin;
    OdGeVector3d m_x;
    OdGeVector3d m_y;
    Shape m_shape;
};

class Clips
{
public:
    /// One that holds nothing that could be seen, or that no place can be told in, clips nothing.
    void push(const OdGiClipBoundary& boundary, const OdGeMatrix3d& toWorld);
    void pop();
    bool isEmpty() const { return m_clips.empty(); }

    /// The runs of parameters over which a curve lies in all clips.
    std::vector<Run> runsOf(const SpaceSegment& segment) const;
    std::vector<Run> runsOf(const SpaceArc& arc) const;
    bool hold(const OdGePoint3d& place) const;

    /// Between which parameters the endless line of the segment may lie in a clip; nothing where none bounds it.
    std::optional<Run> reachOf(const SpaceSegment& line) const;

    /// What lies of the outlines of the clips in an area: where it is cut off.
    std::vector<SpaceSegment> edgesOf(const FlatArea& area) const;

private:
    struct Clip
    {
        OdGeMatrix3d fromWorld;
        OdGeMatrix3d toWorld;
        Shape outline;

        OdGePoint2d at(const OdGePoint3d& world) const;
        OdGeVector2d along(const OdGeVector3d& world) const;
        std::vector<Run> runsOf(const SpaceSegment& segment) const;
        std::vector<Run> runsOf(const SpaceArc& arc) const;
    };

    static std::optional<Clip> clipOf(const OdGiClipBoundary& boundary, const OdGeMatrix3d& toWorld);
    template<class Curve>
    std::vector<Run> runsWithin(const Curve& curve, std::vector<Run> runs, const Clip* besides) const;

    std::vector<std::optional<Clip>> m_clips; ///< those that clip nothing hold their places
};

} // namespace picking
