// Arcs in space.
#pragma once

#include "Ge/GeExtents3d.h"

/** An OdGeCircArc3d is a part of a circle in space, or a whole one. It is a plain value. Angles are measured from its
    reference vector, counter-clockwise seen against its normal; the end angle is greater than the start angle by at
   most a full turn. */
class OdGeCircArc3d
{
public:
    /** The circle of radius 1 about the origin in the plane of x and y. */
    OdGeCircArc3d() = default;
    /** With the reference vector that drawings give to the normal (OdGeMatrix3d::planeToWorld). Throws OdError
        (eInvalidInput) for a normal of no length. */
    OdGeCircArc3d(const OdGePoint3d& center, const OdGeVector3d& normal, double radius);
    /** Throws OdError (eInvalidInput) for a normal or reference vector of no length, or parallel ones. */
    OdGeCircArc3d(const OdGePoint3d& center, const OdGeVector3d& normal, const OdGeVector3d& refVec, double radius,
                  double startAngle, double endAngle);

    const OdGePoint3d& center() const { return m_center; }
    const OdGeVector3d& normal() const { return m_normal; }
    const OdGeVector3d& refVec() const { return m_refVec; }
    double radius() const { return m_radius; }
    double startAng() const { return m_startAngle; }
    double endAng() const { return m_endAngle; }
    double sweepAngle() const { return m_endAngle - m_startAngle; }
    bool isClosed() const;
    OdGePoint3d startPoint() const { return evalPoint(m_startAngle); }
    OdGePoint3d endPoint() const { return evalPoint(m_endAngle); }
    OdGePoint3d evalPoint(double angle) const;
    double length() const { return m_radius * sweepAngle(); }
    /** The exact extents. */
    OdGeExtents3d getGeomExtents() const;

private:
    OdGePoint3d m_center;
    OdGeVector3d m_normal{0.0, 0.0, 1.0};
    OdGeVector3d m_refVec{1.0, 0.0, 0.0};
    double m_radius = 1.0;
    double m_startAngle = 0.0;
    double m_endAngle = 6.28318530717958647692;
};
