// Ellipses in space and parts of them.
#pragma once

#include "Ge/GeExtents3d.h"

/** An OdGeEllipArc3d is the curve center + cos(t) majorVector + sin(t) minorVector for t from its start to its end
    parameter; the vectors need not be at right angles. It is a plain value. Circles mapped by any matrix are such
    curves. */
class OdGeEllipArc3d
{
public:
    OdGeEllipArc3d(const OdGePoint3d& center, const OdGeVector3d& majorVector, const OdGeVector3d& minorVector,
                   double startParameter = 0.0, double endParameter = 6.28318530717958647692)
        : m_center(center), m_major(majorVector), m_minor(minorVector), m_start(startParameter), m_end(endParameter)
    {
    }

    const OdGePoint3d& center() const { return m_center; }
    const OdGeVector3d& majorVector() const { return m_major; }
    const OdGeVector3d& minorVector() const { return m_minor; }
    double startParameter() const { return m_start; }
    double endParameter() const { return m_end; }
    OdGePoint3d evalPoint(double parameter) const;
    OdGeEllipArc3d& transformBy(const OdGeMatrix3d& xform);
    /** The exact extents. */
    OdGeExtents3d getGeomExtents() const;

private:
    OdGePoint3d m_center;
    OdGeVector3d m_major;
    OdGeVector3d m_minor;
    double m_start;
    double m_end;
};
