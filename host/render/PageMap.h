// How a drawing is seen on a page: from where, what part of it, and where on the page.
#pragma once

#include <cmath>

#include "Ge/GeExtents2d.h"
#include "Ge/GeMatrix3d.h"

namespace render
{

/// Maps points of the world, and of what is nested in it, to pixels.
class PageMap
{
public:
    PageMap() = default;
    /// toPixels maps the world to pixels across and down; what it gives for z counts for nothing.
    explicit PageMap(const OdGeMatrix3d& toPixels) : m_matrix(toPixels) {}

    OdGePoint2d at(const OdGePoint3d& point) const
    {
        return {m_matrix.entry[0][0] * point.x + m_matrix.entry[0][1] * point.y + m_matrix.entry[0][2] * point.z +
                    m_matrix.entry[0][3],
                m_matrix.entry[1][0] * point.x + m_matrix.entry[1][1] * point.y + m_matrix.entry[1][2] * point.z +
                    m_matrix.entry[1][3]};
    }
    OdGeVector2d along(const OdGeVector3d& vector) const
    {
        return {m_matrix.entry[0][0] * vector.x + m_matrix.entry[0][1] * vector.y + m_matrix.entry[0][2] * vector.z,
                m_matrix.entry[1][0] * vector.x + m_matrix.entry[1][1] * vector.y + m_matrix.entry[1][2] * vector.z};
    }
    PageMap within(const OdGeMatrix3d& nested) const { return PageMap(m_matrix * nested); }
    const OdGeMatrix3d& matrix() const { return m_matrix; }

private:
    OdGeMatrix3d m_matrix;
};

/// What is looked at: a point of the world, from a direction, turned.
struct ViewPoint
{
    OdGePoint3d target;
    OdGeVector3d direction{0.0, 0.0, 1.0};
    double twist = 0.0;
};

/// Maps the world to the plane of what is seen, whose origin is the target; its axes are those that drawings use for
/// planes in space, turned by the twist.
OdGeMatrix3d toViewPlane(const ViewPoint& view);

/// Maps a rectangle of a plane to one of a page, whose y axis points down. Both have the same proportions.
OdGeMatrix3d toPage(const OdGeExtents2d& plane, const OdGeExtents2d& page);

} // namespace render
