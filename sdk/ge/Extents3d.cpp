// The box along the axes around something.
#include "Ge/GeExtents3d.h"

#include <algorithm>
#include <cmath>

void OdGeExtents3d::set(const OdGePoint3d& minPoint, const OdGePoint3d& maxPoint)
{
    m_min = minPoint;
    m_max = maxPoint;
}

void OdGeExtents3d::comparingSet(const OdGePoint3d& first, const OdGePoint3d& second)
{
    reset();
    addPoint(first);
    addPoint(second);
}

bool OdGeExtents3d::isValidExtents() const
{
    return m_min.x <= m_max.x && m_min.y <= m_max.y && m_min.z <= m_max.z;
}

OdGeExtents3d& OdGeExtents3d::addPoint(const OdGePoint3d& point)
{
    for (unsigned axis = 0; axis < 3; ++axis)
    {
        // What is no number is passed over.
        m_min[axis] = point[axis] < m_min[axis] ? point[axis] : m_min[axis];
        m_max[axis] = point[axis] > m_max[axis] ? point[axis] : m_max[axis];
    }
    return *this;
}

OdGeExtents3d& OdGeExtents3d::addPoints(const OdGePoint3dArray& points)
{
    for (const OdGePoint3d& point : points)
        addPoint(point);
    return *this;
}

OdGeExtents3d& OdGeExtents3d::addExt(const OdGeExtents3d& other)
{
    return other.isValidExtents() ? addPoint(other.m_min).addPoint(other.m_max) : *this;
}

void OdGeExtents3d::expandBy(const OdGeVector3d& vector)
{
    if (isValidExtents())
        addExt(OdGeExtents3d(m_min + vector, m_max + vector));
}

void OdGeExtents3d::translate(const OdGeVector3d& vector)
{
    if (isValidExtents())
        set(m_min + vector, m_max + vector);
}

void OdGeExtents3d::transformBy(const OdGeMatrix3d& xform)
{
    if (!isValidExtents())
        return;
    OdGeExtents3d mapped;
    for (unsigned corner = 0; corner < 8; ++corner)
        mapped.addPoint(xform * OdGePoint3d((corner & 1 ? m_max : m_min).x, (corner & 2 ? m_max : m_min).y,
                                            (corner & 4 ? m_max : m_min).z));
    *this = mapped;
}

void OdGeExtents3d::convert2d(OdGeExtents2d& extents) const
{
    extents.set(m_min.convert2d(), m_max.convert2d());
}

bool OdGeExtents3d::contains(const OdGePoint3d& point, const OdGeTol& tol) const
{
    return contains(OdGeExtents3d(point, point), tol);
}

bool OdGeExtents3d::contains(const OdGeExtents3d& other, const OdGeTol& tol) const
{
    for (unsigned axis = 0; axis < 3; ++axis)
        if (!(other.m_min[axis] >= m_min[axis] - tol.equalPoint() &&
              other.m_max[axis] <= m_max[axis] + tol.equalPoint()))
            return false;
    return true;
}

bool OdGeExtents3d::isDisjoint(const OdGeExtents3d& other, const OdGeTol& tol) const
{
    for (unsigned axis = 0; axis < 3; ++axis)
        if (other.m_min[axis] > m_max[axis] + tol.equalPoint() || other.m_max[axis] < m_min[axis] - tol.equalPoint())
            return true;
    return false;
}

bool OdGeExtents3d::isEqualTo(const OdGeExtents3d& other, const OdGeTol& tol) const
{
    return m_min.isEqualTo(other.m_min, tol) && m_max.isEqualTo(other.m_max, tol);
}
