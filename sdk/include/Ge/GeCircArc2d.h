// Arcs in the plane.
#pragma once

#include "Ge/GeExtents2d.h"

/** An OdGeCircArc2d is a part of a circle in the plane, or a whole one. It is a plain value. It is run through from its
    start angle to its end angle, which is greater by at most a full turn; with isClockWise the other way about, with
   the angles measured clockwise. */
class OdGeCircArc2d
{
public:
    /** The circle of radius 1 about the origin. */
    OdGeCircArc2d() = default;
    OdGeCircArc2d(const OdGePoint2d& center, double radius);
    OdGeCircArc2d(const OdGePoint2d& center, double radius, double startAngle, double endAngle,
                  bool isClockWise = false);
    /** The arc from one point to another with the tangent of a quarter of its angle, positive counter-clockwise. Throws
        OdError (eDegenerateGeometry) for a bulge of 0, which is a line, and for points that are the same. */
    OdGeCircArc2d(const OdGePoint2d& start, const OdGePoint2d& end, double bulge);

    const OdGePoint2d& center() const { return m_center; }
    double radius() const { return m_radius; }
    double startAng() const { return m_startAngle; }
    double endAng() const { return m_endAngle; }
    double sweepAngle() const { return m_endAngle - m_startAngle; }
    bool isClockWise() const { return m_clockWise; }
    bool isClosed() const;
    OdGePoint2d startPoint() const { return evalPoint(m_startAngle); }
    OdGePoint2d endPoint() const { return evalPoint(m_endAngle); }
    OdGePoint2d midPoint() const { return evalPoint((m_startAngle + m_endAngle) / 2.0); }
    /** The point at an angle as the arc measures it. */
    OdGePoint2d evalPoint(double angle) const;
    double length() const { return m_radius * sweepAngle(); }
    /** The exact extents. */
    OdGeExtents2d getGeomExtents() const;

private:
    OdGePoint2d m_center;
    double m_radius = 1.0;
    double m_startAngle = 0.0;
    double m_endAngle = 6.28318530717958647692;
    bool m_clockWise = false;
};
