// The rectangle along the axes around something.
#include "Ge/GeExtents2d.h"

#include <algorithm>
#include <cmath>

void OdGeExtents2d::comparingSet(const OdGePoint2d& first, const OdGePoint2d& second)
{
    reset();
    addPoint(first);
    addPoint(second);
}

OdGeExtents2d& OdGeExtents2d::addPoints(const OdGePoint2dArray& points)
{
    for (const OdGePoint2d& point : points)
        addPoint(point);
    return *this;
}

void OdGeExtents2d::expandBy(const OdGeVector2d& vector)
{
    if (isValidExtents())
        addExt(OdGeExtents2d(m_min + vector, m_max + vector));
}

void OdGeExtents2d::translate(const OdGeVector2d& vector)
{
    if (isValidExtents())
        set(m_min + vector, m_max + vector);
}

void OdGeExtents2d::transformBy(const OdGeMatrix2d& xform)
{
    if (!isValidExtents())
        return;
    OdGeExtents2d mapped;
    for (unsigned corner = 0; corner < 4; ++corner)
        mapped.addPoint(xform * OdGePoint2d((corner & 1 ? m_max : m_min).x, (corner & 2 ? m_max : m_min).y));
    *this = mapped;
}

bool OdGeExtents2d::contains(const OdGePoint2d& point, const OdGeTol& tol) const
{
    return contains(OdGeExtents2d(point, point), tol);
}

bool OdGeExtents2d::contains(const OdGeExtents2d& other, const OdGeTol& tol) const
{
    for (unsigned axis = 0; axis < 2; ++axis)
        if (!(other.m_min[axis] >= m_min[axis] - tol.equalPoint() &&
              other.m_max[axis] <= m_max[axis] + tol.equalPoint()))
            return false;
    return true;
}

bool OdGeExtents2d::isDisjoint(const OdGeExtents2d& other, const OdGeTol& tol) const
{
    for (unsigned axis = 0; axis < 2; ++axis)
        if (other.m_min[axis] > m_max[axis] + tol.equalPoint() || other.m_max[axis] < m_min[axis] - tol.equalPoint())
            return true;
    return false;
}

bool OdGeExtents2d::isEqualTo(const OdGeExtents2d& other, const OdGeTol& tol) const
{
    return m_min.isEqualTo(other.m_min, tol) && m_max.isEqualTo(other.m_max, tol);
}
