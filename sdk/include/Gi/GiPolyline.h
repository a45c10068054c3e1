// Flat polylines as drawables hand them to the receiver of their shapes.
#pragma once

#include <vector>

#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"

/** A polyline of straight lines and arcs in one plane, each with a width at its start and its end. It is a plain value.
 */
struct OdGiPolyline
{
    /** A vertex in the coordinates of the plane. Bulge (the tangent of a quarter of the arc's angle, 0 for a straight
        line) and widths are those of the segment that begins here. */
    struct Vertex
    {
        double x = 0.0;
        double y = 0.0;
        double bulge = 0.0;
        double startWidth = 0.0;
        double endWidth = 0.0;
    };

    std::vector<Vertex> vertices;
    bool isClosed = false;
    bool hasPlinegen = false; ///< the pattern of a linetype goes on over vertices
    OdGePoint3d origin;       ///< of the plane, with its axes
    OdGeVector3d xAxis{1.0, 0.0, 0.0};
    OdGeVector3d yAxis{0.0, 1.0, 0.0};
    OdGeVector3d normal{0.0, 0.0, 1.0};

    std::size_t numSegments() const
    {
        return vertices.size() < 2 ? 0 : isClosed ? vertices.size() : vertices.size() - 1;
    }
    const Vertex& segmentEnd(std::size_t segment) const { return vertices[(segment + 1) % vertices.size()]; }
    OdGePoint3d at(double x, double y) const { return origin + xAxis * x + yAxis * y; }
};
